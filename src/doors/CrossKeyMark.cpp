#include "doors/CrossKeyMark.h"

#include "doors/CrossKeys.h"
#include "widgets/TextList.h"

#include <QPainter>

namespace quorrel {

namespace {

/// Two keys crossed, in the colour of text.
QIcon CrossedKeys(const QColor& ink) {
    constexpr int size = 32;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const int side : {1, -1}) {
        painter.save();
        painter.translate(size / 2.0, size / 2.0);
        painter.scale(side, 1);
        painter.rotate(45);
        painter.setPen(QPen(ink, 3));
        painter.drawEllipse(QPointF(0, -9), 4.5, 4.5);
        painter.drawLine(QPointF(0, -4), QPointF(0, 14));
        painter.drawLine(QPointF(0, 12), QPointF(5, 12));
        painter.restore();
    }
    return picture;
}

} // namespace

void MarkCrossKeyed(TextList& list, int row, Session& session, RowKey door) {
    list.SetMark(row, CrossedKeys(list.palette().color(QPalette::Text)), [&session, door] {
        try {
            return DescribeCrossKeying(session, door);
        } catch (const std::exception&) {
            return QStringLiteral("Cross-keyed. Its keys cannot be read now.");
        }
    });
}

} // namespace quorrel
