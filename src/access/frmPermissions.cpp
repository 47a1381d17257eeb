#include "access/frmPermissions.h"

#include "ui_frmPermissions.h"
#include "widgets/HelpContexts.h"

#include <algorithm>

namespace quorrel {

frmPermissions::frmPermissions(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmPermissions>()) {
    ui->setupUi(this);
    OfferHelp(help::kPermissions, ui->cmdHelp);
    ui->txtUserID->hide();
    QLineEdit* name = ui->cmbUser->lineEdit();
    name->setMaxLength(kUserNameLength);
    // A user comes up when chosen from the list. A name that is typed is a name to be saved, even
    // when it is that of another user.
    On(name, &QLineEdit::textEdited, [this](const QString& text) { m_name = text; });
    On(ui->cmbUser, &QComboBox::activated, [this](int entry) { ChooseUser(entry); });
    On(ui->ckAK, &QCheckBox::toggled, [this](bool checked) {
        if (checked)
            ui->ckRP->setChecked(true);
    });
    On(ui->cmdAdd, &QPushButton::clicked, [this] { Add(); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdDelete, &QPushButton::clicked, [this] { Delete(); });
    On(ui->cmdAutoLog, &QPushButton::clicked, [this] { ToggleAutoLogoff(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
    for (QWidget* edited : std::initializer_list<QWidget*>{
             ui->frmUser, ui->frmRights, ui->cmdAdd, ui->cmdSave, ui->cmdDelete, ui->cmdAutoLog})
        edited->setEnabled(MayEdit());
    ShowAutoLogoff();
    Guarded([this] {
        FillUsers();
        ShowNewUser();
    });
}

frmPermissions::~frmPermissions() = default;

std::array<frmPermissions::Right, 7> frmPermissions::Rights() const {
    // Altering comes before reading, which it checks along with itself.
    return {{{ui->ckAK, &Permissions::AlterKeyInformation},
             {ui->ckRP, &Permissions::ReadPrintPinning},
             {ui->ckAEPU, &Permissions::AddEditProgramUsers},
             {ui->ckCS, &Permissions::CreateSystem},
             {ui->ckAEKU, &Permissions::AddEditKeyUsers},
             {ui->ckRR, &Permissions::RunReports},
             {ui->ckIK, &Permissions::IssueKeys}}};
}

void frmPermissions::FillUsers() {
    m_listed.clear();
    QStringList names;
    for (const ProgramUsersRow& account : ListProgramUsers(m_session)) {
        m_listed.push_back(account.key);
        names.append(account.UserName);
    }
    names.append(QLatin1String(kNewUserName));
    ui->cmbUser->SetTexts(names);
}

void frmPermissions::Show(const ProgramUser& user) {
    m_shown = user;
    ShowFields(user);
}

void frmPermissions::ShowFields(const ProgramUser& user) {
    m_name = user.name;
    ui->cmbUser->setEditText(user.name);
    ui->txtPassword->setText(user.password);
    ui->txtConfirmPassword->setText(user.confirmation);
    const bool first = m_opened && m_opened->ProgramUserID == kFirstAccount;
    for (const Right& right : Rights()) {
        right.box->setChecked(user.rights.*right.held);
        right.box->setEnabled(!first);
    }
    ui->lblFirstAccount->setVisible(first);
    ui->cmdDelete->setEnabled(MayEdit() && m_opened);
}

void frmPermissions::ShowNewUser() {
    if (!MayEdit())
        return;
    m_opened.reset();
    ui->cmbUser->setCurrentIndex(ui->cmbUser->count() - 1);
    ui->txtUserID->setText(QString::number(NextProgramUserID(m_session)));
    Show({QLatin1String(kNewUserName), {}, {}, {}});
    ui->cmbUser->lineEdit()->selectAll();
    ui->cmbUser->setFocus();
}

void frmPermissions::ShowAccount(const ProgramUsersRow& account) {
    m_opened = account;
    const auto listed = std::find(m_listed.begin(), m_listed.end(), account.key);
    ui->cmbUser->setCurrentIndex(
        listed == m_listed.end() ? -1 : static_cast<int>(listed - m_listed.begin()));
    ui->txtUserID->setText(QString::number(account.ProgramUserID));
    Show(ShownUser(account));
}

ProgramUser frmPermissions::Typed(const QString& name) const {
    ProgramUser user{name, ui->txtPassword->text(), ui->txtConfirmPassword->text(), {}};
    for (const Right& right : Rights())
        user.rights.*right.held = right.box->isChecked();
    return user;
}

/// Asks before what was typed gives way to something else.
bool frmPermissions::MayDropUser(const ProgramUser& typed) {
    return typed == m_shown ||
           m_session.boxes.ConfirmsLoss(
               tr("What you have entered for %1 is not saved. Go on without saving it?")
                   .arg(NameOf(typed)),
               m_session.ProgramTitle);
}

/// Whom the record on the form is of.
QString frmPermissions::NameOf(const ProgramUser& typed) const {
    if (m_opened)
        return m_opened->UserName;
    return typed.name == QLatin1String(kNewUserName) ? tr("the new user") : typed.name;
}

void frmPermissions::ChooseUser(int entry) {
    if (!MayEdit())
        return;
    const QString typedName = m_name;
    if (!MayDropUser(Typed(typedName))) {
        ui->cmbUser->setEditText(typedName);
        return;
    }
    const auto listed = static_cast<std::size_t>(entry);
    if (listed >= m_listed.size()) {
        ShowNewUser();
    } else if (const auto account = FindProgramUser(m_session, m_listed[listed])) {
        ShowAccount(*account);
    } else {
        Tell(tr("%1 has been deleted at another workstation.").arg(ui->cmbUser->itemText(entry)));
        FillUsers();
        ShowNewUser();
    }
}

void frmPermissions::Add() {
    if (!MayEdit() || !MayDropUser(Typed(ui->cmbUser->currentText())))
        return;
    FillUsers();
    ShowNewUser();
    Tell(tr("Enter Unique User Name and Set Permissions then click Save"));
}

void frmPermissions::Save() {
    if (!MayEdit())
        return;
    const ProgramUser typed = Typed(ui->cmbUser->currentText());
    UserOutcome outcome = SaveProgramUser(m_session, typed, m_opened);
    if (outcome.kind == UserOutcome::Kind::Gone) {
        if (!m_session.boxes.Confirms(
                tr("%1 has been deleted at another workstation. Add this user again?")
                    .arg(m_opened->UserName),
                m_session.ProgramTitle))
            return;
        outcome = SaveProgramUser(m_session, typed, std::nullopt);
    }
    Take(outcome);
}

void frmPermissions::Delete() {
    if (!MayEdit() || !m_opened)
        return;
    if (!m_session.boxes.ConfirmsLoss(
            tr("Are you sure you want to delete %1?").arg(m_opened->UserName),
            m_session.ProgramTitle))
        return;
    Take(DeleteProgramUser(m_session, Typed(ui->cmbUser->currentText()), *m_opened));
}

void frmPermissions::Take(const UserOutcome& outcome) {
    if (outcome.kind == UserOutcome::Kind::Changed)
        return TellChange(outcome);
    if (outcome.kind == UserOutcome::Kind::Refused)
        return Tell(outcome.text);
    TellDone(tr("The accounts are stored"), [this] {
        FillUsers();
        ShowNewUser();
    });
}

void frmPermissions::Tell(const QString& text) {
    m_session.boxes.Message(text, m_session.ProgramTitle);
}

/// Nothing was stored. The account comes up as it is now; what was changed here alone stays in the
/// boxes, to be saved.
void frmPermissions::TellChange(const UserOutcome& outcome) {
    const QString typed = ui->cmbUser->currentText();
    QString text = tr("The account of %1 has been changed at another workstation. Nothing was "
                      "saved here; the account is shown as it is now.")
                       .arg(m_opened->UserName);
    if (outcome.present->UserName != m_opened->UserName)
        text += tr(" It is the account of %1.").arg(outcome.present->UserName);
    if (typed != m_opened->UserName && typed != outcome.merged->UserName)
        text += tr("\n\nWhat you typed: %1").arg(typed);
    Tell(text);
    FillUsers();
    ShowAccount(*outcome.present);
    ShowFields(ShownUser(*outcome.merged));
}

void frmPermissions::ToggleAutoLogoff() {
    if (!MayEdit())
        return;
    m_session.AutoLogoffActive = !m_session.AutoLogoffActive;
    ShowAutoLogoff();
}

void frmPermissions::ShowAutoLogoff() {
    ui->lblAutoLog->setText(m_session.AutoLogoffActive ? tr("ON") : tr("OFF"));
}

QString frmPermissions::Unsaved() const {
    const ProgramUser typed = Typed(ui->cmbUser->currentText());
    return MayEdit() && typed != m_shown ? tr("What you have entered for %1").arg(NameOf(typed))
                                         : QString();
}

} // namespace quorrel
