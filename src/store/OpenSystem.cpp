#include "store/OpenSystem.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

namespace quorrel {

namespace {

/// The type of a system is told by nothing but a row at one of two positions.
void ReadType(Database& keys, int systemNumber, OpenSystem& system) {
    const auto special = Recordset<PatternsRow>(
                             keys, Query<PatternsRow>()
                                       .Where(&PatternsRow::SystemNumber, systemNumber)
                                       .WhereAtLeast(&PatternsRow::Position, kFirstSpecialPosition)
                                       .OrderBy(&PatternsRow::Position, true))
                             .First();
    if (!special)
        return;
    system.SystemIsAngled = special->Position == kAnglePosition;
    system.SystemIsIC = special->Position == kControlPosition;
    if (system.SystemIsAngled || system.SystemIsIC)
        system.SpecialCuts = Unscrambled(special->Cuts).left(system.PinCount).toStdString();
}

} // namespace

OpenSystem ReadOpenSystem(Database& keys, int systemNumber) {
    OpenSystem system;
    const auto row = Recordset<KeySystemRow>(
                         keys, Query<KeySystemRow>().Where(&KeySystemRow::SystemID, systemNumber))
                         .First();
    if (row) {
        system.name = row->SystemName;
        system.address = row->Address;
        system.lockBrand = row->LockBrand;
        system.notes = row->Notes;
        system.safetyFactor = row->SafetyFactor;
        system.PinCount = row->NumberOfPins;
        system.increment = row->PinIncrement;
        system.MasterKeyCuts = Unscrambled(row->MasterKey).toStdString();
    }
    ReadType(keys, systemNumber, system);
    system.MaxPage = static_cast<int>(
        Recordset<PatternsRow>(keys,
                               Query<PatternsRow>().Where(&PatternsRow::SystemNumber, systemNumber))
            .Largest(&PatternsRow::PageNumber));
    return system;
}

} // namespace quorrel
