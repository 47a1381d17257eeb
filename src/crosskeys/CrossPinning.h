#pragma once

#include "doors/CrossKeys.h"
#include "engine/PinStack.h"
#include "pinning/PinningChart.h"

#include <QStringList>

#include <array>

namespace quorrel {

/// How the cylinder of a cross-keyed door is pinned.
struct CrossPinning {
    CrossKeyCuts cuts;                             ///< element 0 the master key, then the boxes
    std::array<QString, kCrossKeys + 1> remarks{}; ///< beside each of them; mostly empty
    CrossKeying keying;
    Cylinder cylinder;               ///< with the master key in it
    std::vector<ChamberSizes> sizes; ///< a chamber each, the whole span as one master pin
    QStringList notes;               ///< what is worth knowing of it, a line each
};

/// What the box of a Key ID is told beside it: that it means no key, or several. `element` counts
/// from 1.
QString RemarkOn(const Session& session, int element, const MeantKey& meant);

/// Works out the pins for the keys of a door's page. Throws `std::runtime_error` when the cuts of
/// the master key or of the control key are no digit a chamber, and `SystemGone`.
CrossPinning CalculateCrossPinning(Session& session, const CrossKeyIDs& keyIDs);

/// The element of one of the rows of an interchangeable core's panel, a chamber each.
struct CorePanel {
    QStringList bottom, top, control, driver, topSizes, bottomSizes;
};
CorePanel CorePanelOf(const CrossPinning& pinning);

} // namespace quorrel
