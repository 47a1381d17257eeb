#include "holders/KeyHolders.h"
#include "holders/KeyUnits.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

class KeyHolders : public testing::Test {
protected:
    void SetUp() override { program.CreateAndOpen(StandardSystem("Pier", "2715")); }

    HolderSaved Save(const QString& number, const QString& last, const QString& first,
                     const QString& department = {}) {
        KeyUsersRow holder;
        holder.UserIDNumber = number;
        holder.Lastname = last;
        holder.Firstname = first;
        holder.Department = department;
        return SaveHolder(session, holder);
    }

    qint64 Departments() { return Recordset<DepartmentRow>(session.Keys()).Count(); }

    TestProgram program;
    Session& session = program.session;
};

TEST_F(KeyHolders, AreListedInThreeFormsAndFoundByPrefix) {
    Save("7", "Smith", "Ann", "Stores");
    Save("71", "O'Brien", QString::fromUtf8("Zo\u00eb"));
    const auto list = [&](HolderColumn column, const char* begin) {
        return ListHolders(session, column, QString::fromUtf8(begin));
    };
    EXPECT_EQ(list(HolderColumn::UserID, "").value(0), "7 Smith Ann - STORES");
    EXPECT_EQ(list(HolderColumn::LastName, "SM").value(0), "7   (Smith)   Ann - STORES");
    EXPECT_EQ(list(HolderColumn::FirstName, "an").value(0), "7 Smith   (Ann)   - STORES");
    EXPECT_EQ(list(HolderColumn::UserID, "7").size(), 2);
    EXPECT_EQ(list(HolderColumn::FirstName, "zo\u00eb").size(), 1);
    EXPECT_EQ(list(HolderColumn::LastName, "o'b").size(), 1);
    EXPECT_EQ(list(HolderColumn::LastName, "%").size(), 0);
    EXPECT_EQ(NumberOfLine("71 O'Brien"), "71");
}

TEST_F(KeyHolders, SaveChangesTheOneWithTheNumberAndKeepsItsUserID) {
    EXPECT_EQ(Save("7", "Smith", "Ann"), HolderSaved::Added);
    EXPECT_EQ(Save("8", "Jones", "Bo"), HolderSaved::Added);
    EXPECT_EQ(Save("7", "Smythe", "Ann"), HolderSaved::Updated);
    EXPECT_EQ(FindHolder(session, "7")->Lastname, "Smythe");
    EXPECT_EQ(FindHolder(session, "7")->UserID, 1);
    EXPECT_EQ(FindHolder(session, "8")->UserID, 2);
    EXPECT_EQ(Save("", "", ""), HolderSaved::Nothing);
    const QString long10k = QString::fromUtf8("\u05d0\u00e9'%").repeated(2500);
    Save("9", long10k, long10k, long10k);
    EXPECT_EQ(FindHolder(session, "9")->Lastname, long10k);
    EXPECT_EQ(FindHolder(session, "9")->Department, long10k.toUpper().left(34));
    session.SessionPermissions.AddEditKeyUsers = false;
    EXPECT_EQ(Save("10", "A", "B"), HolderSaved::Nothing);
}

TEST_F(KeyHolders, TeachDepartmentsUntilAKnownOneIsMet) {
    Save("1", "A", "B", "x");
    EXPECT_EQ(Departments(), 0) << "one character is no department of the system";
    Save("2", "A", "B", "Stores");
    Save("2", "A", "B", "Changed");
    EXPECT_EQ(ListHolderDepartments(session), QStringList{"STORES"});
    Save("3", "A", "B", "stores west");
    EXPECT_EQ(Departments(), 1) << "a known one begins it";
    Save("4", "A", "B", "Office");
    EXPECT_EQ(Departments(), 1) << "from then on none is added";
    session.DepartmentFound = false;
    Save("5", "A", "B", "Office");
    EXPECT_EQ(Departments(), 2);
}

TEST_F(KeyHolders, AreDeletedByTheirLineByUserIDUnlessTheyHaveKeys) {
    Save("7", "Smith", "Ann");
    Save("7 A", "Blank", "Number");
    IssueUnits(session, "A1", "1", "");
    AssignUnit(session, "A1", "1", *FindHolder(session, "7"));
    EXPECT_EQ(DeleteHolder(session, "7 Smith Ann - "), HolderDeleted::HasKeys);
    TakeBackUnit(session, "A1", "1 - 7 Smith Ann", *FindHolder(session, "7"), "n", false);
    EXPECT_EQ(DeleteHolder(session, "7   (Smith)   Ann - "), HolderDeleted::NotFound);
    EXPECT_EQ(DeleteHolder(session, "7 Smith Ann - "), HolderDeleted::Deleted);
    EXPECT_FALSE(FindHolder(session, "7"));
    EXPECT_EQ(DeleteHolder(session, "7 A Blank Number - "), HolderDeleted::Deleted);
}

} // namespace
} // namespace quorrel::test
