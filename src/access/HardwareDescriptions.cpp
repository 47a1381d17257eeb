#include "access/HardwareDescriptions.h"

#include "platform/Recordset.h"
#include "store/DoorTables.h"

namespace quorrel {

namespace {

/// The hardware of a door.
struct DoorHardware {
    using Self = DoorHardware;
    RowKey key = 0;
    QString Text1;

    static constexpr const char* kTable = DoorsRow::kTable;
    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Text1)}; }
};

} // namespace

void ReplaceHardware(Session& session, const QString& from, const QString& to, bool allSystems) {
    Query doors;
    doors.Where("Text1", from);
    if (!allSystems)
        doors.Where("SystemNumber", session.ActiveSystemNumber);
    Transaction transaction(session.Keys());
    Recordset<DoorHardware>(session.Keys(), doors).SetAll("Text1", to);
    transaction.Commit();
}

} // namespace quorrel
