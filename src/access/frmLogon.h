#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmLogon;
}

namespace quorrel {

/// Admits a program user. The third failed attempt ends the program.
class frmLogon : public Form {
    Q_OBJECT

public:
    explicit frmLogon(Session& session);
    ~frmLogon() override;

signals:
    void LoggedOn();

protected:
    void Activated() override;

private:
    void PerformLogon();
    void Refuse();

    std::unique_ptr<Ui::frmLogon> ui;
    int m_failedAttempts = 0;
};

} // namespace quorrel
