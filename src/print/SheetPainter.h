#pragma once

#include "print/PrintedPages.h"

#include <QHash>
#include <QImage>

#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace quorrel {

/// Draws sheets, on paper or on the screen. A picture is read once.
class SheetPainter {
public:
    /// Draws a sheet from the origin on, a point of its layout as a unit of the painter.
    void Paint(QPainter& painter, const PrintedSheet& sheet, const SheetLayout& layout);

private:
    const QImage& ImageOf(const QString& path);

    QHash<QString, QImage> m_images;
};

/// A picture that is read from a file, at its size on a screen of 96 dots an inch. Empty where the
/// file is missing or no picture.
Picture PictureFrom(const QString& path);

/// Draws sheet by sheet on a device, which is set up for the paper. `goesOn`, asked before each
/// sheet with how many are drawn, may end it. Throws `std::runtime_error` when the device takes no
/// page. False when it was ended.
bool PaintPages(QPagedPaintDevice& device, const PrintedPages& pages,
                const std::function<bool(int)>& goesOn = {});

/// Sets the paper and the margins of a device for what was laid out.
void SetUpPaper(QPagedPaintDevice& device, const SheetLayout& layout);

/// Writes what was laid out into a PDF file, whole or not at all. Throws `std::runtime_error` when
/// that cannot be done. False when `goesOn` has ended it.
bool WritePagesToPdf(const QString& path, const PrintedPages& pages,
                     const std::function<bool(int)>& goesOn = {});

} // namespace quorrel
