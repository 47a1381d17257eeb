#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorrel {

/// Cells of a page: 0 to 103 hold enumerated keys, 104 to 108 the levels above the page.
inline constexpr int kPageCells = 104;
inline constexpr int kAllCells = 109;
inline constexpr int kFirstLevelCell = 104;
inline constexpr int kLastLevelCell = 108;

/// `Position` of the row that holds the angles of an Angled Cut system.
inline constexpr int kAnglePosition = 190;
/// `Position` of the row that holds the control key of an IC Core 23 system.
inline constexpr int kControlPosition = 200;
/// Rows from this `Position` on are no keys and stand in no cell.
inline constexpr int kFirstSpecialPosition = 189;

enum class CellKind {
    ChangeKey,    ///< 20c + 5b + k
    BlockMaster,  ///< 20c + 5b + 4, over the four keys above it in its column
    LineMaster,   ///< 80 + 5b + k, over one row across the four columns
    AreaMaster,   ///< 84 + 5b, over a group of rows
    ColumnMaster, ///< 100 + c, over a column
    PageMaster,   ///< 104
    BaseMaster,   ///< 105
    GroupMaster,  ///< 106
    SystemMaster, ///< 107
    GrandMaster   ///< 108
};

/// Kind of a cell 0 to 108.
CellKind KindOfCell(int cell);

/// The trade's name of a kind, such as "Block Master".
std::string_view NameOfKind(CellKind kind);

/// True for every `Position` that holds a master level key.
bool IsMasterPosition(int position);

/// The cell that holds the theoretical master key: N + 101.
inline constexpr int MasterCell(int pins) {
    return pins + 101;
}

/// Cells of the page masters above or at a cell; empty where the level does not apply to it.
struct PageMasters {
    std::optional<int> block, area, line, column;
};

/// The page masters that govern a cell 0 to 103, itself included. Nothing for 104 to 108.
PageMasters PageMastersOf(int cell);

/// The cuts that fill cells 104 to 108 of a page, from the cuts of the page's first change key and
/// the system's master key; empty where the pin count has no such level.
/// For 4 pins cell 104 keeps two cuts of the page key although one position selects the page.
std::array<std::string, 5> LevelTexts(int pins, std::string_view pageCuts,
                                      std::string_view masterCuts);

} // namespace quorrel
