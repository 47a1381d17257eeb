#include "pinning/NamedKeys.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

namespace quorrel {

namespace {

/// What tells where a named key stands among the others.
struct KeyPlace {
    using Self = KeyPlace;
    RowKey key = 0;
    double Serial = 0;
    QString Label;

    using Whole = PatternsRow;
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Serial), QUORREL_COLUMN(Label)};
    }
};

/// The keys of the open system, without what is stored beside them.
Query<PatternsRow> KeysOfSystem(const Session& session) {
    return OfSystem<PatternsRow>(session).WhereBelow(&PatternsRow::Position, kFirstSpecialPosition);
}

/// Where a key stands in the order of the system's keys; nothing when it is there no longer.
std::optional<double> SerialOf(Session& session, const std::string& key) {
    const QString cuts = QString::fromStdString(key);
    const QStringList stored = {Scrambled(cuts + u' '), Scrambled(cuts + u'*')};
    const auto place =
        Recordset<KeyPlace>(session.Keys(),
                            KeysOfSystem(session).WhereAny(&PatternsRow::Cuts, stored))
            .First();
    return place ? std::optional(place->Serial) : std::nullopt;
}

} // namespace

std::optional<PinningRequest> FindNamedKey(Session& session, const PinningRequest& from,
                                           Step step) {
    const auto serial = SerialOf(session, from.key);
    if (!serial)
        return std::nullopt;
    auto query = KeysOfSystem(session).WhereNot(&PatternsRow::Label, kUnnamed);
    if (step == Step::Next)
        query.WhereAtLeast(&PatternsRow::Serial, *serial + 1).OrderBy(&PatternsRow::Serial);
    else
        query.WhereBelow(&PatternsRow::Serial, *serial).OrderBy(&PatternsRow::Serial, true);
    std::optional<RowKey> found;
    Recordset<KeyPlace>(session.Keys(), query).Walk([&](const KeyPlace& place) {
        if (!place.Label.isEmpty() && place.Label[0] != u' ')
            found = place.key;
        return !found;
    });
    if (!found)
        return std::nullopt;
    const auto row =
        Recordset<PatternsRow>(session.Keys(), Query<PatternsRow>().WhereKey(*found)).First();
    if (!row)
        return std::nullopt;
    PinningRequest request = from;
    request.keyID = RightTrimmed(row->Label);
    request.keyway = RightTrimmed(row->KeyWay);
    request.department = RightTrimmed(row->Department);
    request.description = RightTrimmed(row->Description);
    const auto pins = static_cast<qsizetype>(from.key.size());
    request.key = Unscrambled(row->Cuts).left(pins).toStdString();
    return request;
}

} // namespace quorrel
