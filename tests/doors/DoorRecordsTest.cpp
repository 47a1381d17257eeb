#include "doors/DoorRecords.h"
#include "doors/DoorSite.h"

#include <set>

namespace quorrel::test {
namespace {

TEST(SaveDoorRecord, TellsLabelsApartByAllButTheirLastBlanks) {
    const struct {
        QString stored, typed;
        bool same;
    } cases[] = {{"A1", "A1", true},      {"A1", "A1   ", true},     {"A1   ", "A1", true},
                 {"A1", "A10", false},    {"A10", "A1", false},      {"A1", "a1", false},
                 {"A1", " A1", false},    {"A1", "A1 B", false},     {"A1 B", "A1", false},
                 {"A1", "A1    B", true}, {"A1     ", "A1", false},  {"A1", "A1      ", true},
                 {"100%", "100_", false}, {"O'Neil", "O'Neil", true}};
    for (const auto& [stored, typed, same] : cases) {
        DoorSite site;
        site.Save(stored, "first");
        site.Save(typed, "second");
        const auto doors = site.Doors();
        ASSERT_EQ(doors.size(), same ? 1U : 2U)
            << stored.toStdString() << '|' << typed.toStdString();
        EXPECT_EQ(doors[0].DoorLabel, stored);
        EXPECT_EQ(doors[0].DoorDescription, same ? "second" : "first");
    }
}

TEST(SaveDoorRecord, SavesNothingWithoutALabel) {
    DoorSite site;
    for (const char* label : {"", " ", "   "}) {
        DoorText text;
        text.label = label;
        text.description = "typed";
        EXPECT_FALSE(SaveDoorRecord(site.session, text, {}));
    }
    EXPECT_TRUE(site.Doors().empty());
}

TEST(SaveDoorRecord, WritesANewDoorAndChangesOnlyWhatIsTyped) {
    DoorSite site;
    DoorText text{"M 12", "Boiler room", "Cellar, east", QString(60, u'h'), "left hand",
                  true,   true};
    EXPECT_EQ(SaveOver(site.session, text)->label, "M 12");
    DoorsRow door = site.Doors().at(0);
    EXPECT_EQ(door.DoorID, site.system.SystemID * 10000 + 1);
    EXPECT_EQ(door.CutsLabel, QString(8, u' '));
    EXPECT_EQ(door.Text1, QString(50, u'h'));
    EXPECT_EQ(door.Text2, "left hand");
    EXPECT_EQ(door.Sing1, 16776960);
    EXPECT_EQ(door.Sing2, 1);
    EXPECT_EQ(door.Long1, 0) << "a new door has no day yet";
    EXPECT_TRUE(door.Crosskeyed);

    door.CutsLabel = "K-1";
    door.Coordx = 12;
    door.LinkMapID = 3;
    Recordset<DoorsRow>::Update(site.session.Keys(), door);
    text.label = "M 12  ";
    text.location = "Cellar, west";
    text.crossKeyed = false;
    EXPECT_EQ(SaveOver(site.session, text)->label, "M 12");
    const DoorsRow after = site.Doors().at(0);
    EXPECT_EQ(after.DoorLabel, "M 12");
    EXPECT_EQ(after.DoorLocation, "Cellar, west");
    EXPECT_EQ(after.Text1, text.hardware) << "only a new door's hardware is cut";
    EXPECT_FALSE(after.Crosskeyed);
    EXPECT_EQ(after.CutsLabel, "K-1");
    EXPECT_EQ(after.Coordx, 12);
    EXPECT_EQ(after.LinkMapID, 3);
    EXPECT_EQ(after.DoorID, door.DoorID);
}

TEST(SaveDoorRecord, KeepsTheDayOfTheFirstSaveAsKeyed) {
    DoorSite site;
    DoorText text;
    text.label = "A1";
    const auto dayAfter = [&](const QDate& today, bool keyed) {
        site.session.clock = [today] { return QDateTime(today, QTime(8, 0)); };
        text.keyed = keyed;
        SaveOver(site.session, text);
        return site.Doors().at(0).Long1;
    };
    EXPECT_EQ(dayAfter({1999, 3, 26}, false), 0);
    EXPECT_EQ(dayAfter({1999, 3, 27}, true), 19990327);
    EXPECT_EQ(dayAfter({2001, 1, 1}, true), 19990327);
    EXPECT_EQ(dayAfter({2001, 1, 2}, false), 0);
    EXPECT_EQ(dayAfter({2001, 12, 3}, true), 20011203);
    EXPECT_EQ(KeyedCaption(20011203), "Keyed - 12/03/2001");
    EXPECT_EQ(KeyedCaption(0), "Keyed");
}

TEST(SaveDoorRecord, WorkstationsThatAddInTurnNeverGiveANumberTwice) {
    DoorSite site;
    OtherWorkstation other(site);
    for (int door = 0; door < 12; ++door) {
        DoorText text;
        text.label = QStringLiteral("D%1").arg(door);
        SaveOver(door % 3 == 0 ? other.session : site.session, text);
    }
    std::set<double> numbers;
    for (const DoorsRow& door : site.Doors())
        numbers.insert(door.DoorID);
    EXPECT_EQ(numbers.size(), 12U);
    EXPECT_EQ(*numbers.rbegin(), site.system.SystemID * 10000 + 12);
}

TEST(SaveDoorRecord, CountsOnFromTheHighestNumberMetInAnySystem) {
    DoorSite site;
    site.session.HighDoorNumber = 40;
    site.Save("A1");
    const KeySystemRow second = site.CreateAndOpen(StandardSystem("Quay", "2715"));
    DoorText text;
    text.label = "A1";
    SaveOver(site.session, text);
    EXPECT_EQ(site.Doors().at(0).DoorID, site.system.SystemID * 10000 + 41);
    EXPECT_EQ(FindDoor(site.session, "A1")->DoorID, second.SystemID * 10000 + 42);
}

TEST(DoorRecords, HoldAnyText) {
    const QString labels[] = {QString::fromUtf8("Caf\u00e9 \u0141\u00f3d\u017a"),
                              "O'Brien's \"door\"; --",
                              "100% _ %1",
                              QString::fromUtf8("\u05e9\u05e2\u05e8 \u05de\u05d6\u05e8\u05d7"),
                              QString::fromUtf8("\U0001F511 gate"),
                              QString(10000, u'k')};
    DoorSite site;
    for (const QString& label : labels) {
        site.Save(label, label + "\nsecond line");
        site.Save(label + ' ', label);
        const auto door = LoadDoorRecord(site.session, label);
        ASSERT_TRUE(door) << label.left(40).toStdString();
        EXPECT_EQ(door->DoorDescription, label);
        DeleteDoorRecord(site.session, *door);
        EXPECT_FALSE(HasDoors(site.session));
    }
}

TEST(LoadDoorRecord, MakesTheDoorTheCurrentOne) {
    DoorSite site;
    site.Save("A1");
    site.Save("B1");
    DoorsRow placed = site.Doors().at(0);
    placed.Coordx = 120;
    placed.CoordY = 75.5;
    placed.LinkMapID = 4;
    Recordset<DoorsRow>::Update(site.session.Keys(), placed);
    LoadDoorRecord(site.session, "A1");
    EXPECT_EQ(site.session.door.CurrentDoorX, 120);
    EXPECT_EQ(site.session.door.CurrentDoorY, 75.5);
    EXPECT_EQ(site.session.door.CurrentDoorLinkMapID, 4);
    EXPECT_FALSE(LoadDoorRecord(site.session, "b1"));
    EXPECT_FALSE(LoadDoorRecord(site.session, "B1 "));
    EXPECT_EQ(site.session.door.CurrentDoorLabel, "A1");
    LoadDoorRecord(site.session, "B1");
    EXPECT_EQ(site.session.door.CurrentDoorID, site.Doors().at(1).DoorID);
    EXPECT_EQ(site.session.door.CurrentDoorLabel, "B1");
    EXPECT_EQ(site.session.door.CurrentDoorX, 120) << "an unplaced door leaves the place in hand";
}

TEST(DoorRecords, StayWithinTheOpenSystem) {
    DoorSite site;
    DoorText text;
    text.label = "A1";
    text.hardware = "Lever";
    SaveOver(site.session, text);
    NewSystem cores = StandardSystem("Cores", "395172");
    cores.type = SystemType::ICCore23;
    cores.special = "527394";
    EXPECT_FALSE(site.session.System.SystemIsIC);
    site.CreateAndOpen(cores);
    EXPECT_TRUE(site.session.System.SystemIsIC);
    EXPECT_FALSE(HasDoors(site.session));
    EXPECT_FALSE(LoadDoorRecord(site.session, "A1"));
    EXPECT_EQ(CountHardware(site.session, "Lever"), 0);
    SaveOver(site.session, text);
    text.label = "A2";
    SaveOver(site.session, text);
    EXPECT_EQ(CountHardware(site.session, "Lever"), 2);
    EXPECT_EQ(CountHardware(site.session, "lever"), 0);
    DeleteDoorRecord(site.session, site.Door("A1"));
    EXPECT_EQ(CountHardware(site.session, "Lever"), 1);
    EXPECT_EQ(site.Doors().size(), 1U) << "the other system keeps its own";
}

} // namespace
} // namespace quorrel::test
