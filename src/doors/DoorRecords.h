#pragma once

#include "store/DoorTables.h"
#include "store/Session.h"

#include <optional>

namespace quorrel {

/// A door's record as it is typed.
struct DoorText {
    QString label;
    QString description;
    QString location;
    QString hardware; ///< its type
    QString details;  ///< of the hardware
    bool keyed = false;
    bool crossKeyed = false;

    bool operator==(const DoorText&) const = default;
};

/// The door of the open system with exactly this label, the first in table order.
std::optional<DoorsRow> FindDoor(Session& session, const QString& label);

/// Finds a door and makes it the session's current one.
std::optional<DoorsRow> LoadDoorRecord(Session& session, const QString& label);

/// Writes a record: to the door that has its label, else to a new door. Labels that differ in
/// blanks on the right are one label. Gives the label as it is stored, or nothing when the record
/// has none and was not saved.
std::optional<QString> SaveDoorRecord(Session& session, const DoorText& text);

/// Whether the open system has any doors at all.
bool HasDoors(Session& session);

/// Deletes the first door with exactly this label. Its cross-keying and its map are not touched.
void DeleteDoorRecord(Session& session, const QString& label);

/// How many doors of the open system have this type of hardware.
qint64 CountHardware(Session& session, const QString& hardware);

/// What the tick box of a keyed door says, from the day in `Long1`: "Keyed - 03/27/1999".
QString KeyedCaption(int day);

} // namespace quorrel
