#include "access/frmLogoff.h"
#include "platform/Recordset.h"
#include "store/ProgramTables.h"
#include "support/FormDriver.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

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
    EXPECT_EQ(rows[0].CompanyLogo, "./logo.bmp");
    EXPECT_FALSE(Find<QLabel>(run.Form("frmMain"), "picQV")->pixmap().isNull());

    Choose(run.Form("frmMain"), "mnuCompanyInfo");
    EXPECT_EQ(Find<QPlainTextEdit>(run.Form("frmCompanyInfo"), "txtKeyPolicy")->toPlainText(),
              policy.left(1000));
}

TEST(FrmCompanyInfo, AsksBeforeTypedTextIsDroppedAndShowsWhatAnotherWorkstationHasStored) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuCompanyInfo");
    QWidget* company = run.Form("frmCompanyInfo");
    Type(company, "txtCompanySlogan", "555 0100");
    run.boxes.Expect("is not saved", BoxAnswer::No);
    company->close();
    EXPECT_TRUE(company->isVisible());

    run.session.Keys().Execute("UPDATE CompanyInfo SET CompanySlogan = '555 0199', "
                               "CompanyMemo = 'theirs'");
    run.boxes.Expect("has been changed at another workstation");
    Click(company, "cmdSave");
    EXPECT_TRUE(run.boxes.Last().text.contains("555 0100")) << "what was typed is not lost";
    EXPECT_EQ(Find<QLineEdit>(company, "txtCompanySlogan")->text(), "555 0199");
    EXPECT_EQ(Find<QPlainTextEdit>(company, "txtCompanyMemo")->toPlainText(), "theirs");
    Type(company, "txtCompanySlogan", "555 0100");
    Click(company, "cmdSave");
    EXPECT_EQ(run.session.Company.CompanySlogan, "555 0100");
    EXPECT_TRUE(run.Form("frmMain"));
}

TEST(FrmCompanyInfo, OpeningAndSavingLeavesTextsThatItsBoxesCannotShow) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    run.session.Keys().Execute("UPDATE CompanyInfo SET CompanyName = 'Two' || char(10) || 'lines', "
                               "CompanyMemo = 'a' || char(13, 10) || 'b'");
    const CompanyInfoRow before = *Recordset<CompanyInfoRow>(run.session.Keys()).First();
    Choose(main, "mnuCompanyInfo");
    QWidget* company = run.Form("frmCompanyInfo");
    Type(company, "txtCompanySlogan", "555 0100");
    Click(company, "cmdSave");
    CompanyInfoRow after = *Recordset<CompanyInfoRow>(run.session.Keys()).First();
    EXPECT_EQ(after.CompanySlogan, "555 0100");
    after.CompanySlogan = before.CompanySlogan;
    EXPECT_TRUE(SameFields(after, before));
}

/// The smallest picture of a format that not every workstation knows: eight black dots in a row.
QByteArray Tiff() {
    QByteArray file("II*\0\x08\0\0\0", 8);
    const std::pair<char, char> entries[] = {{0, 8},    {1, 1},  {2, 1},  {3, 1}, {6, 1},
                                             {17, 122}, {21, 1}, {22, 1}, {23, 1}};
    file.append(char(std::size(entries))).append('\0');
    for (const auto& [tag, value] : entries) // tags 256 and on, each one short number
        file.append(tag).append('\1').append("\x03\0\x01\0\0\0", 6).append(value).append(3, '\0');
    return file.append(4, '\0').append('\0');
}

TEST(FrmCompanyInfo, ALogoIsShownOrSaidNotToBe) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuCompanyInfo");
    QWidget* company = run.Form("frmCompanyInfo");
    auto* label = Find<QLabel>(company, "imgLogo");
    const auto show = [&](const char* name, const QByteArray& bytes) {
        QFile file(run.PathOf(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        Find<QLineEdit>(company, "txtPicPath")->setText(file.fileName());
    };
    show("broken.bmp", "no picture");
    EXPECT_TRUE(label->text().contains("cannot be shown"));
    show("logo.tif", Tiff());
    if (QImageReader::supportedImageFormats().contains("tif"))
        EXPECT_EQ(label->pixmap().size(), QSize(8, 1));
    else
        EXPECT_TRUE(label->text().contains("cannot be shown"));
    Find<QLineEdit>(company, "txtPicPath")->setText("/no/such/logo.bmp");
    EXPECT_TRUE(label->text().isEmpty() && label->pixmap().isNull()) << "without a message";
    Find<QLineEdit>(company, "txtPicPath")->clear();
}

/// Lets the idle timer of the main form tick.
void Tick(QWidget* main, int ticks) {
    auto* timer = Find<QTimer>(main, "Timer1");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 50000);
    for (int tick = 0; tick < ticks; ++tick)
        QMetaObject::invokeMethod(timer, "timeout");
}

TEST(FrmLogoff, AWorkstationLeftAloneClosesItself) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Tick(main, 40);
    EXPECT_FALSE(run.IsLoaded("frmLogoff")) << "it is not active";
    run.session.AutoLogoffActive = true;
    Tick(main, 13);
    EXPECT_FALSE(run.IsLoaded("frmLogoff"));
    Tick(main, 1);
    auto* logoff = dynamic_cast<frmLogoff*>(run.Form("frmLogoff"));
    EXPECT_EQ(LabelText(logoff, "lblTimeout"), " 2: 0 0");
    logoff->Tick();
    EXPECT_EQ(LabelText(logoff, "lblTimeout"), " 1: 5 9");
    for (int second = 1; second < 120; ++second)
        logoff->Tick();
    EXPECT_EQ(LabelText(logoff, "lblTimeout"), " 0: 0 0");
    EXPECT_FALSE(run.ended);
    logoff->Tick();
    EXPECT_TRUE(run.ended);
}

TEST(FrmLogoff, TheMouseAndTheButtonCancelIt) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    run.session.AutoLogoffActive = true;
    Tick(main, 14);
    Click(run.Form("frmLogoff"), "CancelButton");
    EXPECT_FALSE(run.IsLoaded("frmLogoff"));
    EXPECT_EQ(run.session.IdleTickCounter, -4);
    Tick(main, 17);
    EXPECT_FALSE(run.IsLoaded("frmLogoff"));
    QTest::mouseMove(main, QPoint(5, 5));
    QTest::mouseMove(main, QPoint(9, 9));
    EXPECT_EQ(run.session.IdleTickCounter, 0);
    Tick(main, 14);
    QWidget* logoff = run.Form("frmLogoff");
    QTest::mouseMove(logoff, QPoint(5, 5));
    QTest::mouseMove(logoff, QPoint(9, 9));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return LabelText(logoff, "lblTimeout") == " Mouse Movement detected,  canceling Logoff";
    }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !run.IsLoaded("frmLogoff"); }, 5000));
    EXPECT_EQ(run.session.IdleTickCounter, 0);
    EXPECT_FALSE(run.ended);
}

} // namespace
} // namespace quorrel::test
