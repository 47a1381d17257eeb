#pragma once

#include "holders/KeyHolders.h"
#include "store/HolderTables.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// What stands behind the number of a unit that was taken back.
inline const QString kReturned = QStringLiteral("***Returned!");
inline const QString kLost = QStringLiteral("***LOST!");

/// A line of the list of keys, and the key that it stands for.
struct ListedKey {
    RowKey key = 0;
    QString keyID; ///< without blanks on its right
    QString line;
};

/// The labelled keys whose Key ID begins with the text, without regard to case. A line is the Key
/// ID in 12 characters, "-  " and the description, in which a line's end is two blanks.
std::vector<ListedKey> ListKeys(Session& session, const QString& begin);

/// The key of a row as it would be listed now; nothing when it would not.
std::optional<ListedKey> FindKey(Session& session, RowKey key);

/// The units of a key that no holder has.
struct FreeUnits {
    QStringList units; ///< numbered ones in the order of their numbers, as stored
    QString last;      ///< the highest unit of the key, free or held; empty when it has none
};
FreeUnits ListFreeUnits(Session& session, const QString& keyID);

/// The units of a key in their holders' hands: unit, " - ", number and names of the holder.
/// A unit row without holder is a broken one: it is deleted and told of in `repaired`, and the
/// list ends where it stood.
struct HeldUnits {
    QStringList lines;
    QString repaired; ///< a message; empty when nothing was broken
};
HeldUnits ListHeldUnits(Session& session, const QString& keyID);

/// The units in the hands of the holder of a number: Key ID, unit and day of issue.
QStringList ListUnitsOf(Session& session, const QString& number);

// What follows writes for the key that a list has shown, and throws `ChangedElsewhere` when another
// workstation has renamed it since, or has changed the unit or the holder that the lists show.
// Nothing is written then, nor without the right.

/// What became of an order to issue units.
struct Issued {
    enum class Outcome {
        Done,
        NoRight,
        Exists,   ///< the first unit is there
        NoNumber, ///< the first unit of a run does not begin with a digit
        TooMany   ///< a number is above 32767
    };
    Outcome outcome = Outcome::Done;
    int count = 0;
    QString lastUnit; ///< the unit issued last
};

/// Issues one unit of a key or, when `last` is given, those of all numbers from `first` to `last`
/// that the key does not have yet. Nothing is issued when the first is there already. A unit that
/// was returned or lost is there.
Issued IssueUnits(Session& session, const ListedKey& key, const QString& first,
                  const QString& last);

/// What became of a unit that was to be assigned.
struct Assigned {
    enum class Outcome {
        Done,
        NoRight,
        Lost ///< the unit was lost and cannot be assigned
    };
    Outcome outcome = Outcome::Done;
    QString unit; ///< as the holder has it
    KeyUsersRow holder;
};

/// Gives a free or returned unit, as the list of free units shows it, to a holder.
Assigned AssignUnit(Session& session, const ListedKey& key, const QString& unit,
                    const ListedHolder& holder);

/// The holders that a line of the list of held units may tell of, in table order; at least one.
std::vector<KeyUsersRow> HoldersOfLine(Session& session, const ListedKey& key, const QString& line);

/// The unit that a line of the list of held units tells of, in the hands of this holder.
QString UnitOfLine(const QString& line, const KeyUsersRow& holder);

/// A unit that was taken back.
struct TakenUnit {
    QString unit;
    QString userName; ///< last name, comma, first name, as in the log
};

/// Takes the unit of a line of the list of held units back from its holder, as returned or lost,
/// and logs it under a note of up to 50 characters. Every unit goes with it whose text, " - " and
/// holder's number begin the line: "A - 1" takes "A" along when 1 holds that. Those are free after,
/// and are logged too. Gives all units, the one that is meant last.
std::vector<TakenUnit> TakeBackUnit(Session& session, const ListedKey& key, const QString& line,
                                    const KeyUsersRow& holder, const QString& note, bool lost);

/// Deletes a unit as the list of free units shows it, and every other one of the key that agrees
/// with it in 12 characters. False without the right.
bool DeleteUnit(Session& session, const ListedKey& key, const QString& unit);

} // namespace quorrel
