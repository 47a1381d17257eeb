#include "page/KeyLists.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

#include <map>

namespace quorrel::test {
namespace {

template <class Line>
QStringList TextsOf(const std::vector<Line>& lines) {
    QStringList texts;
    for (const Line& line : lines)
        texts.append(line.text);
    return texts;
}

/// A system of four pages whose master key has the cuts 2715, with the tables of its keys, doors
/// and holders to be filled.
class KeyListsTest : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Other", "2715"));
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        page.LoadPageView();
    }

    /// Names a key of a page, or any row by its position, as saving its record does.
    void Name(int pageNumber, int position, const QString& label, const QString& department = {},
              const QString& description = {}) {
        auto row = Recordset<PatternsRow>(program.session.Keys(),
                                          OfSystem<PatternsRow>(program.session)
                                              .Where(&PatternsRow::PageNumber, pageNumber)
                                              .Where(&PatternsRow::Position, position))
                       .First()
                       .value();
        row.Label = label.leftJustified(12);
        row.Department = department;
        row.Description = description;
        Recordset<PatternsRow>::Update(program.session.Keys(), row);
        AllKeysRow named;
        named.SystemNumber = row.SystemNumber;
        named.KeyID = row.Label;
        named.Cuts = row.Cuts;
        Recordset<AllKeysRow>::Add(program.session.Keys(), named);
    }

    void AddDoor(const QString& label, const QString& cutsLabel, const QString& description = {}) {
        DoorsRow door;
        door.SystemNumber = program.session.MapFilingNumber;
        door.DoorLabel = label;
        door.CutsLabel = cutsLabel;
        door.DoorDescription = description;
        Recordset<DoorsRow>::Add(program.session.Keys(), door);
    }

    void AddHolder(const QString& id, const QString& last, const QString& first) {
        KeyUsersRow holder;
        holder.SystemNumber = program.session.ActiveSystemNumber;
        holder.UserIDNumber = id;
        holder.Lastname = last;
        holder.Firstname = first;
        Recordset<KeyUsersRow>::Add(program.session.Keys(), holder);
    }

    void HandOut(const QString& keyID, const QString& unit, const QString& userID) {
        UsertoUnitRow row;
        row.SystemNumber = program.session.ActiveSystemNumber;
        row.KeyID = keyID.leftJustified(12);
        row.UnitID = unit;
        row.UserID = userID;
        Recordset<UsertoUnitRow>::Add(program.session.Keys(), row);
    }

    QStringList Keys(const QString& filter = "") {
        return TextsOf(FillKeyList(program.session, filter));
    }

    /// The labels of the listed doors, "None" where the list says so.
    QStringList Doors(int cell, const QString& keyID, const QString& filter = "") {
        QStringList labels;
        for (const SubjectLine& line : FillDoorList(program.session, page, cell, keyID, filter))
            labels.append(line.subject.isEmpty() ? line.text : line.subject);
        return labels;
    }

    QStringList Users(const QString& keyID, const QString& filter = "") {
        return TextsOf(FillUserList(program.session, keyID, filter));
    }

    TestProgram program;
    PageView page{program.session};
};

const QStringList kNone = {"None"};

TEST_F(KeyListsTest, KeysComeInSerialOrderInColumns) {
    Name(2, 6, "B2", "STORES", "Second page");
    Name(1, 6, "FRONT-A", "CARETAKERS", "Front\r\ndoor");
    Name(1, 105, "GM", " ", "Grand master");
    const auto lines = FillKeyList(program.session, {});
    EXPECT_EQ(TextsOf(lines),
              QStringList({"FRONT-A CARETA  Front  door", "GM              Grand master",
                           "B2      STORES  Second page"}));
    EXPECT_EQ(lines[2].page, 2);
    EXPECT_EQ(lines[2].cell, 6);
    program.session.ActiveSystemNumber = 1;
    EXPECT_TRUE(Keys().empty()) << "the other system's keys have no Key ID";
}

TEST_F(KeyListsTest, OnlyKeysWithAKeyIDAreListed) {
    NewSystem angled = StandardSystem("Angled", "2715");
    angled.type = SystemType::AngledCut;
    angled.special = "1234";
    program.CreateAndOpen(angled);
    Name(0, kAnglePosition, "ANGLES-LONG");
    Name(1, 0, "  A");
    Name(1, 1, " B");
    Name(1, 2, "C");
    EXPECT_EQ(Keys(), QStringList({" B                  ", "C                   "}))
        << "the column is as wide as the longest label of any row";
}

TEST_F(KeyListsTest, FilterIsThePlainBeginningOfTheKeyID) {
    const QString accented = QString::fromUtf8("\u00c9COLE");
    const QString rightToLeft = QString::fromUtf8("\u05de\u05e4\u05ea\u05d7");
    const QStringList labels = {"A1", "A10", "50%", "O'NEILL", accented, rightToLeft};
    for (int i = 0; i < labels.size(); ++i)
        Name(1, i / 2 * 5 + i % 2, labels[i]);
    const std::map<QString, QStringList> found = {{"", labels},
                                                  {"a1", {"A1", "A10"}},
                                                  {"A1 ", {"A1"}},
                                                  {"50%", {"50%"}},
                                                  {"%", {}},
                                                  {"_1", {}},
                                                  {"o'", {"O'NEILL"}},
                                                  {QString::fromUtf8("\u00e9c"), {accented}},
                                                  {rightToLeft.left(2), {rightToLeft}},
                                                  {QString(10000, 'A'), {}}};
    for (const auto& [filter, expected] : found) {
        QStringList listed;
        for (const QString& text : Keys(filter))
            listed.append(text.left(12).trimmed().section(' ', 0, 0));
        EXPECT_EQ(listed, expected) << filter.left(20).toStdString();
    }
}

TEST_F(KeyListsTest, AChangeKeyHasTheDoorsOfItsVeryKeyID) {
    AddDoor("Gate 1", "A1          ", "North side\nby the wall");
    AddDoor("gate 2", "A1");
    AddDoor("Hall", "A1");
    AddDoor("Hall", "A1"); // cannot be told from the one before
    AddDoor("Other key", "A1 B");
    AddDoor("Longer", "A10         ");
    AddDoor("  hidden", "A1");
    AddDoor("Free", QString(8, ' '));
    AddDoor("Full", "ABCDEFGHIJKL");
    AddDoor("Beyond", "ABCDEFGHIJKLM");
    EXPECT_EQ(Doors(6, "A1"), QStringList({"Gate 1", "gate 2", "Hall"}));
    EXPECT_EQ(FillDoorList(program.session, page, 6, "A1", {})[0].text,
              "Gate 1     North side  by the wall");
    EXPECT_EQ(Doors(6, "A1  ", "GATE"), QStringList({"Gate 1", "gate 2"}));
    EXPECT_EQ(Doors(6, "ABCDEFGHIJKL"), QStringList("Full"));
    for (const char* filter : {"x", "%", "Gate 1x", "'"})
        EXPECT_EQ(Doors(6, "A1", filter), kNone) << filter;
    for (const char* keyID : {"", "  ", "B", "a1"})
        EXPECT_EQ(Doors(6, keyID), kNone) << keyID;
}

TEST_F(KeyListsTest, AMasterHasTheDoorsOfAllKeysUnderItKeyByKey) {
    Name(1, 9, "BLOCK"); // over the cells 5 to 8
    Name(1, 6, "A10");   // named before A1, so its doors come first
    Name(1, 5, "A1");
    Name(1, 25, "ELSEWHERE"); // another column
    AddDoor("Of A1", "A1          ");
    AddDoor("Of A10", "A10         ");
    AddDoor("Of A12", "A12         "); // which is no key under the block
    AddDoor("Of the block", "BLOCK");
    AddDoor("Elsewhere", "ELSEWHERE   ");
    AddDoor("Of A10 too", "A10");
    EXPECT_EQ(Doors(9, "BLOCK"), QStringList({"Of the block", "Of A10", "Of A10 too", "Of A1"}))
        << "A1 is not A10, however it is padded";
    EXPECT_EQ(Doors(9, "BLOCK", "of a1"), QStringList({"Of A10", "Of A10 too", "Of A1"}));
    EXPECT_EQ(Doors(9, "BLOCK", "no"), kNone);
    EXPECT_EQ(Doors(9, ""), kNone);
    EXPECT_EQ(Doors(5, "A1"), QStringList("Of A1"));
    EXPECT_EQ(Doors(105, "GM").size(), 5) << "the theoretical master has all that are a key's";
    // A named key whose cuts cannot be read takes nothing from the others.
    program.session.Keys().Execute("UPDATE AllKeys SET Cuts = 'x' WHERE KeyID LIKE 'A10%'");
    EXPECT_EQ(Doors(9, "BLOCK"), QStringList({"Of the block", "Of A1"}));
}

TEST_F(KeyListsTest, DamagedRowsAreLeftOutAndLongTextsCut) {
    Name(1, 5, "A1", "STORES", QString(1'000'000, 'd'));
    Name(1, 6, "A2");
    Name(1, 7, QString(1'000'000, 'L'));
    Name(1, 8, "A3");
    program.session.Keys().Execute("UPDATE Patterns SET Position = -1 WHERE Label LIKE 'A2%'");
    const QStringList keys = Keys("A");
    ASSERT_EQ(keys.size(), 2);
    EXPECT_TRUE(keys[0].startsWith("A1                   STORES  ddd"));
    for (const QString& line : Keys())
        EXPECT_LE(line.size(), 1000);
}

TEST_F(KeyListsTest, MastersAreUnderTheMastersAboveThem) {
    // Each is keyed to its own door.
    const std::map<int, QString> named = {
        {6, "CHANGE"}, {9, "BLOCK"}, {86, "LINE"}, {89, "AREA"}, {100, "COLUMN"}};
    for (const auto& [cell, label] : named) {
        Name(1, cell, label);
        AddDoor(label, label);
    }
    EXPECT_EQ(Doors(86, "LINE"), QStringList({"CHANGE", "LINE"}));
    EXPECT_EQ(Doors(89, "AREA"), QStringList({"CHANGE", "BLOCK", "LINE", "AREA"}));
    EXPECT_EQ(Doors(100, "COLUMN"), QStringList({"CHANGE", "BLOCK", "COLUMN"}));
}

TEST_F(KeyListsTest, DoorsAreThoseOfTheSystemThatFilesTheMaps) {
    program.session.MapFilingNumber = 1;
    AddDoor("Filed elsewhere", "A1");
    program.session.MapFilingNumber = program.session.ActiveSystemNumber;
    AddDoor("Its own", "A1");
    program.session.MapFilingNumber = 1;
    EXPECT_EQ(Doors(6, "A1"), QStringList("Filed elsewhere"));
}

TEST_F(KeyListsTest, HoldersOfAKeyComeUnitByUnit) {
    AddHolder("1001", QString::fromUtf8("M\u00fcller"), "Anna");
    AddHolder("1002", "O'Neill", "Sean");
    AddHolder("1002", "Later", "Namesake");
    HandOut("A1", "7", "1002");
    HandOut("A1", "3 - b", "1001");
    HandOut("A1", "8", "1001");
    HandOut("A1", "9", "gone");
    HandOut("A10", "1", "1001");
    HandOut("ABCDEFGHIJKL", "1", "1002");
    const QString anna = QString::fromUtf8("1001   M\u00fcller Anna");
    EXPECT_EQ(Users("A1"), QStringList({"7 - 1002   O'Neill Sean", "3 - b - " + anna, "8 - " + anna,
                                        "9 - gone   "}));
    const auto lines = FillUserList(program.session, "A1", {});
    EXPECT_EQ(lines[1].subject, "1001") << "whatever the unit is called";
    const std::map<QString, QStringList> found = {
        {QString::fromUtf8("M\u00dc"), {"3 - b - " + anna, "8 - " + anna}},
        {"o'neill s", {"7 - 1002   O'Neill Sean"}},
        {"sean", kNone},
        {"%", kNone}};
    for (const auto& [filter, expected] : found)
        EXPECT_EQ(Users("A1", filter), expected) << filter.toStdString();
    EXPECT_EQ(Users("ABCDEFGHIJKLM"), QStringList("1 - 1002   O'Neill Sean"))
        << "Key IDs are compared in twelve characters";
    EXPECT_EQ(Users("A1  rest").size(), 4) << "a Key ID ends at two blanks";
    for (const char* keyID : {"", "  ", "B"})
        EXPECT_EQ(Users(keyID), kNone) << keyID;
}

} // namespace
} // namespace quorrel::test
