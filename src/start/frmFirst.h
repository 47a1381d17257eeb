#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmFirst;
}

namespace quorrel {

/// Greets a first run and names the default account.
class frmFirst : public Form {
    Q_OBJECT

public:
    explicit frmFirst(Session& session);
    ~frmFirst() override;

signals:
    /// The welcome has been read; the company comes next.
    void CompanyWanted();

private:
    void Continue();

    std::unique_ptr<Ui::frmFirst> ui;
};

} // namespace quorrel
