#include "engine/Enumeration.h"

#include <algorithm>

namespace quorrel {

Enumeration::Enumeration(const SystemDefinition& definition) : m_definition(definition) {
    if (!definition.IsWithinLimits())
        return;
    m_empty = false;
    for (int position = 1; position <= definition.pins - 3; ++position) {
        auto cuts = definition.Progression(position);
        std::erase(cuts, definition.MasterCut(position));
        m_empty = m_empty || cuts.empty();
        m_pageCuts.push_back(std::move(cuts));
    }
    for (int cell = 0; cell < 3; ++cell)
        m_cells[static_cast<std::size_t>(cell)] = CellTurns(definition.pins - 2 + cell);
}

std::vector<Enumeration::CellTurn> Enumeration::CellTurns(int position) const {
    std::vector<CellTurn> turns;
    int index = -1;
    for (const int cut : m_definition.Progression(position)) {
        const bool master = cut == m_definition.MasterCut(position);
        if (!master)
            ++index;
        if (index == 4)
            index = 0;
        turns.push_back({cut, index, master});
    }
    return turns;
}

bool Enumeration::NextPage() {
    for (std::size_t place = m_turn.size(); place-- > 0;) {
        if (++m_turn[place] < m_pageCuts[place].size())
            return true;
        m_turn[place] = 0;
    }
    return false;
}

void Enumeration::WritePageCuts() {
    m_pageOffends = false;
    for (std::size_t place = 0; place < m_turn.size(); ++place) {
        const int cut = m_pageCuts[place][m_turn[place]];
        m_text[place] = static_cast<char>('0' + cut);
        if (place > 0)
            m_pageOffends = m_pageOffends || Offends(m_text[place - 1] - '0', cut);
    }
}

} // namespace quorrel
