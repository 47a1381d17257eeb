#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmExit;
}

namespace quorrel {

/// Asks before the program ends.
class frmExit : public Form {
    Q_OBJECT

public:
    explicit frmExit(Session& session);
    ~frmExit() override;

signals:
    void Ended();

private:
    std::unique_ptr<Ui::frmExit> ui;
};

} // namespace quorrel
