#pragma once

#include "print/Printers.h"
#include "widgets/Form.h"

#include <memory>
#include <vector>

namespace Ui {
class frmPrinter;
}

namespace quorrel {

/// Lets the user choose the printer that reports go to.
class frmPrinter : public Form {
    Q_OBJECT

public:
    explicit frmPrinter(Session& session);
    ~frmPrinter() override;

private:
    void ListThem();
    void ShowPresent();
    void Choose();

    std::unique_ptr<Ui::frmPrinter> ui;
    std::vector<PrinterEntry> m_printers;
};

} // namespace quorrel
