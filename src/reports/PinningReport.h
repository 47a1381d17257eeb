#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// Keys that one pinning report takes.
inline constexpr int kMostPinnedKeys = 600;

/// Prints one copy of how the cylinders of the chosen keys are pinned, three beside one another,
/// below how many pins of each size they take together. With `pinKit` a last page tells what to
/// take out of the pin kit. Gives the names of the keys that are not there any more.
QStringList PrintPinningReport(Session& session, Printer& printer, const ReportHead& head,
                               const std::vector<ReportEntry>& chosen, bool pinKit);

} // namespace quorrel
