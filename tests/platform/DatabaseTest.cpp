#include "platform/LogFile.h"
#include "store/DatabaseFiles.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include "platform/Recordset.h"

#include <QDir>
#include <QFile>

#include <functional>

namespace quorrel::test {
namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// The message of a failed opening as a key system file; the kind must be the expected one, and
/// the folder must be as it was.
QString FailureToOpen(const QString& path, DatabaseError::Kind kind) {
    const QString folder = QFileInfo(path).path();
    const QStringList names = QDir(folder).entryList(QDir::Files);
    const QByteArray before = QFileInfo(path).isFile() ? Bytes(path) : QByteArray();
    QString message;
    try {
        const auto database = Database::Open(path, kKeySystemKind, 100);
        Recordset<PatternsRow>(*database).Rows();
        ADD_FAILURE() << "Opened: " << path.toStdString();
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.kind(), kind) << error.what();
        message = QString::fromUtf8(error.what());
    }
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), names);
    EXPECT_EQ(QFileInfo(path).isFile() ? Bytes(path) : QByteArray(), before);
    EXPECT_TRUE(message.contains(QDir::toNativeSeparators(path))) << message.toStdString();
    return message;
}

TEST(DatabaseFile, WhatIsNoUsableFileIsToldAndLeftAlone) {
    TestProgram program;
    program.CreateAndOpen(StandardSystem("A", "2715"));
    const QByteArray good = Bytes(program.PathOf(kKeySystemFile));
    const QString path = program.folder.filePath("copy.qv2");
    const auto failure = [&](const QByteArray& bytes, DatabaseError::Kind kind) {
        Write(path, bytes);
        return FailureToOpen(path, kind);
    };
    EXPECT_TRUE(FailureToOpen(path, DatabaseError::Kind::Missing).contains("cannot be found"));
    FailureToOpen(program.folder.path(), DatabaseError::Kind::Missing);
    EXPECT_TRUE(
        failure("Just a text.\n", DatabaseError::Kind::NotOurs).contains("not a Quorrel file"));
    EXPECT_TRUE(failure(QByteArray(5000, 'x'), DatabaseError::Kind::NotOurs)
                    .contains("not a Quorrel file"));
    EXPECT_TRUE(failure("", DatabaseError::Kind::NotOurs).contains("not a Quorrel file"));
    EXPECT_TRUE(failure(good.left(60), DatabaseError::Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(
        failure(Bytes(program.PathOf(kMapFile)), DatabaseError::Kind::NotOurs).contains("kind"));
    EXPECT_TRUE(
        failure(good.left(good.size() / 2), DatabaseError::Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(failure(good.chopped(1), DatabaseError::Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(failure(good.left(4096) + QByteArray(good.size() - 4096, '\xff'),
                        DatabaseError::Kind::Damaged)
                    .contains("damaged"));
    QByteArray newer = good;
    newer[63] = 99; // the low byte of the schema version in the header
    EXPECT_TRUE(failure(newer, DatabaseError::Kind::TooNew).contains("newer Quorrel"));
}

TEST(DatabaseFile, OddPathsWork) {
    TestProgram program;
    const QString folder = program.folder.filePath(
        QString::fromUtf8("Sch\u00fcler's  keys = \u05de\u05e4\u05ea\u05d7;100%1"));
    LayOutProgramFolder(QStringLiteral(QUORREL_DELIVERED), folder);
    Session session(folder, program.boxes, SystemClock(), Random([] { return 1U; }));
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
    CreateKeySystem(session, StandardSystem(QStringLiteral("A"), "2715"));
    CloseDatabases(session);
    EXPECT_EQ(
        Recordset<PatternsRow>(
            *Database::Open(QDir(folder).filePath(QLatin1String(kKeySystemFile)), kKeySystemKind))
            .Count(),
        4 * 104 + 1);
}

TEST(DatabaseFile, AQuotationMarkInAPathLeadsToNoOtherFile) {
    TestProgram program;
    const QString root = program.folder.path();
    ASSERT_TRUE(QDir(root).mkpath("a b\"c"));
    const QString path = root + "/a b\"c/copy.qv2";
    ASSERT_TRUE(QFile::copy(program.PathOf(kKeySystemFile), path));
    const QStringList names = QDir(root).entryList();
    EXPECT_THROW(Database::Open(path, kKeySystemKind), DatabaseError);
    EXPECT_EQ(QDir(root).entryList(), names);
}

TEST(DatabaseFile, AnExistingFileIsNeverMadeAnew) {
    TestProgram program;
    const QString path = program.PathOf(kMapFile);
    const QByteArray before = Bytes(path);
    EXPECT_THROW(Database::Create(path, kMapKind, "CREATE TABLE T (A TEXT)"), DatabaseError);
    EXPECT_EQ(Bytes(path), before);
}

TEST(DatabaseFile, ReadOnlyFilesAreToldAndLeftAlone) {
    constexpr auto all = QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup | QFile::ReadOther;
    constexpr auto enter = QFile::ExeOwner | QFile::ExeUser | QFile::ExeGroup | QFile::ExeOther;
    for (const char* readOnly : {kSysinfoFile, kKeySystemFile}) {
        TestProgram program;
        CloseDatabases(program.session);
        const QString path = program.PathOf(readOnly);
        const QByteArray before = Bytes(path);
        for (const char* name : {kSysinfoFile, kKeySystemFile})
            QFile::setPermissions(program.PathOf(name), all | QFile::WriteOwner | QFile::WriteUser |
                                                            QFile::WriteGroup | QFile::WriteOther);
        QFile::setPermissions(path, all);
        QFile::setPermissions(program.folder.path(), all | enter);
        Workstation nobody(program.folder.path(), {"open-as-nobody"});
        EXPECT_NE(nobody.Finish(), 0);
        const QString message = nobody.Errors();
        EXPECT_TRUE(message.contains(path)) << message.toStdString();
        EXPECT_TRUE(message.contains("cannot be written to")) << message.toStdString();
        QFile::setPermissions(program.folder.path(), all | enter | QFile::WriteOwner);
        EXPECT_EQ(Bytes(path), before);
    }
}

TEST(DatabaseFile, AnotherWorkstationsWriteIsWaitedForUntilTheTimeout) {
    TestProgram program;
    const QString path = program.PathOf(kKeySystemFile);
    program.session.BusyTimeout = 100;
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(program.session, failure));
    Workstation other(program.folder.path(), {"hold", "60000"});
    other.WaitFor("holding");
    const QByteArray before = Bytes(path);
    QElapsedTimer timer;
    timer.start();
    try {
        CreateKeySystem(program.session, StandardSystem("A", "2715"));
        ADD_FAILURE() << "Written beside another workstation";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.kind(), DatabaseError::Kind::Busy);
        EXPECT_NE(std::string(error.what()).find("another workstation"), std::string::npos);
    }
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_TRUE(ListKeySystems(program.session).empty()); // Reading goes on.
    EXPECT_EQ(Bytes(path), before);
    other.Kill();
    CreateKeySystem(program.session, StandardSystem("A", "2715"));

    program.session.BusyTimeout = 30000;
    ASSERT_TRUE(LoadStartupFiles(program.session, failure));
    Workstation brief(program.folder.path(), {"hold", "400"});
    brief.WaitFor("holding");
    CreateKeySystem(program.session, StandardSystem("B", "2715"));
    EXPECT_EQ(ListKeySystems(program.session).size(), 2U);
}

TEST(DatabaseFile, AMisspeltColumnIsNoText) {
    TestProgram program;
    Database& keys = program.session.Keys();
    const auto foreign = Database::OpenForeign(program.PathOf(kKeySystemFile));
    for (Database* database : {&keys, foreign.get()})
        EXPECT_THROW(database->Number("SELECT COUNT(*) FROM Doors WHERE \"DoorLable\" = 'A'"),
                     DatabaseError);
    EXPECT_THROW(keys.Execute("CREATE INDEX Odd ON Doors (\"DoorLable\")"), DatabaseError);
    EXPECT_THROW(keys.Execute("INSERT INTO Department (SystemNumber, Department) VALUES "
                              "(1, \"LAB\")"),
                 DatabaseError);
}

TEST(DatabaseFile, ReadingNeverSpeaksOfWriting) {
    TestProgram program;
    Database& keys = program.session.Keys();
    const auto message = [](auto&& action) {
        try {
            action();
        } catch (const DatabaseError& error) {
            return QString::fromUtf8(error.what());
        }
        return QStringLiteral("no failure");
    };
    keys.Execute("DROP TABLE Activity");
    const QString reading = message([&] { keys.Number("SELECT COUNT(*) FROM Activity"); });
    EXPECT_TRUE(reading.contains("could not be read")) << reading.toStdString();
    EXPECT_TRUE(reading.endsWith("(no such table: Activity)")) << reading.toStdString();
    EXPECT_FALSE(reading.contains("changed"));
    const QString writing = message([&] { keys.Execute("DELETE FROM Activity"); });
    EXPECT_TRUE(writing.contains("could not be used. Nothing was changed."))
        << writing.toStdString();
    const QString within = message([&] {
        const Transaction transaction(keys);
        keys.Number("SELECT COUNT(*) FROM Activity");
    });
    EXPECT_EQ(within, writing) << "what is read for a change is a part of it";

    program.session.BusyTimeout = 50;
    const auto other = Database::Open(program.PathOf(kKeySystemFile), kKeySystemKind, 50);
    keys.Execute("BEGIN EXCLUSIVE");
    EXPECT_FALSE(message([&] { Recordset<DoorsRow>(*other).Count(); }).contains("changed"));
}

#ifdef Q_OS_UNIX
TEST(DatabaseFile, OneThatWasMovedOrReplacedIsToldAsSuch) {
    const auto deleted = [](const QString& path) { return QFile::remove(path); };
    const auto moved = [](const QString& path) { return QFile::rename(path, path + ".moved"); };
    const auto replaced = [](const QString& path) {
        return QFile::copy(path, path + ".copy") && QFile::remove(path) &&
               QFile::rename(path + ".copy", path);
    };
    for (const std::function<bool(const QString&)>& change :
         std::initializer_list<std::function<bool(const QString&)>>{deleted, moved, replaced}) {
        TestProgram program;
        const QString path = program.PathOf(kKeySystemFile);
        ASSERT_TRUE(change(path));
        try {
            CreateKeySystem(program.session, StandardSystem("Lost", "2715"));
            ADD_FAILURE() << "Written into a file that is not the one in its place";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.kind(), DatabaseError::Kind::Moved) << error.what();
            EXPECT_TRUE(QString::fromUtf8(error.what()).contains(path));
        }
    }
}
#endif

/// A value of the engine's schema table for each of a file's indexes and tables.
QStringList SchemaOf(Database& database) {
    QStringList statements;
    QString sql;
    Cursor cursor(database, "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL", {},
                  {FieldRef(&sql)});
    while (cursor.Next())
        statements.append(QString(sql).remove(u' ').remove(u'\n'));
    statements.sort();
    return statements;
}

/// A key system file as the first program made it: without two of the indexes, with two others as
/// they were then.
class FirstRevision : public testing::Test {
protected:
    FirstRevision() {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        Database& keys = program.session.Keys();
        schema = SchemaOf(keys);
        for (const char* change :
             {"DROP TABLE NumbersGiven", "DROP INDEX DoorsBySystem", "DROP INDEX DoorsByHardware",
              "DROP INDEX ReturnKeyBySystem", "DROP INDEX LostKeysBySystem",
              "CREATE INDEX ReturnKeyBySystem ON ReturnKey (SystemNumber, KeyID)",
              "CREATE INDEX LostKeysBySystem ON LostKeys (SystemNumber, KeyID)",
              "PRAGMA user_version = 1"})
            keys.Execute(change);
        CloseDatabases(program.session);
    }

    QStringList Files() const {
        return QDir(program.folder.path()).entryList({"KeySystem*"}, QDir::Files);
    }

    TestProgram program;
    const QString path = program.PathOf(kKeySystemFile);
    QStringList schema;
};

TEST_F(FirstRevision, ComesUpToDateAndStaysBesideItAsItWas) {
    const QByteArray before = Bytes(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    auto keys = Database::Open(path, kKeySystemKind);
    EXPECT_EQ(SchemaOf(*keys), schema);
    EXPECT_EQ(keys->Number("PRAGMA user_version"), kKeySystemKind.Revision());
    EXPECT_EQ(Recordset<PatternsRow>(*keys).Count(), 4 * 104 + 1);
    EXPECT_EQ(Files(), (QStringList{"KeySystem.qv2", "KeySystem.revision1.qv2"}));
    const QString former = program.folder.filePath("KeySystem.revision1.qv2");
    const auto foreign = Database::OpenForeign(former);
    EXPECT_EQ(foreign->Number("PRAGMA user_version"), 1);
    EXPECT_EQ(foreign->Number("SELECT COUNT(*) FROM Patterns"), 4 * 104 + 1);
    constexpr auto others = QFile::ReadGroup | QFile::ReadOther;
    EXPECT_FALSE(QFile::permissions(former) & others) << "no more open than the file itself";

    // The next opening changes nothing. An old file that is put back gets a copy of its own.
    keys.reset();
    Database::Open(path, kKeySystemKind);
    EXPECT_EQ(Files().size(), 2);
    Write(path, before);
    Database::Open(path, kKeySystemKind);
    EXPECT_EQ(Files(), (QStringList{"KeySystem.qv2", "KeySystem.revision1-2.qv2",
                                    "KeySystem.revision1.qv2"}));
}

TEST_F(FirstRevision, IsLeftAloneWhenItCannotBeBroughtUpToDate) {
    const QByteArray before = Bytes(path);
    {
        const auto earlier = Database::Open(path, FileKind{kKeySystemKind.applicationId});
        const Transaction holding(*earlier);
        EXPECT_TRUE(FailureToOpen(path, DatabaseError::Kind::Busy).contains("Nothing was changed"));
    }
    // A step that fails takes the others, and the copy, back.
    const char* const steps[] = {"CREATE TABLE NumbersGiven (A TEXT); DELETE FROM Patterns",
                                 "CREATE TABLE Doors (A TEXT)"};
    EXPECT_THROW(Database::Open(path, FileKind{kKeySystemKind.applicationId, steps}),
                 DatabaseError);
    EXPECT_EQ(Bytes(path), before);
    // A file that is damaged within is not taken for a good copy.
    constexpr qsizetype page = 4096;
    const qsizetype middle = before.size() / page / 2 * page;
    Write(path, before.left(middle) + QByteArray(page, '\x7f') + before.mid(middle + page));
    EXPECT_TRUE(FailureToOpen(path, DatabaseError::Kind::Damaged).contains("damaged"));
    EXPECT_EQ(Files(), QStringList{"KeySystem.qv2"});
}

TEST(Log, IsBoundedAndTheUsersOwn) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("Quorrel.log");
    const LogFile log(path, 2000);
    const std::runtime_error failure("first line\nsecond line " + std::string(5000, 'x'));
    for (int line = 0; line < 20; ++line)
        log.Note("Reading", failure);
    EXPECT_LE(QFileInfo(path).size(), 2000);
    EXPECT_LE(QFileInfo(path + ".old").size(), 2000);
    EXPECT_TRUE(Bytes(path).contains(" Reading: first line second line x"));
    EXPECT_EQ(Bytes(path).count('\n') * 2, Bytes(path).count("line")) << "a line each";
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), 0);
    LogFile("/no/such/folder/Quorrel.log").Note("Reading", failure); // and nothing happens
}

} // namespace
} // namespace quorrel::test
