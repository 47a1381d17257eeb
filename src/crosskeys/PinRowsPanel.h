#pragma once

#include "engine/CrossKeying.h"

#include <QGroupBox>

#include <memory>

class QLabel;

namespace Ui {
class PinRowsPanel;
}

namespace quorrel {

/// The pins of a cross-keyed cylinder in the rows that they are loaded by.
class PinRowsPanel : public QGroupBox {
    Q_OBJECT

public:
    explicit PinRowsPanel(QWidget* parent = nullptr);
    ~PinRowsPanel() override;

    /// Shows the rows; asterisks for a user who may not read cuts.
    void ShowRows(const PinRows& rows, bool mayReadCuts);
    void Clear();

private:
    QLabel* RowLabel(int row) const;

    std::unique_ptr<Ui::PinRowsPanel> ui;
};

} // namespace quorrel
