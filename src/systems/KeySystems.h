#pragma once

#include "store/Session.h"
#include "store/SystemTables.h"

#include <vector>

namespace quorrel {

/// The key systems of the open file, in table order.
std::vector<KeySystemRow> ListKeySystems(Session& session);

/// Opens the first system of a name: sets the session's system and map numbers, page 1, and opens
/// the map database, passing over a failure of that. False when no system has the name.
bool OpenSelectedSystem(Session& session, const QString& systemName);

/// Makes a system the session's open one, as `OpenSelectedSystem` does.
void OpenKeySystem(Session& session, const KeySystemRow& system);

/// Opens the map file of a system: the system's own, else the session's. Null when it cannot be.
std::unique_ptr<Database> OpenMaps(const Session& session, const KeySystemRow& system);

/// What stands behind a system.
struct SystemContents {
    qint64 keys = 0, labelledKeys = 0, doors = 0, holders = 0, units = 0, logEntries = 0;

    /// In words, such as "6,656 keys (12 with a Key ID), 3 doors, …".
    QString InWords() const;
};

SystemContents ContentsOf(Session& session, int systemID);

/// Deletes a system and every row of it in the key system file, in one transaction. Its maps stay
/// in the map file.
void DeleteKeySystem(Session& session, int systemID);

} // namespace quorrel
