#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace quorrel {

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Information, Question, Warning };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// A printer and what to print on it.
struct PrinterChoice {
    QString printer; ///< its name; empty for the usual one
    int copies = 1;
    int firstPage = 1;
    int lastPage = 0; ///< 0: up to the last; in a proposal: no pages to choose from
};

/// A long action under way.
class Progress {
public:
    virtual ~Progress() = default;

    /// Tells how many steps are done. False when the user has cancelled.
    virtual bool Advance(int stepsDone) = 0;
};

/// The boxes that ask or tell the user something. Handed in, so that a test can answer.
class Boxes {
public:
    virtual ~Boxes() = default;

    /// Shows a message and waits for the answer. Closing the box answers No or Cancel.
    BoxAnswer Message(const QString& text, const QString& title,
                      BoxButtons buttons = BoxButtons::Ok, BoxIcon icon = BoxIcon::None) {
        m_lastAnswer = m_over ? Declined(buttons) : ShowMessage(text, title, buttons, icon);
        return *m_lastAnswer;
    }

    /// The program ends: no box comes up any more, and whatever still asks is told No or Cancel.
    void End() { m_over = true; }

    /// The answer that the last message got, whoever showed it; none before the first.
    std::optional<BoxAnswer> LastAnswer() const { return m_lastAnswer; }

    /// Lets the user choose an existing file. `filter` holds pairs "Name|*.ext;*.ext" joined by
    /// "|". Gives an empty text when nothing was chosen.
    QString OpenFile(const QString& title, const QString& filter) {
        return m_over ? QString() : ShowOpenFile(title, filter);
    }

    /// Lets the user choose where to write a file, beginning at a proposed name; the box asks
    /// before an existing one is taken. Gives an empty text when nothing was chosen.
    QString SaveFile(const QString& title, const QString& filter, const QString& proposal) {
        return m_over ? QString() : ShowSaveFile(title, filter, proposal);
    }

    /// Asks for a line of text. Nothing when the user cancels.
    std::optional<QString> Input(const QString& text, const QString& title,
                                 const QString& proposal) {
        return m_over ? std::nullopt : ShowInput(text, title, proposal);
    }

    /// Lets the user choose a printer, beginning at a proposal, with the pages to choose from.
    /// Nothing when the user cancels.
    std::optional<PrinterChoice> ChoosePrinter(const PrinterChoice& proposal) {
        return m_over ? std::nullopt : ShowPrinters(proposal);
    }

    /// Shows how far a long action has come, with a button to cancel it, until it is destroyed.
    /// `steps` is how many it takes.
    virtual std::unique_ptr<Progress> BeginProgress(const QString& text, const QString& title,
                                                    int steps) = 0;

    bool Confirms(const QString& text, const QString& title) {
        return Message(text, title, BoxButtons::YesNo, BoxIcon::Question) == BoxAnswer::Yes;
    }

    /// As `Confirms`, for what cannot be had back: the Enter key alone does not answer Yes.
    bool ConfirmsLoss(const QString& text, const QString& title) {
        return Message(text, title, BoxButtons::YesNo, BoxIcon::Warning) == BoxAnswer::Yes;
    }

private:
    static BoxAnswer Declined(BoxButtons buttons) {
        return buttons == BoxButtons::Ok      ? BoxAnswer::Ok
               : buttons == BoxButtons::YesNo ? BoxAnswer::No
                                              : BoxAnswer::Cancel;
    }

    virtual BoxAnswer ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                                  BoxIcon icon) = 0;
    virtual QString ShowOpenFile(const QString& title, const QString& filter) = 0;
    virtual QString ShowSaveFile(const QString& title, const QString& filter,
                                 const QString& proposal) = 0;
    virtual std::optional<QString> ShowInput(const QString& text, const QString& title,
                                             const QString& proposal) = 0;
    virtual std::optional<PrinterChoice> ShowPrinters(const PrinterChoice& proposal) = 0;

    std::optional<BoxAnswer> m_lastAnswer;
    bool m_over = false;
};

} // namespace quorrel
