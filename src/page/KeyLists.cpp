#include "page/KeyLists.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <string_view>

namespace quorrel {

namespace {

constexpr int kShownDepartment = 6;
/// How many holders are looked up at a time.
constexpr qsizetype kHoldersAtATime = 200;

/// What tells whether a named key lies under a master.
struct NamedCuts {
    using Self = NamedCuts;
    using Whole = AllKeysRow;
    RowKey key = 0;
    QString KeyID;
    QString Cuts;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(KeyID), QUORREL_COLUMN(Cuts)};
    }
};

/// A unit in a holder's hands.
struct HeldUnit {
    using Self = HeldUnit;
    using Whole = UsertoUnitRow;
    RowKey key = 0;
    QString UnitID;
    QString UserID;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(UnitID), QUORREL_COLUMN(UserID)};
    }
};

bool Passes(const QString& text, const QString& filter) {
    // An empty filter is no beginning of a text that is null.
    return filter.isEmpty() || text.startsWith(filter, Qt::CaseInsensitive);
}

/// A list of doors under way: of lines that are the same it takes the first.
class DoorLines {
public:
    void Add(const KeyedDoorRow& door) {
        QString text = OneLine(door.DoorLabel + QString(5, u' ') + door.DoorDescription);
        if (m_listed.contains(text))
            return;
        m_listed.insert(text);
        m_lines.push_back({std::move(text), door.DoorLabel});
    }

    std::vector<SubjectLine> Take() { return std::move(m_lines); }

private:
    QSet<QString> m_listed;
    std::vector<SubjectLine> m_lines;
};

/// The Key IDs under a master, which are those that have its cuts wherever these are not the
/// theoretical master's.
class SubKeys {
public:
    SubKeys(Session& session, const OpenSystem& system, const std::string& cuts)
        : m_mask(MaskOf(system, cuts)) {
        Recordset<NamedCuts>(session.Keys(), OfSystem<NamedCuts>(session))
            .Walk([&](const NamedCuts& key) {
                if (!IsNoValue(key.KeyID) && IsUnderMask(Unscrambled(key.Cuts)))
                    Take(RightTrimmed(key.KeyID));
                return true;
            });
    }

    qsizetype Count() const { return m_placeOf.size(); }

    /// Place of the first Key ID that a door's `CutsLabel` begins with; -1 for none.
    qsizetype FirstOf(const QString& cutsLabel) const {
        qsizetype first = -1;
        for (const qsizetype length : m_lengths) {
            if (length > cutsLabel.size())
                continue;
            const qsizetype place = m_placeOf.value(cutsLabel.left(length), -1);
            if (place >= 0 && (first < 0 || place < first))
                first = place;
        }
        return first;
    }

private:
    static QString MaskOf(const OpenSystem& system, std::string_view cuts) {
        QString mask;
        for (std::size_t i = 0; i < system.MasterKeyCuts.size(); ++i)
            mask +=
                QLatin1Char(i < cuts.size() && cuts[i] != system.MasterKeyCuts[i] ? cuts[i] : 'x');
        return mask;
    }

    bool IsUnderMask(const QString& cuts) const {
        return cuts.size() >= m_mask.size() &&
               std::equal(m_mask.begin(), m_mask.end(), cuts.begin(),
                          [](QChar wanted, QChar cut) { return wanted == u'x' || wanted == cut; });
    }

    void Take(const QString& keyID) {
        if (m_placeOf.contains(keyID))
            return;
        m_placeOf.insert(keyID, m_placeOf.size());
        m_lengths.insert(keyID.size());
    }

    QString m_mask;
    QHash<QString, qsizetype> m_placeOf;
    QSet<qsizetype> m_lengths; ///< of the Key IDs
};

/// The name of each holder among some IDs; of several with one ID the first counts.
QHash<QString, QString> NamesOf(Session& session, const QStringList& userIDs) {
    QHash<QString, QString> names;
    for (qsizetype at = 0; at < userIDs.size(); at += kHoldersAtATime)
        Recordset<HolderNameRow>(session.Keys(),
                                 OfSystem<HolderNameRow>(session).WhereAny(
                                     &KeyUsersRow::UserIDNumber, userIDs.mid(at, kHoldersAtATime)))
            .Walk([&](const HolderNameRow& holder) {
                if (!names.contains(holder.UserIDNumber))
                    names.insert(holder.UserIDNumber, holder.Lastname + u' ' + holder.Firstname);
                return true;
            });
    return names;
}

std::vector<SubjectLine> OrNone(std::vector<SubjectLine> lines) {
    if (lines.empty())
        lines.push_back({QStringLiteral("None"), {}});
    return lines;
}

} // namespace

std::vector<KeyLine> FillKeyList(Session& session, const QString& filter) {
    const auto keys =
        Recordset<NamedKeyRow>(session.Keys(), OfSystem<NamedKeyRow>(session)
                                                   .WhereNot(&PatternsRow::Label, kUnnamed)
                                                   .OrderBy(&PatternsRow::Serial))
            .Rows();
    qsizetype widest = 0;
    for (const NamedKeyRow& key : keys)
        widest = std::max(widest, RightTrimmed(key.Label).size());
    std::vector<KeyLine> lines;
    for (const NamedKeyRow& key : keys) {
        if (IsNoValue(key.Label) || key.Position >= kAllCells || !Passes(key.Label, filter))
            continue;
        lines.push_back({OneLine(Padded(key.Label, static_cast<int>(widest)) + u' ' +
                                 Padded(key.Department, kShownDepartment) + QStringLiteral("  ") +
                                 key.Description),
                         key.PageNumber, key.Position});
    }
    return lines;
}

std::vector<SubjectLine> FillDoorList(Session& session, const PageView& page, int cell,
                                      const QString& keyID, const QString& filter) {
    if (IsNoValue(keyID))
        return OrNone({});
    // Doors are those of the system under whose number the maps are filed.
    const auto doors = [&] {
        return Query<DoorsRow>().Where(&DoorsRow::SystemNumber, session.MapFilingNumber);
    };
    const auto isListed = [&](const KeyedDoorRow& door) {
        return !IsNoValue(door.DoorLabel) && Passes(door.DoorLabel, filter);
    };
    DoorLines lines;
    if (!IsMasterPosition(cell)) {
        Recordset<KeyedDoorRow>(session.Keys(),
                                doors().WhereTrimmed(&DoorsRow::CutsLabel, RightTrimmed(keyID)))
            .Walk([&](const KeyedDoorRow& door) {
                if (isListed(door))
                    lines.Add(door);
                return true;
            });
        return OrNone(lines.Take());
    }
    const SubKeys keys(session, page.System(), page.Cell(cell).tag);
    std::vector<std::vector<KeyedDoorRow>> ofKey(static_cast<std::size_t>(keys.Count()));
    Recordset<KeyedDoorRow>(session.Keys(), doors()).Walk([&](const KeyedDoorRow& door) {
        if (!isListed(door))
            return true;
        if (const qsizetype place = keys.FirstOf(door.CutsLabel); place >= 0)
            ofKey[static_cast<std::size_t>(place)].push_back(door);
        return true;
    });
    for (const auto& found : ofKey)
        for (const KeyedDoorRow& door : found)
            lines.Add(door);
    return OrNone(lines.Take());
}

std::vector<SubjectLine> FillUserList(Session& session, const QString& keyID,
                                      const QString& filter) {
    if (IsNoValue(keyID))
        return OrNone({});
    const QString label = keyID.left(keyID.indexOf(QStringLiteral("  ")));
    const auto units =
        Recordset<HeldUnit>(session.Keys(), OfSystem<HeldUnit>(session).Where(
                                                &UsertoUnitRow::KeyID, Padded(label, kKeyIDWidth)))
            .Rows();
    QStringList userIDs;
    for (const HeldUnit& unit : units)
        userIDs.append(unit.UserID);
    userIDs.removeDuplicates();
    const auto names = NamesOf(session, userIDs);
    std::vector<SubjectLine> lines;
    for (const HeldUnit& unit : units) {
        const QString name = names.value(unit.UserID);
        if (Passes(name, filter))
            lines.push_back({OneLine(unit.UnitID + QStringLiteral(" - ") + unit.UserID +
                                     QString(3, u' ') + name),
                             RightTrimmed(unit.UserID)});
    }
    return OrNone(std::move(lines));
}

} // namespace quorrel
