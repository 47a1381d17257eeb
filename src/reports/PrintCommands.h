#pragma once

#include "platform/Boxes.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <functional>
#include <optional>

namespace quorrel {

/// What the heads of reports on the open system name now.
ReportHead HeadOfReports(Session& session);

/// Asks for the printer and the copies, beginning at the program's printer; what is chosen becomes
/// that. Nothing when the user cancels.
std::optional<PrinterChoice> ChoosePrinter(Session& session, PrinterChoice proposal);

/// Runs what prints; a printer that does not answer is told in the words of these reports.
void TellingOfPrinter(Session& session, const std::function<void()>& print);

} // namespace quorrel
