#pragma once

#include "store/OpenSystem.h"

#include <QWidget>

#include <memory>

namespace Ui {
class SystemPanel;
}

namespace quorrel {

/// What the open key system is, beside the company's logo.
class SystemPanel : public QWidget {
    Q_OBJECT

public:
    explicit SystemPanel(QWidget* parent = nullptr);
    ~SystemPanel() override;

    /// A system of no pins is none: the labels stay as designed. The angles and the control key are
    /// shown to a user who may read cuts.
    void ShowSystem(const OpenSystem& system, bool mayReadCuts);

    void ShowNumber(int systemNumber);
    void ShowLogo(const QString& path);

private:
    std::unique_ptr<Ui::SystemPanel> ui;
};

} // namespace quorrel
