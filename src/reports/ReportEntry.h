#pragma once

#include "platform/Recordset.h"

#include <QString>

namespace quorrel {

/// A line to choose from for a report, and the stored row that it stands for.
struct ReportEntry {
    RowKey key = 0;
    QString text;

    bool operator==(const ReportEntry&) const = default;
};

} // namespace quorrel
