#include "widgets/KeyPainter.h"

#include "engine/CellStates.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QTransform>

#include <algorithm>
#include <array>

namespace quorrel {

namespace {

/// The colours of the relations that a key can have to the selected one, and of the line under a
/// key that is not recommended.
struct Colours {
    std::array<QColor, 5> relations;
    QColor plate, line;
};

const Colours& ColoursFor(bool onDark) {
    static const Colours light = {{QColor(0x6b, 0x72, 0x80),  // unselected
                                   QColor(0xc8, 0x1e, 0x1e),  // selected
                                   QColor(0x15, 0x80, 0x3d),  // sub key
                                   QColor(0xb4, 0x53, 0x09),  // master above
                                   QColor(0x7e, 0x22, 0xce)}, // master below
                                  QColor(0xfd, 0xe2, 0xe2),
                                  QColor(0x1d, 0x4e, 0xd8)};
    static const Colours dark = {{QColor(0x9c, 0xa3, 0xaf), QColor(0xff, 0x7b, 0x7b),
                                  QColor(0x4a, 0xde, 0x80), QColor(0xf5, 0xa6, 0x23),
                                  QColor(0xc9, 0x94, 0xfd)},
                                 QColor(0x5b, 0x1f, 0x1f),
                                 QColor(0x60, 0xa5, 0xfa)};
    return onDark ? dark : light;
}

KeyMark MarkOf(int relation) {
    switch (relation) {
    case cellstate::kSub:
        return KeyMark::Down;
    case cellstate::kPreMaster:
        return KeyMark::Up;
    case cellstate::kSubMaster:
        return KeyMark::Square;
    default:
        return KeyMark::None;
    }
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

/// A mark in the bow of the key.
QPainterPath MarkPath(KeyMark mark) {
    constexpr double reach = 1.5;
    const QPointF centre(3.3, 3.5);
    QPainterPath path;
    if (mark == KeyMark::Square) {
        path.addRect(QRectF(centre - QPointF(1.2, 1.2), QSizeF(2.4, 2.4)));
        return path;
    }
    const double tip = mark == KeyMark::Up ? -reach : reach;
    path.moveTo(centre + QPointF(0, tip));
    path.lineTo(centre + QPointF(-reach, -tip * 0.7));
    path.lineTo(centre + QPointF(reach, -tip * 0.7));
    path.closeSubpath();
    return path;
}

/// What is cut out of a filled bow: its mark or, without one, the hole for the ring.
QPainterPath Hole(KeyMark mark) {
    if (mark != KeyMark::None)
        return MarkPath(mark);
    QPainterPath hole;
    hole.addEllipse(QPointF(2.3, 3.5), 0.9, 0.9);
    return hole;
}

/// Joining the paths takes time, so each shape is made once.
const QPainterPath& ShapeOf(const KeyLook& look) {
    static const QPainterPath outline = Outline();
    static const std::array<QPainterPath, 4> pierced = {
        Joined(outline, Hole(KeyMark::None), false), Joined(outline, Hole(KeyMark::Down), false),
        Joined(outline, Hole(KeyMark::Up), false), Joined(outline, Hole(KeyMark::Square), false)};
    return look.filled ? pierced.at(static_cast<std::size_t>(look.mark)) : outline;
}

void PaintPlate(QPainter& painter, const QRectF& bounds, const KeyLook& look) {
    painter.setPen(QPen(look.colour, 1));
    painter.setBrush(look.plate);
    painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

} // namespace

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

KeyLook LookOfState(int state, bool onDark) {
    const Colours& colours = ColoursFor(onDark);
    KeyLook look;
    look.colour = colours.relations[0];
    look.blank = state == cellstate::kBlank;
    if (look.blank)
        return look;
    const int relation = state % 10;
    look.colour = colours.relations.at(static_cast<std::size_t>(relation));
    look.filled = state / 10 % 2 == 1;
    look.notRecommended = state >= cellstate::kNotRecommended;
    look.mark = MarkOf(relation);
    if (relation == cellstate::kActive)
        look.plate = colours.plate;
    look.line = colours.line;
    return look;
}

void PaintKey(QPainter& painter, const QRectF& bounds, const KeyLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (look.plate.isValid())
        PaintPlate(painter, bounds, look);
    const double share = look.plate.isValid() ? 0.9 : 1;
    const double scale = share * std::min(bounds.width() / kWidth, bounds.height() / kHeight);
    painter.translate(bounds.center());
    painter.scale(scale, scale);
    painter.translate(-kWidth / 2, -kHeight / 2);
    if (look.blank) {
        painter.fillRect(QRectF(3, 3.2, 9, 0.6), look.colour);
        painter.restore();
        return;
    }
    QPen pen(look.colour, 0.8);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(look.filled ? QBrush(look.colour) : QBrush(Qt::NoBrush));
    // The outline of a filled one would narrow its mark.
    if (look.filled && look.mark != KeyMark::None)
        painter.setPen(Qt::NoPen);
    painter.drawPath(ShapeOf(look));
    if (!look.filled && look.mark != KeyMark::None)
        painter.fillPath(MarkPath(look.mark), look.colour);
    if (look.notRecommended) {
        painter.setPen(QPen(look.line, 1.1));
        painter.drawLine(QPointF(0.6, 6.5), QPointF(14.4, 6.5));
    }
    painter.restore();
}

} // namespace quorrel
