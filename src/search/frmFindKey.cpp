#include "search/frmFindKey.h"

#include "doors/CrossKeyMark.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/SystemTables.h"
#include "ui_frmFindKey.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmFindKey::frmFindKey(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmFindKey>()), m_search(session) {
    ui->setupUi(this);
    OfferFoot();
    OfferHelp(help::kFindKey, ui->Command3);
    PlaceAt(0.25, 0.25);
    ui->cmdFindCuts->setEnabled(session.SessionPermissions.ReadPrintPinning);
    ui->lstKeyID->SetLeadsElsewhere();
    ui->lstKeys->SetLeadsElsewhere();
    ui->lstDDoors->hide();
    WatchKeys();
    WatchDoors();
    WatchHolders();
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
    ui->txtLabel->setFocus();
}

frmFindKey::~frmFindKey() = default;

void frmFindKey::WatchKeys() {
    const auto byCuts = [this] {
        Find(ui->txtCuts, &KeySearch::FindByCuts, tr("Those cuts do not exist in this system."));
    };
    const auto byLabel = [this] {
        Find(ui->txtLabel, &KeySearch::FindByLabel,
             tr("That Key ID does not exist in this system."));
    };
    const auto bySerial = [this] {
        Find(ui->txtSerial, &KeySearch::FindBySerial,
             tr("That Serial Number does not exist in this system."));
    };
    On(ui->cmdFindCuts, &QPushButton::clicked, byCuts);
    On(ui->txtCuts, &QLineEdit::returnPressed, byCuts);
    On(ui->cmdFindLable, &QPushButton::clicked, byLabel);
    On(ui->txtLabel, &QLineEdit::returnPressed, byLabel);
    On(ui->cmdFindSerial, &QPushButton::clicked, bySerial);
    On(ui->txtSerial, &QLineEdit::returnPressed, bySerial);
    On(ui->Command1, &QPushButton::clicked, [this] { FindByDescription(); });
    On(ui->lstDescriptions, &TextList::DoubleClicked, [this] { FindByDescription(); });
    On(ui->lstDescriptions, &TextList::EnterPressed, [this] { FindByDescription(); });
    ui->lstDescriptions->SetSearchBox(ui->txtDescSearch);
    On(ui->txtDescSearch, &QLineEdit::textChanged,
       [this] { WhileTyping(ui->txtDescSearch, [this] { RefineDescriptions(); }); });
    On(ui->Command2, &QPushButton::clicked, [this] { FindByUnit(); });
    On(ui->txtKeyUnit, &QLineEdit::returnPressed, [this] { FindByUnit(); });
    On(ui->lstKeyID, &TextList::Clicked,
       [this] { OpenUnitsOfKey(m_keysOfUnit.value(ui->lstKeyID->CurrentRow())); });
}

void frmFindKey::WatchDoors() {
    On(ui->cmdDoorList, &QPushButton::clicked, [this] { StepDoors(); });
    On(ui->txtDoorSearch, &QLineEdit::textChanged,
       [this] { WhileTyping(ui->txtDoorSearch, [this] { RefineDoors(); }); });
    ui->lstDoors->SetSearchBox(ui->txtDoorSearch);
    for (TextList* list : {ui->lstDoors, ui->lstDDoors}) {
        On(list, &TextList::Clicked, [this] { PickDoor(); });
        On(list, &TextList::DoubleClicked, [this] { OpenDoor(); });
        On(list, &TextList::EnterPressed, [this] { OpenDoor(); });
    }
}

void frmFindKey::WatchHolders() {
    On(ui->cmdSearch, &QPushButton::clicked, [this] { StepHolders(); });
    On(ui->txtUserSearch, &QLineEdit::textChanged,
       [this] { WhileTyping(ui->txtUserSearch, [this] { RefineUsers(); }); });
    ui->lstUserList->SetSearchBox(ui->txtUserSearch);
    On(ui->lstUserList, &TextList::Clicked, [this] { ShowUserKeys(); });
    On(ui->lstDepartment, &TextList::Clicked, [this] { ShowDepartmentKeys(); });
    On(ui->lstKeys, &TextList::Clicked, [this] {
        OpenUnitsOfKey(m_units.at(static_cast<std::size_t>(ui->lstKeys->CurrentRow())).keyID);
    });
}

// The lists.

/// Each showing reads the lists anew: the file has changed since.
void frmFindKey::Activated() {
    Tell({});
    ui->lstKeyID->hide();
    LoadLists();
}

void frmFindKey::Reload() {
    LoadLists();
}

void frmFindKey::LoadLists() {
    RequireSystem(m_session);
    const BusyPointer busy;
    const QString highest = HighestUnit(m_session);
    ui->txtKeyUnit->setToolTip(tr("Highest Unit Found %1").arg(Named(highest)));
    RefineDoors();
    RefineUsers();
    RefineDescriptions();
    ui->lstDepartment->Refill(ListSearchDepartments(m_session));
    if (ui->lstUserList == m_whose && m_whose->CurrentRow() >= 0)
        ShowUserKeys();
    else if (ui->lstDepartment == m_whose && m_whose->CurrentRow() >= 0)
        ShowDepartmentKeys();
    else
        ui->lstKeys->SetLines({});
    if (ui->lstKeys->Count() == 0)
        ui->lblListLabel->setText(tr("Keys Issued to User"));
}

void frmFindKey::RefineDescriptions() {
    RequireSystem(m_session);
    ui->lstDescriptions->Refill(m_search.ListDescriptions(ui->txtDescSearch->text()));
}

void frmFindKey::RefineDoors() {
    ShowDoors(m_doorColumn);
}

/// Lists the doors by a column, whose name then stands on the button.
void frmFindKey::ShowDoors(DoorColumn column) {
    static constexpr const char* kCaptions[] = {"by Door ID", "by Location", "by Description",
                                                "by Department"};
    RequireSystem(m_session);
    const bool byDepartment = column == DoorColumn::Department;
    m_doors = byDepartment ? DoorsByDepartment(m_session)
                           : SearchDoorsBy(m_session, column, ui->txtDoorSearch->text());
    m_doorColumn = column;
    ui->cmdDoorList->setText(tr(kCaptions[static_cast<int>(column)]));
    TextList& list = byDepartment ? *ui->lstDDoors : *ui->lstDoors;
    QStringList lines;
    for (const DoorSearchLine& door : m_doors)
        lines += door.text;
    list.Refill(lines);
    for (std::size_t row = 0; row < m_doors.size(); ++row)
        if (m_doors[row].crossKeyed)
            MarkCrossKeyed(list, static_cast<int>(row), m_session, m_doors[row].door);
    ui->lstDDoors->setVisible(byDepartment);
    ui->lstDoors->setVisible(!byDepartment);
    ui->txtDoorSearch->setEnabled(!byDepartment);
}

void frmFindKey::RefineUsers() {
    ShowHolders(m_holderColumn, ui->txtUserSearch->text());
}

/// Lists the holders whose column begins with a text; the column's name then stands on the button.
void frmFindKey::ShowHolders(HolderColumn column, const QString& search) {
    static constexpr const char* kCaptions[] = {"by User ID", "by Last Name", "by First Name"};
    RequireSystem(m_session);
    m_holders = SearchHoldersBy(m_session, column, search);
    m_holderColumn = column;
    ui->cmdSearch->setText(tr(kCaptions[static_cast<int>(column)]));
    QStringList lines;
    for (const ListedHolder& holder : m_holders)
        lines += holder.line;
    ui->lstUserList->Refill(lines);
}

// Keys.

/// Nothing of an earlier search stands any more.
void frmFindKey::BeginSearch() {
    Tell({});
    m_session.hit.FoundLabel.clear();
    RequireSystem(m_session);
}

/// Searches for what a box holds. A miss is told.
void frmFindKey::Find(QLineEdit* box, Finder finder, const QString& miss) {
    BeginSearch();
    const auto hit = [&] {
        const BusyPointer busy;
        return (m_search.*finder)(box->text());
    }();
    if (!hit) {
        m_session.boxes.Message(miss, m_session.ProgramTitle);
        box->setFocus();
        box->selectAll();
        return;
    }
    if (box == ui->txtLabel)
        m_session.hit.FoundLabel = hit->label;
    Report(*hit, {});
}

void frmFindKey::FindByDescription() {
    const QString line = ui->lstDescriptions->CurrentText();
    if (line.isEmpty()) {
        Tell(tr("Choose a description, then go to its key"));
        return;
    }
    BeginSearch();
    const auto hit = [&] {
        const BusyPointer busy;
        return m_search.FindByDescription(line);
    }();
    if (hit)
        Report(*hit, line);
}

/// Leads on to a key that was found, after what there is to tell of it.
void frmFindKey::Report(const KeyHit& hit, const QString& description) {
    if (const QString what = hit.NoKey(); !what.isEmpty()) {
        Tell(tr("This is no key of a page: %1").arg(what));
        return;
    }
    m_session.hit.CurrentPosition = hit.position;
    m_session.hit.FoundCuts = hit.cuts;
    QString told;
    if (hit.IsLevelAbovePages()) {
        const auto [lowest, highest] = m_search.ReportMasterPages(hit, description);
        m_session.boxes.Message(tr("This key is a Master Key and can be found on Pages %1 to %2")
                                    .arg(lowest)
                                    .arg(highest),
                                tr("Master Key"));
        if (const auto pages = PagesOfLevel(m_session, hit))
            told =
                tr("This master reaches the pages %1 to %2").arg(pages->first).arg(pages->second);
    }
    emit KeyFound(hit, told);
}

void frmFindKey::FindByUnit() {
    ui->lstKeyID->SetLines({});
    m_keysOfUnit.clear();
    BeginSearch();
    const KeysOfUnit found = FindKeysOfUnit(m_session, ui->txtKeyUnit->text());
    m_keysOfUnit = found.keyIDs;
    ui->Label4->setText(tr("Double Click the Key Desired from the list below."));
    ui->lstKeyID->show();
    ui->lstKeyID->SetLines(m_keysOfUnit);
    ui->Label4->setText(tr("Description"));
    const QString fates = found.fates.join(QStringLiteral("; "));
    Tell(fates);
    if (fates.isEmpty() && m_keysOfUnit.isEmpty())
        Tell(ui->txtKeyUnit->text().isEmpty()
                 ? tr("Enter the number of a unit, then look for it")
                 : tr("No key has a unit %1").arg(Named(ui->txtKeyUnit->text())));
    if (m_keysOfUnit.size() == 1)
        OpenUnitsOfKey(m_keysOfUnit.first(), fates);
}

void frmFindKey::OpenUnitsOfKey(const QString& keyID, const QString& told) {
    emit UnitsWanted(Padded(keyID, kKeyIDWidth), told);
}

// Doors and holders.

void frmFindKey::StepDoors() {
    ShowDoors(static_cast<DoorColumn>((static_cast<int>(m_doorColumn) + 1) % 4));
}

void frmFindKey::StepHolders() {
    ShowHolders(static_cast<HolderColumn>((static_cast<int>(m_holderColumn) + 1) % 3), {});
    ui->txtUserSearch->clear();
    ui->txtUserSearch->setFocus();
}

void frmFindKey::ShowUserKeys() {
    RequireSystem(m_session);
    m_whose = ui->lstUserList;
    const ListedHolder& holder =
        m_holders.at(static_cast<std::size_t>(ui->lstUserList->CurrentRow()));
    ShowUnits(holder.line, UnitsOfHolder(m_session, holder.number));
}

void frmFindKey::ShowDepartmentKeys() {
    RequireSystem(m_session);
    m_whose = ui->lstDepartment;
    const QString department = ui->lstDepartment->CurrentText();
    ShowUnits(department, UnitsOfDepartment(m_session, department));
}

void frmFindKey::ShowUnits(const QString& whose, std::vector<UnitLine> units) {
    ui->lblListLabel->setText(tr("Keys Assigned to %1").arg(whose));
    m_units = std::move(units);
    QStringList lines;
    for (const UnitLine& unit : m_units)
        lines += unit.text;
    ui->lstKeys->SetLines(lines);
}

/// Takes the key of the chosen door into the box for a Key ID; nothing for a department.
const DoorSearchLine* frmFindKey::PickDoor() {
    const TextList* list = ui->lstDDoors->isHidden() ? ui->lstDoors : ui->lstDDoors;
    const int row = list->CurrentRow();
    Tell({});
    if (row < 0 || m_doors.at(static_cast<std::size_t>(row)).door == 0)
        return nullptr;
    const DoorSearchLine& door = m_doors[static_cast<std::size_t>(row)];
    ui->txtLabel->setText(RightTrimmed(door.keyID));
    m_session.door.CurrentDoorLabel = door.label;
    if (IsNoValue(door.keyID))
        Tell(tr("Door %1 has no key").arg(Named(door.label)));
    return &door;
}

void frmFindKey::OpenDoor() {
    if (const DoorSearchLine* door = PickDoor())
        emit DoorWanted(door->label);
}

/// The list of keys of a unit is put away first.
void frmFindKey::reject() {
    if (ui->lstKeyID->isVisible())
        ui->lstKeyID->hide();
    else
        Form::reject();
}

} // namespace quorrel
