#pragma once

#include "engine/PinStack.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <vector>

namespace quorrel {

/// Prints what chambers so pinned take out of the pin kit: for each kind of pin and each length how
/// many, with the length from the lock brand's table. What the table lacks is marked.
void PrintPinKit(Session& session, Printer& printer, const ReportHead& head,
                 const std::vector<PinStack>& chambers);

} // namespace quorrel
