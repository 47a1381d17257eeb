#include "doors/DoorLists.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

/// What the lists tell of a door.
struct ListedDoor {
    using Self = ListedDoor;
    using Whole = DoorsRow;
    RowKey key = 0;
    double DoorID = 0;
    QString DoorLabel;
    QString DoorDescription;
    bool Crosskeyed = false;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorID), QUORREL_COLUMN(DoorLabel),
                          QUORREL_COLUMN(DoorDescription), QUORREL_COLUMN(Crosskeyed)};
    }

    bool Hidden() const { return IsNoValue(DoorLabel + QStringLiteral("  ")); }
    RowLine Line() const {
        return {key, DoorLabel, DoorLine(DoorLabel, DoorDescription), Crosskeyed};
    }
};

/// Calls `visit` for each door that is not hidden.
template <class Visit>
void WalkDoors(Session& session, Visit&& visit) {
    const double base = static_cast<double>(session.ActiveSystemNumber) * kDoorIDStep;
    Recordset<ListedDoor>(session.Keys(), OfSystem<ListedDoor>(session))
        .Walk([&](const ListedDoor& door) {
            if (door.Hidden())
                return true;
            session.HighDoorNumber = std::max(session.HighDoorNumber, door.DoorID - base);
            visit(door);
            return true;
        });
}

/// Calls `visit` for each change key that has a Key ID.
template <class Visit>
void WalkKeys(Session& session, Visit&& visit) {
    Recordset<NamedKeyRow>(session.Keys(), OfSystem<NamedKeyRow>(session)
                                               .Where(&PatternsRow::Master, 0)
                                               .WhereNot(&PatternsRow::Label, kUnnamed)
                                               .OrderBy(&PatternsRow::PageNumber)
                                               .OrderBy(&PatternsRow::Position))
        .Walk([&](const NamedKeyRow& key) {
            if (!key.Label.isEmpty() && key.Label[0] != u' ')
                visit(key);
            return true;
        });
}

} // namespace

QString DoorLine(const QString& label, const QString& description) {
    return Padded(label, kDoorColumn) + description;
}

QString KeyableLine(const QString& label, const QString& description) {
    return Left(label + QString(10, u' '), kKeyColumn) + description;
}

QStringList TextsOf(const RowLines& lines) {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(lines.size()));
    for (const RowLine& line : lines)
        texts.append(line.text);
    return texts;
}

RowLines ListDoors(Session& session) {
    return SearchDoors(session, {});
}

RowLines SearchDoors(Session& session, const QString& text) {
    const QString upper = text.toUpper();
    RowLines lines;
    WalkDoors(session, [&](const ListedDoor& door) {
        if (BeginsWith(door.DoorLabel, upper))
            lines.push_back(door.Line());
    });
    return lines;
}

RowLines ListKeyableKeys(Session& session) {
    RowLines lines;
    WalkKeys(session, [&](const NamedKeyRow& key) {
        lines.push_back({key.key, key.Label, KeyableLine(key.Label, OneLine(key.Description))});
    });
    return lines;
}

RowLines SearchKeyableKeys(Session& session, const QString& text) {
    const QString upper = text.toUpper();
    RowLines lines;
    WalkKeys(session, [&](const NamedKeyRow& key) {
        if (BeginsWith(key.Label, upper))
            lines.push_back({key.key, key.Label, KeyableLine(key.Label, key.Description)});
    });
    return lines;
}

bool IsKeyedTo(const QString& keyLine, const QString& cutsLabel) {
    return Padded(cutsLabel, kKeyColumn) == Padded(keyLine, kKeyColumn);
}

RowLines ListKeyedDoors(Session& session, const QString& keyLine) {
    RowLines lines;
    if (keyLine.isEmpty())
        return lines;
    const QString keyID = RightTrimmed(keyLine.left(kKeyColumn));
    Recordset<KeyedDoorRow>(
        session.Keys(), OfSystem<KeyedDoorRow>(session).WhereBegins(&DoorsRow::CutsLabel, keyID))
        .Walk([&](const KeyedDoorRow& door) {
            if (IsKeyedTo(keyLine, door.CutsLabel) &&
                !IsNoValue(door.DoorLabel + QStringLiteral("  ")))
                lines.push_back({door.key, door.DoorLabel,
                                 DoorLine(door.DoorLabel, door.DoorDescription), door.Crosskeyed});
            return true;
        });
    return lines;
}

} // namespace quorrel
