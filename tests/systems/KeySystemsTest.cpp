#include "store/Conflict.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/StoredPath.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include "platform/Recordset.h"

#include <QDir>
#include <QFile>

namespace quorrel::test {
namespace {

template <class... Rows>
void AddOneOfEach(Session& session, int system) {
    const auto add = [&](auto row) {
        row.SystemNumber = system;
        Recordset<decltype(row)>::Add(session.Keys(), row);
    };
    (add(Rows{}), ...);
}

template <class... Rows>
std::vector<qint64> CountsOf(Session& session, int system) {
    return {Recordset<Rows>(session.Keys(), Query<Rows>().Where(&Rows::SystemNumber, system))
                .Count()...,
            Recordset<KeySystemRow>(session.Keys(),
                                    Query<KeySystemRow>().Where(&KeySystemRow::SystemID, system))
                .Count()};
}

TEST(DeleteKeySystem, TakesEveryRowOfTheSystemAndNoOther) {
    TestProgram program;
    Session& session = program.session;
    const KeySystemRow row = CreateKeySystem(session, StandardSystem("Gone", "2715"));
    const int gone = row.SystemID;
    const int kept = CreateKeySystem(session, StandardSystem("Kept", "2715")).SystemID;
    const auto fill =
        AddOneOfEach<AllKeysRow, DoorsRow, DepartmentRow, KeyUsersRow, KeyUnitRow, UsertoUnitRow,
                     ReturnKeyRow, LostKeysRow, CrossKeyedRow, ActivityRow>;
    const auto counts =
        CountsOf<PatternsRow, AllKeysRow, DoorsRow, DepartmentRow, KeyUsersRow, KeyUnitRow,
                 UsertoUnitRow, ReturnKeyRow, LostKeysRow, CrossKeyedRow, ActivityRow>;
    for (const int system : {gone, kept, 11, 21})
        fill(session, system);
    const SystemContents contents = ContentsOf(session, gone);
    EXPECT_EQ(contents.keys, 417);
    EXPECT_EQ(contents.logEntries, 2);
    EXPECT_TRUE(contents.InWords().contains("1 door, 1 key user"))
        << contents.InWords().toStdString();

    const auto before = counts(session, kept);
    DeleteKeySystem(session, row);
    EXPECT_EQ(counts(session, gone), std::vector<qint64>(12, 0));
    EXPECT_EQ(counts(session, kept), before);
    EXPECT_EQ(counts(session, 11)[1], 1);
    EXPECT_EQ(Recordset<ProgramUsersRow>(session.Keys()).Count(), 1);
}

TEST(DeleteKeySystem, DeletesTheListedSystemOrNone) {
    TestProgram program;
    Session& session = program.session;
    const KeySystemRow listed = CreateKeySystem(session, StandardSystem("Hospital", "2715"));
    // An earlier program at another workstation has given the number again.
    session.Keys().Execute("UPDATE KeySystem SET SystemName = 'School'");
    EXPECT_THROW(DeleteKeySystem(session, listed), ChangedElsewhere);
    EXPECT_THROW(OpenSelectedSystem(session, listed), ChangedElsewhere);
    session.Keys().Execute("UPDATE KeySystem SET SystemName = 'Hospital', SystemID = 2");
    EXPECT_THROW(DeleteKeySystem(session, listed), ChangedElsewhere);
    EXPECT_EQ(ContentsOf(session, 1).keys, 417);
    Workstation other(program.folder.path(), {"delete", "Hospital"});
    EXPECT_EQ(other.Finish(), 0) << other.Errors().toStdString();
    try {
        DeleteKeySystem(session, listed);
        ADD_FAILURE() << "Deleted a system that is gone";
    } catch (const ChangedElsewhere& conflict) {
        EXPECT_TRUE(QString::fromUtf8(conflict.what()).contains("\"Hospital\"")) << conflict.what();
    }
}

/// A program with a map file in each of several places.
class OpenSystemTest : public testing::Test {
protected:
    OpenSystemTest() {
        CreateKeySystem(program.session, StandardSystem("A", "2715"));
        KeySystemRow second; // a namesake, as another program may have left it
        second.SystemID = 9;
        second.SystemName = "A";
        Recordset<KeySystemRow>::Add(program.session.Keys(), second);
        QDir(program.folder.path()).mkpath("Site");
        for (const char* path : {"Site/mapsystem.VLX", "Site/Own.vlx"})
            EXPECT_TRUE(QFile::copy(program.PathOf(kMapFile), At(path)));
    }

    QString At(const char* path) const { return program.folder.filePath(QLatin1String(path)); }

    /// The map file that opening the system opens, relative to the program folder.
    QString Opened() {
        // The second one of the name was chosen; the first one counts.
        OpenSelectedSystem(program.session, ListKeySystems(program.session).back());
        EXPECT_EQ(program.session.ActiveSystemNumber, 1);
        const auto& maps = program.session.MapDatabase;
        return maps ? QDir(program.folder.path()).relativeFilePath(maps->Path())
                    : QStringLiteral("none");
    }

    void Set(const std::string& change) {
        program.session.Keys().Execute("UPDATE KeySystem SET " + change + " WHERE SystemID = 1");
    }

    TestProgram program;
};

TEST_F(OpenSystemTest, FindsTheMapFile) {
    QString& path = program.session.MapDatabasePath;
    EXPECT_EQ(Opened(), "MapSystem.vlx");
    path = At("Site");
    EXPECT_EQ(Opened(), "Site/mapsystem.VLX");
    path = At("SITE/own.VLX");
    EXPECT_EQ(Opened(), "Site/Own.vlx");
    path.clear();
    EXPECT_EQ(Opened(), "MapSystem.vlx");
    // As a start without network leaves it: folder and name without a separator.
    path = program.folder.path() + "MapSystem.vlx";
    EXPECT_EQ(Opened(), "none");
    path = At("no/such/folder");
    EXPECT_EQ(Opened(), "none");
    Set("MapFile = '" + At("Site/Own.vlx").toStdString() + "   '");
    EXPECT_EQ(Opened(), "Site/Own.vlx");
    Set("MapFile = '" + At("KeySystem.qv2").toStdString() + "'");
    EXPECT_EQ(Opened(), "none");
}

TEST_F(OpenSystemTest, SetsNumbersAndPage) {
    program.session.CurrentPage = 7;
    Opened();
    EXPECT_EQ(program.session.CurrentPage, 1);
    EXPECT_EQ(program.session.MapFilingNumber, 1);
    Set("MapFileID = 5");
    Opened();
    EXPECT_EQ(program.session.MapFilingNumber, 5);
    Set("MapFileID = NULL");
    Opened();
    EXPECT_EQ(program.session.MapFilingNumber, 1);
    KeySystemRow unknown;
    unknown.SystemName = "B";
    EXPECT_THROW(OpenSelectedSystem(program.session, unknown), ChangedElsewhere);
    EXPECT_EQ(program.session.ActiveSystemNumber, 1);
}

TEST_F(OpenSystemTest, AMapFileBesideTheKeySystemsIsFoundWhereverTheyAre) {
    Database& keys = program.session.Keys();
    Set("MapFile = './Site/Own.vlx'");
    EXPECT_EQ(Opened(), "Site/Own.vlx");
    EXPECT_EQ(StoredPath(program.session, keys, At("Site/Own.vlx")), "./Site/Own.vlx");
    EXPECT_EQ(FullPath(keys, "./Site/Own.vlx"), At("Site/Own.vlx"));
}

/// What opening a system says when its rows are changed as told.
class BrokenSystems : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(BrokenSystems, AreToldAndTheOpenOneStays) {
    TestProgram program;
    Session& session = program.session;
    program.CreateAndOpen(StandardSystem("Sound", "31524"));
    const KeySystemRow broken = CreateKeySystem(session, StandardSystem("Broken", "2715"));
    session.Keys().Execute("UPDATE KeySystem SET " + std::string(GetParam().first) +
                           " WHERE SystemID = 2");
    try {
        OpenSelectedSystem(session, broken);
        ADD_FAILURE() << "Opened";
    } catch (const BrokenSystem& error) {
        const QString text = QString::fromUtf8(error.what());
        EXPECT_TRUE(text.contains("\"Broken\"") && text.contains(GetParam().second))
            << error.what();
    }
    EXPECT_EQ(session.ActiveSystemNumber, 1);
    EXPECT_EQ(session.System.name, "Sound");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BrokenSystems,
    testing::Values(
        std::pair{"NumberOfPins = 3", "3 pins"}, std::pair{"NumberOfPins = 8", "8 pins"},
        std::pair{"NumberOfPins = NULL", "0 pins"},
        std::pair{"NumberOfPins = 4294967300", "pins"}, // 4 in its low half
        std::pair{"NumberOfPins = 'four'", "0 pins"}, std::pair{"NumberOfPins = 5", "5 cuts"},
        std::pair{"MasterKey = NULL", "master key"}, std::pair{"MasterKey = x'ff00'", "master key"},
        std::pair{"MasterKey = printf('%.1000000c', 'x')", "master key"}));

TEST(OpenSystemFlaws, WhatHindersNoWorkIsToldAndLeftOut) {
    TestProgram program;
    Session& session = program.session;
    NewSystem core = StandardSystem("Core", "2715");
    core.type = SystemType::ICCore23;
    core.special = "1234";
    const KeySystemRow row = program.CreateAndOpen(core);
    EXPECT_EQ(session.System.flaws, "");
    session.Keys().Execute("UPDATE Patterns SET PageNumber = 4294967298 WHERE Serial IN (7, 8)");
    session.Keys().Execute("UPDATE Patterns SET Cuts = x'ffff' WHERE Position = 200");
    OpenKeySystem(session, row);
    EXPECT_EQ(session.System.MaxPage, 4);
    EXPECT_TRUE(session.System.flaws.contains("2 of its keys"))
        << session.System.flaws.toStdString();
    EXPECT_TRUE(session.System.flaws.contains("control key cannot be read"));
    EXPECT_TRUE(session.System.SystemIsIC);

    session.Keys().Execute("UPDATE KeySystem SET SystemName = NULL");
    OpenSelectedSystem(session, ListKeySystems(session).front());
    EXPECT_TRUE(session.System.flaws.contains("no name"));
    SystemTransaction transaction(session); // finds it all the same
}

} // namespace
} // namespace quorrel::test
