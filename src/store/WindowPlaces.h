#pragma once

#include "store/Session.h"

namespace quorrel {

/// Takes over where windows stood when the program was left last, for those that have not been
/// shown in this run. A failure is noted in the log: windows then come up in their usual places.
void LoadPlaces(Session& session);

/// Keeps where windows stand for the next run, those alone that stand elsewhere than is stored. A
/// failure is noted in the log.
void SavePlaces(Session& session);

} // namespace quorrel
