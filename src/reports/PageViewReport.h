#pragma once

#include "page/PageView.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

namespace quorrel {

/// Prints one copy of the page as it is laid out on the screen: Key IDs and cuts of its cells, the
/// levels above it first.
void PrintPageView(Session& session, Printer& printer, const ReportHead& head,
                   const PageView& page);

/// Prints one copy of how the cylinders of the page's keys are pinned, in two parts.
void PrintPagePinning(Session& session, Printer& printer, const ReportHead& head,
                      const PageView& page);

} // namespace quorrel
