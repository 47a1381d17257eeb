#pragma once

#include <QString>

namespace quorrel {

/// The folder of the program's files: that of the executable when one of its database files lies
/// there (a portable copy), or when there is nothing to lay out elsewhere; else the user's data
/// folder. `deliveredFolder` is empty where no delivered files are installed.
QString ChooseProgramFolder(const QString& executableFolder, const QString& userDataFolder,
                            const QString& deliveredFolder);

/// Lays the delivered files into a program folder, those that are missing only, and never
/// overwrites one. Where `Sysinfo.qvx` lies the folder is in use: then no database file is laid
/// out. A fresh `Sysinfo.qvx` gets its two rows: the key system file and the folder of the maps,
/// both in this folder. Throws `std::runtime_error` or `DatabaseError`.
void LayOutProgramFolder(const QString& deliveredFolder, const QString& folder);

} // namespace quorrel
