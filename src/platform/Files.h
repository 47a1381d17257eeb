#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorrel {

/// The path of a file or folder, with the case in which it stands on the disk: names were agreed
/// on systems that ignore case. Empty when nothing of the name exists.
QString FindIgnoringCase(const QString& path);

/// `folder` and `name` joined with the platform's separator, in the case found on the disk; as
/// given when no such file exists.
QString PathIn(const QString& folder, const QString& name);

/// The name of the file at a path, or an empty text for a folder or where there is none.
QString FileNameAt(const QString& path);

/// A text as the name of a file: without the signs that some system does not take there.
QString FileNameFrom(QString text);

/// A program to start with its arguments.
struct OutsideProgram {
    QString path;
    QStringList arguments;
};

/// The platform's system information tool, where one is installed.
std::optional<OutsideProgram> SystemInformationTool();

/// Starts a program without waiting for it. False when it cannot be started.
bool StartProgram(const OutsideProgram& program);

} // namespace quorrel
