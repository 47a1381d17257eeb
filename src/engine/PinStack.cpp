#include "engine/PinStack.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace quorrel {

PinStack StackOf(int keyCut, int masterCut) {
    return {std::min(keyCut, masterCut), std::abs(keyCut - masterCut), {}, {}};
}

PinStack CoreStackOf(int keyCut, int masterCut, int controlCut) {
    PinStack stack = StackOf(keyCut, masterCut);
    const int higher = std::max(keyCut, masterCut);
    stack.control = controlCut + kControlShearLine - higher;
    stack.driver = kCoreStackHeight - *stack.control - higher;
    return stack;
}

char PinCharacter(int steps) {
    return steps < 10 ? std::to_string(steps).back() : static_cast<char>(steps + 55);
}

std::vector<PinFlaw> FlawsOf(const PinStack& stack) {
    std::vector<PinFlaw> flaws;
    if (stack.master < 1)
        flaws.push_back(PinFlaw::NoMasterPin);
    if (stack.driver && *stack.driver < 1)
        flaws.push_back(PinFlaw::NoDriverPin);
    if (stack.control && *stack.control < 0)
        flaws.push_back(PinFlaw::NoControlPin);
    return flaws;
}

std::vector<PlacedPin> PlacePins(const PinStack& stack, int keyCut) {
    std::vector<PlacedPin> pins;
    double at = -keyCut - kBottomPinBase;
    const auto place = [&](PlacedPin::Kind kind, int steps, int length) {
        if (length > 0)
            pins.push_back({kind, steps, at, at + length});
        at += std::max(length, 0);
    };
    place(PlacedPin::Kind::Bottom, stack.bottom, stack.bottom + kBottomPinBase);
    place(PlacedPin::Kind::Master, stack.master, stack.master);
    if (stack.control)
        place(PlacedPin::Kind::Control, *stack.control, *stack.control);
    if (stack.driver)
        place(PlacedPin::Kind::Driver, *stack.driver, *stack.driver);
    else
        place(PlacedPin::Kind::Driver, -1, kPlainDriver);
    return pins;
}

} // namespace quorrel
