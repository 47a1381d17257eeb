#include "store/Conflict.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

DoorsRow Door(const QString& label, const QString& description) {
    DoorsRow door;
    door.SystemNumber = 1;
    door.DoorLabel = label;
    door.DoorDescription = description;
    return door;
}

QStringList Labels(Database& keys) {
    QStringList labels;
    for (const DoorsRow& door : Recordset<DoorsRow>(keys).Rows())
        labels.append(door.DoorLabel);
    return labels;
}

void AddDoor(Database& keys, const QString& label) {
    DoorsRow door = Door(label, {});
    Recordset<DoorsRow>::Add(keys, door);
}

TEST(Transactions, OneWithinAnotherIsStoredOrUndoneWithIt) {
    TestProgram program;
    Database& keys = program.session.Keys();
    {
        Transaction outer(keys);
        AddDoor(keys, "outer");
        {
            Transaction kept(keys);
            AddDoor(keys, "kept");
            kept.Commit();
        }
        {
            const Transaction undone(keys);
            AddDoor(keys, "undone");
        }
        outer.Commit();
    }
    EXPECT_EQ(Labels(keys), (QStringList{"outer", "kept"}));
    {
        const Transaction outer(keys);
        Transaction inner(keys);
        AddDoor(keys, "lost");
        inner.Commit();
    }
    EXPECT_EQ(Labels(keys), (QStringList{"outer", "kept"}));
    Transaction outer(keys);
    const Transaction inner(keys);
    EXPECT_THROW(outer.Commit(), ProgrammingError);
}

TEST(Conflicts, ChangesOfBothAreMergedUnlessTheyMeet) {
    const DoorsRow shown = Door("A1", "Main");
    DoorsRow mine = shown;
    mine.DoorDescription = "Main entrance";
    DoorsRow theirs = shown;
    theirs.DoorLocation = "Ground floor";
    theirs.Sing2 = 1;
    const DoorsRow merged = MergedChanges(shown, mine, theirs, "Door A1");
    EXPECT_EQ(merged.DoorDescription, "Main entrance");
    EXPECT_EQ(merged.DoorLocation, "Ground floor");
    EXPECT_EQ(merged.Sing2, 1);
    theirs.DoorDescription = "Main entrance"; // both to the same
    EXPECT_EQ(MergedChanges(shown, mine, theirs, "Door A1").DoorDescription, "Main entrance");
    theirs.DoorDescription = "Side entrance";
    try {
        MergedChanges(shown, mine, theirs, "Door A1");
        ADD_FAILURE() << "Another workstation's change was written over";
    } catch (const ChangedElsewhere& conflict) {
        const QString text = QString::fromUtf8(conflict.what());
        EXPECT_TRUE(text.startsWith("Door A1 has been changed")) << conflict.what();
        EXPECT_TRUE(text.contains("    Main entrance")) << "what was typed is not lost";
    }
    mine.Text1 = "Rim lock";
    const auto merge = MergeOf(shown, mine, theirs);
    EXPECT_EQ(merge.row.DoorDescription + merge.row.Text1, "Side entranceRim lock");
    EXPECT_EQ(merge.unsaved, QStringList{"Main entrance"});
}

TEST(Conflicts, ARowMustBeStoredAsItWasShown) {
    TestProgram program;
    Database& keys = program.session.Keys();
    DoorsRow door = Door("A1", "Main");
    Recordset<DoorsRow>::Add(keys, door);
    RequireAsShown(keys, door, "Door A1");
    KeyedDoorRow part = Recordset<KeyedDoorRow>(keys).Rows().at(0);
    keys.Execute("UPDATE Doors SET DoorLocation = 'elsewhere'");
    EXPECT_THROW(RequireAsShown(keys, door, "Door A1"), ChangedElsewhere);
    RequireAsShown(keys, part, "Door A1"); // its columns are as they were
    keys.Execute("DELETE FROM Doors");
    EXPECT_THROW(RequireAsShown(keys, part, "Door A1"), ChangedElsewhere);
}

TEST(Conflicts, NothingIsWrittenForASystemThatIsGone) {
    TestProgram program;
    program.CreateAndOpen(StandardSystem("Hospital", "2715"));
    Database& keys = program.session.Keys();
    {
        SystemTransaction transaction(program.session);
        AddDoor(keys, "A1");
        transaction.Commit();
    }
    // Its number may belong to another system by now.
    keys.Execute("UPDATE KeySystem SET SystemName = 'School'");
    EXPECT_THROW(SystemTransaction transaction(program.session), SystemGone);
    keys.Execute("DELETE FROM KeySystem");
    EXPECT_THROW(SystemTransaction transaction(program.session), SystemGone);
    Transaction free(keys); // The failed ones hold no lock.
    free.Commit();
}

TEST(Queries, NameColumnsByTheMembersThatHoldThem) {
    EXPECT_STREQ(ColumnName(&DoorsRow::DoorLabel), "DoorLabel");
    EXPECT_STREQ(ColumnName(&DoorsRow::key), "RowKey");
    EXPECT_STREQ(TableName<KeyedDoorRow>(), "Doors");
}

} // namespace
} // namespace quorrel::test
