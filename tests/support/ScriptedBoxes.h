#pragma once

#include "platform/Boxes.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <deque>
#include <functional>
#include <utility>
#include <vector>

namespace quorrel::test {

/// Answers boxes from a queue and records what they said. A box that nobody expected fails the
/// test, and so does an answer that no box took.
class ScriptedBoxes : public Boxes {
public:
    struct Shown {
        QString text, title;
        BoxButtons buttons;
    };

    ~ScriptedBoxes() override {
        for (const Expected& expected : m_expected)
            ADD_FAILURE() << "No box said: " << expected.text.toStdString();
    }

    /// The next box must contain `text`; it gets this answer.
    void Expect(const QString& text, BoxAnswer answer = BoxAnswer::Ok) {
        m_expected.push_back({text, answer, {}});
    }

    /// The next box must contain `text`; while it is up, this happens before it gets its answer.
    void ExpectWhile(const QString& text, std::function<void()> meanwhile,
                     BoxAnswer answer = BoxAnswer::Ok) {
        m_expected.push_back({text, answer, {}, std::move(meanwhile)});
    }

    /// The next box must be a file dialog with this filter; this path is chosen.
    void ExpectFileDialog(const QString& filter, const QString& path) {
        m_expected.push_back({filter, BoxAnswer::Ok, path});
    }

    /// The next box must be an input box that contains `text`; this is typed into it.
    void ExpectInput(const QString& text, const QString& typed) {
        m_expected.push_back({text, BoxAnswer::Ok, typed});
    }

    /// Something happens while the next box is up.
    void WhileNextIsUp(std::function<void()> action) { m_whileUp = std::move(action); }

    const std::vector<Shown>& All() const { return m_shown; }

    /// The box shown last.
    Shown Last() const { return m_shown.empty() ? Shown{} : m_shown.back(); }

    /// The next box must be the printer dialog; this is chosen, or it is cancelled.
    void ExpectPrinter(const std::optional<PrinterChoice>& choice) {
        m_expected.push_back({kPrinters, choice ? BoxAnswer::Ok : BoxAnswer::Cancel, {}});
        m_printer = choice;
    }

    /// A long action is cancelled when it tells of its first step.
    void CancelProgress() { m_cancelProgress = true; }

    std::unique_ptr<Progress> BeginProgress(const QString& text, const QString& title,
                                            int) override {
        class Scripted : public Progress {
        public:
            explicit Scripted(bool cancel) : m_cancel(cancel) {}
            bool Advance(int) override { return !m_cancel; }

        private:
            bool m_cancel;
        };
        m_progress.append(title + u'|' + text);
        return std::make_unique<Scripted>(std::exchange(m_cancelProgress, false));
    }

    /// Titles and texts of the long actions that showed their progress.
    const QStringList& ProgressShown() const { return m_progress; }

private:
    inline static const QString kPrinters = QStringLiteral("Printers");

    struct Expected {
        QString text;
        BoxAnswer answer;
        QString path;
        std::function<void()> meanwhile = {};
    };

    BoxAnswer ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                          BoxIcon) override {
        m_shown.push_back({text, title, buttons});
        return Next(text).answer;
    }

    QString ShowOpenFile(const QString& title, const QString& filter) override {
        m_shown.push_back({filter, title, BoxButtons::OkCancel});
        return Next(filter).path;
    }

    QString ShowSaveFile(const QString& title, const QString& filter,
                         const QString& proposal) override {
        m_shown.push_back({filter + u'|' + proposal, title, BoxButtons::OkCancel});
        return Next(filter).path;
    }

    std::optional<QString> ShowInput(const QString& text, const QString& title,
                                     const QString& proposal) override {
        m_shown.push_back({text + u'|' + proposal, title, BoxButtons::OkCancel});
        const Expected expected = Next(m_shown.back().text);
        return expected.answer == BoxAnswer::Ok ? std::optional(expected.path) : std::nullopt;
    }

    std::optional<PrinterChoice> ShowPrinters(const PrinterChoice&) override {
        m_shown.push_back({kPrinters, kPrinters, BoxButtons::OkCancel});
        return Next(kPrinters).answer == BoxAnswer::Ok ? m_printer : std::nullopt;
    }

    Expected Next(const QString& text) {
        if (const auto action = std::exchange(m_whileUp, {}))
            action();
        if (m_expected.empty()) {
            ADD_FAILURE() << "Unexpected box: " << text.toStdString();
            return {{}, BoxAnswer::Cancel, {}};
        }
        Expected expected = m_expected.front();
        m_expected.pop_front();
        EXPECT_TRUE(text.contains(expected.text))
            << "Expected: " << expected.text.toStdString() << "\nShown: " << text.toStdString();
        if (expected.meanwhile)
            expected.meanwhile();
        return expected;
    }

    std::deque<Expected> m_expected;
    std::vector<Shown> m_shown;
    std::function<void()> m_whileUp;
    std::optional<PrinterChoice> m_printer;
    QStringList m_progress;
    bool m_cancelProgress = false;
};

} // namespace quorrel::test
