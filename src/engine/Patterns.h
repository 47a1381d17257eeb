#pragma once

#include "engine/Enumeration.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace quorrel {

/// A key of a finished system, as it is kept.
struct Pattern {
    std::string text; ///< N cuts and the mark, in the clear.
    int page;         ///< From 1; 0 for the angles and the control key, which lie on no page.
    int position;     ///< 0 to 103, a level 104 to 108, or `kAnglePosition`, `kControlPosition`.
    long serial;      ///< From 1, ascending.
    bool master;
};

/// Generates every key of a system in `serial` order: each page's keys, then those of its levels
/// that no earlier page has brought. A level whose cuts the page holds as an enumerated key gets
/// no second row. `special` is the angles or the control key of a system that is not standard.
/// Nothing at all when a number of the definition is outside of its limits. Throws
/// `PageLimitError`.
void GeneratePatterns(const SystemDefinition& definition, SystemType type,
                      const std::string& special, const std::function<void(const Pattern&)>& emit);

} // namespace quorrel
