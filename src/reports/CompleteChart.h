#pragma once

#include "reports/ReportHead.h"
#include "store/Session.h"

namespace quorrel {

/// What of the complete chart is wanted.
struct ChartExtent {
    int firstPage = 1;
    int lastPage = 0; ///< 0: the last there is
    bool masters = false;
};

/// The highest page of the open system; 0 when it has none.
int HighestPage(Session& session);

/// Sheets that the chart needs, and how many of them at least.
SheetNeeds CompleteChartSheets(const Session& session);
int CompleteChartSheetCount(Session& session, const ChartExtent& extent);

/// Prints one copy of the chart of the open system: every key of the pages, in two parts a page,
/// with its cuts and pins, and on pages of their own the masters above the pages.
void PrintCompleteChart(Session& session, Printer& printer, const ReportHead& head,
                        const ChartExtent& extent);

} // namespace quorrel
