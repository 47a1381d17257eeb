#pragma once

#include "store/Session.h"

namespace quorrel {

class TextList;

/// Marks the line of a cross-keyed door. Its tip tells which keys the door admits beyond the
/// hierarchy, and is worked out when the user wants to know.
void MarkCrossKeyed(TextList& list, int row, Session& session, RowKey door);

} // namespace quorrel
