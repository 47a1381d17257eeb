#include "reports/SystemPrints.h"

namespace quorrel {

QString PrintMainReport(Session&, QWidget*, MainReport, bool) {
    return {};
}

} // namespace quorrel
