#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// The lock families a system can be made for. The number is the index of the option button.
enum class SystemType { Standard = 0, AngledCut = 1, ICCore23 = 2 };

/// Fewest and most chambers of a cylinder.
inline constexpr int kFewestPins = 4;
inline constexpr int kMostPins = 7;
/// The highest page number a system may reach.
inline constexpr int kMaxPages = 300;

/// What a master key system is enumerated from.
struct SystemDefinition {
    std::string master;   ///< Theoretical master key, one digit a cut, position 1 first.
    int pins = 6;         ///< N, 4 to 7. Any other number enumerates nothing.
    int minPin = 0;       ///< Smallest cut, 0 to 4.
    int maxPin = 9;       ///< Largest cut, 5 to 9.
    int increment = 2;    ///< Step between the cuts of a position, 1 to 4.
    int safetyFactor = 7; ///< Largest usable difference of adjoining cuts, 2 to 9.

    bool HasValidPinCount() const { return pins >= kFewestPins && pins <= kMostPins; }

    /// Master cut at a 1-based position. A missing or non-digit place counts as cut 0.
    int MasterCut(int position) const;

    /// The cuts that a 1-based position runs over, ascending: the whole range with increment 1,
    /// otherwise every increment-th cut from the first one of the master cut's parity.
    std::vector<int> Progression(int position) const;

    /// Increment 1 with more than five cuts to choose from is not supported.
    bool ExceedsPinVariance() const { return increment == 1 && maxPin - minPin > 4; }

    bool operator==(const SystemDefinition&) const = default;

    /// Number of pages: the product over positions 1 to N-3 of the cuts other than the master's.
    int PageCount() const;
};

/// True when the text is exactly `count` digits 0 to 9.
bool IsDigits(std::string_view text, int count);

/// Replaces blanks by 0 and fills up with 0 on the right to `pins` places: the cuts as read.
std::string NormalisedCuts(std::string_view text, int pins);

/// True when an adjacent pair of the first `pins` cuts differs by more than the safety factor;
/// the return value is the number of such pairs.
int OffendingPairs(std::string_view cuts, int pins, int safetyFactor);

} // namespace quorrel
