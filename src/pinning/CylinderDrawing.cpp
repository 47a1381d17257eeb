#include "pinning/CylinderDrawing.h"

#include "pinning/CylinderPainter.h"

#include <QPainter>

namespace quorrel {

namespace {

CylinderLook LookOn(const QPalette& palette) {
    if (palette.color(QPalette::Window).lightness() >= 128)
        return PaperLook();
    return {palette.color(QPalette::WindowText), QColor(0x20, 0x22, 0x26), QColor(0x4a, 0x44, 0x36),
            QColor(0x3c, 0x40, 0x47), QColor(0xff, 0x78, 0x78)};
}

} // namespace

CylinderDrawing::CylinderDrawing(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Drawing of the cylinder"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CylinderDrawing::SetChart(const PinningChart& chart) {
    m_chart = chart;
    setAccessibleDescription(DescribeCylinder(chart).join(QStringLiteral(".\n")));
    update();
}

void CylinderDrawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintCylinder(painter, rect(), m_chart, LookOn(palette()));
}

} // namespace quorrel
