#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>

namespace quorrel {

namespace {

#ifdef Q_OS_WIN
std::optional<OutsideProgram> RegisteredTool() {
    const QString root = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools");
    const QString path = QSettings(root + QStringLiteral("\\MSINFO"), QSettings::NativeFormat)
                             .value(QStringLiteral("PATH"))
                             .toString();
    if (QFileInfo::exists(path))
        return OutsideProgram{path, {}};
    const QString folder = QSettings(root + QStringLiteral(" Location"), QSettings::NativeFormat)
                               .value(QStringLiteral("MSINFO"))
                               .toString();
    const QString tool = QDir(folder).filePath(QStringLiteral("MSINFO32.EXE"));
    if (!folder.isEmpty() && QFileInfo::exists(tool))
        return OutsideProgram{tool, {}};
    return std::nullopt;
}
#endif

} // namespace

QString FindIgnoringCase(const QString& path) {
    const QFileInfo info(path);
    if (path.isEmpty() || info.exists())
        return path;
    const QString folder = info.path() == path ? QString() : FindIgnoringCase(info.path());
    if (folder.isEmpty())
        return {};
    const auto names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                              QDir::NoDotAndDotDot);
    for (const QString& name : names)
        if (name.compare(info.fileName(), Qt::CaseInsensitive) == 0)
            return QDir(folder).filePath(name);
    return {};
}

QString PathIn(const QString& folder, const QString& name) {
    const QString path = QDir(folder).filePath(name);
    const QString found = FindIgnoringCase(path);
    return QDir::toNativeSeparators(found.isEmpty() ? path : found);
}

QString FileNameAt(const QString& path) {
    const QFileInfo info(FindIgnoringCase(path));
    return info.isFile() ? info.fileName() : QString();
}

QString FileNameFrom(QString text) {
    return text.replace(QRegularExpression(QStringLiteral(R"([\\/:*?"<>|])")), QStringLiteral("-"));
}

std::optional<OutsideProgram> SystemInformationTool() {
#ifdef Q_OS_WIN
    if (auto tool = RegisteredTool())
        return tool;
    static const QList<QStringList> known = {{QStringLiteral("msinfo32")}};
#else
    static const QList<QStringList> known = {
        {QStringLiteral("kinfocenter")},
        {QStringLiteral("hardinfo")},
        {QStringLiteral("gnome-control-center"), QStringLiteral("info-overview")},
        {QStringLiteral("mate-system-monitor"), QStringLiteral("--show-system-tab")}};
#endif
    for (const QStringList& command : known) {
        const QString path = QStandardPaths::findExecutable(command.first());
        if (!path.isEmpty())
            return OutsideProgram{path, command.mid(1)};
    }
    return std::nullopt;
}

bool StartProgram(const OutsideProgram& program) {
    return QProcess::startDetached(program.path, program.arguments);
}

} // namespace quorrel
