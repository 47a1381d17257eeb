#include "access/ProgramUsers.h"
#include "access/Logon.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

using Kind = UserOutcome::Kind;

class ProgramUsers : public testing::Test {
protected:
    static ProgramUser User(const QString& name, const QString& password, Permissions rights = {}) {
        return {name, password, password, rights};
    }

    UserOutcome Save(const ProgramUser& typed,
                     const std::optional<ProgramUsersRow>& opened = std::nullopt) {
        return SaveProgramUser(session, typed, opened);
    }

    /// Adds a user who must not be refused.
    ProgramUsersRow Added(const ProgramUser& user) {
        const UserOutcome outcome = Save(user);
        EXPECT_EQ(outcome.kind, Kind::Done) << outcome.text.toStdString();
        return ListProgramUsers(session).back();
    }

    ProgramUsersRow Stored(const ProgramUsersRow& row) {
        return FindProgramUser(session, row.key).value_or(ProgramUsersRow{});
    }

    TestProgram program;
    Session& session = program.session;
};

TEST_F(ProgramUsers, ANewUserIsTestedInTurnAndAdded) {
    ProgramUser typed = User(QLatin1String(kNewUserName), "abc");
    typed.confirmation = "abd";
    EXPECT_EQ(Save(typed).text, "Password must match ConfirmPassword");
    typed.confirmation = "abc";
    EXPECT_EQ(Save(typed).text, "You Must enter a Unique User Name");
    typed.name = "Porter";
    EXPECT_EQ(Save(typed).text, "You Must enter a longer Password for Porter");
    EXPECT_EQ(ListProgramUsers(session).size(), 1U);

    typed = User(QString(60, u'P'), "abcd", {.IssueKeys = true, .RunReports = true});
    const ProgramUsersRow stored = Added(typed);
    EXPECT_EQ(stored.UserName, QString(50, u'P'));
    EXPECT_EQ(stored.Password, Scrambled("abcd"));
    EXPECT_EQ(stored.ProgramUserID, 2);
    EXPECT_EQ(RightsOf(stored), typed.rights);
    EXPECT_EQ(NextProgramUserID(session), 3);
    EXPECT_TRUE(LogOn(session, QString(50, u'p'), "abcd"));

    EXPECT_EQ(Added(User(" Caf\u00e9 porter  ", "abcd")).UserName, "Caf\u00e9 porter");
    EXPECT_EQ(Added(User(QString(49, u'a') + " b", "abcd")).UserName, QString(49, u'a'));

    Recordset<ProgramUsersRow>(session.Keys()).DeleteAll();
    EXPECT_EQ(NextProgramUserID(session), 1);
}

TEST_F(ProgramUsers, TheFirstAccountKeepsItsRightsAndStays) {
    const ProgramUsersRow first = ListProgramUsers(session).front();
    session.LoggedUser = "administrator";
    EXPECT_EQ(Save(User("Chief", "new"), first).kind, Kind::Done);
    const ProgramUsersRow renamed = Stored(first);
    EXPECT_EQ(renamed.UserName, "Chief");
    EXPECT_EQ(renamed.ProgramUserID, 1);
    EXPECT_EQ(RightsOf(renamed), RightsOf(first));
    EXPECT_EQ(session.LoggedUser, "Chief");
    program.boxes.Expect("Auto-Logoff", BoxAnswer::No);
    EXPECT_TRUE(LogOn(session, "chief", "new")) << "a short password is no matter here";

    ProgramUser mismatched = User("Chief", "new");
    mismatched.confirmation = "other";
    EXPECT_EQ(DeleteProgramUser(session, mismatched, renamed).text,
              "Password must match ConfirmPassword");
    EXPECT_EQ(DeleteProgramUser(session, User("Chief", "new"), renamed).text,
              "You Cannot Delete this Account or Change it's Permissions");
    EXPECT_EQ(ListProgramUsers(session).size(), 1U);
}

TEST_F(ProgramUsers, ANameBelongsToOneAccount) {
    const ProgramUsersRow porter = Added(User("Porter", "secret"));
    Added(User(QString::fromUtf8("Jos\u00e9 O'Neill %1"), "secret"));
    for (const char* name : {"PORTER", " porter ", "jos\u00c9 o'neill %1", "", "  ",
                             "add new user name", "administrator"}) {
        EXPECT_EQ(Save(User(QString::fromUtf8(name), "secret")).kind, Kind::Refused) << name;
        const bool own = QString::fromUtf8(name).trimmed().toLower() == "porter";
        EXPECT_EQ(Save(User(QString::fromUtf8(name), "secret"), Stored(porter)).text,
                  own ? "" : "You Must enter a Unique User Name")
            << name;
    }
    EXPECT_EQ(Save(User("PORTER", "secret", {.CreateSystem = true}), Stored(porter)).kind,
              Kind::Done);
    EXPECT_EQ(Stored(porter).UserName, "PORTER");
    EXPECT_TRUE(Stored(porter).CreateSystem);
    EXPECT_EQ(ListProgramUsers(session).size(), 3U);
}

TEST_F(ProgramUsers, APasswordComesBackOrIsRefused) {
    ProgramUsersRow account = Added(User("Porter", "secret"));
    for (const QString& password :
         {QString::fromUtf8("p\u00e4ssw\u00f6rd"), QStringLiteral("'; --\" %s"), QString(),
          QString(33, u'!'), QStringLiteral("   "), QString(100, u'z')}) {
        ASSERT_EQ(Save(User("Porter", password), account).kind, Kind::Done)
            << password.toStdString();
        account = Stored(account);
        EXPECT_EQ(ShownUser(account).password, password);
        EXPECT_TRUE(LogOn(session, "Porter", password)) << password.toStdString();
    }
    const ProgramUsersRow before = account;
    for (const QString& password :
         {QString::fromUtf8("\u05de\u05e4\u05ea\u05d7"), QString::fromUtf8("secret\u20ac"),
          QString(40, u'!'), QString(10000, u'a')}) {
        EXPECT_TRUE(Save(User("Porter", password), account).text.contains("cannot be kept"));
        EXPECT_TRUE(Save(User("Night porter", password)).text.contains("cannot be kept"));
        EXPECT_EQ(Stored(account).Password, before.Password);
    }
    session.Keys().Execute("UPDATE ProgramUsers SET Password = 'a\u20ac' WHERE ProgramUserID = 2");
    EXPECT_EQ(ShownUser(Stored(account)).password, "") << "not a password of this program";
}

TEST_F(ProgramUsers, WhatAnotherWorkstationDidIsNotUndone) {
    ProgramUsersRow opened = Added(User("Porter", "secret", {.RunReports = true}));
    session.Keys().Execute("UPDATE ProgramUsers SET RunReports = 0 WHERE ProgramUserID = 2");
    EXPECT_EQ(DeleteProgramUser(session, User("Porter", "secret"), opened).kind, Kind::Changed);
    // Both have changed something, not the same.
    EXPECT_EQ(Save(User("Porter", "other", {.IssueKeys = true, .RunReports = true}), opened).kind,
              Kind::Done);
    EXPECT_EQ(Stored(opened).Password, Scrambled("other"));
    EXPECT_EQ(RightsOf(Stored(opened)), Permissions{.IssueKeys = true});

    opened = Stored(opened);
    ProgramUsersRow theirs = opened;
    theirs.Password = Scrambled("theirs");
    Recordset<ProgramUsersRow>::Update(session.Keys(), theirs);
    const UserOutcome outcome = Save(User("Porter", "mine", {.RunReports = true}), opened);
    EXPECT_EQ(outcome.kind, Kind::Changed);
    EXPECT_EQ(outcome.present->Password, theirs.Password);
    EXPECT_EQ(outcome.merged->Password, theirs.Password);
    EXPECT_EQ(RightsOf(*outcome.merged), Permissions{.RunReports = true});
    EXPECT_EQ(RightsOf(Stored(opened)), Permissions{.IssueKeys = true}) << "nothing is written";

    EXPECT_EQ(DeleteProgramUser(session, User("", ""), *outcome.present).kind, Kind::Done);
    EXPECT_EQ(Save(User("Porter", "other"), opened).kind, Kind::Gone);
    EXPECT_EQ(DeleteProgramUser(session, User("", ""), opened).kind, Kind::Gone);
    EXPECT_EQ(ListProgramUsers(session).size(), 1U);

    // The next account takes over the free number; it is not the one that was opened.
    EXPECT_EQ(Added(User("Gardener", "secret")).ProgramUserID, opened.ProgramUserID);
    EXPECT_EQ(Save(User("Porter", "other"), opened).present->UserName, "Gardener");
    EXPECT_EQ(DeleteProgramUser(session, User("", ""), opened).kind, Kind::Changed);
    EXPECT_EQ(ListProgramUsers(session).back().UserName, "Gardener");
}

} // namespace
} // namespace quorrel::test
