#pragma once

#include "store/Session.h"

namespace quorrel {

/// Assigns the doors of a line of the list of doors to the key of a line of the list of Key IDs. A
/// door has one key: one that had another is moved. Doors whose labels agree in the column of the
/// line are assigned together. Does nothing when no door or no key was chosen.
///
/// A Key ID that fills its column with fewer than two blanks left is not told apart from the
/// description behind it: no key is found then, and the doors get an empty Key ID.
void AssignDoorToKey(Session& session, const QString& keyLine, const QString& doorLine);

/// Takes their key from the doors of a line. Does nothing when no door was chosen.
void RemoveDoorFromKey(Session& session, const QString& doorLine);

} // namespace quorrel
