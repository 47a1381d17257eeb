#include "start/Startup.h"

#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/StoredPath.h"
#include "store/SystemTables.h"
#include "store/WindowPlaces.h"

#include <QDir>

#include <algorithm>
#include <exception>
#include <functional>

namespace quorrel {

namespace {

SystemInfoRow PathRow(const QString& path) {
    SystemInfoRow row;
    row.NetworkPath = path;
    return row;
}

/// Keeps the paths of a row as they are to be kept: earlier programs did so in full. False when
/// they were.
bool MendPaths(const Session& session, SystemInfoRow& row) {
    const SystemInfoRow before = row;
    for (QString* path : {&row.NetworkPath, &row.PersonelFile})
        *path = StoredPath(session, *session.SysinfoDatabase, *path);
    return !SameFields(row, before);
}

/// The two rows, those that are missing added. Within the caller's transaction.
std::vector<SystemInfoRow> MendedSystemInfo(Session& session) {
    Database& database = *session.SysinfoDatabase;
    auto rows = Recordset<SystemInfoRow>(database).Rows();
    for (SystemInfoRow& row : rows)
        if (MendPaths(session, row))
            Recordset<SystemInfoRow>::Update(database, row);
    while (rows.size() < 2) {
        SystemInfoRow row =
            PathRow(rows.empty() ? PathIn(session.ProgramFolder, QLatin1String(kKeySystemFile))
                                 : session.ProgramFolder);
        MendPaths(session, row);
        Recordset<SystemInfoRow>::Add(database, row);
        rows.push_back(row);
    }
    return rows;
}

/// Reads the two rows.
void LoadSystemInfo(Session& session) {
    Database& database = *session.SysinfoDatabase;
    auto rows = Recordset<SystemInfoRow>(database).Rows();
    const bool sound = std::none_of(rows.begin(), rows.end(),
                                    [&](SystemInfoRow row) { return MendPaths(session, row); });
    if (rows.size() < 2 || !sound) {
        Transaction transaction(database);
        rows = MendedSystemInfo(session);
        transaction.Commit();
    }
    session.SystemInfo = rows[0];
    session.SystemInfo.PersonelFile = FullPath(database, rows[0].PersonelFile);
    session.KeySystemPath = FullPath(database, rows[0].NetworkPath);
    session.MapDatabasePath = FullPath(database, rows[1].NetworkPath);
    if (!session.SystemInfo.Networked) {
        const QString folder = QDir::toNativeSeparators(session.ProgramFolder);
        session.KeySystemPath = PathIn(folder, QLatin1String(kKeySystemFile));
        // Without a separator: the choice of a system tells a folder's path from this one.
        session.MapDatabasePath = folder + QLatin1String(kMapFile);
    }
}

/// Opens the personnel file when look-up is on. A failure leaves look-up unavailable, no more.
void OpenPersonnel(Session& session) {
    const SystemInfoRow& settings = session.SystemInfo;
    if (!settings.personel)
        return;
    try {
        session.PersonnelRecords =
            ForeignTable::Open(FindIgnoringCase(settings.PersonelFile), settings.PersonelTable);
        session.PersonnelAvailable = true;
    } catch (const std::exception& error) {
        // Whoever looks a person up is told.
        session.log.Note("Opening the personnel file", error);
    }
}

std::unique_ptr<Database> Open(const Session& session, const QString& path, const FileKind& kind) {
    const QString found = FindIgnoringCase(path);
    auto database = Database::Open(found.isEmpty() ? path : found, kind, session.BusyTimeout);
    database->NoteIn(session.log);
    return database;
}

bool DoneWhenFree(Session& session, QString& failure, const std::function<void()>& action) {
    failure.clear();
    for (;;) {
        try {
            action();
            return true;
        } catch (const DatabaseError& error) {
            const QString text = QString::fromUtf8(error.what());
            if (error.kind() != DatabaseError::Kind::Busy) {
                failure = text;
                return false;
            }
            if (!session.boxes.Confirms(text + QStringLiteral("\n\nTry again now?"),
                                        QStringLiteral("Quorrel")))
                return false;
        }
    }
}

/// Throws `DatabaseError`.
void OpenFiles(Session& session) {
    CloseDatabases(session);
    session.SysinfoDatabase =
        Open(session, PathIn(session.ProgramFolder, QLatin1String(kSysinfoFile)), kSysinfoKind);
    LoadPlaces(session);
    LoadSystemInfo(session);
    auto keys = Open(session, session.KeySystemPath, kKeySystemKind);
    Recordset<KeySystemRow>(*keys).Count();
    Recordset<CompanyInfoRow>(*keys).Count();
    session.KeySystemDatabase = std::move(keys);
    OpenPersonnel(session);
}

} // namespace

bool LoadStartupFiles(Session& session, QString& failure) {
    try {
        OpenFiles(session);
        return true;
    } catch (const DatabaseError& error) {
        failure = QString::fromUtf8(error.what());
        return false;
    }
}

bool LoadStartupFilesWhenFree(Session& session, QString& failure) {
    return DoneWhenFree(session, failure, [&] { OpenFiles(session); });
}

void LoadCompany(Session& session) {
    const auto row = Recordset<CompanyInfoRow>(session.Keys()).First();
    session.FirstRun = session.CompanyInfoEmpty = !row;
    if (row)
        KeepCompany(session, *row);
}

bool LoadCompanyWhenFree(Session& session, QString& failure) {
    return DoneWhenFree(session, failure, [&] { LoadCompany(session); });
}

void CloseDatabases(Session& session) {
    session.PersonnelRecords.reset();
    session.PersonnelAvailable = false;
    session.MapDatabase.reset();
    session.KeySystemDatabase.reset();
    session.SysinfoDatabase.reset();
}

} // namespace quorrel
