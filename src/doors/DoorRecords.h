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

/// What a form knows of the record on it.
struct ShownDoor {
    std::optional<DoorsRow> stored; ///< the door that its label means, as it was when it came up
    DoorText text;                  ///< what the boxes held then

    /// Whether a label means the stored door.
    bool IsMeantBy(const QString& label) const;
    /// Whether something was typed that is not stored.
    bool DiffersFrom(const DoorText& typed) const;
    /// The same, whatever label was typed.
    bool DiffersIn(DoorText typed) const;
};

/// What saving a record has done.
struct SavedDoor {
    enum class What { Added, Changed, AsItWas };
    What what = What::AsItWas;
    RowKey key = 0;
    QString label;            ///< as it is stored
    bool hardwareCut = false; ///< a new door keeps only the first characters of its hardware
};

/// A door as messages name it.
QString DoorNamed(const QString& label);

/// The record of a stored door.
DoorText TextOf(const DoorsRow& door);

/// The door of the open system with exactly this label, the first in table order.
std::optional<DoorsRow> FindDoor(Session& session, const QString& label);

/// The door that a typed label means: labels that differ in blanks on the right are one label.
std::optional<DoorsRow> FindDoorMeant(Session& session, const QString& label);

/// The door of the open system with this `DoorID`.
std::optional<DoorsRow> FindDoorByID(Session& session, double doorID);

/// Whether a label is that of a door of the other system whose maps the open one uses.
bool IsDoorOfMaps(Session& session, const QString& label);

/// Finds a door and makes it the session's current one.
std::optional<DoorsRow> LoadDoorRecord(Session& session, const QString& label);

/// Writes what was typed into the record that a form shows: to the door that the label means, of
/// which only what was changed is written, else to a new door. Nothing is saved without a label.
/// Throws `ChangedElsewhere` when another workstation has changed the same, deleted the door, or
/// given the label of a new one to a door that was never shown here.
std::optional<SavedDoor> SaveDoorRecord(Session& session, const DoorText& typed,
                                        const ShownDoor& shown);

/// What a form holds after such a conflict, which has been told: what is stored now, with those
/// changes that were typed and do not meet another workstation's.
DoorText TextAfterConflict(const DoorText& typed, const ShownDoor& shown, const DoorsRow& now);

/// Whether the open system has any doors at all.
bool HasDoors(Session& session);

/// Deletes a door. Its cross-keying and its map are not touched. Throws `ChangedElsewhere` when it
/// is not stored as it was shown.
void DeleteDoorRecord(Session& session, const DoorsRow& shown);

/// How many doors of the open system have this type of hardware.
qint64 CountHardware(Session& session, const QString& hardware);

/// What the tick box of a keyed door says, from the day in `Long1`: "Keyed - 03/27/1999".
QString KeyedCaption(int day);

} // namespace quorrel
