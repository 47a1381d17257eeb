#include "doors/DoorAssignment.h"

#include "doors/DoorRecords.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
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

/// A door's label and what it is assigned to.
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

/// The door that a line stands for, as it is stored now.
DoorKey RequireDoor(Session& session, const RowLine& line) {
    const QString subject = DoorNamed(line.label);
    const auto door = StoredRow<DoorKey>(session.Keys(), line.key, subject);
    if (door.DoorLabel != line.label)
        throw ChangedElsewhere::Deleted(subject);
    return door;
}

void RequireKey(Session& session, const RowLine& line) {
    const QString subject = QStringLiteral("Key ID ") + Named(line.label);
    if (StoredRow<KeyName>(session.Keys(), line.key, subject).Label != line.label)
        throw ChangedElsewhere::Deleted(subject);
}

ChangedElsewhere KeyChanged(const RowLine& door) {
    return ChangedElsewhere::Changed(QStringLiteral("The key of door ") + Named(door.label));
}

/// Gives a key to all doors of a line, and tells how many they are.
int GiveKey(Session& session, const RowLine& line, const QString& cutsLabel) {
    const QString wanted = Padded(line.label, kDoorColumn);
    std::vector<RowKey> doors;
    Recordset<DoorKey>(session.Keys(), OfSystem<DoorKey>(session).WhereBegins(&DoorsRow::DoorLabel,
                                                                              RightTrimmed(wanted)))
        .Walk([&](const DoorKey& door) {
            if (Padded(door.DoorLabel, kDoorColumn) == wanted)
                doors.push_back(door.key);
            return true;
        });
    Recordset<DoorKey>(session.Keys(), Query<DoorsRow>().WhereKeys(doors))
        .SetAll(&DoorsRow::CutsLabel, cutsLabel);
    return static_cast<int>(doors.size());
}

} // namespace

Assignment AssignDoorToKey(Session& session, const RowLine& key, const RowLine& door,
                           const std::optional<QString>& shownKey) {
    SystemTransaction transaction(session);
    RequireKey(session, key);
    const QString stored = RequireDoor(session, door).CutsLabel;
    if (shownKey && RightTrimmed(stored) != RightTrimmed(*shownKey))
        throw KeyChanged(door);
    const QString keyID = FindKeyID(session, key.text);
    const Assignment assignment{GiveKey(session, door, keyID), keyID};
    transaction.Commit();
    return assignment;
}

DoorsRow GiveDoorKey(Session& session, const RowLine& key, const DoorsRow& door) {
    SystemTransaction transaction(session);
    RequireKey(session, key);
    Database& keys = session.Keys();
    DoorsRow stored = StoredRow<DoorsRow>(keys, door.key, DoorNamed(door.DoorLabel));
    if (stored.DoorID != door.DoorID || stored.DoorLabel != door.DoorLabel)
        throw ChangedElsewhere::Deleted(DoorNamed(door.DoorLabel));
    if (RightTrimmed(stored.CutsLabel) != RightTrimmed(door.CutsLabel))
        throw KeyChanged({door.key, door.DoorLabel, {}});
    DoorsRow given = stored;
    given.CutsLabel = Padded(key.label, kKeyIDWidth);
    Recordset<DoorsRow>::UpdateChanges(keys, stored, given);
    transaction.Commit();
    return given;
}

int RemoveDoorFromKey(Session& session, const RowLine& key, const RowLine& door) {
    SystemTransaction transaction(session);
    if (!IsKeyedTo(key.text, RequireDoor(session, door).CutsLabel))
        throw KeyChanged(door);
    const int doors = GiveKey(session, door, QString(7, u' '));
    transaction.Commit();
    return doors;
}

} // namespace quorrel
