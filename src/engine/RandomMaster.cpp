#include "engine/RandomMaster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace quorrel {

namespace {

/// The rightmost N characters of seven drawn digits, written as a number with a leading blank.
std::string DrawText(const SystemDefinition& definition, const RandomNumber& random) {
    long number = 0;
    for (int drawn = 0; drawn < 7; ++drawn) {
        const double range = definition.maxPin - definition.minPin;
        number = number * 10 + std::lround(std::floor(range * random() + definition.minPin));
    }
    const std::string text = ' ' + std::to_string(number);
    const auto pins = static_cast<std::size_t>(definition.pins);
    return text.size() > pins ? text.substr(text.size() - pins) : text;
}

bool MeetsRules(const SystemDefinition& definition, const std::string& cuts) {
    const int lowest = definition.minPin;
    const int highest = definition.maxPin;
    const auto at = [&](int place) { return cuts[static_cast<std::size_t>(place - 1)] - '0'; };
    for (int place = 1; place <= definition.pins; ++place)
        if (at(place) < lowest || at(place) > highest)
            return false;
    const int last = definition.pins;
    const bool deepStart = at(1) > highest - 2 || at(2) > highest - 2;
    const bool shallowEnd = at(last - 1) < lowest + 2 || at(last) < lowest + 2;
    return deepStart && shallowEnd &&
           OffendingPairs(cuts, definition.pins, definition.safetyFactor) == 0;
}

} // namespace

bool RandomMasterExists(const SystemDefinition& definition) {
    if (!definition.IsWithinLimits())
        return false;
    // What can be reached place by place: the cut, and whether the start and end rules are met.
    struct State {
        int cut;
        bool start, end;
    };
    std::vector<State> states;
    for (int place = 1; place <= definition.pins; ++place) {
        std::vector<State> next;
        for (int cut = definition.minPin; cut < definition.maxPin; ++cut) {
            const bool start = place <= 2 && cut > definition.maxPin - 2;
            const bool end = place >= definition.pins - 1 && cut < definition.minPin + 2;
            if (place == 1)
                next.push_back({cut, start, end});
            for (const State& state : states)
                if (std::abs(state.cut - cut) <= definition.safetyFactor)
                    next.push_back({cut, state.start || start, state.end || end});
        }
        states.clear();
        for (const State& state : next) {
            const auto same = [&](const State& other) {
                return other.cut == state.cut && other.start == state.start &&
                       other.end == state.end;
            };
            if (std::none_of(states.begin(), states.end(), same))
                states.push_back(state);
        }
    }
    return std::any_of(states.begin(), states.end(),
                       [](const State& state) { return state.start && state.end; });
}

std::optional<std::string> DrawRandomMaster(const SystemDefinition& definition,
                                            const RandomNumber& random) {
    if (!RandomMasterExists(definition))
        return std::nullopt;
    for (;;) {
        const std::string cuts = NormalisedCuts(DrawText(definition, random), definition.pins);
        if (MeetsRules(definition, cuts))
            return cuts;
    }
}

} // namespace quorrel
