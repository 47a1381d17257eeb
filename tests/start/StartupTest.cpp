#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "store/DatabaseFiles.h"
#include "support/TestProgram.h"

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
        EXPECT_EQ(StoredPaths(), (QStringList{PathOf(kKeySystemFile), folder.path()}));
        EXPECT_EQ(session.KeySystemPath, PathOf(kKeySystemFile));
        EXPECT_EQ(session.MapDatabasePath, folder.path() + "MapSystem.vlx");
    }
}

TEST_F(Startup, OneRowGetsTheSecond) {
    Store(PathOf(kKeySystemFile), true);
    ASSERT_TRUE(Load()) << failure.toStdString();
    EXPECT_EQ(StoredPaths(), (QStringList{PathOf(kKeySystemFile), folder.path()}));
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
    EXPECT_EQ(rows[0].NetworkPath, folder.filePath(QLatin1String(kKeySystemFile)));
    EXPECT_EQ(rows[1].NetworkPath, folder.path());
    sysinfo->Execute("UPDATE SystemInfo SET Lastname = 'kept'");

    ASSERT_TRUE(QFile::remove(folder.filePath(QLatin1String(kKeySystemFile))));
    LayOutProgramFolder(delivered.path(), folder.path());
    EXPECT_TRUE(folder.exists(QLatin1String(kKeySystemFile)));
    EXPECT_EQ(Contents(maps.fileName()), "mine");
    EXPECT_EQ(Recordset<SystemInfoRow>(*sysinfo).First()->Lastname, "kept");
    EXPECT_EQ(Recordset<SystemInfoRow>(*sysinfo).Count(), 2);
    EXPECT_TRUE(folder.entryList({"*.new"}).isEmpty());
}

TEST(ProgramFolder, APortableCopyIsPreferred) {
    QTemporaryDir executable;
    EXPECT_EQ(ChooseProgramFolder(executable.path(), "/data"), "/data");
    ASSERT_TRUE(QFile(executable.filePath("sysINFO.qvx")).open(QIODevice::WriteOnly));
    EXPECT_EQ(ChooseProgramFolder(executable.path(), "/data"), executable.path());
}

} // namespace
} // namespace quorrel::test
