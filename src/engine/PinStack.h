#pragma once

#include <optional>
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
    int master = 0; ///< 0 where the key shares the master's cut
    std::optional<int> control, driver;

    friend bool operator==(const PinStack&, const PinStack&) = default;
};

/// The pins of a chamber that a key and the master key of the system open: the bottom pin reaches
/// the lower of their cuts, the master pin bridges the two. Cuts are 0 to 9.
PinStack StackOf(int keyCut, int masterCut);

/// As `StackOf`, for a core that a control key draws: with the control key the top of the control
/// pin stands at the control shear line. The four pins add up to `kCoreStackHeight`.
PinStack CoreStackOf(int keyCut, int masterCut, int controlCut);

/// A number of steps as one character: 10 is A, 11 B and so on; a number below 10 shows its last
/// digit, so one below 0 shows without its sign.
char PinCharacter(int steps);

/// Why a chamber cannot be loaded as its figures say.
enum class PinFlaw {
    NoMasterPin, ///< the master pin is less than one step
    NoDriverPin, ///< the driver pin of a core is less than one step
    NoControlPin ///< the control pin is less than nothing
};

/// What is wrong with a chamber's pins, none when they can be made.
std::vector<PinFlaw> FlawsOf(const PinStack& stack);

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

/// The pins of a chamber from the bottom up, resting on a key of this cut. A pin without length is
/// left out; a standard cylinder gets a plain driver with -1 steps, which stands for no figure.
std::vector<PlacedPin> PlacePins(const PinStack& stack, int keyCut);

} // namespace quorrel
