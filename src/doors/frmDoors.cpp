#include "doors/frmDoors.h"

#include "doors/DoorAssignment.h"
#include "doors/DoorLists.h"
#include "platform/Text.h"
#include "ui_frmDoors.h"
#include "widgets/HelpContexts.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <utility>

namespace quorrel {

namespace {

/// Characters of a label that a question shows.
constexpr int kLabelInQuestion = 80;

QString InQuestion(const QString& label) {
    return label.size() <= kLabelInQuestion ? label : label.left(kLabelInQuestion) + u'\u2026';
}

} // namespace

frmDoors::frmDoors(Session& session, const DoorWindows& offered)
    : Form(session), ui(std::make_unique<Ui::frmDoors>()), m_offered(offered) {
    ui->setupUi(this);
    PlaceAt(0.25, 0.25);
    OfferHelp(help::kDoors);
    OfferWindows();
    Guarded([this] { LoadDoorLists(); });
    WatchRecord();
    WatchLists();
    On(ui->cmdHelp, &QPushButton::clicked,
       [this] { emit Events().HelpWanted(help::kDoorAssignment); });
    On(ui->cmdDone, &QPushButton::clicked, [this] { Leave(); });
}

frmDoors::~frmDoors() = default;

void frmDoors::OfferWindows() {
    const QString missing = tr("This window is not part of this version yet.");
    ui->cmdAttachMap->setVisible(m_session.MapDatabase != nullptr);
    ui->cmdAttachMap->setEnabled(m_offered.map);
    if (!m_offered.map)
        ui->cmdAttachMap->setToolTip(missing);
    if (!m_offered.crossKey)
        ui->cmdViewXK->setToolTip(missing);
}

void frmDoors::WatchRecord() {
    ui->cmbDoorLabel->installEventFilter(this);
    On(ui->cmbDoorLabel, &QComboBox::editTextChanged, [this] { LabelChanged(); });
    On(ui->cmbDoorLabel, &QComboBox::activated, [this] { LabelChanged(); });
    On(ui->cmbHardware, &QComboBox::editTextChanged, [this] { ShowHardwareCount(); });
    On(ui->ckCrossKeyed, &QCheckBox::toggled,
       [this](bool crossKeyed) { ui->cmdViewXK->setEnabled(crossKeyed && m_offered.crossKey); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdDelete, &QPushButton::clicked, [this] { Delete(); });
    On(ui->cmdAttachMap, &QPushButton::clicked, [this] { OpenMapForDoor(); });
    On(ui->cmdViewXK, &QPushButton::clicked, [this] { OpenCrossKeyPage(); });
}

void frmDoors::WatchLists() {
    ui->lstKeyIDs->SetSearchBox(ui->txtSearchKey);
    ui->lstAllDoors->SetSearchBox(ui->txtSearchDoor);
    On(ui->lstKeyIDs, &TextList::Clicked, [this] { LoadKeyedDoors(); });
    On(ui->cmdAssignTo, &QPushButton::clicked, [this] { Assign(); });
    On(ui->lstAllDoors, &TextList::DoubleClicked, [this] { Assign(); });
    On(ui->cmdRemoveFrom, &QPushButton::clicked, [this] { Remove(); });
    On(ui->lstKeyedDoors, &TextList::DoubleClicked, [this] { Remove(); });
    On(ui->txtSearchDoor, &QLineEdit::textChanged, [this](const QString& text) {
        ui->lstAllDoors->Refill(SearchDoors(m_session, text), kDoorColumn);
    });
    On(ui->txtSearchKey, &QLineEdit::textChanged,
       [this](const QString& text) { SetKeyLines(SearchKeyableKeys(m_session, text)); });
}

bool frmDoors::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        TestLabel();
    return Form::eventFilter(watched, event);
}

void frmDoors::Activated() {
    if (!std::exchange(m_away, false))
        return;
    // The window that was shown meanwhile has worked on the door.
    ShowRecord();
    ShowKeyedDoors();
}

void frmDoors::AskFor(const QString& label) {
    ui->cmbDoorLabel->setEditText(label);
}

DoorText frmDoors::TypedRecord() const {
    DoorText typed;
    typed.label = ui->cmbDoorLabel->currentText();
    typed.description = ui->txtDoorDescription->toPlainText();
    typed.location = ui->txtDoorLocation->toPlainText();
    typed.hardware = ui->cmbHardware->currentText();
    typed.details = ui->txtHardwareSpecs->toPlainText();
    typed.keyed = ui->ckKeyed->isChecked();
    typed.crossKeyed = ui->ckCrossKeyed->isChecked();
    return typed;
}

void frmDoors::LoadDoorLists() {
    for (QPushButton* button : {ui->cmdAssignTo, ui->cmdRemoveFrom, ui->cmdDelete, ui->cmdSave})
        button->setEnabled(MayAssign());
    for (QLineEdit* search : {ui->txtSearchDoor, ui->txtSearchKey}) {
        // Both lists are filled whole below.
        const QSignalBlocker blocker(search);
        search->clear();
    }
    SetKeyLines(ListKeyableKeys(m_session));
    const DoorList doors = ListDoors(m_session);
    ui->cmbDoorLabel->SetTexts(doors.labels);
    ui->lstAllDoors->Refill(doors.lines, kDoorColumn);
    ui->cmbHardware->SetTexts(ListHardwareTypes(m_session));
    ClearRecord();
}

/// Empties the record after its boxes have been filled anew.
void frmDoors::ClearRecord() {
    for (QPlainTextEdit* field :
         {ui->txtDoorDescription, ui->txtDoorLocation, ui->txtHardwareSpecs})
        field->clear();
    ui->txtDoorID->clear();
    ui->txtKeyedTo->clear();
    ui->ckKeyed->setChecked(false);
    ui->ckKeyed->setText(KeyedCaption(0));
    ui->ckCrossKeyed->setChecked(false);
    ShowMapCaption(false);
    ShowHardwareCount();
    TestLabel();
    m_shown = TypedRecord();
}

/// Fills the list of keys. The key that was chosen stays so when it is among them.
void frmDoors::SetKeyLines(const QStringList& lines) {
    ui->lstKeyIDs->Refill(lines, kKeyColumn);
    ShowKeyedDoors();
}

void frmDoors::ShowKeyedDoors() {
    ui->lstKeyedDoors->Refill(ListKeyedDoors(m_session, ui->lstKeyIDs->CurrentText()));
}

void frmDoors::LoadKeyedDoors() {
    ShowKeyedDoors();
    ui->cmdDelete->setEnabled(MayAssign() && HasDoors(m_session));
}

void frmDoors::LabelChanged() {
    TestLabel();
    ShowRecord();
}

void frmDoors::TestLabel() {
    const QString label = ui->cmbDoorLabel->currentText();
    ui->ckCrossKeyed->setEnabled(!label.isEmpty() && label[0] != u' ');
}

/// Brings up the door of the label in its box. Without one all stays as it is, so that a new label
/// can be typed over an old one.
void frmDoors::ShowRecord() {
    const auto door = LoadDoorRecord(m_session, ui->cmbDoorLabel->currentText());
    if (!door)
        return;
    ui->txtDoorDescription->setPlainText(door->DoorDescription);
    ui->txtDoorLocation->setPlainText(door->DoorLocation);
    ui->txtDoorID->setText(Str(door->DoorID).trimmed());
    ui->txtKeyedTo->setText(door->CutsLabel);
    ui->cmbHardware->setEditText(door->Text1);
    ui->cmbHardware->lineEdit()->setCursorPosition(0);
    ui->txtHardwareSpecs->setPlainText(door->Text2);
    ui->ckKeyed->setChecked(door->Sing2 == 1);
    ui->ckKeyed->setText(KeyedCaption(door->Long1));
    ShowMapCaption(door->LinkMapID != 0);
    ui->ckCrossKeyed->setChecked(door->Crosskeyed);
    m_shown = TypedRecord();
}

void frmDoors::ShowMapCaption(bool attached) {
    ui->cmdAttachMap->setText(attached ? tr("View &Map") : tr("Attach &Map"));
}

void frmDoors::ShowHardwareCount() {
    ui->txtNumberofHardware->setText(
        QString::number(CountHardware(m_session, ui->cmbHardware->currentText())));
}

/// The key of the door on the screen may be another one by now.
void frmDoors::ShowKeyedTo() {
    if (const auto door = FindDoor(m_session, ui->cmbDoorLabel->currentText()))
        ui->txtKeyedTo->setText(door->CutsLabel);
}

/// Stores what is typed and begins anew. Gives the stored label, if there was one to store under.
std::optional<QString> frmDoors::StoreRecord() {
    auto stored = SaveDoorRecord(m_session, TypedRecord());
    if (stored)
        LoadDoorLists();
    return stored;
}

/// Stores what is typed and goes on with the same door.
void frmDoors::KeepRecord() {
    ui->cmdDelete->setEnabled(MayAssign());
    if (const auto stored = StoreRecord())
        AskFor(*stored);
    ShowRecord();
}

void frmDoors::Save() {
    if (!MayAssign())
        return;
    ui->cmdDelete->setEnabled(true);
    StoreRecord();
    ui->ckKeyed->setText(KeyedCaption(0));
    ui->cmbDoorLabel->setFocus();
}

void frmDoors::Delete() {
    const QString label = ui->cmbDoorLabel->currentText();
    if (!MayAssign() || !FindDoor(m_session, label))
        return;
    if (!m_session.boxes.ConfirmsLoss(
            tr("Are you sure you want to delete %1?").arg(InQuestion(label)),
            m_session.ProgramTitle))
        return;
    DeleteDoorRecord(m_session, label);
    LoadDoorLists();
    ui->cmbDoorLabel->setFocus();
    ui->cmdDelete->setEnabled(HasDoors(m_session));
}

void frmDoors::Assign() {
    if (!MayAssign())
        return;
    AssignDoorToKey(m_session, ui->lstKeyIDs->CurrentText(), ui->lstAllDoors->CurrentText());
    LoadKeyedDoors();
    ShowKeyedTo();
}

void frmDoors::Remove() {
    if (!MayAssign())
        return;
    RemoveDoorFromKey(m_session, ui->lstKeyedDoors->CurrentText());
    LoadKeyedDoors();
    ShowKeyedTo();
}

void frmDoors::OpenMapForDoor() {
    m_session.door.CurrentDoorColour = kTargetColour;
    KeepRecord();
    m_session.door.MapDoorLabel = ui->cmbDoorLabel->currentText();
    m_session.door.MapDoorKeyID = ui->txtKeyedTo->text();
    m_away = true;
    emit MapWanted();
    m_session.door.CurrentDoorX = m_session.door.CurrentDoorY = 0;
}

void frmDoors::OpenCrossKeyPage() {
    if (!MayAssign())
        return;
    KeepRecord();
    m_away = true;
    emit CrossKeyWanted({ui->cmbDoorLabel->currentText(), ui->txtDoorID->text(),
                         ui->txtDoorDescription->toPlainText(), ui->txtDoorLocation->toPlainText(),
                         m_session.System.SystemIsIC});
}

QString frmDoors::Unsaved() const {
    const DoorText typed = TypedRecord();
    if (typed == m_shown || RightTrimmed(typed.label).isEmpty() || !MayAssign())
        return {};
    return tr("What you have typed for door %1").arg(InQuestion(typed.label));
}

} // namespace quorrel
