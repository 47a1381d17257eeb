#pragma once

#include "reports/ReportEntry.h"
#include "store/Session.h"
#include "store/SystemTables.h"

#include <QStringList>

#include <string>
#include <vector>

namespace quorrel {

/// What reports tell of a key.
struct ReportKey {
    using Self = ReportKey;
    using Whole = PatternsRow;
    RowKey key = 0;
    int PageNumber = 0;
    int Position = 0;
    QString Cuts;
    bool Master = false;
    QString Label;
    QString Description;
    QString Department;
    std::string plain; ///< its cuts, a digit a chamber; empty when they cannot be read

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(PageNumber), QUORREL_COLUMN(Position),
                          QUORREL_COLUMN(Cuts),       QUORREL_COLUMN(Master),
                          QUORREL_COLUMN(Label),      QUORREL_COLUMN(Description),
                          QUORREL_COLUMN(Department)};
    }
};

/// The keys of the open system that have a Key ID, in the order of these.
std::vector<ReportKey> ReadNamedKeys(Session& session);

/// The lines of these keys to choose from: Key ID and description.
std::vector<ReportEntry> ListNamedKeys(Session& session);

/// Of some keys those that were chosen, in the order of the choice. One that has another Key ID by
/// now or is gone is left out, and named in `passedOver`.
std::vector<const ReportKey*> FindChosen(const std::vector<ReportKey>& keys,
                                         const std::vector<ReportEntry>& chosen,
                                         QStringList& passedOver);

/// A description on one line; where there is none, a line to write it on.
QString ReportDescription(const QString& description);

/// The ink of a master key in lists: green for the theoretical master, cyan for the others.
int InkOfMaster(const Session& session, const ReportKey& key);

} // namespace quorrel
