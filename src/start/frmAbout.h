#pragma once

#include "platform/Files.h"
#include "widgets/Form.h"

#include <memory>
#include <optional>

namespace Ui {
class frmAbout;
}

namespace quorrel {

/// Title, version, disclaimer, and the platform's system information tool where there is one.
class frmAbout : public Form {
    Q_OBJECT

public:
    frmAbout(Session& session, const std::optional<OutsideProgram>& systemInformation);
    ~frmAbout() override;

private:
    std::unique_ptr<Ui::frmAbout> ui;
    std::optional<OutsideProgram> m_systemInformation;
};

} // namespace quorrel
