#pragma once

#include "engine/PageGeometry.h"

#include <array>
#include <string_view>

namespace quorrel {

/// Base values of a cell's state; 10 is added for a labelled key, 20 for one not recommended.
namespace cellstate {
inline constexpr int kInactive = 0;  ///< outside the selection
inline constexpr int kActive = 1;    ///< the selected cell
inline constexpr int kSub = 2;       ///< a change key under the selected master
inline constexpr int kPreMaster = 3; ///< a master above the selected cell
inline constexpr int kSubMaster = 4; ///< a master under the selected cell
inline constexpr int kLabelled = 10;
inline constexpr int kNotRecommended = 20;
inline constexpr int kBlank = 15; ///< no pattern in the cell
} // namespace cellstate

/// What an empty cell carries in place of its cuts.
inline constexpr std::string_view kEmptyCellTag = "0000000 ";

/// The relation of every cell of a page to the selected one, as base values. The level tree of a
/// page is fixed by its geometry, so nothing but the index is needed.
std::array<int, kAllCells> RelationsOf(int selectedCell);

/// Final state of a cell. The tag is its cuts and the mark. Cells above 103 gain another 20 for
/// each adjacent pair of cuts that differs by more than the safety factor, so two such pairs give
/// a value that no picture has.
int CellStateOf(int cell, int relation, std::string_view tag, bool labelled, int pins,
                int safetyFactor);

/// True when a state has a picture; any other state leaves the picture that a cell shows.
bool HasPicture(int state);

} // namespace quorrel
