#include "page/frmMain.h"

#include "access/IdleWatch.h"
#include "engine/PageGeometry.h"
#include "page/KeyLists.h"
#include "platform/Text.h"
#include "ui_frmMain.h"
#include "widgets/HelpContexts.h"

#include <QShortcut>
#include <QToolTip>

#include <algorithm>

namespace quorrel {

namespace {

/// Characters that a Key ID must have to be saved when the page or the form is left. A click on
/// another cell saves one of a single character too.
constexpr int kLabelToLeavePage = 2;

/// What the page view and the selected key have of the form's width at first; the lists have the
/// rest.
constexpr double kPageShare = 0.31;
constexpr double kKeyShare = 0.40;

} // namespace

frmMain::frmMain(Session& session)
    : FormOver(session), ui(std::make_unique<Ui::frmMain>()), m_page(session),
      m_record(session, m_page) {
    ui->setupUi(this);
    setProperty(kHelpContext, help::kMainPage);
    ui->splMain->setSizes({static_cast<int>(width() * kPageShare),
                           static_cast<int>(width() * kKeyShare),
                           static_cast<int>(width() * (1 - kPageShare - kKeyShare))});
    // A larger window is shared.
    for (int pane = 0; pane < ui->splMain->count(); ++pane)
        ui->splMain->setStretchFactor(pane, 1);
    WatchMenu();
    WatchPage();
    WatchRecord();
    WatchLists();
    WatchButtons();
    AddShortcuts();
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.start(kIdleTickTime);
    On(&m_timer1, &QTimer::timeout, [this] {
        if (IdleTick(m_session))
            emit LogoffWanted();
    });
    Guarded([this] { LoadForm(); });
}

frmMain::~frmMain() {
    // A box that loses the focus while the form goes no longer fills its list.
    ui->lists->disconnect(this);
}

// What the user does.

void frmMain::WatchMenu() {
    On(ui->menubar, &MainMenu::FormWanted, [this](const QString& form) { AskForEntry(form); });
    On(ui->menubar, &MainMenu::ReportWanted,
       [this](MainReport report, bool preview) { PrintReport(report, preview); });
    On(ui->menubar, &MainMenu::ContentsWanted, [this] {
        if (SavePending(kLabelToLeavePage))
            emit Events().HelpWanted(help::kContents);
    });
    On(ui->menubar, &MainMenu::IndexWanted, [this] {
        if (SavePending(kLabelToLeavePage))
            emit HelpIndexWanted();
    });
}

void frmMain::WatchPage() {
    On(ui->pnlPage, &PagePanel::CellClicked, [this](int cell) { ClickCell(cell); });
    On(ui->pnlPage, &PagePanel::PageWanted, [this](int page) { TurnPage(page); });
    On(ui->pnlPage, &PagePanel::PageDragged, [this](int page) {
        m_session.IdleTickCounter = 0;
        m_session.CurrentPage = page;
    });
    On(ui->pnlPage, &PagePanel::NumberClicked, [this] { m_page.LoadingPage = true; });
    On(ui->pnlPage, &PagePanel::LayoutToggled, [this] { ToggleLayout(); });
}

void frmMain::WatchRecord() {
    On(ui->frmKey, &RecordPanel::Changed, [this] {
        m_session.IdleTickCounter = 0;
        ui->frmKey->ShowEdited(IsEdited());
    });
    On(ui->frmKey, &RecordPanel::DescriptionFull,
       [this] { ui->pnlStatus->Tell(tr("The description is full: there is no room for more.")); });
}

void frmMain::WatchLists() {
    On(ui->lists, &ListArea::KeysWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowKeys(FillKeyList(m_session, filter));
    });
    On(ui->lists, &ListArea::DoorsWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowDoors(
            FillDoorList(m_session, m_page, m_selectedCell, ui->frmKey->Text().keyID, filter),
            m_session);
    });
    On(ui->lists, &ListArea::UsersWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowUsers(FillUserList(m_session, ui->frmKey->Text().keyID, filter));
    });
    On(ui->lists, &ListArea::KeyChosen, [this](int page, int cell) { BringUp(page, cell); });
    On(ui->lists, &ListArea::DoorChosen, [this](const QString& label) {
        if (MayLeaveFor("frmDoors"))
            emit FormWanted(QStringLiteral("frmDoors"), label);
    });
    On(ui->lists, &ListArea::UserChosen, [this](const QString& userID) {
        if (MayLeaveFor("frmKeyUsers"))
            emit FormWanted(QStringLiteral("frmKeyUsers"), userID);
    });
}

void frmMain::WatchButtons() {
    On(ui->cmdLegend, &QPushButton::clicked, [this] { ui->scrLevels->ToggleLegend(); });
    On(ui->cmdPinning, &QPushButton::clicked, [this] { ShowPinning(); });
    On(ui->cmdPrintPage, &QPushButton::clicked, [this] { PrintReport(MainReport::Page, false); });
    On(ui->cmdHelp, &QPushButton::clicked, [this] { emit Events().HelpWanted(help::kMainPage); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { AskForEntry(QStringLiteral("frmExit")); });
}

void frmMain::AddShortcuts() {
    const auto on = [this](const QKeySequence& keys, auto action) {
        On(new QShortcut(keys, this), &QShortcut::activated, action);
    };
    on(Qt::Key_PageUp, [this] { ui->pnlPage->StepPage(-1); });
    on(Qt::Key_PageDown, [this] { ui->pnlPage->StepPage(1); });
    on(Qt::Key_F6, [this] {
        if (ui->pnlPage->CellsHaveFocus())
            ui->frmKey->FocusKeyID();
        else
            ui->pnlPage->FocusCells();
    });
    on(Qt::Key_F7, [this] { ui->lists->FocusNext(); });
}

// Loading.

void frmMain::LoadForm() {
    const BusyPointer busy;
    ApplyPermissions();
    ui->pnlSystem->ShowSystem(m_page.System(), m_session.SessionPermissions.ReadPrintPinning);
    if (!m_session.MapDatabase)
        m_session.boxes.Message(tr("No Map Files are available"), tr("File Access Error"));
    ui->pnlPage->SetPages(m_page.System().MaxPage);
    m_page.LoadPageView();
    ui->scrLevels->ApplyLevelCaptions(m_page.System().PinCount);
}

void frmMain::OfferForms(const QSet<QString>& names) {
    m_offered = names;
    ApplyPermissions();
}

/// Dims what the user has no right to, and what leads nowhere.
void frmMain::ApplyPermissions() {
    ui->menubar->Offer(m_session.SessionPermissions, m_offered);
    const Permissions& may = m_session.SessionPermissions;
    ui->cmdPinning->setEnabled(may.ReadPrintPinning);
    ui->cmdPrintPage->setEnabled(may.ReadPrintPinning && may.RunReports);
}

void frmMain::Activated() {
    const BusyPointer busy;
    ui->pnlSystem->ShowLogo(m_session.Company.CompanyLogo);
    ui->pnlSystem->ShowNumber(m_session.ActiveSystemNumber);
    SetCompactLayout();
    Reload();
}

/// Shows the page and the record as they are stored: other windows and workstations may have
/// changed them.
void frmMain::Reload() {
    m_page.LoadPageView();
    m_page.LoadingPage = false;
    StayOnPage();
    ShowStored();
    SelectCell(m_selectedCell, Manner::Again);
}

/// Shows what follows what is stored, but for the page.
void frmMain::ShowStored() {
    const QStringList departments = m_page.ListDepartments();
    ui->frmKey->ShowDepartments(departments);
    m_record.RefreshOffer(departments);
    ui->pnlStatus->ShowFacts(m_session);
    if (ui->lists->ListsKeys())
        ui->lists->ShowKeys(FillKeyList(m_session, ui->lists->KeyFilter()));
}

// Pending edits.

bool frmMain::IsEdited() const {
    return m_record.IsEdited(ui->frmKey->Text());
}

/// Filling the boxes is no edit: what they then hold is what later text is compared with.
void frmMain::ShowText(const KeyRecordText& text) {
    ui->frmKey->ShowText(text);
    m_record.ShownAs(ui->frmKey->Text());
    ui->frmKey->ShowEdited(false);
}

/// Saves what was typed, if anything was. False when it is refused, or when it is not to be stored
/// and the user will not lose it.
bool frmMain::SavePending(int leastLabel) {
    // Neither a shortcut nor a mnemonic takes the focus from the box that is typed in.
    ui->frmKey->LeaveBox();
    KeyRecordText screen = ui->frmKey->Text();
    if (!m_record.IsEdited(screen))
        return true;
    if (screen.keyID.size() < leastLabel)
        return MayDropRecord(leastLabel);
    const BusyPointer busy;
    if (!m_record.SaveKeyRecord(screen)) {
        ui->frmKey->ShowKeyID(screen.keyID);
        return false;
    }
    ShowText(screen);
    ui->pnlStatus->Tell(m_record.LastStored());
    TellDone(m_record.LastStored(), [this] { ShowStored(); });
    return true;
}

/// Asks before text is dropped that has no Key ID to be stored under.
bool frmMain::MayDropRecord(int leastLabel) {
    const QString reason =
        leastLabel == 1 || ui->frmKey->Text().keyID.isEmpty()
            ? tr("A key needs a Key ID to be stored; a blank takes the one it has away.")
            : tr("A Key ID of one character is stored by a click on another key of the page.");
    return m_session.boxes.ConfirmsLoss(tr("What you have typed is not saved: %1\n\n%2\n\nLeave it "
                                           "without saving?")
                                            .arg(m_record.Subject(), reason),
                                        m_session.ProgramTitle);
}

/// As `SavePending`, for a way on that a refusal does not bar: the user has been told of it, and
/// nothing else that was typed is lost.
bool frmMain::MayMoveOn(int leastLabel) {
    return SavePending(leastLabel) || !IsEdited();
}

/// Saves before the form is left for good, whatever length the Key ID has: there is no coming back
/// to it. Where the file fails the user may leave without.
bool frmMain::SaveOrDrop() {
    try {
        return SavePending(1);
    } catch (const DatabaseError& error) {
        return m_session.boxes.ConfirmsLoss(
            tr("%1\n\nWhat you have typed is not saved: %2.\n\nLeave it without saving?")
                .arg(QString::fromUtf8(error.what()), m_record.Subject()),
            m_session.ProgramTitle);
    }
}

bool frmMain::Unloading() {
    return SaveOrDrop();
}

// Ways to other forms.

void frmMain::AskForEntry(const QString& formName) {
    const auto is = [&](const char* name) { return formName == QLatin1String(name); };
    const bool mayHave = !is("frmPermissions") || m_session.SessionPermissions.AddEditProgramUsers;
    if (is("frmCreateFile") || is("frmOpenFile"))
        LeaveSystem(formName);
    else if (is("frmManufacturer"))
        AskFor(formName, m_page.System().lockBrand);
    else if (mayHave)
        AskFor(formName);
    else if (SavePending(kLabelToLeavePage))
        m_session.boxes.Message(tr("You Do Not Have Permission to Set User Paramiters"),
                                m_session.ProgramTitle);
}

void frmMain::AskFor(const QString& formName, const QString& subject) {
    const bool exits = formName == QLatin1String("frmExit");
    if (exits ? SaveOrDrop() : SavePending(kLabelToLeavePage))
        emit FormWanted(formName, subject);
}

void frmMain::LeaveSystem(const QString& formName) {
    if (SaveOrDrop())
        emit SystemLeft(formName);
}

/// True when a line of a list can lead to its form, and nothing that was typed is lost by it.
bool frmMain::MayLeaveFor(const char* formName) {
    if (m_offered.contains(QLatin1String(formName)))
        return SavePending(1);
    QToolTip::showText(ui->lists->mapToGlobal(ui->lists->rect().center()), MainMenu::NotYet());
    return false;
}

void frmMain::ShowPinning() {
    const BusyPointer busy;
    if (!MayMoveOn(kLabelToLeavePage))
        return;
    const PageCell& cell = m_page.Cell(m_selectedCell);
    const auto mark = static_cast<std::size_t>(m_page.System().PinCount);
    if (cell.IsBlank())
        m_session.boxes.Message(tr("There is no key in this cell. Click the key to pin for."),
                                m_session.ProgramTitle);
    else if (cell.tag.at(mark) == '*' && IsNoValue(ui->frmKey->Text().keyID))
        m_session.boxes.Message(
            tr("This Pattern is Not Recomended due to Safety Factor limitation"),
            m_session.ProgramTitle);
    else
        emit PinningWanted(SelectedKey());
}

PinningRequest frmMain::SelectedKey() const {
    const OpenSystem& system = m_page.System();
    const KeyRecordText record = ui->frmKey->Text();
    const auto pins = static_cast<std::size_t>(system.PinCount);
    PinningRequest request;
    request.system = system.name;
    request.address = system.address;
    request.lockBrand = system.lockBrand;
    request.department = record.department;
    request.description = record.description;
    request.keyID = record.keyID;
    request.keyway = record.keyway;
    request.key = m_page.Cell(m_selectedCell).tag.substr(0, pins);
    request.master = m_page.Cell(MasterCell(system.PinCount)).tag.substr(0, pins);
    if (system.SystemIsIC)
        request.control = system.SpecialCuts;
    return request;
}

void frmMain::PrintReport(MainReport report, bool preview) {
    ui->pnlStatus->Tell({});
    if (!SavePending(kLabelToLeavePage))
        return;
    if (const QString told = m_print(report, preview); !told.isEmpty())
        ui->pnlStatus->Tell(told);
}

// The page and its selected cell.

/// Shows the page of a key and selects it.
void frmMain::BringUp(int page, int cell) {
    const BusyPointer busy;
    if (!SavePending(kLabelToLeavePage))
        return;
    ShowPage(page);
    m_page.LoadingPage = false;
    SelectCell(cell, Manner::Clicked);
}

void frmMain::ShowFound(int page, int cell, const QString& told) {
    if (cell >= kAllCells) {
        ui->pnlStatus->Tell(tr("The key that was found has no cell on a page."));
        return;
    }
    BringUp(page, cell);
    if (!told.isEmpty())
        ui->pnlStatus->Tell(told);
}

/// Sets the bar and the number to the page that is shown.
void frmMain::StayOnPage() {
    m_session.CurrentPage = m_page.LoadedPage();
    ui->pnlPage->ShowPage(m_session.CurrentPage);
}

/// Reads a page. What fails leaves the one that is shown, with its number.
void frmMain::ShowPage(int page) {
    try {
        m_session.CurrentPage = page;
        m_page.LoadPageView();
        m_record.StopRepeating();
    } catch (...) {
        StayOnPage();
        throw;
    }
    StayOnPage();
    if (const int unreadable = m_page.CountUnreadable(); unreadable > 0)
        ui->pnlStatus->Tell(unreadable == 1
                                ? tr("A key of this page cannot be read.")
                                : tr("%1 keys of this page cannot be read.").arg(unreadable));
}

void frmMain::TurnPage(int page) {
    m_session.IdleTickCounter = 0;
    const BusyPointer busy;
    // Until the page is read, the number and the bar are those of the page that is shown.
    StayOnPage();
    if (!MayMoveOn(kLabelToLeavePage))
        return;
    ShowPage(page);
    // Whoever turns pages at the bar goes on turning.
    const bool atBar = ui->pnlPage->BarHasFocus();
    m_page.LoadingPage = false;
    SelectCell(m_selectedCell, Manner::PageTurned);
    if (atBar)
        ui->pnlPage->FocusBar();
}

void frmMain::ClickCell(int cell) {
    if (!m_session.SessionPermissions.AlterKeyInformation || MayMoveOn(1))
        SelectCell(cell,
                   std::exchange(m_page.LoadingPage, false) ? Manner::PageTurned : Manner::Clicked);
}

/// Shows a cell's record in place of the one that is shown, whatever the boxes hold.
void frmMain::SelectCell(int cell, Manner manner) {
    const BusyPointer busy;
    m_selectedCell = cell;
    const PageCell& content = m_page.Cell(cell);
    const Permissions& may = m_session.SessionPermissions;
    const KeySelection selection = SelectKey(m_page, cell, may.ReadPrintPinning);
    ui->frmKey->ShowKey(selection, PlaceInWords(m_page, cell));
    ShowText(m_record.Open(cell, manner != Manner::PageTurned));
    ui->frmKey->SetEditable(may.AlterKeyInformation && !content.IsBlank());
    ui->scrLevels->ShowLevels(selection);
    ui->pnlPage->PaintCells(m_page, selection);
    ui->lists->ClearKey();
    ui->lists->ShowSelected(content.stored.key);
    ui->frmKey->FocusKeyID();
    if (manner != Manner::Clicked)
        return;
    WarnOf(selection);
    ui->frmKey->SelectKeyway();
}

void frmMain::WarnOf(const KeySelection& selection) {
    if (selection.notRecommended)
        m_session.boxes.Message(tr("This Pattern is Not Recomended for use due to Safety Factor "
                                   "Limitation!"),
                                m_session.ProgramTitle);
    if (selection.isControlKey)
        m_session.boxes.Message(ControlKeyWarning(), m_session.ProgramTitle, BoxButtons::Ok,
                                BoxIcon::Warning);
}

void frmMain::SetCompactLayout() {
    ui->pnlPage->SetCompactLayout();
    if (!m_compactWidths.isEmpty())
        ui->splMain->setSizes(std::exchange(m_compactWidths, {}));
}

/// Gives the page the width that it needs, for as long as it is large.
void frmMain::SetLargeLayout() {
    QList<int> widths = ui->splMain->sizes();
    m_compactWidths = widths;
    const int more = std::max(0, ui->pnlPage->LargeWidth() - widths[0]);
    widths[0] += more;
    widths[1] -= more / 2;
    widths[2] -= more - more / 2;
    ui->splMain->setSizes(widths);
    ui->pnlPage->SetLargeLayout();
}

void frmMain::ToggleLayout() {
    if (ui->pnlPage->IsLarge())
        SetCompactLayout();
    else
        SetLargeLayout();
    if (MayMoveOn(1))
        SelectCell(m_selectedCell, Manner::Again);
}

} // namespace quorrel
