#include "doors/DoorAssignment.h"

#include "doors/DoorLists.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

namespace quorrel {

namespace {

struct KeyName {
    using Self = KeyName;
    using Whole = PatternsRow;
    RowKey key = 0;
    QString Label;

    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Label)}; }
};

/// A door's label and what it is assigned to: an update touches nothing else of the door.
struct DoorKey {
    using Self = DoorKey;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;
    QString CutsLabel;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorLabel), QUORREL_COLUMN(CutsLabel)};
    }
};

/// The stored Key ID of the key that a line stands for; empty when it tells none.
QString FindKeyID(Session& session, const QString& keyLine) {
    QString found;
    Recordset<KeyName>(session.Keys(), OfSystem<KeyName>(session)
                                           .WhereNot(&PatternsRow::Label, kUnnamed)
                                           .OrderBy(&PatternsRow::PageNumber)
                                           .OrderBy(&PatternsRow::Position))
        .Walk([&](const KeyName& key) {
            qsizetype first = 0;
            while (first < key.Label.size() && key.Label[first] == u' ')
                ++first;
            const QString name = RightTrimmed(key.Label.mid(first)) + QStringLiteral("  ");
            if (keyLine.startsWith(name))
                found = key.Label;
            return found.isEmpty();
        });
    return found;
}

void GiveKey(Session& session, const QString& doorLine, const QString& cutsLabel) {
    Database& keys = session.Keys();
    const QString wanted = Padded(doorLine, kDoorColumn);
    const auto doors = Recordset<DoorKey>(keys, OfSystem<DoorKey>(session).WhereBegins(
                                                    &DoorsRow::DoorLabel, RightTrimmed(wanted)))
                           .Rows();
    for (DoorKey door : doors) {
        if (Padded(door.DoorLabel, kDoorColumn) != wanted)
            continue;
        door.CutsLabel = cutsLabel;
        Recordset<DoorKey>::Update(keys, door);
    }
}

} // namespace

void AssignDoorToKey(Session& session, const QString& keyLine, const QString& doorLine) {
    if (keyLine.isEmpty() || doorLine.isEmpty())
        return;
    Transaction transaction(session.Keys());
    GiveKey(session, doorLine, FindKeyID(session, keyLine));
    transaction.Commit();
}

void RemoveDoorFromKey(Session& session, const QString& doorLine) {
    if (doorLine.isEmpty())
        return;
    Transaction transaction(session.Keys());
    GiveKey(session, doorLine, QString(7, u' '));
    transaction.Commit();
}

} // namespace quorrel
