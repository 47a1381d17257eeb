#pragma once

#include "store/Session.h"

#include <QStringList>

/// \file
/// The lines of the lists about doors. What stands in their first columns is what a chosen line is
/// compared by, so the widths are part of the rules.

namespace quorrel {

/// Characters of a door's label that stand before its description.
inline constexpr int kDoorColumn = 18;
/// Characters of a Key ID that stand before the key's description.
inline constexpr int kKeyColumn = 12;

/// The line of a door.
QString DoorLine(const QString& label, const QString& description);

/// The doors of the open system in table order, without those whose label hides them.
struct DoorList {
    QStringList labels;
    QStringList lines;
};

/// All doors. Raises the session's `HighDoorNumber` to the highest that it meets.
DoorList ListDoors(Session& session);

/// The lines of the doors whose label begins with a text, whatever its case. Raises
/// `HighDoorNumber` by all doors.
QStringList SearchDoors(Session& session, const QString& text);

/// The change keys with a Key ID, each on one line, in the order of pages and positions.
QStringList ListKeyableKeys(Session& session);

/// Those whose Key ID begins with a text, whatever its case, with the line breaks of their
/// descriptions.
QStringList SearchKeyableKeys(Session& session, const QString& text);

/// Every type of hardware in the file, of all systems, in the order of first appearance.
QStringList ListHardwareTypes(Session& session);

/// The lines of the doors that are assigned to the key of a line. None for an empty line.
QStringList ListKeyedDoors(Session& session, const QString& keyLine);

} // namespace quorrel
