#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// Rows in which the master pins of a cross-keyed cylinder are laid out for loading.
inline constexpr int kWaferRows = 5;

/// Characters of a row of pins, one a chamber, blanks behind the last.
inline constexpr int kPinRowWidth = 8;

/// The pins of a cross-keyed cylinder as they are loaded: the bottom pins first, then row by row a
/// master pin for each chamber that has so many.
struct PinRows {
    std::string bottom;
    std::array<std::string, kWaferRows> wafers; ///< a blank where a chamber has none
    std::vector<int> overfull; ///< 1-based places of chambers with a master pin more than the rows
};

/// A cylinder that is pinned for several keys. Each chamber admits the cuts of all of them there,
/// and so the cylinder turns for every mixture of these cuts as well.
class CrossKeying {
public:
    CrossKeying() = default;

    /// For keys given by their cuts, a digit each of `pins` chambers. A place without a digit adds
    /// nothing, so a blank text stands for no key.
    CrossKeying(const std::vector<std::string>& keys, int pins);

    /// The cuts that each chamber admits, in ascending order.
    const std::vector<std::vector<int>>& Chambers() const { return m_chambers; }

    /// The cylinder with another key added.
    CrossKeying With(std::string_view cuts) const;

    /// Whether a key whose text begins with these cuts turns the cylinder.
    bool Admits(std::string_view cuts) const;

    /// How many combinations of cuts turn it, at most 10 to the power of 7; 0 while a chamber
    /// admits none.
    std::uint64_t CountCombinations() const;

    /// Calls `visit(cuts)` for each of these in ascending order, the first chamber outermost, for
    /// as long as it returns true.
    void WalkCombinations(const std::function<bool(const std::string&)>& visit) const;

    /// How many of these combinations are not among the keys of a system, whose cuts are given once
    /// each.
    std::uint64_t CountPhantoms(const std::vector<std::string>& systemCuts) const;

    PinRows Rows() const;

private:
    void Add(std::string_view cuts);

    std::vector<std::vector<int>> m_chambers;
    std::vector<unsigned> m_admitted; ///< a bit each cut, chamber by chamber
};

} // namespace quorrel
