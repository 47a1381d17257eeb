#pragma once

#include "platform/Boxes.h"

#include <stdexcept>

namespace quorrel::bench {

/// Nobody sits before the measured program: what only tells something is passed over. A question
/// or a warning means that something else than planned is measured, and ends the run.
class QuietBoxes : public Boxes {
public:
    std::unique_ptr<Progress> BeginProgress(const QString&, const QString&, int) override {
        class Silent : public Progress {
            bool Advance(int) override { return true; }
        };
        return std::make_unique<Silent>();
    }

private:
    [[noreturn]] static void Unexpected(const QString& what) {
        throw std::runtime_error("Unexpected box: " + what.toStdString());
    }

    QString ShowOpenFile(const QString& title, const QString&) override { Unexpected(title); }
    QString ShowSaveFile(const QString& title, const QString&, const QString&) override {
        Unexpected(title);
    }
    std::optional<QString> ShowInput(const QString& text, const QString&, const QString&) override {
        Unexpected(text);
    }
    std::optional<PrinterChoice> ShowPrinters(const PrinterChoice&) override {
        Unexpected(QStringLiteral("printers"));
    }
    BoxAnswer ShowMessage(const QString& text, const QString&, BoxButtons buttons,
                          BoxIcon icon) override {
        if (buttons != BoxButtons::Ok || icon == BoxIcon::Warning)
            Unexpected(text);
        return BoxAnswer::Ok;
    }
};

} // namespace quorrel::bench
