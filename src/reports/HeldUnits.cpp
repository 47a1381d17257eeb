#include "reports/HeldUnits.h"

#include "platform/Text.h"
#include "store/OfSystem.h"

#include <algorithm>

namespace quorrel {

QString ReportHolder::Name() const {
    return (RightTrimmed(Lastname) + u' ' + RightTrimmed(Firstname)).trimmed();
}

bool ReportHolder::HasName() const {
    return !IsBlank(Lastname) || !IsBlank(Firstname);
}

std::vector<ReportHolder> ReadNamedHolders(Session& session) {
    std::vector<ReportHolder> holders =
        Recordset<ReportHolder>(session.Keys(), OfSystem<ReportHolder>(session)).Rows();
    std::erase_if(holders, [](const ReportHolder& holder) { return !holder.HasName(); });
    std::stable_sort(holders.begin(), holders.end(),
                     [](const ReportHolder& one, const ReportHolder& other) {
                         return one.Name().compare(other.Name(), Qt::CaseInsensitive) < 0;
                     });
    return holders;
}

QHash<QString, std::vector<HandedUnit>> ReadHandedUnits(Session& session) {
    QHash<QString, std::vector<HandedUnit>> units;
    Recordset<HandedUnit>(session.Keys(),
                          OfSystem<HandedUnit>(session).OrderBy(&UsertoUnitRow::UnitID))
        .Walk([&](const HandedUnit& unit) {
            units[RightTrimmed(unit.UserID)].push_back(unit);
            return true;
        });
    return units;
}

} // namespace quorrel
