#include "access/Departments.h"
#include "access/HardwareDescriptions.h"
#include "page/PageView.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

/// A key system whose first keys have these departments, and holders and a list with them too.
class Departments : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        list.SystemNumber = holder.SystemNumber = session.ActiveSystemNumber;
    }

    void Put(const QStringList& departments) {
        auto keys = Patterns();
        for (qsizetype i = 0; i < departments.size(); ++i) {
            PatternsRow& key = keys[static_cast<std::size_t>(i)];
            key.Department = holder.Department = departments[i];
            Recordset<PatternsRow>::Update(session.Keys(), key);
            Recordset<KeyUsersRow>::Add(session.Keys(), holder);
        }
    }

    void List(const QString& department) {
        list.Department = department;
        Recordset<DepartmentRow>::Add(session.Keys(), list);
    }

    std::vector<PatternsRow> Patterns() {
        return Recordset<PatternsRow>(session.Keys(), OfSystem<PatternsRow>(session)).Rows();
    }

    QStringList OnKeys(qsizetype count) {
        QStringList departments;
        for (const PatternsRow& key : Patterns())
            departments += key.Department;
        return departments.mid(0, count);
    }

    QStringList OnHolders() {
        QStringList departments;
        for (const KeyUsersRow& row : Recordset<KeyUsersRow>(session.Keys()).Rows())
            departments += row.Department;
        return departments;
    }

    TestProgram program;
    Session& session = program.session;
    DepartmentRow list;
    KeyUsersRow holder;
    const QString none = QString(7, u' ');
    const QString deleted = QString(34, u' ');
};

TEST_F(Departments, AreRenamedEverywhereInCapitalsAndALongerNameIsCaughtToo) {
    for (const char* name : {"Admin", "ADMINISTRATION", "  HIDDEN", "ADMIN", "STORES"})
        List(QLatin1String(name));
    Put({"ADMIN", "admin", "ADMINISTRATION", "STORES", " ADMIN", none, ""});
    RenameDepartment(session, "ADMIN", "Harbour Office");
    EXPECT_EQ(ListDepartments(session),
              (QStringList{"ADMINISTRATION", "STORES", "HARBOUR OFFICE"}));
    const QStringList wanted{
        "HARBOUR OFFICE", "HARBOUR OFFICE", "HARBOUR OFFICE", "STORES", " ADMIN", none, ""};
    EXPECT_EQ(OnKeys(7), wanted);
    EXPECT_EQ(OnHolders(), wanted);

    // The page in memory takes it over when it is read.
    PageView page(session);
    page.LoadPageView();
    EXPECT_EQ(page.Cell(Patterns()[1].Position).department, "HARBOUR OFFICE");
}

TEST_F(Departments, ARenamingToAnExistingNameMergesThem) {
    List("STORES");
    List("stock");
    Put({"STORES", "STOCK"});
    RenameDepartment(session, "STORES", "Stock");
    EXPECT_EQ(ListDepartments(session), (QStringList{"STOCK"}));
    EXPECT_EQ(OnKeys(2), (QStringList{"STOCK", "STOCK"}));
}

TEST_F(Departments, NamesBeyondPlainLettersCountWithoutRegardToCase) {
    const QString written = QString::fromUtf8("\u00e9cole d'\u00e9t\u00e9 100%");
    List(written);
    Put({written.toUpper(), written + " 2"});
    RenameDepartment(session, written, QString(40, u'\u00e9'));
    const QString kept = QString(34, QChar(u'\u00c9'));
    EXPECT_EQ(ListDepartments(session), (QStringList{kept}));
    EXPECT_EQ(OnKeys(2), (QStringList{kept, kept}));
    DeleteDepartment(session, kept);
    EXPECT_EQ(ListDepartments(session), QStringList());
    EXPECT_EQ(OnKeys(2), (QStringList{deleted, deleted}));
}

TEST_F(Departments, AnEmptyNameIsStoredAndNotListed) {
    List("STORES");
    Put({"STORES"});
    RenameDepartment(session, "STORES", "");
    EXPECT_EQ(ListDepartments(session), QStringList());
    EXPECT_EQ(OnKeys(1), (QStringList{""}));
    EXPECT_EQ(OnHolders(), (QStringList{""}));
    EXPECT_EQ(Recordset<DepartmentRow>(session.Keys()).Count(), 1);
}

TEST_F(Departments, TheSameNameChangesNothing) {
    List("ADMIN");
    List("STORES");
    Put({"ADMINISTRATION"});
    RenameDepartment(session, "ADMIN", "admin");
    EXPECT_EQ(OnKeys(1), (QStringList{"ADMINISTRATION"}));
    EXPECT_EQ(ListDepartments(session), (QStringList{"ADMIN", "STORES"}));
}

TEST_F(Departments, ADeletedOneLeavesBlanksOnKeysAndNothingOnHolders) {
    List("ADMIN");
    List("admin");
    List("ADMINISTRATION");
    Put({"Admin", "ADMINISTRATION", "STORES", none});
    holder.SystemNumber = list.SystemNumber = 99; // of another system
    List("ADMIN");
    holder.Department = "ADMIN";
    Recordset<KeyUsersRow>::Add(session.Keys(), holder);
    DeleteDepartment(session, "ADMIN");
    EXPECT_EQ(ListDepartments(session), (QStringList{"ADMINISTRATION"}));
    EXPECT_EQ(OnKeys(4), (QStringList{deleted, deleted, "STORES", none}));
    EXPECT_EQ(OnHolders(), (QStringList{"", "", "STORES", none, "ADMIN"}));
    EXPECT_EQ(Recordset<DepartmentRow>(session.Keys()).Count(), 2);
}

TEST_F(Departments, AreLeftAloneWhenTheFileIsHeldByAnotherWorkstation) {
    List("ADMIN");
    Put({"ADMIN"});
    session.KeySystemDatabase->Execute("PRAGMA busy_timeout = 10");
    Session other(program.folder.path(), program.boxes, session.clock, session.random);
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(other, failure));
    const Transaction held(other.Keys());
    EXPECT_THROW(RenameDepartment(session, "ADMIN", "STORES"), DatabaseError);
    EXPECT_THROW(DeleteDepartment(session, "ADMIN"), DatabaseError);
    EXPECT_EQ(OnKeys(1) + ListDepartments(session), (QStringList{"ADMIN", "ADMIN"}));
}

TEST(HardwareDescriptions, AreReplacedInOneSystemOrInAll) {
    TestProgram program;
    Session& session = program.session;
    ASSERT_EQ(program.CreateAndOpen(StandardSystem("Pier", "2715")).SystemID, 1);
    const auto add = [&](int system, const QString& hardware) {
        DoorsRow door;
        door.SystemNumber = system;
        door.Text1 = hardware;
        Recordset<DoorsRow>::Add(session.Keys(), door);
    };
    const QString odd = QString::fromUtf8("T\u00fcr 100% d'entr\u00e9e");
    for (const auto& [system, hardware] : {std::pair{2, odd},
                                           {1, QStringLiteral("Rim")},
                                           {1, odd},
                                           {1, QStringLiteral("rim")},
                                           {1, QString()},
                                           {2, QStringLiteral("Rim")},
                                           {1, QStringLiteral("Rim ")}})
        add(system, hardware);
    EXPECT_EQ(ListHardwareTypes(session), (QStringList{odd, "Rim", "rim", "Rim "}));
    const auto stored = [&] {
        QStringList texts;
        for (const DoorsRow& door : Recordset<DoorsRow>(session.Keys()).Rows())
            texts += door.Text1;
        return texts;
    };
    const QString longer(200, u'L');
    EXPECT_TRUE(ReplaceHardware(session, "Rim", longer, false));
    EXPECT_EQ(stored(), (QStringList{odd, longer, odd, "rim", "", "Rim", "Rim "}));
    EXPECT_FALSE(ReplaceHardware(session, "Rim", longer, false)) << "on no door of this system";
    EXPECT_TRUE(ReplaceHardware(session, odd, "Rim", true));
    EXPECT_EQ(stored(), (QStringList{"Rim", longer, "Rim", "rim", "", "Rim", "Rim "}));
    EXPECT_EQ(ListHardwareTypes(session), (QStringList{"Rim", longer, "rim", "Rim "}));
    EXPECT_THROW(ReplaceHardware(session, odd, "Rim", true), ChangedElsewhere) << "on none";
}

} // namespace
} // namespace quorrel::test
