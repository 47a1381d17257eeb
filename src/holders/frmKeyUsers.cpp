#include "holders/frmKeyUsers.h"

#include "access/CompanyInfo.h"
#include "access/LogoLabel.h"
#include "holders/Personnel.h"
#include "platform/Text.h"
#include "print/PrintRun.h"
#include "print/Printers.h"
#include "store/Conflict.h"
#include "store/SystemTables.h"
#include "ui_frmKeyUsers.h"
#include "widgets/HelpContexts.h"
#include "widgets/Manners.h"
#include "widgets/TextList.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>

namespace quorrel {

namespace {

template <class Listed>
QStringList LinesOf(const std::vector<Listed>& listed) {
    QStringList lines;
    lines.reserve(static_cast<qsizetype>(listed.size()));
    for (const Listed& item : listed)
        lines.append(item.line);
    return lines;
}

/// The place of what has a key, -1 when it is not listed.
template <class Listed>
int RowOf(const std::vector<Listed>& listed, RowKey key) {
    const auto found = std::find_if(listed.begin(), listed.end(),
                                    [key](const Listed& item) { return item.key == key; });
    return found == listed.end() ? -1 : static_cast<int>(found - listed.begin());
}

/// What the highlighted line of a list stands for.
template <class Listed>
std::optional<Listed> Highlighted(const TextList& list, const std::vector<Listed>& listed) {
    const int row = list.CurrentRow();
    return row < 0 ? std::nullopt : std::optional(listed.at(static_cast<std::size_t>(row)));
}

/// Shows lines; the highlighted one stays so for as long as what it stands for is listed.
template <class Listed>
void ShowLines(TextList& list, std::vector<Listed>& shown, std::vector<Listed> lines) {
    const auto highlighted = Highlighted(list, shown);
    shown = std::move(lines);
    list.SetLines(LinesOf(shown));
    list.SetCurrentRow(highlighted ? RowOf(shown, highlighted->key) : -1);
}

/// What the caption of the units shows of a key's line: the text before the last dash or pair of
/// blanks that begins within its first characters.
QString CaptionOf(const QString& line) {
    constexpr qsizetype scanned = 20;
    QString kept;
    for (qsizetype at = 0; at < std::min(scanned, line.size()); ++at)
        if (line[at] == u'-' || line.mid(at, 2) == QLatin1String("  "))
            kept = line.left(at);
    return kept;
}

} // namespace

frmKeyUsers::frmKeyUsers(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmKeyUsers>()), m_person(*ui) {
    ui->setupUi(this);
    OfferHelp(help::kKeyUsers, ui->cmdHelp);
    OfferFoot();
    ui->picQV->ShowLogo(m_session.Company.CompanyLogo);
    KeepRoomOfUserList();
    HideUserList();
    m_person.Clear();
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

/// The form does not jump when the list comes and goes.
void frmKeyUsers::KeepRoomOfUserList() {
    for (QWidget* part : std::initializer_list<QWidget*>{ui->lblUserList, ui->lstUserList}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
    }
}

void frmKeyUsers::WatchPeople() {
    On(ui->cmdAddUser, &QPushButton::clicked, [this] { SaveUserWithLookup(); });
    On(ui->cmdDeleteUser, &QPushButton::clicked, [this] { DeleteUser(); });
    On(ui->cmdNewUser, &QPushButton::clicked, [this] { NewUser(); });
    On(ui->cmdSearch, &QPushButton::clicked, [this] { StepSearch(); });
    On(ui->cmdShowKeys, &QPushButton::clicked, [this] {
        RecordForReceipt(m_session, ReceiptKind::AllKeysOfHolder);
        LoadUserKeys();
        ui->lblUserList->show();
        ui->lstUserList->show();
    });
    On(ui->lstKeyHolders, &TextList::Clicked, [this] {
        RecordForReceipt(m_session, ReceiptKind::AllKeysOfHolder);
        LoadUser();
    });
    On(ui->cmdPrintKeySignature, &QPushButton::clicked, [this] { PrintReceipt(); });
    On(ui->txtUserSearch, &QLineEdit::textChanged,
       [this] { WhileTyping(ui->txtUserSearch, [this] { LoadKeyHolders(); }); });
    On(ui->txtUserNumber, &QLineEdit::textChanged, [this] { HideUserList(); });
    ui->lstKeyHolders->SetSearchBox(ui->txtUserSearch);
    OnLeaving(ui->cmbDepartment, [this] {
        const QString text = ui->cmbDepartment->currentText();
        if (const QString kept = text.toUpper().left(kDepartmentWidth); kept != text)
            ui->cmbDepartment->setEditText(kept);
        return true;
    });
    for (QWidget* field :
         std::initializer_list<QWidget*>{ui->txtUserNumber, ui->txtFirstName, ui->txtLastName,
                                         ui->txtTitle, ui->cmbDepartment, ui->cmdAddUser})
        field->installEventFilter(this);
}

void frmKeyUsers::WatchKeys() {
    On(ui->txtKeySearch, &QLineEdit::textChanged, [this] {
        HideUserList();
        WhileTyping(ui->txtKeySearch, [this] { LoadKeyIDs(); });
    });
    ui->lstKeyIDs->SetSearchBox(ui->txtKeySearch);
    On(ui->lstKeyIDs, &TextList::Clicked, [this] {
        RecordForReceipt(m_session, ReceiptKind::UnitsOfKey);
        SelectKey();
    });
    On(ui->lstUnitID, &TextList::Clicked,
       [this] { RecordForReceipt(m_session, ReceiptKind::SelectedUnit); });
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
    for (QLineEdit* box : {ui->txtUnitID, ui->txtLastUnitID})
        On(box, &QLineEdit::returnPressed, [this] { OrderUnits(); });
    On(ui->cmdDeleteUnit, &QPushButton::clicked, [this] { DeleteSelectedUnit(); });
}

void frmKeyUsers::Activated() {
    if (!std::exchange(m_session.FindOpensKey, false) || ui->lstKeyIDs->Count() == 0)
        return;
    ui->lstKeyIDs->SetCurrentRow(0);
    SelectKey();
    Tell(std::exchange(m_toldOfSearch, {}));
}

QString frmKeyUsers::Unsaved() const {
    if (!m_session.SessionPermissions.AddEditKeyUsers || !m_person.Differs())
        return {};
    const QString number = ui->txtUserNumber->text().trimmed();
    return number.isEmpty() ? tr("What you have typed for a new user")
                            : tr("What you have typed for user %1").arg(number);
}

void frmKeyUsers::Reload() {
    if (const RowKey shown = m_person.Shown().key; shown != 0) {
        const QStringList typed = m_person.Refresh(StoredHolder(m_session, shown));
        if (!typed.isEmpty())
            Tell(tr("You had typed: ") + typed.join(u' '));
    }
    LoadDepartments();
    LoadKeyHolders();
    LoadKeyIDs();
    // It may have another Key ID now, or none.
    TakeInHand(FindKey(m_session, m_keyInHand.key).value_or(ListedKey()));
    ShowUnits();
}

bool frmKeyUsers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        // No blank can be typed into the number: it would end it in every list.
        if (watched == ui->txtUserNumber && press->text() == QLatin1String(" "))
            return true;
        if (IsEnter(*press) && EnterPressed(watched))
            return true;
    }
    // A window that becomes the active one again has gone on to nothing.
    if (event->type() == QEvent::FocusIn && watched == ui->txtFirstName &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason)
        QTimer::singleShot(0, this, [this] { Guarded([this] { LookUpPerson(); }); });
    return Form::eventFilter(watched, event);
}

/// Enter goes on to the next box of a person. True when it did.
bool frmKeyUsers::EnterPressed(QObject* watched) {
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
    ShowLines(*ui->lstKeyHolders, m_holders,
              ListHolders(m_session, m_column, ui->txtUserSearch->text()));
}

void frmKeyUsers::LoadDepartments() {
    ui->cmbDepartment->Refill(ListHolderDepartments(m_session));
}

std::optional<ListedHolder> frmKeyUsers::HighlightedHolder() const {
    return Highlighted(*ui->lstKeyHolders, m_holders);
}

void frmKeyUsers::HighlightHolder(RowKey key) {
    ui->lstKeyHolders->SetCurrentRow(RowOf(m_holders, key));
}

/// Lists whom the program searches for. Whatever comes next stops where they cannot be read.
void frmKeyUsers::SearchHolders(const QString& text) {
    {
        const QSignalBlocker blocker(ui->txtUserSearch);
        ui->txtUserSearch->setText(text);
    }
    LoadKeyHolders();
}

void frmKeyUsers::ShowHolder(const QString& number) {
    SearchHolders(number);
    for (const ListedHolder& listed : m_holders) {
        if (listed.number != number)
            continue;
        HighlightHolder(listed.key);
        LoadUser();
        return;
    }
}

void frmKeyUsers::SearchKey(const QString& keyID, const QString& told) {
    m_toldOfSearch = told;
    ui->txtKeySearch->setText(keyID);
    m_session.FindOpensKey = true;
}

void frmKeyUsers::LoadUser() {
    ui->cmdPrintKeySignature->show();
    if (!MayDrop()) {
        HighlightHolder(m_person.Shown().key);
        return;
    }
    HideUserList();
    if (const auto listed = HighlightedHolder())
        BringUp(*listed);
    LoadUserKeys();
}

/// Brings up the holder of the highlighted line. The form never shows another one than that.
void frmKeyUsers::BringUp(const ListedHolder& listed) {
    const auto holder = FindHolder(m_session, NumberOfLine(listed.line));
    if (holder && holder->key == listed.key)
        m_person.Show(*holder);
    else
        m_person.Clear();
    if (!IsAsListed(m_session, listed))
        LoadKeyHolders();
    if (!HighlightedHolder())
        Tell(tr("User %1 is no longer in the file.").arg(listed.number));
    else if (m_person.Shown().key == 0)
        Tell(tr("User \"%1\" cannot be brought up: a User ID must not have a blank in it.")
                 .arg(listed.number));
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
    m_person.BeginNew();
    ui->cmdPrintKeySignature->show();
    ui->lstUserList->hide();
    ui->txtUserNumber->setFocus();
}

void frmKeyUsers::TellNumberIsRequired() {
    m_session.boxes.Message(tr("All Users require an ID Number or Label!"),
                            tr("User ID - Team Member Number"));
}

/// Whether what was typed may take the place of a holder who was not brought up.
bool frmKeyUsers::MayReplace(const KeyUsersRow& other) {
    return m_session.boxes.ConfirmsLoss(
        tr("User ID %1 is that of %2, who was not brought up. Replace what is stored of %2 with "
           "what stands on the form? The keys issued to %1 stay with that number.")
            .arg(other.UserIDNumber, NameOf(other)),
        m_session.ProgramTitle);
}

void frmKeyUsers::SaveUser() {
    const KeyUsersRow typed = m_person.Typed();
    SavedHolder saved = SaveHolder(m_session, m_person.Shown(), typed);
    while (saved.outcome == SavedHolder::Outcome::OtherHolder) {
        if (!MayReplace(saved.stored))
            return;
        saved = SaveHolder(m_session, saved.stored, typed);
    }
    if (saved.outcome == SavedHolder::Outcome::NoNumber)
        TellNumberIsRequired();
    if (saved.outcome != SavedHolder::Outcome::Updated &&
        saved.outcome != SavedHolder::Outcome::Added)
        return;
    m_person.Clear();
    const bool added = saved.outcome == SavedHolder::Outcome::Added;
    TellDone((added ? tr("User %1 added: %2") : tr("User %1 saved: %2"))
                 .arg(saved.stored.UserIDNumber, NameOf(saved.stored)),
             [this] {
                 HighlightHolder(0); // Nobody is brought up now.
                 LoadDepartments();
                 LoadKeyHolders();
                 LoadUnitHolders(); // It names the holder too.
             });
    ui->txtUserNumber->setFocus();
}

void frmKeyUsers::DeleteUser() {
    const auto listed = HighlightedHolder();
    if (!listed || !m_session.SessionPermissions.AddEditKeyUsers ||
        !m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(listed->line),
                                      m_session.ProgramTitle))
        return;
    switch (DeleteHolder(m_session, *listed)) {
    case HolderDeleted::HasKeys:
        m_session.boxes.Message(tr("User has keys, can't be deleted!"), m_session.ProgramTitle);
        return;
    case HolderDeleted::WrongForm:
        m_session.boxes.Message(tr("Nobody was deleted. List the users by User ID and select the "
                                   "one to delete."),
                                m_session.ProgramTitle);
        break;
    case HolderDeleted::Deleted:
        if (m_person.Shown().key == listed->key)
            m_person.Refresh({});
        TellDone(tr("User deleted: %1").arg(listed->line), [this] { LoadKeyHolders(); });
        return;
    }
    LoadKeyHolders();
}

// The keys.

void frmKeyUsers::LoadKeyIDs() {
    ShowLines(*ui->lstKeyIDs, m_keys, ListKeys(m_session, ui->txtKeySearch->text()));
}

void frmKeyUsers::SelectKey() {
    HideUserList();
    ui->cmdPrintKeySignature->show();
    const BusyPointer busy;
    TakeInHand(Highlighted(*ui->lstKeyIDs, m_keys).value_or(ListedKey()));
    ShowUnits();
}

/// No unit of another key stays listed or highlighted, whether those of this one can be read or
/// not.
void frmKeyUsers::TakeInHand(const ListedKey& key) {
    if (key.key != m_keyInHand.key)
        for (TextList* units : {ui->lstUnitID, ui->lstKeyUsers})
            units->SetLines({});
    m_keyInHand = key;
    ui->lblKeyUnit->setText(CaptionOf(key.line));
    ui->lblLastUnit->setText(tr("Last Issued "));
}

void frmKeyUsers::LoadUnitList() {
    const FreeUnits free = ListFreeUnits(m_session, m_keyInHand.keyID);
    ui->lstUnitID->Refill(free.units);
    ui->lblLastUnit->setText(tr("Last Issued ") + free.last);
}

void frmKeyUsers::LoadUnitHolders() {
    const HeldUnits held = ListHeldUnits(m_session, m_keyInHand.keyID);
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
    {
        const QSignalBlocker blocker(ui->txtKeySearch);
        ui->txtKeySearch->setText(keyID);
    }
    HideUserList();
    LoadKeyIDs();
    if (m_keys.empty() || m_keys.front().keyID != RightTrimmed(keyID))
        return;
    ui->lstKeyIDs->SetCurrentRow(0);
    SelectKey();
}

void frmKeyUsers::OrderUnits() {
    RecordForReceipt(m_session, ReceiptKind::IssuedUnit);
    if (!m_session.SessionPermissions.AddEditKeyUsers)
        return;
    if (ui->lstKeyIDs->CurrentRow() < 0) {
        m_session.boxes.Message(tr("You Must Select a Key ID First!"), m_session.ProgramTitle);
        return;
    }
    const BusyPointer busy;
    const Issued issued =
        IssueUnits(m_session, m_keyInHand, ui->txtUnitID->text(), ui->txtLastUnitID->text());
    if (issued.outcome == Issued::Outcome::Done)
        m_lastIssued = {m_keyInHand.key, issued.lastUnit};
    TellDone(WhatWasIssued(issued), [this] { LoadUnitList(); });
    ui->txtUnitID->setFocus();
    ui->txtUnitID->selectAll();
}

/// Tells why units were not issued; gives what has become of them.
QString frmKeyUsers::WhatWasIssued(const Issued& issued) {
    const QString& keyID = m_keyInHand.keyID;
    if (issued.outcome == Issued::Outcome::NoNumber)
        m_session.boxes.Message(tr("The first unit of a run must begin with a digit."),
                                m_session.ProgramTitle);
    if (issued.outcome == Issued::Outcome::TooMany)
        m_session.boxes.Message(tr("Units of a run can be numbered up to 32767."),
                                m_session.ProgramTitle);
    if (issued.outcome == Issued::Outcome::Exists)
        return tr("Unit %1 of %2 exists already, nothing issued").arg(ui->txtUnitID->text(), keyID);
    if (issued.count == 1)
        return tr("Unit %1 of %2 issued").arg(issued.lastUnit, keyID);
    return tr("%1 units of %2 issued").arg(QString::number(issued.count), keyID);
}

ReceiptSubject frmKeyUsers::SubjectOfReceipt() {
    LoadUserKeys();
    ReceiptSubject subject{ui->txtFirstName->text(),
                           ui->txtLastName->text(),
                           ui->txtUserNumber->text(),
                           ui->txtTitle->text(),
                           ui->cmbDepartment->currentText(),
                           ui->lstUserList->Lines(),
                           {},
                           {},
                           ui->lstUnitID->Lines(),
                           {}};
    if (const auto key = Highlighted(*ui->lstKeyIDs, m_keys)) {
        subject.keyLine = key->line;
        if (m_lastIssued.first == key->key)
            subject.LastIssuedUnit = m_lastIssued.second;
    }
    if (ui->lstUnitID->CurrentRow() >= 0)
        subject.unit = ui->lstUnitID->CurrentText();
    return subject;
}

void frmKeyUsers::PrintReceipt() {
    RequireSystem(m_session);
    const auto receipt = ChooseReceipt(m_session, SubjectOfReceipt());
    if (!receipt)
        return;
    const auto choice = ChoosePrinter(m_session);
    if (!choice)
        return;
    const ReceiptHead head{m_session.ProgramTitle, m_session.System.name,
                           JoinedPolicy(m_session.Company), m_session.clock().date(),
                           LogoPicture(m_session.Company.CompanyLogo)};
    PrintJob job;
    job.name = tr("Key Receipt");
    job.print = [&](Printer& printer) {
        PrintReceipts(printer, head, *receipt);
        return QStringList();
    };
    PrintRun run(m_session, job.name);
    if (run.IsReady() && run.Print(job, choice->copies))
        Tell(run.Done());
}

/// A unit goes to the holder who is highlighted, and to nobody else whom the form may show.
bool frmKeyUsers::HolderIsOnForm(const ListedHolder& holder) {
    const QString title = tr("Assign Key Unit to User");
    const QString number = ui->txtUserNumber->text();
    if (number.isEmpty())
        m_session.boxes.Message(tr("Select Key Holder"), title);
    else if (number != holder.number)
        m_session.boxes.Message(
            tr("The list highlights user %1, and the form shows user %2. Nothing was assigned. "
               "Select the one whom you mean in the list.")
                .arg(holder.number, number),
            title);
    return number == holder.number && !number.isEmpty();
}

void frmKeyUsers::Assign() {
    const QString unit = ui->lstUnitID->CurrentText();
    const auto holder = HighlightedHolder();
    if (unit.endsWith(QLatin1String("LOST!"))) {
        m_session.boxes.Message(tr("Key recorded as Lost - Delete Unit ID and Reissue to Assign"),
                                tr("KEY LOST !!!!"));
        return;
    }
    if (!holder || holder->line.isEmpty() || holder->line[0] == u' ' ||
        !m_session.SessionPermissions.AddEditKeyUsers)
        return;
    if (unit.isEmpty()) {
        m_session.boxes.Message(tr("Select KeyUnit and Key ID"), tr("Assign Key Unit to User"));
        return;
    }
    if (!HolderIsOnForm(*holder))
        return;
    const Assigned assigned = AssignUnit(m_session, m_keyInHand, unit, *holder);
    TellDone(tr("Unit %1 of %2 handed out to %3")
                 .arg(assigned.unit, m_keyInHand.keyID, NameOf(assigned.holder)),
             [this] { ShowUnits(); });
}

void frmKeyUsers::TakeBack(bool lost) {
    const QString line = ui->lstKeyUsers->CurrentText();
    if (line.isEmpty() || !m_session.SessionPermissions.AddEditKeyUsers)
        return;
    const auto holders = HoldersOfLine(m_session, m_keyInHand, line);
    const QString& keyID = m_keyInHand.keyID;
    const QString unit = UnitOfLine(line, holders.back());
    const QString name = NameOf(holders.back());
    if (lost && !m_session.boxes.ConfirmsLoss(
                    tr("Record unit %1 of %2, held by %3, as lost? It can be assigned again only "
                       "after it was deleted and issued anew.")
                        .arg(unit, keyID, name),
                    m_session.ProgramTitle))
        return;
    Tell((lost ? tr("Recording the loss of unit %1 of %2, held by %3")
               : tr("Taking back unit %1 of %2 from %3"))
             .arg(unit, keyID, name));
    const QString note = AskForNote(line, holders.size());
    if (note.isEmpty()) {
        Tell(tr("Unit %1 of %2 stays with %3").arg(unit, keyID, name));
        return;
    }
    m_unstoredNote = {line, note};
    const auto taken = TakeBackUnit(m_session, m_keyInHand, line, holders.back(), note, lost);
    m_unstoredNote = {};
    TellDone(
        (lost ? tr("Unit %1 of %2 recorded as lost by %3") : tr("Unit %1 of %2 returned by %3"))
            .arg(taken.back().unit, keyID, name),
        [this] {
            LoadKeyHolders();
            ShowUnits();
        });
    TellTakenAlong(taken);
}

/// Asks for the note of a unit's return or loss, once for each holder whom its line may name. One
/// that could not be stored is not typed twice. Empty when it is cancelled.
QString frmKeyUsers::AskForNote(const QString& line, std::size_t times) {
    const QString before = m_unstoredNote.first == line ? m_unstoredNote.second : QString();
    QString note;
    for (std::size_t asked = 0; asked < times && (asked == 0 || !note.isEmpty()); ++asked)
        note = m_session.boxes
                   .Input(tr("Enter Note or Report Number"), tr("Lost or Returned Key"), before)
                   .value_or(QString());
    return note;
}

/// Units that went along with the one that was meant, since their texts begin its line.
void frmKeyUsers::TellTakenAlong(const std::vector<TakenUnit>& taken) {
    QStringList others;
    for (std::size_t i = 0; i + 1 < taken.size(); ++i)
        others.append(tr("%1 (%2)").arg(taken[i].unit, taken[i].userName));
    if (!others.isEmpty())
        m_session.boxes.Message(
            tr("Taken back along with unit %1, whose ID begins like theirs, and logged: %2.")
                .arg(taken.back().unit, others.join(QStringLiteral("; "))),
            m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
}

void frmKeyUsers::DeleteSelectedUnit() {
    const QString unit = ui->lstUnitID->CurrentText();
    if (unit.isEmpty() || !m_session.SessionPermissions.AddEditKeyUsers ||
        !m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete Unit # %1?").arg(unit),
                                      m_session.ProgramTitle))
        return;
    DeleteUnit(m_session, m_keyInHand, unit);
    TellDone(tr("Unit %1 of %2 deleted").arg(unit, m_keyInHand.keyID), [this] { ShowUnits(); });
}

// The personnel file.

/// Fills the name and place of a person in; gives whether the personnel file has one.
bool frmKeyUsers::FillFromPersonnel(const std::optional<PersonnelRecord>& record) {
    if (!record)
        return false;
    m_person.FillFrom(*record);
    ui->cmdAddUser->setFocus();
    return true;
}

/// Somebody goes on to the first name: what the personnel file knows is filled in.
void frmKeyUsers::LookUpPerson() {
    if (!m_session.PersonnelAvailable || !ui->txtFirstName->hasFocus())
        return;
    const BusyPointer busy;
    const QString number = ui->txtUserNumber->text();
    SearchHolders(number);
    if (!number.isEmpty())
        FillFromPersonnel(FindPersonnelByValue(m_session, number));
}

void frmKeyUsers::SaveUserWithLookup() {
    const QString number = ui->txtUserNumber->text();
    if (number.isEmpty()) {
        TellNumberIsRequired();
        return;
    }
    SearchHolders(number);
    if (ui->txtFirstName->text().isEmpty()) {
        if (m_session.SystemInfo.personel && !m_session.PersonnelAvailable)
            m_session.boxes.Message(tr("External Employee Records Are Not Currently Available"),
                                    tr("External Lookup"));
        const auto record = FindPersonnelByText(m_session, number);
        if (FillFromPersonnel(record)) {
            ui->txtWorkPhone->setText(record->WorkPhone);
            ui->txtWorkExtention->setText(record->Extention);
            ui->txtHomePhone->setText(record->HomePhone);
        }
    }
    SaveUser();
}

} // namespace quorrel
