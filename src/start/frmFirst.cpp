#include "start/frmFirst.h"

#include "ui_frmFirst.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmFirst::frmFirst(Session& session) : Form(session), ui(std::make_unique<Ui::frmFirst>()) {
    ui->setupUi(this);
    ui->Label1->setText(tr("Congratulations on your choice of Quorrel! You are about to set up "
                           "the program that creates your master key systems and keeps the books "
                           "on them.\n\nYou will be asked for your company's information next. "
                           "All of it is optional, and you can change it at any time."));
    ui->Label2->setText(tr("For your first log on you must use the default administration account:"
                           "\n\n        User Name:   Administrator\n        Password:     tamarisk"
                           "\n\nIt is the only active account. Change its password under Edit - "
                           "Permissions once your first master key system exists."));
    ui->Label3->setText(tr("Press F1 at any place for help on it. A Help button brings up the "
                           "Help Index."));
    OfferHelp(help::kFirstRun, ui->cmdHelp);
    On(ui->Command1, &QPushButton::clicked, [this] { Continue(); });
}

frmFirst::~frmFirst() = default;

void frmFirst::Continue() {
    if (!m_session.boxes.Confirms(tr("Did you read the Logon Information?"), tr("Read Logon Info")))
        return;
    m_session.FirstRun = false;
    emit CompanyWanted();
}

} // namespace quorrel
