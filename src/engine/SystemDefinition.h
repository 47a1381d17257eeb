#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// The lock families a system can be made for. The number is the index of the option button.
enum class SystemType { Standard = 0, AngledCut = 1, ICCore23 = 2 };

/// What a number of a definition may be, both ends included.
struct NumberLimits {
    int lowest, highest;

    constexpr bool Hold(int number) const { return number >= lowest && number <= highest; }
};

inline constexpr NumberLimits kPinCountLimits{4, 7};
inline constexpr NumberLimits kMinPinLimits{0, 4};
inline constexpr NumberLimits kMaxPinLimits{5, 9};
inline constexpr NumberLimits kIncrementLimits{1, 4};
inline constexpr NumberLimits kSafetyFactorLimits{2, 9};

/// The highest page number a system may reach.
inline constexpr int kMaxPages = 300;

/// What a master key system is enumerated from. Numbers outside of their limits enumerate nothing.
struct SystemDefinition {
    std::string master;   ///< Theoretical master key, one digit a cut, position 1 first.
    int pins = 6;         ///< N, within `kPinCountLimits`.
    int minPin = 0;       ///< Smallest cut, within `kMinPinLimits`.
    int maxPin = 9;       ///< Largest cut, within `kMaxPinLimits`.
    int increment = 2;    ///< Step between the cuts of a position, within `kIncrementLimits`.
    int safetyFactor = 7; ///< Largest usable difference of adjoining cuts, `kSafetyFactorLimits`.

    /// Every number is within its limits.
    bool IsWithinLimits() const;

    /// Master cut at a 1-based position. A missing or non-digit place counts as cut 0.
    int MasterCut(int position) const;

    /// The cuts that a 1-based position runs over, ascending: the whole range with increment 1,
    /// otherwise every increment-th cut from the first one of the master cut's parity. None when a
    /// number is outside of its limits.
    std::vector<int> Progression(int position) const;

    /// Increment 1 with more than five cuts to choose from is not supported.
    bool ExceedsPinVariance() const {
        return IsWithinLimits() && increment == 1 && maxPin - minPin > 4;
    }

    bool operator==(const SystemDefinition&) const = default;

    /// Number of pages: the product over positions 1 to N-3 of the cuts other than the master's.
    int PageCount() const;
};

/// True when the text is exactly `count` digits 0 to 9.
bool IsDigits(std::string_view text, int count);

/// True when a key's text begins with the cuts of the control key, which `controlCuts` is, or is
/// empty in a system without one. Such a key draws every core of the system.
bool IsControlKeysCuts(std::string_view keyText, std::string_view controlCuts);

/// Replaces blanks by 0 and fills up with 0 on the right to `pins` places: the cuts as read.
std::string NormalisedCuts(std::string_view text, int pins);

/// True when an adjacent pair of the first `pins` cuts differs by more than the safety factor;
/// the return value is the number of such pairs.
int OffendingPairs(std::string_view cuts, int pins, int safetyFactor);

} // namespace quorrel
