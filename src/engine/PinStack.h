#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorrel {

/// Steps from the bottom of the lowest pin to the top of the highest in a core's chamber, less the
/// length that every bottom pin has anyway.
inline constexpr int kCoreStackHeight = 23;

/// Steps from the operating shear line of a core up to its control shear line.
inline constexpr int kControlShearLine = 10;

/// What one chamber of a cylinder is loaded with, in steps of the cut depth. Only the chamber of
/// an interchangeable core tells its control and driver pin.
struct PinStack {
    int bottom = 0;
    std::vector<int> wafers; ///< the master pins from the bottom up, none less than a step
    std::optional<int> control, driver;

    /// Steps of all wafers together; 0 where the chamber opens to one cut alone.
    int Master() const;

    /// A wafer of a single step, which may tilt and jam the cylinder.
    bool HasThinWafer() const;

    friend bool operator==(const PinStack&, const PinStack&) = default;
};

/// The pins of a chamber that opens to each of these cuts, 0 to 9 in ascending order: the bottom
/// pin reaches the lowest, and a wafer bridges the way from each to the next. Throws
/// `std::invalid_argument` when there is no cut.
PinStack StackOf(const std::vector<int>& cuts);

/// As `StackOf`, for a core that a control key draws: with the control key the top of the control
/// pin stands at the control shear line. The pins add up to `kCoreStackHeight`.
PinStack CoreStackOf(const std::vector<int>& cuts, int controlCut);

/// The usual two cuts of a chamber: those of a key and of the master key, which may be the same.
PinStack StackOf(int keyCut, int masterCut);
PinStack CoreStackOf(int keyCut, int masterCut, int controlCut);

/// A number of steps as one character: 10 is A, 11 B and so on; a number below 10 shows its last
/// digit, so one below 0 shows without its sign.
char PinCharacter(int steps);

/// A cylinder with a key in it.
struct Cylinder {
    std::string key;              ///< a digit a chamber
    std::vector<PinStack> stacks; ///< chamber by chamber; a core's count from the key's tip
    bool core = false;
};

/// One pin as it stands in its chamber, with a key in the cylinder. Heights are steps above the
/// operating shear line.
struct PlacedPin {
    enum class Kind { Bottom, Master, Control, Driver };
    Kind kind = Kind::Bottom;
    int steps = 0; ///< its figure
    double from = 0, to = 0;
};

/// The part of a bottom pin that every bottom pin has, in steps: what a pin of 0 steps still is.
inline constexpr int kBottomPinBase = 4;

/// Steps that the driver of a standard cylinder is drawn with; its length is not figured.
inline constexpr int kPlainDriver = 7;

/// The pins of a chamber from the bottom up, resting on a key of this cut. A standard cylinder
/// gets a plain driver with -1 steps, which stands for no figure.
std::vector<PlacedPin> PlacePins(const PinStack& stack, int keyCut);

} // namespace quorrel
