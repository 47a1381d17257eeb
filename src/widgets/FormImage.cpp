#include "widgets/FormImage.h"

#include <QDir>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QWidget>

#include <algorithm>
#include <stdexcept>

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

} // namespace

void WritePdf(const QString& path, const QString& title, QPageLayout::Orientation orientation,
              const std::function<void(QPagedPaintDevice&)>& paint) {
    QPdfWriter writer(path);
    const bool metric = QLocale().measurementSystem() == QLocale::MetricSystem;
    writer.setPageSize(QPageSize(metric ? QPageSize::A4 : QPageSize::Letter));
    writer.setPageOrientation(orientation);
    writer.setPageMargins({15, 15, 15, 15}, QPageLayout::Millimeter);
    writer.setTitle(title);
    try {
        paint(writer);
    } catch (const std::runtime_error&) {
        throw std::runtime_error(QObject::tr("The file %1 cannot be written.")
                                     .arg(QDir::toNativeSeparators(path))
                                     .toStdString());
    }
}

void PrintFormImage(QWidget& window, const QString& path, const QString& title) {
    const LightColours colours(window);
    WritePdf(path, title, QPageLayout::Landscape, [&](QPagedPaintDevice& device) {
        QPainter painter;
        if (!painter.begin(&device))
            throw std::runtime_error("No page");
        const double scale = std::min(device.width() / static_cast<double>(window.width()),
                                      device.height() / static_cast<double>(window.height()));
        painter.scale(scale, scale);
        window.render(&painter);
    });
}

} // namespace quorrel
