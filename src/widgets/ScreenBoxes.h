#pragma once

#include "platform/Boxes.h"

namespace quorrel {

/// The boxes as they appear on the screen, over the window in use.
class ScreenBoxes : public Boxes {
public:
    std::unique_ptr<Progress> BeginProgress(const QString& text, const QString& title,
                                            int steps) override;

private:
    BoxAnswer ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                          BoxIcon icon) override;
    QString ShowOpenFile(const QString& title, const QString& filter) override;
    QString ShowSaveFile(const QString& title, const QString& filter,
                         const QString& proposal) override;
    std::optional<QString> ShowInput(const QString& text, const QString& title,
                                     const QString& proposal) override;
    std::optional<PrinterChoice> ShowPrinters(const PrinterChoice& proposal) override;
};

} // namespace quorrel
