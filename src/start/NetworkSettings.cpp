#include "start/NetworkSettings.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/StoredPath.h"

#include <QDir>

namespace quorrel {

namespace {

Database& Sysinfo(Session& session) {
    if (!session.SysinfoDatabase)
        throw DatabaseError(DatabaseError::Kind::Missing,
                            PathIn(session.ProgramFolder, QLatin1String(kSysinfoFile)));
    return *session.SysinfoDatabase;
}

/// Adds or updates a row whose paths are full ones. Gives a new row its key.
void StoreRow(Session& session, SystemInfoRow& row) {
    Database& database = Sysinfo(session);
    SystemInfoRow stored = row;
    for (QString* path : {&stored.NetworkPath, &stored.PersonelFile})
        *path = StoredPath(session, database, *path);
    if (row.key == 0)
        Recordset<SystemInfoRow>::Add(database, stored);
    else
        Recordset<SystemInfoRow>::Update(database, stored);
    row.key = stored.key;
}

/// Both rows with their paths in full, the second one mended where it must be. Within the caller's
/// transaction.
std::vector<SystemInfoRow> MendedRows(Session& session) {
    Database& database = Sysinfo(session);
    auto rows = Recordset<SystemInfoRow>(database).Rows();
    for (SystemInfoRow& row : rows)
        for (QString* path : {&row.NetworkPath, &row.PersonelFile})
            *path = FullPath(database, *path);
    const QString folder = QDir::toNativeSeparators(session.ProgramFolder);
    while (rows.size() < 2) {
        SystemInfoRow row;
        row.NetworkPath = rows.empty() ? LocalKeySystemPath(session) : folder;
        StoreRow(session, row);
        rows.push_back(row);
    }
    SystemInfoRow& maps = rows.back();
    if (maps.NetworkPath == rows.front().NetworkPath) {
        maps.NetworkPath = folder;
        StoreRow(session, maps);
    }
    return rows;
}

} // namespace

QString LocalKeySystemPath(const Session& session) {
    return PathIn(session.ProgramFolder, QLatin1String(kKeySystemFile));
}

NetworkSettings LoadNetworkSettings(Session& session) {
    Transaction transaction(Sysinfo(session));
    const auto rows = MendedRows(session);
    transaction.Commit();
    NetworkSettings settings;
    settings.networked = rows.front().Networked;
    settings.networkPath = rows.front().NetworkPath;
    settings.personnel = rows.front().personel;
    settings.personnelFile = rows.front().PersonelFile;
    settings.personnelTable = rows.front().PersonelTable;
    settings.mapFolder = rows.back().NetworkPath;
    return settings;
}

void SaveNetworkSettings(Session& session, const NetworkSettings& settings) {
    Transaction transaction(Sysinfo(session));
    auto rows = MendedRows(session);
    rows[0].Networked = settings.networked;
    rows[0].NetworkPath = settings.networkPath;
    rows[0].personel = settings.personnel;
    rows[0].PersonelFile = settings.personnelFile;
    rows[0].PersonelTable = settings.personnelTable;
    rows[1].NetworkPath = settings.mapFolder;
    for (SystemInfoRow* row : {&rows[0], &rows[1]})
        StoreRow(session, *row);
    transaction.Commit();
}

QStringList MissingPaths(const NetworkSettings& settings) {
    QStringList named = {settings.networkPath, settings.mapFolder};
    if (settings.personnel)
        named.append(settings.personnelFile);
    QStringList missing;
    for (const QString& path : named)
        if (FindIgnoringCase(path).isEmpty())
            missing.append(path.isEmpty() ? QStringLiteral("(no path)") : path);
    return missing;
}

} // namespace quorrel
