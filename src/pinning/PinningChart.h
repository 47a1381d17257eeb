#pragma once

#include "engine/PinStack.h"
#include "store/Session.h"

#include <QStringList>

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

/// Sizes of a chamber's pins, as far as the brand's table tells them.
struct ChamberSizes {
    QString bottom, master;
};

/// How a cylinder is pinned for a key.
struct PinningChart {
    PinningRequest request;
    Cylinder cylinder;
    std::vector<ChamberSizes> sizes; ///< a chamber each
    /// Sizes of the stacked pins of 10 to 19 steps, for a core.
    std::array<QString, 10> tallPins;
};

/// A line of the chart's table: a figure or a size a chamber.
struct ChartLine {
    QString heading;
    QString name; ///< of the labels that show it
    bool sizes = false;
    QStringList figures;
};

/// The table from the top down, in the order in which the pins stand in the cylinder.
std::vector<ChartLine> ChartLines(const PinningChart& chart);

/// True when the key shares a cut with the master key, so that it is a master level key itself.
bool IsMasterLevel(const PinningRequest& request);

/// Works the chart out with the pin sizes of the lock brand; an unknown brand has none. Throws
/// `std::runtime_error` when the request's cuts are not a digit a chamber.
PinningChart MakePinningChart(Session& session, const PinningRequest& request);

/// Asks before a master level key gets a chart, and makes it. Nothing when the last message, this
/// question or whichever came before it, was answered with Cancel. Throws as `MakePinningChart`.
std::optional<PinningChart> LoadPinningChart(Session& session, const PinningRequest& request);

/// Sizes of the stacks of 10 to 19 steps out of two or three master pins. `topSizes` are those of
/// the brand, for 0 to 9 steps.
std::array<QString, 10> TallPins(const std::array<QString, 10>& topSizes);

/// What is to be said before a key with the cuts of the control key is handed out.
QString ControlKeyWarning();

/// What speaks against pinning a cylinder so, a line each.
QStringList ChartWarnings(const PinningChart& chart);

/// What else is worth knowing, a line each: chambers of one cut, sizes that the brand lacks.
QStringList ChartNotes(const PinningChart& chart);

} // namespace quorrel
