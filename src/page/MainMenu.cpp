#include "page/MainMenu.h"

#include "ui_MainMenu.h"

namespace quorrel {

MainMenu::MainMenu(QWidget* parent) : QMenuBar(parent), ui(std::make_unique<Ui::MainMenu>()) {
    ui->setupUi(this);
    for (const FormEntry& entry : FormEntries({}))
        connect(entry.action, &QAction::triggered, this,
                [this, form = QString::fromLatin1(entry.form)] { emit FormWanted(form); });
    for (const PrintEntry& entry : PrintEntries())
        connect(entry.action, &QAction::triggered, this,
                [this, entry] { emit ReportWanted(entry.report, entry.preview); });
    connect(ui->mnuFind->menuAction(), &QAction::triggered, ui->mnuCurrent, &QAction::trigger);
    connect(ui->mnuHelpContents, &QAction::triggered, this, &MainMenu::ContentsWanted);
    connect(ui->mnuHelpIndex, &QAction::triggered, this, &MainMenu::IndexWanted);
}

MainMenu::~MainMenu() = default;

QString MainMenu::NotYet() {
    return tr("This window is not part of this version yet.");
}

std::vector<MainMenu::FormEntry> MainMenu::FormEntries(const Permissions& may) const {
    return {{ui->mnuFileNew, "frmCreateFile", may.CreateSystem},
            {ui->mnuFileOpen, "frmOpenFile", true},
            {ui->mnuPrintDoors, "frmDoorsList", true},
            {ui->mnuHardware, "frmPrintHardware", true},
            {ui->mnuKeysByDepartment, "frmKeysbyDepartment", true},
            {ui->mnuKeysByUsers, "frmKeysbyUsers", true},
            {ui->mnuPrintKeyChart, "frmPrintKeyPages", true},
            {ui->mnuPrintChart, "frmPrintPinning", may.ReadPrintPinning},
            {ui->mnuUnKeyed, "frmUKDoorsList", true},
            {ui->mnuFilePrinter, "frmPrinter", true},
            {ui->mnuFileExit, "frmExit", true},
            {ui->mnuCompanyInfo, "frmCompanyInfo", may.CreateSystem},
            {ui->mnuEditDepartment, "frmDepartments", true},
            {ui->mnuEditHardware, "frmEditHardware", true},
            {ui->mnuUsersAdd, "frmPermissions", true},
            {ui->mnuNetwork, "frmNetwork", may.CreateSystem && may.AddEditProgramUsers},
            {ui->mnuAssignDoors, "frmDoors", may.IssueKeys},
            {ui->mnuAssignUsers, "frmKeyUsers", true},
            {ui->mnuPinSizes, "frmManufacturer", may.CreateSystem},
            {ui->mnuMapFiles, "frmMapFiles", may.CreateSystem},
            {ui->mnuCurrent, "frmFindKey", true},
            {ui->mnuReturned, "frmDBReturnKey", may.AddEditProgramUsers},
            {ui->mnuLost, "frmDBLostKeys", may.AddEditProgramUsers},
            {ui->mnuHelpAbout, "frmAbout", true}};
}

std::vector<MainMenu::PrintEntry> MainMenu::PrintEntries() const {
    return {{ui->mnuPrintAll, MainReport::System, false},
            {ui->mnuPrintKeys, MainReport::Keys, false},
            {ui->mnuPreviewAll, MainReport::System, true},
            {ui->mnuPreviewPage, MainReport::Page, true},
            {ui->mnuPreviewKeys, MainReport::Keys, true}};
}

void MainMenu::Offer(const Permissions& may, const QSet<QString>& offered) {
    ui->mnuUsers->menuAction()->setEnabled(may.AddEditProgramUsers);
    ui->mnuFilePrint->menuAction()->setEnabled(may.RunReports);
    for (const FormEntry& entry : FormEntries(may)) {
        const bool there = offered.contains(QLatin1String(entry.form));
        entry.action->setEnabled(there && entry.allowed);
        entry.action->setToolTip(there ? QString() : NotYet());
    }
    for (const PrintEntry& entry : PrintEntries())
        entry.action->setEnabled(may.RunReports && may.ReadPrintPinning);
}

} // namespace quorrel
