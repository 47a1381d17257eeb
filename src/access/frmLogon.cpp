#include "access/frmLogon.h"

#include "access/Logon.h"
#include "ui_frmLogon.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmLogon::frmLogon(Session& session) : Form(session), ui(std::make_unique<Ui::frmLogon>()) {
    ui->setupUi(this);
    PlaceOnScreen(*this);
    OfferHelp(help::kLogon, ui->cmdHelp);
    On(ui->cmdLogon, &QPushButton::clicked, [this] { PerformLogon(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { close(); });
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
    m_admitted = true;
    hide();
    emit LoggedOn();
    close();
}

void frmLogon::Refuse() {
    if (++m_failedAttempts >= kLogonAttempts) {
        m_session.boxes.Message(tr("Multiple Invalid Entries - Exiting Program"),
                                m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
        emit Ended();
        return;
    }
    m_session.boxes.Message(tr("Invalid Entry, please check User Name and Password"),
                            m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
    ui->txtPassword->setFocus();
    ui->txtPassword->selectAll();
}

bool frmLogon::Unloading() {
    if (!m_admitted)
        emit Ended();
    return true;
}

} // namespace quorrel
