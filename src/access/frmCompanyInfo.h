#pragma once

#include "widgets/Form.h"

#include <memory>
#include <optional>

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

protected:
    void Reload() override;
    QString Unsaved() const override;

private:
    void LoadRow();
    CompanyInfoRow Typed() const;
    void ShowLogo();
    void ShowPolicyLength();
    void Browse();
    void Save();

    std::unique_ptr<Ui::frmCompanyInfo> ui;
    std::optional<CompanyInfoRow> m_shown; ///< as stored when it was read; none when there was none
    CompanyInfoRow m_filled;               ///< what the boxes made of it
};

} // namespace quorrel
