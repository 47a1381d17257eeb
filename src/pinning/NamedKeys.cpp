#include "pinning/NamedKeys.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

namespace quorrel {

namespace {

/// The keys of the open system, without what is stored beside them.
Query KeysOfSystem(const Session& session) {
    return Query()
        .Where("SystemNumber", session.ActiveSystemNumber)
        .WhereBelow("Position", kFirstSpecialPosition);
}

/// Where a key stands in the order of the system's keys; nothing when it is there no longer.
std::optional<qint64> SerialOf(Session& session, const std::string& key) {
    const QString cuts = QString::fromStdString(key);
    const auto row =
        Recordset<PatternsRow>(session.Keys(),
                               KeysOfSystem(session).WhereAny(
                                   "Cuts", {Scrambled(cuts + u' '), Scrambled(cuts + u'*')}))
            .First();
    return row ? std::optional(static_cast<qint64>(row->Serial)) : std::nullopt;
}

} // namespace

std::optional<PinningRequest> FindNamedKey(Session& session, const PinningRequest& from,
                                           Step step) {
    const auto serial = SerialOf(session, from.key);
    if (!serial)
        return std::nullopt;
    Query query = KeysOfSystem(session).WhereNot("Label", kUnnamed);
    if (step == Step::Next)
        query.WhereAtLeast("Serial", *serial + 1).OrderBy("Serial");
    else
        query.WhereBelow("Serial", *serial).OrderBy("Serial", true);
    std::optional<PinningRequest> found;
    Recordset<PatternsRow>(session.Keys(), query).Walk([&](const PatternsRow& row) {
        if (row.Label.isEmpty() || row.Label.startsWith(u' '))
            return true;
        found = from;
        found->keyID = RightTrimmed(row.Label);
        found->keyway = RightTrimmed(row.KeyWay);
        found->department = RightTrimmed(row.Department);
        found->description = RightTrimmed(row.Description);
        found->key =
            Unscrambled(row.Cuts).left(static_cast<qsizetype>(from.key.size())).toStdString();
        return false;
    });
    return found;
}

} // namespace quorrel
