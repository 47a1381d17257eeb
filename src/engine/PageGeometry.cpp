#include "engine/PageGeometry.h"

namespace quorrel {

CellKind KindOfCell(int cell) {
    if (cell >= kFirstLevelCell)
        return static_cast<CellKind>(static_cast<int>(CellKind::PageMaster) + cell -
                                     kFirstLevelCell);
    if (cell >= 100)
        return CellKind::ColumnMaster;
    const bool masterRow = cell % 5 == 4;
    if (cell >= 80)
        return masterRow ? CellKind::AreaMaster : CellKind::LineMaster;
    return masterRow ? CellKind::BlockMaster : CellKind::ChangeKey;
}

std::string_view NameOfKind(CellKind kind) {
    static constexpr std::array<std::string_view, 10> names = {
        "Change Key",  "Block Master", "Line Master",  "Area Master",   "Column Master",
        "Page Master", "Base Master",  "Group Master", "System Master", "Grand Master"};
    return names.at(static_cast<std::size_t>(kind));
}

bool IsMasterPosition(int position) {
    return position > 79 || (position + 1) % 5 == 0;
}

PageMasters PageMastersOf(int cell) {
    const int column = cell / 20;
    const int row = cell % 20;
    const int group = row / 5;
    PageMasters masters;
    switch (KindOfCell(cell)) {
    case CellKind::ChangeKey:
        return {20 * column + 5 * group + 4, 84 + 5 * group, 80 + row, 100 + column};
    case CellKind::BlockMaster:
        return {cell, 84 + 5 * group, std::nullopt, 100 + column};
    case CellKind::LineMaster:
        return {std::nullopt, 84 + 5 * group, cell, std::nullopt};
    case CellKind::AreaMaster:
        masters.area = cell;
        break;
    case CellKind::ColumnMaster:
        masters.column = cell;
        break;
    default:
        break;
    }
    return masters;
}

std::array<std::string, 5> LevelTexts(int pins, std::string_view pageCuts,
                                      std::string_view masterCuts) {
    const auto level = [&](std::size_t kept) {
        std::string text(pageCuts.substr(0, kept));
        if (kept < masterCuts.size())
            text += masterCuts.substr(kept, static_cast<std::size_t>(pins) - kept);
        return text;
    };
    const std::string master(masterCuts);
    switch (pins) {
    case 4:
        return {level(2), master, "", "", ""};
    case 5:
        return {level(2), level(1), master, "", ""};
    case 6:
        return {level(3), level(2), level(1), master, ""};
    case 7:
        return {level(4), level(3), level(2), level(1), master};
    default:
        return {};
    }
}

} // namespace quorrel
