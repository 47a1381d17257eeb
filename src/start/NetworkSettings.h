#pragma once

#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// Where this workstation finds the key systems, the maps and the personnel file.
struct NetworkSettings {
    bool networked = false;
    QString networkPath; ///< full path of the key system file
    QString mapFolder;
    bool personnel = false;
    QString personnelFile, personnelTable;

    bool operator==(const NetworkSettings&) const = default;
};

/// The key system file of an install without network path.
QString LocalKeySystemPath(const Session& session);

/// Reads the settings. A missing second row is added with the program folder, and so is a map
/// folder that equals the key system file's path replaced by it.
NetworkSettings LoadNetworkSettings(Session& session);

/// Writes the settings; they take effect at the next start.
void SaveNetworkSettings(Session& session, const NetworkSettings& settings);

/// What the settings name and is not there now.
QStringList MissingPaths(const NetworkSettings& settings);

} // namespace quorrel
