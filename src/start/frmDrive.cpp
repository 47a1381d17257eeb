#include "start/frmDrive.h"

#include "ui_frmDrive.h"
#include "widgets/HelpContexts.h"

#include <QDir>
#include <QStorageInfo>

namespace quorrel {

namespace {

const QString kParent = QStringLiteral("..");

} // namespace

frmDrive::frmDrive(Session& session, const QString& folder)
    : Form(session), ui(std::make_unique<Ui::frmDrive>()) {
    ui->setupUi(this);
    OfferHelp(help::kNetwork);
    for (const QStorageInfo& drive : QStorageInfo::mountedVolumes())
        if (drive.isReady() && !drive.isReadOnly() && QFileInfo(drive.rootPath()).isDir())
            ui->Drive1->addItem(QDir::toNativeSeparators(drive.rootPath()));
    ui->Drive1->setCurrentText(QDir::toNativeSeparators(QStorageInfo(folder).rootPath()));
    GoTo(QDir(folder).exists() ? folder : QDir::homePath());
    ui->lblFolder->SetElideMode(Qt::ElideMiddle); // Where a path begins and ends tells most.
    ui->Dir1->setFont(font());                    // Names are in no columns.
    ui->Dir1->setFocus();
    On(ui->Drive1, &QComboBox::activated, [this] { GoTo(ui->Drive1->currentText()); });
    On(ui->Dir1, &TextList::DoubleClicked, [this] { EnterSelected(); });
    On(ui->Dir1, &TextList::EnterPressed, [this] { EnterSelected(); });
    On(ui->cmdNew, &QPushButton::clicked, [this] { MakeFolder(); });
    On(ui->cmdOK, &QPushButton::clicked, [this] {
        emit FolderChosen(QDir::toNativeSeparators(m_folder));
        Leave();
    });
}

frmDrive::~frmDrive() = default;

void frmDrive::GoTo(const QString& folder) {
    m_folder = QDir::cleanPath(folder);
    ui->lblFolder->setText(QDir::toNativeSeparators(m_folder));
    QStringList names =
        QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    if (!QDir(m_folder).isRoot())
        names.prepend(kParent);
    ui->Dir1->SetLines(names);
    ui->Dir1->SetCurrentRow(0);
}

void frmDrive::EnterSelected() {
    const QString name = ui->Dir1->CurrentText();
    QDir folder(m_folder);
    if (name == kParent ? folder.cdUp() : folder.cd(name))
        GoTo(folder.absolutePath());
}

void frmDrive::MakeFolder() {
    const auto name = m_session.boxes.Input(tr("Type the New Folder Name"), tr("Create New Folder"),
                                            QStringLiteral("Maps"));
    if (!name || name->trimmed().isEmpty())
        return;
    const QString path = QDir(m_folder).filePath(name->trimmed());
    if (!QDir().mkpath(path)) {
        m_session.boxes.Message(
            tr("The folder %1 cannot be made.").arg(QDir::toNativeSeparators(path)), windowTitle(),
            BoxButtons::Ok, BoxIcon::Warning);
        return;
    }
    GoTo(path);
}

} // namespace quorrel
