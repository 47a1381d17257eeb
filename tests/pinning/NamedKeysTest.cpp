#include "pinning/NamedKeys.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

class NamedKeys : public testing::Test {
protected:
    void SetUp() override {
        NewSystem system = StandardSystem("Pier", "2715");
        system.type = SystemType::ICCore23;
        system.special = "5050";
        number = program.CreateAndOpen(system).SystemID;
    }

    Query<PatternsRow> Row(int serial) const {
        return Query<PatternsRow>()
            .Where(&PatternsRow::SystemNumber, number)
            .Where(&PatternsRow::Serial, serial);
    }

    /// Names the key of a serial number and gives its cuts.
    std::string Name(int serial, const QString& keyID) {
        Database& keys = program.session.Keys();
        auto row = *Recordset<PatternsRow>(keys, Row(serial)).First();
        row.Label = Padded(keyID, 19);
        row.Description = QStringLiteral("Door of ") + keyID;
        row.KeyWay = Padded(QStringLiteral("K1"), 8);
        row.Department = QStringLiteral("OFFICE ");
        Recordset<PatternsRow>::Update(keys, row);
        return Unscrambled(row.Cuts).left(4).toStdString();
    }

    /// Key IDs on the way from a key until there are no more.
    QStringList Way(const std::string& from, Step step) {
        PinningRequest request;
        request.system = "Pier";
        request.key = from;
        request.master = "2715";
        request.control = "5050";
        QStringList way;
        while (const auto next = FindNamedKey(program.session, request, step)) {
            EXPECT_EQ(next->system, "Pier");
            EXPECT_EQ(next->master + next->control, "27155050");
            request = *next;
            way += next->keyID;
        }
        return way;
    }

    TestProgram program;
    int number = 0;
};

TEST_F(NamedKeys, FollowOneAnotherInTheOrderOfSerial) {
    const std::string last = Name(300, "A1");
    const std::string first = Name(7, "Z9");
    const std::string middle = Name(40, "M5");
    EXPECT_EQ(Way(first, Step::Next), (QStringList{"M5", "A1"}));
    EXPECT_EQ(Way(last, Step::Previous), (QStringList{"M5", "Z9"}));
    EXPECT_EQ(Way(last, Step::Next), QStringList());
    // From a key without a Key ID the nearest named one is found.
    const auto row = *Recordset<PatternsRow>(program.session.Keys(), Row(39)).First();
    EXPECT_EQ(Way(Unscrambled(row.Cuts).left(4).toStdString(), Step::Next),
              (QStringList{"M5", "A1"}));
}

TEST_F(NamedKeys, BringTheirRecordAndNoneOfAnotherSystem) {
    const std::string from = Name(7, "Z9");
    const std::string cuts = Name(40, "M5");
    program.session.ActiveSystemNumber =
        CreateKeySystem(program.session, StandardSystem("Quay", "2715")).SystemID;
    EXPECT_EQ(Way(from, Step::Next), QStringList());
    program.session.ActiveSystemNumber = number;
    PinningRequest request;
    request.key = from;
    const auto next = FindNamedKey(program.session, request, Step::Next);
    ASSERT_TRUE(next);
    EXPECT_EQ(next->key, cuts);
    EXPECT_EQ(next->keyID, "M5");
    EXPECT_EQ(next->description, "Door of M5");
    EXPECT_EQ(next->keyway, "K1");
    EXPECT_EQ(next->department, "OFFICE");
    request.key = "9999";
    EXPECT_FALSE(FindNamedKey(program.session, request, Step::Next)) << "no key of the system";
}

TEST_F(NamedKeys, PassOverTheControlKeysRowAndBlankLabels) {
    const std::string from = Name(7, "Z9");
    const auto rows = Recordset<PatternsRow>(program.session.Keys()).Count();
    Name(static_cast<int>(rows), "CONTROL");
    Name(41, " blank");
    EXPECT_EQ(Way(from, Step::Next), QStringList());
}

} // namespace
} // namespace quorrel::test
