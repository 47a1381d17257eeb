#include "start/frmDrive.h"

#include "ui_frmDrive.h"
#include "widgets/HelpContexts.h"

#include <QDir>
#include <QStorageInfo>

namespace quorrel {

frmDrive::frmDrive(Session& session, const QString& folder)
    : Form(session), ui(std::make_unique<Ui::frmDrive>()) {
    ui->setupUi(this);
    PlaceOnScreen(*this);
    OfferHelp(help::kNetwork);
    m_folders.setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    m_folders.setRootPath(QString());
    ui->Dir1->setModel(&m_folders);
    ui->Dir1->setHeaderHidden(true);
    for (int column = 1; column < m_folders.columnCount(); ++column)
        ui->Dir1->hideColumn(column);
    for (const QStorageInfo& drive : QStorageInfo::mountedVolumes())
        if (drive.isReady() && !drive.isReadOnly() && QFileInfo(drive.rootPath()).isDir())
            ui->Drive1->addItem(QDir::toNativeSeparators(drive.rootPath()));
    ui->Drive1->setCurrentText(QDir::toNativeSeparators(QStorageInfo(folder).rootPath()));
    GoTo(QDir(folder).exists() ? folder : QDir::homePath());
    // Folders are read by and by; the chosen one is to stay in sight as others come in above it.
    On(&m_folders, &QFileSystemModel::directoryLoaded,
       [this] { ui->Dir1->scrollTo(ui->Dir1->currentIndex(), QTreeView::PositionAtCenter); });
    On(ui->Drive1, &QComboBox::activated, [this] { GoTo(ui->Drive1->currentText()); });
    On(ui->cmdNew, &QPushButton::clicked, [this] { MakeFolder(); });
    On(ui->cmdOK, &QPushButton::clicked, [this] {
        emit FolderChosen(Folder());
        close();
    });
}

frmDrive::~frmDrive() = default;

QString frmDrive::Folder() const {
    return QDir::toNativeSeparators(m_folders.filePath(ui->Dir1->currentIndex()));
}

void frmDrive::GoTo(const QString& folder) {
    const QModelIndex index = m_folders.index(folder);
    ui->Dir1->setCurrentIndex(index);
    ui->Dir1->expand(index);
    ui->Dir1->scrollTo(index);
}

void frmDrive::MakeFolder() {
    const auto name = m_session.boxes.Input(tr("Type the New Folder Name"), tr("Create New Folder"),
                                            QStringLiteral("Maps"));
    if (!name || name->trimmed().isEmpty())
        return;
    const QString path = QDir(Folder()).filePath(name->trimmed());
    if (!QDir().mkpath(path)) {
        m_session.boxes.Message(tr("The folder %1 cannot be made.").arg(path), windowTitle(),
                                BoxButtons::Ok, BoxIcon::Warning);
        return;
    }
    GoTo(path);
}

bool frmDrive::Unloading() {
    emit Closed();
    return true;
}

} // namespace quorrel
