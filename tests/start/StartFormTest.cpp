#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "support/FormDriver.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorrel::test {
namespace {

TEST(FirstRun, LeadsFromTheWelcomeOverTheCompanyToTheLogon) {
    RunningProgram run;
    run.program.Start(false);
    QWidget* first = run.Form("frmFirst");
    EXPECT_TRUE(Find<QLabel>(first, "Label2")->text().contains("Administrator"));
    EXPECT_TRUE(Find<QLabel>(first, "Label2")->text().contains("tamarisk"));

    run.boxes.Expect("Did you read the Logon Information?", BoxAnswer::No);
    Click(first, "Command1");
    EXPECT_EQ(run.boxes.Last().title, "Read Logon Info");
    EXPECT_FALSE(run.IsLoaded("frmCompanyInfo"));

    run.boxes.Expect("Did you read the Logon Information?", BoxAnswer::Yes);
    Click(run.Form("frmFirst"), "Command1");
    QWidget* company = run.Form("frmCompanyInfo");
    EXPECT_FALSE(run.IsLoaded("frmFirst"));
    Type(company, "txtCompanyName", "Harbour Locks");
    Click(company, "cmdSave");
    EXPECT_EQ(run.session.ProgramTitle, "Quorrel for Harbour Locks");

    run.boxes.Expect("Activate Auto-Logoff Y/N?", BoxAnswer::Yes);
    Click(run.Form("frmLogon"), "cmdLogon");
    EXPECT_TRUE(run.session.AutoLogoffActive);
    EXPECT_TRUE(run.Form("frmCreateFile"));
}

TEST(FirstRun, CompanyFormThatIsClosedStillLeadsOn) {
    RunningProgram run;
    run.program.Start(false);
    run.boxes.Expect("Did you read the Logon Information?", BoxAnswer::Yes);
    Click(run.Form("frmFirst"), "Command1");
    run.Form("frmCompanyInfo")->close();
    EXPECT_TRUE(run.Form("frmLogon"));
    EXPECT_TRUE(Recordset<CompanyInfoRow>(run.session.Keys()).Empty());
}

TEST(Start, TellsInPlainWordsWhyAFileCannotBeUsed) {
    RunningProgram run;
    CloseDatabases(run.session);
    ASSERT_TRUE(QFile::remove(run.PathOf(kSysinfoFile)));
    run.boxes.Expect("Sysinfo.qvx cannot be found");
    run.program.Start(false);
    QWidget* network = run.Form("frmNetwork");
    EXPECT_FALSE(Find<QPushButton>(network, "cmdSave")->isEnabled());
    EXPECT_TRUE(Find<QLabel>(network, "lblFoot")->text().contains("which cannot be opened"));
    Click(network, "cmdExit");
    EXPECT_TRUE(run.ended);
}

TEST(Start, AFileThatIsInUseIsTriedAgainOrLeadsToTheSettings) {
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
        RunningProgram run;
        run.RecordCompany();
        run.session.BusyTimeout = 50;
        auto other = Database::Open(run.PathOf(kKeySystemFile), kKeySystemKind);
        other->Execute("BEGIN EXCLUSIVE");
        run.boxes.ExpectWhile(
            "KeySystem.qv2 is in use by another workstation", [&] { other.reset(); }, answer);
        run.program.Start(false);
        EXPECT_TRUE(run.Form(answer == BoxAnswer::Yes ? "frmLogon" : "frmNetwork"));
    }
}

TEST(Start, SplashEndsAtAKey) {
    RunningProgram run;
    run.RecordCompany();
    run.program.Start(true);
    QTest::keyClick(run.Form("frmStart"), Qt::Key_Space);
    EXPECT_TRUE(run.Form("frmLogon"));
    EXPECT_FALSE(run.IsLoaded("frmStart"));
}

TEST(FrmExit, CancelGoesBackAndEnterEndsTheProgram) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Click(main, "cmdExit");
    EXPECT_FALSE(main->isVisible());
    Click(run.Form("frmExit"), "cmdCancel");
    EXPECT_EQ(run.Form("frmMain"), main);
    EXPECT_FALSE(run.IsLoaded("frmExit"));

    Choose(main, "mnuFileExit");
    QWidget* exit = run.Form("frmExit");
    Find<QPushButton>(exit, "cmdCancel")->setFocus();
    QTest::keyClick(exit->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(run.ended);
    EXPECT_FALSE(run.session.KeySystemDatabase);
}

TEST(FrmExit, MainFormThatIsClosedAsksAndCanBeBroughtBack) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    main->close();
    Click(run.Form("frmExit"), "cmdCancel");
    QWidget* again = run.Form("frmMain");
    EXPECT_EQ(Find<QLabel>(again, "lblSystem")->text(), "Pier");
}

TEST(FrmAbout, ComesUpAndGivesTheMainFormBack) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuHelpAbout");
    QWidget* about = run.Form("frmAbout");
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(Find<QPushButton>(about, "cmdSysInfo")->isEnabled(),
              SystemInformationTool().has_value());
    Click(about, "cmdOK");
    EXPECT_EQ(run.Form("frmMain"), main);
}

} // namespace
} // namespace quorrel::test
