#include "systems/frmOpenFile.h"

#include "platform/Text.h"
#include "systems/KeySystems.h"
#include "ui_frmOpenFile.h"
#include "widgets/HelpContexts.h"

#include <QShortcut>

namespace quorrel {

namespace {

constexpr int kLongestName = 255;

QString ShownName(const KeySystemRow& system) {
    const QString name = OneLine(system.SystemName.left(kLongestName));
    return name.trimmed().isEmpty() ? frmOpenFile::tr("(no name)") : name;
}

} // namespace

frmOpenFile::frmOpenFile(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmOpenFile>()) {
    ui->setupUi(this);
    OfferHelp(help::kOpenSystem, ui->cmdHelp);
    const bool mayCreate = session.SessionPermissions.CreateSystem;
    ui->cmdNew->setEnabled(mayCreate);
    ui->cmdDelete->setEnabled(mayCreate);
    On(ui->cmdOpen, &QPushButton::clicked, [this] { OpenSelected(); });
    ui->lstSystemFiles->setFont(font()); // Names are in no columns.
    On(ui->lstSystemFiles, &TextList::DoubleClicked, [this] { OpenSelected(); });
    On(ui->lstSystemFiles, &TextList::EnterPressed, [this] { OpenSelected(); });
    On(ui->cmdNew, &QPushButton::clicked, [this] { emit NewSystemWanted(); });
    On(ui->cmdDelete, &QPushButton::clicked, [this] { DeleteSelected(); });
    auto* deleteKey = new QShortcut(QKeySequence::Delete, ui->lstSystemFiles);
    deleteKey->setContext(Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, ui->cmdDelete, &QPushButton::click);
    m_session.CurrentPage = 1;
}

frmOpenFile::~frmOpenFile() = default;

void frmOpenFile::Activated() {
    m_session.IdleTickCounter = 0;
    FillList();
    if (ui->lstSystemFiles->CurrentRow() < 0)
        ui->lstSystemFiles->SetCurrentRow(0);
    ui->lstSystemFiles->setFocus();
}

/// Whoever comes back to the list sees what other workstations have done meanwhile.
void frmOpenFile::changeEvent(QEvent* event) {
    Form::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        Guarded([this] { RefreshList(); });
}

void frmOpenFile::RefreshList() {
    if (m_session.Keys().DataVersion() != m_dataVersion)
        FillList();
}

void frmOpenFile::FillList() {
    m_dataVersion = m_session.Keys().DataVersion();
    m_systems = ListKeySystems(m_session);
    QStringList names;
    for (const KeySystemRow& system : m_systems)
        names.append(ShownName(system));
    ui->lstSystemFiles->Refill(names);
    if (m_systems.empty())
        emit NewSystemWanted();
}

void frmOpenFile::OpenSelected() {
    const int row = ui->lstSystemFiles->CurrentRow();
    if (row < 0)
        return;
    const BusyPointer busy;
    OpenSelectedSystem(m_session, m_systems[static_cast<std::size_t>(row)]);
    if (const QString& flaws = m_session.System.flaws; !flaws.isEmpty())
        m_session.boxes.Message(
            tr("The key system \"%1\" is broken in the file:\n\n%2\n\nIt is opened all the same. "
               "If a good backup of the file is at hand, bring it back.")
                .arg(ShownName(m_systems[static_cast<std::size_t>(row)]), flaws),
            m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
    emit SystemOpened();
}

void frmOpenFile::DeleteSelected() {
    const int row = ui->lstSystemFiles->CurrentRow();
    if (row < 0 || !m_session.SessionPermissions.CreateSystem)
        return;
    const KeySystemRow system = m_systems[static_cast<std::size_t>(row)];
    const SystemContents contents = ContentsOf(m_session, system.SystemID);
    const QString question =
        tr("Are you sure you want to delete the key system \"%1\"?\n\nWith it go %2. This cannot "
           "be undone. Its location maps stay in the map file.")
            .arg(ShownName(system), contents.InWords());
    if (!m_session.boxes.ConfirmsLoss(question, m_session.ProgramTitle))
        return;
    const BusyPointer busy;
    DeleteKeySystem(m_session, system);
    FillList();
    ui->lstSystemFiles->SetCurrentRow(0);
}

} // namespace quorrel
