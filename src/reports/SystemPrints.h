#pragma once

#include "page/MainMenu.h"
#include "store/Session.h"

namespace quorrel {

/// Prints a report of the main form, or shows it as it will be printed over a window, with the
/// questions that come before. Says where to look for it; nothing when it was cancelled.
QString PrintMainReport(Session& session, QWidget* over, MainReport report, bool preview);

} // namespace quorrel
