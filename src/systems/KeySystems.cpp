#include "systems/KeySystems.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"

#include <QDir>
#include <QLocale>

namespace quorrel {

namespace {

/// Where a system's maps are: a path, or a folder to which the file's name is added.
QString MapPathOf(const Session& session, const KeySystemRow& system) {
    QString path = RightTrimmed(system.MapFile);
    if (path.isEmpty())
        path = session.MapDatabasePath;
    if (path.isEmpty())
        path = PathIn(session.ProgramFolder, QLatin1String(kMapFile));
    if (Right(FileNameAt(path), 3).compare(QLatin1String("vlx"), Qt::CaseInsensitive) != 0)
        path = PathIn(path, QLatin1String(kMapFile));
    const QString found = FindIgnoringCase(path);
    return found.isEmpty() ? path : found;
}

template <class Row>
Recordset<Row> RowsOf(Session& session, int systemID) {
    return Recordset<Row>(session.Keys(), Query<Row>().Where(&Row::SystemNumber, systemID));
}

template <class... Rows>
void DeleteRowsOf(Session& session, int systemID) {
    (RowsOf<Rows>(session, systemID).DeleteAll(), ...);
}

} // namespace

std::vector<KeySystemRow> ListKeySystems(Session& session) {
    return Recordset<KeySystemRow>(session.Keys()).Rows();
}

bool OpenSelectedSystem(Session& session, const QString& systemName) {
    const auto system =
        Recordset<KeySystemRow>(session.Keys(),
                                Query<KeySystemRow>().Where(&KeySystemRow::SystemName, systemName))
            .First();
    if (system)
        OpenKeySystem(session, *system);
    return system.has_value();
}

void OpenKeySystem(Session& session, const KeySystemRow& system) {
    session.ActiveSystemNumber = system.SystemID;
    session.MapFilingNumber = system.MapFileID == 0 ? system.SystemID : system.MapFileID;
    session.CurrentPage = 1;
    session.System = ReadOpenSystem(session.Keys(), system.SystemID);
    session.MapDatabase = OpenMaps(session, system);
}

std::unique_ptr<Database> OpenMaps(const Session& session, const KeySystemRow& system) {
    try {
        return Database::Open(MapPathOf(session, system), kMapKind, session.BusyTimeout);
    } catch (const DatabaseError&) {
        return nullptr; // The forms that need maps say so.
    }
}

QString SystemContents::InWords() const {
    const QLocale locale;
    const auto some = [&](qint64 count, const char* one, const char* many) {
        return QStringLiteral("%1 %2").arg(locale.toString(count),
                                           QLatin1String(count == 1 ? one : many));
    };
    return QStringLiteral("%1 (%2 with a Key ID), %3, %4, %5 and %6")
        .arg(some(keys, "key", "keys"), locale.toString(labelledKeys), some(doors, "door", "doors"),
             some(holders, "key user", "key users"), some(units, "key unit", "key units"),
             some(logEntries, "log entry", "log entries"));
}

SystemContents ContentsOf(Session& session, int systemID) {
    SystemContents contents;
    contents.keys = RowsOf<PatternsRow>(session, systemID).Count();
    contents.labelledKeys = RowsOf<AllKeysRow>(session, systemID).Count();
    contents.doors = RowsOf<DoorsRow>(session, systemID).Count();
    contents.holders = RowsOf<KeyUsersRow>(session, systemID).Count();
    contents.units = RowsOf<KeyUnitRow>(session, systemID).Count();
    contents.logEntries = RowsOf<ReturnKeyRow>(session, systemID).Count() +
                          RowsOf<LostKeysRow>(session, systemID).Count();
    return contents;
}

void DeleteKeySystem(Session& session, int systemID) {
    Transaction transaction(session.Keys());
    DeleteRowsOf<PatternsRow, AllKeysRow, DoorsRow, DepartmentRow, KeyUsersRow, KeyUnitRow,
                 UsertoUnitRow, ReturnKeyRow, LostKeysRow, CrossKeyedRow, ActivityRow>(session,
                                                                                       systemID);
    Recordset<KeySystemRow>(session.Keys(),
                            Query<KeySystemRow>().Where(&KeySystemRow::SystemID, systemID))
        .DeleteAll();
    transaction.Commit();
}

} // namespace quorrel
