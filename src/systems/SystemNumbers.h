#pragma once

#include "store/Session.h"

namespace quorrel {

/// \file
/// The numbers of key systems. None is given twice, not even after its system was deleted: rows of
/// the former system, or its maps, would become those of the new one.

/// The highest number that a system can have.
inline constexpr int kHighestSystemNumber = 32767;

/// The highest number that a map is filed under, in every map file that the session or one of its
/// systems uses; 0 where none can be read.
int HighestNumberOfMaps(Session& session);

/// A number above this one and above any that the key system file has ever had, which is taken by
/// this. Within the caller's transaction. Throws `std::runtime_error` when there is none left.
int TakeSystemNumber(Session& session, int highestOfMaps);

/// Keeps the number of a system that goes from being given again. Within the caller's transaction.
void RetireSystemNumber(Session& session, int number);

} // namespace quorrel
