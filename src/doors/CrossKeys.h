#pragma once

#include "doors/DoorLists.h"
#include "engine/CrossKeying.h"
#include "store/DoorTables.h"
#include "store/Session.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// \file
/// The keys that a door is cross-keyed to besides the master key of its system.

namespace quorrel {

/// Keys that a door can be cross-keyed to.
inline constexpr int kCrossKeys = 6;

/// Their Key IDs as the page of a door holds them; a blank text stands for none.
using CrossKeyIDs = std::array<QString, kCrossKeys>;

/// What a typed Key ID becomes when its box is left: in capitals, filled or cut to its stored
/// width. Nothing but blanks is an empty box.
QString CrossKeyText(const QString& typed);

/// Moves the Key IDs up into empty boxes, up to the first that cannot be filled.
void PackCrossKeys(CrossKeyIDs& keyIDs);

/// The box, from 0, that a picked Key ID goes into: the first that is empty or holds it already,
/// else the last.
int BoxForCrossKey(const CrossKeyIDs& keyIDs, const QString& keyID);

/// The stored keys of a door of the open system, the first row in table order.
std::optional<CrossKeyedRow> FindCrossKeys(Session& session, double doorID);

/// The Key IDs of a row; six blank ones without a row.
CrossKeyIDs KeyIDsOf(const std::optional<CrossKeyedRow>& row);

/// Stores the keys of a door over the row that was shown, of which only what was changed is
/// written, and gives the row as it is stored now. Throws `ChangedElsewhere` when the door is gone
/// or another workstation has changed the same.
CrossKeyedRow SaveCrossKeys(Session& session, const DoorsRow& door,
                            const std::optional<CrossKeyedRow>& shown, const CrossKeyIDs& typed);

/// What the boxes hold after another workstation's change, which has been told: what is stored now,
/// with those changes that were typed and do not meet another's.
CrossKeyIDs KeysAfterConflict(const CrossKeyIDs& typed, const CrossKeyIDs& shown,
                              const CrossKeyIDs& now);

/// A change key to pick from, with its cuts; these are empty where they cannot be read.
struct CrossKeyLine {
    RowLine line;
    std::string cuts;
};

/// The change keys with a Key ID that begins with a text, whatever its case, by Key ID.
std::vector<CrossKeyLine> ListCrossKeyable(Session& session, const QString& filter);

/// The key that the text of a box means.
struct MeantKey {
    QString keyID;    ///< of the key that counts: the last by Key ID
    std::string cuts; ///< empty when no key is meant, or its cuts cannot be read
    int matches = 0;  ///< how many keys are meant
};

/// A text of full width means the key of exactly this Key ID; any other means all whose Key ID
/// begins with it.
MeantKey FindMeantKey(Session& session, const QString& text);

/// The cuts that the cylinder of a door is pinned for: element 0 the master key's, then those of
/// its Key IDs, a blank text where no key is meant.
using CrossKeyCuts = std::array<std::string, kCrossKeys + 1>;
CrossKeyCuts FindCrossKeyCuts(Session& session, const CrossKeyIDs& keyIDs);

/// How many of these elements are pinned: a cylinder takes the master key and no more other keys
/// than it has chambers.
int PinnedElements(const Session& session);

/// The cylinder that is pinned for them.
CrossKeying CrossKeyingFor(const Session& session, const CrossKeyCuts& cuts);

/// The cross-keyed doors of the open system, by their `DoorID`.
std::map<double, CrossKeyIDs> ListCrossKeyedDoors(Session& session);

/// The Key IDs of the named keys that turn the cylinder of a cross-keyed door although neither its
/// own Key ID nor the masters over that give them the right to, in the order of their texts.
QStringList KeysBeyondHierarchy(Session& session, const QString& cutsLabel,
                                const CrossKeyIDs& keyIDs);

/// What the tip of a cross-keyed door says: which keys it admits beyond the hierarchy.
QString DescribeCrossKeying(Session& session, RowKey door);

} // namespace quorrel
