#include "page/PageView.h"
#include "engine/CellStates.h"
#include "page/CellLayout.h"
#include "page/KeyRecord.h"
#include "store/DoorTables.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

#include "platform/Recordset.h"
#include "platform/Text.h"

namespace quorrel::test {
namespace {

class PageViewTest : public testing::Test {
protected:
    void Open(const NewSystem& system) {
        program.CreateAndOpen(system);
        page.ClearPageCells();
        Turn(1);
    }

    void Turn(int number) {
        program.session.CurrentPage = number;
        page.LoadPageView();
    }

    void Change(const std::string& columns, int number, int position) {
        keys().Execute("UPDATE Patterns SET " + columns +
                           " WHERE PageNumber = :p AND Position = :c",
                       {Value(qint64{number}), Value(qint64{position})});
    }

    Database& keys() { return program.session.Keys(); }
    const PageCell& Cell(int index) { return page.Cell(index); }

    TestProgram program;
    PageView page{program.session};
};

TEST_F(PageViewTest, APageShowsItsRowsAndItsLevels) {
    Open(StandardSystem("Six", "395172"));
    EXPECT_EQ(page.System().MaxPage, 64);
    EXPECT_EQ(page.System().MasterKeyCuts, "395172");
    EXPECT_EQ(page.System().PinCount, 6);
    // Level rows are stored with the page that first brought them, yet show on every page.
    for (const int number : {1, 2, 17, 64}) {
        Turn(number);
        const auto rows =
            Recordset<PatternsRow>(keys(), Query<PatternsRow>()
                                               .Where(&PatternsRow::PageNumber, number)
                                               .WhereBelow(&PatternsRow::Position, 104))
                .Rows();
        ASSERT_EQ(rows.size(), 104U);
        for (const PatternsRow& row : rows) {
            EXPECT_EQ(Cell(row.Position).tag, Unscrambled(row.Cuts).toStdString());
            EXPECT_EQ(Cell(row.Position).serial, row.Serial);
            EXPECT_EQ(Cell(row.Position).isMaster, row.Master);
        }
        const std::string first = Cell(0).tag;
        EXPECT_EQ(Cell(104).tag, first.substr(0, 3) + "172 ");
        EXPECT_EQ(Cell(105).tag, first.substr(0, 2) + "5172 ");
        EXPECT_EQ(Cell(106).tag, first.substr(0, 1) + "95172 ");
        EXPECT_EQ(Cell(107).tag, "395172 ");
        EXPECT_TRUE(Cell(108).IsBlank());
        EXPECT_TRUE(Cell(107).isMaster);
    }
    Turn(0);
    EXPECT_EQ(program.session.CurrentPage, 1);
    EXPECT_TRUE(page.LoadingPage);
}

TEST_F(PageViewTest, FourPinsShowAColumnMasterAsPageMaster) {
    Open(StandardSystem("Four", "2715"));
    EXPECT_EQ(Cell(104).tag, Cell(100).tag);
    EXPECT_EQ(Cell(104).serial, Cell(100).serial);
    EXPECT_EQ(Cell(105).tag, "2715 ");
    for (const int blank : {106, 107, 108})
        EXPECT_TRUE(Cell(blank).IsBlank());
}

TEST_F(PageViewTest, CutsStandInTheToolTipOnlyForThoseWhoMayReadThem) {
    Open(StandardSystem("Six", "395172"));
    Change("Label = 'A1      ', Description = 'Porter'", 1, 5);
    for (const bool may : {true, false}) {
        program.session.SessionPermissions.ReadPrintPinning = may;
        Turn(1);
        const QString cuts = QString::fromStdString(Cell(5).tag);
        EXPECT_EQ(Cell(5).toolTip, may ? "A1 " + cuts + " Porter" : QString("A1 Porter"));
        for (int cell = 0; cell < kAllCells - 1; ++cell)
            EXPECT_EQ(Cell(cell).toolTip.contains(QString::fromStdString(Cell(cell).tag)), may)
                << cell;
    }
}

TEST_F(PageViewTest, CellsTakeTheRecordOfTheirRow) {
    Open(StandardSystem("Six", "395172"));
    EXPECT_FALSE(Cell(7).HasLabel());
    keys().Execute("UPDATE Patterns SET Label = 'B7   ', Description = :d, Department = 'Sales', "
                   "KeyWay = 'C' WHERE PageNumber = 1 AND Position = 7",
                   {Value(QString(300, u'd') + "  ")});
    Change("Label = ' led by a blank', Description = NULL, KeyWay = NULL", 1, 8);
    Change("Label = 'A label of more than twenty'", 1, 9);
    Change("Label = 'SYS'", 1, 107);
    AllKeysRow named;
    named.SystemNumber = program.session.ActiveSystemNumber;
    named.PageNumber = 1;
    named.Position = 7;
    named.CustomCuts = "15/03/2026";
    Recordset<AllKeysRow>::Add(keys(), named);
    named.Position = 190; // beyond the cells, as damage could leave it
    Recordset<AllKeysRow>::Add(keys(), named);
    Turn(1);
    EXPECT_TRUE(Cell(7).HasLabel());
    EXPECT_EQ(RightTrimmed(Cell(7).keyLabel), "B7");
    EXPECT_EQ(Cell(7).description, QString(250, u'd'));
    EXPECT_EQ(RightTrimmed(Cell(7).keyway), "C");
    EXPECT_EQ(Cell(7).department, "Sales");
    EXPECT_EQ(Cell(7).date, "15/03/2026");
    EXPECT_FALSE(Cell(8).HasLabel());
    EXPECT_EQ(Cell(9).keyLabel, "A label of more than");
    EXPECT_EQ(Cell(8).date, "");
    Turn(30);
    EXPECT_EQ(RightTrimmed(Cell(107).keyLabel), "SYS");
    EXPECT_FALSE(Cell(7).HasLabel());
    EXPECT_EQ(Cell(7).date, "");
}

TEST_F(PageViewTest, ACellWithoutRowKeepsTheFormerPages) {
    NewSystem system = StandardSystem("Gaps", "395172");
    system.definition.increment = 4; // two or three cuts a position: many cells have no key
    Open(system);
    EXPECT_TRUE(Cell(3).IsBlank());
    const std::string former = Cell(0).tag;
    ASSERT_FALSE(Cell(0).IsBlank());
    keys().Execute("DELETE FROM Patterns WHERE PageNumber = 2 AND Position = 0");
    Turn(2);
    EXPECT_EQ(Cell(0).tag, former);
    EXPECT_NE(Cell(80).tag, former);
    page.ClearPageCells();
    EXPECT_TRUE(Cell(0).IsBlank());
}

TEST_F(PageViewTest, TheDateOfAKeyShowsWhereverTheKeyDoes) {
    Open(StandardSystem("Six", "395172"));
    KeyRecord record(program.session, page);
    const auto name = [&](int cell) {
        record.Open(cell, true);
        KeyRecordText screen{QStringLiteral("K%1").arg(cell), {}, {}, {}};
        EXPECT_TRUE(record.SaveKeyRecord(screen));
    };
    name(106);
    name(107);
    for (const int number : {1, 2, 16, 64}) {
        Turn(number);
        EXPECT_EQ(Cell(107).date, "2026-03-15") << number;
        const bool sameGroup = RightTrimmed(Cell(106).keyLabel) == "K106";
        EXPECT_EQ(sameGroup, number <= 16);
        EXPECT_EQ(Cell(106).date, sameGroup ? "2026-03-15" : "") << number;
    }
    Open(StandardSystem("Four", "2715"));
    name(104);
    Turn(1);
    EXPECT_EQ(Cell(100).date, "2026-03-15") << "the page master is a column master too";
}

TEST_F(PageViewTest, ARowThatCannotBeReadBlanksItsCellAlone) {
    Open(StandardSystem("Six", "395172"));
    for (const char* broken : {"NULL", "'x'", "''", "'\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac'"}) {
        Change(std::string("Cuts = ") + broken, 2, 0);
        Change(std::string("Cuts = ") + broken, 2, 7);
        Change("Position = -1", 2, 9);
        Turn(2);
        for (const int cell : {0, 7}) {
            EXPECT_TRUE(Cell(cell).isUnreadable && Cell(cell).IsBlank()) << broken;
            EXPECT_EQ(Cell(cell).toolTip, "This key cannot be read.");
        }
        EXPECT_EQ(page.CountUnreadable(), 2);
        EXPECT_EQ(Cell(8).tag.substr(0, 3), "113");
        EXPECT_EQ(Cell(104).tag, "113172 ") << "the levels are known from the other keys";
    }
    Turn(3);
    EXPECT_EQ(page.CountUnreadable(), 0);
}

TEST_F(PageViewTest, APageThatCannotBeReadLeavesTheFormerWhole) {
    Open(StandardSystem("Six", "395172"));
    const std::string first = Cell(0).tag;
    const std::string level = Cell(104).tag;
    keys().Execute("ALTER TABLE AllKeys RENAME TO Elsewhere"); // the last that is read
    EXPECT_THROW(Turn(2), DatabaseError);
    EXPECT_EQ(page.LoadedPage(), 1);
    EXPECT_EQ(Cell(0).tag, first);
    EXPECT_EQ(Cell(104).tag, level);
}

TEST_F(PageViewTest, TheSpecialRowTellsTheTypeAndStandsInNoCell) {
    for (const bool angled : {true, false}) {
        NewSystem system = StandardSystem(angled ? "Angled" : "IC", "2715");
        system.type = angled ? SystemType::AngledCut : SystemType::ICCore23;
        system.special = "4321";
        Open(system);
        EXPECT_EQ(page.System().SystemIsAngled, angled);
        EXPECT_EQ(page.System().SystemIsIC, !angled);
        EXPECT_EQ(page.System().SpecialCuts, "4321");
        EXPECT_EQ(page.System().MaxPage, 4);
        // Even where it carries a page number, or the cuts of a level.
        keys().Execute("UPDATE Patterns SET PageNumber = 1, Cuts = :c WHERE Position >= 190",
                       {Value(Scrambled("2715 "))});
        Turn(1);
        const double last = Recordset<PatternsRow>(keys()).Rows().back().Serial;
        for (int cell = 0; cell < kAllCells; ++cell)
            EXPECT_NE(Cell(cell).serial, last) << cell;
    }
    Open(StandardSystem("Standard", "2715"));
    EXPECT_FALSE(page.System().SystemIsAngled || page.System().SystemIsIC);
    EXPECT_EQ(page.System().SpecialCuts, "");
}

TEST_F(PageViewTest, AMissingSystemLeavesABlankPage) {
    Open(StandardSystem("Gone", "2715"));
    DeleteKeySystem(program.session, ListKeySystems(program.session).front());
    page.ClearPageCells();
    program.session.System = ReadOpenSystem(keys(), program.session.ActiveSystemNumber);
    Turn(1);
    EXPECT_EQ(page.System().MaxPage, 0);
    EXPECT_EQ(page.System().name, "");
    for (int cell = 0; cell < kAllCells; ++cell)
        EXPECT_TRUE(Cell(cell).IsBlank());
}

TEST_F(PageViewTest, DepartmentsAreThoseOfTheSystemThatAreNotHidden) {
    Open(StandardSystem("A", "2715"));
    const int mine = program.session.ActiveSystemNumber;
    for (const auto& [system, name] : {std::pair{mine, "SALES"}, std::pair{mine + 1, "OTHER"},
                                       std::pair{mine, "  HIDDEN"}, std::pair{mine, "ADMIN"}}) {
        DepartmentRow row;
        row.SystemNumber = system;
        row.Department = QString::fromLatin1(name);
        Recordset<DepartmentRow>::Add(keys(), row);
    }
    EXPECT_EQ(page.ListDepartments(), (QStringList{"SALES", "ADMIN"}));
}

TEST(CellLayout, PlacesInTwips) {
    const auto place = [](PageLayout layout, int cell) {
        return CellPlace(layout, cell).topLeft();
    };
    constexpr auto compact = PageLayout::Compact;
    constexpr auto large = PageLayout::Large;
    EXPECT_EQ(PageFrameSize(compact), QSizeF(2175, 3255));
    EXPECT_EQ(PageFrameSize(large), QSizeF(4350, 6510));
    EXPECT_EQ(CellPlace(compact, 50).size(), QSizeF(220, 100));
    EXPECT_EQ(CellPlace(large, 50).size(), QSizeF(450, 210));
    EXPECT_EQ(place(compact, 0), QPointF(358, 780));
    EXPECT_EQ(place(compact, 3), QPointF(358, 1080));
    EXPECT_EQ(place(compact, 4), QPointF(358, 1200)); // 680 + 4 x 100 + 120
    EXPECT_EQ(place(compact, 5), QPointF(358, 1380)); // the step of the fifth row is 200
    EXPECT_EQ(place(compact, 79), QPointF(1438, 3000));
    EXPECT_EQ(place(compact, 80), QPointF(1798, 780));
    EXPECT_EQ(place(compact, 94), QPointF(60, 2040));
    EXPECT_EQ(place(compact, 102), QPointF(1080, 650));
    EXPECT_EQ(place(compact, 108), QPointF(100, 220));
    EXPECT_EQ(place(large, 0), QPointF(586, 1480));
    EXPECT_EQ(place(large, 24), QPointF(1306, 2340));
    EXPECT_EQ(place(large, 25), QPointF(1306, 2680));
    EXPECT_EQ(place(large, 99), QPointF(60, 5200));
    EXPECT_EQ(place(large, 103), QPointF(2750, 1100));
    EXPECT_EQ(place(large, 105), QPointF(100, 880));
}

} // namespace
} // namespace quorrel::test
