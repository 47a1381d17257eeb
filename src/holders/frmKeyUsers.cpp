#include "holders/frmKeyUsers.h"

#include "holders/Personnel.h"
#include "platform/Text.h"
#include "store/SystemTables.h"
#include "ui_frmKeyUsers.h"
#include "widgets/HelpContexts.h"
#include "widgets/TextList.h"

#include <QKeyEvent>
#include <QTimer>

namespace quorrel {

frmKeyUsers::frmKeyUsers(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmKeyUsers>()) {
    ui->setupUi(this);
    OfferHelp(help::kKeyUsers, ui->cmdHelp);
    ui->cmdPrintKeySignature->setEnabled(false);
    ui->cmdPrintKeySignature->setToolTip(tr("Receipts are not part of this version yet."));
    ui->picQV->ShowLogo(m_session.Company.CompanyLogo);
    HideUserList();
    ApplyPermissions();
    WatchPeople();
    WatchKeys();
    On(ui->cmdDone, &QPushButton::clicked, [this] { Leave(); });
    Guarded([this] {
        LoadUnitList();
        LoadKeyIDs();
        LoadDepartments();
        LoadKeyHolders();
        LoadUnitHolders();
    });
    ui->txtUserNumber->setFocus();
    PlaceAt(0.25, 0.25);
}

frmKeyUsers::~frmKeyUsers() = default;

void frmKeyUsers::ApplyPermissions() {
    const bool may = m_session.SessionPermissions.AddEditKeyUsers;
    for (QPushButton* button : {ui->cmdAddUser, ui->cmdAssign, ui->cmdDeleteUser, ui->cmdDeleteUnit,
                                ui->cmdRemove, ui->cmdLost, ui->cmdIssueKey})
        button->setEnabled(may);
}

void frmKeyUsers::WatchPeople() {
    On(ui->cmdAddUser, &QPushButton::clicked, [this] { SaveUserWithLookup(); });
    On(ui->cmdDeleteUser, &QPushButton::clicked, [this] { DeleteUser(); });
    On(ui->cmdNewUser, &QPushButton::clicked, [this] { NewUser(); });
    On(ui->cmdSearch, &QPushButton::clicked, [this] { StepSearch(); });
    On(ui->cmdShowKeys, &QPushButton::clicked, [this] {
        LoadUserKeys();
        ui->lblUserList->show();
        ui->lstUserList->show();
    });
    On(ui->lstKeyHolders, &TextList::Clicked, [this] { LoadUser(); });
    On(ui->txtUserSearch, &QLineEdit::textChanged, [this] { LoadKeyHolders(); });
    On(ui->txtUserNumber, &QLineEdit::textChanged, [this] { HideUserList(); });
    ui->lstKeyHolders->SetSearchBox(ui->txtUserSearch);
    for (QWidget* field :
         std::initializer_list<QWidget*>{ui->txtUserNumber, ui->txtFirstName, ui->txtLastName,
                                         ui->txtTitle, ui->cmbDepartment, ui->cmdAddUser})
        field->installEventFilter(this);
}

void frmKeyUsers::WatchKeys() {
    On(ui->txtKeySearch, &QLineEdit::textChanged, [this] {
        HideUserList();
        LoadKeyIDs();
    });
    ui->lstKeyIDs->SetSearchBox(ui->txtKeySearch);
    On(ui->lstKeyIDs, &TextList::Clicked, [this] { SelectKey(); });
    On(ui->lstUserList, &TextList::Clicked, [this] { ShowKeyOfUserList(); });
    On(ui->lstUnitID, &TextList::DoubleClicked, [this] {
        Assign();
        LoadUserKeys();
    });
    On(ui->lstKeyUsers, &TextList::DoubleClicked, [this] { TakeBack(false); });
    On(ui->cmdAssign, &QPushButton::clicked, [this] { Assign(); });
    On(ui->cmdRemove, &QPushButton::clicked, [this] { TakeBack(false); });
    On(ui->cmdLost, &QPushButton::clicked, [this] { TakeBack(true); });
    On(ui->cmdIssueKey, &QPushButton::clicked, [this] { OrderUnits(); });
    On(ui->cmdDeleteUnit, &QPushButton::clicked, [this] { DeleteSelectedUnit(); });
}

void frmKeyUsers::Activated() {
    if (!std::exchange(m_session.FindOpensKey, false) || ui->lstKeyIDs->Count() == 0)
        return;
    ui->lstKeyIDs->SetCurrentRow(0);
    SelectKey();
}

bool frmKeyUsers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        // No blank can be typed into the number: it would end it in every list.
        if (watched == ui->txtUserNumber && press->text() == QLatin1String(" "))
            return true;
        if (KeyPressed(watched, press->key()))
            return true;
    }
    if (event->type() == QEvent::FocusIn && watched == ui->txtFirstName)
        QTimer::singleShot(0, this, [this] { Guarded([this] { LookUpPerson(); }); });
    if (event->type() == QEvent::FocusOut && watched == ui->cmbDepartment)
        ui->cmbDepartment->setEditText(
            ui->cmbDepartment->currentText().toUpper().left(kDepartmentWidth));
    return Form::eventFilter(watched, event);
}

/// Enter goes on to the next box of a person. True when it did.
bool frmKeyUsers::KeyPressed(QObject* watched, int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (watched == ui->cmdAddUser) {
        Guarded([this] { SaveUser(); });
        return true;
    }
    QWidget* const next = watched == ui->txtUserNumber   ? ui->txtFirstName
                          : watched == ui->txtFirstName  ? ui->txtLastName
                          : watched == ui->txtLastName   ? ui->txtTitle
                          : watched == ui->txtTitle      ? ui->txtStatus
                          : watched == ui->cmbDepartment ? static_cast<QWidget*>(ui->cmdAddUser)
                                                         : nullptr;
    if (next)
        next->setFocus();
    return next;
}

// The people.

void frmKeyUsers::LoadKeyHolders() {
    ui->lstKeyHolders->Refill(ListHolders(m_session, m_column, ui->txtUserSearch->text()));
}

void frmKeyUsers::LoadDepartments() {
    ui->cmbDepartment->Refill(ListHolderDepartments(m_session));
}

void frmKeyUsers::ShowHolder(const QString& number) {
    ui->txtUserSearch->setText(number);
    const QStringList lines = ui->lstKeyHolders->Lines();
    for (int row = 0; row < lines.size(); ++row) {
        if (NumberOfLine(lines[row]) != number)
            continue;
        ui->lstKeyHolders->SetCurrentRow(row);
        LoadUser();
        return;
    }
}

void frmKeyUsers::LoadUser() {
    ui->cmdPrintKeySignature->show();
    HideUserList();
    if (const auto holder = FindHolder(m_session, NumberOfLine(ui->lstKeyHolders->CurrentText())))
        FillFrom(*holder);
    LoadUserKeys();
}

void frmKeyUsers::FillFrom(const KeyUsersRow& holder) {
    ui->txtUserNumber->setText(holder.UserIDNumber);
    ui->txtUserID->setText(QString::number(holder.UserID));
    ui->txtLastName->setText(holder.Lastname);
    ui->txtFirstName->setText(holder.Firstname);
    ui->cmbDepartment->setCurrentText(holder.Department);
    ui->txtTitle->setText(holder.Title);
    ui->txtStatus->setText(holder.Status);
    ui->txtWorkPhone->setText(holder.WorkPhone);
    ui->txtWorkExtention->setText(holder.Extention);
    ui->txtHomePhone->setText(holder.HomePhone);
    ui->ckEmployee->setChecked(holder.Employee);
}

void frmKeyUsers::HideUserList() {
    ui->lstUserList->hide();
    ui->lblUserList->hide();
}

void frmKeyUsers::LoadUserKeys() {
    ui->cmdPrintKeySignature->show();
    ui->lblUserList->setText(tr("Keys Issued to ") + ui->txtFirstName->text() + u' ' +
                             ui->txtLastName->text());
    ui->lstUserList->SetLines(ListUnitsOf(m_session, ui->txtUserNumber->text()));
}

/// The list takes the form of the new column when it is filled the next time.
void frmKeyUsers::StepSearch() {
    ui->txtUserSearch->clear();
    static constexpr const char* kCaptions[] = {"by User ID", "by Last Name", "by First Name"};
    const int next = (static_cast<int>(m_column) + 1) % 3;
    m_column = static_cast<HolderColumn>(next);
    ui->cmdSearch->setText(tr(kCaptions[next]));
    ui->txtUserSearch->setFocus();
}

void frmKeyUsers::NewUser() {
    for (QLineEdit* field :
         {ui->txtUserID, ui->txtFirstName, ui->txtLastName, ui->txtStatus, ui->txtTitle})
        field->clear();
    ui->cmbDepartment->setCurrentText({});
    ui->cmdPrintKeySignature->show();
    ui->lstUserList->hide();
    ui->txtUserNumber->setFocus();
}

void frmKeyUsers::ClearPerson() {
    for (QLineEdit* field :
         {ui->txtLastName, ui->txtFirstName, ui->txtUserNumber, ui->txtUserID, ui->txtTitle,
          ui->txtStatus, ui->txtWorkPhone, ui->txtWorkExtention, ui->txtHomePhone})
        field->clear();
    ui->cmbDepartment->setCurrentText({});
    ui->txtUserNumber->setFocus();
}

KeyUsersRow frmKeyUsers::PersonOnScreen() const {
    KeyUsersRow person;
    person.UserIDNumber = ui->txtUserNumber->text();
    person.UserIDDouble = Val(ui->txtUserID->text());
    person.Firstname = ui->txtFirstName->text();
    person.Lastname = ui->txtLastName->text();
    person.Department = ui->cmbDepartment->currentText();
    person.Title = ui->txtTitle->text();
    person.Status = ui->txtStatus->text();
    person.WorkPhone = ui->txtWorkPhone->text();
    person.Extention = ui->txtWorkExtention->text();
    person.HomePhone = ui->txtHomePhone->text();
    person.Employee = ui->ckEmployee->isChecked();
    return person;
}

void frmKeyUsers::SaveUser() {
    const HolderSaved saved = SaveHolder(m_session, PersonOnScreen());
    if (saved == HolderSaved::Nothing)
        return;
    LoadDepartments();
    LoadKeyHolders();
    ClearPerson();
}

void frmKeyUsers::DeleteUser() {
    const QString line = ui->lstKeyHolders->CurrentText();
    if (line.isEmpty() || !m_session.SessionPermissions.AddEditKeyUsers ||
        !m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(line),
                                      m_session.ProgramTitle))
        return;
    switch (DeleteHolder(m_session, line)) {
    case HolderDeleted::HasKeys:
        m_session.boxes.Message(tr("User has keys, can't be deleted!"), m_session.ProgramTitle);
        return;
    case HolderDeleted::NotFound:
        m_session.boxes.Message(tr("Nobody was deleted. List the users by User ID and select the "
                                   "one to delete."),
                                m_session.ProgramTitle);
        break;
    case HolderDeleted::Deleted:
        break;
    }
    LoadKeyHolders();
}

// The keys.

QString frmKeyUsers::KeyInHand() const {
    return RightTrimmed(ui->lblKeyUnit->text().left(kKeyIDWidth));
}

void frmKeyUsers::LoadKeyIDs() {
    ui->lstKeyIDs->Refill(ListKeys(m_session, ui->txtKeySearch->text()));
}

void frmKeyUsers::SelectKey() {
    HideUserList();
    ui->cmdPrintKeySignature->show();
    const BusyPointer busy;
    ui->lblKeyUnit->setText(ui->lstKeyIDs->CurrentText().left(kKeyIDWidth));
    ui->lblLastUnit->setText(tr("Last Issued "));
    ShowUnits();
}

void frmKeyUsers::LoadUnitList() {
    const FreeUnits free = ListFreeUnits(m_session, KeyInHand());
    ui->lstUnitID->Refill(free.units);
    ui->lblLastUnit->setText(tr("Last Issued ") + free.last);
}

void frmKeyUsers::LoadUnitHolders() {
    const HeldUnits held = ListHeldUnits(m_session, KeyInHand());
    ui->lstKeyUsers->Refill(held.lines);
    if (!held.repaired.isEmpty())
        m_session.boxes.Message(held.repaired, tr("Data Error"), BoxButtons::Ok, BoxIcon::Warning);
}

void frmKeyUsers::ShowUnits() {
    LoadUnitList();
    LoadUnitHolders();
    if (ui->lstUserList->isVisible())
        LoadUserKeys();
}

/// Brings up the key of a unit in the holder's hands.
void frmKeyUsers::ShowKeyOfUserList() {
    const QString line = ui->lstUserList->CurrentText();
    const QString keyID = line.left(line.indexOf(QStringLiteral("  ")));
    ui->txtKeySearch->setText(keyID);
    if (!ui->lstKeyIDs->Lines().value(0).startsWith(keyID))
        return;
    ui->lstKeyIDs->SetCurrentRow(0);
    SelectKey();
}

void frmKeyUsers::OrderUnits() {
    if (!m_session.SessionPermissions.AddEditKeyUsers)
        return;
    if (ui->lstKeyIDs->CurrentRow() < 0) {
        m_session.boxes.Message(tr("You Must Select a Key ID First!"), m_session.ProgramTitle);
        return;
    }
    const BusyPointer busy;
    const Issued issued =
        IssueUnits(m_session, KeyInHand(), ui->txtUnitID->text(), ui->txtLastUnitID->text());
    if (issued.outcome == Issued::Outcome::NoNumber)
        m_session.boxes.Message(tr("The first unit of a run must begin with a digit."),
                                m_session.ProgramTitle);
    if (issued.outcome == Issued::Outcome::TooMany)
        m_session.boxes.Message(tr("Units of a run can be numbered up to 32767."),
                                m_session.ProgramTitle);
    LoadUnitList();
    ui->txtUnitID->setFocus();
    ui->txtUnitID->selectAll();
}

void frmKeyUsers::Tell(UnitDone done, const QString& unit) {
    if (done == UnitDone::Lost)
        m_session.boxes.Message(tr("Key recorded as Lost - Delete Unit ID and Reissue to Assign"),
                                tr("KEY LOST !!!!"));
    if (done == UnitDone::NoHolder)
        m_session.boxes.Message(tr("Select Key Holder"), tr("Assign Key Unit to User"));
    if (done == UnitDone::Changed)
        m_session.boxes.Message(tr("Unit %1 has been changed at another workstation. The lists "
                                   "now show what holds.")
                                    .arg(unit),
                                m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
}

void frmKeyUsers::Assign() {
    const QString unit = ui->lstUnitID->CurrentText();
    const QString holderLine = ui->lstKeyHolders->CurrentText();
    if (unit.endsWith(QLatin1String("LOST!"))) {
        Tell(UnitDone::Lost, unit);
        return;
    }
    if (holderLine.isEmpty() || holderLine[0] == u' ' ||
        !m_session.SessionPermissions.AddEditKeyUsers)
        return;
    if (unit.isEmpty()) {
        m_session.boxes.Message(tr("Select KeyUnit and Key ID"), tr("Assign Key Unit to User"));
        return;
    }
    const UnitDone done = AssignUnit(m_session, KeyInHand(), unit, PersonOnScreen());
    Tell(done, unit);
    ShowUnits();
}

void frmKeyUsers::TakeBack(bool lost) {
    const QString line = ui->lstKeyUsers->CurrentText();
    if (line.isEmpty() || !m_session.SessionPermissions.AddEditKeyUsers)
        return;
    KeyUsersRow holder;
    QString note;
    for (const KeyUsersRow& found : HoldersOfLine(m_session, line)) {
        const auto typed = m_session.boxes.Input(tr("Enter Note or Report Number"),
                                                 tr("Lost or Returned Key"), {});
        if (!typed || typed->isEmpty())
            return;
        note = *typed;
        holder = found;
    }
    const QString unit = line.left(line.indexOf(QLatin1String(" - ")));
    Tell(note.isEmpty() ? UnitDone::Changed
                        : TakeBackUnit(m_session, KeyInHand(), line, holder, note, lost),
         unit);
    LoadKeyHolders();
    ShowUnits();
}

void frmKeyUsers::DeleteSelectedUnit() {
    const QString unit = ui->lstUnitID->CurrentText();
    if (unit.isEmpty() || !m_session.SessionPermissions.AddEditKeyUsers ||
        !m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete Unit # %1?").arg(unit),
                                      m_session.ProgramTitle))
        return;
    Tell(DeleteUnit(m_session, KeyInHand(), unit), unit);
    ShowUnits();
}

// The personnel file.

/// Fills the name and place of a person in; gives whether the personnel file has one.
bool frmKeyUsers::FillFrom(const std::optional<PersonnelRecord>& record) {
    if (!record)
        return false;
    ui->txtLastName->setText(record->LastName);
    ui->txtFirstName->setText(record->FirstName);
    ui->cmbDepartment->setCurrentText(record->Department);
    ui->txtTitle->setText(record->Title);
    ui->txtStatus->setText(record->Status);
    ui->ckEmployee->setChecked(true);
    ui->cmdAddUser->setFocus();
    return true;
}

/// Somebody goes on to the first name: what the personnel file knows is filled in.
void frmKeyUsers::LookUpPerson() {
    if (!m_session.PersonnelAvailable || !ui->txtFirstName->hasFocus())
        return;
    const BusyPointer busy;
    const QString number = ui->txtUserNumber->text();
    ui->txtUserSearch->setText(number);
    if (!number.isEmpty())
        FillFrom(FindPersonnelByValue(m_session, number));
}

void frmKeyUsers::SaveUserWithLookup() {
    const QString number = ui->txtUserNumber->text();
    if (number.isEmpty()) {
        m_session.boxes.Message(tr("All Users require an ID Number or Label!"),
                                tr("User ID - Team Member Number"));
        return;
    }
    ui->txtUserSearch->setText(number);
    if (ui->txtFirstName->text().isEmpty()) {
        if (m_session.SystemInfo.personel && !m_session.PersonnelAvailable)
            m_session.boxes.Message(tr("External Employee Records Are Not Currently Available"),
                                    tr("External Lookup"));
        const auto record = FindPersonnelByText(m_session, number);
        if (FillFrom(record)) {
            ui->txtWorkPhone->setText(record->WorkPhone);
            ui->txtWorkExtention->setText(record->Extention);
            ui->txtHomePhone->setText(record->HomePhone);
        }
    }
    SaveUser();
}

} // namespace quorrel
