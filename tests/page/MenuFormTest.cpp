#include "page/frmMain.h"
#include "platform/Recordset.h"
#include "store/ProgramTables.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace quorrel::test {
namespace {

/// The entries under some actions, each with its name and caption; an entry of a menu further in.
QStringList Written(const QList<QAction*>& actions, const QString& indent = {}) {
    QStringList lines;
    for (const QAction* action : actions) {
        const QMenu* menu = action->menu();
        lines += action->isSeparator()
                     ? indent + '-'
                     : indent + (menu ? menu->objectName() : action->objectName()) + ' ' +
                           action->text();
        if (menu)
            lines += Written(menu->actions(), indent + '.');
    }
    return lines;
}

constexpr const char* kMenu = R"(mnuFile &File
.mnuFileNew &New
.mnuFileOpen &Open
.-
.mnuFilePrint &Print
..mnuPrintAll Complete &System
..mnuDoorsDep Doors by Department
..mnuPrintDoors &Doors by Key
..mnuHardware &Hardware Totals
..mnuKeysByDepartment Keys &by Department
..mnuKeysByUsers Keys by &Users
..mnuPrintKeyChart Key &Issue Chart
..mnuPrintKeys Key &List Chart
..mnuPrintChart &Pinning Charts
..mnuUnKeyed &UnKeyed Doors
..-
..mnuPreview Pre&view
...mnuPreviewAll Complete &System
...mnuPreviewPage &Page
...mnuPreviewKeys Key &List Chart
.mnuFilePrinter Printer Setup
.-
.mnuFileExit E&xit
mnuUsers &Edit
.mnuCompanyInfo &Company Info
.mnuEditDepartment &Departments
.mnuEditHardware &Hardware Descriptions
.mnuUsersAdd &Permissions
.mnuNetwork &Network Settings
mnuAssign &Assignments
.mnuAssignDoors &Doors
.mnuAssignUsers &Key Users
.mnuPinSizes &Pin Sizes
.mnuMapFiles Map Files
mnuFind &Search
.mnuCurrent &Current Keys && Doors
.mnuReturned &Returned Keys
.mnuLost &Lost Keys
mnuHelp &Help
.mnuHelpContents &Contents
.mnuHelpIndex &Index
.-
.mnuHelpAbout &About Quorrel)";

/// All forms that an entry leads to, so that nothing but rights dims one.
const QSet<QString> kForms = {
    "frmCreateFile",    "frmOpenFile",      "frmExit",        "frmFindKey",
    "frmDoors",         "frmKeyUsers",      "frmCompanyInfo", "frmDepartments",
    "frmEditHardware",  "frmPrintHardware", "frmKeysbyUsers", "frmKeysbyDepartment",
    "frmDBLostKeys",    "frmDBReturnKey",   "frmMapFiles",    "frmNetwork",
    "frmManufacturer",  "frmPrintPinning",  "frmDoorsList",   "frmUKDoorsList",
    "frmPrintKeyPages", "frmPermissions",   "frmAbout",       "frmPrinter"};

/// Names of the entries that are dimmed.
QStringList Dimmed(QWidget* main) {
    QStringList names;
    for (const QString& line : QString(kMenu).split('\n')) {
        const QString name = line.section(' ', 0, 0).remove('.');
        if (name == '-')
            continue;
        auto* menu = main->findChild<QMenu*>(name);
        const auto* entry = menu ? menu->menuAction() : main->findChild<QAction*>(name);
        if (!entry || !entry->isEnabled())
            names.append(name);
    }
    return names;
}

/// The main form of a user with all rights but one.
frmMain* OpenWithout(RunningProgram& run, bool ProgramUsersRow::*right) {
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    auto account = *Recordset<ProgramUsersRow>(run.session.Keys()).First();
    account.*right = false;
    Recordset<ProgramUsersRow>::Update(run.session.Keys(), account);
    run.RecordCompany();
    run.program.Start(false);
    if (account.ReadPrintPinning)
        run.boxes.Expect("Activate Auto-Logoff Y/N?", BoxAnswer::No);
    Click(run.Form("frmLogon"), "cmdLogon");
    Click(run.Form("frmOpenFile"), "cmdOpen");
    return qobject_cast<frmMain*>(run.Form("frmMain"));
}

TEST(MainMenu, HasItsEntriesInOrder) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    EXPECT_EQ(Written(Find<QMenuBar>(main, "menubar")->actions()).join('\n').toStdString(), kMenu);
}

TEST(MainMenu, ARightThatIsMissingDimsItsEntries) {
    const std::pair<bool ProgramUsersRow::*, QStringList> dimmed[] = {
        {&ProgramUsersRow::AddEditProgramUsers,
         {"mnuUsers", "mnuNetwork", "mnuReturned", "mnuLost"}},
        {&ProgramUsersRow::CreateSystem,
         {"mnuFileNew", "mnuCompanyInfo", "mnuNetwork", "mnuPinSizes", "mnuMapFiles"}},
        {&ProgramUsersRow::ReadPrintPinning,
         {"mnuPrintAll", "mnuPrintKeys", "mnuPrintChart", "mnuPreviewAll", "mnuPreviewPage",
          "mnuPreviewKeys"}},
        {&ProgramUsersRow::RunReports,
         {"mnuFilePrint", "mnuPrintAll", "mnuPrintKeys", "mnuPreviewAll", "mnuPreviewPage",
          "mnuPreviewKeys"}},
        {&ProgramUsersRow::IssueKeys, {"mnuAssignDoors"}},
        {&ProgramUsersRow::AddEditKeyUsers, {}},
        {&ProgramUsersRow::AlterKeyInformation, {}}};
    for (const auto& [right, names] : dimmed) {
        RunningProgram run;
        frmMain* main = OpenWithout(run, right);
        main->OfferForms(kForms);
        EXPECT_EQ(Dimmed(main).join(' ').toStdString(), names.join(' ').toStdString());
    }
}

TEST(MainMenu, AnEntryWhoseFormIsNotThereSaysSo) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    const QString tip = "This window is not part of this version yet.";
    EXPECT_FALSE(Find<QAction>(main, "mnuMapFiles")->isEnabled());
    EXPECT_EQ(Find<QAction>(main, "mnuMapFiles")->toolTip(), tip);
    EXPECT_NE(Find<QAction>(main, "mnuPinSizes")->toolTip(), tip);
    EXPECT_TRUE(Find<QMenu>(main, "mnuFilePrint")->toolTipsVisible());
    Choose(main, "mnuDoorsDep"); // Its form is still to be thought of.
    EXPECT_TRUE(main->isVisible());
}

TEST(MainMenu, AnEntrySavesWhatIsTypedAndAsksForItsForm) {
    RunningProgram run;
    auto* main = qobject_cast<frmMain*>(run.OpenMain(StandardSystem("Pier", "2715")));
    QObject::disconnect(main, nullptr, &run.program, nullptr);
    main->OfferForms(kForms);
    QString wanted;
    QObject::connect(main, &frmMain::FormWanted, [&](const QString& form) { wanted = form; });
    Type(main, "txtKeyID", "front");
    Choose(main, "mnuLost");
    EXPECT_EQ(wanted, "frmDBLostKeys");
    EXPECT_EQ(Recordset<AllKeysRow>(run.session.Keys()).First()->KeyID, "FRONT       ");
    main->show();
    Find<QMenu>(main, "mnuFind")->menuAction()->trigger();
    EXPECT_EQ(wanted, "frmFindKey");
    main->show();
    QTest::keyClick(main, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(wanted, "frmExit");
    main->show();
    Choose(main, "mnuUsersAdd");
    EXPECT_EQ(wanted, "frmPermissions");
}

TEST(MainMenu, PermissionsAreRefusedWithoutTheRight) {
    RunningProgram run;
    frmMain* main = OpenWithout(run, &ProgramUsersRow::AddEditProgramUsers);
    main->OfferForms(kForms);
    run.boxes.Expect("You Do Not Have Permission to Set User Paramiters");
    Choose(main, "mnuUsersAdd");
    EXPECT_EQ(run.boxes.Last().title, "Quorrel for Harbour Locks");
    EXPECT_TRUE(main->isVisible());
}

TEST(MainMenu, LeavingTheSystemSavesAKeyIDOfAnyLength) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Type(main, "txtKeyID", "x");
    QTest::keyClick(main, Qt::Key_O, Qt::ControlModifier);
    Click(run.Form("frmOpenFile"), "cmdOpen");
    EXPECT_EQ(Find<QLineEdit>(run.Form("frmMain"), "txtKeyID")->text(), "X");
}

} // namespace
} // namespace quorrel::test
