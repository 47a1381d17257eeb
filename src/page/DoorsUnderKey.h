#pragma once

#include "store/DoorTables.h"
#include "store/Session.h"

#include <string>
#include <vector>

/// \file
/// What lies under a key: a change key has itself alone, a master all keys that it opens for.

namespace quorrel {

/// The Key IDs of all named keys of the open system under a master with these cuts, its own among
/// them, padded to their full width and in the order in which the keys were named. A key whose
/// cuts cannot be read is passed over.
QStringList KeyIDsUnder(Session& session, const std::string& cuts);

/// The doors that a key of the open system opens. Of a master, known by its `position`, these are
/// the doors of all keys under it, key by key; of a change key those of its Key ID.
std::vector<KeyedDoorRow> DoorsUnderKey(Session& session, int position, const QString& keyID,
                                        const std::string& cuts);

} // namespace quorrel
