#pragma once

#include <QRectF>
#include <QSizeF>

namespace quorrel {

/// The two sizes of the page view.
enum class PageLayout { Compact, Large };

/// Size of the page frame in twips.
QSizeF PageFrameSize(PageLayout layout);

/// Place of a cell 0 to 108 within the frame, in twips.
QRectF CellPlace(PageLayout layout, int cell);

} // namespace quorrel
