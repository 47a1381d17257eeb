#pragma once

#include <QListView>
#include <QStringListModel>

namespace quorrel {

/// A list whose lines are chosen by a click or by Enter. The arrow keys move through it without
/// choosing. Lines are in columns, hence in a font of one width; there may be thousands.
class ChoiceList : public QListView {
    Q_OBJECT

public:
    explicit ChoiceList(QWidget* parent = nullptr);

    void ShowLines(const QStringList& lines);
    QStringList Lines() const { return m_lines.stringList(); }

signals:
    void Chosen(int row);

    /// It has got the focus and has nothing to choose from.
    void LinesWanted();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QStringListModel m_lines;
    bool m_justFilled = false; ///< within the event that is being handled
};

} // namespace quorrel
