#include "doors/CrossKeys.h"

#include "doors/DoorRecords.h"
#include "engine/MasterMask.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

/// A named key and its cuts.
struct KeyCuts {
    using Self = KeyCuts;
    using Whole = PatternsRow;
    RowKey key = 0;
    QString Label;
    QString Description;
    QString Cuts;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Label), QUORREL_COLUMN(Description), QUORREL_COLUMN(Cuts)};
    }
};

constexpr std::array<QString CrossKeyedRow::*, kCrossKeys> kColumns = {
    &CrossKeyedRow::KeyID1, &CrossKeyedRow::KeyID2, &CrossKeyedRow::KeyID3,
    &CrossKeyedRow::KeyID4, &CrossKeyedRow::KeyID5, &CrossKeyedRow::KeyID6};

Query<CrossKeyedRow> OfDoor(const Session& session, double doorID) {
    return OfSystem<CrossKeyedRow>(session).Where(&CrossKeyedRow::DoorID, doorID);
}

/// Whether a key lies within the hierarchy of a door: it is the door's own, or a master over that.
bool IsOverKey(const Session& session, const std::string& cuts, const std::string& doorCuts) {
    const std::string& master = session.System.MasterKeyCuts;
    return cuts == master || (!doorCuts.empty() && MasterMask(cuts, master).Covers(doorCuts));
}

} // namespace

QString CrossKeyText(const QString& typed) {
    return IsBlank(typed) ? QString() : Padded(typed.toUpper(), kKeyIDWidth);
}

void PackCrossKeys(CrossKeyIDs& keyIDs) {
    for (std::size_t box = 0; box + 1 < keyIDs.size(); ++box) {
        if (!IsBlank(keyIDs[box]))
            continue;
        keyIDs[box] = std::exchange(keyIDs[box + 1], QString());
        if (IsBlank(keyIDs[box]))
            return;
    }
}

int BoxForCrossKey(const CrossKeyIDs& keyIDs, const QString& keyID) {
    const auto box = std::find_if(keyIDs.begin(), keyIDs.end(), [&](const QString& held) {
        return IsBlank(held) || Padded(held, kKeyIDWidth) == Padded(keyID, kKeyIDWidth);
    });
    return std::min(static_cast<int>(box - keyIDs.begin()), kCrossKeys - 1);
}

std::optional<CrossKeyedRow> FindCrossKeys(Session& session, double doorID) {
    return Recordset<CrossKeyedRow>(session.Keys(), OfDoor(session, doorID)).First();
}

CrossKeyIDs KeyIDsOf(const std::optional<CrossKeyedRow>& row) {
    CrossKeyIDs keyIDs;
    for (std::size_t box = 0; row && box < keyIDs.size(); ++box)
        keyIDs[box] = (*row).*kColumns[box];
    return keyIDs;
}

CrossKeyedRow SaveCrossKeys(Session& session, const DoorsRow& door,
                            const std::optional<CrossKeyedRow>& shown, const CrossKeyIDs& typed) {
    const QString subject = QStringLiteral("The cross-keying of door ") + Named(door.DoorLabel);
    SystemTransaction transaction(session);
    Database& keys = session.Keys();
    if (StoredRow<DoorsRow>(keys, door.key, DoorNamed(door.DoorLabel)).DoorID != door.DoorID)
        throw ChangedElsewhere::Deleted(DoorNamed(door.DoorLabel));
    CrossKeyedRow row = shown.value_or(CrossKeyedRow());
    for (std::size_t box = 0; box < typed.size(); ++box)
        row.*kColumns[box] = typed[box];
    const auto stored = FindCrossKeys(session, door.DoorID);
    if (!stored) {
        row.key = 0;
        row.SystemNumber = session.ActiveSystemNumber;
        row.DoorID = door.DoorID;
        Recordset<CrossKeyedRow>::Add(keys, row);
    } else if (!shown) {
        throw ChangedElsewhere::Added(subject, {typed.begin(), typed.end()});
    } else {
        row = MergedChanges(*shown, row, *stored, subject);
        Recordset<CrossKeyedRow>::UpdateChanges(keys, *stored, row);
    }
    transaction.Commit();
    return row;
}

CrossKeyIDs KeysAfterConflict(const CrossKeyIDs& typed, const CrossKeyIDs& shown,
                              const CrossKeyIDs& now) {
    CrossKeyIDs after = now;
    for (std::size_t box = 0; box < after.size(); ++box)
        if (typed[box] != shown[box] && now[box] == shown[box])
            after[box] = typed[box];
    return after;
}

std::vector<CrossKeyLine> ListCrossKeyable(Session& session, const QString& filter) {
    const QString upper = filter.toUpper();
    std::vector<CrossKeyLine> lines;
    Recordset<KeyCuts>(session.Keys(), OfSystem<KeyCuts>(session)
                                           .Where(&PatternsRow::Master, 0)
                                           .WhereNot(&PatternsRow::Label, kUnnamed)
                                           .OrderBy(&PatternsRow::Label))
        .Walk([&](const KeyCuts& key) {
            if (!key.Label.isEmpty() && key.Label[0] != u' ' && BeginsWith(key.Label, upper))
                lines.push_back(
                    {{key.key, key.Label, KeyableLine(key.Label, OneLine(key.Description))},
                     PlainCuts(key.Cuts, session.System.PinCount)});
            return true;
        });
    return lines;
}

MeantKey FindMeantKey(Session& session, const QString& text) {
    MeantKey meant;
    if (IsBlank(text))
        return meant;
    const bool whole = text.size() == kKeyIDWidth;
    Recordset<KeyCuts>(session.Keys(),
                       OfSystem<KeyCuts>(session)
                           .WhereBegins(&PatternsRow::Label, whole ? RightTrimmed(text) : text)
                           .OrderBy(&PatternsRow::Label))
        .Walk([&](const KeyCuts& key) {
            if (!whole || Padded(key.Label, kKeyIDWidth) == text) {
                meant.keyID = key.Label;
                meant.cuts = PlainCuts(key.Cuts, session.System.PinCount);
                ++meant.matches;
            }
            return true;
        });
    return meant;
}

CrossKeyCuts FindCrossKeyCuts(Session& session, const CrossKeyIDs& keyIDs) {
    CrossKeyCuts cuts;
    cuts[0] = session.System.MasterKeyCuts;
    for (std::size_t box = 0; box < keyIDs.size(); ++box)
        cuts[box + 1] = FindMeantKey(session, keyIDs[box]).cuts;
    return cuts;
}

int PinnedElements(const Session& session) {
    return std::min(session.System.PinCount, kCrossKeys) + 1;
}

CrossKeying CrossKeyingFor(const Session& session, const CrossKeyCuts& cuts) {
    return CrossKeying({cuts.begin(), cuts.begin() + PinnedElements(session)},
                       session.System.PinCount);
}

std::map<double, CrossKeyIDs> ListCrossKeyedDoors(Session& session) {
    std::map<double, CrossKeyIDs> doors;
    Recordset<CrossKeyedRow>(session.Keys(), OfSystem<CrossKeyedRow>(session))
        .Walk([&](const CrossKeyedRow& row) {
            doors.try_emplace(row.DoorID, KeyIDsOf(row));
            return true;
        });
    return doors;
}

QStringList KeysBeyondHierarchy(Session& session, const QString& cutsLabel,
                                const CrossKeyIDs& keyIDs) {
    const CrossKeying keying = CrossKeyingFor(session, FindCrossKeyCuts(session, keyIDs));
    const std::string doorCuts = FindMeantKey(session, Padded(cutsLabel, kKeyIDWidth)).cuts;
    QStringList beyond;
    Recordset<NamedCutsRow>(session.Keys(), OfSystem<NamedCutsRow>(session))
        .Walk([&](const NamedCutsRow& key) {
            const std::string cuts = PlainCuts(key.Cuts, session.System.PinCount);
            if (!IsNoValue(key.KeyID) && keying.Admits(cuts) && !IsOverKey(session, cuts, doorCuts))
                beyond.append(RightTrimmed(key.KeyID));
            return true;
        });
    beyond.removeDuplicates();
    beyond.sort();
    return beyond;
}

QString DescribeCrossKeying(Session& session, RowKey door) {
    constexpr int named = 30;
    const auto row = Recordset<DoorsRow>(session.Keys(), Query<DoorsRow>().WhereKey(door)).First();
    if (!row)
        return {};
    if (row->SystemNumber != session.ActiveSystemNumber)
        return QStringLiteral("Cross-keyed. The door belongs to another key system.");
    const CrossKeyIDs keyIDs = KeyIDsOf(FindCrossKeys(session, row->DoorID));
    if (std::all_of(keyIDs.begin(), keyIDs.end(), IsBlank))
        return QStringLiteral("Cross-keyed, but its cross-key page names no key.");
    const QStringList beyond = KeysBeyondHierarchy(session, row->CutsLabel, keyIDs);
    if (beyond.isEmpty())
        return QStringLiteral("Cross-keyed. It admits no named key beyond the hierarchy.");
    QString text = QStringLiteral("Cross-keyed. Beyond the hierarchy it admits ") +
                   beyond.mid(0, named).join(QStringLiteral(", "));
    if (beyond.size() > named)
        text += QStringLiteral(" and %1 more").arg(beyond.size() - named);
    return text + u'.';
}

} // namespace quorrel
