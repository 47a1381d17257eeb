#include "widgets/RecordGrid.h"

#include "widgets/LineDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorrel {

namespace {

/// Shows a text in one line, and only as much of it as can be seen.
class OneLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        return PaintedLine(value.toString());
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->font.setBold(index.data(RecordGrid::kPendingRole).toBool());
    }
};

} // namespace

RecordGrid::RecordGrid(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new OneLineDelegate(this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

void RecordGrid::GoTo(int row) {
    setCurrentIndex(model()->index(row, std::max(0, currentIndex().column())));
}

void RecordGrid::FinishEditing() {
    QWidget* editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!editor)
        return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void RecordGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && event->modifiers() == Qt::NoModifier &&
        currentIndex().row() == model()->rowCount() - 1)
        emit NewRecordWanted();
    else
        QTableView::keyPressEvent(event);
}

// As in a list, the other buttons choose nothing.

void RecordGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTableView::mousePressEvent(event);
}

void RecordGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTableView::mouseDoubleClickEvent(event);
}

} // namespace quorrel
