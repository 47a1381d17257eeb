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

void WritePaths(const QString& sysinfo, const QString& folder) {
    const auto database = Database::Open(sysinfo, kSysinfoKind);
    Transaction transaction(*database);
    SystemInfoRow row;
    row.Networked = true;
    row.NetworkPath = PathIn(folder, QLatin1String(kKeySystemFile));
    Recordset<SystemInfoRow>::Add(*database, row);
    row.NetworkPath = QDir::toNativeSeparators(folder);
    Recordset<SystemInfoRow>::Add(*database, row);
    transaction.Commit();
}

} // namespace

QString ChooseProgramFolder(const QString& executableFolder, const QString& userDataFolder) {
    const QString portable = QDir(executableFolder).filePath(QLatin1String(kSysinfoFile));
    return FindIgnoringCase(portable).isEmpty() ? userDataFolder : executableFolder;
}

void LayOutProgramFolder(const QString& deliveredFolder, const QString& folder) {
    QDir().mkpath(folder);
    const QString absolute = QDir(folder).absolutePath();
    const auto isThere = [&](const QString& name) {
        return !FindIgnoringCase(QDir(absolute).filePath(name)).isEmpty();
    };
    // `Sysinfo.qvx` comes last: where it lies, the folder is complete.
    for (const QString& name : QDir(deliveredFolder).entryList(QDir::Files))
        if (name != QLatin1String(kSysinfoFile) && !isThere(name))
            PutInPlace(CopyAside(deliveredFolder, absolute, name));
    const QString sysinfo = QLatin1String(kSysinfoFile);
    if (isThere(sysinfo))
        return;
    const QString aside = CopyAside(deliveredFolder, absolute, sysinfo);
    WritePaths(aside, absolute);
    PutInPlace(aside);
}

} // namespace quorrel
