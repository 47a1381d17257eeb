#include "widgets/TextList.h"

#include "widgets/LineDelegate.h"

#include <QFontDatabase>
#include <QKeyEvent>

namespace quorrel {

TextList::TextList(QWidget* parent) : QListView(parent) {
    setModel(&m_lines);
    setItemDelegate(new LineDelegate(this));
    setUniformItemSizes(true);
    // Lines are laid out in columns of characters.
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setEditTriggers(NoEditTriggers);
    connect(this, &QListView::clicked, this, &TextList::Clicked);
    connect(this, &QListView::doubleClicked, this, &TextList::DoubleClicked);
}

void TextList::SetLines(const QStringList& lines) {
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
