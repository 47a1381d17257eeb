#include "doors/DoorAssignment.h"
#include "access/HardwareDescriptions.h"
#include "doors/DoorLists.h"
#include "doors/DoorSite.h"
#include "platform/Text.h"
#include "store/Conflict.h"

#include <algorithm>

namespace quorrel::test {
namespace {

const QString kSeven(7, u' ');
const QString kEight(8, u' ');

/// The line of a label.
RowLine LineOf(const RowLines& lines, const QString& label) {
    const auto line = std::find_if(lines.begin(), lines.end(),
                                   [&](const RowLine& one) { return one.label == label; });
    EXPECT_NE(line, lines.end()) << label.toStdString();
    return line == lines.end() ? RowLine() : *line;
}

TEST(DoorLists, ShowTheDoorsInTableOrderAndRememberTheHighestNumber) {
    DoorSite site;
    site.Save("Tower", "Clock");
    site.Save("  hidden");
    site.Save("A door with a long label", "Hall\nsouth");
    site.Save(" tight");
    site.session.HighDoorNumber = 0;
    const RowLines list = ListDoors(site.session);
    EXPECT_EQ(list.at(1).label, "A door with a long label");
    EXPECT_EQ(list.at(1).key, site.Door("A door with a long label").key);
    EXPECT_EQ(TextsOf(list),
              QStringList({"Tower" + QString(13, u' ') + "Clock", "A door with a longHall\nsouth",
                           " tight" + QString(12, u' ')}));
    EXPECT_EQ(site.session.HighDoorNumber, 4);
    site.session.HighDoorNumber = 0;
    EXPECT_EQ(TextsOf(SearchDoors(site.session, "tOW")), QStringList(list[0].text));
    EXPECT_EQ(site.session.HighDoorNumber, 4) << "raised by doors that do not match, too";
    EXPECT_EQ(SearchDoors(site.session, "").size(), 3U);
    EXPECT_TRUE(SearchDoors(site.session, "ower%").empty());
}

TEST(DoorLists, ShowChangeKeysWithAKeyID) {
    DoorSite site;
    site.NameKey(1, "B", "Store");
    site.NameKey(0, "a1          ", "Hall\r\nsouth\nwing");
    site.NameKey(2, " C");
    site.NameKey(4, "MASTER");
    site.NameKey(3, "ABCDEFGHIJKLMN", "long");
    EXPECT_EQ(
        TextsOf(ListKeyableKeys(site.session)),
        QStringList({"a1          Hall  south  wing", "B          Store", "ABCDEFGHIJKLlong"}));
    EXPECT_EQ(TextsOf(SearchKeyableKeys(site.session, "A")),
              QStringList({"a1          Hall\r\nsouth\nwing", "ABCDEFGHIJKLlong"}));
}

TEST(DoorLists, ShowTheHardwareOfTheWholeFile) {
    DoorSite site;
    const auto save = [&](const char* label, const char* hardware) {
        DoorText text;
        text.label = label;
        text.hardware = hardware;
        SaveOver(site.session, text);
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
        const RowLine key = ListKeyableKeys(site.session).at(1);
        const Assignment assigned =
            AssignDoorToKey(site.session, key, LineOf(ListDoors(site.session), "Gate"));
        EXPECT_EQ(assigned.doors, 1);
        EXPECT_EQ(assigned.keyID, expected);
        EXPECT_EQ(site.KeysOfDoors(), QStringList({expected, kEight})) << label.toStdString();
    }
}

TEST(DoorAssignment, MovesADoorAndTakesItsKeyAway) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12));
    site.NameKey(1, Padded("K2", 12));
    for (const char* label : {"A1", "A10", "A1 B"})
        site.Save(label, "North");
    const RowLines keys = ListKeyableKeys(site.session);
    const RowLine door = LineOf(ListDoors(site.session), "A1");
    for (const RowLine& key : keys)
        EXPECT_EQ(AssignDoorToKey(site.session, key, door).doors, 1);
    EXPECT_TRUE(ListKeyedDoors(site.session, keys[0].text).empty());
    const RowLines keyed = ListKeyedDoors(site.session, keys[1].text);
    EXPECT_EQ(TextsOf(keyed), QStringList(DoorLine("A1", "North")));
    EXPECT_EQ(site.KeysOfDoors(), QStringList({Padded("K2", 12), kEight, kEight}));
    EXPECT_EQ(RemoveDoorFromKey(site.session, keys[1], keyed.at(0)), 1);
    EXPECT_EQ(site.KeysOfDoors().at(0), kSeven);
    EXPECT_TRUE(ListKeyedDoors(site.session, "").empty());
}

TEST(DoorAssignment, TakesDoorsThatAgreeInTheirColumnTogether) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12), "Hall");
    for (const char* label : {"Corridor door 0001A", "Corridor door 0001B", "Corridor door 0002",
                              "Corridor door 0001", "corridor door 0001A"})
        site.Save(label);
    const RowLine key = ListKeyableKeys(site.session).at(0);
    const RowLine door = LineOf(ListDoors(site.session), "Corridor door 0001B");
    EXPECT_EQ(AssignDoorToKey(site.session, key, door).doors, 3) << "18 characters are compared";
    EXPECT_EQ(ListKeyedDoors(site.session, key.text).size(), 3U);
    EXPECT_EQ(site.KeysOfDoors().count(kEight), 2);
    EXPECT_EQ(RemoveDoorFromKey(site.session, key, door), 3);
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
    const RowLine key = ListKeyableKeys(site.session).at(0);
    EXPECT_EQ(ListKeyedDoors(site.session, key.text).size(), 3U);
}

TEST(DoorAssignment, WritesNothingWhereALineOfAnAgedListIsChosen) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12), "Hall");
    site.NameKey(1, Padded("K2", 12), "Store");
    for (const char* label : {"Gate", "Hatch", "Vault"})
        site.Save(label);
    const RowLines keys = ListKeyableKeys(site.session);
    const RowLines doors = ListDoors(site.session);
    AssignDoorToKey(site.session, keys[0], doors[0]);
    const QStringList before = site.KeysOfDoors();
    const auto refused = [&](const RowLine& key, const RowLine& door) {
        try {
            AssignDoorToKey(site.session, key, door);
            return QString("assigned");
        } catch (const ChangedElsewhere& aged) {
            return QString::fromUtf8(aged.what()).section(" is no longer", 0, 0);
        }
    };
    // Renamed, and its former Key ID given to another key; then taken away.
    site.NameKey(0, Padded("K3", 12), "Hall");
    site.NameKey(2, Padded("K1", 12), "Hall");
    EXPECT_EQ(refused(keys[0], doors[0]), "Key ID K1");
    EXPECT_EQ(refused(keys[0], doors[1]), "Key ID K1");
    site.NameKey(1, QString(19, ' '));
    EXPECT_EQ(refused(keys[1], doors[0]), "Key ID K2");
    EXPECT_EQ(site.KeysOfDoors(), before);
    // Deleted, and its place in the table given to another door.
    OtherWorkstation other(site);
    other.Delete("Vault");
    EXPECT_EQ(refused(ListKeyableKeys(site.session)[0], doors[2]), "Door Vault");
    site.Save("Shed");
    ASSERT_EQ(site.Door("Shed").key, doors[2].key);
    EXPECT_EQ(refused(ListKeyableKeys(site.session)[0], doors[2]), "Door Vault");
    EXPECT_EQ(site.KeysOfDoors(), before);
}

TEST(DoorAssignment, LeavesADoorWithTheKeyThatAnotherWorkstationGaveIt) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12));
    site.NameKey(1, Padded("K2", 12));
    site.Save("Gate");
    const RowLines keys = ListKeyableKeys(site.session);
    AssignDoorToKey(site.session, keys[0], ListDoors(site.session)[0]);
    const RowLine listed = ListKeyedDoors(site.session, keys[0].text).at(0);
    OtherWorkstation other(site);
    AssignDoorToKey(other.session, keys[1], ListDoors(other.session)[0]);
    EXPECT_THROW(RemoveDoorFromKey(site.session, keys[0], listed), ChangedElsewhere);
    EXPECT_THROW(AssignDoorToKey(site.session, keys[0], listed, keys[0].label), ChangedElsewhere);
    EXPECT_EQ(site.KeysOfDoors(), QStringList(Padded("K2", 12)));
}

} // namespace
} // namespace quorrel::test
