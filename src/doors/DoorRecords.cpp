#include "doors/DoorRecords.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DayNumber.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kNewHardwareWidth = 50;

/// What tells which door is meant.
struct DoorName {
    using Self = DoorName;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;

    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(DoorLabel)}; }
};

/// Whether a typed label means the door of a stored one.
bool Means(const QString& typed, const QString& stored) {
    return Left(typed + QString(8, u' '), static_cast<int>(stored.size()) + 4) ==
           stored + QString(4, u' ');
}

RowKey FindDoorInHand(Session& session, const QString& label) {
    RowKey found = 0;
    // A label that is meant begins as the typed one does, up to the first four blanks in a row.
    const QString blanks(4, u' ');
    const QString begin = label.left((label + blanks).indexOf(blanks));
    Recordset<DoorName>(session.Keys(),
                        OfSystem<DoorName>(session).WhereBegins(&DoorsRow::DoorLabel, begin))
        .Walk([&](const DoorName& door) {
            if (Means(label, door.DoorLabel))
                found = door.key;
            return found == 0;
        });
    return found;
}

void TakeText(Session& session, const DoorText& text, DoorsRow& door) {
    door.DoorDescription = text.description;
    door.DoorLocation = text.location;
    door.Text1 = text.hardware;
    door.Text2 = text.details;
    door.Crosskeyed = text.crossKeyed;
    door.Sing2 = text.keyed ? 1 : 0;
    if (!text.keyed)
        door.Long1 = 0;
    else if (door.Long1 == 0)
        door.Long1 = DayNumber(session.clock().date());
}

/// The number of a new door: above those that were met and those that any workstation has given.
double NextDoorID(Session& session) {
    const double base = static_cast<double>(session.ActiveSystemNumber) * kDoorIDStep;
    const auto highest =
        static_cast<double>(Recordset<DoorsRow>(session.Keys(), OfSystem<DoorsRow>(session))
                                .Largest(&DoorsRow::DoorID));
    session.HighDoorNumber = std::max(session.HighDoorNumber, highest - base) + 1;
    return base + session.HighDoorNumber;
}

void AddDoor(Session& session, const DoorText& text) {
    DoorsRow door;
    TakeText(session, text, door);
    door.SystemNumber = session.ActiveSystemNumber;
    door.DoorID = NextDoorID(session);
    door.DoorLabel = text.label;
    door.CutsLabel = QString(8, u' ');
    door.Text1 = text.hardware.left(kNewHardwareWidth);
    door.Sing1 = kTargetColour;
    door.Long1 = 0; // The day counts from the next save on.
    Recordset<DoorsRow>::Add(session.Keys(), door);
}

} // namespace

std::optional<DoorsRow> FindDoor(Session& session, const QString& label) {
    return Recordset<DoorsRow>(session.Keys(),
                               OfSystem<DoorsRow>(session).Where(&DoorsRow::DoorLabel, label))
        .First();
}

std::optional<DoorsRow> LoadDoorRecord(Session& session, const QString& label) {
    auto door = FindDoor(session, label);
    if (!door)
        return std::nullopt;
    session.door.CurrentDoorID = door->DoorID;
    session.door.CurrentDoorLabel = door->DoorLabel;
    // A door that is not placed leaves the place that was in hand.
    if (door->Coordx > 0)
        session.door.CurrentDoorX = door->Coordx;
    if (door->CoordY > 0)
        session.door.CurrentDoorY = door->CoordY;
    if (door->LinkMapID != 0)
        session.door.CurrentDoorLinkMapID = door->LinkMapID;
    return door;
}

std::optional<QString> SaveDoorRecord(Session& session, const DoorText& text) {
    if (RightTrimmed(text.label).isEmpty())
        return std::nullopt;
    Database& keys = session.Keys();
    Transaction transaction(keys);
    QString stored = text.label;
    if (const RowKey key = FindDoorInHand(session, text.label)) {
        auto door = Recordset<DoorsRow>(keys, Query<DoorsRow>().WhereKey(key)).First();
        TakeText(session, text, *door);
        Recordset<DoorsRow>::Update(keys, *door);
        stored = door->DoorLabel;
    } else {
        AddDoor(session, text);
    }
    transaction.Commit();
    return stored;
}

bool HasDoors(Session& session) {
    return !Recordset<DoorName>(session.Keys(), OfSystem<DoorName>(session)).Empty();
}

void DeleteDoorRecord(Session& session, const QString& label) {
    Transaction transaction(session.Keys());
    const auto door = FindDoor(session, label);
    if (!door)
        return;
    Recordset<DoorsRow>(session.Keys(), Query<DoorsRow>().WhereKey(door->key)).DeleteAll();
    transaction.Commit();
}

qint64 CountHardware(Session& session, const QString& hardware) {
    return Recordset<DoorsRow>(session.Keys(),
                               OfSystem<DoorsRow>(session).Where(&DoorsRow::Text1, hardware))
        .Count();
}

QString KeyedCaption(int day) {
    return day == 0 ? QStringLiteral("Keyed") : QStringLiteral("Keyed - ") + DayText(day);
}

} // namespace quorrel
