#include "start/NetworkSettings.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"

#include <QDir>

namespace quorrel {

namespace {

Database& Sysinfo(Session& session) {
    if (!session.SysinfoDatabase)
        throw DatabaseError(DatabaseError::Kind::Missing,
                            PathIn(session.ProgramFolder, QLatin1String(kSysinfoFile)));
    return *session.SysinfoDatabase;
}

/// Both rows, the second one mended where it must be. Within the caller's transaction.
std::vector<SystemInfoRow> MendedRows(Session& session) {
    Database& database = Sysinfo(session);
    auto rows = Recordset<SystemInfoRow>(database).Rows();
    const QString folder = QDir::toNativeSeparators(session.ProgramFolder);
    while (rows.size() < 2) {
        SystemInfoRow row;
        row.NetworkPath = rows.empty() ? LocalKeySystemPath(session) : folder;
        Recordset<SystemInfoRow>::Add(database, row);
        rows.push_back(row);
    }
    SystemInfoRow& maps = rows.back();
    if (maps.NetworkPath == rows.front().NetworkPath) {
        maps.NetworkPath = folder;
        Recordset<SystemInfoRow>::Update(database, maps);
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
        Recordset<SystemInfoRow>::Update(*session.SysinfoDatabase, *row);
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
