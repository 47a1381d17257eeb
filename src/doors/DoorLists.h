#pragma once

#include "store/Session.h"

#include <QStringList>

#include <vector>

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

/// The line of a change key.
QString KeyableLine(const QString& label, const QString& description);

/// A line of a list and the stored row that it stands for.
struct RowLine {
    RowKey key = 0;
    QString label; ///< of the door, or the Key ID, as it was stored when the line was made
    QString text;
    bool crossKeyed = false; ///< it is a door's that is cross-keyed
};
using RowLines = std::vector<RowLine>;

QStringList TextsOf(const RowLines& lines);

/// The doors of the open system in table order, without those whose label hides them. Raises the
/// session's `HighDoorNumber` to the highest that it meets.
RowLines ListDoors(Session& session);

/// The doors whose label begins with a text, whatever its case. Raises `HighDoorNumber` by all.
RowLines SearchDoors(Session& session, const QString& text);

/// The change keys with a Key ID, each on one line, in the order of pages and positions.
RowLines ListKeyableKeys(Session& session);

/// Those whose Key ID begins with a text, whatever its case, with the line breaks of their
/// descriptions.
RowLines SearchKeyableKeys(Session& session, const QString& text);

/// Whether a door that is assigned to a Key ID is among the doors of the key of a line.
bool IsKeyedTo(const QString& keyLine, const QString& cutsLabel);

/// The doors that are assigned to the key of a line. None for an empty line.
RowLines ListKeyedDoors(Session& session, const QString& keyLine);

} // namespace quorrel
