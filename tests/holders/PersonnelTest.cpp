#include "holders/Personnel.h"
#include "store/DatabaseFiles.h"
#include "support/JetWriter.h"
#include "support/TestProgram.h"

#include "platform/Recordset.h"

#include <QDir>
#include <QFile>

namespace quorrel::test {
namespace {

/// A program whose network settings name a personnel file, started up again.
class Personnel : public testing::Test {
protected:
    void Start(const QString& file, const QString& table = "Staff") {
        auto row = *Recordset<SystemInfoRow>(*session.SysinfoDatabase).First();
        row.personel = true;
        row.PersonelFile = file;
        row.PersonelTable = table;
        row.Lastname = "Surname";
        row.Firstname = "Given";
        row.Department = "Unit";
        Recordset<SystemInfoRow>::Update(*session.SysinfoDatabase, row);
        QString failure;
        EXPECT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
    }

    void StartWithJet(const JetTable& table) {
        JetWriter::Write(jet, {table});
        Start(jet);
    }

    void StartWithSqlite(const QString& statements) {
        const QString path = program.folder.filePath("people.db");
        Database::Create(path, {1}, statements);
        Start(path);
    }

    /// Last name, first name and title of whom the text finds, or "nobody".
    static QString Shown(const std::optional<PersonnelRecord>& person) {
        return person ? person->LastName + u'|' + person->FirstName + u'|' + person->Title
                      : QStringLiteral("nobody");
    }
    QString ByText(const char* number) { return Shown(FindPersonnelByText(session, number)); }
    QString ByValue(const char* number) { return Shown(FindPersonnelByValue(session, number)); }

    TestProgram program;
    Session& session = program.session;
    const QString jet = program.folder.filePath("people.mdb");
};

JetTable Staff(const std::vector<JetRow>& rows) {
    JetTable table{"Staff", {}, rows};
    for (const char* name :
         {"TM", "Name", "Title", "Department", "Status", "WorkPhone", "Extention", "HomePhone"})
        table.columns.push_back({name, JetType::Text});
    return table;
}

TEST_F(Personnel, TheLastMatchCounts) {
    StartWithJet(Staff({{{"17", "Old, Name", "First"}},
                        {{"0017", "Smith,  Jo, jr.", "Second", "Stores", "Active", "1", "2", "3"}},
                        {{"17", "No comma", "Third"}},
                        {{QString(), "Numberless, No", "Fourth"}},
                        {{"17 b", ",Mononym", "Fifth"}},
                        {{"x", QString(), "Sixth"}},
                        {{"99", "Else, Someone", "Seventh"}}}));
    EXPECT_TRUE(session.PersonnelAvailable);
    EXPECT_EQ(ByText("17"), "No comma||Third");
    EXPECT_EQ(ByText("0017"), "Smith|  Jo, jr.|Second");
    EXPECT_EQ(ByText("017"), "nobody");
    EXPECT_EQ(ByText(""), "nobody");
    EXPECT_EQ(ByValue("17"), "|Mononym|Fifth");
    EXPECT_EQ(ByValue("017.0"), "|Mononym|Fifth");
    EXPECT_EQ(ByValue("visitor"), "nobody");
    EXPECT_EQ(ByValue("x"), "||Sixth");
    EXPECT_EQ(ByValue("18"), "nobody");
    const auto person = FindPersonnelByText(session, "0017");
    EXPECT_EQ(person->TM + person->Department + person->Status + person->WorkPhone +
                  person->Extention + person->HomePhone,
              "0017StoresActive123");

    StartWithJet(Staff({{{"17", "New, Person", "Chief"}}}));
    EXPECT_EQ(ByText("17"), "New| Person|Chief");
    JetWriter::Write(jet, {Staff({{{"18", "Newer, Person", "Clerk"}}})});
    EXPECT_EQ(ByText("18"), "Newer| Person|Clerk") << "as the file is now";
    QFile::remove(jet);
    EXPECT_EQ(ByText("18"), "nobody");
    EXPECT_EQ(ByValue("18"), "nobody");
}

TEST_F(Personnel, NumbersMayBeNumbersAndNamesApart) {
    StartWithJet({"Staff",
                  {{"tm", JetType::Double},
                   {"Surname", JetType::Memo},
                   {"Given", JetType::Text},
                   {"Title", JetType::Long},
                   {"unit", JetType::Text}},
                  {{{"1001", "Smith, jr.", "Jo", "5", "Stores"}}}});
    EXPECT_EQ(ByText("1001"), "Smith, jr.|Jo|5");
    EXPECT_EQ(ByValue("01001"), "Smith, jr.|Jo|5");
    EXPECT_EQ(FindPersonnelByText(session, "1001")->Department, "Stores");

    StartWithSqlite("CREATE TABLE Staff (TM REAL, Name TEXT, Surname TEXT, Given TEXT, "
                    "Department TEXT, Unit TEXT);"
                    "INSERT INTO Staff VALUES (1001, 'Fixed,Name', 'Not', 'Used', NULL, 'Unused')");
    EXPECT_EQ(ByText("1001"), "Fixed|Name|");
    EXPECT_EQ(FindPersonnelByText(session, "1001")->Department, "");
}

TEST_F(Personnel, OneOfManyIsFound) {
    JetTable table = Staff({});
    for (int i = 0; i < 20000; ++i)
        table.rows.push_back({{QString::number(i), QStringLiteral("Last%1, First").arg(i)}});
    StartWithJet(table);
    EXPECT_EQ(ByText("19999"), "Last19999| First|");
    EXPECT_EQ(ByValue("0"), "Last0| First|");
}

TEST_F(Personnel, AFileThatCannotBeReadIsNoFailureAtTheStart) {
    const QByteArray whole = JetWriter::FileOf({Staff({{{"17", "A, B"}}})});
    const auto write = [&](const QByteArray& bytes) {
        QFile file(jet);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    write(whole.left(9000));
    testing::internal::CaptureStderr(); // The library says so, too.
    for (const QString& path : {jet, program.folder.path(), QString(), QStringLiteral("/none.mdb"),
                                program.PathOf(kHelpFile)}) {
        Start(path);
        EXPECT_FALSE(session.PersonnelAvailable) << path.toStdString();
        EXPECT_EQ(ByText("17"), "nobody");
    }
    testing::internal::GetCapturedStderr();
    write(whole);
    Start(jet, "Others");
    EXPECT_FALSE(session.PersonnelAvailable);
    Start(QDir(program.folder.path()).filePath("PEOPLE.mdb"), "staff");
    EXPECT_TRUE(session.PersonnelAvailable);
    session.SysinfoDatabase->Execute("UPDATE SystemInfo SET personel = 0");
    QString failure;
    EXPECT_TRUE(LoadStartupFiles(session, failure));
    EXPECT_FALSE(session.PersonnelAvailable);
    EXPECT_EQ(ByText("17"), "nobody");
}

} // namespace
} // namespace quorrel::test
