#include "store/DatabaseFiles.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include "platform/Recordset.h"

#include <QDir>
#include <QFile>

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
    using Kind = DatabaseError::Kind;
    EXPECT_TRUE(FailureToOpen(path, Kind::Missing).contains("cannot be found"));
    FailureToOpen(program.folder.path(), Kind::Missing);
    EXPECT_TRUE(failure("Just a text.\n", Kind::NotOurs).contains("not a Quorrel file"));
    EXPECT_TRUE(failure(QByteArray(5000, 'x'), Kind::NotOurs).contains("not a Quorrel file"));
    EXPECT_TRUE(failure("", Kind::NotOurs).contains("not a Quorrel file"));
    EXPECT_TRUE(failure(good.left(60), Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(failure(Bytes(program.PathOf(kMapFile)), Kind::NotOurs).contains("kind"));
    EXPECT_TRUE(failure(good.left(good.size() / 2), Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(failure(good.chopped(1), Kind::Damaged).contains("damaged"));
    EXPECT_TRUE(failure(good.left(4096) + QByteArray(good.size() - 4096, '\xff'), Kind::Damaged)
                    .contains("damaged"));
    QByteArray newer = good;
    newer[63] = 99; // the low byte of the schema version in the header
    EXPECT_TRUE(failure(newer, Kind::TooNew).contains("newer Quorrel"));
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

} // namespace
} // namespace quorrel::test
