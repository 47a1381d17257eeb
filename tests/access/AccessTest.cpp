#include "access/CompanyInfo.h"
#include "access/Logon.h"
#include "store/Conflict.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

#include "platform/Recordset.h"

#include <QFile>

namespace quorrel::test {
namespace {

class LogonTest : public testing::Test {
protected:
    LogonTest() {
        ProgramUsersRow user; // may do nothing but issue keys
        user.UserName = "Porter";
        user.Password = Scrambled("Secret1");
        user.IssueKeys = true;
        Recordset<ProgramUsersRow>::Add(program.session.Keys(), user);
    }

    bool LogOn(const char* name, const char* password) {
        return quorrel::LogOn(program.session, QString::fromUtf8(name),
                              QString::fromUtf8(password));
    }

    /// The rights held, as seven digits.
    std::string Rights() const {
        const Permissions& p = program.session.SessionPermissions;
        std::string text;
        for (const bool right :
             {p.CreateSystem, p.ReadPrintPinning, p.IssueKeys, p.AddEditProgramUsers,
              p.AddEditKeyUsers, p.AlterKeyInformation, p.RunReports})
            text += right ? '1' : '0';
        return text;
    }

    TestProgram program;
};

TEST_F(LogonTest, TheDefaultAccountHasAllRightsAndIsAskedAboutLogoff) {
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
        program.boxes.Expect("Activate Auto-Logoff Y/N?", answer);
        EXPECT_TRUE(LogOn("administrator", "tamarisk"));
        EXPECT_EQ(program.boxes.Last().title, "Auto Logoff Feature");
        EXPECT_EQ(program.session.AutoLogoffActive, answer == BoxAnswer::Yes);
        EXPECT_EQ(program.session.LoggedUser, "Administrator");
        EXPECT_EQ(Rights(), "1111111");
    }
}

TEST_F(LogonTest, ALaterAccountHasItsOwnRights) {
    EXPECT_TRUE(LogOn("PORTER", "Secret1"));
    EXPECT_EQ(program.session.LoggedUser, "Porter");
    EXPECT_EQ(Rights(), "0010000");
}

TEST_F(LogonTest, EachRightComesFromItsOwnField) {
    const char* const fields[] = {"CreateSystem",        "ReadPrintPinning", "IssueKeys",
                                  "AddEditProgramUsers", "AddEditKeyUsers",  "AlterKeyInformation",
                                  "RunReports"};
    for (std::size_t i = 0; i < 7; ++i) {
        program.session.Keys().Execute("UPDATE ProgramUsers SET IssueKeys = 0, RunReports = 0, "
                                       "CreateSystem = 0, ReadPrintPinning = 0, AddEditKeyUsers = "
                                       "0, AddEditProgramUsers = 0, AlterKeyInformation = 0");
        program.session.Keys().Execute("UPDATE ProgramUsers SET " + std::string(fields[i]) +
                                       " = 1 WHERE UserName = 'Porter'");
        if (i == 1)
            program.boxes.Expect("Auto-Logoff", BoxAnswer::No);
        EXPECT_TRUE(LogOn("Porter", "Secret1"));
        EXPECT_EQ(Rights(), std::string(i, '0') + '1' + std::string(6 - i, '0')) << fields[i];
    }
}

TEST_F(LogonTest, BlanksAroundAUserNameDoNotCount) {
    program.session.Keys().Execute("UPDATE ProgramUsers SET UserName = 'Night porter ' "
                                   "WHERE UserName = 'Porter'");
    for (const char* name : {"night porter", "Night porter ", " NIGHT PORTER"})
        EXPECT_TRUE(LogOn(name, "Secret1")) << name;
    EXPECT_FALSE(LogOn("nightporter", "Secret1"));
    EXPECT_FALSE(LogOn("night porter", "Secret1 ")) << "a password is exact";
}

TEST_F(LogonTest, WhatDoesNotMatchIsRefusedAndTakesTheRights) {
    for (const auto& [name, password] :
         {std::pair{"Administrator", "Tamarisk"}, std::pair{"Administrator", "tamarisk "},
          std::pair{"Administrator", ""}, std::pair{"Porter", "tamarisk"},
          std::pair{"Administrato", "tamarisk"}, std::pair{"", ""},
          std::pair{"Porter", "\xe9\x8d\xb5"}, std::pair{"' OR 1=1 --", "x"}}) {
        program.session.SessionPermissions = {true, true, true, true, true, true, true};
        EXPECT_FALSE(LogOn(name, password)) << name << " " << password;
        EXPECT_EQ(Rights(), "0000000");
    }
}

TEST_F(LogonTest, AFileWithoutAccountsAdmitsEverybodyWithoutRights) {
    Recordset<ProgramUsersRow>(program.session.Keys()).DeleteAll();
    EXPECT_TRUE(LogOn("anyone", "anything"));
    EXPECT_EQ(Rights(), "0000000");
}

TEST(CompanyInfo, ThePolicyIsSplitOverFourFields) {
    QString policy;
    for (int i = 0; i < 1003; ++i)
        policy += QChar(u'a' + i % 26);
    CompanyInfoRow row;
    SplitPolicy(policy, row);
    EXPECT_EQ(row.KeyPolicy1, policy.left(250));
    EXPECT_EQ(row.KeyPolicy3, policy.mid(500, 250));
    EXPECT_EQ(JoinedPolicy(row), policy.left(1000));
    SplitPolicy("Short.\nTwo lines.", row);
    EXPECT_EQ(row.KeyPolicy2, "");
    EXPECT_EQ(JoinedPolicy(row), "Short.\nTwo lines.");
}

TEST(CompanyInfo, IsAddedOnceAndThenEdited) {
    TestProgram program;
    Session& session = program.session;
    CompanyInfoRow company;
    company.CompanyName = "First";
    ASSERT_TRUE(session.CompanyInfoEmpty);
    SaveCompanyInfo(session, company);
    EXPECT_TRUE(session.CompanyInfoEmpty);
    EXPECT_EQ(session.ProgramTitle, "Quorrel for First");
    session.CompanyInfoEmpty = false; // as the main form's menu leaves it
    const auto shown = Recordset<CompanyInfoRow>(session.Keys()).First();
    company.CompanyName = "Second";
    company.CompanySlogan = QString::fromUtf8("Cl\u00e9s & serrures");
    SaveCompanyInfo(session, company, shown);
    EXPECT_FALSE(session.CompanyInfoEmpty);
    const auto rows = Recordset<CompanyInfoRow>(session.Keys()).Rows();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].CompanyName, "Second");
    EXPECT_EQ(rows[0].CompanySlogan, company.CompanySlogan);
    EXPECT_EQ(session.Company.CompanyName, "Second");
}

TEST(CompanyInfo, WhatAnotherWorkstationEnteredIsNotUndone) {
    TestProgram here;
    Session there(here.folder.path(), here.boxes, SystemClock(), Random([] { return 1U; }));
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(there, failure)) << failure.toStdString();
    LoadCompany(there);
    const auto rows = [&] { return Recordset<CompanyInfoRow>(there.Keys()).Rows(); };
    // Two first runs at once: neither has seen the other's company.
    CompanyInfoRow company;
    company.CompanyName = "Harbour Locks";
    SaveCompanyInfo(here.session, company);
    company.CompanyName = "Harbor Locks";
    EXPECT_THROW(SaveCompanyInfo(there, company), ChangedElsewhere);
    EXPECT_EQ(rows().size(), 1U);
    company.CompanyName = "";
    company.CompanyMemo = "Closed on Sundays";
    SaveCompanyInfo(there, company);
    ASSERT_EQ(rows().size(), 1U);
    EXPECT_EQ(rows()[0].CompanyName, "Harbour Locks");
    EXPECT_EQ(rows()[0].CompanyMemo, "Closed on Sundays");
    EXPECT_EQ(there.ProgramTitle, "Quorrel for Harbour Locks");

    const CompanyInfoRow shown = rows()[0];
    CompanyInfoRow mine = shown, theirs = shown;
    theirs.CompanySlogan = "555 0100";
    SaveCompanyInfo(there, theirs, shown);
    mine.CompanyAddress = "1 Quay";
    SaveCompanyInfo(here.session, mine, shown);
    EXPECT_EQ(rows()[0].CompanySlogan, "555 0100");
    EXPECT_EQ(rows()[0].CompanyAddress, "1 Quay");
    mine.CompanySlogan = "555 0199";
    EXPECT_THROW(SaveCompanyInfo(here.session, mine, shown), ChangedElsewhere);
    EXPECT_EQ(rows()[0].CompanySlogan, "555 0100");
}

TEST(CompanyInfo, ALogoBesideTheKeyFileMovesWithIt) {
    TestProgram program;
    Session& session = program.session;
    CompanyInfoRow company;
    company.CompanyLogo = program.folder.filePath("pictures/logo.bmp");
    SaveCompanyInfo(session, company);
    CompanyInfoRow stored = *Recordset<CompanyInfoRow>(session.Keys()).First();
    EXPECT_EQ(stored.CompanyLogo, "./pictures/logo.bmp");
    EXPECT_EQ(session.Company.CompanyLogo, company.CompanyLogo);
    // As an earlier program stored it, it is the same logo.
    session.Keys().Execute("UPDATE CompanyInfo SET CompanyLogo = :l", {company.CompanyLogo});
    LoadCompany(session);
    EXPECT_EQ(session.Company.CompanyLogo, company.CompanyLogo);
    company.CompanyMemo = "new";
    SaveCompanyInfo(session, company, stored);
    EXPECT_EQ(Recordset<CompanyInfoRow>(session.Keys()).First()->CompanyLogo,
              "./pictures/logo.bmp");
    // A text that leads nowhere stays as it was entered.
    stored = *Recordset<CompanyInfoRow>(session.Keys()).First();
    company.CompanyLogo = "none";
    SaveCompanyInfo(session, company, stored);
    EXPECT_EQ(session.Company.CompanyLogo, "none");
}

TEST(CompanyInfo, ALogoIsALongPathOfAFile) {
    TestProgram program;
    const QString logo = program.folder.filePath("logo.bmp");
    EXPECT_FALSE(IsLogo(logo));
    ASSERT_TRUE(QFile(logo).open(QIODevice::WriteOnly));
    EXPECT_TRUE(IsLogo(logo));
    EXPECT_FALSE(IsLogo(program.folder.path()));
    EXPECT_FALSE(IsLogo(""));
}

} // namespace
} // namespace quorrel::test
