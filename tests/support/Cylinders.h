#pragma once

#include "engine/PinStack.h"

#include <string>
#include <vector>

namespace quorrel::test {

/// A cylinder for a key of a system; a core when there is a control key.
inline Cylinder CylinderOf(const std::string& key, const std::string& master,
                           const std::string& control = {}) {
    Cylinder cylinder{key, {}, !control.empty()};
    for (std::size_t i = 0; i < key.size(); ++i)
        cylinder.stacks.push_back(
            control.empty() ? StackOf(key[i] - '0', master[i] - '0')
                            : CoreStackOf(key[i] - '0', master[i] - '0', control[i] - '0'));
    return cylinder;
}

/// A cylinder that opens to several cuts a chamber, told as their digits in ascending order.
inline Cylinder CrossKeyed(const std::string& key, const std::vector<std::string>& cuts,
                           const std::string& control = {}) {
    Cylinder cylinder{key, {}, !control.empty()};
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        std::vector<int> digits;
        for (const char cut : cuts[i])
            digits.push_back(cut - '0');
        cylinder.stacks.push_back(control.empty() ? StackOf(digits)
                                                  : CoreStackOf(digits, control[i] - '0'));
    }
    return cylinder;
}

} // namespace quorrel::test
