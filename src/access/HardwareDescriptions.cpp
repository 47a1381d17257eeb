#include "access/HardwareDescriptions.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"

namespace quorrel {

bool ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems) {
    SystemTransaction transaction(session);
    const Recordset<DoorHardwareRow> anywhere(session.Keys(),
                                              Query<DoorsRow>().Where(&DoorsRow::Text1, from));
    if (anywhere.Empty())
        throw ChangedElsewhere::Changed(
            QStringLiteral("The hardware description %1").arg(Named(from)), {to});
    const Recordset<DoorHardwareRow> here(
        session.Keys(), OfSystem<DoorHardwareRow>(session).Where(&DoorsRow::Text1, from));
    if (!allSystems && here.Empty())
        return false;
    (allSystems ? anywhere : here).SetAll(&DoorsRow::Text1, to);
    transaction.Commit();
    return true;
}

} // namespace quorrel
