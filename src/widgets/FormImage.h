#pragma once

#include <QPageLayout>

#include <functional>

class QPagedPaintDevice;
class QString;
class QWidget;

namespace quorrel {

/// Writes a PDF file on the paper that is usual here, by painting on it. Throws
/// `std::runtime_error` when `paint` does, which means that the file cannot be written.
void WritePdf(const QString& path, const QString& title, QPageLayout::Orientation orientation,
              const std::function<void(QPagedPaintDevice&)>& paint);

/// Prints the image of a window into a PDF file, in light colours whatever those of the screen are,
/// as large as fits on one page. What has to be scrolled to be seen whole follows on pages of its
/// own. Throws as `WritePdf`.
void PrintFormImage(QWidget& window, const QString& path, const QString& title);

} // namespace quorrel
