#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <vector>

namespace quorrel {

/// The different hardware of the doors of the open system, in the order of their texts.
std::vector<ReportEntry> ListReportHardware(Session& session);

/// How many doors carry a hardware.
int CountDoorsWith(Session& session, const QString& hardware);

/// Prints one copy of the hardware totals: for each hardware the doors that are fitted with it.
void PrintHardware(Session& session, Printer& printer, const ReportHead& head,
                   const std::vector<ReportEntry>& hardware);

} // namespace quorrel
