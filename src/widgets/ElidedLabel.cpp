#include "widgets/ElidedLabel.h"

#include "platform/Text.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace quorrel {

namespace {

/// Characters of average width that a label asks for at most, and that it can do with.
constexpr int kWantedLength = 40;
constexpr int kLeastLength = 6;

/// Characters of the text that are measured and painted: more than there is ever room for.
constexpr int kPaintedLength = 1000;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::SizeFor(int characters) const {
    const QFontMetrics metrics = fontMetrics();
    const int whole = metrics.horizontalAdvance(OneLine(text().left(kPaintedLength)));
    const int most = characters * metrics.averageCharWidth();
    // Measured to the next pixel, and elided to less than one.
    return QSize(std::min(whole + 1, most), metrics.height()) +
           QSize(2, 2) * (margin() + frameWidth());
}

QSize ElidedLabel::sizeHint() const {
    return SizeFor(kWantedLength);
}

QSize ElidedLabel::minimumSizeHint() const {
    return SizeFor(kLeastLength);
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    const QString whole = text();
    const QString line = OneLine(whole.left(kPaintedLength));
    const QString shown = fontMetrics().elidedText(line, m_elideMode, contentsRect().width());
    setToolTip(shown == whole ? QString() : whole);
    if (shown == whole) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                          isEnabled(), shown, foregroundRole());
}

} // namespace quorrel
