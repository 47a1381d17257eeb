#include "page/KeyCell.h"

#include "engine/CellStates.h"
#include "widgets/KeyPainter.h"
#include "widgets/Manners.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPixmapCache>

namespace quorrel {

namespace {

/// The picture of a state. There are few, and drawing their outlines takes longer than all else
/// that a click on a cell does, so each is drawn once for a size.
QPixmap PictureOf(int state, bool onDark, const QSize& size, double ratio) {
    const QString name = QStringLiteral("KeyCell %1 %2x%3 %4 %5")
                             .arg(state)
                             .arg(size.width())
                             .arg(size.height())
                             .arg(ratio)
                             .arg(onDark);
    QPixmap picture;
    if (QPixmapCache::find(name, &picture))
        return picture;
    picture = QPixmap(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintKey(painter, QRectF(QPointF(), size).adjusted(1, 0.5, -1, -0.5),
             LookOfState(state, onDark));
    QPixmapCache::insert(name, picture);
    return picture;
}

} // namespace

KeyCell::KeyCell(int index, QWidget* parent) : QAbstractButton(parent), m_index(index) {
    setObjectName(QStringLiteral("ChgKey_%1").arg(index));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void KeyCell::ShowState(int state) {
    if (!HasPicture(state) || state == m_shownState)
        return;
    m_shownState = state;
    update();
}

void KeyCell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(0, 0,
                       PictureOf(m_shownState, IsDark(palette()), size(), devicePixelRatioF()));
    // A ring, not a ground: the key stands off from what it lies on whatever the ring's colour.
    if (hasFocus() || (underMouse() && isEnabled())) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), hasFocus() ? 2 : 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
}

void KeyCell::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(*event))
        click();
    else if (event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down)
        event->ignore(); // The grid knows the neighbours.
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace quorrel
