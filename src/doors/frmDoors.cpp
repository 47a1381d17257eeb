#include "doors/frmDoors.h"

#include "access/HardwareDescriptions.h"
#include "doors/CrossKeyMark.h"
#include "doors/DoorAssignment.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "ui_frmDoors.h"
#include "widgets/HelpContexts.h"
#include "widgets/Manners.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>
#include <utility>

namespace quorrel {

namespace {

/// Characters of a text that its box shows; the one-line boxes have the same bound.
constexpr int kShownLength = 32767;

/// Shows a stored text. One that is too long for the box is cut, and is not to be changed then: its
/// rest would be lost.
void ShowText(QPlainTextEdit& box, const QString& text) {
    box.setPlainText(text.left(kShownLength));
    box.setReadOnly(text.size() > kShownLength);
}

void ShowText(TextCombo& box, const QString& text) {
    box.setEditText(text);
    box.lineEdit()->setCursorPosition(0);
    box.lineEdit()->setReadOnly(text.size() > kShownLength);
}

/// "Door A-101", or how many doors.
QString Doors(int doors, const QString& label) {
    return doors == 1 ? DoorNamed(label) : frmDoors::tr("%1 doors").arg(doors);
}

QString WhatBecame(const SavedDoor& saved) {
    const QString door = DoorNamed(saved.label);
    QString text = saved.what == SavedDoor::What::Added     ? frmDoors::tr("%1 added")
                   : saved.what == SavedDoor::What::Changed ? frmDoors::tr("%1 changed")
                                                            : frmDoors::tr("%1 is as it was");
    text = text.arg(door);
    if (saved.hardwareCut)
        text += frmDoors::tr(", with the first 50 characters of its hardware");
    return text;
}

} // namespace

void frmDoors::RowList::Show(RowLines newLines, Session& session) {
    const RowLine* chosen = Chosen();
    const RowKey key = chosen ? chosen->key : 0;
    lines = std::move(newLines);
    list->SetLines(TextsOf(lines));
    for (std::size_t row = 0; row < lines.size(); ++row)
        if (lines[row].crossKeyed)
            MarkCrossKeyed(*list, static_cast<int>(row), session, lines[row].key);
    Choose(key);
}

void frmDoors::RowList::Choose(RowKey key) {
    const auto row = std::find_if(lines.begin(), lines.end(),
                                  [&](const RowLine& line) { return line.key == key; });
    list->SetCurrentRow(row == lines.end() ? -1 : static_cast<int>(row - lines.begin()));
}

const RowLine* frmDoors::RowList::Chosen() const {
    const int row = list->CurrentRow();
    return row < 0 ? nullptr : &lines.at(static_cast<std::size_t>(row));
}

frmDoors::frmDoors(Session& session, const DoorWindows& offered)
    : Form(session), ui(std::make_unique<Ui::frmDoors>()), m_offered(offered) {
    ui->setupUi(this);
    m_keys.list = ui->lstKeyIDs;
    m_doors.list = ui->lstAllDoors;
    m_keyedDoors.list = ui->lstKeyedDoors;
    // A label is the door that it names, however long it is.
    ui->cmbDoorLabel->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    OfferFoot();
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
    On(ui->cmbDoorLabel, &QComboBox::activated, [this] { LabelChosen(); });
    On(ui->cmbHardware, &QComboBox::editTextChanged,
       [this] { WhileTyping(ui->cmbHardware->lineEdit(), [this] { ShowHardwareCount(); }); });
    On(ui->cmbHardware, &QComboBox::activated,
       [this] { ui->cmbHardware->lineEdit()->setReadOnly(false); });
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
    On(ui->txtSearchDoor, &QLineEdit::textChanged, [this] {
        WhileTyping(ui->txtSearchDoor, [this] {
            m_doors.Show(SearchDoors(m_session, ui->txtSearchDoor->text()), m_session);
        });
    });
    On(ui->txtSearchKey, &QLineEdit::textChanged, [this] {
        WhileTyping(ui->txtSearchKey,
                    [this] { FillKeys(SearchKeyableKeys(m_session, ui->txtSearchKey->text())); });
    });
}

bool frmDoors::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        TestLabel();
    return Form::eventFilter(watched, event);
}

/// No button is the usual one: only its own click saves. In a box of the record the Enter key leads
/// on to the next one, on a button it is the click. It never leads to a button, so that whoever
/// presses it once more than needed sets nothing going.
void frmDoors::keyPressEvent(QKeyEvent* event) {
    if (!IsEnter(*event)) {
        Form::keyPressEvent(event);
        return;
    }
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
        button->click();
    else if (ui->frDoor->isAncestorOf(focusWidget()))
        LeadOn();
}

/// To the next box of the record; from its last one nowhere.
void frmDoors::LeadOn() {
    const QWidget* from = focusWidget();
    for (QWidget* next = from->nextInFocusChain(); next != from; next = next->nextInFocusChain()) {
        if (!next->isVisible() || !next->isEnabled() || !(next->focusPolicy() & Qt::TabFocus) ||
            next->focusProxy() || from->isAncestorOf(next) || next->isAncestorOf(from))
            continue;
        if (!ui->frDoor->isAncestorOf(next) || qobject_cast<QPushButton*>(next))
            return;
        next->setFocus(Qt::TabFocusReason);
        if (auto* area = qobject_cast<QPlainTextEdit*>(next))
            area->moveCursor(QTextCursor::End);
        return;
    }
}

void frmDoors::Activated() {
    if (!std::exchange(m_away, false))
        return;
    // The window that was shown meanwhile has worked on the door.
    ShowRecord(TypedRecord());
    ShowKeyedDoors();
}

void frmDoors::AskFor(const QString& label) {
    SetLabel(label);
    if (!m_shown.stored)
        m_shown.text.label = label; // It was not typed.
    ShowRecord(TypedRecord());
    if (!m_shown.stored && !label.isEmpty())
        Tell((IsDoorOfMaps(m_session, label)
                  ? tr("%1 belongs to another key system. Save adds one to this system.")
                  : tr("%1 is not stored any more. Save adds it anew."))
                 .arg(DoorNamed(label)));
}

/// Puts a label into its box, which is no edit.
void frmDoors::SetLabel(const QString& label) {
    const QSignalBlocker blocker(ui->cmbDoorLabel);
    ui->cmbDoorLabel->setEditText(label);
    m_label = label;
    TestLabel();
}

DoorText frmDoors::TypedRecord() const {
    DoorText typed;
    typed.label = ui->cmbDoorLabel->currentText();
    typed.description = WithoutLastLineEnds(ui->txtDoorDescription->toPlainText());
    typed.location = WithoutLastLineEnds(ui->txtDoorLocation->toPlainText());
    typed.hardware = ui->cmbHardware->currentText();
    typed.details = WithoutLastLineEnds(ui->txtHardwareSpecs->toPlainText());
    typed.keyed = ui->ckKeyed->isChecked();
    typed.crossKeyed = ui->ckCrossKeyed->isChecked();
    return typed;
}

void frmDoors::ShowTexts(const DoorText& text) {
    ShowText(*ui->txtDoorDescription, text.description);
    ShowText(*ui->txtDoorLocation, text.location);
    ShowText(*ui->cmbHardware, text.hardware);
    ShowText(*ui->txtHardwareSpecs, text.details);
    ui->ckKeyed->setChecked(text.keyed);
    ui->ckCrossKeyed->setChecked(text.crossKeyed);
}

/// Fills the lists anew and empties the record.
void frmDoors::LoadDoorLists() {
    for (QPushButton* button : {ui->cmdAssignTo, ui->cmdRemoveFrom, ui->cmdDelete, ui->cmdSave})
        button->setEnabled(MayAssign());
    for (QLineEdit* search : {ui->txtSearchDoor, ui->txtSearchKey}) {
        // Both lists are filled whole below.
        const QSignalBlocker blocker(search);
        search->clear();
    }
    SetLabel({});
    ShowTexts({});
    ShowNoDoor();
    m_shown = {std::nullopt, TypedRecord()};
    FillLists();
    ShowHardwareCount();
}

/// Fills the lists anew, as far as they are searched for.
void frmDoors::FillLists() {
    const QString key = ui->txtSearchKey->text();
    FillKeys(key.isEmpty() ? ListKeyableKeys(m_session) : SearchKeyableKeys(m_session, key));
    const RowLines doors = ListDoors(m_session);
    QStringList labels;
    for (const RowLine& door : doors)
        labels.append(door.label);
    ui->cmbDoorLabel->Refill(labels);
    const QString door = ui->txtSearchDoor->text();
    m_doors.Show(door.isEmpty() ? doors : SearchDoors(m_session, door), m_session);
    ui->cmbHardware->Refill(ListHardwareTypes(m_session));
}

void frmDoors::FillKeys(RowLines keys) {
    m_keys.Show(std::move(keys), m_session);
    ShowKeyedDoors();
}

void frmDoors::ShowKeyedDoors() {
    m_keyedDoors.Show(ListKeyedDoors(m_session, ui->lstKeyIDs->CurrentText()), m_session);
}

void frmDoors::LoadKeyedDoors() {
    ShowKeyedDoors();
    ui->cmdDelete->setEnabled(MayAssign() && HasDoors(m_session));
}

void frmDoors::LabelChanged() {
    if (ui->cmbDoorLabel->lineEdit()->isModified()) {
        m_label = ui->cmbDoorLabel->currentText();
        TestLabel();
        WhileTyping(ui->cmbDoorLabel->lineEdit(),
                    [this, typed = TypedRecord()] { ShowRecord(typed); });
        return;
    }
    m_chosen = true;
    BringUp(ui->cmbDoorLabel->currentText());
}

/// A choice from the labels, which need not have changed the label.
void frmDoors::LabelChosen() {
    if (!std::exchange(m_chosen, false))
        BringUp(ui->cmbDoorLabel->currentText());
}

/// Brings up a door that was chosen from the labels. Where it cannot come up, the record stays and
/// so does its label.
void frmDoors::BringUp(const QString& label) {
    SetLabel(m_label);
    if (!MayDropRecord())
        return;
    const auto door = LoadDoorRecord(m_session, label);
    if (!door)
        throw ChangedElsewhere::Deleted(DoorNamed(label));
    SetLabel(label);
    ShowDoor(*door);
}

/// Asks before what was typed into a record gives way to a door that was chosen.
bool frmDoors::MayDropRecord() {
    return !m_shown.DiffersIn(TypedRecord()) ||
           m_session.boxes.ConfirmsLoss(
               tr("What you have typed into this record is not saved. Leave it without saving?"),
               m_session.ProgramTitle);
}

void frmDoors::TestLabel() {
    const QString label = ui->cmbDoorLabel->currentText();
    ui->ckCrossKeyed->setEnabled(!label.isEmpty() && label[0] != u' ');
}

/// Brings up the door of the label in its box. Without one all stays as it is, so that a new label
/// can be typed over an old one. What was typed since the boxes held `atLabel`, while the file was
/// in use, stays.
void frmDoors::ShowRecord(const DoorText& atLabel) {
    const QString label = ui->cmbDoorLabel->currentText();
    if (const auto door = LoadDoorRecord(m_session, label)) {
        const bool dropped = m_shown.DiffersIn(atLabel);
        const DoorText typed = TypedRecord();
        ShowDoor(*door);
        ShowTexts(TextAfterConflict(typed, {door, atLabel}, *door));
        if (m_shown.DiffersIn(TypedRecord()))
            Tell(tr("%1 came up only now. What you have typed since then stands in the place of "
                    "what is stored.")
                     .arg(DoorNamed(label)));
        else if (dropped)
            Tell(tr("What was typed before %1 came up was not saved").arg(DoorNamed(label)));
        return;
    }
    if (m_shown.IsMeantBy(label))
        return;
    // Blanks on the right keep a door from coming up, not from being meant.
    m_shown.stored = FindDoorMeant(m_session, label);
    if (m_shown.stored)
        m_shown.text = TextOf(*m_shown.stored);
}

void frmDoors::ShowDoor(const DoorsRow& door) {
    ShowTexts(TextOf(door));
    ui->txtDoorID->setText(Str(door.DoorID).trimmed());
    ui->txtKeyedTo->setText(door.CutsLabel);
    ui->ckKeyed->setText(KeyedCaption(door.Long1));
    ShowMapCaption(door.LinkMapID != 0);
    m_shown = {door, TypedRecord()};
}

/// What tells of a stored door tells of none.
void frmDoors::ShowNoDoor() {
    ui->txtDoorID->clear();
    ui->txtKeyedTo->clear();
    ui->ckKeyed->setText(KeyedCaption(0));
    ShowMapCaption(false);
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
    const auto door = FindDoor(m_session, ui->cmbDoorLabel->currentText());
    if (!door || !m_shown.stored || door->key != m_shown.stored->key)
        return;
    m_shown.stored->CutsLabel = door->CutsLabel;
    ui->txtKeyedTo->setText(door->CutsLabel);
}

void frmDoors::Reload() {
    FillLists();
    if (std::exchange(m_recordAged, false))
        ReloadRecord();
    else
        ShowKeyedTo();
}

/// Shows the record as it is stored now, and what was typed where that meets nobody else's change.
void frmDoors::ReloadRecord() {
    const DoorText typed = TypedRecord();
    const ShownDoor before = m_shown;
    auto door = LoadDoorRecord(m_session, typed.label);
    if (!door)
        door = FindDoorMeant(m_session, typed.label);
    if (door) {
        ShowDoor(*door);
        ShowTexts(TextAfterConflict(typed, before, *door));
        return;
    }
    // What stands in the boxes is all that there is of the door.
    ShowNoDoor();
    m_shown = {};
    Tell(tr("%1 is not stored any more. Save adds it anew.").arg(DoorNamed(typed.label)));
}

/// Runs what writes the record on the form.
template <class Action>
void frmDoors::OnRecord(Action&& action) {
    try {
        action();
    } catch (const ChangedElsewhere&) {
        m_recordAged = true;
        throw;
    }
}

/// Stores what is typed and begins anew. Gives the stored label, if there was one to store under.
std::optional<QString> frmDoors::StoreRecord() {
    std::optional<SavedDoor> saved;
    OnRecord([&] { saved = SaveDoorRecord(m_session, TypedRecord(), m_shown); });
    if (!saved)
        return std::nullopt;
    TellDone(WhatBecame(*saved), [this] { LoadDoorLists(); });
    m_doors.Choose(saved->key);
    return saved->label;
}

/// Stores what is typed and goes on with the same door.
void frmDoors::KeepRecord() {
    ui->cmdDelete->setEnabled(MayAssign());
    if (const auto stored = StoreRecord())
        AskFor(*stored);
    else
        ShowRecord(TypedRecord());
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
    if (!MayAssign())
        return;
    if (!m_shown.stored || m_shown.stored->DoorLabel != label) {
        Tell(tr("No door has been brought up, so none was deleted"));
        return;
    }
    if (!m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(Named(label)),
                                      m_session.ProgramTitle))
        return;
    OnRecord([this] { DeleteDoorRecord(m_session, *m_shown.stored); });
    TellDone(tr("%1 deleted").arg(DoorNamed(label)), [this] {
        LoadDoorLists();
        ui->cmdDelete->setEnabled(HasDoors(m_session));
    });
    ui->cmbDoorLabel->setFocus();
}

void frmDoors::Assign() {
    const RowLine* key = m_keys.Chosen();
    const RowLine* door = m_doors.Chosen();
    if (!MayAssign())
        return;
    if (!key || !door) {
        Tell(tr("Choose a Key ID and a door, then add it"));
        return;
    }
    std::optional<QString> shownKey;
    if (m_shown.stored && m_shown.stored->key == door->key)
        shownKey = m_shown.stored->CutsLabel;
    const auto [count, keyID] = AssignDoorToKey(m_session, *key, *door, shownKey);
    const auto show = [this] {
        LoadKeyedDoors();
        ShowKeyedTo();
    };
    const QString doors = Doors(count, door->label);
    if (keyID.isEmpty()) {
        const QString text = tr("%1 left without a key: a Key ID of more than 10 characters, such "
                                "as %2, cannot be assigned.")
                                 .arg(doors, Named(key->label));
        m_session.boxes.Message(text, m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
        TellDone(text, show);
    } else {
        TellDone(tr("%1 assigned to %2").arg(doors, Named(keyID)), show);
    }
}

void frmDoors::Remove() {
    const RowLine* key = m_keys.Chosen();
    const RowLine* door = m_keyedDoors.Chosen();
    if (!MayAssign())
        return;
    if (!key || !door) {
        Tell(tr("Choose a Key ID and one of its doors, then remove it"));
        return;
    }
    const int count = RemoveDoorFromKey(m_session, *key, *door);
    TellDone(tr("%1 removed from %2").arg(Doors(count, door->label), Named(key->label)), [this] {
        LoadKeyedDoors();
        ShowKeyedTo();
    });
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
    if (!m_shown.stored)
        return; // Without a label there is no door.
    m_away = true;
    emit CrossKeyWanted(*m_shown.stored);
}

QString frmDoors::Unsaved() const {
    const DoorText typed = TypedRecord();
    if (!m_shown.DiffersFrom(typed))
        return {};
    return RightTrimmed(typed.label).isEmpty()
               ? tr("What you have typed")
               : tr("What you have typed for door %1").arg(Named(typed.label));
}

} // namespace quorrel
