#pragma once

#include "platform/Recordset.h"

#include <QString>

namespace quorrel {

/// A line to choose from for a report, and the stored row that it stands for.
struct ReportEntry {
    RowKey key = 0;
    QString text;
    QString name; ///< of the record when the line was made

    bool operator==(const ReportEntry&) const = default;
};

} // namespace quorrel
