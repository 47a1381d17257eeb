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

protected:
    void Reload() override;
    QString Unsaved() const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LoadHardwareList(const QString& shown);
    void ChooseDescription();
    void ShowDescription();
    void Save();

    std::unique_ptr<Ui::frmEditHardware> ui;
    QString m_description; ///< the one to replace, whole; empty when there is none in the file
    QString m_proposal;    ///< what the box of the new one held first
};

} // namespace quorrel
