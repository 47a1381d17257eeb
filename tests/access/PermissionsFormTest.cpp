#include "access/frmPermissions.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "support/FormDriver.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

namespace quorrel::test {
namespace {

class FrmPermissions : public testing::Test {
protected:
    FrmPermissions() {
        ProgramUsersRow porter;
        porter.ProgramUserID = 7;
        porter.UserName = "Porter";
        porter.Password = Scrambled("secret");
        porter.AlterKeyInformation = porter.RunReports = true;
        Recordset<ProgramUsersRow>::Add(session.Keys(), porter);
        session.LoggedUser = "Administrator";
    }

    ~FrmPermissions() override { delete form.data(); }

    void Open() {
        form = new frmPermissions(session);
        form->show();
        QCoreApplication::processEvents();
    }

    /// Chooses a user from the list with the keys.
    void Choose(int entry) {
        auto* list = Find<QComboBox>(form, "cmbUser");
        list->setFocus();
        list->showPopup();
        QWidget* rows = list->view();
        QTest::keyClick(rows, Qt::Key_Home);
        for (int row = 0; row < entry; ++row)
            QTest::keyClick(rows, Qt::Key_Down);
        QTest::keyClick(rows, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    QString Text(const char* name) { return Find<QLineEdit>(form, name)->text(); }
    QString UserName() { return Find<QComboBox>(form, "cmbUser")->currentText(); }

    /// The names of the checked boxes.
    QStringList Checked() {
        QStringList names;
        for (const QCheckBox* box : form->findChildren<QCheckBox*>())
            if (box->isChecked())
                names.append(box->objectName());
        names.sort();
        return names;
    }

    void TypePassword(const QString& password) {
        Type(form, "txtPassword", password);
        Type(form, "txtConfirmPassword", password);
    }

    std::vector<ProgramUsersRow> Accounts() { return ListProgramUsers(session); }

    TestProgram program;
    Session& session = program.session;
    QPointer<frmPermissions> form;
};

TEST_F(FrmPermissions, AddsAUser) {
    Open();
    EXPECT_EQ(UserName(), "Add New User Name");
    EXPECT_EQ(Text("txtUserID"), "8");
    EXPECT_FALSE(Find<QLineEdit>(form, "txtUserID")->isVisible());
    EXPECT_EQ(TabRound(form),
              QStringList({"cmbUser", "txtPassword", "txtConfirmPassword", "ckAEPU", "ckCS", "ckRP",
                           "ckAK", "ckAEKU", "ckRR", "ckIK", "cmdAutoLog", "cmdAdd", "cmdSave",
                           "cmdExit", "cmdHelp"}));
    program.boxes.Expect("Enter Unique User Name and Set Permissions then click Save");
    Click(form, "cmdAdd");
    EXPECT_EQ(program.boxes.Last().title, "Quorrel for Test");
    Type(form, "cmbUser", "PORTER");
    TypePassword("four");
    EXPECT_EQ(Text("txtUserID"), "8") << "a typed name brings up nobody";
    program.boxes.Expect("You Must enter a Unique User Name");
    Click(form, "cmdSave");
    EXPECT_EQ(program.boxes.Last().title, "Quorrel for Test");
    Type(form, "cmbUser", QString::fromUtf8("O'Neill %1"));
    Find<QCheckBox>(form, "ckAK")->click();
    EXPECT_EQ(Checked(), QStringList({"ckAK", "ckRP"}));
    Find<QCheckBox>(form, "ckRP")->click();
    Find<QCheckBox>(form, "ckIK")->click();
    QTest::keyClick(Find<QLineEdit>(form, "txtConfirmPassword"), Qt::Key_Return);

    ASSERT_EQ(Accounts().size(), 3U);
    const ProgramUsersRow added = Accounts().back();
    EXPECT_EQ(added.UserName, "O'Neill %1");
    EXPECT_EQ(added.ProgramUserID, 8);
    EXPECT_EQ(RightsOf(added), (Permissions{.IssueKeys = true, .AlterKeyInformation = true}));
    EXPECT_EQ(Text("txtPassword") + Text("txtConfirmPassword"), "");
    EXPECT_EQ(Text("txtUserID"), "9");
    const auto* list = Find<QComboBox>(form, "cmbUser");
    QStringList names;
    for (int entry = 0; entry < list->count(); ++entry)
        names.append(list->itemText(entry));
    EXPECT_EQ(names, QStringList({"Administrator", "Porter", "O'Neill %1", "Add New User Name"}));
    program.boxes.Expect("You Must enter a Unique User Name");
    Click(form, "cmdSave");
}

TEST_F(FrmPermissions, ChangesAndDeletesAUser) {
    Open();
    Choose(1);
    EXPECT_EQ(Text("txtPassword"), "secret");
    EXPECT_EQ(Text("txtConfirmPassword"), "secret");
    EXPECT_EQ(Text("txtUserID"), "7");
    EXPECT_EQ(Checked(), QStringList({"ckAK", "ckRR"})) << "as stored, without reading";
    Type(form, "cmbUser", "Gate");
    Type(form, "txtPassword", "abc");
    Find<QCheckBox>(form, "ckRR")->click();
    program.boxes.Expect("Password must match ConfirmPassword");
    Click(form, "cmdSave");
    Type(form, "txtConfirmPassword", "abc");
    Click(form, "cmdSave");
    EXPECT_EQ(Accounts()[1].UserName, "Gate");
    EXPECT_EQ(Accounts()[1].Password, Scrambled("abc"));
    EXPECT_EQ(RightsOf(Accounts()[1]), Permissions{.AlterKeyInformation = true});
    EXPECT_EQ(Text("txtPassword"), "");

    Choose(1);
    program.boxes.Expect("Are you sure you want to delete Gate?", BoxAnswer::No);
    Click(form, "cmdDelete");
    EXPECT_EQ(Accounts().size(), 2U);
    program.boxes.Expect("Are you sure you want to delete Gate?", BoxAnswer::Yes);
    Click(form, "cmdDelete");
    EXPECT_EQ(Accounts().size(), 1U);
    EXPECT_EQ(UserName(), "Add New User Name");
    EXPECT_EQ(Checked(), QStringList());

    Choose(0);
    EXPECT_FALSE(Find<QCheckBox>(form, "ckCS")->isEnabled());
    program.boxes.Expect("Are you sure you want to delete Administrator?", BoxAnswer::Yes);
    program.boxes.Expect("You Cannot Delete this Account or Change it's Permissions");
    Click(form, "cmdDelete");
    Type(form, "cmbUser", "Chief");
    Click(form, "cmdSave");
    EXPECT_EQ(session.LoggedUser, "Chief");
    EXPECT_TRUE(Accounts()[0].AddEditProgramUsers);
}

TEST_F(FrmPermissions, NothingTypedIsLostWithoutAQuestion) {
    Open();
    Choose(1);
    Choose(0);
    EXPECT_EQ(UserName(), "Administrator");
    Choose(1);
    Type(form, "cmbUser", "Night porter");
    Find<QCheckBox>(form, "ckCS")->click();
    program.boxes.Expect("entered for Porter is not saved", BoxAnswer::No);
    Choose(0);
    EXPECT_EQ(UserName(), "Night porter");
    EXPECT_EQ(Text("txtUserID"), "7");
    program.boxes.Expect("entered for Porter is not saved", BoxAnswer::No);
    Click(form, "cmdAdd");
    EXPECT_EQ(Checked(), QStringList({"ckAK", "ckCS", "ckRR"}));
    program.boxes.Expect("entered for Porter is not saved", BoxAnswer::No);
    form->close();
    EXPECT_TRUE(form->isVisible());
    program.boxes.Expect("entered for Porter is not saved", BoxAnswer::Yes);
    Choose(2);
    EXPECT_EQ(UserName(), "Add New User Name");
    EXPECT_EQ(Text("txtUserID"), "8");

    int closed = 0;
    QObject::connect(&form->Events(), &FormEvents::Closed, form, [&] { ++closed; });
    Click(form, "cmdExit");
    EXPECT_EQ(closed, 1);
}

TEST_F(FrmPermissions, AnotherWorkstationIsHeeded) {
    Open();
    Choose(1);
    session.Keys().Execute("UPDATE ProgramUsers SET CreateSystem = 1 WHERE ProgramUserID = 7");
    TypePassword("other");
    Click(form, "cmdSave");
    EXPECT_EQ(Accounts()[1].Password, Scrambled("other"));
    EXPECT_TRUE(Accounts()[1].CreateSystem) << "what both have changed is kept";

    Choose(1);
    ProgramUsersRow theirs = Accounts()[1];
    theirs.UserName = "Night porter";
    theirs.RunReports = false;
    Recordset<ProgramUsersRow>::Update(session.Keys(), theirs);
    Type(form, "cmbUser", "Day porter");
    Find<QCheckBox>(form, "ckIK")->click();
    program.boxes.Expect("It is the account of Night porter.\n\nWhat you typed: Day porter");
    Click(form, "cmdSave");
    EXPECT_EQ(Accounts()[1].UserName, "Night porter") << "nothing is written";
    EXPECT_EQ(UserName(), "Night porter");
    EXPECT_FALSE(Checked().contains("ckRR")) << "shown as it is now";
    Type(form, "cmbUser", "Porter");
    Click(form, "cmdSave");

    Choose(1);
    session.Keys().Execute("DELETE FROM ProgramUsers WHERE ProgramUserID = 7");
    program.boxes.Expect("has been deleted at another workstation", BoxAnswer::No);
    Click(form, "cmdSave");
    EXPECT_EQ(Accounts().size(), 1U);
    program.boxes.Expect("has been deleted at another workstation", BoxAnswer::Yes);
    Click(form, "cmdSave");
    EXPECT_EQ(Accounts().back().UserName, "Porter");
    session.Keys().Execute("DELETE FROM ProgramUsers WHERE UserName = 'Porter'");
    program.boxes.Expect("Porter has been deleted at another workstation.");
    Choose(1);
    EXPECT_EQ(Find<QComboBox>(form, "cmbUser")->count(), 2);
}

TEST_F(FrmPermissions, AutoLogoffIsSwitchedAndWithoutTheRightNothingHappens) {
    Open();
    EXPECT_EQ(Find<QLabel>(form, "lblAutoLog")->text(), "OFF");
    Click(form, "cmdAutoLog");
    EXPECT_TRUE(session.AutoLogoffActive);
    EXPECT_EQ(Find<QLabel>(form, "lblAutoLog")->text(), "ON");
    Choose(1);

    session.SessionPermissions.AddEditProgramUsers = false;
    Click(form, "cmdAutoLog");
    EXPECT_TRUE(session.AutoLogoffActive);
    for (const char* button : {"cmdAdd", "cmdSave", "cmdDelete"})
        Click(form, button);
    EXPECT_EQ(Accounts().size(), 2U);
    delete form.data();
    Open();
    for (const char* name : {"cmbUser", "ckCS", "cmdAdd", "cmdSave", "cmdDelete", "cmdAutoLog"})
        EXPECT_FALSE(Find<QWidget>(form, name)->isEnabled()) << name;
    EXPECT_EQ(Text("txtPassword"), "");
    Click(form, "cmdExit");
}

} // namespace
} // namespace quorrel::test
