#include "doors/DoorRecords.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DayNumber.h"
#include "store/OfSystem.h"

#include <algorithm>
#include <utility>

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

/// The texts of a record and the columns that hold them.
constexpr std::pair<QString DoorText::*, QString DoorsRow::*> kTexts[] = {
    {&DoorText::description, &DoorsRow::DoorDescription},
    {&DoorText::location, &DoorsRow::DoorLocation},
    {&DoorText::hardware, &DoorsRow::Text1},
    {&DoorText::details, &DoorsRow::Text2}};

/// Whether a typed label means the door of a stored one.
bool Means(const QString& typed, const QString& stored) {
    return Left(typed + QString(8, u' '), static_cast<int>(stored.size()) + 4) ==
           stored + QString(4, u' ');
}

/// A row's place in the table may be given to another door after it was deleted.
bool IsSameDoor(const DoorsRow& one, const DoorsRow& other) {
    return one.key == other.key && one.DoorID == other.DoorID && one.DoorLabel == other.DoorLabel;
}

/// The day of a keyed door is that of its first save as such.
void KeepDay(Session& session, DoorsRow& door) {
    door.Sing2 = door.Sing2 == 1 ? 1 : 0;
    if (door.Sing2 == 0)
        door.Long1 = 0;
    else if (door.Long1 == 0)
        door.Long1 = DayNumber(session.clock().date());
}

/// The shown door with what was changed in its record. What was not is left as it is stored, not
/// as the boxes show it.
DoorsRow Changed(const ShownDoor& shown, const DoorText& typed) {
    DoorsRow door = *shown.stored;
    for (const auto& [text, column] : kTexts)
        if (typed.*text != shown.text.*text)
            door.*column = typed.*text;
    if (typed.crossKeyed != shown.text.crossKeyed)
        door.Crosskeyed = typed.crossKeyed;
    if (typed.keyed != shown.text.keyed)
        door.Sing2 = typed.keyed ? 1 : 0;
    return door;
}

/// Makes sure that no door has the label that is to be given to a new one.
void RequireFree(Session& session, const DoorText& typed) {
    if (const auto door = FindDoorMeant(session, typed.label)) {
        QStringList texts;
        for (const auto& [text, column] : kTexts)
            texts.append(typed.*text);
        if (typed.keyed)
            texts.append(QStringLiteral("Keyed"));
        if (typed.crossKeyed)
            texts.append(QStringLiteral("Cross Key this Door"));
        throw ChangedElsewhere::Added(DoorNamed(door->DoorLabel), texts);
    }
}

template <class Row>
double HighestDoorID(Session& session) {
    return static_cast<double>(
        Recordset<Row>(session.Keys(), OfSystem<Row>(session)).Largest(&Row::DoorID));
}

/// The number of a new door: above those that were met and those that any workstation has given.
/// Cross-keying outlives its door, and is no other door's.
double NextDoorID(Session& session) {
    const double base = static_cast<double>(session.ActiveSystemNumber) * kDoorIDStep;
    const double highest =
        std::max(HighestDoorID<DoorsRow>(session), HighestDoorID<CrossKeyedRow>(session));
    session.HighDoorNumber = std::max(session.HighDoorNumber, highest - base) + 1;
    return base + session.HighDoorNumber;
}

SavedDoor AddDoor(Session& session, const DoorText& typed) {
    RequireFree(session, typed);
    DoorsRow door;
    for (const auto& [text, column] : kTexts)
        door.*column = typed.*text;
    door.SystemNumber = session.ActiveSystemNumber;
    door.DoorID = NextDoorID(session);
    door.DoorLabel = typed.label;
    door.CutsLabel = QString(8, u' ');
    door.Text1.truncate(kNewHardwareWidth);
    door.Sing1 = kTargetColour;
    door.Sing2 = typed.keyed ? 1 : 0; // Its day counts from the next save on.
    door.Crosskeyed = typed.crossKeyed;
    Recordset<DoorsRow>::Add(session.Keys(), door);
    return {SavedDoor::What::Added, door.key, door.DoorLabel, door.Text1 != typed.hardware};
}

SavedDoor ChangeDoor(Session& session, const DoorText& typed, const ShownDoor& shown) {
    Database& keys = session.Keys();
    const QString subject = DoorNamed(shown.stored->DoorLabel);
    const auto stored =
        Recordset<DoorsRow>(keys, Query<DoorsRow>().WhereKey(shown.stored->key)).First();
    if (!stored || !IsSameDoor(*stored, *shown.stored)) {
        RequireFree(session, typed);
        throw ChangedElsewhere::Deleted(subject);
    }
    DoorsRow door = MergedChanges(*shown.stored, Changed(shown, typed), *stored, subject);
    KeepDay(session, door);
    Recordset<DoorsRow>::UpdateChanges(keys, *stored, door);
    const bool same = SameFields(*stored, door);
    return {same ? SavedDoor::What::AsItWas : SavedDoor::What::Changed, door.key, door.DoorLabel};
}

} // namespace

bool ShownDoor::IsMeantBy(const QString& label) const {
    return stored && Means(label, stored->DoorLabel);
}

bool ShownDoor::DiffersIn(DoorText typed) const {
    typed.label = text.label;
    return typed != text;
}

bool ShownDoor::DiffersFrom(const DoorText& typed) const {
    const bool relabelled =
        !IsBlank(typed.label) && typed.label != text.label && !IsMeantBy(typed.label);
    return relabelled || DiffersIn(typed);
}

QString DoorNamed(const QString& label) {
    return QStringLiteral("Door ") + Named(label);
}

DoorText TextOf(const DoorsRow& door) {
    DoorText record;
    record.label = door.DoorLabel;
    for (const auto& [text, column] : kTexts)
        record.*text = door.*column;
    record.keyed = door.Sing2 == 1;
    record.crossKeyed = door.Crosskeyed;
    return record;
}

std::optional<DoorsRow> FindDoor(Session& session, const QString& label) {
    return Recordset<DoorsRow>(session.Keys(),
                               OfSystem<DoorsRow>(session).Where(&DoorsRow::DoorLabel, label))
        .First();
}

bool IsDoorOfMaps(Session& session, const QString& label) {
    return session.MapFilingNumber != session.ActiveSystemNumber &&
           !Recordset<DoorName>(session.Keys(),
                                Query<DoorsRow>()
                                    .Where(&DoorsRow::SystemNumber, session.MapFilingNumber)
                                    .Where(&DoorsRow::DoorLabel, label))
                .Empty();
}

std::optional<DoorsRow> FindDoorByID(Session& session, double doorID) {
    return Recordset<DoorsRow>(session.Keys(),
                               OfSystem<DoorsRow>(session).Where(&DoorsRow::DoorID, doorID))
        .First();
}

std::optional<DoorsRow> FindDoorMeant(Session& session, const QString& label) {
    if (IsBlank(label))
        return std::nullopt;
    auto doors = OfSystem<DoorName>(session);
    // What follows on four blanks within a label may be passed over.
    const QString trimmed = RightTrimmed(label);
    if (const auto gap = trimmed.indexOf(QString(4, u' ')); gap >= 0)
        doors.WhereBegins(&DoorsRow::DoorLabel, trimmed.left(gap));
    else
        doors.WhereTrimmed(&DoorsRow::DoorLabel, trimmed);
    RowKey found = 0;
    Recordset<DoorName>(session.Keys(), doors).Walk([&](const DoorName& door) {
        if (Means(label, door.DoorLabel))
            found = door.key;
        return found == 0;
    });
    if (found == 0)
        return std::nullopt;
    return Recordset<DoorsRow>(session.Keys(), Query<DoorsRow>().WhereKey(found)).First();
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

std::optional<SavedDoor> SaveDoorRecord(Session& session, const DoorText& typed,
                                        const ShownDoor& shown) {
    if (IsBlank(typed.label))
        return std::nullopt;
    SystemTransaction transaction(session);
    const SavedDoor saved =
        shown.IsMeantBy(typed.label) ? ChangeDoor(session, typed, shown) : AddDoor(session, typed);
    transaction.Commit();
    return saved;
}

DoorText TextAfterConflict(const DoorText& typed, const ShownDoor& shown, const DoorsRow& now) {
    DoorText after = TextOf(now);
    if (!shown.stored || !IsSameDoor(*shown.stored, now))
        return after;
    for (const auto& [text, column] : kTexts)
        if (typed.*text != shown.text.*text && now.*column == (*shown.stored).*column)
            after.*text = typed.*text;
    // Where both have changed a tick box, they have changed it to the same.
    if (typed.keyed != shown.text.keyed)
        after.keyed = typed.keyed;
    if (typed.crossKeyed != shown.text.crossKeyed)
        after.crossKeyed = typed.crossKeyed;
    return after;
}

bool HasDoors(Session& session) {
    return !Recordset<DoorName>(session.Keys(), OfSystem<DoorName>(session)).Empty();
}

void DeleteDoorRecord(Session& session, const DoorsRow& shown) {
    SystemTransaction transaction(session);
    RequireAsShown(session.Keys(), shown, DoorNamed(shown.DoorLabel));
    Recordset<DoorsRow>(session.Keys(), Query<DoorsRow>().WhereKey(shown.key)).DeleteAll();
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
