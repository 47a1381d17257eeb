#include "page/frmMain.h"

#include "access/IdleWatch.h"
#include "page/KeyCell.h"
#include "page/KeyLists.h"
#include "platform/Text.h"
#include "ui_frmMain.h"
#include "widgets/HelpContexts.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolTip>

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kDescriptionLength = 250;
/// Characters that a Key ID must have to be saved when the page or the form is left. A click on
/// another cell saves one of a single character too.
constexpr int kLabelToLeavePage = 2;

/// What the page and the selected key take of the form's width at first, in pixels.
constexpr int kPageWidth = 1020;

QString NotYet() {
    return frmMain::tr("This window is not part of this version yet.");
}

} // namespace

frmMain::frmMain(Session& session)
    : FormOver(session), ui(std::make_unique<Ui::frmMain>()), m_page(session),
      m_record(session, m_page) {
    ui->setupUi(this);
    setProperty(kHelpContext, help::kMainPage);
    // A larger window is shared: it is the lists that run short of room.
    ui->splMain->setStretchFactor(0, 1);
    ui->splMain->setStretchFactor(1, 1);
    ui->splMain->setSizes({kPageWidth, width() - kPageWidth});
    resize(size().boundedTo(screen()->availableSize()));
    SetFonts();
    WatchMenu();
    WatchHelpMenu();
    WatchRecord();
    WatchLists();
    On(ui->grdPage, &PageGrid::CellClicked, [this](int cell) { ClickCell(cell); });
    On(ui->scrlPage, &QScrollBar::valueChanged, [this](int page) { TurnPage(page); });
    On(ui->scrlPage, &QScrollBar::sliderMoved, [this](int page) {
        m_session.IdleTickCounter = 0;
        m_session.CurrentPage = page;
        ShowPageNumber();
    });
    // While the slider is dragged only the number moves; the page is read when it is let go.
    ui->scrlPage->setTracking(false);
    On(ui->Picture1_0, &QToolButton::clicked, [this] { ClickPicture1(); });
    On(ui->Picture1_1, &QToolButton::clicked, [this] { ClickPicture1(); });
    On(ui->cmdLegend, &QPushButton::clicked, [this] { ToggleLegend(); });
    On(ui->cmdPinning, &QPushButton::clicked, [this] { ShowPinning(); });
    On(ui->cmdHelp, &QPushButton::clicked, [this] { emit Events().HelpWanted(help::kMainPage); });
    connect(ui->cmdExit, &QPushButton::clicked, ui->mnuFileExit, &QAction::trigger);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.start(kIdleTickTime);
    On(&m_timer1, &QTimer::timeout, [this] {
        if (IdleTick(m_session))
            emit LogoffWanted();
    });
    AddShortcuts();
    Guarded([this] { LoadForm(); });
}

frmMain::~frmMain() {
    // A box that loses the focus while the form goes no longer fills its list.
    ui->lists->disconnect(this);
}

void frmMain::SetFonts() {
    QFont bold = font();
    bold.setBold(true);
    ui->lblSystem->setFont(bold);
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSizeF(font().pointSizeF() * 1.15);
    digits.setBold(true);
    ui->lblCuts->setFont(digits);
    // Room for the caption that stands out, so that the columns stay where they are.
    int widest = 0;
    for (const LevelLabels& level : Levels())
        widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(level.caption->text()));
    ui->grdLevels->setColumnMinimumWidth(0, widest);
}

/// The entries that do nothing but lead to a form.
std::vector<frmMain::FormEntry> frmMain::FormEntries() const {
    const Permissions& may = m_session.SessionPermissions;
    return {{ui->mnuPrintDoors, "frmDoorsList", true},
            {ui->mnuHardware, "frmPrintHardware", true},
            {ui->mnuKeysByDepartment, "frmKeysbyDepartment", true},
            {ui->mnuKeysByUsers, "frmKeysbyUsers", true},
            {ui->mnuPrintKeyChart, "frmPrintKeyPages", true},
            {ui->mnuPrintChart, "frmPrintPinning", may.ReadPrintPinning},
            {ui->mnuUnKeyed, "frmUKDoorsList", true},
            {ui->mnuFileExit, "frmExit", true},
            {ui->mnuCompanyInfo, "frmCompanyInfo", may.CreateSystem},
            {ui->mnuEditDepartment, "frmDepartments", true},
            {ui->mnuEditHardware, "frmEditHardware", true},
            {ui->mnuNetwork, "frmNetwork", may.CreateSystem && may.AddEditProgramUsers},
            {ui->mnuAssignDoors, "frmDoors", may.IssueKeys},
            {ui->mnuAssignUsers, "frmKeyUsers", true},
            {ui->mnuMapFiles, "frmMapFiles", may.CreateSystem},
            {ui->mnuCurrent, "frmFindKey", true},
            {ui->mnuReturned, "frmDBReturnKey", may.AddEditProgramUsers},
            {ui->mnuLost, "frmDBLostKeys", may.AddEditProgramUsers},
            {ui->mnuHelpAbout, "frmAbout", true}};
}

void frmMain::WatchMenu() {
    for (const FormEntry& entry : FormEntries())
        On(entry.action, &QAction::triggered,
           [this, form = QString::fromLatin1(entry.form)] { AskFor(form); });
    connect(ui->mnuFind->menuAction(), &QAction::triggered, ui->mnuCurrent, &QAction::trigger);
    On(ui->mnuFileNew, &QAction::triggered,
       [this] { LeaveSystem(QStringLiteral("frmCreateFile")); });
    On(ui->mnuFileOpen, &QAction::triggered,
       [this] { LeaveSystem(QStringLiteral("frmOpenFile")); });
    On(ui->mnuPinSizes, &QAction::triggered,
       [this] { AskFor(QStringLiteral("frmManufacturer"), ui->lblBrand->text()); });
    On(ui->mnuUsersAdd, &QAction::triggered, [this] {
        if (m_session.SessionPermissions.AddEditProgramUsers)
            AskFor(QStringLiteral("frmPermissions"));
        else if (SavePending(kLabelToLeavePage))
            m_session.boxes.Message(tr("You Do Not Have Permission to Set User Paramiters"),
                                    m_session.ProgramTitle);
    });
}

void frmMain::WatchHelpMenu() {
    On(ui->mnuHelpContents, &QAction::triggered, [this] {
        if (SavePending(kLabelToLeavePage))
            emit Events().HelpWanted(help::kContents);
    });
    On(ui->mnuHelpIndex, &QAction::triggered, [this] {
        if (SavePending(kLabelToLeavePage))
            emit HelpIndexWanted();
    });
}

void frmMain::AskFor(const QString& formName, const QString& subject) {
    const bool exits = formName == QLatin1String("frmExit");
    if (exits ? SaveOrDrop() : SavePending(kLabelToLeavePage))
        emit FormWanted(formName, subject);
}

void frmMain::LeaveSystem(const QString& formName) {
    // Whatever length the Key ID has: there is no coming back to it.
    if (SaveOrDrop())
        emit SystemLeft(formName);
}

void frmMain::OfferForms(const QSet<QString>& names) {
    m_offered = names;
    ApplyPermissions();
}

void frmMain::WatchLists() {
    On(ui->lists, &ListArea::KeysWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowKeys(FillKeyList(m_session, filter));
    });
    On(ui->lists, &ListArea::DoorsWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowDoors(
            FillDoorList(m_session, m_page, m_selectedCell, ui->txtKeyID->text(), filter));
    });
    On(ui->lists, &ListArea::UsersWanted, [this](const QString& filter) {
        const BusyPointer busy;
        ui->lists->ShowUsers(FillUserList(m_session, ui->txtKeyID->text(), filter));
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

/// True when a line of a list can lead to its form, and nothing that was typed is lost by it.
bool frmMain::MayLeaveFor(const char* formName) {
    if (m_offered.contains(QLatin1String(formName)))
        return SavePending(1);
    QToolTip::showText(ui->lists->mapToGlobal(ui->lists->rect().center()), NotYet());
    return false;
}

/// Shows the page of a key and selects it.
void frmMain::BringUp(int page, int cell) {
    const BusyPointer busy;
    if (!SavePending(kLabelToLeavePage))
        return;
    ShowPage(page);
    m_page.LoadingPage = false;
    SelectCell(cell, Manner::Clicked);
}

void frmMain::WatchRecord() {
    const bool mayEdit = m_session.SessionPermissions.AlterKeyInformation;
    ui->txtKeyID->setReadOnly(!mayEdit);
    ui->txtKeyway->setReadOnly(!mayEdit);
    ui->txtDescription->setReadOnly(!mayEdit);
    ui->cmbDepartment->setEnabled(mayEdit);
    const auto touch = [this] { m_session.IdleTickCounter = 0; };
    On(ui->txtKeyID, &QLineEdit::textChanged, touch);
    On(ui->txtKeyway, &QLineEdit::textChanged, touch);
    On(ui->cmbDepartment, &QComboBox::currentTextChanged, touch);
    On(ui->txtDescription, &QPlainTextEdit::textChanged, [this, touch] {
        touch();
        HoldDescription();
    });
    On(ui->txtDescription->document(), &QTextDocument::contentsChange,
       [this](int place, int, int added) { m_insertionEnd = place + added; });
    for (QObject* field : std::initializer_list<QObject*>{ui->txtKeyID, ui->txtKeyway,
                                                          ui->cmbDepartment, ui->txtDescription})
        field->installEventFilter(this);
}

/// Holds the description to the length that is kept: what is too much is refused where it came in.
void frmMain::HoldDescription() {
    const auto excess = ui->txtDescription->toPlainText().size() - kDescriptionLength;
    if (excess <= 0)
        return;
    QTextCursor cursor(ui->txtDescription->document());
    cursor.joinPreviousEditBlock();
    cursor.setPosition(
        std::min(m_insertionEnd, ui->txtDescription->document()->characterCount() - 1));
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, static_cast<int>(excess));
    cursor.removeSelectedText();
    cursor.endEditBlock();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, this, [this, watched] { SelectWhole(watched); });
    if (event->type() == QEvent::FocusOut)
        RaiseCase(watched);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        QWidget* next = watched == ui->txtKeyway       ? ui->txtKeyID
                        : watched == ui->txtKeyID      ? static_cast<QWidget*>(ui->cmbDepartment)
                        : watched == ui->cmbDepartment ? ui->txtDescription
                                                       : nullptr;
        if (next && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            next->setFocus();
            return true;
        }
    }
    return FormOver::eventFilter(watched, event);
}

void frmMain::SelectWhole(QObject* field) {
    if (field == ui->txtDescription && ui->txtDescription->hasFocus())
        ui->txtDescription->selectAll();
    if (field == ui->cmbDepartment && ui->cmbDepartment->hasFocus())
        ui->cmbDepartment->lineEdit()->selectAll();
    if (auto* edit = qobject_cast<QLineEdit*>(field); edit && edit->hasFocus())
        edit->selectAll();
}

void frmMain::RaiseCase(QObject* field) {
    if (field == ui->txtKeyID) {
        const QString text = ui->txtKeyID->text().toUpper();
        // A blank that takes the Key ID away stays until the key is left.
        ui->txtKeyID->setText(text.trimmed().isEmpty() ? text.left(1) : RightTrimmed(text));
    }
    if (field == ui->txtKeyway)
        ui->txtKeyway->setText(ui->txtKeyway->text().toUpper());
    if (field == ui->cmbDepartment)
        ui->cmbDepartment->setEditText(ui->cmbDepartment->currentText().toUpper());
}

KeyRecordText frmMain::ScreenText() const {
    return {ui->txtKeyID->text(), ui->txtKeyway->text(), ui->cmbDepartment->currentText(),
            ui->txtDescription->toPlainText()};
}

/// Filling the boxes is no edit: what they then hold is what later text is compared with.
void frmMain::ShowText(const KeyRecordText& text) {
    ui->txtDescription->setPlainText(text.description);
    ui->cmbDepartment->setCurrentText(text.department);
    ui->txtKeyID->setText(text.keyID);
    ui->txtKeyway->setText(text.keyway);
    m_record.ShownAs(ScreenText());
}

/// Saves what was typed, if anything was. False when it is refused, or when it is not to be stored
/// and the user will not lose it.
bool frmMain::SavePending(int leastLabel) {
    KeyRecordText screen = ScreenText();
    if (!m_record.IsEdited(screen))
        return true;
    if (screen.keyID.size() < leastLabel)
        return MayDropRecord(leastLabel);
    const BusyPointer busy;
    const bool accepted = m_record.SaveKeyRecord(screen);
    if (accepted) {
        ShowText(screen);
        LoadDepartmentList();
    } else {
        ui->txtKeyID->setText(screen.keyID);
    }
    return accepted;
}

/// Asks before text is dropped that has no Key ID to be stored under.
bool frmMain::MayDropRecord(int leastLabel) {
    const QString reason =
        leastLabel == 1 || ui->txtKeyID->text().isEmpty()
            ? tr("A key needs a Key ID to be stored; a blank takes the one it has away.")
            : tr("A Key ID of one character is stored by a click on another key of the page.");
    return m_session.boxes.ConfirmsLoss(tr("What you have typed is not saved: %1\n\n%2\n\nLeave "
                                           "it without saving?")
                                            .arg(m_record.Subject(), reason),
                                        m_session.ProgramTitle);
}

/// As `SavePending`, for a way on that a refusal does not bar: the user has been told of it, and
/// nothing else that was typed is lost.
bool frmMain::MayMoveOn(int leastLabel) {
    return SavePending(leastLabel) || !m_record.IsEdited(ScreenText());
}

void frmMain::AddShortcuts() {
    const auto on = [this](const QKeySequence& keys, auto action) {
        On(new QShortcut(keys, this), &QShortcut::activated, action);
    };
    on(Qt::Key_PageUp, [this] { ui->scrlPage->triggerAction(QScrollBar::SliderSingleStepSub); });
    on(Qt::Key_PageDown, [this] { ui->scrlPage->triggerAction(QScrollBar::SliderSingleStepAdd); });
    on(Qt::Key_F6, [this] {
        if (ui->grdPage->isAncestorOf(focusWidget()))
            ui->txtKeyID->setFocus();
        else
            ui->grdPage->setFocus();
    });
    on(Qt::Key_F7, [this] { ui->lists->FocusNext(); });
}

bool frmMain::Unloading() {
    return SaveOrDrop();
}

/// Saves before the form is left for good. Where the file fails the user may leave without.
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

void frmMain::LoadForm() {
    const BusyPointer busy;
    ApplyPermissions();
    ShowSystem();
    if (!m_session.MapDatabase)
        m_session.boxes.Message(tr("No Map Files are available"), tr("File Access Error"));
    LoadDepartmentList();
    ShowSpecialCuts();
    const int pages = m_page.System().MaxPage;
    ui->lblMaxPage->setText(QString::number(pages));
    {
        // The page is read below, once.
        const QSignalBlocker blocker(ui->scrlPage);
        ui->scrlPage->setRange(1, std::max(1, pages));
    }
    m_page.LoadPageView();
    ApplyLevelCaptions();
}

/// Dims what the user has no right to, and what leads nowhere.
void frmMain::ApplyPermissions() {
    const Permissions& may = m_session.SessionPermissions;
    ui->mnuUsers->menuAction()->setEnabled(may.AddEditProgramUsers);
    ui->cmdPinning->setEnabled(may.ReadPrintPinning);
    ui->mnuFilePrint->menuAction()->setEnabled(may.RunReports);
    auto entries = FormEntries();
    entries.insert(entries.end(), {{ui->mnuFileNew, "frmCreateFile", may.CreateSystem},
                                   {ui->mnuFileOpen, "frmOpenFile", true},
                                   {ui->mnuPinSizes, "frmManufacturer", may.CreateSystem},
                                   {ui->mnuUsersAdd, "frmPermissions", true}});
    for (const FormEntry& entry : entries) {
        const bool offered = m_offered.contains(QLatin1String(entry.form));
        entry.action->setEnabled(offered && entry.allowed);
        entry.action->setToolTip(offered ? QString() : NotYet());
    }
    for (QAction* entry : {ui->mnuPrintAll, ui->mnuPrintKeys, ui->mnuFilePrinter}) {
        entry->setEnabled(false);
        entry->setToolTip(NotYet());
    }
    ui->cmdPrintPage->setEnabled(false);
    ui->cmdPrintPage->setToolTip(NotYet());
}

void frmMain::ShowSystem() {
    const OpenSystem& system = m_page.System();
    if (system.PinCount == 0)
        return;
    ui->lblSystem->setText(system.name);
    ui->lblAddress->setText(system.address);
    ui->lblBrand->setText(system.lockBrand);
    ui->lblSafety->setText(QString::number(system.safetyFactor));
    ui->lblNumofPins->setText(QString::number(system.PinCount));
    ui->lblIncrement->setText(QString::number(system.increment));
    ui->lblNotes->setText(system.notes);
}

void frmMain::ShowSpecialCuts() {
    const OpenSystem& system = m_page.System();
    const bool mayRead = m_session.SessionPermissions.ReadPrintPinning;
    const QString cuts = mayRead ? QString::fromStdString(system.SpecialCuts) : QString();
    ui->lblAngle->setText(system.SystemIsAngled ? cuts : QString());
    ui->lblControlKey->setText(system.SystemIsIC ? cuts : QString());
    for (QLabel* label : {ui->lblAngleLabel, ui->lblAngle})
        label->setVisible(system.SystemIsAngled && mayRead);
    for (QLabel* label : {ui->lblControlKeyLabel, ui->lblControlKey})
        label->setVisible(system.SystemIsIC && mayRead);
}

void frmMain::Activated() {
    const BusyPointer busy;
    m_cellIconSize = 0;
    ui->picQV->ShowLogo(m_session.Company.CompanyLogo);
    ui->lblSysid->setText(QString::number(m_session.ActiveSystemNumber));
    Reload();
    SetCompactLayout();
    ClickPicture1();
}

/// Shows the page and the record as they are stored: other windows and workstations may have
/// changed them.
void frmMain::Reload() {
    m_page.LoadPageView();
    m_page.LoadingPage = false;
    StayOnPage();
    LoadDepartmentList();
    SelectCell(m_selectedCell, Manner::Again);
}

void frmMain::LoadDepartmentList() {
    ui->cmbDepartment->SetTexts(m_page.ListDepartments(),
                                ui->cmbDepartment->currentText().toUpper());
}

void frmMain::ApplyLevelCaptions() {
    const auto levels = Levels();
    const auto show = [&](Level level, bool shown) {
        const LevelLabels& line = levels[static_cast<std::size_t>(level)];
        for (QLabel* label : {line.caption, line.id, line.description})
            label->setVisible(shown);
    };
    const int pins = m_page.System().PinCount;
    if (pins < 5 || pins > 7)
        return;
    show(Level::Grand, pins == 7);
    show(Level::System, pins >= 6);
    show(Level::Group, true);
    if (pins == 5)
        ui->lblGroupMaster->setText(tr("Grand Master"));
    if (pins == 6)
        ui->lblSystemMaster->setText(tr("Grand Master"));
}

std::array<frmMain::LevelLabels, kLevels> frmMain::Levels() const {
    return {{{ui->lblGrandMaster, ui->lblGrandMasterID, ui->lblGrandMasterDesc},
             {ui->lblSystemMaster, ui->lblSystemMasterID, ui->lblSystemMasterDesc},
             {ui->lblGroupMaster, ui->lblGroupMasterID, ui->lblGroupMasterDesc},
             {ui->lblBaseMaster, ui->lblBaseMasterID, ui->lblBaseMasterDesc},
             {ui->lblPageMaster, ui->lblPageMasterID, ui->lblPageMasterDesc},
             {ui->lblBlockMaster, ui->lblBlockMasterID, ui->lblBlockMasterDesc},
             {ui->lblAreaMaster, ui->lblAreaMasterID, ui->lblAreaMasterDesc},
             {ui->lblLineMaster, ui->lblLineMasterID, ui->lblLineMasterDesc},
             {ui->lblColumnMaster, ui->lblColumnMasterID, ui->lblColumnMasterDesc}}};
}

/// Shows the legend under the masters, both of which scroll where there is no room for them.
void frmMain::ToggleLegend() {
    ui->frmLegend->setVisible(!ui->frmLegend->isVisible());
    ui->layLevels->activate();
    if (ui->frmLegend->isVisible())
        QTimer::singleShot(0, this, [this] { ui->scrLevels->ensureWidgetVisible(ui->frmLegend); });
}

/// Leaves the icon size of the other layout; the click on `Picture1` sets the final one.
void frmMain::SetCompactLayout() {
    ui->grdPage->SetLayout(PageLayout::Compact);
    m_cellIconSize = 1;
}

void frmMain::SetLargeLayout() {
    ui->grdPage->SetLayout(PageLayout::Large);
    m_cellIconSize = 0;
}

void frmMain::ClickPicture1() {
    const int wanted = m_cellIconSize == 1 ? 0 : 1;
    if (wanted == 0)
        SetCompactLayout();
    else
        SetLargeLayout();
    m_cellIconSize = wanted;
    ui->Picture1_0->setVisible(wanted == 0);
    ui->Picture1_1->setVisible(wanted == 1);
    if (MayMoveOn(1))
        SelectCell(m_selectedCell, Manner::Again);
}

void frmMain::ShowPageNumber() {
    ui->lblCurrentPage->setText(QString::number(m_session.CurrentPage));
}

/// Sets the bar and the number to the page that is shown.
void frmMain::StayOnPage() {
    const QSignalBlocker blocker(ui->scrlPage);
    m_session.CurrentPage = m_page.LoadedPage();
    ui->scrlPage->setValue(m_session.CurrentPage);
    ShowPageNumber();
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
    const bool atBar = ui->scrlPage->hasFocus();
    m_page.LoadingPage = false;
    SelectCell(m_selectedCell, Manner::PageTurned);
    if (atBar)
        ui->scrlPage->setFocus();
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
    const KeySelection selection =
        SelectKey(m_page, cell, m_session.SessionPermissions.ReadPrintPinning);
    ShowText(m_record.Open(cell, manner != Manner::PageTurned));
    ui->lblSerial->setText(selection.serial);
    ui->lblDate->setText(selection.dateText);
    ui->lblCuts->setText(selection.cuts);
    ShowLevels(selection);
    PaintCells(selection);
    ui->txtKeyID->setFocus();
    ui->lists->ClearKey();
    if (manner != Manner::Clicked)
        return;
    if (selection.notRecommended)
        m_session.boxes.Message(tr("This Pattern is Not Recomended for use due to Safety Factor "
                                   "Limitation!"),
                                m_session.ProgramTitle);
    ui->txtKeyway->setSelection(0, 12);
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
    else if (cell.tag.at(mark) == '*' && IsNoValue(ui->txtKeyID->text()))
        m_session.boxes.Message(
            tr("This Pattern is Not Recomended due to Safety Factor limitation"),
            m_session.ProgramTitle);
    else
        emit PinningWanted(SelectedKey());
}

/// The selected key as the chart wants it.
PinningRequest frmMain::SelectedKey() const {
    const OpenSystem& system = m_page.System();
    const auto pins = static_cast<std::size_t>(system.PinCount);
    PinningRequest request;
    request.system = ui->lblSystem->text();
    request.address = ui->lblAddress->text();
    request.lockBrand = ui->lblBrand->text();
    request.department = ui->cmbDepartment->currentText();
    request.description = ui->txtDescription->toPlainText();
    request.keyID = ui->txtKeyID->text();
    request.keyway = ui->txtKeyway->text();
    request.key = m_page.Cell(m_selectedCell).tag.substr(0, pins);
    request.master = m_page.Cell(system.PinCount + 101).tag.substr(0, pins);
    if (system.SystemIsIC)
        request.control = system.SpecialCuts;
    return request;
}

void frmMain::ShowLevels(const KeySelection& selection) {
    const auto levels = Levels();
    for (std::size_t level = 0; level < levels.size(); ++level) {
        levels[level].id->setText(selection.levels[level].id);
        levels[level].description->setText(selection.levels[level].description);
        const bool highlight =
            selection.highlight && static_cast<std::size_t>(*selection.highlight) == level;
        QFont font = ui->Label37->font();
        font.setBold(highlight);
        QPalette palette = ui->Label37->palette();
        const bool dark = palette.color(QPalette::Window).lightness() < 128;
        if (highlight)
            palette.setColor(QPalette::WindowText,
                             dark ? QColor(255, 110, 110) : QColor(255, 0, 0));
        levels[level].caption->setFont(font);
        levels[level].caption->setPalette(palette);
    }
}

void frmMain::PaintCells(const KeySelection& selection) {
    for (int index = 0; index < kAllCells; ++index) {
        KeyCell& cell = ui->grdPage->Cell(index);
        const PageCell& content = m_page.Cell(index);
        cell.ShowState(selection.states[static_cast<std::size_t>(index)]);
        cell.setEnabled(!content.IsBlank());
        cell.setToolTip(content.toolTip);
        cell.setAccessibleName(DescribeCell(m_page, index, cell.ShownState()));
    }
}

} // namespace quorrel
