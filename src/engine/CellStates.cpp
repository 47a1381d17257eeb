#include "engine/CellStates.h"

#include "engine/SystemDefinition.h"

namespace quorrel {

namespace {

using Relations = std::array<int, kAllCells>;

void AddTo(Relations& relations, int cell, int value) {
    relations[static_cast<std::size_t>(cell)] += value;
}

void AddKeysUnder(Relations& relations, CellKind kind, int cell) {
    using namespace cellstate;
    for (int k = 0; k < 4; ++k) {
        if (kind == CellKind::BlockMaster)
            AddTo(relations, cell - 4 + k, kSub);
        if (kind == CellKind::LineMaster)
            AddTo(relations, cell - 80 + 20 * k, kSub);
        if (kind == CellKind::AreaMaster) {
            AddTo(relations, cell - 80 + 20 * k, kSubMaster);
            AddTo(relations, cell - 4 + k, kSubMaster);
            for (int column = 0; column < 4; ++column)
                AddTo(relations, cell - 84 + 20 * column + k, kSub);
        }
        if (kind == CellKind::ColumnMaster) {
            const int block = 20 * (cell - 100) + 5 * k;
            AddTo(relations, block + 4, kSubMaster);
            for (int row = 0; row < 4; ++row)
                AddTo(relations, block + row, kSub);
        }
    }
}

void AddLevel(Relations& relations, int cell) {
    using namespace cellstate;
    for (int other = 0; other < kFirstLevelCell; ++other)
        AddTo(relations, other, KindOfCell(other) == CellKind::ChangeKey ? kSub : kSubMaster);
    for (int other = kFirstLevelCell; other <= kLastLevelCell; ++other)
        if (other != cell)
            AddTo(relations, other, other > cell ? kPreMaster : kSubMaster);
}

} // namespace

std::array<int, kAllCells> RelationsOf(int selectedCell) {
    Relations relations{};
    AddTo(relations, selectedCell, cellstate::kActive);
    if (selectedCell >= kFirstLevelCell) {
        AddLevel(relations, selectedCell);
        return relations;
    }
    for (int cell = kFirstLevelCell; cell <= kLastLevelCell; ++cell)
        AddTo(relations, cell, cellstate::kPreMaster);
    const PageMasters masters = PageMastersOf(selectedCell);
    for (const auto& master : {masters.block, masters.area, masters.line, masters.column})
        if (master && *master != selectedCell)
            AddTo(relations, *master, cellstate::kPreMaster);
    AddKeysUnder(relations, KindOfCell(selectedCell), selectedCell);
    return relations;
}

int CellStateOf(int cell, int relation, std::string_view tag, bool labelled, int pins,
                int safetyFactor) {
    using namespace cellstate;
    int state = relation;
    if (tag == kEmptyCellTag) {
        state = kBlank;
    } else {
        if (labelled)
            state += kLabelled;
        if (tag.find('*') != std::string_view::npos)
            state += kNotRecommended;
    }
    if (cell >= kFirstLevelCell)
        state += kNotRecommended * OffendingPairs(tag, pins, safetyFactor);
    return state;
}

bool HasPicture(int state) {
    return (state >= 0 && state <= 34 && state % 10 <= 4) || state == cellstate::kBlank;
}

} // namespace quorrel
