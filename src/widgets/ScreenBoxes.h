#pragma once

#include "platform/Boxes.h"

namespace quorrel {

/// The boxes as they appear on the screen, over the window in use.
class ScreenBoxes : public Boxes {
public:
    BoxAnswer Message(const QString& text, const QString& title, BoxButtons buttons,
                      BoxIcon icon) override;
    QString OpenFile(const QString& title, const QString& filter) override;
    std::optional<QString> Input(const QString& text, const QString& title,
                                 const QString& proposal) override;
};

} // namespace quorrel
