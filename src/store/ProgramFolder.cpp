#include "store/ProgramFolder.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/ProgramTables.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace quorrel {

namespace {

/// Copies under a passing name first, so that a file is there whole or not at all.
QString CopyAside(const QString& deliveredFolder, const QString& folder, const QString& name) {
    QString aside = QDir(folder).filePath(name + QStringLiteral(".new"));
    QFile::remove(aside);
    if (!QFile::copy(QDir(deliveredFolder).filePath(name), aside))
        throw std::runtime_error("Cannot lay out " + name.toStdString() + " in " +
                                 folder.toStdString());
    QFile::setPermissions(aside, QFile::permissions(aside) | QFile::WriteOwner | QFile::WriteUser);
    return aside;
}

void PutInPlace(const QString& aside) {
    QString path = aside;
    path.chop(4);
    // A rename does not replace an existing file: whoever was first, wins.
    if (!QFile::rename(aside, path))
        QFile::remove(aside);
}

bool IsDatabaseFile(const QString& name) {
    return name == QLatin1String(kKeySystemFile) || name == QLatin1String(kMapFile);
}

/// Both paths lead to the folder itself, wherever it is moved or copied to.
void WritePaths(const QString& sysinfo, const QString& folder) {
    const auto database = Database::Open(sysinfo, kSysinfoKind);
    Transaction transaction(*database);
    SystemInfoRow row;
    row.Networked = true;
    row.NetworkPath =
        QStringLiteral("./") + FileNameAt(PathIn(folder, QLatin1String(kKeySystemFile)));
    Recordset<SystemInfoRow>::Add(*database, row);
    row.NetworkPath = QStringLiteral("./");
    Recordset<SystemInfoRow>::Add(*database, row);
    transaction.Commit();
}

} // namespace

QString ChooseProgramFolder(const QString& executableFolder, const QString& userDataFolder,
                            const QString& deliveredFolder) {
    const auto isThere = [](const QString& folder, const char* name) {
        return !FindIgnoringCase(QDir(folder).filePath(QLatin1String(name))).isEmpty();
    };
    for (const char* name : {kSysinfoFile, kKeySystemFile, kMapFile})
        if (isThere(executableFolder, name))
            return executableFolder;
    // Without delivered files there is nothing that a user's folder could be made of.
    return deliveredFolder.isEmpty() && !isThere(userDataFolder, kSysinfoFile) ? executableFolder
                                                                               : userDataFolder;
}

void LayOutProgramFolder(const QString& deliveredFolder, const QString& folder) {
    QDir().mkpath(folder);
    const QString absolute = QDir(folder).absolutePath();
    const auto isThere = [&](const QString& name) {
        return !FindIgnoringCase(QDir(absolute).filePath(name)).isEmpty();
    };
    const QString sysinfo = QLatin1String(kSysinfoFile);
    const bool inUse = isThere(sysinfo);
    // `Sysinfo.qvx` comes last: where it lies, the folder is complete. A database file that is
    // missing there is somewhere else; an empty one in its place would look like total loss.
    for (const QString& name : QDir(deliveredFolder).entryList(QDir::Files))
        if (name != sysinfo && !isThere(name) && !(inUse && IsDatabaseFile(name)))
            PutInPlace(CopyAside(deliveredFolder, absolute, name));
    if (inUse)
        return;
    const QString aside = CopyAside(deliveredFolder, absolute, sysinfo);
    WritePaths(aside, absolute);
    PutInPlace(aside);
}

} // namespace quorrel
