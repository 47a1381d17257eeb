#pragma once

#include "pinning/PinningChart.h"

#include <QColor>
#include <QRectF>

class QPainter;

namespace quorrel {

/// What the drawing of a cylinder is drawn with besides the colours of its pins.
struct CylinderLook {
    QColor ink;     ///< outlines and words
    QColor paper;   ///< the room of a chamber
    QColor plug;    ///< what turns with the key
    QColor housing; ///< what stays
    QColor shear;   ///< the shear lines and what is flagged
};

/// Black on white, for paper.
CylinderLook PaperLook();

/// Draws the cylinder in section with the key in it, as large as fits: the chambers with their
/// pins to scale, the shear line and a core's control shear line, and under them the key's
/// bitting. Chambers that cannot be loaded as their figures say are framed.
void PaintCylinder(QPainter& painter, const QRectF& bounds, const PinningChart& chart,
                   const CylinderLook& look);

} // namespace quorrel
