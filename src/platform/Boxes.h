#pragma once

#include <QString>

#include <optional>

namespace quorrel {

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Information, Question, Warning };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// The boxes that ask or tell the user something. Handed in, so that a test can answer.
class Boxes {
public:
    virtual ~Boxes() = default;

    /// Shows a message and waits for the answer. Closing the box answers No or Cancel.
    BoxAnswer Message(const QString& text, const QString& title,
                      BoxButtons buttons = BoxButtons::Ok, BoxIcon icon = BoxIcon::None) {
        m_lastAnswer = ShowMessage(text, title, buttons, icon);
        return *m_lastAnswer;
    }

    /// The answer that the last message got, whoever showed it; none before the first.
    std::optional<BoxAnswer> LastAnswer() const { return m_lastAnswer; }

    /// Lets the user choose an existing file. `filter` holds pairs "Name|*.ext;*.ext" joined by
    /// "|". Gives an empty text when nothing was chosen.
    virtual QString OpenFile(const QString& title, const QString& filter) = 0;

    /// Lets the user choose where to write a file, beginning at a proposed name; the box asks
    /// before an existing one is taken. Gives an empty text when nothing was chosen.
    virtual QString SaveFile(const QString& title, const QString& filter,
                             const QString& proposal) = 0;

    /// Asks for a line of text. Nothing when the user cancels.
    virtual std::optional<QString> Input(const QString& text, const QString& title,
                                         const QString& proposal) = 0;

    bool Confirms(const QString& text, const QString& title) {
        return Message(text, title, BoxButtons::YesNo, BoxIcon::Question) == BoxAnswer::Yes;
    }

    /// As `Confirms`, for what cannot be had back: the Enter key alone does not answer Yes.
    bool ConfirmsLoss(const QString& text, const QString& title) {
        return Message(text, title, BoxButtons::YesNo, BoxIcon::Warning) == BoxAnswer::Yes;
    }

private:
    virtual BoxAnswer ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                                  BoxIcon icon) = 0;

    std::optional<BoxAnswer> m_lastAnswer;
};

} // namespace quorrel
