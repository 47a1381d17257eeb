#include "page/KeyLists.h"

#include "page/DoorsUnderKey.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QHash>
#include <QSet>
#include <QStringBuilder>

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kShownDepartment = 6;
/// Characters of a Key ID and of a whole line that are shown at most: a damaged file may hold texts
/// that no screen has room for.
constexpr int kShownKeyID = 20;
constexpr int kShownLine = 1000;
/// How many holders are looked up at a time.
constexpr qsizetype kNamesAtATime = 200;

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

QString ListLine(const QString& text) {
    return OneLine(text.left(kShownLine));
}

/// A list of doors under way: of lines that are the same it takes the first.
class DoorLines {
public:
    void Add(const KeyedDoorRow& door) {
        QString text = ListLine(door.DoorLabel % u"     " % door.DoorDescription);
        if (m_listed.contains(text))
            return;
        m_listed.insert(text);
        m_lines.push_back({std::move(text), door.DoorLabel, door.Crosskeyed ? door.key : 0});
    }

    std::vector<SubjectLine> Take() { return std::move(m_lines); }

private:
    QSet<QString> m_listed;
    std::vector<SubjectLine> m_lines;
};

/// The name of each holder among some IDs; of several with one ID the first counts.
QHash<QString, QString> NamesOf(Session& session, const QStringList& userIDs) {
    QHash<QString, QString> names;
    for (qsizetype at = 0; at < userIDs.size(); at += kNamesAtATime)
        Recordset<HolderNameRow>(session.Keys(),
                                 OfSystem<HolderNameRow>(session).WhereAny(
                                     &KeyUsersRow::UserIDNumber, userIDs.mid(at, kNamesAtATime)))
            .Walk([&](const HolderNameRow& holder) {
                if (!names.contains(holder.UserIDNumber))
                    names.insert(holder.UserIDNumber, holder.Lastname % u' ' % holder.Firstname);
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
        widest = std::max(widest, TrimmedSize(QStringView(key.Label).left(kShownKeyID)));
    std::vector<KeyLine> lines;
    for (const NamedKeyRow& key : keys) {
        const bool onPage = key.PageNumber > 0 && key.Position >= 0 && key.Position < kAllCells;
        if (IsNoValue(key.Label) || !onPage || !Passes(key.Label, filter))
            continue;
        lines.push_back(
            {ListLine(Padded(key.Label, static_cast<int>(widest)) % u' ' %
                      Padded(key.Department, kShownDepartment) % u"  " % key.Description),
             key.PageNumber, key.Position, key.key});
    }
    return lines;
}

std::vector<SubjectLine> FillDoorList(Session& session, const PageView& page, int cell,
                                      const QString& keyID, const QString& filter) {
    if (IsNoValue(keyID))
        return OrNone({});
    DoorLines lines;
    for (const KeyedDoorRow& door : DoorsUnderKey(session, cell, keyID, page.Cell(cell).tag))
        if (!IsNoValue(door.DoorLabel) && Passes(door.DoorLabel, filter))
            lines.Add(door);
    return OrNone(lines.Take());
}

std::vector<SubjectLine> FillUserList(Session& session, const QString& keyID,
                                      const QString& filter) {
    if (IsNoValue(keyID))
        return OrNone({});
    const QString label = keyID.left(keyID.indexOf(QStringLiteral("  ")));
    const auto units =
        Recordset<HeldUnit>(session.Keys(),
                            OfSystem<HeldUnit>(session).WhereTrimmed(
                                &UsertoUnitRow::KeyID, RightTrimmed(label.left(kKeyIDWidth))))
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
            lines.push_back({ListLine(unit.UnitID % u" - " % unit.UserID % u"   " % name),
                             RightTrimmed(unit.UserID)});
    }
    return OrNone(std::move(lines));
}

} // namespace quorrel
