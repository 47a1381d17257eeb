#pragma once

#include "engine/PinStack.h"
#include "store/Session.h"

#include <QString>

#include <string>
#include <vector>

namespace quorrel {

/// The pins of each chamber of a cylinder for a key of the open system. None without the right to
/// read cuts, or when the cuts are not a digit a chamber.
std::vector<PinStack> PinsOf(const Session& session, const std::string& cuts);

/// Cuts as reports print them; asterisks without the right to read them.
QString PrintedCuts(const Session& session, const std::string& cuts);

/// The pins of one kind, two characters a chamber: from 10 steps on a letter, A for 10.
QString BottomPins(const std::vector<PinStack>& pins);
QString TopPins(const std::vector<PinStack>& pins);
QString ControlPins(const std::vector<PinStack>& pins);
QString DriverPins(const std::vector<PinStack>& pins);

} // namespace quorrel
