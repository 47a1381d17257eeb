#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "support/FormDriver.h"
#include "widgets/TextList.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quorrel::test {
namespace {

std::vector<SystemInfoRow> SystemInfo(const Session& session) {
    return Recordset<SystemInfoRow>(*session.SysinfoDatabase).Rows();
}

TEST(FrmNetwork, EditsBothRows) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuNetwork");
    QWidget* form = run.Form("frmNetwork");
    EXPECT_EQ(Find<QLineEdit>(form, "txtNetPath")->text(), run.PathOf(kKeySystemFile));
    EXPECT_EQ(Find<QLineEdit>(form, "txtMapPath")->text(), run.folder.path());
    EXPECT_FALSE(Find<QLineEdit>(form, "txtPersonelFile")->isEnabled());

    const QString other = run.folder.filePath("other.qv2");
    ASSERT_TRUE(QFile::copy(run.PathOf(kKeySystemFile), other));
    run.boxes.ExpectFileDialog("Key Databases (*.qv2)|*.qv2", other);
    Click(form, "cmdBrowse_0");
    Click(form, "optNetworkPer");
    run.boxes.ExpectFileDialog("Access Database (*.mdb)|*.mdb", "C:/people.mdb");
    Click(form, "cmdBrowsePer");
    EXPECT_EQ(Find<QLineEdit>(form, "txtPersonelFile")->text(), "C:/people.mdb");
    Type(form, "txtPersonelFile", "people.db");
    Type(form, "txtTable", "People");
    run.boxes.Expect("people.db", BoxAnswer::No);
    Click(form, "cmdSave");
    EXPECT_EQ(SystemInfo(run.session)[0].NetworkPath, "./KeySystem.qv2");

    run.boxes.Expect("people.db", BoxAnswer::Yes);
    run.boxes.Expect("take effect at the next start");
    Click(form, "cmdSave");
    const auto rows = SystemInfo(run.session);
    EXPECT_EQ(rows[0].NetworkPath, "./other.qv2");
    EXPECT_TRUE(rows[0].Networked && rows[0].personel);
    EXPECT_EQ(rows[0].PersonelTable, "People");
    EXPECT_EQ(rows[1].NetworkPath, "./");

    auto* noMaps = Find<QLabel>(form, "lblNoMaps");
    EXPECT_FALSE(noMaps->isVisible());
    Click(form, "optLocal");
    EXPECT_TRUE(noMaps->isVisible()) << "no maps without a network path";
    EXPECT_EQ(Find<QLineEdit>(form, "txtNetPath")->text(), run.PathOf(kKeySystemFile));
    EXPECT_FALSE(Find<QPushButton>(form, "cmdBrowse_0")->isEnabled());
    run.boxes.Expect("What you have entered here is not saved", BoxAnswer::No);
    form->close();
    EXPECT_TRUE(form->isVisible());
    Click(form, "cmdExit");
    EXPECT_EQ(run.Form("frmMain"), main);
}

TEST(FrmNetwork, FolderPickerMakesAFolderAndBringsItBack) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuNetwork");
    QWidget* form = run.Form("frmNetwork");
    Click(form, "cmdBrowse_1");
    EXPECT_FALSE(form->isVisible());
    QWidget* drive = run.Form("frmDrive");
    run.boxes.ExpectInput("Type the New Folder Name|Maps", "Site maps");
    Click(drive, "cmdNew");
    EXPECT_EQ(run.boxes.Last().title, "Create New Folder");
    const QString made = run.folder.filePath("Site maps");
    EXPECT_TRUE(QDir(made).exists());
    auto* folders = Find<TextList>(drive, "Dir1");
    QTest::keyClick(folders, Qt::Key_Return);
    EXPECT_EQ(Find<QLabel>(drive, "lblFolder")->text(), run.folder.path()) << "up to the parent";
    folders->SetCurrentRow(static_cast<int>(folders->Lines().indexOf("Site maps")));
    QTest::keyClick(folders, Qt::Key_Return);
    Click(drive, "cmdOK");
    EXPECT_EQ(Find<QLineEdit>(run.Form("frmNetwork"), "txtMapPath")->text(), made);

    Click(form, "cmdBrowse_1");
    run.Form("frmDrive")->close();
    EXPECT_TRUE(form->isVisible()) << "not left hidden";
}

TEST(FrmNetwork, MendsAStartThatDoesNotFindTheKeySystems) {
    RunningProgram run;
    const QString moved = run.folder.filePath("moved.qv2");
    CloseDatabases(run.session);
    ASSERT_TRUE(QFile::rename(run.PathOf(kKeySystemFile), moved));
    run.boxes.Expect("KeySystem.qv2 cannot be found");
    run.program.Start(false);
    QWidget* form = run.Form("frmNetwork");
    run.boxes.ExpectFileDialog("Key Databases (*.qv2)|*.qv2", moved);
    Click(form, "cmdBrowse_0");
    run.boxes.Expect("take effect at the next start");
    Click(form, "cmdSave");
    Click(form, "cmdExit");
    EXPECT_TRUE(run.ended);
    QString failure;
    EXPECT_TRUE(LoadStartupFiles(run.session, failure)) << failure.toStdString();
}

} // namespace
} // namespace quorrel::test
