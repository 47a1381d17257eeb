#include "store/OpenSystem.h"

#include "engine/PageGeometry.h"
#include "engine/SystemDefinition.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

bool HasPossiblePins(const OpenSystem& system) {
    return system.PinCount >= kPinCountLimits.lowest && system.PinCount <= kPinCountLimits.highest;
}

void AddFlaw(OpenSystem& system, const QString& text) {
    system.flaws += (system.flaws.isEmpty() ? QString() : QStringLiteral("\n\n")) + text;
}

/// As many pages as a system of these pins can have, whatever its range of cuts.
int MostPages(int pins) {
    int pages = 1;
    for (int place = kPinCountLimits.lowest; place <= std::min(pins, kPinCountLimits.highest);
         ++place)
        pages = std::min(pages * 10, kMaxPages);
    return pages;
}

void ReadPages(Database& keys, int systemNumber, OpenSystem& system) {
    const auto ofSystem = [&] {
        return Query<PatternsRow>().Where(&PatternsRow::SystemNumber, systemNumber);
    };
    const int most = MostPages(system.PinCount);
    const Recordset<PatternsRow> within(keys,
                                        ofSystem().WhereBelow(&PatternsRow::PageNumber, most + 1));
    system.MaxPage =
        static_cast<int>(std::max<qint64>(within.Largest(&PatternsRow::PageNumber), 0));
    const qint64 beyond =
        Recordset<PatternsRow>(keys, ofSystem().WhereAtLeast(&PatternsRow::PageNumber, most + 1))
            .Count();
    if (beyond > 0)
        AddFlaw(system, QStringLiteral("%1 of its keys are stored for pages beyond %2, which %3 "
                                       "pins cannot have. These keys are not shown.")
                            .arg(beyond)
                            .arg(most)
                            .arg(system.PinCount));
}

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
    if (!system.SystemIsAngled && !system.SystemIsIC)
        return;
    if (const auto cuts = CutsOf(special->Cuts, system.PinCount))
        system.SpecialCuts = cuts->substr(0, static_cast<std::size_t>(system.PinCount));
    else
        AddFlaw(system, QStringLiteral("Its %1 cannot be read.")
                            .arg(system.SystemIsIC ? QStringLiteral("control key")
                                                   : QStringLiteral("angles")));
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
        system.MasterKeyCuts = Readable(row->MasterKey).value_or(QString()).toStdString();
        if (row->SystemName.trimmed().isEmpty())
            AddFlaw(system, QStringLiteral("It has no name."));
    }
    if (HasPossiblePins(system))
        ReadType(keys, systemNumber, system);
    ReadPages(keys, systemNumber, system);
    return system;
}

void RequireUsable(const OpenSystem& system) {
    QString flaw;
    if (!HasPossiblePins(system))
        flaw = QStringLiteral("it is stored with %1 pins, and only %2 to %3 are possible")
                   .arg(system.PinCount)
                   .arg(kPinCountLimits.lowest)
                   .arg(kPinCountLimits.highest);
    else if (!IsDigits(system.MasterKeyCuts, system.PinCount))
        flaw = QStringLiteral("its master key cannot be read as %1 cuts").arg(system.PinCount);
    if (!flaw.isEmpty())
        throw BrokenSystem(QStringLiteral("The key system \"%1\" cannot be opened: %2. It was left "
                                          "as it is. Bring back a good backup of the file.")
                               .arg(system.name, flaw));
}

} // namespace quorrel
