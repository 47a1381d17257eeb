#pragma once

#include "doors/DoorRecords.h"
#include "platform/Recordset.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"

namespace quorrel::test {

/// A door as a form shows it that has just brought it up, or one that it does not know.
inline ShownDoor ShownNow(Session& session, const QString& label) {
    const auto door = FindDoorMeant(session, label);
    return door ? ShownDoor{door, TextOf(*door)} : ShownDoor{};
}

/// Saves a record over what is stored under its label at this moment.
inline std::optional<SavedDoor> SaveOver(Session& session, const DoorText& text) {
    return SaveDoorRecord(session, text, ShownNow(session, text.label));
}

/// A program with an open system, for what is done with its doors.
class DoorSite : public TestProgram {
public:
    explicit DoorSite(const NewSystem& made = StandardSystem("Pier", "395172"))
        : system(CreateAndOpen(made)) {}

    void Save(const QString& label, const QString& description = {}) {
        DoorText text;
        text.label = label;
        text.description = description;
        EXPECT_TRUE(SaveOver(session, text));
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

    DoorsRow Door(const QString& label) {
        const auto door = FindDoor(session, label);
        EXPECT_TRUE(door) << label.toStdString();
        return door.value_or(DoorsRow());
    }

    KeySystemRow system;
};

/// Another workstation with the same system of the same file open.
class OtherWorkstation {
public:
    explicit OtherWorkstation(DoorSite& site)
        : session(site.folder.path(), site.boxes, site.session.clock, Random([] { return 1U; })) {
        QString failure;
        EXPECT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
        OpenKeySystem(session, site.system);
    }

    /// Changes one text of a door.
    void Change(const QString& label, QString DoorText::*part, const QString& to) {
        const ShownDoor shown = ShownNow(session, label);
        DoorText typed = shown.text;
        typed.*part = to;
        EXPECT_TRUE(SaveDoorRecord(session, typed, shown));
    }

    void Delete(const QString& label) {
        DeleteDoorRecord(session, FindDoor(session, label).value());
    }

    Session session;
};

} // namespace quorrel::test
