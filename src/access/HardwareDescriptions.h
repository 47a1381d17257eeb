#pragma once

#include "store/Session.h"

namespace quorrel {

/// Replaces a description on all doors that have exactly this one, in the open system or in every
/// system of the file.
void ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems);

} // namespace quorrel
