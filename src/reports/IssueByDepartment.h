#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <vector>

namespace quorrel {

/// The departments of the open system and those that its key holders are in, by their names.
std::vector<ReportEntry> ListReportDepartments(Session& session);

/// Prints one copy of the units that the holders of each chosen department have.
void PrintIssueByDepartment(Session& session, Printer& printer, const ReportHead& head,
                            const std::vector<ReportEntry>& chosen);

} // namespace quorrel
