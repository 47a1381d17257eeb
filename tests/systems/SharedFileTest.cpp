#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/MapTransaction.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include "platform/Recordset.h"

#include <QRandomGenerator>
#include <QThread>

namespace quorrel::test {
namespace {

constexpr qint64 kLargest = 256 * 104 + 256 + 64 + 16 + 4 + 1;

/// The number of keys of each system, read in two steps as the windows do.
std::vector<qint64> KeysOfEach(Session& session) {
    std::vector<qint64> keys;
    for (const KeySystemRow& system : ListKeySystems(session))
        keys.push_back(ContentsOf(session, system.SystemID).keys);
    return keys;
}

TEST(SharedFile, ASystemCreatedElsewhereIsSeenAndDeletedHere) {
    TestProgram program;
    const qint64 version = program.session.Keys().DataVersion();
    Workstation other(program.folder.path(), {"create", QString::fromUtf8("Z\u00fcrich"), "2715"});
    EXPECT_EQ(other.Finish(), 0) << other.Errors().toStdString();
    EXPECT_EQ(other.Output(), "created 1\n");
    EXPECT_NE(program.session.Keys().DataVersion(), version);
    const KeySystemRow there = ListKeySystems(program.session).at(0);
    EXPECT_EQ(there.SystemName, QString::fromUtf8("Z\u00fcrich"));
    OpenSelectedSystem(program.session, there);
    CreateKeySystem(program.session, StandardSystem("Here", "31524"));
    DeleteKeySystem(program.session, there);
    Workstation list(program.folder.path(), {"list"});
    EXPECT_EQ(list.Finish(), 0);
    EXPECT_EQ(list.Output(), "Here: 1685\n");
}

TEST(SharedFile, TwoWorkstationsCreateAtOnceAndAReaderNeverSeesHalfASystem) {
    TestProgram program;
    std::vector<std::unique_ptr<Workstation>> others;
    const char* const masters[] = {"3951728", "395172", "1753591"};
    for (const char* master : masters)
        others.push_back(std::make_unique<Workstation>(
            program.folder.path(),
            QStringList{"create", QString::fromLatin1(master), QString::fromLatin1(master)}));
    const auto running = [&] {
        return std::any_of(others.begin(), others.end(),
                           [](const auto& other) { return other->IsRunning(); });
    };
    while (running())
        for (const qint64 keys : KeysOfEach(program.session))
            EXPECT_TRUE(keys == kLargest || keys == 64 * 104 + 85) << keys;
    for (const auto& other : others)
        EXPECT_EQ(other->Finish(), 0) << other->Errors().toStdString();
    EXPECT_EQ(KeysOfEach(program.session).size(), 3U);
    std::set<int> numbers;
    for (const KeySystemRow& system : ListKeySystems(program.session))
        numbers.insert(system.SystemID);
    EXPECT_EQ(numbers, (std::set<int>{1, 2, 3}));
}

TEST(SharedFile, AWorkstationKilledWhileCreatingLeavesAllOrNothing) {
    TestProgram program;
    QElapsedTimer timer;
    timer.start();
    Workstation whole(program.folder.path(), {"create", "Whole", "3951728"});
    ASSERT_EQ(whole.Finish(), 0) << whole.Errors().toStdString();
    const auto duration = static_cast<int>(timer.elapsed());
    QRandomGenerator moments(20260315);
    std::size_t systems = 1;
    for (int attempt = 0; attempt < 12; ++attempt) {
        // Leaves the last moments, those of the commit, more than their share.
        const int moment = attempt % 2 == 0 ? moments.bounded(duration)
                                            : duration * 3 / 4 + moments.bounded(duration / 3 + 1);
        Workstation killed(program.folder.path(),
                           {"create", QStringLiteral("Killed %1").arg(attempt), "3951728"});
        QThread::msleep(static_cast<unsigned long>(moment));
        killed.Kill();
        const auto keys = KeysOfEach(program.session);
        EXPECT_TRUE(keys.size() == systems || keys.size() == systems + 1);
        EXPECT_EQ(keys, std::vector<qint64>(keys.size(), kLargest)) << "killed at " << moment;
        EXPECT_EQ(Recordset<PatternsRow>(program.session.Keys()).Count(),
                  kLargest * static_cast<qint64>(keys.size()));
        systems = keys.size();
    }
    EXPECT_EQ(program.session.Keys().Number("SELECT COUNT(*) FROM pragma_integrity_check WHERE "
                                            "integrity_check <> 'ok'"),
              0);
    EXPECT_LT(systems, 13U) << "no attempt was cut short";
    CreateKeySystem(program.session, StandardSystem("After", "2715"));
}

/// Doors in the key system file and maps in the map file.
std::pair<qint64, qint64> DoorsAndMaps(const TestProgram& program) {
    const auto keys = Database::Open(program.PathOf(kKeySystemFile), kKeySystemKind);
    const auto maps = Database::Open(program.PathOf(kMapFile), kMapKind);
    return {Recordset<DoorsRow>(*keys).Count(), Recordset<MapRow>(*maps).Count()};
}

TEST(BothFiles, AreWrittenTogetherOrNotAtAll) {
    TestProgram program;
    program.CreateAndOpen(StandardSystem("Pier", "2715"));
    Session& session = program.session;
    const auto write = [&](bool commit) {
        MapTransaction transaction(session);
        DoorsRow door;
        Recordset<DoorsRow>::Add(session.Keys(), door);
        MapRow map;
        map.MapID = 1;
        Recordset<MapRow>::Add(session.Keys(), map);
        EXPECT_THROW(MapTransaction{session}, ProgrammingError);
        if (commit)
            transaction.Commit();
    };
    write(false);
    EXPECT_EQ(DoorsAndMaps(program), std::pair(0LL, 0LL));
    write(true);
    EXPECT_EQ(DoorsAndMaps(program), std::pair(1LL, 1LL));
    EXPECT_THROW(write(true), DatabaseError) << "the map's number is taken";
    EXPECT_EQ(DoorsAndMaps(program), std::pair(1LL, 1LL));

    // Between such actions the key system file goes its own way.
    EXPECT_THROW(Recordset<MapRow>(session.Keys()).Count(), DatabaseError);
    Workstation maps(program.folder.path(), {"hold-maps", "60000"});
    maps.WaitFor("holding");
    CreateKeySystem(session, StandardSystem("Quay", "2715"));
    session.Keys().Execute("PRAGMA busy_timeout = 50");
    EXPECT_THROW(write(false), DatabaseError) << "in use";
    maps.Kill();
    session.MapDatabase.reset();
    EXPECT_THROW(write(false), DatabaseError) << "no map file";
}

TEST(BothFiles, AWorkstationKilledWithinLeavesAllOrNothing) {
    TestProgram program;
    CreateKeySystem(program.session, StandardSystem("Pier", "2715"));
    CloseDatabases(program.session);
    qint64 stored = 0;
    std::set<bool> outcomes;
    for (const char* moment : {"open", "delete"}) {
        for (int count = 1;; ++count) {
            Workstation other(program.folder.path(), {"both", moment, QString::number(count)});
            const bool survived = other.Finish() == 0;
            ASSERT_TRUE(survived || other.Errors().isEmpty()) << other.Errors().toStdString();
            const auto found = DoorsAndMaps(program);
            EXPECT_EQ(found.first, found.second) << "killed at " << moment << ' ' << count;
            if (survived) {
                EXPECT_EQ(found.first, stored + 1);
                EXPECT_GE(count, 4) << "two journals and what joins them";
                stored = found.first;
                break;
            }
            outcomes.insert(found.first > stored);
            stored = found.first;
        }
    }
    EXPECT_EQ(outcomes, (std::set{false, true})) << "killed before and after the decision";
    Session& session = program.session;
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
    EXPECT_EQ(session.Keys().Number("SELECT COUNT(*) FROM pragma_integrity_check WHERE "
                                    "integrity_check <> 'ok'"),
              0);
}

} // namespace
} // namespace quorrel::test
