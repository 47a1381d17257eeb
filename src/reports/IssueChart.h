#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// Prints one copy of the chart of each chosen key, on sheets of its own: its units with their
/// holders, and a line for each to sign on. Without the right to read cuts these are asterisks.
/// Gives the names of the keys that are not there any more.
QStringList PrintIssueCharts(Session& session, Printer& printer, const ReportHead& head,
                             const std::vector<ReportEntry>& chosen);

} // namespace quorrel
