#pragma once

#include "platform/Boxes.h"

#include <stdexcept>

namespace quorrel::bench {

/// Nobody sits before the measured program: what only tells something is passed over. A question
/// or a warning means that something else than planned is measured, and ends the run.
class QuietBoxes : public Boxes {
public:
    QString OpenFile(const QString& title, const QString&) override {
        throw std::runtime_error("Unexpected file dialog: " + title.toStdString());
    }

    QString SaveFile(const QString& title, const QString&, const QString&) override {
        throw std::runtime_error("Unexpected file dialog: " + title.toStdString());
    }

    std::optional<QString> Input(const QString& text, const QString&, const QString&) override {
        throw std::runtime_error("Unexpected input box: " + text.toStdString());
    }

private:
    BoxAnswer ShowMessage(const QString& text, const QString&, BoxButtons buttons,
                          BoxIcon icon) override {
        if (buttons != BoxButtons::Ok || icon == BoxIcon::Warning)
            throw std::runtime_error("Unexpected box: " + text.toStdString());
        return BoxAnswer::Ok;
    }
};

} // namespace quorrel::bench
