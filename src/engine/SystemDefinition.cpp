#include "engine/SystemDefinition.h"

#include <algorithm>
#include <cstdlib>

namespace quorrel {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int DigitAt(std::string_view text, std::size_t place) {
    return place < text.size() && IsDigit(text[place]) ? text[place] - '0' : 0;
}

} // namespace

bool SystemDefinition::IsWithinLimits() const {
    return kPinCountLimits.Hold(pins) && kMinPinLimits.Hold(minPin) && kMaxPinLimits.Hold(maxPin) &&
           kIncrementLimits.Hold(increment) && kSafetyFactorLimits.Hold(safetyFactor);
}

int SystemDefinition::MasterCut(int position) const {
    return DigitAt(master, static_cast<std::size_t>(position - 1));
}

std::vector<int> SystemDefinition::Progression(int position) const {
    if (!IsWithinLimits())
        return {};
    int start = minPin;
    if (increment != 1 && (minPin % 2) != (MasterCut(position) % 2))
        start = minPin + 1;
    std::vector<int> cuts;
    for (int cut = start; cut <= maxPin; cut += increment)
        cuts.push_back(cut);
    return cuts;
}

int SystemDefinition::PageCount() const {
    if (!IsWithinLimits())
        return 0;
    int pages = 1;
    for (int position = 1; position <= pins - 3; ++position) {
        const auto cuts = Progression(position);
        const auto masters = std::count(cuts.begin(), cuts.end(), MasterCut(position));
        pages *= static_cast<int>(static_cast<std::ptrdiff_t>(cuts.size()) - masters);
    }
    return pages;
}

bool IsDigits(std::string_view text, int count) {
    return text.size() == static_cast<std::size_t>(count) &&
           std::all_of(text.begin(), text.end(), IsDigit);
}

bool IsControlKeysCuts(std::string_view keyText, std::string_view controlCuts) {
    return !controlCuts.empty() && keyText.starts_with(controlCuts);
}

std::string NormalisedCuts(std::string_view text, int pins) {
    std::string cuts(text);
    cuts.resize(static_cast<std::size_t>(std::max(pins, 0)), '0');
    std::replace(cuts.begin(), cuts.end(), ' ', '0');
    return cuts;
}

int OffendingPairs(std::string_view cuts, int pins, int safetyFactor) {
    int pairs = 0;
    for (int place = 0; place + 1 < pins; ++place) {
        const auto at = static_cast<std::size_t>(place);
        if (std::abs(DigitAt(cuts, at) - DigitAt(cuts, at + 1)) > safetyFactor)
            ++pairs;
    }
    return pairs;
}

} // namespace quorrel
