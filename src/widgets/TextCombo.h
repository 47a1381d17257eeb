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

    /// Replaces the known texts and shows a text, known or not, without a signal: what code fills
    /// in is no edit.
    void SetTexts(const QStringList& texts, const QString& shown = {});

    /// Replaces the known texts and keeps what stands in the box, with the cursor where it was.
    void Refill(const QStringList& texts) { SetTexts(texts, currentText()); }

    const QStringList Texts() const { return m_texts.stringList(); }

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FollowText();

    QStringListModel m_texts;
};

} // namespace quorrel
