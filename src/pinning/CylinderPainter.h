#pragma once

#include "pinning/PinLayout.h"

#include <QColor>
#include <QRectF>
#include <QTransform>

class QPainter;
class QPalette;

namespace quorrel {

/// What the drawing of a cylinder is drawn with besides the colours of its pins.
struct CylinderLook {
    QColor ink;     ///< outlines and words
    QColor paper;   ///< the room of a chamber, and what figures beside pins stand on
    QColor plug;    ///< what turns with the key
    QColor housing; ///< what stays
    QColor shear;   ///< the shear lines and what is flagged
};

/// Black on white, for paper.
CylinderLook PaperLook();

/// The look that stands off from a window of these colours.
CylinderLook LookOn(const QPalette& palette);

/// From the lengths of a layout to the device's: as large as fits into the middle of `bounds`.
QTransform FitLayout(const PinLayout& layout, const QRectF& bounds);

/// Draws the cylinder in section with the key in it, as large as fits: the chambers with their
/// pins to scale, the shear line and a core's control shear line, and under them the key's
/// bitting. Wafers of one step are flagged. The figures are painted over everything else.
void PaintCylinder(QPainter& painter, const QRectF& bounds, const Cylinder& cylinder,
                   const CylinderLook& look);

} // namespace quorrel
