#pragma once

#include "engine/PinStack.h"

#include <string>
#include <vector>

namespace quorrel {

// All lengths are steps of the cut depth: widths count from the left edge of the drawing, heights
// up from the operating shear line.

/// Half of the width that a shear line is drawn with.
inline constexpr double kHalfShearStroke = 0.16;
inline constexpr double kPinWidth = 5;
/// Room of a figure: as high as a capital letter with a little air around it.
inline constexpr double kFigureHeight = 2.6;
inline constexpr double kFigureWidth = 2.4;
inline constexpr double kFigureInPinWidth = 3.2; ///< which may be a letter
/// Room beside the body for the bow of the key, and on the other side for the names of the lines.
inline constexpr double kBowRoom = 7;
inline constexpr double kTipRoom = 14;
/// The lower edge of the key's blade.
inline constexpr double kBladeEdge = -17;
/// Room of the springs over the longest stack.
inline constexpr double kSpring = 4;
/// Height of a row of words or figures over or under the body.
inline constexpr double kRow = 3;

/// A rectangle of the drawing.
struct LayoutBox {
    double left = 0, right = 0, low = 0, high = 0;

    bool Meets(const LayoutBox& other) const {
        return left < other.right && other.left < right && low < other.high && other.low < high;
    }
};

/// A figure of the drawing and its room. No room meets a shear line or another figure.
struct PlacedFigure {
    enum class Kind { Chamber, Cut, InPin, BesidePin };
    Kind kind = Kind::InPin;
    std::size_t chamber = 0;
    std::size_t pin = 0; ///< of those of the chamber, for the figure of a pin
    std::string text;
    LayoutBox box;
};

/// Where the parts of a cylinder's drawing stand.
struct PinLayout {
    double width = 0;           ///< of the whole drawing
    double low = 0, high = 0;   ///< its lower and upper edge
    double left = 0, right = 0; ///< the sides of the cylinder's body
    double top = 0;             ///< the upper end of the chambers
    std::vector<double> middles;
    std::vector<std::vector<PlacedPin>> pins;
    std::vector<double> shearLines; ///< the operating one, then a core's control shear line
    std::vector<PlacedFigure> figures;
};

/// Lays the drawing out. The bow of the key is on the left; that of a core's key, which is counted
/// from its tip, on the right. The figure of a pin stands in it where it finds room between the
/// pin's ends and the shear lines, else beside it.
PinLayout LayOutPins(const Cylinder& cylinder);

} // namespace quorrel
