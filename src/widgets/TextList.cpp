#include "widgets/TextList.h"

#include "widgets/LineDelegate.h"
#include "widgets/Manners.h"

#include <QFontDatabase>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace quorrel {

TextList::TextList(QWidget* parent) : QListView(parent) {
    QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    columns.setPointSizeF(font().pointSizeF());
    setFont(columns);
    setUniformItemSizes(true);
    setIconSize(QSize(1, 1) * fontMetrics().height());
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new LineDelegate(this));
    setModel(&m_lines);
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        // What is scrolled takes the frame of the focus along.
        connect(bar, &QScrollBar::valueChanged, viewport(), qOverload<>(&QWidget::update));
    connect(
        &m_lines, &LineModel::modelReset, this, [this] { m_justFilled = false; },
        Qt::QueuedConnection);
}

void TextList::SetLines(const QStringList& lines) {
    const QScopedValueRollback quiet(m_quiet, true);
    m_lines.SetLines(lines);
    m_justFilled = true;
    m_pressed = false;
}

void TextList::Refill(const QStringList& lines, int compared) {
    const bool chosen = CurrentRow() >= 0;
    const QString text = CurrentText().left(compared);
    SetLines(lines);
    const auto same = std::find_if(lines.begin(), lines.end(), [&](const QString& line) {
        return chosen && line.left(compared) == text;
    });
    if (same != lines.end())
        SetCurrentRow(static_cast<int>(same - lines.begin()));
}

int TextList::CurrentRow() const {
    const QModelIndex line = currentIndex();
    return selectionModel()->isSelected(line) ? line.row() : -1;
}

void TextList::SetCurrentRow(int row) {
    const QScopedValueRollback quiet(m_quiet, true);
    if (row >= 0 && row < Count())
        setCurrentIndex(m_lines.index(row));
    else
        selectionModel()->clear();
}

QString TextList::CurrentText() const {
    return CurrentRow() < 0 ? QString() : currentIndex().data().toString();
}

/// Runs what moves the highlight for the user. True when it has moved.
template <class Move>
bool TextList::ByUser(Move&& move) {
    const int before = CurrentRow();
    {
        const QScopedValueRollback quiet(m_quiet, true);
        move();
    }
    return CurrentRow() >= 0 && CurrentRow() != before;
}

void TextList::GoTo(int row) {
    if (ByUser([&] { SetCurrentRow(row); }))
        Moved();
}

void TextList::Moved() {
    if (!m_leadsElsewhere)
        emit Clicked();
}

QItemSelectionModel::SelectionFlags TextList::selectionCommand(const QModelIndex& line,
                                                               const QEvent*) const {
    // Whatever keys are held: the current line is the selected one.
    return line.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TextList::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QListView::selectionChanged(now, before);
    if (m_quiet || now.isEmpty())
        return;
    // Neither mouse nor keys: a screen reader or an input method has selected it.
    const QModelIndex line = now.indexes().first();
    selectionModel()->setCurrentIndex(line, QItemSelectionModel::NoUpdate);
    Moved();
}

void TextList::focusInEvent(QFocusEvent* event) {
    // Not what a view does otherwise: that makes a line current which nobody chose.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
    if (Count() == 0)
        emit LinesWanted();
}

void TextList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (!hasFocus())
        return;
    // The highlight does not tell where the keys go: there may be none, or one in each list.
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

void TextList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_End && CurrentRow() < 0 && Count() > 0) {
        GoTo(Count() - 1); // The toolkit begins at the first line, whichever key it is.
        return;
    }
    if (!IsEnter(*event)) {
        if (ByUser([&] { QListView::keyPressEvent(event); }))
            Moved();
        return;
    }
    // Never passed on to the form, whose default button the user does not mean here.
    event->accept();
    if (CurrentRow() < 0)
        return;
    emit Clicked();
    emit EnterPressed();
}

void TextList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex line = indexAt(event->position().toPoint());
    // Lines that came with this very press are not what the user aimed at.
    m_pressed = line.isValid() && !m_justFilled;
    if (!m_pressed)
        return;
    ByUser([&] { SetCurrentRow(line.row()); });
    Moved();
}

void TextList::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton))
        m_pressed = false; // It was let go where nobody told.
    const QModelIndex line = indexAt(event->position().toPoint());
    if (m_pressed && line.isValid())
        GoTo(line.row());
}

void TextList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(m_pressed, false))
        return;
    if (m_leadsElsewhere && CurrentRow() >= 0)
        emit Clicked();
}

void TextList::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex line = indexAt(event->position().toPoint());
    // The first click may have brought another line to this place.
    if (event->button() != Qt::LeftButton || !line.isValid() || line.row() != CurrentRow())
        mousePressEvent(event);
    else
        emit DoubleClicked();
}

bool TextList::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // The form's shortcuts of these keys are not meant while the focus is here.
        const auto* press = static_cast<QKeyEvent*>(event);
        if (press->modifiers() == Qt::NoModifier &&
            (press->key() == Qt::Key_PageUp || press->key() == Qt::Key_PageDown)) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

/// The tip of the line at a place: the line, where it is cut, and what its mark stands for.
QString TextList::TipAt(const QPoint& place) const {
    const QModelIndex line = indexAt(place);
    if (!line.isValid())
        return {};
    QStringList parts;
    const QString text = line.data().toString();
    if (fontMetrics().horizontalAdvance(PaintedLine(text)) > viewport()->width())
        parts += OneLine(text);
    if (const QString mark = m_lines.TipOf(line.row()); !mark.isEmpty())
        parts += mark;
    return parts.join(u'\n');
}

bool TextList::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (const QString tip = TipAt(help->pos()); !tip.isEmpty()) {
            QToolTip::showText(help->globalPos(), PlainTip(tip), viewport(),
                               visualRect(indexAt(help->pos())));
            return true;
        }
    }
    return QListView::viewportEvent(event);
}

void TextList::SetSearchBox(QLineEdit* box, OnEnter onEnter) {
    m_onEnter = onEnter;
    box->installEventFilter(this);
}

bool TextList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !qobject_cast<QLineEdit*>(watched))
        return QListView::eventFilter(watched, event);
    const auto* press = static_cast<QKeyEvent*>(event);
    if (IsEnter(*press) && m_onEnter == OnEnter::LinesWanted) {
        emit LinesWanted();
        return true;
    }
    if (!IsEnter(*press) && press->key() != Qt::Key_Down)
        return QListView::eventFilter(watched, event);
    if (IsEnter(*press) && Count() == 0)
        return true;
    setFocus(Qt::OtherFocusReason);
    GoTo(IsEnter(*press) ? 0 : std::max(0, CurrentRow()));
    return true;
}

} // namespace quorrel
