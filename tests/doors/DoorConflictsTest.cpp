#include "access/HardwareDescriptions.h"
#include "doors/DoorAssignment.h"
#include "doors/DoorSite.h"
#include "platform/Text.h"
#include "store/Conflict.h"

namespace quorrel::test {
namespace {

DoorText Text(const QString& label, const QString& description, const QString& hardware = {}) {
    DoorText text;
    text.label = label;
    text.description = description;
    text.hardware = hardware;
    return text;
}

/// What saving a record is refused with.
QString Refusal(DoorSite& site, const DoorText& typed, const ShownDoor& shown) {
    try {
        SaveDoorRecord(site.session, typed, shown);
    } catch (const ChangedElsewhere& refused) {
        return QString::fromUtf8(refused.what());
    }
    return "saved";
}

TEST(DoorConflicts, ChangesOfTwoWorkstationsToOneDoorAreBothKept) {
    DoorSite site;
    site.Save("A1", "old");
    OtherWorkstation other(site);
    const ShownDoor shown = ShownNow(site.session, "A1");
    other.Change("A1", &DoorText::location, "East wing");
    DoorText typed = shown.text;
    typed.description = "new";
    typed.keyed = true;
    EXPECT_EQ(SaveDoorRecord(site.session, typed, shown)->what, SavedDoor::What::Changed);
    const DoorsRow door = site.Door("A1");
    EXPECT_EQ(door.DoorDescription, "new");
    EXPECT_EQ(door.DoorLocation, "East wing");
    EXPECT_EQ(door.Long1, 20260315);
    const ShownDoor again = ShownNow(site.session, "A1");
    EXPECT_EQ(SaveDoorRecord(site.session, again.text, again)->what, SavedDoor::What::AsItWas);
}

TEST(DoorConflicts, ATextThatBothHaveChangedIsToldAndNothingIsWritten) {
    DoorSite site;
    site.Save("A1", "old");
    OtherWorkstation other(site);
    const ShownDoor shown = ShownNow(site.session, "A1");
    other.Change("A1", &DoorText::description, "theirs");
    other.Change("A1", &DoorText::details, "left hand");
    DoorText typed = shown.text;
    typed.description = "mine";
    typed.location = "East wing";
    typed.crossKeyed = true;
    const QString refusal = Refusal(site, typed, shown);
    EXPECT_TRUE(refusal.startsWith("Door A1 has been changed")) << refusal.toStdString();
    EXPECT_TRUE(refusal.contains("    mine")) << refusal.toStdString();
    EXPECT_EQ(site.Door("A1").DoorDescription, "theirs");
    EXPECT_FALSE(site.Door("A1").Crosskeyed);
    DoorText after = typed;
    after.description = "theirs";
    after.details = "left hand";
    EXPECT_EQ(TextAfterConflict(typed, shown, site.Door("A1")), after)
        << "what meets nobody else's change stays typed";
}

TEST(DoorConflicts, ADeletedDoorIsNotWrittenTo) {
    DoorSite site;
    site.Save("A1", "old");
    OtherWorkstation other(site);
    const ShownDoor shown = ShownNow(site.session, "A1");
    DoorText typed = shown.text;
    typed.description = "mine";
    other.Delete("A1");
    EXPECT_TRUE(Refusal(site, typed, shown).startsWith("Door A1 is no longer in the file"));
    EXPECT_THROW(DeleteDoorRecord(site.session, *shown.stored), ChangedElsewhere);
    // Its place in the table goes to another door, then to one of its own label.
    SaveOver(other.session, Text("B1", "theirs"));
    ASSERT_EQ(site.Door("B1").key, shown.stored->key);
    EXPECT_TRUE(Refusal(site, typed, shown).startsWith("Door A1 is no longer in the file"));
    EXPECT_THROW(DeleteDoorRecord(site.session, *shown.stored), ChangedElsewhere);
    SaveOver(other.session, Text("A1", "theirs"));
    const QString refusal = Refusal(site, typed, shown);
    EXPECT_TRUE(refusal.startsWith("Door A1 has been added")) << refusal.toStdString();
    EXPECT_TRUE(refusal.contains("    mine"));
    for (const DoorsRow& door : site.Doors())
        EXPECT_EQ(door.DoorDescription, "theirs");
    EXPECT_EQ(site.Doors().size(), 2U);
}

TEST(DoorConflicts, ALabelThatAnotherDoorHasGotMeanwhileIsNotTaken) {
    DoorSite site;
    OtherWorkstation other(site);
    const ShownDoor shown = ShownNow(site.session, "A1");
    ASSERT_FALSE(shown.stored);
    SaveOver(other.session, Text("A1", "theirs"));
    for (const char* label : {"A1", "A1  "}) {
        const QString refusal = Refusal(site, Text(label, "mine", "Lever"), shown);
        EXPECT_TRUE(refusal.startsWith("Door A1 has been added")) << refusal.toStdString();
        EXPECT_TRUE(refusal.contains("    mine\n    Lever")) << refusal.toStdString();
    }
    EXPECT_EQ(Refusal(site, Text("A10", "mine"), shown), "saved");
    EXPECT_EQ(site.Door("A1").DoorDescription, "theirs");
}

TEST(DoorConflicts, ADoorThatHasChangedIsNotDeleted) {
    DoorSite site;
    site.Save("A1");
    OtherWorkstation other(site);
    const DoorsRow shown = site.Door("A1");
    other.Change("A1", &DoorText::details, "theirs");
    EXPECT_THROW(DeleteDoorRecord(site.session, shown), ChangedElsewhere);
    DeleteDoorRecord(site.session, site.Door("A1"));
    EXPECT_FALSE(HasDoors(site.session));
}

TEST(DoorConflicts, NothingIsWrittenForASystemThatIsGone) {
    DoorSite site;
    site.NameKey(0, Padded("K1", 12));
    site.Save("A1", "old");
    const ShownDoor shown = ShownNow(site.session, "A1");
    const RowLine key = ListKeyableKeys(site.session).at(0);
    const RowLine door = ListDoors(site.session).at(0);
    AssignDoorToKey(site.session, key, door);
    const DoorsRow before = site.Door("A1");
    site.session.Keys().Execute("UPDATE KeySystem SET SystemName = 'School'");
    EXPECT_THROW(SaveOver(site.session, Text("A1", "new")), SystemGone);
    EXPECT_THROW(SaveOver(site.session, Text("A2", "new")), SystemGone);
    EXPECT_THROW(DeleteDoorRecord(site.session, before), SystemGone);
    EXPECT_THROW(AssignDoorToKey(site.session, key, door), SystemGone);
    EXPECT_THROW(RemoveDoorFromKey(site.session, key, door), SystemGone);
    EXPECT_THROW(ReplaceHardware(site.session, "", "Rim", true), SystemGone);
    ASSERT_EQ(site.Doors().size(), 1U);
    EXPECT_TRUE(SameFields(site.Door("A1"), before));
}

TEST(DoorRecords, WriteOnlyWhatWasTyped) {
    DoorSite site;
    Database& keys = site.session.Keys();
    site.Save("A1");
    const QString huge(1 << 20, u'd');
    keys.Execute("UPDATE Doors SET DoorDescription = :text", {huge});
    // Texts that reading does not give back as they are.
    keys.Execute("UPDATE Doors SET DoorLocation = NULL, Text2 = 'left' || char(0) || 'hand', "
                 "Coordx = NULL");
    const ShownDoor shown = {site.Door("A1"), [&] {
                                 DoorText boxes = TextOf(site.Door("A1"));
                                 boxes.description.truncate(100);
                                 return boxes;
                             }()};
    DoorText typed = shown.text;
    typed.hardware = "Lever";
    ASSERT_TRUE(SaveDoorRecord(site.session, typed, shown));
    EXPECT_EQ(site.Door("A1").Text1, "Lever");
    EXPECT_EQ(site.Door("A1").DoorDescription, huge) << "cut on the screen alone";
    EXPECT_EQ(keys.Number("SELECT DoorLocation IS NULL AND Coordx IS NULL FROM Doors"), 1);
    EXPECT_EQ(keys.Number("SELECT length(CAST(Text2 AS BLOB)) FROM Doors"), 9);
}

TEST(ShownDoor, TellsWhetherSomethingWouldBeLost) {
    DoorsRow stored;
    stored.DoorLabel = "A1";
    stored.DoorDescription = "Vault";
    const ShownDoor known = {stored, TextOf(stored)};
    const auto differs = [&](const char* label, const char* description, bool keyed = false) {
        DoorText typed = Text(label, description);
        typed.keyed = keyed;
        return known.DiffersFrom(typed);
    };
    EXPECT_FALSE(differs("A1", "Vault"));
    EXPECT_FALSE(differs("A1   ", "Vault")) << "the same label";
    EXPECT_FALSE(differs("", "Vault")) << "a record that was brought up";
    EXPECT_TRUE(differs("", "Safe"));
    EXPECT_TRUE(differs("A1", "Safe"));
    EXPECT_TRUE(differs("A1", "Vault", true));
    EXPECT_TRUE(differs("A10", "Vault")) << "a new door";
    EXPECT_FALSE(ShownDoor().DiffersFrom({}));
    EXPECT_FALSE(ShownDoor().DiffersFrom(Text("  ", ""))) << "no label";
    EXPECT_TRUE(ShownDoor().DiffersFrom(Text("A1", "")));
    EXPECT_TRUE(ShownDoor().DiffersFrom(Text("", "typed")));
}

} // namespace
} // namespace quorrel::test
