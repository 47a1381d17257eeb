#include "access/HardwareDescriptions.h"

#include "platform/Recordset.h"
#include "store/DoorTables.h"

namespace quorrel {

void ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems) {
    Query doors;
    doors.Where("Text1", from);
    if (!allSystems)
        doors.Where("SystemNumber", session.ActiveSystemNumber);
    Transaction transaction(session.Keys());
    Recordset<DoorHardwareRow>(session.Keys(), doors).SetAll("Text1", to);
    transaction.Commit();
}

} // namespace quorrel
