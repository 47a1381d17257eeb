#pragma once

#include "engine/PageGeometry.h"
#include "engine/SystemDefinition.h"

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace quorrel {

/// One key of a system as the enumeration meets it.
struct EnumeratedKey {
    std::string_view text; ///< N cut digits, then the mark; valid during the visit only.
    int page;              ///< From 1.
    int position;          ///< Cell on the page, 0 to 103.
};

/// Runs over every key of a system, position 1 the slowest, position N the fastest.
///
/// Positions 1 to N-3 select the page; a turn on a master cut adds nothing there. Positions N-2,
/// N-1 and N select the cell. A position with five cuts beside the master uses its first cell
/// again for the fifth, so later keys then share cells with earlier ones.
class Enumeration {
public:
    explicit Enumeration(const SystemDefinition& definition);

    /// Calls `visit(const EnumeratedKey&)` for each key and `pageDone(int page)` at the end of
    /// each page. Returns the number of pages.
    template <class Visit, class PageDone>
    int Run(Visit&& visit, PageDone&& pageDone);

private:
    /// A turn of a cell position: its cut, its index 0 to 3 and whether it is the master's turn.
    /// On a master's turn the index stays as it was before, -1 at the start.
    struct CellTurn {
        int cut;
        int index;
        bool master;
    };

    std::vector<CellTurn> CellTurns(int position) const;
    bool NextPage();
    void WritePageCuts();
    template <class Visit>
    void RunPage(int page, Visit& visit);
    bool Offends(int a, int b) const { return std::abs(a - b) > m_definition.safetyFactor; }

    /// Cell of a combination, or -1 when it has none.
    static int PositionOf(const CellTurn& a, const CellTurn& b, const CellTurn& c);

    SystemDefinition m_definition;
    std::vector<std::vector<int>> m_pageCuts; ///< Cuts beside the master, per page position.
    std::vector<std::size_t> m_turn;          ///< The odometer over `m_pageCuts`.
    std::array<std::vector<CellTurn>, 3> m_cells;
    std::array<char, 8> m_text{};
    bool m_pageOffends = false;
    bool m_empty = true;
};

inline int Enumeration::PositionOf(const CellTurn& a, const CellTurn& b, const CellTurn& c) {
    if (b.master)
        return c.master && !a.master ? 100 + a.index : -1;
    return (a.master ? 80 : a.index * 20) + b.index * 5 + (c.master ? 4 : c.index);
}

template <class Visit>
void Enumeration::RunPage(int page, Visit& visit) {
    const auto pins = static_cast<std::size_t>(m_definition.pins);
    const int lastPageCut = m_text[pins - 4] - '0';
    for (const CellTurn& a : m_cells[0]) {
        const bool offendsA = m_pageOffends || Offends(lastPageCut, a.cut);
        m_text[pins - 3] = static_cast<char>('0' + a.cut);
        for (const CellTurn& b : m_cells[1]) {
            const bool offendsB = offendsA || Offends(a.cut, b.cut);
            m_text[pins - 2] = static_cast<char>('0' + b.cut);
            for (const CellTurn& c : m_cells[2]) {
                const int position = PositionOf(a, b, c);
                if (position < 0)
                    continue;
                m_text[pins - 1] = static_cast<char>('0' + c.cut);
                m_text[pins] = offendsB || Offends(b.cut, c.cut) ? '*' : ' ';
                visit(EnumeratedKey{{m_text.data(), pins + 1}, page, position});
            }
        }
    }
}

template <class Visit, class PageDone>
int Enumeration::Run(Visit&& visit, PageDone&& pageDone) {
    int pages = 0;
    if (m_empty)
        return pages;
    m_turn.assign(m_pageCuts.size(), 0);
    do {
        WritePageCuts();
        RunPage(++pages, visit);
        pageDone(pages);
    } while (NextPage());
    return pages;
}

} // namespace quorrel
