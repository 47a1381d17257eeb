#include "systems/KeySystems.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DatabaseFiles.h"
#include "store/RowsOfSystems.h"
#include "store/StoredPath.h"
#include "systems/SystemNumbers.h"

#include <QDir>
#include <QLocale>

#include <algorithm>

namespace quorrel {

namespace {

/// Where a system's maps are: a path, or a folder to which the file's name is added.
QString MapPathOf(const Session& session, const KeySystemRow& system) {
    QString path = FullPath(*session.KeySystemDatabase, RightTrimmed(system.MapFile));
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

/// How a system is called when it is spoken of.
QString SubjectOf(const KeySystemRow& system) {
    return QStringLiteral("The key system \"%1\"").arg(system.SystemName);
}

} // namespace

std::vector<KeySystemRow> ListKeySystems(Session& session) {
    return Recordset<KeySystemRow>(session.Keys()).Rows();
}

void OpenSelectedSystem(Session& session, const KeySystemRow& shown) {
    // Of several with one name the first counts, whichever was chosen.
    const auto systems = ListKeySystems(session);
    const auto system =
        std::find_if(systems.begin(), systems.end(), [&](const KeySystemRow& stored) {
            return stored.SystemName == shown.SystemName;
        });
    if (system == systems.end())
        throw ChangedElsewhere::Deleted(SubjectOf(shown));
    OpenKeySystem(session, *system);
}

void OpenKeySystem(Session& session, const KeySystemRow& system) {
    const OpenSystem opened = ReadOpenSystem(session.Keys(), system.SystemID);
    if (opened.name != system.SystemName)
        throw ChangedElsewhere::Deleted(SubjectOf(system));
    RequireUsable(opened);
    session.ActiveSystemNumber = system.SystemID;
    session.MapFilingNumber = system.MapFileID == 0 ? system.SystemID : system.MapFileID;
    session.CurrentPage = 1;
    session.System = opened;
    session.MapDatabase = OpenMaps(session, system);
}

std::unique_ptr<Database> OpenMaps(const Session& session, const KeySystemRow& system) {
    try {
        auto maps = Database::Open(MapPathOf(session, system), kMapKind, session.BusyTimeout);
        maps->NoteIn(session.log);
        return maps;
    } catch (const DatabaseError& error) {
        // The forms that need maps say so. Many sites have none.
        if (error.kind() != DatabaseError::Kind::Missing)
            session.log.Note("Opening the maps", error);
        return nullptr;
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

void DeleteKeySystem(Session& session, const KeySystemRow& shown) {
    Transaction transaction(session.Keys());
    const auto stored = StoredRow<KeySystemRow>(session.Keys(), shown.key, SubjectOf(shown));
    if (stored.SystemID != shown.SystemID || stored.SystemName != shown.SystemName)
        throw ChangedElsewhere::Deleted(SubjectOf(shown));
    ForTablesOfSystems([&](const auto& row) {
        RowsOf<std::decay_t<decltype(row)>>(session, shown.SystemID).DeleteAll();
    });
    Recordset<KeySystemRow>(session.Keys(), Query<KeySystemRow>().WhereKey(shown.key)).DeleteAll();
    RetireSystemNumber(session, shown.SystemID);
    transaction.Commit();
}

} // namespace quorrel
