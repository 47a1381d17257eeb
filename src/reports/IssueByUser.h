#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// The holders of the open system who have a name: 24 characters of that, and the department.
std::vector<ReportEntry> ListReportHolders(Session& session);

/// Prints one copy of the units that each of the chosen holders has. Gives the names of the holders
/// who are not there any more or are called otherwise by now.
QStringList PrintIssueByUser(Session& session, Printer& printer, const ReportHead& head,
                             const std::vector<ReportEntry>& chosen);

} // namespace quorrel
