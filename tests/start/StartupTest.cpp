#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "start/NetworkSettings.h"
#include "store/DatabaseFiles.h"
#include "store/StoredPath.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include "platform/Recordset.h"

#include <QDir>
#include <QFile>

namespace quorrel::test {
namespace {

/// A folder with the empty files as they are made, before anything was laid out or started.
class Startup : public testing::Test {
protected:
    Startup() : session(folder.path(), boxes, SystemClock(), Random([] { return 1U; })) {
        MakeEmptyFiles(QStringLiteral(QUORREL_SOURCES "/data/schema"), folder.path());
    }

    void Store(const QString& path, bool networked) {
        SystemInfoRow row;
        row.NetworkPath = path;
        row.Networked = networked;
        row.PersonelTable = QStringLiteral("Staff");
        Recordset<SystemInfoRow>::Add(*Database::Open(PathOf(kSysinfoFile), kSysinfoKind), row);
    }

    QStringList StoredPaths() const {
        QStringList paths;
        for (const SystemInfoRow& row :
             Recordset<SystemInfoRow>(*Database::Open(PathOf(kSysinfoFile), kSysinfoKind)).Rows())
            paths.append(row.NetworkPath);
        return paths;
    }

    QString PathOf(const char* name) const { return folder.filePath(QLatin1String(name)); }

    bool Load() { return LoadStartupFiles(session, failure); }

    QTemporaryDir folder;
    ScriptedBoxes boxes;
    Session session;
    QString failure;
};

TEST_F(Startup, AnEmptySystemInfoGetsItsTwoRowsOnce) {
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(Load()) << failure.toStdString();
        EXPECT_EQ(StoredPaths(), (QStringList{"./KeySystem.qv2", "./"}));
        EXPECT_EQ(session.KeySystemPath, PathOf(kKeySystemFile));
        EXPECT_EQ(session.MapDatabasePath, folder.path() + "MapSystem.vlx");
    }
}

TEST_F(Startup, OneRowGetsTheSecond) {
    Store(PathOf(kKeySystemFile), true);
    ASSERT_TRUE(Load()) << failure.toStdString();
    EXPECT_EQ(StoredPaths(), (QStringList{"./KeySystem.qv2", "./"}));
    EXPECT_EQ(session.KeySystemPath, PathOf(kKeySystemFile));
    EXPECT_EQ(session.MapDatabasePath, folder.path());
    EXPECT_EQ(session.SystemInfo.PersonelTable, "Staff");
}

TEST_F(Startup, TheNetworkPathCountsOnlyWhenNetworked) {
    QTemporaryDir shared;
    const QString there = shared.filePath("Keys = all.QV2");
    ASSERT_TRUE(QFile::copy(PathOf(kKeySystemFile), there));
    Store(shared.filePath("keys = ALL.qv2"), true);
    Store(shared.path(), false);
    ASSERT_TRUE(Load()) << failure.toStdString();
    EXPECT_EQ(session.Keys().Path(), there);
    EXPECT_EQ(session.MapDatabasePath, shared.path());

    session.SysinfoDatabase->Execute("UPDATE SystemInfo SET Networked = 0");
    ASSERT_TRUE(Load()) << failure.toStdString();
    EXPECT_EQ(session.Keys().Path(), PathOf(kKeySystemFile));
    EXPECT_EQ(session.MapDatabasePath, folder.path() + "MapSystem.vlx");
    EXPECT_EQ(StoredPaths().size(), 2);
}

TEST_F(Startup, UnusableFilesEndInFailure) {
    Store(folder.filePath("elsewhere.qv2"), true);
    EXPECT_FALSE(Load());
    EXPECT_TRUE(failure.contains("elsewhere.qv2")) << failure.toStdString();
    EXPECT_FALSE(session.KeySystemDatabase);
    EXPECT_THROW(session.Keys(), DatabaseError);
    EXPECT_TRUE(session.SysinfoDatabase); // The network settings can mend this one.

    session.SysinfoDatabase->Execute("UPDATE SystemInfo SET Networked = 0");
    Database::Open(PathOf(kKeySystemFile), kKeySystemKind)->Execute("DROP TABLE ProgramUsers");
    EXPECT_FALSE(Load());
    EXPECT_TRUE(failure.contains("is damaged")) << failure.toStdString();

    ASSERT_TRUE(QFile::remove(PathOf(kSysinfoFile)));
    EXPECT_FALSE(Load());
    EXPECT_TRUE(failure.contains(kSysinfoFile)) << failure.toStdString();
    EXPECT_FALSE(session.SysinfoDatabase);
    EXPECT_FALSE(QFile::exists(PathOf(kSysinfoFile)));
}

TEST_F(Startup, AFailingPersonnelFileIsNoFailure) {
    Store(PathOf(kKeySystemFile), true);
    Database::Open(PathOf(kSysinfoFile), kSysinfoKind)
        ->Execute("UPDATE SystemInfo SET personel = 1, PersonelFile = '/none/staff.db'");
    EXPECT_TRUE(Load()) << failure.toStdString();
    EXPECT_TRUE(session.SystemInfo.personel);
    EXPECT_FALSE(session.PersonnelAvailable);
    QFile log(PathOf("Quorrel.log"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly)) << "it is noted";
    EXPECT_TRUE(log.readAll().contains("Opening the personnel file: "));
}

TEST_F(Startup, FileNamesIgnoreCase) {
    ASSERT_TRUE(QFile::rename(PathOf(kSysinfoFile), folder.filePath("SYSINFO.QVX")));
    ASSERT_TRUE(QFile::rename(PathOf(kKeySystemFile), folder.filePath("keysystem.qv2")));
    EXPECT_TRUE(Load()) << failure.toStdString();
    EXPECT_EQ(session.Keys().Path(), folder.filePath("keysystem.qv2"));
}

TEST_F(Startup, ACompanyMakesTheTitleAndNoneAFirstRun) {
    ASSERT_TRUE(Load()) << failure.toStdString();
    LoadCompany(session);
    EXPECT_TRUE(session.FirstRun);
    EXPECT_TRUE(session.CompanyInfoEmpty);
    EXPECT_EQ(session.ProgramTitle, "");
    session.Keys().Execute("INSERT INTO CompanyInfo (CompanyName) VALUES ('Locks & Co')");
    LoadCompany(session);
    EXPECT_FALSE(session.FirstRun);
    EXPECT_FALSE(session.CompanyInfoEmpty);
    EXPECT_EQ(session.ProgramTitle, "Quorrel for Locks & Co");
    EXPECT_EQ(session.Company.CompanyMemo, "");
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

TEST(ProgramFolder, LayingOutNeverOverwrites) {
    const QDir delivered(QStringLiteral(QUORREL_DELIVERED));
    QTemporaryDir parent;
    const QDir folder(parent.filePath("new/program"));
    ASSERT_TRUE(QDir().mkpath(folder.path()));
    QFile maps(folder.filePath("MAPSYSTEM.vlx"));
    ASSERT_TRUE(maps.open(QIODevice::WriteOnly));
    maps.write("mine");
    maps.close();

    LayOutProgramFolder(delivered.path(), folder.path());
    EXPECT_EQ(Contents(maps.fileName()), "mine");
    EXPECT_EQ(folder.entryList(QDir::Files).size(), delivered.entryList(QDir::Files).size());
    const auto sysinfo = Database::Open(folder.filePath(QLatin1String(kSysinfoFile)), kSysinfoKind);
    const auto rows = Recordset<SystemInfoRow>(*sysinfo).Rows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_TRUE(rows[0].Networked);
    EXPECT_EQ(rows[0].NetworkPath, "./KeySystem.qv2");
    EXPECT_EQ(rows[1].NetworkPath, "./");
    sysinfo->Execute("UPDATE SystemInfo SET Lastname = 'kept'");

    // A key file that is missing is somewhere else: an empty one would look like total loss.
    for (const char* gone : {kKeySystemFile, kHelpFile})
        ASSERT_TRUE(QFile::remove(folder.filePath(QLatin1String(gone))));
    LayOutProgramFolder(delivered.path(), folder.path());
    EXPECT_FALSE(folder.exists(QLatin1String(kKeySystemFile)));
    EXPECT_TRUE(folder.exists(QLatin1String(kHelpFile)));
    EXPECT_EQ(Contents(maps.fileName()), "mine");
    EXPECT_EQ(Recordset<SystemInfoRow>(*sysinfo).First()->Lastname, "kept");
    EXPECT_EQ(Recordset<SystemInfoRow>(*sysinfo).Count(), 2);
    EXPECT_TRUE(folder.entryList({"*.new"}).isEmpty());
}

/// A program folder as the start of the program leaves it, in a folder of `parent`.
QString PortableFolder(const QTemporaryDir& parent, const char* name) {
    const QString folder = parent.filePath(QLatin1String(name));
    LayOutProgramFolder(QStringLiteral(QUORREL_DELIVERED), folder);
    return folder;
}

void CopyFolder(const QString& from, const QString& to) {
    ASSERT_TRUE(QDir().mkpath(to));
    for (const QString& name : QDir(from).entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(QDir(from).filePath(name), QDir(to).filePath(name)));
}

class PortableFolders : public testing::Test {
protected:
    /// The key file and the maps that a program in a folder works with, relative to the parent.
    QStringList FilesOf(const QString& folder) {
        Session session(folder, boxes, SystemClock(), Random([] { return 1U; }));
        QString failure;
        EXPECT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
        const auto maps = OpenMaps(session, {});
        const QDir root(parent.path());
        return {root.relativeFilePath(session.Keys().Path()),
                maps ? root.relativeFilePath(maps->Path()) : QString()};
    }

    QTemporaryDir parent;
    ScriptedBoxes boxes;
};

TEST_F(PortableFolders, ACopyWorksOnItsOwnFilesAndAMovedOneFindsThem) {
    const QString first = PortableFolder(parent, "first");
    EXPECT_EQ(FilesOf(first), (QStringList{"first/KeySystem.qv2", "first/MapSystem.vlx"}));
    CopyFolder(first, parent.filePath("copy"));
    EXPECT_EQ(FilesOf(parent.filePath("copy")),
              (QStringList{"copy/KeySystem.qv2", "copy/MapSystem.vlx"}));
    ASSERT_TRUE(QDir(parent.path()).rename("first", "moved"));
    EXPECT_EQ(FilesOf(parent.filePath("moved")),
              (QStringList{"moved/KeySystem.qv2", "moved/MapSystem.vlx"}));
}

TEST_F(PortableFolders, OneOfAnEarlierProgramMovesAfterItsNextStart) {
    const QString folder = PortableFolder(parent, "old");
    Database::Open(folder + "/Sysinfo.qvx", kSysinfoKind)
        ->Execute("UPDATE SystemInfo SET NetworkPath = CASE RowKey WHEN 1 THEN :k ELSE :m END, "
                  "PersonelFile = :p",
                  {folder + "/KeySystem.qv2", folder, folder + "/staff/people.mdb"});
    EXPECT_EQ(FilesOf(folder), (QStringList{"old/KeySystem.qv2", "old/MapSystem.vlx"}));
    ASSERT_TRUE(QDir(parent.path()).rename("old", "new"));
    EXPECT_EQ(FilesOf(parent.filePath("new")),
              (QStringList{"new/KeySystem.qv2", "new/MapSystem.vlx"}));
    Session session(parent.filePath("new"), boxes, SystemClock(), Random([] { return 1U; }));
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(session, failure));
    EXPECT_EQ(session.SystemInfo.PersonelFile, parent.filePath("new/staff/people.mdb"));
    const NetworkSettings settings = LoadNetworkSettings(session);
    EXPECT_EQ(settings.networkPath, parent.filePath("new/KeySystem.qv2"));
    EXPECT_EQ(settings.mapFolder, parent.filePath("new"));
    EXPECT_EQ(settings.personnelFile, parent.filePath("new/staff/people.mdb"));
}

TEST_F(PortableFolders, PathsElsewhereAreKeptAsTheyAre) {
    const QString folder = PortableFolder(parent, "here");
    Session session(folder, boxes, SystemClock(), Random([] { return 1U; }));
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(session, failure));
    Database& sysinfo = *session.SysinfoDatabase;
    for (const QString& path :
         {parent.filePath("herein/KeySystem.qv2"), parent.filePath("other/a.vlx"), parent.path(),
          QStringLiteral("C:/people.mdb"), QStringLiteral("people.mdb"), QString()})
        EXPECT_EQ(StoredPath(session, sysinfo, path), path);
    // A link to the folder leads to the same files.
    ASSERT_TRUE(QFile::link(folder, parent.filePath("link")));
    EXPECT_EQ(StoredPath(session, sysinfo, parent.filePath("link/maps")), "./maps");
    // Where the key file lies in a folder of the program, it finds what lies beside the program.
    ASSERT_TRUE(QDir(folder).mkdir("data"));
    ASSERT_TRUE(QFile::copy(folder + "/KeySystem.qv2", folder + "/data/Keys.qv2"));
    const auto keys = Database::Open(folder + "/data/Keys.qv2", kKeySystemKind);
    EXPECT_EQ(StoredPath(session, *keys, folder + "/logo.png"), "../logo.png");
    EXPECT_EQ(FullPath(*keys, "../logo.png"), folder + "/logo.png");
    EXPECT_EQ(StoredPath(session, *keys, parent.filePath("logo.png")), parent.filePath("logo.png"));
}

TEST(ProgramFolder, APortableCopyIsPreferredAlsoWhenAFileOfItIsMissing) {
    for (const char* name : {"sysINFO.qvx", "KeySystem.qv2", "MapSystem.vlx"}) {
        QTemporaryDir executable;
        EXPECT_EQ(ChooseProgramFolder(executable.path(), "/data", "/delivered"), "/data");
        ASSERT_TRUE(QFile(executable.filePath(name)).open(QIODevice::WriteOnly));
        EXPECT_EQ(ChooseProgramFolder(executable.path(), "/data", "/delivered"), executable.path());
    }
    // With nothing to lay out, only a folder that was laid out before can be the user's.
    QTemporaryDir data;
    EXPECT_EQ(ChooseProgramFolder("/opt/q", data.path(), ""), "/opt/q");
    ASSERT_TRUE(QFile(data.filePath("Sysinfo.qvx")).open(QIODevice::WriteOnly));
    EXPECT_EQ(ChooseProgramFolder("/opt/q", data.path(), ""), data.path());
}

TEST_F(Startup, AFileThatIsMerelyInUseIsTriedAgain) {
    ASSERT_TRUE(Load()) << failure.toStdString();
    CloseDatabases(session);
    session.BusyTimeout = 50;
    Workstation other(folder.path(), {"lock", "60000"});
    other.WaitFor("locked");
    boxes.Expect("KeySystem.qv2 is in use by another workstation", BoxAnswer::Yes);
    boxes.Expect("Try again", BoxAnswer::No);
    EXPECT_FALSE(LoadStartupFilesWhenFree(session, failure));
    EXPECT_EQ(failure, "") << "it has been told";
    boxes.ExpectWhile(
        "Try again", [&] { other.Kill(); }, BoxAnswer::Yes);
    EXPECT_TRUE(LoadStartupFilesWhenFree(session, failure)) << failure.toStdString();
    EXPECT_TRUE(LoadCompanyWhenFree(session, failure));

    CloseDatabases(session);
    ASSERT_TRUE(QFile::remove(PathOf(kKeySystemFile)));
    EXPECT_FALSE(LoadStartupFilesWhenFree(session, failure)) << "and no box";
    EXPECT_TRUE(failure.contains("cannot be found"));
}

} // namespace
} // namespace quorrel::test
