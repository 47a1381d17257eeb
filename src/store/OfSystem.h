#pragma once

#include "platform/Query.h"
#include "store/Session.h"

namespace quorrel {

/// Selects what belongs to the open key system, of a table that `Row` holds all or a part of.
template <class Row>
Query<WholeOf<Row>> OfSystem(const Session& session) {
    return Query<WholeOf<Row>>().Where(&WholeOf<Row>::SystemNumber, session.ActiveSystemNumber);
}

} // namespace quorrel
