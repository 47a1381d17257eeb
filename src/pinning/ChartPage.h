#pragma once

#include "pinning/PinningChart.h"

#include <QDate>

class QPagedPaintDevice;
class QPainter;
class QSizeF;

namespace quorrel {

/// Paints a pinning chart with its drawing, black on white, from the origin on. It is made as small
/// as it must be to keep within `size`; both are points.
void PaintChartPage(QPainter& painter, const QSizeF& size, const PinningChart& chart,
                    const QString& title, const QDate& date);

/// Prints a pinning chart with its drawing on one page, black on white. Throws
/// `PrintError` when the device takes no page.
void PrintChartPage(QPagedPaintDevice& device, const PinningChart& chart, const QString& title,
                    const QDate& date);

} // namespace quorrel
