#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// What tells the keys under a master from all others: they have its cuts wherever these are not
/// the theoretical master's. The mask of the theoretical master itself covers every key, that of a
/// change key the key alone.
class MasterMask {
public:
    /// Both texts begin with their cuts, one digit each; `masterCuts` holds no more than these.
    MasterMask(std::string_view cuts, std::string_view masterCuts);

    /// True for a key's text that begins with cuts under the master, the master's own included.
    bool Covers(std::string_view cuts) const;

private:
    std::string m_mask; ///< a digit, or 'x' where any cut will do
};

} // namespace quorrel
