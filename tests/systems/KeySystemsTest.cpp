#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "support/TestProgram.h"

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
    const int gone = CreateKeySystem(session, StandardSystem("Gone", "2715")).SystemID;
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
    DeleteKeySystem(session, gone);
    EXPECT_EQ(counts(session, gone), std::vector<qint64>(12, 0));
    EXPECT_EQ(counts(session, kept), before);
    EXPECT_EQ(counts(session, 11)[1], 1);
    EXPECT_EQ(Recordset<ProgramUsersRow>(session.Keys()).Count(), 1);
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
        EXPECT_TRUE(OpenSelectedSystem(program.session, "A"));
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
    EXPECT_FALSE(OpenSelectedSystem(program.session, "B"));
    EXPECT_EQ(program.session.ActiveSystemNumber, 1);
}

} // namespace
} // namespace quorrel::test
