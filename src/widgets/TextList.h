#pragma once

#include <QListView>
#include <QStringListModel>

namespace quorrel {

/// A list of lines of text that stays quick with tens of thousands of them. Its lines are told
/// apart by their place; a click and the Enter key both choose the current one.
class TextList : public QListView {
    Q_OBJECT

public:
    explicit TextList(QWidget* parent = nullptr);

    /// Replaces all lines; none is current after.
    void SetLines(const QStringList& lines);
    const QStringList Lines() const { return m_lines.stringList(); }
    int Count() const { return m_lines.rowCount(); }

    /// The place of the current line, -1 when there is none.
    int CurrentRow() const { return currentIndex().row(); }
    void SetCurrentRow(int row) { setCurrentIndex(m_lines.index(row)); }

    /// The current line; empty when there is none.
    QString CurrentText() const { return currentIndex().data().toString(); }

signals:
    /// A line was clicked or, on the keyboard, reached or confirmed with Enter.
    void Clicked();
    void DoubleClicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QStringListModel m_lines;
};

} // namespace quorrel
