#include "access/Departments.h"
#include "access/HardwareDescriptions.h"
#include "access/frmDepartments.h"
#include "access/frmEditHardware.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "support/FormDriver.h"
#include "widgets/TextList.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

namespace quorrel::test {
namespace {

class FrmDepartments : public testing::Test {
protected:
    FrmDepartments() {
        for (const char* name : {"STORES", "Office", "PIER"}) {
            DepartmentRow row;
            row.Department = QLatin1String(name);
            Recordset<DepartmentRow>::Add(session.Keys(), row);
        }
        form = new frmDepartments(session);
        form->show();
        form->activateWindow();
        QCoreApplication::processEvents();
        list = Find<TextList>(form, "lstDepartment");
    }
    ~FrmDepartments() override { delete form.data(); }

    QPoint PlaceOf(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
    void ClickLine(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, PlaceOf(row));
    }

    TestProgram program;
    Session& session = program.session;
    QPointer<frmDepartments> form;
    TextList* list = nullptr;
};

TEST_F(FrmDepartments, RenamesTheSelectedOne) {
    EXPECT_FALSE(Find<QPushButton>(form, "cmdRename")->isEnabled()) << "nothing is selected";
    ClickLine(1);
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
    Type(form, "txtRename", "SHED");
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(list->isEnabled());
    EXPECT_EQ(ListDepartments(session), (QStringList{"STORES", "Office", "PIER"}));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(!form || !form->isVisible());
}

TEST_F(FrmDepartments, DeletesAfterAQuestion) {
    ClickLine(2);
    program.boxes.Expect("Are you sure you want to delete PIER?", BoxAnswer::No);
    Click(form, "cmdDelete");
    EXPECT_EQ(list->Count(), 3);
    program.boxes.Expect("Are you sure you want to delete PIER?", BoxAnswer::Yes);
    Click(form, "cmdDelete");
    EXPECT_EQ(program.boxes.Last().title, session.ProgramTitle);
    EXPECT_EQ(ListDepartments(session), (QStringList{"STORES", "Office"}));
    EXPECT_EQ(list->CurrentText(), "Office");
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
    FrmEditHardware() {
        session.ActiveSystemNumber = 1;
        for (const auto& [system, text] : {std::pair{1, "Rim"}, {1, "Mortice"}, {2, "Rim"}}) {
            DoorsRow door;
            door.SystemNumber = system;
            door.Text1 = QLatin1String(text);
            Recordset<DoorsRow>::Add(session.Keys(), door);
        }
        form = new frmEditHardware(session);
        form->show();
        form->activateWindow();
        QCoreApplication::processEvents();
    }
    ~FrmEditHardware() override { delete form.data(); }

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

    TestProgram program;
    Session& session = program.session;
    QPointer<frmEditHardware> form;
};

TEST_F(FrmEditHardware, ReplacesADescriptionHereThenEverywhere) {
    EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isEnabled()) << "nothing to replace";
    EXPECT_TRUE(Find<QRadioButton>(form, "opSys")->isChecked());
    Select("Rim");
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
    EXPECT_TRUE(!form || !form->isVisible());
}

} // namespace
} // namespace quorrel::test
