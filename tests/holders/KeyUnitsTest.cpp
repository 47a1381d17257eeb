#include "holders/UnitOrder.h"
#include "store/DayNumber.h"
#include "store/SystemTables.h"
#include "support/KeyBooks.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

class KeyUnits : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        AddOfficeHolders(session);
        session.LoggedUser = "Administrator";
        ann = *FindHolder(session, "12");
    }

    QStringList Free(const QString& key = "A1") { return ListFreeUnits(session, key).units; }
    QStringList Held(const QString& key = "A1") { return ListHeldUnits(session, key).lines; }

    TestProgram program;
    Session& session = program.session;
    KeyUsersRow ann;
};

TEST_F(KeyUnits, LifeOfAUnit) {
    EXPECT_EQ(IssueUnits(session, "A1", "3", "").count, 1);
    EXPECT_EQ(IssueUnits(session, "A1", "1", "5").count, 4) << "3 is there";
    EXPECT_EQ(Free(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(ListFreeUnits(session, "A1").last, "5");
    const auto first = Recordset<KeyUnitRow>(session.Keys()).First();
    EXPECT_EQ(first->UnitIDNumber, 100001);
    EXPECT_EQ(first->KeyID, "A1          ");

    EXPECT_EQ(AssignUnit(session, "A1", "2", ann), UnitDone::Done);
    EXPECT_EQ(AssignUnit(session, "A1", "2", ann), UnitDone::Changed) << "from an old list";
    EXPECT_EQ(Free(), (QStringList{"1", "3", "4", "5"}));
    EXPECT_EQ(Held(), QStringList{QString::fromUtf8("2 - 12 O'Brien Zo\u00eb")});
    EXPECT_EQ(ListUnitsOf(session, "12"), QStringList{"A1            2   - 03/15/2026 "});
    EXPECT_EQ(DeleteUnit(session, "A1", "2"), UnitDone::Changed) << "is in a holder's hand";

    EXPECT_EQ(TakeBackUnit(session, "A1", Held()[0], ann, QString(60, 'n'), false), UnitDone::Done);
    EXPECT_EQ(Free(), (QStringList{"1", "2***Returned!", "3", "4", "5"}));
    const auto log = Recordset<ReturnKeyRow>(session.Keys()).First();
    EXPECT_EQ(log->Date + ' ' + log->Time, "2026-03-15 12:00:00");
    EXPECT_EQ(log->KeyID + log->UnitID, "A1          2");
    EXPECT_EQ(log->UserName, QString::fromUtf8("O'Brien, Zo\u00eb"));
    EXPECT_EQ(log->Report.size(), 50);
    EXPECT_EQ(log->LoggedUser, "Administrator");

    EXPECT_EQ(IssueUnits(session, "A1", "2", "").outcome, Issued::Outcome::Exists);
    EXPECT_EQ(AssignUnit(session, "A1", "2***Returned!", ann), UnitDone::Done);
    EXPECT_EQ(TakeBackUnit(session, "A1", Held()[0], ann, "stolen", true), UnitDone::Done);
    EXPECT_EQ(Recordset<LostKeysRow>(session.Keys()).First()->Report, "stolen");
    EXPECT_EQ(AssignUnit(session, "A1", "2***LOST!", ann), UnitDone::Lost);
    EXPECT_EQ(DeleteUnit(session, "A1", "2***LOST!"), UnitDone::Done);
    EXPECT_EQ(IssueUnits(session, "A1", "2", "").count, 1);
    EXPECT_EQ(Free(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Recordset<LostKeysRow>(session.Keys()).Count(), 1) << "logs outlive the unit";
    EXPECT_EQ(FlawsOfBooks(session), QStringList());
}

TEST_F(KeyUnits, AreToldApartBy12CharactersAndByKey) {
    IssueUnits(session, "A1", "SERIAL-000001", "");
    EXPECT_EQ(IssueUnits(session, "A1", "SERIAL-000002", "").outcome, Issued::Outcome::Exists);
    EXPECT_EQ(IssueUnits(session, "A2", "SERIAL-000001", "").count, 1);
    DeleteUnit(session, "A2", "SERIAL-000001");
    EXPECT_EQ(Free("A1").size(), 1);
    EXPECT_EQ(Free("A2").size(), 0);
    EXPECT_EQ(IssueUnits(session, "A1", "", "").count, 1);
    EXPECT_EQ(Free("A1").size(), 1) << "an empty unit is not listed";
}

TEST_F(KeyUnits, IssueOnlyWhatIsANumberInARun) {
    EXPECT_EQ(IssueUnits(session, "A1", "x1", "3").outcome, Issued::Outcome::NoNumber);
    EXPECT_EQ(IssueUnits(session, "A1", "12A", "14").count, 3);
    EXPECT_EQ(IssueUnits(session, "A1", "9", "7").count, 0);
    EXPECT_EQ(IssueUnits(session, "A1", "1", "99999999").outcome, Issued::Outcome::TooMany);
    session.SessionPermissions.AddEditKeyUsers = false;
    EXPECT_EQ(IssueUnits(session, "A1", "1", "").outcome, Issued::Outcome::NoRight);
    EXPECT_EQ(AssignUnit(session, "A1", "12", ann), UnitDone::NoRight);
    EXPECT_EQ(DeleteUnit(session, "A1", "12"), UnitDone::NoRight);
    EXPECT_EQ(Free(), (QStringList{"12", "13", "14"}));
}

TEST_F(KeyUnits, GoToHoldersOnlyWhoExist) {
    IssueUnits(session, "A1", "1", "");
    KeyUsersRow nobody = ann;
    nobody.UserIDNumber = "77";
    EXPECT_EQ(AssignUnit(session, "A1", "1", nobody), UnitDone::NoHolder);
    EXPECT_EQ(Free(), QStringList{"1"});
}

TEST_F(KeyUnits, ABrokenRowIsDeletedAndEndsTheList) {
    IssueUnits(session, "A1", "1", "4");
    for (const char* unit : {"4", "2", "1", "3"})
        AssignUnit(session, "A1", QLatin1String(unit), ann);
    session.Keys().Execute("UPDATE UsertoUnit SET UserID = NULL WHERE UnitID = '3'", {});
    const HeldUnits broken = ListHeldUnits(session, "A1");
    EXPECT_EQ(broken.repaired, " Error found for Key A1           - Unit 3 - Record Deleted.");
    EXPECT_EQ(broken.lines.size(), 2);
    EXPECT_EQ(ListHeldUnits(session, "A1").repaired, "");
    EXPECT_EQ(Held().size(), 3);
    session.Keys().Execute("UPDATE UsertoUnit SET UserID = '' WHERE UnitID = '1'", {});
    EXPECT_NE(ListHeldUnits(session, "A1").repaired, "");
    EXPECT_EQ(Held().size(), 2);
    EXPECT_TRUE(Free().contains("3"));
}

TEST_F(KeyUnits, KeysAreListedByPageWithoutSpecialRows) {
    auto rows = Recordset<PatternsRow>(session.Keys()).Rows();
    rows[1].Label = "B2";
    rows[0].Label = "A1";
    rows[0].Description = "Gate\r\nwest";
    rows[2].Label = " C3";
    for (std::size_t at = 0; at < 3; ++at)
        Recordset<PatternsRow>::Update(session.Keys(), rows[at]);
    EXPECT_EQ(ListKeys(session, "").size(), 2);
    EXPECT_EQ(ListKeys(session, "a"), QStringList{"A1          -  Gate  west"});
}

TEST(UnitOrder, IsThatOfExchangingOneByOne) {
    const struct {
        QStringList units, sorted;
    } cases[] = {{{"10", "9", "1***LOST!", "100"}, {"1***LOST!", "9", "10", "100"}},
                 {{"5", "3", "SPARE", "4"}, {"3", "4", "SPARE", "5"}},
                 {{"C", "B", "A"}, {"B", "A", "C"}},
                 {{"2", "1", "A", "B"}, {"1", "2", "A", "B"}},
                 {{"3", "03", "1"}, {"1", "03", "3"}},
                 {{}, {}}};
    for (const auto& unit : cases) {
        QStringList sorted = unit.units;
        SortUnits(sorted);
        EXPECT_EQ(sorted, unit.sorted) << unit.units.join(' ').toStdString();
    }
    QStringList held = {"10 - 1 A B", "9 - 1 A B", "2 - 3 C D"};
    SortHeldUnits(held);
    EXPECT_EQ(held, (QStringList{"2 - 3 C D", "9 - 1 A B", "10 - 1 A B"}));
    held = {"SPARE - 1 A B", "9 - 1 A B", "2 - 3 C D"};
    const QStringList built = held;
    SortHeldUnits(held);
    EXPECT_EQ(held, built) << "a unit without number comes first";
}

TEST(UnitOrder, OfAnyNumberOfUnits) {
    QStringList units, sorted;
    for (int unit = 1; unit <= 5000; ++unit) {
        units.prepend(QString::number(unit));
        sorted.append(QString::number(unit));
    }
    SortUnits(units);
    EXPECT_EQ(units, sorted);
}

} // namespace
} // namespace quorrel::test
