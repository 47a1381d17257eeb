#include "crosskeys/frmCrossKeyed.h"

#include "doors/DoorAssignment.h"
#include "doors/DoorRecords.h"
#include "platform/Text.h"
#include "print/PrintRun.h"
#include "store/Conflict.h"
#include "store/SystemTables.h"
#include "ui_frmCrossKeyed.h"
#include "widgets/FormImage.h"
#include "widgets/HelpContexts.h"

#include <algorithm>

namespace quorrel {

namespace {

const QString kHiddenCuts(8, u'*');

QString BoxName(int box) {
    return QString::number(box + 1);
}

/// Key IDs that differ in blanks on the right are the same.
bool SameKeys(const CrossKeyIDs& one, const CrossKeyIDs& other) {
    return std::equal(one.begin(), one.end(), other.begin(),
                      [](const QString& left, const QString& right) {
                          return RightTrimmed(left) == RightTrimmed(right);
                      });
}

/// Takes the picture of being at work on with each step.
class PicturedProgress : public Progress {
public:
    PicturedProgress(std::unique_ptr<Progress> progress, AccessPanel& panel)
        : m_progress(std::move(progress)), m_panel(panel) {
        m_panel.Work();
    }
    ~PicturedProgress() override { m_panel.Rest(); }

    bool Advance(int stepsDone) override {
        m_panel.Work();
        return m_progress->Advance(stepsDone);
    }

private:
    std::unique_ptr<Progress> m_progress;
    AccessPanel& m_panel;
};

} // namespace

frmCrossKeyed::frmCrossKeyed(Session& session, const DoorsRow& door, const PinningRequest& selected)
    : Form(session), ui(std::make_unique<Ui::frmCrossKeyed>()), m_door(door),
      m_formerKey(door.CutsLabel),
      m_counts([this](std::size_t first, const std::vector<std::int64_t>& added) {
          std::vector<Aside> asides;
          asides.reserve(added.size());
          for (const std::int64_t count : added)
              asides.push_back(
                  count < 0 ? Aside{QStringLiteral("\u2212%1").arg(-count),
                                    tr("Would take %1 phantom keys from this door.").arg(-count)}
                            : Aside{QStringLiteral("+%1").arg(count),
                                    tr("Would add %1 phantom keys to this door.").arg(count)});
          ui->lstKeyIDs->SetAsides(static_cast<int>(first), std::move(asides));
      }) {
    const bool core = session.System.SystemIsIC;
    setObjectName(core ? QStringLiteral("frmCrossKeyedIC") : QStringLiteral("frmCrossKeyed"));
    ui->setupUi(this);
    if (core) {
        setWindowTitle(tr("Cross Keyed Doors for IC Core 23"));
        ui->pnlPins->OfferCore(DoorNamed(door.DoorLabel), selected, MayRead());
    }
    ui->picQV->ShowLogo(session.Company.CompanyLogo);
    for (QPushButton* button : {ui->cmdAssignTo, ui->cmdRemoveFrom})
        button->setEnabled(session.SessionPermissions.IssueKeys);
    ui->cmdPinning->setEnabled(MayRead());
    ui->pnlAccess->OfferCuts(MayRead());
    ui->cmdPrint->setEnabled(session.SessionPermissions.RunReports);
    ui->splPanes->setSizes({260, 720, 290});
    OfferFoot();
    OfferHelp(help::kCrossKeys, ui->cmdHelp);
    PlaceAt(0.5, 0);
    WatchBoxes();
    WatchButtons();
    ShowDoor();
    Guarded([this] {
        ShowStoredKeys();
        m_counts.SetSystem(ListSystemCuts(m_session));
        FillKeys();
    });
    ui->txtSearchKey->setFocus();
}

frmCrossKeyed::~frmCrossKeyed() = default;

void frmCrossKeyed::WatchBoxes() {
    for (int box = 0; box < kCrossKeys; ++box) {
        const auto place = static_cast<std::size_t>(box);
        auto* edit = findChild<QLineEdit*>(QStringLiteral("txtKeyID_%1").arg(box + 1));
        m_boxes[place] = edit;
        edit->installEventFilter(this);
        On(edit, &QLineEdit::textChanged, [this] { KeysChanged(); });
        OnLeaving(edit, [this, box] {
            LeaveBox(box);
            return true;
        });
    }
    for (std::size_t element = 0; element < m_cuts.size(); ++element)
        m_cuts[element] = findChild<QLabel*>(QStringLiteral("lblCuts_%1").arg(element));
}

void frmCrossKeyed::WatchButtons() {
    ui->lstKeyIDs->SetSearchBox(ui->txtSearchKey);
    On(ui->txtSearchKey, &QLineEdit::textChanged,
       [this] { WhileTyping(ui->txtSearchKey, [this] { FillKeys(); }); });
    On(ui->cmdAssignTo, &QPushButton::clicked, [this] { SelectCrossKey(); });
    On(ui->lstKeyIDs, &TextList::DoubleClicked, [this] { SelectCrossKey(); });
    On(ui->lstKeyIDs, &TextList::EnterPressed, [this] { SelectCrossKey(); });
    On(ui->cmdRemoveFrom, &QPushButton::clicked, [this] { RemoveCrossKey(); });
    On(ui->cmdPinning, &QPushButton::clicked, [this] {
        const BusyPointer busy;
        CalculateCrossPinning();
    });
    On(ui->cmdAccess, &QPushButton::clicked, [this] { AskForAccess(); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdPrint, &QPushButton::clicked, [this] { Print(); });
    On(ui->cmdDone, &QPushButton::clicked, [this] { Leave(); });
}

bool frmCrossKeyed::eventFilter(QObject* watched, QEvent* event) {
    const auto box = std::find(m_boxes.begin(), m_boxes.end(), watched);
    if (event->type() == QEvent::FocusIn && box != m_boxes.end()) {
        Mark(static_cast<int>(box - m_boxes.begin()));
        QTimer::singleShot(0, *box, &QLineEdit::selectAll);
    }
    return Form::eventFilter(watched, event);
}

/// Removal takes the key of the marked box, whose caption shows it.
void frmCrossKeyed::Mark(int box) {
    m_marked = box;
    for (int place = 0; place < kCrossKeys; ++place) {
        auto* caption = findChild<QLabel*>(QStringLiteral("lblKey_%1").arg(place + 1));
        QFont font = caption->font();
        font.setBold(place == box);
        caption->setFont(font);
    }
}

// What is shown.

void frmCrossKeyed::ShowDoor() {
    ui->txtDoorID->setText(Str(m_door.DoorID).trimmed());
    ui->txtDoorLabel->setText(m_door.DoorLabel);
    ui->txtDoorDescription->setText(OneLine(m_door.DoorDescription));
    ui->txtDoorLocation->setText(OneLine(m_door.DoorLocation));
    for (QLineEdit* edit :
         {ui->txtDoorID, ui->txtDoorLabel, ui->txtDoorDescription, ui->txtDoorLocation})
        edit->setCursorPosition(0);
}

void frmCrossKeyed::ShowStoredKeys() {
    m_stored = FindCrossKeys(m_session, m_door.DoorID);
    ShowKeys(KeyIDsOf(m_stored));
    m_doorCuts = FindMeantKey(m_session, Padded(m_door.CutsLabel, kKeyIDWidth)).cuts;
    ShowListedUnder();
    ShowRemarks();
}

/// Which key the door is listed under, and what speaks against that.
void frmCrossKeyed::ShowListedUnder() {
    const QString now = RightTrimmed(m_door.CutsLabel);
    const QString former = RightTrimmed(m_formerKey);
    QStringList lines = {now.isEmpty() ? tr("This door is listed under no key.")
                                       : tr("This door is listed under %1.").arg(Named(now))};
    if (now != former)
        lines[0] += former.isEmpty() ? tr(" It was under no key before.")
                                     : tr(" It was under %1 before.").arg(Named(former));
    const CrossKeyIDs keys = TypedKeys();
    const bool among = std::any_of(keys.begin(), keys.end(), [&](const QString& keyID) {
        return RightTrimmed(keyID) == former;
    });
    if (!former.isEmpty() && !among)
        lines += tr("%1 is not among the keys of this page: the cylinder will not open to it.")
                     .arg(Named(former));
    ui->lblListedUnder->setText(lines.join(u'\n'));
}

void frmCrossKeyed::FillKeys() {
    m_keys = ListCrossKeyable(m_session, ui->txtSearchKey->text());
    QStringList lines;
    for (const CrossKeyLine& key : m_keys)
        lines += key.line.text;
    ui->lstKeyIDs->Refill(lines);
    CountPhantoms();
}

/// Begins to work out what each key to pick from would add, in the box that it would go into.
void frmCrossKeyed::CountPhantoms() {
    const CrossKeyIDs typed = TypedKeys();
    const CrossKeyCuts cuts = FindCrossKeyCuts(m_session, typed);
    const int element = BoxForCrossKey(typed, {}) + 1;
    CrossKeyCuts without = cuts;
    without[static_cast<std::size_t>(element)].clear();
    const auto changesNothing = [&](const QString& keyID) {
        return element >= PinnedElements(m_session) ||
               std::any_of(typed.begin(), typed.end(), [&](const QString& held) {
                   return Padded(held, kKeyIDWidth) == Padded(keyID, kKeyIDWidth);
               });
    };
    std::vector<std::string> candidates;
    candidates.reserve(m_keys.size());
    for (const CrossKeyLine& key : m_keys)
        candidates.push_back(changesNothing(key.line.label) ? std::string() : key.cuts);
    m_counts.Begin(CrossKeyingFor(m_session, cuts), CrossKeyingFor(m_session, without),
                   std::move(candidates));
}

CrossKeyIDs frmCrossKeyed::TypedKeys() const {
    CrossKeyIDs keyIDs;
    for (std::size_t box = 0; box < keyIDs.size(); ++box)
        keyIDs[box] = m_boxes[box]->text();
    return keyIDs;
}

/// Puts Key IDs into the boxes. Whether they differ from what is stored tells the state.
void frmCrossKeyed::ShowKeys(const CrossKeyIDs& keyIDs) {
    for (std::size_t box = 0; box < keyIDs.size(); ++box)
        m_boxes[box]->setText(keyIDs[box]);
}

void frmCrossKeyed::LeaveBox(int box) {
    QLineEdit& edit = *m_boxes[static_cast<std::size_t>(box)];
    const QString before = edit.text();
    const QString after = CrossKeyText(before);
    // A beginning may mean another key than the whole Key ID does.
    if (m_pinning && FindMeantKey(m_session, before).keyID != FindMeantKey(m_session, after).keyID)
        ClearResults();
    edit.setText(after);
    ShowRemarks();
    CountPhantoms();
}

/// Only other keys are a change, not the blanks behind them.
void frmCrossKeyed::KeysChanged() {
    const CrossKeyIDs typed = TypedKeys();
    ui->lblState->setText(Unsaved().isEmpty() ? QString() : tr("not saved yet"));
    if (SameKeys(typed, m_calculatedFor))
        return;
    for (std::size_t box = 0; box < typed.size(); ++box)
        if (RightTrimmed(typed[box]) != RightTrimmed(m_calculatedFor[box]))
            RemarkLabel(box + 1)->clear();
    m_calculatedFor = typed;
    ClearResults();
    ShowListedUnder();
}

void frmCrossKeyed::ClearResults(const QString& why) {
    m_pinning.reset();
    ui->pnlRows->Clear();
    ui->pnlPins->Clear();
    ui->pnlAccess->Clear(why);
    for (QLabel* cuts : m_cuts)
        cuts->clear();
}

QLabel* frmCrossKeyed::RemarkLabel(std::size_t element) const {
    return findChild<QLabel*>(QStringLiteral("lblRemark_%1").arg(element));
}

/// What is told beside each box.
void frmCrossKeyed::ShowRemarks() {
    const CrossKeyIDs typed = TypedKeys();
    for (std::size_t box = 0; box < typed.size(); ++box)
        RemarkLabel(box + 1)->setText(RightTrimmed(typed[box]).isEmpty()
                                          ? QString()
                                          : RemarkOn(m_session, static_cast<int>(box) + 1,
                                                     FindMeantKey(m_session, typed[box])));
}

// What the user does.

void frmCrossKeyed::SelectCrossKey() {
    const int row = ui->lstKeyIDs->CurrentRow();
    if (row < 0) {
        Tell(tr("Choose a key, then add it"));
        return;
    }
    const RowLine key = m_keys.at(static_cast<std::size_t>(row)).line;
    CrossKeyIDs keyIDs = TypedKeys();
    const int box = BoxForCrossKey(keyIDs, key.label);
    QString& held = keyIDs[static_cast<std::size_t>(box)];
    const QString before = RightTrimmed(held);
    const QString keyID = Named(key.label);
    held = Padded(key.label, kKeyIDWidth);
    if (m_session.SessionPermissions.IssueKeys) {
        m_door = GiveDoorKey(m_session, key, m_door);
        m_doorCuts = m_keys.at(static_cast<std::size_t>(row)).cuts;
    }
    ShowKeys(keyIDs);
    ShowListedUnder();
    ShowRemarks();
    CountPhantoms();
    if (before == RightTrimmed(key.label))
        Tell(tr("%1 is in box %2 already").arg(keyID, BoxName(box)));
    else if (before.isEmpty())
        Tell(tr("%1 put into box %2").arg(keyID, BoxName(box)));
    else
        Tell(tr("%1 put into box %2 in place of %3: a door has six keys at most")
                 .arg(keyID, BoxName(box), Named(before)));
}

void frmCrossKeyed::RemoveCrossKey() {
    CrossKeyIDs keyIDs = TypedKeys();
    QString removed;
    if (m_marked)
        removed = Named(std::exchange(keyIDs[static_cast<std::size_t>(*m_marked)], QString()));
    PackCrossKeys(keyIDs);
    ShowKeys(keyIDs);
    ShowRemarks();
    CountPhantoms();
    Tell(removed.isEmpty() ? tr("Click into the box of the key to remove, then remove it")
                           : tr("%1 removed from box %2").arg(removed, BoxName(*m_marked)));
}

void frmCrossKeyed::CalculateCrossPinning(const QString& withoutAccess) {
    ClearResults(withoutAccess);
    m_pinning = quorrel::CalculateCrossPinning(m_session, TypedKeys());
    for (std::size_t element = 0; element < m_cuts.size(); ++element) {
        const std::string& cuts = m_pinning->cuts[element];
        m_cuts[element]->setText(cuts.empty() ? QString()
                                 : MayRead()  ? QString::fromStdString(cuts)
                                              : kHiddenCuts);
        if (element > 0)
            RemarkLabel(element)->setText(m_pinning->remarks[element]);
    }
    ui->pnlRows->ShowRows(m_pinning->keying.Rows(), MayRead());
    ui->pnlPins->ShowPins(*m_pinning, MayRead());
}

void frmCrossKeyed::AskForAccess() {
    const QString title = tr("Calculate Keys with Access");
    if (m_session.boxes.Message(tr("This will take several minutes! Are you sure?"), title,
                                BoxButtons::OkCancel, BoxIcon::Question) != BoxAnswer::Ok)
        return;
    std::optional<KeysWithAccess> access;
    {
        const BusyPointer busy;
        CalculateCrossPinning(tr("not worked out"));
        PicturedProgress progress(
            m_session.boxes.BeginProgress(tr("Working out the keys with access"), title,
                                          AccessSteps(m_pinning->keying)),
            *ui->pnlAccess);
        access = CalculateKeysWithAccess(m_session, m_pinning->keying, progress);
    }
    if (access)
        ui->pnlAccess->ShowAccess(*access, m_doorCuts);
}

void frmCrossKeyed::Save() {
    const CrossKeyIDs typed = TypedKeys();
    m_stored = SaveCrossKeys(m_session, m_door, m_stored, typed);
    ShowKeys(KeyIDsOf(m_stored));
    KeysChanged();
    ShowRemarks();
    Tell(tr("The keys of %1 are saved").arg(DoorNamed(m_door.DoorLabel)));
}

void frmCrossKeyed::Print() {
    if (!m_session.SessionPermissions.RunReports)
        return;
    const PaintedJob job{tr("Cross-Keys %1").arg(m_door.DoorLabel.trimmed()),
                         QPageLayout::Landscape,
                         [this](QPagedPaintDevice& device) { PaintFormImage(device, *this); }};
    Tell(PrintPainted(m_session, job));
}

/// Shows what holds: another workstation has changed it.
void frmCrossKeyed::Reload() {
    const auto door = FindDoorByID(m_session, m_door.DoorID);
    if (door && door->key == m_door.key)
        m_door = *door;
    else
        Tell(tr("%1 is not stored any more.").arg(DoorNamed(m_door.DoorLabel)));
    const CrossKeyIDs typed = TypedKeys();
    const CrossKeyIDs shown = KeyIDsOf(m_stored);
    m_stored = FindCrossKeys(m_session, m_door.DoorID);
    m_doorCuts = FindMeantKey(m_session, Padded(m_door.CutsLabel, kKeyIDWidth)).cuts;
    m_counts.SetSystem(ListSystemCuts(m_session));
    ShowKeys(KeysAfterConflict(typed, shown, KeyIDsOf(m_stored)));
    KeysChanged();
    ShowListedUnder();
    ShowRemarks();
    FillKeys();
}

QString frmCrossKeyed::Unsaved() const {
    return SameKeys(TypedKeys(), KeyIDsOf(m_stored))
               ? QString()
               : tr("The cross-keying of %1").arg(DoorNamed(m_door.DoorLabel));
}

} // namespace quorrel
