#include "widgets/TextCombo.h"

#include "widgets/LineDelegate.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>

namespace quorrel {

TextCombo::TextCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    // Leaving the box with a known text in it is no choice of that text.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    // Else every text would be measured.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    setView(list);
    setItemDelegate(new LineDelegate(this));
    setModel(&m_texts);
}

void TextCombo::SetTexts(const QStringList& texts, const QString& shown) {
    const QSignalBlocker blocker(this);
    const QString before = currentText();
    const int cursor = lineEdit()->cursorPosition();
    const int selected = lineEdit()->selectionStart();
    const auto length = static_cast<int>(lineEdit()->selectedText().size());
    m_texts.setStringList(texts);
    setCurrentIndex(static_cast<int>(texts.indexOf(shown)));
    setEditText(shown);
    if (shown != before)
        return;
    lineEdit()->setCursorPosition(cursor);
    if (length > 0)
        lineEdit()->setSelection(selected, length);
}

/// What was typed is the current text when it is known: the list opens there, and the arrow keys
/// go on from there.
void TextCombo::FollowText() {
    const QSignalBlocker blocker(this); // Nothing is chosen by it.
    if (const auto row = m_texts.stringList().indexOf(currentText()); row >= 0)
        setCurrentIndex(static_cast<int>(row));
}

void TextCombo::showPopup() {
    FollowText();
    QComboBox::showPopup();
}

void TextCombo::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown)
        FollowText();
    QComboBox::keyPressEvent(event);
}

} // namespace quorrel
