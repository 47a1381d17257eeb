#include "platform/Recordset.h"
#include "store/ProgramTables.h"
#include "support/FormDriver.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace quorrel::test {
namespace {

TEST(FrmLogon, ThirdFailureEndsTheProgram) {
    RunningProgram run;
    run.RecordCompany();
    run.program.Start(false);
    QWidget* logon = run.Form("frmLogon");
    EXPECT_EQ(Find<QLineEdit>(logon, "txtUserName")->text(), "Administrator");
    EXPECT_EQ(Find<QLineEdit>(logon, "txtPassword")->text(), "tamarisk");
    EXPECT_EQ(TabRound(logon),
              QStringList({"txtUserName", "txtPassword", "cmdLogon", "cmdExit", "cmdHelp"}));

    Type(logon, "txtPassword", "tamarack");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        run.boxes.Expect("Invalid Entry, please check User Name and Password");
        Click(logon, "cmdLogon");
        EXPECT_TRUE(Find<QLineEdit>(logon, "txtPassword")->hasFocus());
        EXPECT_EQ(Find<QLineEdit>(logon, "txtPassword")->text(), "tamarack");
    }
    run.boxes.Expect("Multiple Invalid Entries - Exiting Program");
    Click(logon, "cmdLogon");
    EXPECT_TRUE(run.ended);
}

TEST(FrmLogon, EnterLogsOnAndExitEnds) {
    RunningProgram run;
    run.RecordCompany();
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    run.program.Start(false);
    QWidget* logon = run.Form("frmLogon");
    Type(logon, "txtUserName", "aDMINISTRATOR");
    run.boxes.Expect("Activate Auto-Logoff Y/N?", BoxAnswer::No);
    QTest::keyClick(Find<QLineEdit>(logon, "txtPassword"), Qt::Key_Return);
    EXPECT_TRUE(run.Form("frmOpenFile"));
    EXPECT_FALSE(run.session.AutoLogoffActive);

    RunningProgram other;
    other.RecordCompany();
    other.program.Start(false);
    Click(other.Form("frmLogon"), "cmdExit");
    EXPECT_TRUE(other.ended);
}

TEST(FrmCompanyInfo, KeepsEveryFieldAndEditsTheOneRow) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    const QString logo = run.folder.filePath("logo.bmp");
    ASSERT_TRUE(QImage(20, 10, QImage::Format_RGB32).save(logo));

    Choose(main, "mnuCompanyInfo");
    QWidget* company = run.Form("frmCompanyInfo");
    EXPECT_EQ(Find<QLineEdit>(company, "txtCompanyName")->text(), "Harbour Locks");
    EXPECT_EQ(TabRound(company), QStringList({"txtCompanyName", "txtCompanyAddress",
                                              "txtCompanySlogan", "txtCompanyMemo", "txtKeyPolicy",
                                              "txtPicPath", "cmdBrowse2", "cmdSave", "cmdHelp"}));
    Find<QLineEdit>(company, "txtCompanyName")->setText(QString::fromUtf8("Söhne & O'Neill"));
    Type(company, "txtCompanySlogan", "555 0100");
    Find<QPlainTextEdit>(company, "txtCompanyAddress")->setPlainText("1 Quay\nHarbour");
    const QString policy = QString("p").repeated(990) + "END567890dropped";
    Find<QPlainTextEdit>(company, "txtKeyPolicy")->setPlainText(policy);
    EXPECT_TRUE(Find<QLabel>(company, "lblPolicyLength")->text().contains("1006 of 1000"));
    run.boxes.ExpectFileDialog("Images (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif", logo);
    Click(company, "cmdBrowse2");
    EXPECT_FALSE(Find<QLabel>(company, "imgLogo")->pixmap().isNull());
    Click(company, "cmdSave");

    const auto rows = Recordset<CompanyInfoRow>(run.session.Keys()).Rows();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].CompanyName, QString::fromUtf8("Söhne & O'Neill"));
    EXPECT_EQ(rows[0].CompanyAddress, "1 Quay\nHarbour");
    EXPECT_EQ(rows[0].KeyPolicy4.size(), 250);
    EXPECT_TRUE(rows[0].KeyPolicy4.endsWith("END567890d"));
    EXPECT_EQ(rows[0].CompanyLogo, logo);
    EXPECT_FALSE(Find<QLabel>(run.Form("frmMain"), "picQV")->pixmap().isNull());

    Choose(run.Form("frmMain"), "mnuCompanyInfo");
    EXPECT_EQ(Find<QPlainTextEdit>(run.Form("frmCompanyInfo"), "txtKeyPolicy")->toPlainText(),
              policy.left(1000));
}

} // namespace
} // namespace quorrel::test
