#include "engine/CrossKeying.h"

#include <algorithm>
#include <utility>

namespace quorrel {

namespace {

bool IsCut(char text) {
    return text >= '0' && text <= '9';
}

char Figure(int steps) {
    return static_cast<char>('0' + steps % 10);
}

} // namespace

CrossKeying::CrossKeying(const std::vector<std::string>& keys, int pins)
    : m_chambers(static_cast<std::size_t>(pins)), m_admitted(static_cast<std::size_t>(pins), 0) {
    for (const std::string& key : keys)
        Add(key);
}

void CrossKeying::Add(std::string_view cuts) {
    for (std::size_t place = 0; place < std::min(cuts.size(), m_chambers.size()); ++place) {
        if (!IsCut(cuts[place]))
            continue;
        const int cut = cuts[place] - '0';
        if (std::exchange(m_admitted[place], m_admitted[place] | 1U << cut) != m_admitted[place]) {
            std::vector<int>& chamber = m_chambers[place];
            chamber.insert(std::upper_bound(chamber.begin(), chamber.end(), cut), cut);
        }
    }
}

CrossKeying CrossKeying::With(std::string_view cuts) const {
    CrossKeying more = *this;
    more.Add(cuts);
    return more;
}

bool CrossKeying::Admits(std::string_view cuts) const {
    if (m_chambers.empty() || cuts.size() < m_chambers.size())
        return false;
    for (std::size_t place = 0; place < m_admitted.size(); ++place)
        if (!IsCut(cuts[place]) || (m_admitted[place] >> (cuts[place] - '0') & 1U) == 0)
            return false;
    return true;
}

std::uint64_t CrossKeying::CountCombinations() const {
    std::uint64_t count = m_chambers.empty() ? 0 : 1;
    for (const std::vector<int>& chamber : m_chambers)
        count *= chamber.size();
    return count;
}

void CrossKeying::WalkCombinations(const std::function<bool(const std::string&)>& visit) const {
    if (CountCombinations() == 0)
        return;
    std::vector<std::size_t> choice(m_chambers.size(), 0);
    std::string cuts(m_chambers.size(), '0');
    for (std::size_t place = 0; place < cuts.size(); ++place)
        cuts[place] = Figure(m_chambers[place].front());
    while (visit(cuts)) {
        // As an odometer: the last chamber first, and those before it when it has run through.
        std::size_t place = cuts.size();
        bool carried = true;
        while (carried && place > 0) {
            --place;
            carried = ++choice[place] == m_chambers[place].size();
            if (carried)
                choice[place] = 0;
            cuts[place] = Figure(m_chambers[place][choice[place]]);
        }
        if (carried)
            return;
    }
}

std::uint64_t CrossKeying::CountPhantoms(const std::vector<std::string>& systemCuts) const {
    const auto known = std::count_if(systemCuts.begin(), systemCuts.end(),
                                     [&](const std::string& cuts) { return Admits(cuts); });
    return CountCombinations() - static_cast<std::uint64_t>(known);
}

PinRows CrossKeying::Rows() const {
    PinRows rows;
    rows.bottom.assign(kPinRowWidth, ' ');
    rows.wafers.fill(rows.bottom);
    for (std::size_t place = 0; place < m_chambers.size(); ++place) {
        const std::vector<int>& cuts = m_chambers[place];
        if (cuts.empty())
            continue;
        rows.bottom[place] = Figure(cuts.front());
        for (std::size_t step = 1; step < cuts.size() && step <= rows.wafers.size(); ++step)
            rows.wafers[step - 1][place] = Figure(cuts[step] - cuts[step - 1]);
        if (cuts.size() > rows.wafers.size() + 1)
            rows.overfull.push_back(static_cast<int>(place) + 1);
    }
    return rows;
}

} // namespace quorrel
