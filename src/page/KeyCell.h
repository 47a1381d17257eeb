#pragma once

#include <QAbstractButton>

namespace quorrel {

/// One cell of the page: a small key whose colour tells its relation to the selected one.
class KeyCell : public QAbstractButton {
    Q_OBJECT

public:
    KeyCell(int index, QWidget* parent);

    int Index() const { return m_index; }

    /// Takes the picture of a state. A state without picture leaves the one that is shown.
    void ShowState(int state);

    /// The state whose picture is shown.
    int ShownState() const { return m_shownState; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int m_index;
    int m_shownState = 0;
};

} // namespace quorrel
