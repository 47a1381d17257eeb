#pragma once

#include "pinning/PinningChart.h"

#include <QDate>

class QPagedPaintDevice;

namespace quorrel {

/// Prints a pinning chart with its drawing on one page, black on white. Throws
/// `std::runtime_error` when the device takes no page.
void PrintChartPage(QPagedPaintDevice& device, const PinningChart& chart, const QString& title,
                    const QDate& date);

/// Prints the page into a PDF file, on the paper that is usual here. Throws as `PrintChartPage`.
void PrintChartToFile(const QString& path, const PinningChart& chart, const QString& title,
                      const QDate& date);

} // namespace quorrel
