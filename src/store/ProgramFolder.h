#pragma once

#include <QString>

namespace quorrel {

/// The folder of the program's files: beside the executable when `Sysinfo.qvx` lies there (a
/// portable copy), else the user's data folder.
QString ChooseProgramFolder(const QString& executableFolder, const QString& userDataFolder);

/// Lays the delivered files into a program folder, those that are missing only, and never
/// overwrites one. A fresh `Sysinfo.qvx` gets its two rows: the key system file and the folder of
/// the maps, both in this folder. Throws `std::runtime_error` or `DatabaseError`.
void LayOutProgramFolder(const QString& deliveredFolder, const QString& folder);

} // namespace quorrel
