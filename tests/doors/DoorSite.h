#pragma once

#include "doors/DoorRecords.h"
#include "platform/Recordset.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"

namespace quorrel::test {

/// A program with an open system, for what is done with its doors.
class DoorSite : public TestProgram {
public:
    DoorSite() : system(CreateAndOpen(StandardSystem("Pier", "395172"))) {}

    void Save(const QString& label, const QString& description = {}) {
        DoorText text;
        text.label = label;
        text.description = description;
        EXPECT_TRUE(SaveDoorRecord(session, text));
    }

    /// Gives a key of the first page its Key ID, stored just so.
    void NameKey(int position, const QString& label, const QString& description = {}) {
        auto row = Recordset<PatternsRow>(session.Keys(),
                                          Query<PatternsRow>()
                                              .Where(&PatternsRow::SystemNumber, system.SystemID)
                                              .Where(&PatternsRow::PageNumber, 1)
                                              .Where(&PatternsRow::Position, position))
                       .First();
        row->Label = label;
        row->Description = description;
        Recordset<PatternsRow>::Update(session.Keys(), *row);
    }

    std::vector<DoorsRow> Doors() {
        return Recordset<DoorsRow>(session.Keys(), Query<DoorsRow>().Where(&DoorsRow::SystemNumber,
                                                                           system.SystemID))
            .Rows();
    }

    /// The Key IDs that the doors are assigned to, in table order.
    QStringList KeysOfDoors() {
        QStringList keys;
        for (const DoorsRow& door : Doors())
            keys.append(door.CutsLabel);
        return keys;
    }

    KeySystemRow system;
};

} // namespace quorrel::test
