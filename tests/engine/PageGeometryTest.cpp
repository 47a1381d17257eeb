#include "engine/PageGeometry.h"
#include "engine/CellStates.h"

#include <gtest/gtest.h>

#include <map>

namespace quorrel::test {
namespace {

/// What a cell is cut for: a column, a group of rows and a row in it, -1 for any. A cell whose
/// region holds another's is its master.
struct Region {
    int column, group, row;
    int level = 0;

    static Region Of(int cell) {
        if (cell >= 104)
            return {-1, -1, -1, cell - 103};
        if (cell >= 100)
            return {cell - 100, -1, -1};
        const int column = cell >= 80 ? -1 : cell / 20;
        const int row = cell % 5 == 4 ? -1 : cell % 5;
        return {column, cell % 20 / 5, row};
    }

    bool IsChangeKey() const { return column >= 0 && group >= 0 && row >= 0; }

    bool Holds(const Region& other) const {
        const auto wider = [](int mine, int theirs) { return mine < 0 || mine == theirs; };
        return level > other.level ||
               (level == 0 && other.level == 0 && wider(column, other.column) &&
                wider(group, other.group) && wider(row, other.row));
    }
};

TEST(PageGeometry, CountsOfEachKind) {
    std::map<CellKind, int> counts;
    for (int cell = 0; cell < kAllCells; ++cell) {
        ++counts[KindOfCell(cell)];
        EXPECT_EQ(IsMasterPosition(cell), KindOfCell(cell) != CellKind::ChangeKey) << cell;
    }
    EXPECT_EQ(counts[CellKind::ChangeKey], 64);
    EXPECT_EQ(counts[CellKind::BlockMaster], 16);
    EXPECT_EQ(counts[CellKind::LineMaster], 16);
    EXPECT_EQ(counts[CellKind::AreaMaster], 4);
    EXPECT_EQ(counts[CellKind::ColumnMaster], 4);
    EXPECT_EQ(KindOfCell(89), CellKind::AreaMaster);
    EXPECT_EQ(KindOfCell(79), CellKind::BlockMaster);
    EXPECT_EQ(KindOfCell(98), CellKind::LineMaster);
    EXPECT_EQ(NameOfKind(KindOfCell(103)), "Column Master");
    EXPECT_EQ(NameOfKind(KindOfCell(104)), "Page Master");
    EXPECT_EQ(NameOfKind(KindOfCell(108)), "Grand Master");
}

TEST(PageGeometry, LevelTexts) {
    using Texts = std::array<std::string, 5>;
    // Four pins keep two cuts of the page although one position selects it.
    EXPECT_EQ(LevelTexts(4, "0604", "2715"), (Texts{"0615", "2715", "", "", ""}));
    EXPECT_EQ(LevelTexts(5, "12121", "31524"), (Texts{"12524", "11524", "31524", "", ""}));
    EXPECT_EQ(LevelTexts(6, "111330", "395172"),
              (Texts{"111172", "115172", "195172", "395172", ""}));
    EXPECT_EQ(LevelTexts(7, "1113090", "3951728"),
              (Texts{"1113728", "1111728", "1151728", "1951728", "3951728"}));
    EXPECT_EQ(LevelTexts(3, "111", "222"), Texts{});
}

TEST(PageGeometry, RelationsFollowFromWhatEachCellIsCutFor) {
    for (int selected = 0; selected < kAllCells; ++selected) {
        const auto relations = RelationsOf(selected);
        const Region from = Region::Of(selected);
        for (int cell = 0; cell < kAllCells; ++cell) {
            const Region other = Region::Of(cell);
            int expected = 0;
            if (cell == selected)
                expected = 1;
            else if (other.Holds(from))
                expected = 3;
            else if (from.Holds(other))
                expected = other.IsChangeKey() ? 2 : 4;
            EXPECT_EQ(relations[static_cast<std::size_t>(cell)], expected)
                << "cell " << cell << ", selected " << selected;
        }
    }
}

/// The cells with a relation, as a text "cell cell …".
std::string CellsWith(int selected, int relation) {
    std::string cells;
    const auto relations = RelationsOf(selected);
    for (std::size_t cell = 0; cell < relations.size(); ++cell)
        if (relations[cell] == relation)
            cells += std::to_string(cell) + ' ';
    return cells;
}

TEST(PageGeometry, RelationsOfKnownCells) {
    EXPECT_EQ(CellsWith(27, 3), "29 87 89 101 104 105 106 107 108 ");
    EXPECT_EQ(CellsWith(64, 2), "60 61 62 63 ");
    EXPECT_EQ(CellsWith(64, 3), "84 103 104 105 106 107 108 ");
    EXPECT_EQ(CellsWith(86, 2), "6 26 46 66 ");
    EXPECT_EQ(CellsWith(94, 4), "14 34 54 74 90 91 92 93 ");
    EXPECT_EQ(CellsWith(102, 4), "44 49 54 59 ");
    EXPECT_EQ(CellsWith(105, 3), "106 107 108 ");
}

TEST(CellStates, StateOfACell) {
    EXPECT_EQ(CellStateOf(5, 2, "111330 ", false, 6, 9), 2);
    EXPECT_EQ(CellStateOf(5, 2, "111330 ", true, 6, 9), 12);
    EXPECT_EQ(CellStateOf(5, 2, "111330*", false, 6, 9), 22);
    EXPECT_EQ(CellStateOf(5, 1, "111330*", true, 6, 9), 31);
    // An empty cell is blank whatever else, and stays so among the levels.
    EXPECT_EQ(CellStateOf(5, 3, kEmptyCellTag, true, 6, 2), 15);
    EXPECT_EQ(CellStateOf(108, 3, kEmptyCellTag, false, 7, 2), 15);
    // A page cell trusts its mark; a level cell counts its pairs. A difference at the limit passes.
    EXPECT_EQ(CellStateOf(103, 3, "191919 ", false, 6, 7), 3);
    EXPECT_EQ(CellStateOf(104, 3, "111199 ", false, 6, 8), 3);
    EXPECT_EQ(CellStateOf(104, 3, "111199 ", false, 6, 7), 23);
    EXPECT_EQ(CellStateOf(104, 3, "111191 ", true, 6, 7), 53);
    EXPECT_EQ(CellStateOf(104, 3, "111199*", false, 6, 7), 43);
}

TEST(CellStates, OnlyKnownStatesHaveAPicture) {
    std::string pictures;
    for (int state = -1; state < 130; ++state)
        if (HasPicture(state))
            pictures += std::to_string(state) + ' ';
    EXPECT_EQ(pictures, "0 1 2 3 4 10 11 12 13 14 15 20 21 22 23 24 30 31 32 33 34 ");
}

} // namespace
} // namespace quorrel::test
