#pragma once

#include "store/Session.h"
#include "store/SystemTables.h"

#include <vector>

namespace quorrel {

/// The key systems of the open file, in table order.
std::vector<KeySystemRow> ListKeySystems(Session& session);

/// Opens the first system that has the name of a listed one. Throws `ChangedElsewhere` when none
/// has it any more, and `BrokenSystem` when it cannot be worked on; another one stays open then.
void OpenSelectedSystem(Session& session, const KeySystemRow& shown);

/// Makes a system the session's open one: sets its definition and its map numbers and page 1, and
/// opens its map file, passing over a failure of that. Throws as `OpenSelectedSystem` does.
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

/// Deletes a listed system and every row of it in the key system file, in one transaction. Its maps
/// stay in the map file, and its number is never given again. Throws `ChangedElsewhere` when the
/// file does not hold that system any more, under that number and name.
void DeleteKeySystem(Session& session, const KeySystemRow& shown);

} // namespace quorrel
