#pragma once

#include "page/PageView.h"

#include <array>
#include <optional>

namespace quorrel {

/// The lines of the level panel, from the top.
enum class Level { Grand, System, Group, Base, Page, Block, Area, Line, Column };
inline constexpr int kLevels = 9;

/// What one line of the level panel shows.
struct LevelLine {
    QString id;
    QString description;
};

/// The selected key as the main form shows it.
struct KeySelection {
    int cell = 0;
    QString serial;
    QString dateText;
    QString cuts; ///< asterisks for a user who may not read cuts
    std::array<LevelLine, kLevels> levels;
    std::optional<Level> highlight;      ///< the level that the selected key is itself
    std::array<int, kAllCells> states{}; ///< final state of every cell
    bool notRecommended = false;         ///< a key without label that exceeds the safety factor
    bool isControlKey = false;           ///< a key of the system with the control key's cuts
};

/// Works out what selecting a cell shows. Pure arithmetic on the page in memory.
KeySelection SelectKey(const PageView& page, int cell, bool mayReadCuts);

/// True when whoever holds the key of a cell can draw every core of the system.
bool HasControlKeysCuts(const PageView& page, int cell);

/// What the level panel calls a cell's kind, such as "Block Master".
QString KindInWords(const PageView& page, int cell);

/// Kind and place of a key, as in "Block Master, page 12"; a level above the pages lies on none.
QString PlaceInWords(const PageView& page, int cell);

/// What a person who cannot see the cell is told: kind, key and state, never cuts.
QString DescribeCell(const PageView& page, int cell, int state);

} // namespace quorrel
