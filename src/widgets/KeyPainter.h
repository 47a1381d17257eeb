#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QPalette;

namespace quorrel {

/// What stands in the bow of a key, so that its relation to the selected one is told without its
/// colour.
enum class KeyMark { None, Down, Up, Square };

/// How a key is drawn: the bow of a labelled key is filled, a line marks one not recommended.
struct KeyLook {
    QColor colour;
    bool filled = false;
    bool notRecommended = false;
    bool blank = false; ///< no key at all, only its place
    KeyMark mark = KeyMark::None;
    QColor plate = {}; ///< what the key lies on; none when invalid
    QColor line = {};  ///< of the line that marks a key not recommended
};

/// Whether a palette's windows are dark.
bool IsDark(const QPalette& palette);

/// The look of a cell's state on light or on dark windows; the state must have a picture. Every
/// colour stands off from a window, and from its plate, by 3 to 1 or more.
KeyLook LookOfState(int state, bool onDark);

/// Draws a key, bow to the left, as large as fits into `bounds` with the proportion 15 to 7; its
/// plate fills the bounds.
void PaintKey(QPainter& painter, const QRectF& bounds, const KeyLook& look);

} // namespace quorrel
