#include "holders/KeyHolders.h"
#include "store/DoorTables.h"
#include "support/KeyBooks.h"
#include "support/OtherSession.h"

namespace quorrel::test {
namespace {

using Outcome = SavedHolder::Outcome;

KeyUsersRow Person(const QString& number, const QString& last, const QString& first,
                   const QString& department = {}) {
    KeyUsersRow holder;
    holder.UserIDNumber = number;
    holder.Lastname = last;
    holder.Firstname = first;
    holder.Department = department;
    return holder;
}

class KeyHolders : public testing::Test {
protected:
    void SetUp() override { program.CreateAndOpen(StandardSystem("Pier", "2715")); }

    /// Saves somebody over the one who has the number, as he is stored.
    Outcome Save(const KeyUsersRow& typed) {
        return SaveHolder(session, Stored(typed.UserIDNumber), typed).outcome;
    }

    KeyUsersRow Stored(const QString& number) {
        return FindHolder(session, number).value_or(KeyUsersRow());
    }

    QStringList Lines(HolderColumn column = HolderColumn::UserID, const char* begin = "") {
        QStringList lines;
        for (const ListedHolder& listed : ListHolders(session, column, QString::fromUtf8(begin)))
            lines.append(listed.line);
        return lines;
    }

    qint64 Departments() { return Recordset<DepartmentRow>(session.Keys()).Count(); }

    TestProgram program;
    Session& session = program.session;
};

TEST_F(KeyHolders, AreListedInThreeFormsAndFoundByPrefix) {
    Save(Person("7", "Smith", "Ann", "Stores"));
    Save(Person("71", "O'Brien", QString::fromUtf8("Zo\u00eb")));
    EXPECT_EQ(Lines().value(0), "7 Smith Ann - STORES");
    EXPECT_EQ(Lines(HolderColumn::LastName, "SM").value(0), "7   (Smith)   Ann - STORES");
    EXPECT_EQ(Lines(HolderColumn::FirstName, "an").value(0), "7 Smith   (Ann)   - STORES");
    EXPECT_EQ(Lines(HolderColumn::UserID, "7").size(), 2);
    EXPECT_EQ(Lines(HolderColumn::FirstName, "zo\u00eb").size(), 1);
    EXPECT_EQ(Lines(HolderColumn::LastName, "o'b").size(), 1);
    EXPECT_EQ(Lines(HolderColumn::LastName, "%").size(), 0);
    EXPECT_EQ(NumberOfLine("71 O'Brien"), "71");
    for (const auto column :
         {HolderColumn::UserID, HolderColumn::LastName, HolderColumn::FirstName})
        EXPECT_TRUE(IsAsListed(session, ListHolders(session, column, "").at(0)));
}

TEST_F(KeyHolders, SaveChangesTheOneWithTheNumberAndKeepsItsUserID) {
    EXPECT_EQ(Save(Person("7", "Smith", "Ann")), Outcome::Added);
    EXPECT_EQ(Save(Person("8", "Jones", "Bo")), Outcome::Added);
    EXPECT_EQ(Save(Person("7", "Smythe", "Ann")), Outcome::Updated);
    EXPECT_EQ(Stored("7").Lastname, "Smythe");
    EXPECT_EQ(Stored("7").UserID, 1);
    EXPECT_EQ(Stored("8").UserID, 2);
    const QString long10k = QString::fromUtf8("\u05d0\u00e9'%").repeated(2500);
    Save(Person("9", long10k, long10k, long10k));
    EXPECT_EQ(Stored("9").Lastname, long10k);
    EXPECT_EQ(Stored("9").Department, long10k.toUpper().left(34));
    session.SessionPermissions.AddEditKeyUsers = false;
    EXPECT_EQ(Save(Person("10", "A", "B")), Outcome::Nothing);
}

TEST_F(KeyHolders, NeedANumber) {
    EXPECT_EQ(Save(Person("", "", "")), Outcome::Nothing);
    EXPECT_EQ(Save(Person("", "Smith", "Ann")), Outcome::NoNumber);
    EXPECT_EQ(Save(Person("  ", "", "")), Outcome::NoNumber);
    EXPECT_EQ(Lines(), QStringList());
}

TEST_F(KeyHolders, ANumberOfAnotherIsNotTakenUnasked) {
    Save(Person("7", "Smith", "Ann"));
    Save(Person("8", "Jones", "Bo"));
    const KeyUsersRow ann = Stored("7");
    KeyUsersRow typed = ann;
    typed.UserIDNumber = "8";
    const SavedHolder refused = SaveHolder(session, ann, typed);
    EXPECT_EQ(refused.outcome, Outcome::OtherHolder);
    EXPECT_EQ(NameOf(refused.stored), "Jones Bo");
    EXPECT_EQ(SaveHolder(session, {}, Person("7", "New", "Man")).outcome, Outcome::OtherHolder);
    EXPECT_EQ(Lines(), (QStringList{"7 Smith Ann - ", "8 Jones Bo - "}));
    EXPECT_EQ(SaveHolder(session, refused.stored, typed).outcome, Outcome::Updated)
        << "once asked he may be replaced";
    EXPECT_EQ(Lines(), (QStringList{"7 Smith Ann - ", "8 Smith Ann - "}));
    EXPECT_EQ(Stored("8").UserID, 2);
    typed.UserIDNumber = "9";
    EXPECT_EQ(SaveHolder(session, ann, typed).outcome, Outcome::Added);
    EXPECT_EQ(Stored("9").UserID, 3);
}

TEST_F(KeyHolders, AreMergedWithWhatAnotherWorkstationHasStored) {
    Save(Person("7", "Smith", "Ann", "Stores"));
    const KeyUsersRow shown = Stored("7");
    OtherSession other(program);
    KeyUsersRow theirs = shown;
    theirs.WorkPhone = "555";
    SaveHolder(other.session, shown, theirs);
    KeyUsersRow mine = shown;
    mine.Title = "Warden";
    EXPECT_EQ(SaveHolder(session, shown, mine).outcome, Outcome::Updated);
    EXPECT_EQ(Stored("7").WorkPhone + Stored("7").Title, "555Warden");

    mine.WorkPhone = "777";
    EXPECT_THROW(SaveHolder(session, shown, mine), ChangedElsewhere);
    EXPECT_EQ(Stored("7").WorkPhone, "555");

    DeleteHolder(other.session, HolderNumbered(other.session, "7"));
    EXPECT_THROW(SaveHolder(session, shown, mine), ChangedElsewhere) << "not added again unseen";
    EXPECT_EQ(Lines(), QStringList());

    // Somebody else has the number by now.
    SaveHolder(other.session, {}, Person("8", "A", "B"));
    SaveHolder(other.session, {}, Person("7", "New", "Man"));
    EXPECT_EQ(SaveHolder(session, shown, mine).outcome, Outcome::OtherHolder);
    // A row's key may be given again, with the number.
    const KeyUsersRow eight = Stored("8");
    KeyUsersRow retitled = eight;
    retitled.Title = "Warden";
    session.Keys().Execute("UPDATE KeyUsers SET Lastname = 'Else', Firstname = 'Somebody'");
    EXPECT_THROW(SaveHolder(session, eight, retitled), ChangedElsewhere);
    EXPECT_EQ(Stored("8").Title, "");
    session.Keys().Execute("DELETE FROM KeySystem");
    EXPECT_THROW(SaveHolder(session, {}, Person("9", "A", "B")), SystemGone);
    EXPECT_THROW(DeleteHolder(session, HolderNumbered(session, "7")), SystemGone);
}

TEST_F(KeyHolders, TeachDepartmentsUntilAKnownOneIsMet) {
    Save(Person("1", "A", "B", "x"));
    EXPECT_EQ(Departments(), 0) << "one character is no department of the system";
    Save(Person("2", "A", "B", "Stores"));
    Save(Person("2", "A", "B", "Changed"));
    EXPECT_EQ(ListHolderDepartments(session), QStringList{"STORES"});
    Save(Person("3", "A", "B", "stores west"));
    EXPECT_EQ(Departments(), 1) << "a known one begins it";
    Save(Person("4", "A", "B", "Office"));
    EXPECT_EQ(Departments(), 1) << "from then on none is added";
    session.DepartmentFound = false;
    Save(Person("5", "A", "B", "Office"));
    EXPECT_EQ(Departments(), 2);
}

TEST_F(KeyHolders, AreDeletedByTheirLineByUserIDUnlessTheyHaveKeys) {
    Save(Person("7", "Smith", "Ann"));
    Save(Person("7 A", "Blank", "Number"));
    const ListedKey key = KeyNamed(session, "A1");
    const ListedHolder ann = HolderNumbered(session, "7");
    IssueUnits(session, key, "1", "");
    AssignUnit(session, key, "1", ann);
    EXPECT_EQ(DeleteHolder(session, ann), HolderDeleted::HasKeys);
    TakeBackUnit(session, key, "1 - 7 Smith Ann", Stored("7"), "n", false);
    EXPECT_EQ(DeleteHolder(session, ListHolders(session, HolderColumn::LastName, "Sm").at(0)),
              HolderDeleted::WrongForm);
    OtherSession other(program);
    KeyUsersRow renamed = Stored("7");
    renamed.Lastname = "Smythe";
    SaveHolder(other.session, Stored("7"), renamed);
    EXPECT_THROW(DeleteHolder(session, ann), ChangedElsewhere);
    EXPECT_EQ(DeleteHolder(session, HolderNumbered(session, "7")), HolderDeleted::Deleted);
    EXPECT_EQ(DeleteHolder(session, HolderNumbered(session, "7 A")), HolderDeleted::Deleted);
    EXPECT_EQ(Lines(), QStringList());
}

} // namespace
} // namespace quorrel::test
