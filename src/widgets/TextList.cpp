#include "widgets/TextList.h"

#include "widgets/OneLineDelegate.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QtMath>

#include <algorithm>

namespace quorrel {

namespace {

/// Longer lines are cut on the screen, so that the list can still be scrolled sensibly.
constexpr qsizetype kLongestShown = 400;

} // namespace

/// Every line takes the room of the longest: all are measured as one.
class TextList::LineDelegate : public OneLineDelegate {
public:
    using OneLineDelegate::OneLineDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int kMargins = 8; // left and right of the text
        const double character = QFontMetricsF(option.font).horizontalAdvance(u'0');
        QSize size = OneLineDelegate::sizeHint(option, index);
        size.setWidth(qCeil(static_cast<double>(longest) * character) + kMargins);
        return size;
    }

    qsizetype longest = 0; ///< characters
};

TextList::TextList(QWidget* parent) : QListView(parent), m_delegate(new LineDelegate(this)) {
    setModel(&m_lines);
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    // Lines are laid out in columns of characters.
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setEditTriggers(NoEditTriggers);
    connect(this, &QListView::clicked, this, &TextList::Clicked);
    connect(this, &QListView::doubleClicked, this, &TextList::DoubleClicked);
}

void TextList::SetLines(const QStringList& lines) {
    m_delegate->longest = 0;
    for (const QString& line : lines)
        m_delegate->longest = std::clamp(line.size(), m_delegate->longest, kLongestShown);
    m_lines.setStringList(lines);
}

void TextList::keyPressEvent(QKeyEvent* event) {
    const int before = CurrentRow();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter)
        QListView::keyPressEvent(event);
    // As on a list of the desktop, what the arrow keys reach counts as clicked.
    if (CurrentRow() >= 0 && (enter || CurrentRow() != before))
        emit Clicked();
}

} // namespace quorrel
