#include "access/HardwareDescriptions.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"

#include <QSet>

namespace quorrel {

QStringList ListHardwareTypes(Session& session) {
    QStringList types;
    QSet<QString> known;
    Recordset<DoorHardwareRow>(session.Keys()).Walk([&](const DoorHardwareRow& door) {
        if (!door.Text1.isEmpty() && !known.contains(door.Text1)) {
            known.insert(door.Text1);
            types.append(door.Text1);
        }
        return true;
    });
    return types;
}

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
