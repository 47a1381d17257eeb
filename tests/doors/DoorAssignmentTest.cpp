#include "doors/DoorAssignment.h"
#include "doors/DoorLists.h"
#include "doors/DoorSite.h"
#include "platform/Text.h"

namespace quorrel::test {
namespace {

const QString kSeven(7, u' ');
const QString kEight(8, u' ');

TEST(DoorLists, ShowTheDoorsInTableOrderAndRememberTheHighestNumber) {
    DoorSite site;
    site.Save("Tower", "Clock");
    site.Save("  hidden");
    site.Save("A door with a long label", "Hall\nsouth");
    site.Save(" tight");
    site.session.HighDoorNumber = 0;
    const DoorList list = ListDoors(site.session);
    EXPECT_EQ(list.labels, QStringList({"Tower", "A door with a long label", " tight"}));
    EXPECT_EQ(list.lines,
              QStringList({"Tower" + QString(13, u' ') + "Clock", "A door with a longHall\nsouth",
                           " tight" + QString(12, u' ')}));
    EXPECT_EQ(site.session.HighDoorNumber, 4);
    site.session.HighDoorNumber = 0;
    EXPECT_EQ(SearchDoors(site.session, "tOW"), QStringList(list.lines[0]));
    EXPECT_EQ(site.session.HighDoorNumber, 4) << "raised by doors that do not match, too";
    EXPECT_EQ(SearchDoors(site.session, "").size(), 3);
    EXPECT_EQ(SearchDoors(site.session, "ower%"), QStringList());
}

TEST(DoorLists, ShowChangeKeysWithAKeyID) {
    DoorSite site;
    site.NameKey(1, "B", "Store");
    site.NameKey(0, "a1          ", "Hall\r\nsouth\nwing");
    site.NameKey(2, " C");
    site.NameKey(4, "MASTER");
    site.NameKey(3, "ABCDEFGHIJKLMN", "long");
    EXPECT_EQ(ListKeyableKeys(site.session), QStringList({"a1          Hall  south  wing",
                                                          "B          Store", "ABCDEFGHIJKLlong"}));
    EXPECT_EQ(SearchKeyableKeys(site.session, "A"),
              QStringList({"a1          Hall\r\nsouth\nwing", "ABCDEFGHIJKLlong"}));
}

TEST(DoorLists, ShowTheHardwareOfTheWholeFile) {
    DoorSite site;
    const auto save = [&](const char* label, const char* hardware) {
        DoorText text;
        text.label = label;
        text.hardware = hardware;
        SaveDoorRecord(site.session, text);
    };
    save("A1", "Lever");
    save("A2", "");
    site.CreateAndOpen(StandardSystem("Quay", "2715"));
    save("  hidden", "Rim lock");
    save("A3", "lever");
    save("A4", "Lever");
    EXPECT_EQ(ListHardwareTypes(site.session), QStringList({"Lever", "Rim lock", "lever"}));
}

TEST(DoorAssignment, TiesADoorToTheKeyOfTheChosenLine) {
    const QString stored = Padded("A1", 12);
    const struct {
        QString label, description, expected;
    } cases[] = {{stored, "Hall", stored},
                 {"A", "Hall", "A"},
                 {"ABCDEFGHIJ", "Hall", "ABCDEFGHIJ"},
                 // With fewer than two blanks behind it a Key ID is not found.
                 {"ABCDEFGHIJK", "Hall", ""},
                 {"ABCDEFGHIJKL", "Hall", ""},
                 {"ABCDEFGHIJKL", "  Hall", "ABCDEFGHIJKL"},
                 {"O'B 100%", "", "O'B 100%"}};
    for (const auto& [label, description, expected] : cases) {
        DoorSite site;
        site.Save("Gate");
        site.Save("Hatch");
        site.NameKey(5, "ZZ");
        site.NameKey(6, label, description);
        const QString line = ListKeyableKeys(site.session).at(1);
        AssignDoorToKey(site.session, line, DoorLine("Gate", "old description"));
        EXPECT_EQ(site.KeysOfDoors(), QStringList({expected, kEight})) << label.toStdString();
    }
}

TEST(DoorAssignment, MovesADoorAndTakesItsKeyAway) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12));
    site.NameKey(1, Padded("K2", 12));
    site.Save("Gate", "North");
    site.Save("Hatch");
    site.Save("  hidden");
    const QStringList keys = ListKeyableKeys(site.session);
    for (const QString& key : keys)
        AssignDoorToKey(site.session, key, DoorLine("Gate", "North"));
    AssignDoorToKey(site.session, keys[1], DoorLine("  hidden", ""));
    EXPECT_EQ(ListKeyedDoors(site.session, keys[0]), QStringList());
    EXPECT_EQ(ListKeyedDoors(site.session, keys[1]), QStringList(DoorLine("Gate", "North")));
    AssignDoorToKey(site.session, "", DoorLine("Gate", ""));
    AssignDoorToKey(site.session, keys[0], "");
    RemoveDoorFromKey(site.session, "");
    EXPECT_EQ(site.KeysOfDoors(), QStringList({Padded("K2", 12), kEight, Padded("K2", 12)}))
        << "nothing is changed where nothing was chosen";
    RemoveDoorFromKey(site.session, DoorLine("Gate", "North"));
    EXPECT_EQ(site.KeysOfDoors().at(0), kSeven);
}

TEST(DoorAssignment, TakesDoorsThatAgreeInTheirColumnTogether) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12), "Hall");
    for (const char* label : {"Corridor door 0001A", "Corridor door 0001B", "Corridor door 0002",
                              "Corridor door 0001", "corridor door 0001A"})
        site.Save(label);
    const QString key = ListKeyableKeys(site.session).at(0);
    const QString line = ListDoors(site.session).lines.at(1);
    AssignDoorToKey(site.session, key, line);
    EXPECT_EQ(ListKeyedDoors(site.session, key).size(), 3) << "18 characters are compared";
    EXPECT_EQ(site.KeysOfDoors().count(kEight), 2);
    RemoveDoorFromKey(site.session, line);
    EXPECT_EQ(site.KeysOfDoors().count(kSeven), 3);
}

TEST(DoorAssignment, ComparesKeyIDsInTheirColumn) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12), "Hall");
    const char* assigned[] = {"K1", "K1          ", "K1                  ", "K1 2", "K", "k1"};
    for (const char* keyID : assigned) {
        DoorsRow door;
        door.SystemNumber = site.system.SystemID;
        door.DoorLabel = QString("<%1>").arg(keyID);
        door.CutsLabel = keyID;
        Recordset<DoorsRow>::Add(site.session.Keys(), door);
    }
    const QString key = ListKeyableKeys(site.session).at(0);
    EXPECT_EQ(ListKeyedDoors(site.session, key).size(), 3);
}

} // namespace
} // namespace quorrel::test
