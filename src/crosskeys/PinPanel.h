#pragma once

#include "crosskeys/CrossPinning.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PinPanel;
}

namespace quorrel {

/// The pins of a cross-keyed cylinder as a drawing, and for an interchangeable core chamber by
/// chamber.
class PinPanel : public QWidget {
    Q_OBJECT

public:
    explicit PinPanel(QWidget* parent = nullptr);
    ~PinPanel() override;

    /// Shows the panel of a core for a door and the key that the main form shows.
    void OfferCore(const QString& door, const PinningRequest& key, bool mayReadCuts);

    /// Shows the pins, but not to a user who may not read cuts.
    void ShowPins(const CrossPinning& pinning, bool mayReadCuts);
    void Clear();

private:
    void ShowCore(const CorePanel& panel);

    std::unique_ptr<Ui::PinPanel> ui;
    bool m_core = false;
};

} // namespace quorrel
