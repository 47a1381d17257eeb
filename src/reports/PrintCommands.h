#pragma once

#include "reports/ReportHead.h"
#include "store/Session.h"

#include <functional>

namespace quorrel {

/// What the heads of reports on the open system name now.
ReportHead HeadOfReports(Session& session);

/// Runs what prints; a printer that does not answer is told in the words of these reports.
void TellingOfPrinter(Session& session, const std::function<void()>& print);

} // namespace quorrel
