#include "holders/frmKeyUsers.h"
#include "platform/ForeignTable.h"
#include "platform/Recordset.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"
#include "widgets/TextList.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorrel::test {
namespace {

class FrmKeyUsers : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        auto rows = Recordset<PatternsRow>(program.session.Keys()).Rows();
        rows[0].Label = "A1";
        rows[1].Label = "A2";
        for (std::size_t row = 0; row < 2; ++row)
            Recordset<PatternsRow>::Update(program.session.Keys(), rows[row]);
        Show();
    }

    void Show() {
        form = std::make_unique<frmKeyUsers>(program.session);
        form->setAttribute(Qt::WA_DeleteOnClose, false);
        form->show();
        QCoreApplication::processEvents();
    }

    QStringList Lines(const char* list) { return Find<TextList>(form.get(), list)->Lines(); }
    QString Text(const char* field) { return Find<QLineEdit>(form.get(), field)->text(); }
    QString Caption(const char* label) { return Find<QLabel>(form.get(), label)->text(); }
    void Click(const char* name) { test::Click(form.get(), name); }
    void Type(const char* name, const char* text) { test::Type(form.get(), name, text); }

    void ClickLine(const char* list, int row, bool twice = false) {
        auto* view = Find<TextList>(form.get(), list);
        ASSERT_LT(row, view->Count()) << list;
        const QPoint at = view->visualRect(view->model()->index(row, 0)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
        QCoreApplication::processEvents();
    }

    void AddHolder(const char* number, const char* first, const char* last,
                   const char* department) {
        Type("txtUserNumber", number);
        Type("txtFirstName", first);
        Type("txtLastName", last);
        auto* combo = Find<QComboBox>(form.get(), "cmbDepartment");
        combo->setFocus();
        combo->setEditText(department);
        Click("cmdAddUser");
        Type("txtUserSearch", "");
    }

    TestProgram program;
    std::unique_ptr<frmKeyUsers> form;
};

TEST_F(FrmKeyUsers, TheRoadOfAUnit) {
    AddHolder("1", "Ann", "Smith", "stores");
    AddHolder("2", "Bo", "Jones", "Office");
    EXPECT_EQ(Lines("lstKeyHolders"), (QStringList{"1 Smith Ann - STORES", "2 Jones Bo - OFFICE"}));
    EXPECT_EQ(Text("txtUserNumber"), "");

    Type("txtUnitID", "3");
    program.boxes.Expect("You Must Select a Key ID First!");
    Click("cmdIssueKey");
    ClickLine("lstKeyIDs", 0);
    Click("cmdIssueKey");
    Type("txtUnitID", "1");
    Type("txtLastUnitID", "5");
    Click("cmdIssueKey");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Caption("lblLastUnit"), "Last Issued 5");

    ClickLine("lstKeyHolders", 1);
    EXPECT_EQ(Text("txtLastName"), "Jones");
    program.boxes.Expect("Select KeyUnit and Key ID");
    Click("cmdAssign");
    ClickLine("lstUnitID", 1);
    Click("cmdAssign");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"1", "3", "4", "5"}));
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"2 - 2 Jones Bo"});
    Click("cmdShowKeys");
    EXPECT_EQ(Caption("lblUserList"), "Keys Issued to Bo Jones");
    EXPECT_EQ(Lines("lstUserList").size(), 1);

    ClickLine("lstKeyUsers", 0);
    program.boxes.ExpectInput("Enter Note or Report Number", "");
    Click("cmdRemove");
    EXPECT_EQ(Lines("lstKeyUsers").size(), 1) << "without a note it stays held";
    program.boxes.ExpectInput("Enter Note or Report Number", "R-1");
    Click("cmdRemove");
    EXPECT_EQ(Lines("lstUnitID").value(1), "2***Returned!");

    ClickLine("lstUnitID", 1, true);
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"2 - 2 Jones Bo"});
    program.boxes.Expect("delete 2 Jones Bo - OFFICE?", BoxAnswer::Yes);
    program.boxes.Expect("User has keys, can't be deleted!");
    Click("cmdDeleteUser");
    ClickLine("lstKeyUsers", 0);
    program.boxes.ExpectInput("Enter Note or Report Number", "police 7");
    Click("cmdLost");
    ClickLine("lstUnitID", 1);
    program.boxes.Expect("Key recorded as Lost");
    Click("cmdAssign");
    program.boxes.Expect("delete Unit # 2***LOST!?", BoxAnswer::Yes);
    Click("cmdDeleteUnit");
    Type("txtUnitID", "2");
    Type("txtLastUnitID", "");
    Click("cmdIssueKey");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Recordset<ReturnKeyRow>(program.session.Keys()).First()->Report, "R-1");
    EXPECT_EQ(Recordset<LostKeysRow>(program.session.Keys()).First()->Report, "police 7");
    bool closed = false;
    QObject::connect(&form->Events(), &FormEvents::Closed, [&] { closed = true; });
    Click("cmdDone");
    EXPECT_TRUE(closed);
}

TEST_F(FrmKeyUsers, DeletesOnlyInTheFormByUserID) {
    AddHolder("1", "Ann", "Smith", "stores");
    Click("cmdSearch");
    EXPECT_EQ(Find<QPushButton>(form.get(), "cmdSearch")->text(), "by Last Name");
    EXPECT_EQ(Lines("lstKeyHolders").value(0), "1 Smith Ann - STORES")
        << "an empty search keeps the lines as they are";
    Type("txtUserSearch", "s");
    ClickLine("lstKeyHolders", 0);
    program.boxes.Expect("delete 1   (Smith)   Ann - STORES?", BoxAnswer::Yes);
    program.boxes.Expect("Nobody was deleted");
    Click("cmdDeleteUser");
    EXPECT_EQ(Lines("lstKeyHolders").size(), 1);
    Click("cmdSearch");
    Click("cmdSearch");
    Type("txtUserSearch", "1");
    ClickLine("lstKeyHolders", 0);
    program.boxes.Expect("delete 1 Smith Ann - STORES?", BoxAnswer::No);
    Click("cmdDeleteUser");
    program.boxes.Expect("delete 1 Smith Ann - STORES?", BoxAnswer::Yes);
    Click("cmdDeleteUser");
    EXPECT_EQ(Lines("lstKeyHolders"), QStringList());
}

TEST_F(FrmKeyUsers, KeysGoOnAndTheNumberIsRequired) {
    program.boxes.Expect("All Users require an ID Number or Label!");
    Click("cmdAddUser");
    Type("txtUserNumber", "4 7");
    EXPECT_EQ(Text("txtUserNumber"), "47") << "no blank can be typed";
    for (const char* next : {"txtFirstName", "txtLastName", "txtTitle", "txtStatus"}) {
        QTest::keyClick(form->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(form->focusWidget()->objectName(), next);
    }
    Find<QComboBox>(form.get(), "cmbDepartment")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), "cmdAddUser");
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Lines("lstKeyHolders").size(), 1) << "Enter on the button saves";
}

TEST_F(FrmKeyUsers, TakesPeopleFromThePersonnelFile) {
    const QString people = program.folder.filePath("people.db");
    Database::Create(people, {1, 1},
                     "CREATE TABLE Staff (TM TEXT, Name TEXT, Title TEXT, Department TEXT, "
                     "WorkPhone TEXT); INSERT INTO Staff VALUES "
                     "('1041', 'O''Malley,Sean', 'Gardener', 'Grounds', '555')");
    program.session.SystemInfo.personel = true;
    program.session.PersonnelRecords = ForeignTable::Open(people, "staff");
    program.session.PersonnelAvailable = true;
    Type("txtUserNumber", "01041");
    Find<QLineEdit>(form.get(), "txtFirstName")->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(Text("txtLastName") + Text("txtFirstName"), "O'MalleySean");
    EXPECT_EQ(form->focusWidget()->objectName(), "cmdAddUser");
    EXPECT_EQ(Text("txtWorkPhone"), "");
    Click("cmdNewUser");
    Type("txtUserNumber", "1041");
    Type("txtLastName", "");
    Click("cmdAddUser");
    EXPECT_EQ(FindHolder(program.session, "1041")->WorkPhone, "555");
    EXPECT_EQ(FindHolder(program.session, "1041")->Firstname, "Sean");
    EXPECT_TRUE(FindHolder(program.session, "1041")->Employee);

    program.session.PersonnelAvailable = false;
    Type("txtUserNumber", "77");
    program.boxes.Expect("External Employee Records Are Not Currently Available");
    Click("cmdAddUser");
    EXPECT_TRUE(FindHolder(program.session, "77")) << "typed data is saved all the same";
}

TEST_F(FrmKeyUsers, WithoutTheRightTheBooksCannotBeChanged) {
    program.session.SessionPermissions.AddEditKeyUsers = false;
    Show();
    for (const char* name : {"cmdAddUser", "cmdAssign", "cmdDeleteUser", "cmdDeleteUnit",
                             "cmdRemove", "cmdLost", "cmdIssueKey"})
        EXPECT_FALSE(Find<QPushButton>(form.get(), name)->isEnabled()) << name;
}

TEST_F(FrmKeyUsers, BringsUpAHolderAndTheFirstKeyThatWasSearched) {
    AddHolder("1", "Ann", "Smith", "stores");
    AddHolder("12", "Bo", "Jones", "");
    form->ShowHolder("1");
    EXPECT_EQ(Text("txtFirstName"), "Ann");
    program.session.FindOpensKey = true;
    Show();
    EXPECT_EQ(Caption("lblKeyUnit"), Lines("lstKeyIDs").value(0).left(12));
    EXPECT_FALSE(program.session.FindOpensKey);
}

} // namespace
} // namespace quorrel::test
