#pragma once

#include <QComboBox>
#include <QStringListModel>

namespace quorrel {

/// A box to type in, with a list of known texts that stays quick with tens of thousands of them.
/// What is typed is never completed or added to the list, and `activated` tells of choices from the
/// list alone.
class TextCombo : public QComboBox {
    Q_OBJECT

public:
    explicit TextCombo(QWidget* parent = nullptr);

    /// Replaces the known texts and empties the box, without a signal.
    void SetTexts(const QStringList& texts);
    const QStringList Texts() const { return m_texts.stringList(); }

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FollowText();

    QStringListModel m_texts;
};

} // namespace quorrel
