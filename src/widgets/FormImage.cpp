#include "widgets/FormImage.h"

#include "print/SheetPainter.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QScrollArea>
#include <QWidget>

#include <vector>

namespace quorrel {

namespace {

/// Gives a window light colours for as long as it lives.
class LightColours {
public:
    explicit LightColours(QWidget& window) : m_window(window), m_before(window.palette()) {
        m_window.setPalette(QPalette(QColor(240, 240, 240)));
    }
    ~LightColours() { m_window.setPalette(m_before); }
    LightColours(const LightColours&) = delete;
    LightColours& operator=(const LightColours&) = delete;

private:
    QWidget& m_window;
    QPalette m_before;
};

/// Dots of the printed image for each of the screen.
constexpr double kSharpness = 3;

/// Draws a widget as large as fits on the page. By way of an image: only there is what has scrolled
/// out of sight left out.
void DrawWidget(QPainter& painter, QWidget& widget) {
    QImage image((QSizeF(widget.size()) * kSharpness).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(kSharpness);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    const QSizeF page(painter.device()->width(), painter.device()->height());
    painter.drawImage(QRectF(QPointF(), QSizeF(widget.size()).scaled(page, Qt::KeepAspectRatio)),
                      image);
}

/// What a window shows only in part, to be scrolled.
std::vector<QWidget*> ScrolledParts(const QWidget& window) {
    std::vector<QWidget*> parts;
    for (const QScrollArea* area : window.findChildren<QScrollArea*>())
        if (QWidget* whole = area->widget(); area->isVisible() && whole &&
                                             (whole->width() > area->viewport()->width() ||
                                              whole->height() > area->viewport()->height()))
            parts.push_back(whole);
    return parts;
}

} // namespace

void PaintFormImage(QPagedPaintDevice& device, QWidget& window) {
    const LightColours colours(window);
    QPainter painter;
    if (!painter.begin(&device))
        throw NoPageTaken();
    DrawWidget(painter, window);
    for (QWidget* part : ScrolledParts(window)) {
        device.newPage();
        DrawWidget(painter, *part);
    }
}

} // namespace quorrel
