#include "crosskeys/BusyPicture.h"

#include <QPainter>

namespace quorrel {

BusyPicture::BusyPicture(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Working"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    hide();
}

void BusyPicture::Begin() {
    m_frame = kFirstFrame;
    show();
}

void BusyPicture::Advance() {
    m_frame = m_frame == kLastFrame ? kFirstFrame : m_frame + 1;
    update();
}

void BusyPicture::paintEvent(QPaintEvent*) {
    constexpr double fullTurn = 360;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    painter.scale(width() / 28.0, height() / 28.0);
    painter.rotate(fullTurn * (m_frame - kFirstFrame) / (kLastFrame - kFirstFrame + 1));
    painter.setPen(QPen(palette().color(QPalette::WindowText), 2));
    painter.drawEllipse(QPointF(0, -6), 4, 4);
    painter.drawLine(QPointF(0, -2), QPointF(0, 11));
    painter.drawLine(QPointF(0, 10), QPointF(4, 10));
    painter.drawLine(QPointF(0, 6), QPointF(3, 6));
}

} // namespace quorrel
