#include "page/KeyRecord.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

/// A system of four pages, its first page on the screen.
class KeyRecordTest : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Other", "2715"));
        other = program.session.ActiveSystemNumber;
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        page.LoadPageView();
    }

    /// Types a record for a cell and leaves the key.
    KeyRecordText Save(int cell, const QString& keyID, const KeyRecordText& rest = {}) {
        record.Open(cell, true);
        KeyRecordText screen = rest;
        screen.keyID = keyID;
        record.SaveKeyRecord(screen);
        return screen;
    }

    /// Types a record for a cell that has one already, and answers the question.
    KeyRecordText Change(int cell, const QString& keyID, const KeyRecordText& rest = {},
                         BoxAnswer answer = BoxAnswer::Yes) {
        program.boxes.Expect("Are you sure you want to save changes to this record?", answer);
        return Save(cell, keyID, rest);
    }

    std::vector<PatternsRow> Patterns(int cell) {
        const QString cuts = QString::fromStdString(page.Cell(cell).tag);
        return Recordset<PatternsRow>(program.session.Keys(),
                                      OfSystem<PatternsRow>(program.session)
                                          .Where(&PatternsRow::Cuts, Scrambled(cuts)))
            .Rows();
    }

    std::vector<AllKeysRow> AllKeys() {
        return Recordset<AllKeysRow>(program.session.Keys()).Rows();
    }

    QStringList Departments() {
        QStringList names;
        for (const DepartmentRow& row : Recordset<DepartmentRow>(program.session.Keys()).Rows())
            names.append(row.Department);
        return names;
    }

    TestProgram program;
    PageView page{program.session};
    KeyRecord record{program.session, page};
    int other = 0;
};

TEST_F(KeyRecordTest, ANewKeyIDIsWrittenEverywhereAndNowhereElse) {
    const KeyRecordText screen =
        Save(6, "front-a  ", {{}, "kw-123456", "caretakers", "Front door"});
    EXPECT_EQ(screen.keyID, "FRONT-A");
    const auto patterns = Patterns(6);
    ASSERT_EQ(patterns.size(), 1U);
    EXPECT_EQ(patterns[0].Label, "FRONT-A     ");
    EXPECT_EQ(patterns[0].KeyWay, "kw-12345");
    EXPECT_EQ(patterns[0].Department, "CARETAKERS");
    EXPECT_EQ(patterns[0].Description, "Front door");
    EXPECT_EQ(patterns[0].AlphaCode, "2026-03-15");
    const auto keys = AllKeys();
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys[0].KeyID, "FRONT-A     ");
    EXPECT_EQ(keys[0].KeyWay, "kw-12345 ");
    EXPECT_EQ(keys[0].Position, 6);
    EXPECT_EQ(keys[0].PageNumber, 1);
    EXPECT_EQ(keys[0].CustomCuts, "2026-03-15");
    EXPECT_EQ(Unscrambled(keys[0].Cuts).toStdString(), page.Cell(6).tag);
    EXPECT_EQ(Departments(), QStringList({"CARETAKERS"}));
    EXPECT_EQ(page.Cell(6).keyLabel, "FRONT-A");
    EXPECT_EQ(page.Cell(6).date, "2026-03-15");
    EXPECT_TRUE(page.Cell(6).toolTip.startsWith("FRONT-A "));
    EXPECT_EQ(Recordset<PatternsRow>(
                  program.session.Keys(),
                  Query<PatternsRow>().Where(&PatternsRow::Label, QString("FRONT-A     ")))
                  .Count(),
              1)
        << "the other system has the same cuts";
    EXPECT_FALSE(record.IsEdited(screen));
    EXPECT_EQ(record.LastStored(), "Key ID FRONT-A stored");
}

TEST_F(KeyRecordTest, MastersAreSavedAsChangeKeysAre) {
    Save(9, "BLOCK", {{}, {}, "Caretakers", {}});
    Save(105, "GRAND", {{}, {}, "CARETAKERS", {}});
    EXPECT_EQ(Patterns(9)[0].Label, "BLOCK       ");
    EXPECT_EQ(Patterns(105)[0].Label, "GRAND       ");
    EXPECT_EQ(AllKeys()[1].Position, 105);
    EXPECT_EQ(Departments(), QStringList({"CARETAKERS"})) << "learnt once";
    Save(104, "COLUMN"); // With four pins the page master is the first column master.
    EXPECT_EQ(page.Cell(100).keyLabel, "COLUMN");
    Change(100, "COLUMN", {{}, {}, {}, "changed"});
    EXPECT_EQ(AllKeys().size(), 3U);
    EXPECT_EQ(AllKeys()[2].Position, 104) << "keeps the place where it got its Key ID";
    EXPECT_EQ(page.Cell(104).description, "changed");
}

TEST_F(KeyRecordTest, RenamingAsksAndKeepsTheBooksInStep) {
    Save(6, "OLD");
    Change(6, "NEW", {}, BoxAnswer::No);
    EXPECT_EQ(AllKeys()[0].KeyID, "OLD         ");
    Change(6, "NEW");
    EXPECT_EQ(program.boxes.Last().title, "Save Changes to Record");
    ASSERT_EQ(AllKeys().size(), 1U);
    EXPECT_EQ(AllKeys()[0].KeyID, "NEW         ");
    EXPECT_EQ(Patterns(6)[0].Label, "NEW         ");
    Save(7, "OLD"); // The former name is free again.
    EXPECT_EQ(AllKeys().size(), 2U);
}

TEST_F(KeyRecordTest, ABlankTakesTheKeyIDAway) {
    Save(6, "GONE", {{}, "KW", "STORES", "Cellar"});
    EXPECT_EQ(Change(6, " ", {{}, "KW", "STORES", "Cellar"}).keyID, "");
    EXPECT_TRUE(AllKeys().empty());
    const PatternsRow row = Patterns(6)[0];
    EXPECT_EQ(row.Label, QString(19, ' '));
    EXPECT_EQ(row.Description, QString(16, ' '));
    EXPECT_EQ(row.Department, QString(7, ' '));
    EXPECT_EQ(row.KeyWay, QString(8, ' '));
    EXPECT_EQ(row.AlphaCode, "");
    EXPECT_FALSE(page.Cell(6).HasLabel());
    EXPECT_EQ(page.Cell(6).date, "");
    EXPECT_EQ(record.Open(7, true).keyway, "") << "nothing of it is offered to the next key";
}

TEST_F(KeyRecordTest, AKeyIDOfAnotherKeyIsRefusedWithoutATrace) {
    Save(6, "TAKEN");
    Save(7, "MINE", {{}, {}, {}, "before"});
    program.boxes.Expect("Are you sure", BoxAnswer::Yes);
    program.boxes.Expect("That Key Label is unavailable, Choose another one");
    EXPECT_EQ(Save(7, "taken", {{}, {}, "NEWDEP", "after"}).keyID, "MINE");
    EXPECT_EQ(Patterns(7)[0].Label, "MINE        ");
    EXPECT_EQ(Patterns(7)[0].Description, "before");
    EXPECT_EQ(AllKeys()[1].KeyID, "MINE        ");
    EXPECT_TRUE(Departments().empty());
}

TEST_F(KeyRecordTest, UnitsAndDoorsStandInTheWayOfARename) {
    Save(6, "HELD");
    UsertoUnitRow unit;
    unit.SystemNumber = program.session.ActiveSystemNumber;
    unit.KeyID = "HELD        ";
    Recordset<UsertoUnitRow>::Add(program.session.Keys(), unit);
    for (const char* text : {"OTHER", " "}) {
        program.boxes.Expect("There are Key Units Issued for HELD - Delete all Key Units before");
        EXPECT_EQ(Save(6, text, {{}, {}, {}, "typed"}).keyID, "HELD");
        EXPECT_EQ(program.boxes.Last().title, "Access Error");
        EXPECT_TRUE(record.IsEdited({"HELD", {}, {}, "typed"})) << "the rest is still to be saved";
    }
    Change(6, "HELD", {{}, {}, {}, "the rest may change"});
    EXPECT_EQ(Patterns(6)[0].Description, "the rest may change");

    Save(7, "DOOR");
    DoorsRow door;
    door.SystemNumber = program.session.MapFilingNumber;
    door.CutsLabel = QString(8, ' ');
    Recordset<DoorsRow>::Add(program.session.Keys(), door);
    door.CutsLabel = "DOOR";
    Recordset<DoorsRow>::Add(program.session.Keys(), door);
    program.boxes.Expect("Are you sure", BoxAnswer::Yes);
    program.boxes.Expect("There are Doors Assigned to DOOR - Delete all Assignments before");
    EXPECT_EQ(Save(7, "GATE").keyID, "DOOR");
    Save(8, "FREE"); // A door without a key hinders nobody.
    EXPECT_EQ(AllKeys().size(), 3U);
}

TEST_F(KeyRecordTest, WithoutTheRightNothingIsWritten) {
    program.session.SessionPermissions.AlterKeyInformation = false;
    Save(6, "NO");
    EXPECT_TRUE(AllKeys().empty());
    EXPECT_EQ(Patterns(6)[0].Label, QString(19, ' '));
}

TEST_F(KeyRecordTest, LastRecordIsOfferedToKeysWithoutKeyID) {
    Save(6, "A1", {{}, "KW", "STORES", "Cellar"});
    const KeyRecordText offered = record.Open(7, true);
    EXPECT_EQ(offered.keyID, "");
    EXPECT_EQ(offered.keyway + offered.department + offered.description, "KWSTORESCellar");
    EXPECT_FALSE(record.IsEdited(offered)) << "an offer is no edit";
    KeyRecordText screen = offered;
    EXPECT_TRUE(record.SaveKeyRecord(screen));
    EXPECT_EQ(AllKeys().size(), 1U);
    screen.keyID = "A2"; // The user takes it.
    EXPECT_TRUE(record.SaveKeyRecord(screen));
    EXPECT_EQ(Patterns(7)[0].Department, "STORES");
    EXPECT_EQ(Patterns(7)[0].Description, "Cellar");
    EXPECT_EQ(record.Open(6, true).keyID, "A1") << "it has a record of its own";
    record.StopRepeating();
    EXPECT_EQ(record.Open(8, true).keyway, "");
}

TEST_F(KeyRecordTest, WhatTheUserHasNotChangedStaysToTheLetter) {
    Save(6, "A1", {{}, "KW", "STORES", "Cellar"});
    const QString longText(400, u'd');
    program.session.Keys().Execute(
        "UPDATE Patterns SET Description = :d, Department = 'Stores of the north wing and beyond', "
        "KeyWay = 'kw' WHERE Label = 'A1          '",
        {Value(longText + "  \r\n")});
    page.LoadPageView();
    const PatternsRow before = Patterns(6)[0];
    KeyRecordText screen = record.Open(6, true);
    EXPECT_EQ(screen.description.size(), 250) << "cut to its box";
    EXPECT_EQ(screen.department.size(), 34);
    // What the boxes make of it: capitals, and the line ends of a box.
    record.ShownAs(screen);
    screen.keyway = "KW";
    screen.description += "\n\n";
    EXPECT_FALSE(record.IsEdited(screen));
    screen.keyID = "B1";
    program.boxes.Expect("Are you sure", BoxAnswer::Yes);
    EXPECT_TRUE(record.SaveKeyRecord(screen));
    const PatternsRow after = Patterns(6)[0];
    EXPECT_EQ(after.Label, "B1          ");
    EXPECT_EQ(after.Description, before.Description);
    EXPECT_EQ(after.Department, before.Department);
    EXPECT_EQ(after.KeyWay, "kw");
}

TEST_F(KeyRecordTest, LineEndsAtTheEndOfADescriptionAreNotStored) {
    Save(6, "A1", {{}, {}, {}, "Front door\nof the hall \n\r\n"});
    EXPECT_EQ(Patterns(6)[0].Description, "Front door\nof the hall");
}

TEST_F(KeyRecordTest, AFailureStoresNothing) {
    Save(6, "OLD");
    program.session.Keys().Execute("CREATE TRIGGER \"Full\" BEFORE INSERT ON \"Department\" BEGIN "
                                   "SELECT RAISE(ABORT, 'no room'); END");
    program.boxes.Expect("Are you sure", BoxAnswer::Yes);
    EXPECT_THROW(Save(6, "NEW", {{}, {}, "STORES", {}}), DatabaseError);
    EXPECT_EQ(AllKeys()[0].KeyID, "OLD         ");
    EXPECT_EQ(Patterns(6)[0].Label, "OLD         ");
    EXPECT_TRUE(record.IsEdited({"NEW", {}, "STORES", {}})) << "the text is still to be saved";
}

} // namespace
} // namespace quorrel::test
