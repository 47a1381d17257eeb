#include "reports/frmPrinter.h"

#include "ui_frmPrinter.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmPrinter::frmPrinter(Session& session) : Form(session), ui(std::make_unique<Ui::frmPrinter>()) {
    ui->setupUi(this);
    OfferHelp(help::kPrinter);
    OfferFoot();
    On(ui->lstPrinters, &TextList::Clicked, [this] { Choose(); });
    On(ui->lstPrinters, &TextList::EnterPressed, [this] { Leave(); });
    On(ui->lstPrinters, &TextList::DoubleClicked, [this] { Leave(); });
    On(ui->cmdOK, &QPushButton::clicked, [this] { Leave(); });
    Guarded([this] { ListThem(); });
}

frmPrinter::~frmPrinter() = default;

void frmPrinter::ListThem() {
    const BusyPointer busy;
    m_printers = ListPrinters();
    const QString present = PresentPrinter(m_session).DeviceName;
    QStringList names;
    int highlighted = -1;
    for (const PrinterEntry& printer : m_printers) {
        if (printer.DeviceName == present)
            highlighted = static_cast<int>(names.size());
        names += printer.DeviceName;
    }
    ui->lstPrinters->SetLines(names);
    ui->lstPrinters->SetCurrentRow(highlighted);
    ShowPresent();
}

void frmPrinter::ShowPresent() {
    const PrinterEntry present = PresentPrinter(m_session);
    ui->lblType->setText(present.DeviceName);
    ui->lblWhere->setText(present.Port);
}

void frmPrinter::Choose() {
    const int row = ui->lstPrinters->CurrentRow();
    if (row < 0)
        return;
    m_session.Printer = m_printers[row].DeviceName;
    ShowPresent();
    Tell(tr("Reports go to %1 from now on").arg(m_session.Printer));
}

} // namespace quorrel
