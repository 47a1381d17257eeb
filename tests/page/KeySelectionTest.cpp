#include "page/KeySelection.h"
#include "engine/CellStates.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

/// A page on which the key of each cell n is called Kn and described as Dn.
class KeySelectionTest : public testing::Test {
protected:
    explicit KeySelectionTest(const std::string& master = "3951728", int safetyFactor = 9) {
        NewSystem system = StandardSystem("A", master);
        system.definition.safetyFactor = safetyFactor;
        program.CreateAndOpen(system);
        program.session.Keys().Execute("UPDATE Patterns SET Label = 'K' || Position || '     ', "
                                       "Description = 'D' || Position || '   '");
        page.LoadPageView();
    }

    /// Identifiers and descriptions of the block, area, line and column line.
    QString PageLevels(int cell) const {
        const KeySelection selection = SelectKey(page, cell, true);
        QStringList parts;
        for (const Level level : {Level::Block, Level::Area, Level::Line, Level::Column}) {
            const LevelLine& line = selection.levels[static_cast<std::size_t>(level)];
            parts += line.id + u'/' + line.description;
        }
        return parts.join(u' ');
    }

    TestProgram program;
    PageView page{program.session};
};

TEST_F(KeySelectionTest, PageLevelsOfEachKind) {
    EXPECT_EQ(PageLevels(27), "K29/D29 K89/D89 K87/D87 K101/D101");
    EXPECT_EQ(PageLevels(63), "K64/D64 K84/D84 K83/D83 K103/D103");
    EXPECT_EQ(PageLevels(44), "K44/D44 K84/D84 N/A/N/A K102/D102");
    EXPECT_EQ(PageLevels(97), "N/A/N/A K99/D99 K97/D97 N/A/N/A");
    EXPECT_EQ(PageLevels(89), "N/A/N/A K89/D89 N/A/N/A N/A/N/A");
    EXPECT_EQ(PageLevels(100), "N/A/N/A N/A/N/A N/A/N/A K100/D100");
    const QString all = "All for this Page/N/A";
    for (int cell = 104; cell <= 108; ++cell)
        EXPECT_EQ(PageLevels(cell), QStringList({all, all, all, all}).join(u' '));
}

TEST_F(KeySelectionTest, Cell64NamesTheNextAreaButDescribesItsOwn) {
    EXPECT_EQ(PageLevels(64), "K64/D64 K89/D84 N/A/N/A K103/D103");
    for (const int regular : {4, 24, 44, 69})
        EXPECT_FALSE(PageLevels(regular).contains("K89/D84")) << regular;
    EXPECT_EQ(SelectKey(page, 64, true).states[84], 13);
    EXPECT_EQ(SelectKey(page, 64, true).states[89], 10);
}

TEST_F(KeySelectionTest, FixedLevelsAndHighlight) {
    const KeySelection change = SelectKey(page, 0, true);
    QString ids;
    for (const Level level : {Level::Page, Level::Base, Level::Group, Level::System, Level::Grand})
        ids += change.levels[static_cast<std::size_t>(level)].id + u' ';
    EXPECT_EQ(ids, "K104 K105 K106 K107 K108 ");
    EXPECT_EQ(change.highlight, std::nullopt);
    for (const auto& [cell, level] :
         {std::pair{64, Level::Block}, std::pair{80, Level::Line}, std::pair{84, Level::Area},
          std::pair{103, Level::Column}, std::pair{104, Level::Page}, std::pair{105, Level::Base},
          std::pair{106, Level::Group}, std::pair{107, Level::System},
          std::pair{108, Level::Grand}})
        EXPECT_EQ(SelectKey(page, cell, true).highlight, level) << cell;
}

TEST_F(KeySelectionTest, TheRecordOfTheKey) {
    program.session.Keys().Execute("INSERT INTO AllKeys (SystemNumber, PageNumber, Position, "
                                   "CustomCuts) VALUES (1, 1, 5, '15/03/2026')");
    page.LoadPageView();
    const KeySelection selection = SelectKey(page, 5, true);
    EXPECT_EQ(selection.dateText, "Date Created: 15/03/2026");
    EXPECT_EQ(selection.serial, QString::number(page.Cell(5).serial));
    EXPECT_EQ(selection.cuts.toStdString(), page.Cell(5).tag);
}

TEST_F(KeySelectionTest, NoCutsAnywhereWithoutTheRight) {
    program.session.SessionPermissions.ReadPrintPinning = false;
    page.LoadPageView();
    for (int cell = 0; cell < kAllCells; ++cell) {
        const KeySelection selection = SelectKey(page, cell, false);
        EXPECT_EQ(selection.cuts, "********");
        QStringList shown = {page.Cell(cell).toolTip, selection.serial, selection.dateText};
        for (const LevelLine& line : selection.levels)
            shown << line.id << line.description;
        for (int state : {0, 1, 12, 34})
            shown << DescribeCell(page, cell, state);
        const QString cuts = QString::fromStdString(page.Cell(cell).tag).left(7);
        EXPECT_FALSE(shown.join(u'\n').contains(cuts)) << cell;
    }
}

TEST_F(KeySelectionTest, CellsInWords) {
    EXPECT_EQ(DescribeCell(page, 5, 12), "Change Key 5, Key ID K5, under the selected master");
    EXPECT_EQ(DescribeCell(page, 84, 33),
              "Area Master 84, Key ID K84, master above the selected key, not recommended");
    EXPECT_EQ(PlaceInWords(page, 84), "Area Master, page 1");
    EXPECT_EQ(PlaceInWords(page, 107), "System Master") << "lies on no page";
    PageView blank(program.session);
    EXPECT_EQ(DescribeCell(blank, 108, 15), "Grand Master 108, no key");
    program.session.System.PinCount = 6;
    EXPECT_EQ(KindInWords(page, 107), "Grand Master") << "the level panel calls it so";
    program.session.System.PinCount = 4;
    EXPECT_EQ(KindInWords(page, 105), "Base Master");
}

/// All neighbours in the master key lie too far apart.
class MarkedSelectionTest : public KeySelectionTest {
protected:
    MarkedSelectionTest() : KeySelectionTest("390906", 5) {}
};

TEST_F(MarkedSelectionTest, StatesAndWarningsOfNotRecommendedKeys) {
    int marked = 0;
    for (int cell = 0; cell < 104; ++cell) {
        const bool mark = page.Cell(cell).tag[6] == '*';
        marked += mark ? 1 : 0;
        const KeySelection selection = SelectKey(page, cell, true);
        EXPECT_EQ(selection.states[static_cast<std::size_t>(cell)], mark ? 31 : 11) << cell;
        EXPECT_FALSE(selection.notRecommended) << "a labelled key";
    }
    EXPECT_GT(marked, 10);
    EXPECT_LT(marked, 104);
    EXPECT_EQ(page.Cell(107).tag, "390906 ");
    EXPECT_EQ(SelectKey(page, 0, true).states[107], 13 + 5 * 20);
    EXPECT_EQ(SelectKey(page, 0, true).states[108], 15);

    program.session.Keys().Execute("UPDATE Patterns SET Label = '                   '");
    page.LoadPageView();
    for (int cell = 0; cell < 104; ++cell)
        EXPECT_EQ(SelectKey(page, cell, true).notRecommended, page.Cell(cell).tag[6] == '*');
}

} // namespace
} // namespace quorrel::test
