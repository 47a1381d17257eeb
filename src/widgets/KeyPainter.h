#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace quorrel {

/// How a key is drawn: the bow of a labelled key is filled, a line marks one not recommended.
struct KeyLook {
    QColor colour;
    bool filled = false;
    bool notRecommended = false;
    bool blank = false; ///< no key at all, only its place
};

/// The look of a cell's state; the state must have a picture.
KeyLook LookOfState(int state);

/// Draws a key, bow to the left, as large as fits into `bounds` with the proportion 15 to 7.
void PaintKey(QPainter& painter, const QRectF& bounds, const KeyLook& look);

} // namespace quorrel
