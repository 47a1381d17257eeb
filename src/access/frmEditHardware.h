#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmEditHardware;
}

namespace quorrel {

/// Replaces one hardware description of doors by another.
class frmEditHardware : public Form {
    Q_OBJECT

public:
    explicit frmEditHardware(Session& session);
    ~frmEditHardware() override;

private:
    void LoadHardwareList(const QString& shown);
    void ShowDescription(const QString& description);
    void Save();

    std::unique_ptr<Ui::frmEditHardware> ui;
};

} // namespace quorrel
