#pragma once

#include "engine/SystemDefinition.h"

#include <functional>
#include <optional>
#include <string>

namespace quorrel {

/// Gives a number from 0 up to but not including 1.
using RandomNumber = std::function<double()>;

/// True when some master key meets the rules of `DrawRandomMaster`.
bool RandomMasterExists(const SystemDefinition& definition);

/// Draws a master key of `definition.pins` cuts from the smallest cut to one below the largest.
/// One of the first two cuts is the highest that is drawn, one of the last two lies within two of
/// the lowest, and no adjoining cuts differ by more than the safety factor. Seven digits are drawn
/// as one number; leading zeros drop out of it, and the places left open are cut 0.
/// Empty when no master key can meet the rules.
std::optional<std::string> DrawRandomMaster(const SystemDefinition& definition,
                                            const RandomNumber& random);

} // namespace quorrel
