#pragma once

#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// Which doors a door report tells of: all, or only those that are still to be keyed.
enum class DoorsToList { All, Unkeyed };

/// Prints one copy of the doors that each of the chosen keys opens. Gives the names of the keys
/// that are not there any more.
QStringList PrintDoorsByKey(Session& session, Printer& printer, const ReportHead& head,
                            const std::vector<ReportEntry>& chosen, DoorsToList which);

} // namespace quorrel
