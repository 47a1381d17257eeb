#pragma once

class QPagedPaintDevice;
class QWidget;

namespace quorrel {

/// Paints the image of a window, in light colours whatever those of the screen are, as large as
/// fits on one page. What has to be scrolled to be seen whole follows on pages of its own. Throws
/// `PrintError` when the device takes no page.
void PaintFormImage(QPagedPaintDevice& device, QWidget& window);

} // namespace quorrel
