#pragma once

#include "doors/CrossKeys.h"
#include "holders/KeyHolders.h"
#include "store/DoorTables.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

/// \file
/// The lists of the search form: holders, departments, doors, and the units that they have.

namespace quorrel {

/// The columns that doors are searched by, in the order in which the button steps.
enum class DoorColumn { DoorID, Location, Description, Department };

/// A line about a door, or the name of a department, which has none.
struct DoorSearchLine {
    QString text;
    RowKey door = 0;
    QString label;
    QString keyID; ///< that the door is assigned to
    bool crossKeyed = false;
};

/// The doors whose column begins with a text, whatever its case, in table order.
std::vector<DoorSearchLine> SearchDoorsBy(Session& session, DoorColumn column, const QString& text);

/// Each department, and under it the doors of its keys, key by key.
std::vector<DoorSearchLine> DoorsByDepartment(Session& session);

/// The departments of the open system that are not hidden.
QStringList ListSearchDepartments(Session& session);

/// A line about a unit in somebody's hands, and the Key ID of it.
struct UnitLine {
    QString text;
    QString keyID;
};

/// The units of the holder of a number.
std::vector<UnitLine> UnitsOfHolder(Session& session, const QString& number);

/// The units of all holders of a department, holder by holder.
std::vector<UnitLine> UnitsOfDepartment(Session& session, const QString& department);

/// The keys that have a unit, in the order in which units were issued, and where it is recorded as
/// lost or returned what there is to say of that.
struct KeysOfUnit {
    QStringList keyIDs;
    QStringList fates; ///< as in "Unit 5 of A1 is recorded as lost"
};
KeysOfUnit FindKeysOfUnit(Session& session, const QString& unitID);

/// The highest unit of the system by its text.
QString HighestUnit(Session& session);

/// The holders whose column begins with a text, whatever its case, each by the line of its column.
std::vector<ListedHolder> SearchHoldersBy(Session& session, HolderColumn column,
                                          const QString& text);

} // namespace quorrel
