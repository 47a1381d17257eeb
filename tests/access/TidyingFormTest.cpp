#include "access/Departments.h"
#include "access/HardwareDescriptions.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "support/FormDriver.h"
#include "support/OtherSession.h"
#include "widgets/TextList.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quorrel::test {
namespace {

class FrmDepartments : public testing::Test {
protected:
    void SetUp() override {
        main = run.OpenMain(StandardSystem("Pier", "2715"));
        for (const char* name : {"STORES", "Office", "PIER"}) {
            DepartmentRow row;
            row.Department = QLatin1String(name);
            row.SystemNumber = session.ActiveSystemNumber;
            Recordset<DepartmentRow>::Add(session.Keys(), row);
        }
        Open();
    }

    void Open() {
        Choose(main, "mnuEditDepartment");
        form = run.Form("frmDepartments");
        EXPECT_FALSE(main->isVisible());
        list = Find<TextList>(form, "lstDepartment");
    }

    QPoint PlaceOf(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
    void ClickLine(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(row));
    }

    RunningProgram run;
    Session& session = run.session;
    QWidget* main = nullptr;
    QWidget* form = nullptr;
    TextList* list = nullptr;
};

TEST_F(FrmDepartments, RenamesTheSelectedOne) {
    EXPECT_FALSE(Find<QPushButton>(form, "cmdRename")->isEnabled()) << "nothing is selected";
    ClickLine(1);
    EXPECT_EQ(TabRound(form).join(' '), "lstDepartment cmdRename cmdDelete cmdHelp cmdExit");
    Click(form, "cmdRename");
    auto* name = Find<QLineEdit>(form, "txtRename");
    EXPECT_TRUE(name->hasFocus());
    EXPECT_EQ(name->selectedText(), "OFFICE");
    EXPECT_FALSE(list->isEnabled());
    EXPECT_FALSE(Find<QPushButton>(form, "cmdRename")->isVisible());
    EXPECT_FALSE(Find<QPushButton>(form, "cmdDelete")->isEnabled());
    name->insert(QString::fromUtf8("Zo\u00eb's office"));
    QTest::keyClick(name, Qt::Key_Return);
    const QString renamed = QString::fromUtf8("ZO\u00cb'S OFFICE");
    EXPECT_EQ(list->Lines(), (QStringList{"STORES", "PIER", renamed}));
    EXPECT_EQ(list->CurrentText(), renamed);
    EXPECT_TRUE(list->isEnabled());
    EXPECT_EQ(name->text(), "");
    EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isVisible());
}

TEST_F(FrmDepartments, GivesARenamingUpOnEscapeAndClosesOnTheNext) {
    ClickLine(0);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(0));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(list->isEnabled()) << "nothing was typed";
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(list->isEnabled()) << "Enter is the default button";
    Type(form, "txtRename", "SHED");
    run.boxes.Expect("The new name of department STORES is not saved.", BoxAnswer::No);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(list->isEnabled());
    run.boxes.Expect("The new name of department STORES is not saved.", BoxAnswer::Yes);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(list->isEnabled());
    EXPECT_EQ(ListDepartments(session), (QStringList{"STORES", "Office", "PIER"}));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(run.IsLoaded("frmDepartments"));
    EXPECT_EQ(run.Form("frmMain"), main);
}

TEST_F(FrmDepartments, IsFollowedByTheKeyOnTheMainForm) {
    Click(form, "cmdExit");
    Type(main, "txtKeyID", "A1");
    auto* department = Find<QComboBox>(main, "cmbDepartment");
    department->setCurrentText("PIER");
    Open(); // Leaving the main form saves the key.
    ClickLine(2);
    Click(form, "cmdRename");
    Type(form, "txtRename", "quay");
    Click(form, "cmdSave");
    Click(form, "cmdExit");
    EXPECT_EQ(run.Form("frmMain"), main);
    EXPECT_EQ(department->currentText(), "QUAY");
    EXPECT_GE(department->findText("QUAY"), 0);
    EXPECT_EQ(department->findText("PIER"), -1);
}

TEST_F(FrmDepartments, DeletesAfterAQuestion) {
    ClickLine(2);
    run.boxes.Expect("Are you sure you want to delete PIER?", BoxAnswer::No);
    Click(form, "cmdDelete");
    EXPECT_EQ(list->Count(), 3);
    run.boxes.Expect("Are you sure you want to delete PIER?", BoxAnswer::Yes);
    Click(form, "cmdDelete");
    EXPECT_EQ(run.boxes.Last().title, session.ProgramTitle);
    EXPECT_EQ(ListDepartments(session), (QStringList{"STORES", "Office"}));
    EXPECT_EQ(list->CurrentText(), "Office");
}

TEST_F(FrmDepartments, OnesThatAreGoneAreToldAndNothingIsWritten) {
    OtherSession other(run);
    ClickLine(0);
    Click(form, "cmdRename");
    Type(form, "txtRename", "Shed");
    RenameDepartment(other.session, "STORES", "DEPOT");
    run.boxes.Expect("Department STORES is no longer in the file");
    Click(form, "cmdSave");
    EXPECT_EQ(list->Lines(), (QStringList{"Office", "PIER", "DEPOT"}));
    EXPECT_EQ(Find<QLabel>(form, "lblFoot")->text(), "You had typed: Shed");
    ClickLine(0);
    DeleteDepartment(other.session, "Office");
    run.boxes.Expect("Are you sure you want to delete Office?", BoxAnswer::Yes);
    run.boxes.Expect("Department Office is no longer in the file");
    Click(form, "cmdDelete");
    EXPECT_EQ(list->Lines(), (QStringList{"PIER", "DEPOT"}));
    ClickLine(0);
    Click(form, "cmdRename");
    Type(form, "txtRename", "Quay");
    Click(form, "cmdSave");
    EXPECT_EQ(Find<QLabel>(form, "lblFoot")->text(), "Department PIER renamed to QUAY");
}

TEST_F(FrmDepartments, WithoutTheRightNothingHappens) {
    session.SessionPermissions.AlterKeyInformation = false;
    ClickLine(0);
    Click(form, "cmdRename");
    EXPECT_TRUE(list->isEnabled());
    Click(form, "cmdDelete");
    EXPECT_EQ(list->Count(), 3);
}

class FrmEditHardware : public testing::Test {
protected:
    void SetUp() override {
        main = run.OpenMain(StandardSystem("Pier", "2715"));
        for (const auto& [system, text] : {std::pair{1, "Rim"}, {1, "Mortice"}, {2, "Rim"}}) {
            DoorsRow door;
            door.SystemNumber = system;
            door.Text1 = QLatin1String(text);
            Recordset<DoorsRow>::Add(session.Keys(), door);
        }
        Choose(main, "mnuEditHardware");
        form = run.Form("frmEditHardware");
    }

    void Select(const QString& description) {
        auto* combo = Find<QComboBox>(form, "cmbHardware");
        combo->setFocus();
        combo->setCurrentIndex(combo->findText(description));
        EXPECT_EQ(Find<QLabel>(form, "lblHardware")->text(), description);
        EXPECT_EQ(Find<QLineEdit>(form, "txtChangeTo")->text(), description);
    }

    QStringList Stored() {
        QStringList texts;
        for (const DoorsRow& door : Recordset<DoorsRow>(session.Keys()).Rows())
            texts += door.Text1;
        return texts;
    }

    RunningProgram run;
    Session& session = run.session;
    QWidget* main = nullptr;
    QWidget* form = nullptr;
};

TEST_F(FrmEditHardware, ReplacesADescriptionHereThenEverywhere) {
    EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isEnabled()) << "nothing to replace";
    EXPECT_TRUE(Find<QRadioButton>(form, "opSys")->isChecked());
    Select("Rim");
    EXPECT_EQ(TabRound(form).join(' '), "cmbHardware txtChangeTo opSys cmdSave cmdExit");
    Type(form, "txtChangeTo", "Rim lock & latch");
    QTest::keyClick(Find<QLineEdit>(form, "txtChangeTo"), Qt::Key_Return);
    EXPECT_EQ(Stored(), (QStringList{"Rim lock & latch", "Mortice", "Rim"}));
    EXPECT_EQ(Find<QComboBox>(form, "cmbHardware")->currentText(), "Rim lock & latch");

    Select("Rim");
    Click(form, "opAll");
    EXPECT_TRUE(Find<QRadioButton>(form, "opAll")->isChecked());
    Type(form, "txtChangeTo", "Mortice");
    Click(form, "cmdSave");
    EXPECT_EQ(Stored(), (QStringList{"Rim lock & latch", "Mortice", "Mortice"}));
    Select("Mortice");
    Type(form, "txtChangeTo", "");
    Click(form, "cmdSave");
    EXPECT_EQ(Stored(), (QStringList{"Rim lock & latch", "", ""}));
    EXPECT_EQ(Find<QLabel>(form, "lblHardware")->text(), "");
    EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isEnabled());
    Click(form, "cmdExit");
    EXPECT_FALSE(run.IsLoaded("frmEditHardware"));
    EXPECT_EQ(run.Form("frmMain"), main);
}

TEST_F(FrmEditHardware, TellsWhatItDid) {
    const auto foot = [&] { return Find<QLabel>(form, "lblFoot")->text(); };
    Select("Rim");
    QTest::keyClick(Find<QComboBox>(form, "cmbHardware"), Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), "txtChangeTo") << "Enter in the list goes on";
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(foot(), "Rim is as it was: type another description");
    Type(form, "txtChangeTo", "Rim lock %1");
    Click(form, "cmdSave");
    EXPECT_EQ(foot(), "Rim replaced by Rim lock %1");
    Select("Rim"); // of the other system
    Type(form, "txtChangeTo", "Latch");
    Click(form, "cmdSave");
    EXPECT_EQ(foot(), "No door of this system has Rim, only doors of others");
    EXPECT_EQ(Stored(), (QStringList{"Rim lock %1", "Mortice", "Rim"}));

    // Another workstation has been quicker.
    Click(form, "opAll");
    session.Keys().Execute("UPDATE Doors SET Text1 = 'Deadbolt' WHERE SystemNumber = 2");
    run.boxes.Expect("The hardware description Rim has been changed at another workstation");
    Click(form, "cmdSave");
    EXPECT_TRUE(run.boxes.Last().text.contains("You had typed:\n    Latch"));
    EXPECT_EQ(Stored(), (QStringList{"Rim lock %1", "Mortice", "Deadbolt"}));
    EXPECT_GE(Find<QComboBox>(form, "cmbHardware")->findText("Deadbolt"), 0);
    EXPECT_EQ(Find<QLabel>(form, "lblHardware")->text(), "");
}

TEST_F(FrmEditHardware, AsksOnlyAboutWhatWasTypedAndChangesNothingUnasked) {
    const QString huge = QString(1 << 20, 'x');
    session.Keys().Execute("UPDATE Doors SET Text1 = :text WHERE Text1 = 'Mortice'", {huge});
    const auto bytes = [&] {
        QFile file(run.PathOf(kKeySystemFile));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const auto reopen = [&] {
        Choose(main, "mnuEditHardware");
        form = run.Form("frmEditHardware");
    };
    const QByteArray before = bytes();
    Click(form, "cmdExit");
    reopen();
    auto* known = Find<QComboBox>(form, "cmbHardware");
    known->setCurrentIndex(known->findText(huge));
    EXPECT_TRUE(Find<QPushButton>(form, "cmdSave")->isEnabled());
    Click(form, "cmdSave"); // as it is shown, which is cut
    Type(form, "cmbHardware", "no description");
    EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isEnabled());
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_EQ(run.Form("frmMain"), main);
    reopen();
    Select("Rim");
    Type(form, "txtChangeTo", "Latch");
    run.boxes.Expect("The new description for Rim is not saved", BoxAnswer::No);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_EQ(Find<QLineEdit>(form, "txtChangeTo")->text(), "Latch");
    run.boxes.Expect("The new description for Rim is not saved", BoxAnswer::No);
    Find<QComboBox>(form, "cmbHardware")->setCurrentIndex(1);
    EXPECT_EQ(Find<QComboBox>(form, "cmbHardware")->currentText(), "Rim");
    EXPECT_EQ(Find<QLineEdit>(form, "txtChangeTo")->text(), "Latch");
    Click(form, "cmdExit");
    EXPECT_EQ(run.Form("frmMain"), main);
    EXPECT_EQ(bytes(), before);
}

} // namespace
} // namespace quorrel::test
