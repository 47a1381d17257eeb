#pragma once

#include "reports/ReportHead.h"
#include "store/Session.h"

namespace quorrel {

/// Prints one copy of the list of all named keys of the open system, with how many units were made
/// of each.
void PrintKeyList(Session& session, Printer& printer, const ReportHead& head);

} // namespace quorrel
