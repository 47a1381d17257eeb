#include "widgets/KeyPainter.h"

#include "engine/CellStates.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <array>

namespace quorrel {

namespace {

/// Colours that stand off from a light and from a dark window alike.
QColor ColourOf(int relation) {
    static const std::array<QColor, 5> colours = {QColor(0x8a, 0x90, 0x99),  // unselected
                                                  QColor(0xd9, 0x2b, 0x2b),  // selected
                                                  QColor(0x1f, 0x99, 0x4a),  // sub key
                                                  QColor(0xd9, 0x80, 0x0a),  // master above
                                                  QColor(0x97, 0x4b, 0xc4)}; // master below
    return colours.at(static_cast<std::size_t>(relation));
}

constexpr double kWidth = 15;
constexpr double kHeight = 7;

/// Joining paths turns curves into lines of a length that suits whole units. So the key is put
/// together this much larger than it is drawn from, and its bow stays round at any size.
constexpr double kFineness = 100;

QPainterPath Joined(const QPainterPath& path, const QPainterPath& other, bool add) {
    const QTransform up = QTransform::fromScale(kFineness, kFineness);
    const QPainterPath whole =
        add ? up.map(path).united(up.map(other)) : up.map(path).subtracted(up.map(other));
    return up.inverted().map(whole);
}

/// The key in a field of 15 x 7 units, its cuts upwards.
QPainterPath Outline() {
    QPainterPath blade;
    blade.moveTo(5, 2.4);
    const std::array<QPointF, 10> edge = {QPointF(7, 2.4), {7.6, 3.2},  {8.4, 3.2},  {9, 2.2},
                                          {9.8, 2.2},      {10.4, 3.4}, {11.2, 3.4}, {11.8, 2.6},
                                          {13, 2.6},       {14.4, 3.6}};
    for (const QPointF& point : edge)
        blade.lineTo(point);
    blade.lineTo(13.4, 4.6);
    blade.lineTo(5, 4.6);
    blade.closeSubpath();
    QPainterPath bow;
    bow.addEllipse(QPointF(3.3, 3.5), 2.9, 2.9);
    return Joined(bow, blade, true);
}

} // namespace

KeyLook LookOfState(int state) {
    if (state == cellstate::kBlank)
        return {ColourOf(0), false, false, true};
    return {ColourOf(state % 10), state / 10 % 2 == 1, state >= cellstate::kNotRecommended, false};
}

void PaintKey(QPainter& painter, const QRectF& bounds, const KeyLook& look) {
    const double scale = std::min(bounds.width() / kWidth, bounds.height() / kHeight);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(bounds.center());
    painter.scale(scale, scale);
    painter.translate(-kWidth / 2, -kHeight / 2);
    if (look.blank) {
        QColor faint = look.colour;
        faint.setAlphaF(0.45F);
        painter.fillRect(QRectF(3, 3.1, 9, 0.8), faint);
        painter.restore();
        return;
    }
    static const QPainterPath outline = Outline();
    static const QPainterPath pierced = [] {
        QPainterPath hole;
        hole.addEllipse(QPointF(2.3, 3.5), 0.9, 0.9);
        return Joined(outline, hole, false);
    }();
    QPen pen(look.colour, 0.8);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(look.filled ? QBrush(look.colour) : QBrush(Qt::NoBrush));
    painter.drawPath(look.filled ? pierced : outline);
    if (look.notRecommended) {
        painter.setPen(QPen(QColor(0x14, 0x6e, 0xff), 1.1));
        painter.drawLine(QPointF(0.6, 6.5), QPointF(14.4, 6.5));
    }
    painter.restore();
}

} // namespace quorrel
