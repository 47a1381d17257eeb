#include "widgets/KeyArt.h"

#include "widgets/KeyPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <cmath>
#include <numbers>

namespace quorrel {

namespace {

const QColor kBrass(0xc7, 0x96, 0x2b);

void PaintEmblem(QPainter& painter, const QRectF& bounds, double turn) {
    const double open = std::max(0.08, std::abs(std::cos(turn * 2 * std::numbers::pi)));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(bounds.center());
    painter.scale(1, open);
    painter.translate(-bounds.center());
    PaintKey(painter, bounds, {kBrass.darker(100 + static_cast<int>((1 - open) * 60)), true});
    painter.restore();
}

} // namespace

void KeyArt::SetTurn(double turn) {
    m_turn = turn;
    update();
}

void KeyArt::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double margin = std::min(width(), height()) * 0.12;
    PaintEmblem(painter, QRectF(rect()).adjusted(margin, margin, -margin, -margin), m_turn);
}

QPixmap KeyEmblem(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double s = size;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x22, 0x3a, 0x4e));
    painter.drawRoundedRect(QRectF(0, 0, s, s), s * 0.18, s * 0.18);
    PaintEmblem(painter, QRectF(s * 0.1, s * 0.1, s * 0.8, s * 0.8), 0);
    return picture;
}

} // namespace quorrel
