#include "reports/KeyPins.h"

#include <utility>

namespace quorrel {

namespace {

int CutAt(const std::string& cuts, std::size_t chamber) {
    return cuts[chamber] - '0';
}

bool AreCuts(const std::string& cuts, int pins) {
    return std::cmp_equal(cuts.size(), pins) &&
           cuts.find_first_not_of("0123456789") == std::string::npos;
}

template <class Steps>
QString PinRow(const std::vector<PinStack>& pins, Steps&& steps) {
    QString row;
    for (const PinStack& stack : pins)
        row += QLatin1Char(PinCharacter(steps(stack))) + QStringLiteral(" ");
    return row;
}

} // namespace

std::vector<PinStack> PinsOf(const Session& session, const std::string& cuts) {
    const OpenSystem& system = session.System;
    if (!session.SessionPermissions.ReadPrintPinning || !AreCuts(cuts, system.PinCount) ||
        !AreCuts(system.MasterKeyCuts, system.PinCount) ||
        (system.SystemIsIC && !AreCuts(system.SpecialCuts, system.PinCount)))
        return {};
    std::vector<PinStack> pins;
    for (std::size_t chamber = 0; chamber < cuts.size(); ++chamber) {
        const int key = CutAt(cuts, chamber), master = CutAt(system.MasterKeyCuts, chamber);
        pins.push_back(system.SystemIsIC
                           ? CoreStackOf(key, master, CutAt(system.SpecialCuts, chamber))
                           : StackOf(key, master));
    }
    return pins;
}

QString PrintedCuts(const Session& session, const std::string& cuts) {
    return session.SessionPermissions.ReadPrintPinning ? QString::fromStdString(cuts)
                                                       : QStringLiteral("********");
}

QString BottomPins(const std::vector<PinStack>& pins) {
    return PinRow(pins, [](const PinStack& stack) { return stack.bottom; });
}

QString TopPins(const std::vector<PinStack>& pins) {
    return PinRow(pins, [](const PinStack& stack) { return stack.Master(); });
}

QString ControlPins(const std::vector<PinStack>& pins) {
    return PinRow(pins, [](const PinStack& stack) { return stack.control.value_or(0); });
}

QString DriverPins(const std::vector<PinStack>& pins) {
    return PinRow(pins, [](const PinStack& stack) { return stack.driver.value_or(0); });
}

} // namespace quorrel
