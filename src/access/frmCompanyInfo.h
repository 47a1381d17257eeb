#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmCompanyInfo;
}

namespace quorrel {

/// Keeps the one company of the file: what reports and receipts print as the owner.
class frmCompanyInfo : public Form {
    Q_OBJECT

public:
    explicit frmCompanyInfo(Session& session);
    ~frmCompanyInfo() override;

private:
    void LoadRow();
    void ShowLogo();
    void ShowPolicyLength();
    void Browse();
    void Save();

    std::unique_ptr<Ui::frmCompanyInfo> ui;
};

} // namespace quorrel
