#include "access/frmLogon.h"

#include "access/Logon.h"
#include "ui_frmLogon.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmLogon::frmLogon(Session& session) : Form(session), ui(std::make_unique<Ui::frmLogon>()) {
    ui->setupUi(this);
    OfferHelp(help::kLogon, ui->cmdHelp);
    On(ui->cmdLogon, &QPushButton::clicked, [this] { PerformLogon(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
}

frmLogon::~frmLogon() = default;

void frmLogon::Activated() {
    ui->txtUserName->setText(QStringLiteral("Administrator"));
    ui->txtPassword->setText(QStringLiteral("tamarisk"));
    ui->txtUserName->setFocus();
    ui->txtUserName->selectAll();
}

void frmLogon::PerformLogon() {
    if (!LogOn(m_session, ui->txtUserName->text(), ui->txtPassword->text())) {
        Refuse();
        return;
    }
    emit LoggedOn();
}

void frmLogon::Refuse() {
    if (++m_failedAttempts >= kLogonAttempts) {
        m_session.boxes.Message(tr("Multiple Invalid Entries - Exiting Program"),
                                m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
        Leave();
        return;
    }
    m_session.boxes.Message(tr("Invalid Entry, please check User Name and Password"),
                            m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
    ui->txtPassword->setFocus();
    ui->txtPassword->selectAll();
}

} // namespace quorrel
