#pragma once

#include "engine/PinStack.h"
#include "store/Session.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace quorrel {

/// How the chart of a core writes steps from 10 on.
inline constexpr const char* kPinLetters =
    "A=10  B=11  C=12  D=13  E=14  F=15  G=16  H=17  I=18  J=19";

/// The key to pin a cylinder for, as the main form shows it.
struct PinningRequest {
    QString system, address, lockBrand;
    QString department, description, keyID, keyway;
    std::string key;     ///< its cuts, one digit a chamber
    std::string master;  ///< the cuts of the system's master key
    std::string control; ///< the cuts of the control key; empty for a system without one

    bool IsCore() const { return !control.empty(); }
};

/// One chamber of the chart: its pins, and the sizes of those that the brand's table tells.
struct ChartChamber {
    PinStack pins;
    QString bottomSize, masterSize;
};

/// How a cylinder is pinned for a key.
struct PinningChart {
    PinningRequest request;
    std::vector<ChartChamber> chambers; ///< from the bow of the key
    /// Sizes of the stacked pins of 10 to 19 steps, for a core.
    std::array<QString, 10> tallPins;
};

/// Steps of a control or driver pin as the chart writes them.
QString PinFigure(int steps);

/// True when the key shares a cut with the master key, so that it is a master level key itself.
bool IsMasterLevel(const PinningRequest& request);

/// Works the chart out with the pin sizes of the lock brand; an unknown brand has none.
PinningChart MakePinningChart(Session& session, const PinningRequest& request);

/// Asks before a master level key gets a chart, and makes it. Nothing when the last message, this
/// question or whichever came before it, was answered with Cancel.
std::optional<PinningChart> LoadPinningChart(Session& session, const PinningRequest& request);

/// Sizes of the stacks of 10 to 19 steps out of two or three top pins. `topSizes` are those of the
/// brand, for 0 to 9 steps.
std::array<QString, 10> TallPins(const std::array<QString, 10>& topSizes);

/// What the drawing of the cylinder shows, in words, a chamber a line.
QStringList DescribeCylinder(const PinningChart& chart);

/// What cannot be made as the figures say, a flaw a line.
QStringList DescribeFlaws(const PinningChart& chart);

} // namespace quorrel
