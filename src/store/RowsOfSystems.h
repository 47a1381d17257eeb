#pragma once

#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/SystemTables.h"

namespace quorrel {

/// Calls `action` with an empty row of each table of the key system file whose rows belong to a
/// system by their `SystemNumber`.
template <class Action>
void ForTablesOfSystems(Action&& action) {
    const auto each = [&](const auto&... rows) { (action(rows), ...); };
    each(PatternsRow{}, AllKeysRow{}, DoorsRow{}, DepartmentRow{}, KeyUsersRow{}, KeyUnitRow{},
         UsertoUnitRow{}, ReturnKeyRow{}, LostKeysRow{}, CrossKeyedRow{}, ActivityRow{});
}

} // namespace quorrel
