#pragma once

#include "platform/Boxes.h"

namespace quorrel {

/// The boxes as they appear on the screen, over the window in use.
class ScreenBoxes : public Boxes {
public:
    QString OpenFile(const QString& title, const QString& filter) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& proposal) override;
    std::optional<QString> Input(const QString& text, const QString& title,
                                 const QString& proposal) override;

private:
    BoxAnswer ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                          BoxIcon icon) override;
};

} // namespace quorrel
