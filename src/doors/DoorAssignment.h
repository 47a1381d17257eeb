#pragma once

#include "doors/DoorLists.h"

#include <optional>

namespace quorrel {

/// Which doors were given to which key.
struct Assignment {
    int doors = 0; ///< how many
    QString keyID; ///< as it is stored; empty when the key was not found and the doors have none
};

/// Assigns the doors of a line of the list of doors to the key of a line of the list of Key IDs. A
/// door has one key: one that had another is moved. Doors whose labels agree in the column of the
/// line are assigned together.
///
/// A Key ID that fills its column with fewer than two blanks left is not told apart from the
/// description behind it: no key is found then, and the doors get an empty Key ID.
///
/// `shownKey` is the Key ID that the screen shows for the door, where it shows one.
///
/// Throws `ChangedElsewhere` when the key or the door of a line has another name by now or is gone,
/// or when the door has another key than is shown.
Assignment AssignDoorToKey(Session& session, const RowLine& key, const RowLine& door,
                           const std::optional<QString>& shownKey = {});

/// Takes their key from the doors of a line of those that are assigned to the key of a line. Gives
/// how many they were. Throws `ChangedElsewhere` when that door is gone or has another key by now.
int RemoveDoorFromKey(Session& session, const RowLine& key, const RowLine& door);

/// Assigns one door to the key of a line, as it is shown with its present key, and gives the door
/// as it is stored then. Throws `ChangedElsewhere` when the key has another name by now, or when
/// the door is gone or has another key than is shown.
DoorsRow GiveDoorKey(Session& session, const RowLine& key, const DoorsRow& door);

} // namespace quorrel
