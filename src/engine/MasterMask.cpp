#include "engine/MasterMask.h"

#include <algorithm>

namespace quorrel {

MasterMask::MasterMask(std::string_view cuts, std::string_view masterCuts) : m_mask(masterCuts) {
    for (std::size_t i = 0; i < m_mask.size(); ++i)
        m_mask[i] = i < cuts.size() && cuts[i] != m_mask[i] ? cuts[i] : 'x';
}

bool MasterMask::Covers(std::string_view cuts) const {
    return cuts.size() >= m_mask.size() &&
           std::equal(m_mask.begin(), m_mask.end(), cuts.begin(),
                      [](char wanted, char cut) { return wanted == 'x' || wanted == cut; });
}

} // namespace quorrel
