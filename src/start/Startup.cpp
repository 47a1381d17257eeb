#include "start/Startup.h"

#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/SystemTables.h"

#include <QDir>

#include <exception>

namespace quorrel {

namespace {

SystemInfoRow PathRow(const QString& path) {
    SystemInfoRow row;
    row.NetworkPath = path;
    return row;
}

/// Reads the two rows, adding those that are missing.
void LoadSystemInfo(Session& session) {
    Database& database = *session.SysinfoDatabase;
    const QString folder = QDir::toNativeSeparators(session.ProgramFolder);
    auto rows = Recordset<SystemInfoRow>(database).Rows();
    if (rows.size() < 2) {
        Transaction transaction(database);
        rows = Recordset<SystemInfoRow>(database).Rows();
        if (rows.empty())
            rows.push_back(PathRow(PathIn(folder, QLatin1String(kKeySystemFile))));
        if (rows.size() < 2)
            rows.push_back(PathRow(folder));
        for (SystemInfoRow& row : rows)
            if (row.key == 0)
                Recordset<SystemInfoRow>::Add(database, row);
        transaction.Commit();
    }
    session.SystemInfo = rows[0];
    session.KeySystemPath = rows[0].NetworkPath;
    session.MapDatabasePath = rows[1].NetworkPath;
    if (!session.SystemInfo.Networked) {
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
    } catch (const std::exception&) {
        // Whoever looks a person up is told.
    }
}

} // namespace

bool LoadStartupFiles(Session& session, QString& failure) {
    CloseDatabases(session);
    try {
        session.SysinfoDatabase =
            Database::Open(PathIn(session.ProgramFolder, QLatin1String(kSysinfoFile)), kSysinfoKind,
                           session.BusyTimeout);
        LoadSystemInfo(session);
        const QString found = FindIgnoringCase(session.KeySystemPath);
        auto keys = Database::Open(found.isEmpty() ? session.KeySystemPath : found, kKeySystemKind,
                                   session.BusyTimeout);
        Recordset<KeySystemRow>(*keys).Count();
        Recordset<CompanyInfoRow>(*keys).Count();
        session.KeySystemDatabase = std::move(keys);
    } catch (const DatabaseError& error) {
        failure = QString::fromUtf8(error.what());
        return false;
    }
    OpenPersonnel(session);
    return true;
}

void LoadCompany(Session& session) {
    const auto row = Recordset<CompanyInfoRow>(session.Keys()).First();
    session.FirstRun = session.CompanyInfoEmpty = !row;
    if (row)
        KeepCompany(session, *row);
}

void CloseDatabases(Session& session) {
    session.PersonnelRecords.reset();
    session.PersonnelAvailable = false;
    session.MapDatabase.reset();
    session.KeySystemDatabase.reset();
    session.SysinfoDatabase.reset();
}

} // namespace quorrel
