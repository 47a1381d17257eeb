#pragma once

#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// The different hardware of the doors of the open system, in the order of their texts.
QStringList ListReportHardware(Session& session);

/// How many doors carry a hardware.
int CountDoorsWith(Session& session, const QString& hardware);

/// Prints one copy of the hardware totals: for each hardware the doors that are fitted with it.
void PrintHardware(Session& session, Printer& printer, const ReportHead& head,
                   const QStringList& hardware);

} // namespace quorrel
