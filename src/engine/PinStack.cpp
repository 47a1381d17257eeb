#include "engine/PinStack.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace quorrel {

int PinStack::Master() const {
    return std::accumulate(wafers.begin(), wafers.end(), 0);
}

bool PinStack::HasThinWafer() const {
    return std::find(wafers.begin(), wafers.end(), 1) != wafers.end();
}

PinStack StackOf(const std::vector<int>& cuts) {
    if (cuts.empty())
        throw std::invalid_argument("A chamber without a cut has no pins.");
    PinStack stack;
    stack.bottom = cuts.front();
    for (std::size_t cut = 1; cut < cuts.size(); ++cut)
        if (cuts[cut] > cuts[cut - 1])
            stack.wafers.push_back(cuts[cut] - cuts[cut - 1]);
    return stack;
}

PinStack CoreStackOf(const std::vector<int>& cuts, int controlCut) {
    PinStack stack = StackOf(cuts);
    stack.control = controlCut + kControlShearLine - cuts.back();
    stack.driver = kCoreStackHeight - *stack.control - cuts.back();
    return stack;
}

PinStack StackOf(int keyCut, int masterCut) {
    return StackOf({std::min(keyCut, masterCut), std::max(keyCut, masterCut)});
}

PinStack CoreStackOf(int keyCut, int masterCut, int controlCut) {
    return CoreStackOf({std::min(keyCut, masterCut), std::max(keyCut, masterCut)}, controlCut);
}

char PinCharacter(int steps) {
    return steps < 10 ? std::to_string(steps).back() : static_cast<char>(steps + 55);
}

std::vector<PlacedPin> PlacePins(const PinStack& stack, int keyCut) {
    std::vector<PlacedPin> pins;
    double at = -keyCut - kBottomPinBase;
    const auto place = [&](PlacedPin::Kind kind, int steps, int length) {
        pins.push_back({kind, steps, at, at + length});
        at += length;
    };
    place(PlacedPin::Kind::Bottom, stack.bottom, stack.bottom + kBottomPinBase);
    for (const int wafer : stack.wafers)
        place(PlacedPin::Kind::Master, wafer, wafer);
    if (stack.control)
        place(PlacedPin::Kind::Control, *stack.control, *stack.control);
    if (stack.driver)
        place(PlacedPin::Kind::Driver, *stack.driver, *stack.driver);
    else
        place(PlacedPin::Kind::Driver, -1, kPlainDriver);
    return pins;
}

} // namespace quorrel
