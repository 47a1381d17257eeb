#include "crosskeys/KeysWithAccess.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <QSet>

#include <algorithm>
#include <unordered_map>

namespace quorrel {

namespace {

/// Combinations that are worked out between two looks at whether the user has cancelled.
constexpr int kStep = 4096;

struct AccessRow {
    using Self = AccessRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    int Position = 0;
    QString Cuts;
    bool Master = false;
    QString Label;
    QString Description;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Position), QUORREL_COLUMN(Cuts), QUORREL_COLUMN(Master),
                          QUORREL_COLUMN(Label), QUORREL_COLUMN(Description)};
    }
};

struct CutsRow {
    using Self = CutsRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    QString Cuts;

    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Cuts)}; }
};

/// The rows whose cuts turn the cylinder, by `Serial`.
std::vector<KeyWithAccess> RowsWithAccess(Session& session, const CrossKeying& keying) {
    const int pins = session.System.PinCount;
    std::vector<KeyWithAccess> keys;
    Recordset<AccessRow>(session.Keys(), OfSystem<AccessRow>(session).OrderBy(&PatternsRow::Serial))
        .Walk([&](const AccessRow& row) {
            if (const auto cuts = CutsOf(row.Cuts, pins); cuts && keying.Admits(*cuts))
                keys.push_back({cuts->substr(0, static_cast<std::size_t>(pins)), row.Label,
                                row.Description, row.Position, row.Master});
            return true;
        });
    return keys;
}

/// Of keys with the same cuts the first counts.
using FirstOfCuts = std::unordered_map<std::string, const KeyWithAccess*>;

FirstOfCuts FirstKeys(const std::vector<KeyWithAccess>& keys) {
    FirstOfCuts first;
    for (const KeyWithAccess& key : keys)
        first.try_emplace(key.cuts, &key);
    return first;
}

/// The master keys among those found, in the order of all rows: each row whose line is one of
/// theirs.
std::vector<KeyWithAccess> SortedMasters(const std::vector<KeyWithAccess>& keys,
                                         const FirstOfCuts& first) {
    QSet<QString> lines;
    for (const auto& found : first)
        if (found.second->master)
            lines.insert(found.second->Text(true));
    std::vector<KeyWithAccess> sorted;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(sorted),
                 [&](const KeyWithAccess& key) { return lines.contains(key.Text(true)); });
    return sorted;
}

/// Goes through all combinations; false when the user has cancelled.
bool Sort(const CrossKeying& keying, const FirstOfCuts& first, KeysWithAccess& access,
          Progress& progress) {
    bool goesOn = true;
    int steps = 0;
    std::uint64_t done = 0;
    keying.WalkCombinations([&](const std::string& cuts) {
        if (const auto found = first.find(cuts); found == first.end())
            access.phantoms.push_back(cuts);
        else if (!found->second->master)
            access.changes.push_back(*found->second);
        if (++done % kStep == 0)
            goesOn = progress.Advance(++steps);
        return goesOn;
    });
    return goesOn;
}

} // namespace

QString KeyWithAccess::Text(bool mayReadCuts) const {
    const QString shown = mayReadCuts ? Padded(QString::fromStdString(cuts), 8) : QString(8, u'*');
    return shown + QStringLiteral("- ") + label + description;
}

QString KeyWithAccess::Warning() const {
    if (position == kControlPosition)
        return QStringLiteral("CONTROL KEY cuts");
    if (position == kAnglePosition)
        return QStringLiteral("angle values, no key");
    return {};
}

int AccessSteps(const CrossKeying& keying) {
    return static_cast<int>(keying.CountCombinations() / kStep) + 1;
}

std::optional<KeysWithAccess> CalculateKeysWithAccess(Session& session, const CrossKeying& keying,
                                                      Progress& progress) {
    const std::vector<KeyWithAccess> keys = RowsWithAccess(session, keying);
    const FirstOfCuts first = FirstKeys(keys);
    KeysWithAccess access;
    access.combinations = keying.CountCombinations();
    access.trulyPhantom = access.combinations - first.size();
    access.controlKey = std::any_of(keys.begin(), keys.end(), [](const KeyWithAccess& key) {
        return key.position == kControlPosition;
    });
    // The lists of 4 pins have always been empty.
    if (session.System.PinCount == 4)
        return access;
    access.phantoms.reserve(access.trulyPhantom);
    if (!Sort(keying, first, access, progress))
        return std::nullopt;
    access.masters = SortedMasters(keys, first);
    return access;
}

std::vector<std::string> ListSystemCuts(Session& session) {
    std::vector<std::string> all;
    const int pins = session.System.PinCount;
    Recordset<CutsRow>(session.Keys(), OfSystem<CutsRow>(session)).Walk([&](const CutsRow& row) {
        if (const auto cuts = CutsOf(row.Cuts, pins))
            all.push_back(cuts->substr(0, static_cast<std::size_t>(pins)));
        return true;
    });
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

QString DifferingChambers(const std::string& cuts, const std::string& other) {
    QStringList chambers;
    for (std::size_t place = 0; place < std::min(cuts.size(), other.size()); ++place)
        if (cuts[place] != other[place])
            chambers += QString::number(place + 1);
    return chambers.join(u' ');
}

} // namespace quorrel
