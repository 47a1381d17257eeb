#pragma once

#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// Every hardware description of the file, of all systems, each once and in table order.
QStringList ListHardware(Session& session);

/// Replaces a description on all doors that have exactly this one, in the open system or in every
/// system of the file.
void ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems);

} // namespace quorrel
