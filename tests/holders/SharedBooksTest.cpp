#include "support/KeyBooks.h"
#include "support/TestProgram.h"
#include "support/Workstation.h"

#include <QRandomGenerator>
#include <QThread>

namespace quorrel::test {
namespace {

class SharedBooks : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        OpenOffice(session);
    }

    qint64 Returned() { return Recordset<ReturnKeyRow>(session.Keys()).Count(); }
    qint64 Lost() { return Recordset<LostKeysRow>(session.Keys()).Count(); }

    TestProgram program;
    Session& session = program.session;
};

TEST_F(SharedBooks, AreKeptByTwoWorkstationsAtOnce) {
    constexpr int actions = 1500;
    Workstation other(program.folder.path(), {"office", "1", QString::number(actions)});
    BusyOffice here(session, 2);
    for (int action = 0; action < actions; ++action) {
        here.Act();
        if (action % 100 == 0) {
            EXPECT_EQ(FlawsOfBooks(session), QStringList());
        }
    }
    ASSERT_EQ(other.Finish(), 0) << other.Errors().toStdString();
    EXPECT_EQ(FlawsOfBooks(session), QStringList());
    const QStringList there = other.Output().trimmed().split('\n').last().split(' ');
    ASSERT_EQ(there.size(), 5);
    const auto& done = here.Done();
    EXPECT_EQ(Returned(), done.returned + there[2].toInt());
    EXPECT_EQ(Lost(), done.lost + there[3].toInt());
    const auto units = Recordset<KeyUnitRow>(session.Keys()).Count();
    EXPECT_EQ(units, done.issued + there[0].toInt() - done.deleted - there[4].toInt());
    EXPECT_GT(done.assigned + there[1].toInt(), 100);
}

TEST_F(SharedBooks, AreWholeAfterAWorkstationIsKilled) {
    auto* random = QRandomGenerator::global();
    for (int kill = 0; kill < 10; ++kill) {
        const qint64 before = Returned() + Lost();
        Workstation office(program.folder.path(), {"office", QString::number(kill), "100000"});
        office.WaitFor("\n");
        QThread::usleep(random->bounded(150000));
        office.Kill();
        EXPECT_EQ(FlawsOfBooks(session), QStringList());
        // What it told of was stored; one more may have been when it died.
        const QStringList told =
            office.Output().left(office.Output().lastIndexOf('\n')).split('\n');
        const QStringList tally = told.last().split(' ');
        const qint64 logged = Returned() + Lost() - before - tally[2].toInt() - tally[3].toInt();
        EXPECT_GE(logged, 0);
        EXPECT_LE(logged, 1);
    }
    EXPECT_EQ(session.Keys().Number(
                  "SELECT COUNT(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
              0);
}

TEST_F(SharedBooks, AreWholeWhenTheDiskIsFull) {
    BusyOffice office(session, 5);
    int failed = 0;
    for (int action = 0; action < 5000 && failed < 5; ++action) {
        // No page can be added to the file now, as on a full disk; later there is room again.
        const qint64 pages = session.Keys().Number("PRAGMA page_count");
        const qint64 limit = action % 3 ? pages : pages + 1000;
        session.Keys().Number("PRAGMA max_page_count = " + std::to_string(limit));
        try {
            office.Act();
        } catch (const DatabaseError& error) {
            ++failed;
            EXPECT_EQ(error.kind(), DatabaseError::Kind::Full);
        }
        EXPECT_EQ(FlawsOfBooks(session), QStringList());
    }
    EXPECT_EQ(failed, 5);
    EXPECT_EQ(Returned(), office.Done().returned);
    EXPECT_EQ(Lost(), office.Done().lost);
}

} // namespace
} // namespace quorrel::test
