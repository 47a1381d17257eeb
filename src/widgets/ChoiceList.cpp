#include "widgets/ChoiceList.h"

#include "widgets/LineDelegate.h"

#include <QFontDatabase>
#include <QKeyEvent>

namespace quorrel {

ChoiceList::ChoiceList(QWidget* parent) : QListView(parent) {
    QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    columns.setPointSizeF(font().pointSizeF());
    setFont(columns);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new LineDelegate(this));
    setModel(&m_lines);
    connect(this, &QListView::clicked, this,
            [this](const QModelIndex& line) { emit Chosen(line.row()); });
    connect(
        &m_lines, &QStringListModel::modelReset, this, [this] { m_justFilled = false; },
        Qt::QueuedConnection);
}

void ChoiceList::ShowLines(const QStringList& lines) {
    m_lines.setStringList(lines);
    m_justFilled = true;
}

void ChoiceList::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    if (m_lines.rowCount() == 0)
        emit LinesWanted();
}

void ChoiceList::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid())
        emit Chosen(currentIndex().row());
    else
        QListView::keyPressEvent(event);
}

void ChoiceList::mousePressEvent(QMouseEvent* event) {
    // Lines that came with this very press are not what the user aimed at.
    if (!m_justFilled)
        QListView::mousePressEvent(event);
}

} // namespace quorrel
