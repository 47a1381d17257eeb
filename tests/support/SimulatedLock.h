#pragma once

#include <string>
#include <vector>

namespace quorrel::test {

/// A pin tumbler lock that knows nothing but the pins in its chambers. Pins stand on the cut of a
/// key; a shear line is free where two pins meet just there. Cuts lower the stack: with a key whose
/// cut is as deep as the bottom pin is long, that pin ends at the operating shear line.
class SimulatedLock {
public:
    /// Loads the rows of pins as a locksmith does, a figure a chamber: the bottom pins, then row
    /// upon row of wafers, with no pin where a row has a blank.
    void Load(const std::string& bottom, const std::vector<std::string>& wafers, std::size_t pins) {
        for (std::size_t chamber = 0; chamber < pins; ++chamber) {
            std::vector<int> stack = {Steps(bottom.at(chamber))};
            for (const std::string& row : wafers)
                if (row.at(chamber) != ' ')
                    stack.push_back(Steps(row.at(chamber)));
            m_chambers.push_back(stack);
        }
        m_ofPlug = m_chambers;
    }

    /// Puts the control pin and the driver of a core on top, a figure or letter a chamber.
    void LoadCore(const std::string& control, const std::string& driver) {
        for (std::size_t chamber = 0; chamber < m_chambers.size(); ++chamber) {
            m_chambers[chamber].push_back(Steps(control.at(chamber)));
            m_drivers.push_back(Steps(driver.at(chamber)));
        }
    }

    bool Turns(const std::string& key) const { return IsFree(m_ofPlug, key, 0); }

    /// The core comes out: its control shear line, ten steps up, is free.
    bool Pulls(const std::string& key) const { return IsFree(m_chambers, key, 10); }

    /// The steps of all pins of a chamber.
    int Height(std::size_t chamber) const {
        int height = m_drivers.empty() ? 0 : m_drivers.at(chamber);
        for (const int pin : m_chambers.at(chamber))
            height += pin;
        return height;
    }

private:
    using Chambers = std::vector<std::vector<int>>;

    static int Steps(char figure) { return figure >= 'A' ? figure - 'A' + 10 : figure - '0'; }

    /// Whether in each chamber one of these pins ends at a line.
    static bool IsFree(const Chambers& chambers, const std::string& key, int line) {
        for (std::size_t chamber = 0; chamber < chambers.size(); ++chamber) {
            int end = -(key.at(chamber) - '0');
            bool free = false;
            for (const int pin : chambers[chamber]) {
                end += pin;
                free = free || end == line;
            }
            if (!free)
                return false;
        }
        return true;
    }

    Chambers m_ofPlug;   ///< the bottom pins and wafers
    Chambers m_chambers; ///< with a core's control pins
    std::vector<int> m_drivers;
};

/// Calls `visit(key)` for every key of so many cuts that are 0 to `deepest`.
template <class Visit>
void ForEveryKey(std::size_t pins, char deepest, Visit&& visit) {
    std::string key(pins, '0');
    for (std::size_t place = 0; place < pins;) {
        visit(key);
        for (place = 0; place < pins && key[place] == deepest; ++place)
            key[place] = '0';
        if (place < pins)
            ++key[place];
    }
}

} // namespace quorrel::test
