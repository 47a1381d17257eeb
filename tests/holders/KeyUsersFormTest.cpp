#include "holders/frmKeyUsers.h"
#include "platform/ForeignTable.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/SystemTables.h"
#include "support/FileInUse.h"
#include "support/FormDriver.h"
#include "support/KeyBooks.h"
#include "support/OtherSession.h"
#include "widgets/TextList.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorrel::test {
namespace {

class FrmKeyUsers : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        for (const char* keyID : {"A1", "A2"})
            KeyNamed(program.session, QLatin1String(keyID));
        Show();
    }

    void Show() {
        form = std::make_unique<frmKeyUsers>(program.session);
        form->setAttribute(Qt::WA_DeleteOnClose, false);
        form->show();
        form->activateWindow();
        QCoreApplication::processEvents();
    }

    QStringList Lines(const char* list) { return Find<TextList>(form.get(), list)->Lines(); }
    QString Text(const char* field) { return Find<QLineEdit>(form.get(), field)->text(); }
    QString Caption(const char* label) { return Find<QLabel>(form.get(), label)->text(); }
    void Click(const char* name) { test::Click(form.get(), name); }
    void Type(const char* name, const char* text) { test::Type(form.get(), name, text); }

    QString Foot() { return Caption("lblFoot"); }
    void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(form->focusWidget(), key, with);
        QCoreApplication::processEvents();
        LetButtonsComeUp(form.get());
    }

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
    EXPECT_EQ(Foot(), "Unit 2 of A1 handed out to Jones Bo");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"1", "3", "4", "5"}));
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"2 - 2 Jones Bo"});
    const QRect place = Find<QWidget>(form.get(), "lstKeyHolders")->geometry();
    Click("cmdShowKeys");
    EXPECT_EQ(Caption("lblUserList"), "Keys Issued to Bo Jones");
    EXPECT_EQ(Lines("lstUserList").size(), 1);
    EXPECT_EQ(Find<QWidget>(form.get(), "lstKeyHolders")->geometry(), place) << "nothing jumps";

    ClickLine("lstKeyUsers", 0);
    program.boxes.ExpectInput("Enter Note or Report Number", "");
    Click("cmdRemove");
    EXPECT_EQ(Lines("lstKeyUsers").size(), 1) << "without a note it stays held";
    EXPECT_EQ(Foot(), "Unit 2 of A1 stays with Jones Bo");
    std::unique_ptr<FileInUse> inUse;
    program.boxes.ExpectInput("Enter Note or Report Number|", "R-1");
    program.boxes.WhileNextIsUp([&] { inUse = std::make_unique<FileInUse>(program); });
    program.boxes.Expect("in use by another workstation");
    Click("cmdRemove");
    inUse.reset();
    program.boxes.ExpectInput("Enter Note or Report Number|R-1", "R-1"); // not typed again
    Click("cmdRemove");
    EXPECT_EQ(Lines("lstUnitID").value(1), "2***Returned!");
    EXPECT_EQ(Foot(), "Unit 2 of A1 returned by Jones Bo");
    EXPECT_EQ(Recordset<ReturnKeyRow>(program.session.Keys()).First()->Report, "R-1");
    bool closed = false;
    QObject::connect(&form->Events(), &FormEvents::Closed, [&] { closed = true; });
    Click("cmdDone");
    EXPECT_TRUE(closed);
}

TEST_F(FrmKeyUsers, AUnitIsLostAndIssuedAnew) {
    AddHolder("2", "Bo", "Jones", "Office");
    ClickLine("lstKeyIDs", 0);
    Type("txtUnitID", "1");
    Type("txtLastUnitID", "5");
    Click("cmdIssueKey");
    ClickLine("lstKeyHolders", 0);
    ClickLine("lstUnitID", 1, true);
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"2 - 2 Jones Bo"});
    program.boxes.Expect("delete 2 Jones Bo - OFFICE?", BoxAnswer::Yes);
    program.boxes.Expect("User has keys, can't be deleted!");
    Click("cmdDeleteUser");
    ClickLine("lstKeyUsers", 0);
    program.boxes.Expect("Record unit 2 of A1, held by Jones Bo, as lost?", BoxAnswer::No);
    Click("cmdLost");
    EXPECT_EQ(Lines("lstKeyUsers").size(), 1);
    program.boxes.Expect("Record unit 2 of A1, held by Jones Bo, as lost?", BoxAnswer::Yes);
    program.boxes.ExpectInput("Enter Note or Report Number", "police 7");
    Click("cmdLost");
    EXPECT_EQ(Foot(), "Unit 2 of A1 recorded as lost by Jones Bo");
    ClickLine("lstUnitID", 1);
    program.boxes.Expect("Key recorded as Lost");
    Click("cmdAssign");
    program.boxes.Expect("delete Unit # 2***LOST!?", BoxAnswer::Yes);
    Click("cmdDeleteUnit");
    Type("txtUnitID", "2");
    Type("txtLastUnitID", "");
    Click("cmdIssueKey");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Recordset<LostKeysRow>(program.session.Keys()).First()->Report, "police 7");
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
    Press(Qt::Key_Return);
    EXPECT_EQ(Lines("lstKeyHolders").size(), 1) << "Enter on the button saves";

    Type("txtLastName", "Nobody");
    Find<QPushButton>(form.get(), "cmdAddUser")->setFocus();
    program.boxes.Expect("All Users require an ID Number or Label!");
    Press(Qt::Key_Return);
    EXPECT_EQ(Recordset<KeyUsersRow>(program.session.Keys()).Count(), 1);
    EXPECT_EQ(Text("txtLastName"), "Nobody");
}

TEST_F(FrmKeyUsers, TheRoadOfAUnitByKeysAlone) {
    const auto type = [this](const char* text) {
        QTest::keyClicks(form->focusWidget(), QLatin1String(text));
    };
    type("12");
    Press(Qt::Key_Return);
    type("Ann");
    Press(Qt::Key_Tab);
    type("Smith");
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Foot(), "User 12 added: Smith Ann");
    EXPECT_EQ(form->focusWidget()->objectName(), "txtUserNumber");
    const auto tabTo = [this](const char* name) {
        for (int stop = 0; stop < 40 && form->focusWidget()->objectName() != name; ++stop)
            Press(Qt::Key_Tab);
        EXPECT_EQ(form->focusWidget()->objectName(), name);
    };
    tabTo("lstKeyHolders");
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("txtLastName"), "Smith");
    tabTo("txtKeySearch");
    type("a1");
    Press(Qt::Key_Down);
    EXPECT_TRUE(Caption("lblKeyUnit").startsWith("A1          -"));
    tabTo("txtUnitID");
    type("3");
    Press(Qt::Key_Return);
    EXPECT_EQ(Foot(), "Unit 3 of A1 issued");
    EXPECT_EQ(Find<QLineEdit>(form.get(), "txtUnitID")->selectedText(), "3");
    Press(Qt::Key_Return);
    EXPECT_EQ(Foot(), "Unit 3 of A1 exists already, nothing issued");
    Press(Qt::Key_Tab);
    type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Lines("lstUnitID"), QStringList{"3"}) << "nothing of a run whose first unit is there";
    EXPECT_EQ(form->focusWidget()->objectName(), "txtUnitID");
    type("1");
    Press(Qt::Key_Return);
    EXPECT_EQ(Foot(), "4 units of A1 issued");
    tabTo("lstUnitID");
    Press(Qt::Key_End);
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"5 - 12 Smith Ann"});
    tabTo("lstKeyUsers");
    Press(Qt::Key_Down);
    program.boxes.ExpectInput("Enter Note or Report Number", "left");
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Lines("lstUnitID").last(), "5***Returned!");
    // Enter where it means nothing does nothing.
    for (const char* name : {"txtStatus", "txtWorkPhone", "lstUnitID", "cmdIssueKey"}) {
        Find<QWidget>(form.get(), name)->setFocus();
        Press(Qt::Key_Return);
    }
    EXPECT_EQ(Lines("lstUnitID").size(), 5);
}

TEST_F(FrmKeyUsers, AUnitGoesToTheOneHighlightedOrToNobody) {
    AddHolder("1", "Ann", "Smith", "");
    AddHolder("2", "Bo", "Jones", "");
    ClickLine("lstKeyIDs", 0);
    Type("txtUnitID", "1");
    Type("txtLastUnitID", "3");
    Click("cmdIssueKey");
    ClickLine("lstUnitID", 0);
    Click("cmdAssign");
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList()) << "nobody is highlighted";
    ClickLine("lstKeyHolders", 1);
    Find<QWidget>(form.get(), "lstKeyHolders")->setFocus();
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtFirstName"), "Ann") << "the form follows the highlight";
    Type("txtUserNumber", "2");
    program.boxes.Expect("The list highlights user 1, and the form shows user 2.");
    Click("cmdAssign");
    Type("txtUserNumber", "1");
    Click("cmdAssign");
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"1 - 1 Smith Ann"});

    // One's own renaming is not another workstation's.
    ClickLine("lstKeyHolders", 0);
    Type("txtLastName", "Smythe");
    Click("cmdAddUser");
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"1 - 1 Smythe Ann"});
    ClickLine("lstKeyUsers", 0);
    program.boxes.ExpectInput("Enter Note or Report Number", "left");
    Click("cmdRemove");
    EXPECT_EQ(Recordset<ReturnKeyRow>(program.session.Keys()).First()->UserName, "Smythe, Ann");
}

TEST_F(FrmKeyUsers, NoUnitOfOneKeyIsTakenForThatOfAnother) {
    for (const int key : {1, 0}) {
        ClickLine("lstKeyIDs", key);
        Type("txtUnitID", "7");
        Click("cmdIssueKey");
    }
    ClickLine("lstUnitID", 0);
    ClickLine("lstKeyIDs", 1);
    EXPECT_EQ(Lines("lstUnitID"), QStringList{"7"});
    Click("cmdDeleteUnit"); // Nobody has chosen this one.
    EXPECT_EQ(Find<TextList>(form.get(), "lstUnitID")->CurrentText(), "");
    ClickLine("lstUnitID", 0);
    {
        const FileInUse inUse(program);
        program.boxes.Expect("in use by another workstation");
        ClickLine("lstKeyIDs", 0);
        EXPECT_EQ(Lines("lstUnitID"), QStringList());
    }
    ClickLine("lstKeyIDs", 0);
    EXPECT_EQ(Lines("lstUnitID"), QStringList{"7"});
}

TEST_F(FrmKeyUsers, ANumberThatIsAnothersIsAskedAbout) {
    AddHolder("1", "Ann", "Smith", "");
    AddHolder("2", "Bo", "Jones", "");
    AddHolder("3 4", "Cy", "Blank", "");
    ClickLine("lstKeyHolders", 0);
    Type("txtUserNumber", "2");
    program.boxes.Expect("User ID 2 is that of Jones Bo", BoxAnswer::No);
    Click("cmdAddUser");
    EXPECT_EQ(FindHolder(program.session, "2")->Firstname, "Bo");
    EXPECT_EQ(Text("txtFirstName"), "Ann") << "what was typed stays";
    program.boxes.Expect("User ID 2 is that of Jones Bo", BoxAnswer::Yes);
    Click("cmdAddUser");
    EXPECT_EQ(FindHolder(program.session, "2")->Firstname, "Ann");

    // A number with a blank, which cannot be typed, ends at it in the list.
    program.session.Keys().Execute("UPDATE KeyUsers SET UserIDNumber = '1 A' WHERE "
                                   "UserIDNumber = '34'");
    Type("txtUserSearch", "");
    Click("cmdNewUser");
    ClickLine("lstKeyHolders", 0);
    ClickLine("lstKeyHolders", 2);
    EXPECT_EQ(Text("txtFirstName"), "") << "neither the one before nor the one of number 1";
    EXPECT_TRUE(Foot().startsWith("User \"1 A\" cannot be brought up")) << Foot().toStdString();
}

TEST_F(FrmKeyUsers, WhatIsTypedIsDroppedOnlyAfterAQuestion) {
    AddHolder("1", "Ann", "Smith", "Stores");
    program.session.Keys().Execute("UPDATE KeyUsers SET Department = 'Stores'");
    AddHolder("2", "Bo", "Jones", "");
    ClickLine("lstKeyHolders", 0);
    Find<QComboBox>(form.get(), "cmbDepartment")->setFocus();
    Press(Qt::Key_Tab);
    bool closed = false;
    QObject::connect(&form->Events(), &FormEvents::Closed, [&] { closed = true; });
    form->close();
    EXPECT_TRUE(std::exchange(closed, false)) << "nothing was typed";
    ClickLine("lstKeyHolders", 1);
    Type("txtTitle", "Warden");
    program.boxes.Expect("What you have typed for user 2 is not saved.", BoxAnswer::No);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(closed);
    program.boxes.Expect("What you have typed for user 2 is not saved.", BoxAnswer::No);
    ClickLine("lstKeyHolders", 0);
    EXPECT_EQ(Find<TextList>(form.get(), "lstKeyHolders")->CurrentRow(), 1);
    EXPECT_EQ(Text("txtTitle"), "Warden");
    program.boxes.Expect("What you have typed for user 2 is not saved.", BoxAnswer::Yes);
    ClickLine("lstKeyHolders", 0);
    EXPECT_EQ(Text("txtFirstName"), "Ann");
    Type("txtTitle", "Warden");
    Click("cmdDone");
    EXPECT_TRUE(closed) << "this command asks nothing";
}

TEST_F(FrmKeyUsers, TwoWorkstationsOnOneHolder) {
    AddHolder("7", "Ann", "Smith", "Stores");
    OtherSession other(program);
    const auto change = [&](QString KeyUsersRow::*column, const char* text) {
        const auto shown = FindHolder(other.session, "7");
        KeyUsersRow changed = *shown;
        changed.*column = QLatin1String(text);
        SaveHolder(other.session, *shown, changed);
    };
    ClickLine("lstKeyHolders", 0);
    change(&KeyUsersRow::WorkPhone, "555");
    Type("txtTitle", "Warden");
    Click("cmdAddUser");
    const auto merged = FindHolder(program.session, "7");
    EXPECT_EQ(merged->WorkPhone + merged->Title, "555Warden");

    ClickLine("lstKeyHolders", 0);
    change(&KeyUsersRow::Title, "Porter");
    Type("txtTitle", "Keeper");
    Type("txtStatus", "On leave");
    program.boxes.Expect("User 7 has been changed at another workstation");
    Click("cmdAddUser");
    EXPECT_TRUE(program.boxes.Last().text.contains("Keeper"));
    EXPECT_EQ(Text("txtTitle") + '/' + Text("txtStatus"), "Porter/On leave");
    Click("cmdAddUser");
    EXPECT_EQ(FindHolder(program.session, "7")->Status, "On leave");

    ClickLine("lstKeyHolders", 0);
    DeleteHolder(other.session, HolderNumbered(other.session, "7"));
    Type("txtTitle", "Captain");
    program.boxes.Expect("User 7 is no longer in the file");
    Click("cmdAddUser");
    EXPECT_EQ(Lines("lstKeyHolders"), QStringList());
    EXPECT_EQ(Text("txtTitle"), "Captain") << "to be added anew, or not";
    Click("cmdAddUser");
    EXPECT_EQ(FindHolder(program.session, "7")->Title, "Captain");
}

TEST_F(FrmKeyUsers, ListsThatHaveAgedAreToldAndReadAnew) {
    AddHolder("7", "Ann", "Smith", "Stores");
    ClickLine("lstKeyIDs", 0);
    Type("txtUnitID", "A");
    Click("cmdIssueKey");
    ClickLine("lstKeyHolders", 0);
    ClickLine("lstUnitID", 0);
    OtherSession other(program);
    const ListedKey key = KeyNamed(other.session, "A1");
    AssignUnit(other.session, key, "A", HolderNumbered(other.session, "7"));
    program.boxes.Expect("Unit A of A1 has been changed at another workstation");
    Click("cmdAssign");
    EXPECT_EQ(Lines("lstKeyUsers"), QStringList{"A - 7 Smith Ann"});

    IssueUnits(other.session, key, "A - 7", "");
    AssignUnit(other.session, key, "A - 7", HolderNumbered(other.session, "7"));
    ClickLine("lstKeyIDs", 0);
    ClickLine("lstKeyUsers", 1);
    program.boxes.ExpectInput("Enter Note or Report Number", "left");
    program.boxes.Expect("Taken back along with unit A - 7, whose ID begins like theirs, and "
                         "logged: A (Smith, Ann).");
    Click("cmdRemove");
    EXPECT_EQ(Lines("lstUnitID"), (QStringList{"A", "A - 7***Returned!"}));

    other.session.Keys().Execute("UPDATE Patterns SET Label = 'B9' WHERE Label = 'A1'");
    program.boxes.Expect("Key A1 has been changed at another workstation");
    Click("cmdIssueKey");
    EXPECT_EQ(Lines("lstKeyIDs").value(0).left(2), "B9");
    EXPECT_EQ(Caption("lblKeyUnit").left(13), "B9          -");
    Type("txtUnitID", "1");
    Click("cmdIssueKey");
    EXPECT_EQ(Foot(), "Unit 1 of B9 issued");
}

TEST_F(FrmKeyUsers, LookingAroundChangesNoByte) {
    AddHolder("7", "Ann", "Smith", "Stores");
    ClickLine("lstKeyIDs", 0);
    Type("txtUnitID", "1");
    Type("txtLastUnitID", "3");
    Click("cmdIssueKey");
    ClickLine("lstKeyHolders", 0);
    ClickLine("lstUnitID", 0, true);
    const auto bytes = [this] {
        QFile file(program.PathOf(kKeySystemFile));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray before = bytes();
    ASSERT_GT(before.size(), 0);
    Show();
    for (const char* list : {"lstKeyHolders", "lstKeyIDs", "lstUnitID", "lstKeyUsers"})
        ClickLine(list, 0);
    Click("cmdShowKeys");
    ClickLine("lstUserList", 0);
    EXPECT_GT(TabRound(form.get()).size(), 20);
    Click("cmdSearch");
    form->hide();
    form->show();
    Click("cmdDone");
    EXPECT_EQ(bytes(), before);
}

TEST_F(FrmKeyUsers, TakesPeopleFromThePersonnelFile) {
    const QString people = program.folder.filePath("people.db");
    Database::Create(people, {1},
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
    EXPECT_EQ(Caption("lblKeyUnit").left(13), Lines("lstKeyIDs").value(0).left(13));
    EXPECT_FALSE(program.session.FindOpensKey);
}

} // namespace
} // namespace quorrel::test
