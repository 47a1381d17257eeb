#pragma once

#include "store/Session.h"

namespace quorrel {

/// Replaces a description on all doors that have exactly this one, in the open system or in every
/// system of the file. False when no door of the open system has it. Throws `ChangedElsewhere` when
/// no door of the file has it any more.
bool ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems);

} // namespace quorrel
