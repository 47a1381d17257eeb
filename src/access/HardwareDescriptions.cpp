#include "access/HardwareDescriptions.h"

#include "platform/Recordset.h"
#include "store/DoorTables.h"

namespace quorrel {

void ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems) {
    Query<DoorsRow> doors;
    doors.Where(&DoorsRow::Text1, from);
    if (!allSystems)
        doors.Where(&DoorsRow::SystemNumber, session.ActiveSystemNumber);
    Transaction transaction(session.Keys());
    Recordset<DoorHardwareRow>(session.Keys(), doors).SetAll(&DoorsRow::Text1, to);
    transaction.Commit();
}

} // namespace quorrel
