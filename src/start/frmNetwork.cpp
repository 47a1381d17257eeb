#include "start/frmNetwork.h"

#include "store/DatabaseFiles.h"
#include "ui_frmNetwork.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmNetwork::frmNetwork(Session& session) : Form(session), ui(std::make_unique<Ui::frmNetwork>()) {
    ui->setupUi(this);
    OfferHelp(help::kNetwork, ui->cmdHelp);
    if (m_session.SysinfoDatabase)
        Guarded([this] { ShowSettings(LoadNetworkSettings(m_session)); });
    else
        ShowNoSettings();
    for (QRadioButton* option : {ui->optLocal, ui->optNetwork, ui->optLocalPer, ui->optNetworkPer})
        On(option, &QRadioButton::clicked, [this] { ApplyOptions(); });
    On(ui->cmdBrowse_0, &QPushButton::clicked, [this] {
        Browse(ui->txtNetPath, tr("Key System Database"),
               QStringLiteral("Key Databases (*.qv2)|*.qv2"));
    });
    On(ui->cmdBrowse_1, &QPushButton::clicked, [this] { emit MapFolderWanted(); });
    On(ui->cmdBrowsePer, &QPushButton::clicked, [this] {
        Browse(ui->txtPersonelFile, tr("Personnel File"),
               QStringLiteral("Access Database (*.mdb)|*.mdb"));
    });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
}

frmNetwork::~frmNetwork() = default;

void frmNetwork::SetMapFolder(const QString& folder) {
    ui->txtMapPath->setText(folder);
}

QString frmNetwork::MapFolder() const {
    return ui->txtMapPath->text();
}

void frmNetwork::ShowSettings(const NetworkSettings& settings) {
    ui->txtNetPath->setText(settings.networkPath);
    ui->txtMapPath->setText(settings.mapFolder);
    ui->txtPersonelFile->setText(settings.personnelFile);
    ui->txtTable->setText(settings.personnelTable);
    (settings.networked ? ui->optNetwork : ui->optLocal)->setChecked(true);
    (settings.personnel ? ui->optNetworkPer : ui->optLocalPer)->setChecked(true);
    ApplyOptions();
    m_saved = Typed();
}

/// The settings lie in the file that cannot be opened, so there is nothing to set.
void frmNetwork::ShowNoSettings() {
    for (QWidget* group :
         {static_cast<QWidget*>(ui->frmKeys), static_cast<QWidget*>(ui->frmMaps),
          static_cast<QWidget*>(ui->frmPersonnel), static_cast<QWidget*>(ui->cmdSave)})
        group->setEnabled(false);
    OfferFoot();
    Tell(tr("These settings lie in %1, which cannot be opened. See to that file, then start "
            "Quorrel again.")
             .arg(QLatin1String(kSysinfoFile)));
    m_saved = Typed();
}

void frmNetwork::ApplyOptions() {
    const bool local = ui->optLocal->isChecked();
    if (local)
        ui->txtNetPath->setText(LocalKeySystemPath(m_session));
    ui->cmdBrowse_0->setEnabled(!local);
    ui->txtNetPath->setEnabled(!local);
    ui->lblNetPath->setEnabled(!local);
    ui->txtPersonelFile->setEnabled(!ui->optLocalPer->isChecked());
    ui->lblPersonelFile->setEnabled(!ui->optLocalPer->isChecked());
    ui->lblNoMaps->setVisible(local);
}

NetworkSettings frmNetwork::Typed() const {
    NetworkSettings settings;
    settings.networked = ui->optNetwork->isChecked();
    settings.networkPath = ui->txtNetPath->text();
    settings.mapFolder = ui->txtMapPath->text();
    settings.personnel = ui->optNetworkPer->isChecked();
    settings.personnelFile = ui->txtPersonelFile->text();
    settings.personnelTable = ui->txtTable->text();
    return settings;
}

QString frmNetwork::Unsaved() const {
    return Typed() == m_saved ? QString() : tr("What you have entered here");
}

void frmNetwork::Browse(QLineEdit* field, const QString& title, const QString& filter) {
    const QString path = m_session.boxes.OpenFile(title, filter);
    if (!path.isEmpty())
        field->setText(path);
}

void frmNetwork::Save() {
    const NetworkSettings settings = Typed();
    const QStringList missing = MissingPaths(settings);
    if (!missing.isEmpty() &&
        !m_session.boxes.Confirms(tr("These paths cannot be found now:\n\n%1\n\nSave them all the "
                                     "same?")
                                      .arg(missing.join(u'\n')),
                                  windowTitle()))
        return;
    SaveNetworkSettings(m_session, settings);
    m_saved = settings;
    m_session.boxes.Message(tr("The settings are saved. They take effect at the next start."),
                            windowTitle(), BoxButtons::Ok, BoxIcon::Information);
}

} // namespace quorrel
