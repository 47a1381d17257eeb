#pragma once

#include "store/HolderTables.h"
#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// What stands behind the number of a unit that was taken back.
inline const QString kReturned = QStringLiteral("***Returned!");
inline const QString kLost = QStringLiteral("***LOST!");

/// The labelled keys whose Key ID begins with the text, without regard to case: the Key ID in 12
/// characters, "-  " and the description, in which a line's end is two blanks.
QStringList ListKeys(Session& session, const QString& begin);

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

/// What became of an order to issue units.
struct Issued {
    enum class Outcome { Done, NoRight, Exists, NoNumber, TooMany };
    Outcome outcome = Outcome::Done;
    int count = 0;
    QString lastUnit; ///< the unit issued last
};

/// Issues one unit of a key or, when `last` is given, those of all numbers from `first` to `last`
/// that the key does not have yet. A unit that exists, also one returned or lost, is not issued
/// again.
Issued IssueUnits(Session& session, const QString& keyID, const QString& first,
                  const QString& last);

/// What became of an order that concerns a unit which a list has shown.
enum class UnitDone {
    Done,
    NoRight,
    Lost,     ///< the unit was lost and cannot be assigned
    NoHolder, ///< nobody has the number
    Changed   ///< another workstation has changed the unit since it was listed
};

/// Gives a free or returned unit, as the list of free units shows it, to the holder of a number.
UnitDone AssignUnit(Session& session, const QString& keyID, const QString& unit,
                    const KeyUsersRow& holder);

/// The holders that a line of the list of held units may tell of, in table order.
std::vector<KeyUsersRow> HoldersOfLine(Session& session, const QString& line);

/// Takes the unit of a line of the list of held units back from its holder, as returned or lost,
/// and logs it under a note of up to 50 characters.
UnitDone TakeBackUnit(Session& session, const QString& keyID, const QString& line,
                      const KeyUsersRow& holder, const QString& note, bool lost);

/// Deletes every unit of a key that agrees with this one in 12 characters.
UnitDone DeleteUnit(Session& session, const QString& keyID, const QString& unit);

} // namespace quorrel
