#include "store/StoredPath.h"

#include <QDir>
#include <QFileInfo>

namespace quorrel {

namespace {

/// A path with its links followed, as far as it leads to something.
QString TruePath(const QString& path) {
    const QFileInfo info(QDir::cleanPath(path));
    if (info.exists())
        return info.canonicalFilePath();
    return info.isRoot() ? info.filePath()
                         : QDir(TruePath(info.absolutePath())).filePath(info.fileName());
}

bool IsWithin(const QString& folder, const QString& path) {
    const QString way = QDir(folder).relativeFilePath(path);
    return QDir::isRelativePath(way) && way != QLatin1String("..") &&
           !way.startsWith(QLatin1String("../"));
}

bool IsMarked(const QString& stored) {
    return stored.startsWith(QLatin1String("./")) || stored.startsWith(QLatin1String("../"));
}

QString FolderOf(const Database& holder) {
    return QFileInfo(holder.Path()).absolutePath();
}

} // namespace

QString StoredPath(const Session& session, const Database& holder, const QString& path) {
    if (!QDir::isAbsolutePath(path))
        return path;
    const QString folder = TruePath(FolderOf(holder));
    const QString program = TruePath(session.ProgramFolder);
    const QString file = TruePath(path);
    if (!IsWithin(folder, file) && !(IsWithin(program, folder) && IsWithin(program, file)))
        return path;
    const QString way = file == folder ? QString() : QDir(folder).relativeFilePath(file);
    return IsMarked(way) ? way : QStringLiteral("./") + way;
}

QString FullPath(const Database& holder, const QString& stored) {
    if (!IsMarked(stored))
        return stored;
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(FolderOf(holder)).filePath(stored)));
}

} // namespace quorrel
