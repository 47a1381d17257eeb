#pragma once

#include "pinning/PinningChart.h"

#include <optional>

namespace quorrel {

/// Which way to go from one named key to another.
enum class Step { Previous, Next };

/// The nearest key with a Key ID before or after the one of a request, in the order of `Serial`
/// of the open system, as a request for its chart; nothing when there is none.
std::optional<PinningRequest> FindNamedKey(Session& session, const PinningRequest& from, Step step);

} // namespace quorrel
