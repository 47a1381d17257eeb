#pragma once

#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// Every type of hardware in the file, of all systems, in the order of first appearance.
QStringList ListHardwareTypes(Session& session);

/// Replaces a description on all doors that have exactly this one, in the open system or in every
/// system of the file. False when no door of the open system has it. Throws `ChangedElsewhere` when
/// no door of the file has it any more.
bool ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems);

} // namespace quorrel
