#include "widgets/ElidedLabel.h"

#include "widgets/LineDelegate.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace quorrel {

namespace {

/// Characters of average width that a label asks for at most, and that it can do with.
constexpr int kWantedLength = 40;
constexpr int kLeastLength = 6;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::SizeFor(int width) const {
    return QSize(width, fontMetrics().height()) + QSize(2, 2) * (margin() + frameWidth());
}

QSize ElidedLabel::sizeHint() const {
    // Measured to the next pixel, and elided to less than one.
    const int whole = fontMetrics().horizontalAdvance(PaintedLine(text())) + 1;
    return SizeFor(std::min(whole, kWantedLength * fontMetrics().averageCharWidth()));
}

QSize ElidedLabel::minimumSizeHint() const {
    return SizeFor(kLeastLength * fontMetrics().averageCharWidth());
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    const QString whole = text();
    const QString line = PaintedLine(whole);
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
