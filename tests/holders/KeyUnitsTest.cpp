#include "holders/UnitOrder.h"
#include "store/DayNumber.h"
#include "store/SystemTables.h"
#include "support/KeyBooks.h"
#include "support/OtherSession.h"

namespace quorrel::test {
namespace {

class KeyUnits : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        OpenOffice(session);
        session.LoggedUser = "Administrator";
        a1 = KeyNamed(session, "A1");
        zoe = HolderNumbered(session, "12");
    }

    Assigned::Outcome Assign(const QString& unit) {
        return AssignUnit(session, a1, unit, zoe).outcome;
    }

    std::vector<TakenUnit> TakeBack(const QString& line, const char* note, bool lost = false) {
        return TakeBackUnit(session, a1, line, HoldersOfLine(session, a1, line).back(),
                            QLatin1String(note), lost);
    }

    QStringList Free(const QString& key = "A1") { return ListFreeUnits(session, key).units; }
    QStringList Held(const QString& key = "A1") { return ListHeldUnits(session, key).lines; }

    std::vector<ReturnKeyRow> Returned() { return Recordset<ReturnKeyRow>(session.Keys()).Rows(); }

    TestProgram program;
    Session& session = program.session;
    ListedKey a1;
    ListedHolder zoe;
};

TEST_F(KeyUnits, LifeOfAUnit) {
    EXPECT_EQ(IssueUnits(session, a1, "3", "").count, 1);
    EXPECT_EQ(IssueUnits(session, a1, "1", "5").count, 4) << "3 is there";
    EXPECT_EQ(Free(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(ListFreeUnits(session, "A1").last, "5");
    const auto first = Recordset<KeyUnitRow>(session.Keys()).First();
    EXPECT_EQ(first->UnitIDNumber, 100001);
    EXPECT_EQ(first->KeyID, "A1          ");

    EXPECT_EQ(Assign("2"), Assigned::Outcome::Done);
    EXPECT_EQ(Free(), (QStringList{"1", "3", "4", "5"}));
    EXPECT_EQ(Held(), QStringList{QString::fromUtf8("2 - 12 O'Brien Zo\u00eb")});
    EXPECT_EQ(ListUnitsOf(session, "12"), QStringList{"A1            2   - 03/15/2026 "});
    EXPECT_EQ(Recordset<UsertoUnitRow>(session.Keys()).First()->UserIDDouble, 2)
        << "the number of the holder's record";

    EXPECT_EQ(TakeBack(Held()[0], "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz").size(),
              1U);
    EXPECT_EQ(Free(), (QStringList{"1", "2***Returned!", "3", "4", "5"}));
    const ReturnKeyRow log = Returned().at(0);
    EXPECT_EQ(log.Date + ' ' + log.Time, "2026-03-15 12:00:00");
    EXPECT_EQ(log.KeyID + log.UnitID, "A1          2");
    EXPECT_EQ(log.UserName, QString::fromUtf8("O'Brien, Zo\u00eb"));
    EXPECT_EQ(log.Report.size(), 50);
    EXPECT_EQ(log.LoggedUser, "Administrator");

    EXPECT_EQ(IssueUnits(session, a1, "2", "").outcome, Issued::Outcome::Exists);
    EXPECT_EQ(Assign("2***Returned!"), Assigned::Outcome::Done);
    TakeBack(Held()[0], "stolen", true);
    EXPECT_EQ(Recordset<LostKeysRow>(session.Keys()).First()->Report, "stolen");
    EXPECT_EQ(Assign("2***LOST!"), Assigned::Outcome::Lost);
    EXPECT_TRUE(DeleteUnit(session, a1, "2***LOST!"));
    EXPECT_EQ(IssueUnits(session, a1, "2", "").count, 1);
    EXPECT_EQ(Free(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Recordset<LostKeysRow>(session.Keys()).Count(), 1) << "logs outlive the unit";
    EXPECT_EQ(FlawsOfBooks(session), QStringList());
}

TEST_F(KeyUnits, AreToldApartBy12CharactersAndByKey) {
    const ListedKey a2 = KeyNamed(session, "A2");
    IssueUnits(session, a1, "SERIAL-000001", "");
    EXPECT_EQ(IssueUnits(session, a1, "SERIAL-000002", "").outcome, Issued::Outcome::Exists);
    EXPECT_EQ(IssueUnits(session, a2, "SERIAL-000001", "").count, 1);
    DeleteUnit(session, a2, "SERIAL-000001");
    EXPECT_EQ(Free("A1").size(), 1);
    EXPECT_EQ(Free("A2").size(), 0);
    EXPECT_EQ(IssueUnits(session, a1, "", "").count, 1);
    EXPECT_EQ(Free("A1").size(), 1) << "an empty unit is not listed";
}

TEST_F(KeyUnits, IssueOnlyWhatIsANumberInARun) {
    EXPECT_EQ(IssueUnits(session, a1, "x1", "3").outcome, Issued::Outcome::NoNumber);
    EXPECT_EQ(IssueUnits(session, a1, "12A", "14").count, 3);
    EXPECT_EQ(IssueUnits(session, a1, "9", "7").count, 0);
    EXPECT_EQ(IssueUnits(session, a1, "1", "99999999").outcome, Issued::Outcome::TooMany);
    EXPECT_EQ(IssueUnits(session, a1, "13", "20").outcome, Issued::Outcome::Exists)
        << "nothing of a run whose first unit is there";
    EXPECT_EQ(Free(), (QStringList{"12", "13", "14"}));
    session.SessionPermissions.AddEditKeyUsers = false;
    EXPECT_EQ(IssueUnits(session, a1, "1", "").outcome, Issued::Outcome::NoRight);
    EXPECT_EQ(Assign("12"), Assigned::Outcome::NoRight);
    EXPECT_FALSE(DeleteUnit(session, a1, "12"));
    EXPECT_EQ(Free(), (QStringList{"12", "13", "14"}));
}

TEST_F(KeyUnits, FromListsThatHaveAgedNothingIsWritten) {
    IssueUnits(session, a1, "1", "5");
    Assign("2");
    const QString line = Held()[0];
    const auto shown = HoldersOfLine(session, a1, line);
    OtherSession other(program);
    const auto nothingIsWritten = [&](const char* why, auto action) {
        const qint64 version = other.session.Keys().DataVersion();
        EXPECT_THROW(action(), ChangedElsewhere) << why;
        EXPECT_EQ(other.session.Keys().DataVersion(), version) << why;
    };
    // The units.
    AssignUnit(other.session, a1, "1", HolderNumbered(session, "1"));
    nothingIsWritten("held by now", [&] { Assign("1"); });
    nothingIsWritten("held by now", [&] { DeleteUnit(session, a1, "1"); });
    DeleteUnit(other.session, a1, "3");
    nothingIsWritten("gone by now", [&] { Assign("3"); });
    nothingIsWritten("gone by now", [&] { DeleteUnit(session, a1, "3"); });
    TakeBackUnit(other.session, a1, line, shown[0], "note", true);
    nothingIsWritten("lost by now",
                     [&] { TakeBackUnit(session, a1, line, shown[0], "note", false); });
    nothingIsWritten("of a list before that", [&] { DeleteUnit(session, a1, "2***Returned!"); });
    DeleteUnit(other.session, a1, "2***LOST!");
    IssueUnits(other.session, a1, "2", "");
    AssignUnit(other.session, a1, "2", HolderNumbered(session, "1"));
    nothingIsWritten("another's by now",
                     [&] { TakeBackUnit(session, a1, line, shown[0], "note", false); });

    // The holder.
    KeyUsersRow married = *FindHolder(session, "12");
    married.Lastname = "Smith";
    SaveHolder(other.session, *FindHolder(session, "12"), married);
    nothingIsWritten("renamed", [&] { Assign("4"); });
    DeleteHolder(other.session, HolderNumbered(session, "12"));
    nothingIsWritten("deleted", [&] { Assign("4"); });

    // The key.
    const QString held = Held()[0];
    zoe = HolderNumbered(session, "123");
    session.Keys().Execute("UPDATE Patterns SET Label = 'B7' WHERE Label = 'A1'");
    nothingIsWritten("renamed", [&] { IssueUnits(session, a1, "9", ""); });
    nothingIsWritten("renamed", [&] { Assign("4"); });
    nothingIsWritten("renamed", [&] { TakeBack(held, "note"); });
    nothingIsWritten("renamed", [&] { DeleteUnit(session, a1, "4"); });
    EXPECT_EQ(FindKey(session, a1.key)->keyID, "B7");
    // The Key ID is another key's by now.
    EXPECT_NE(KeyNamed(session, "A1").key, a1.key);
    nothingIsWritten("another key", [&] { IssueUnits(session, a1, "9", ""); });
    EXPECT_EQ(FlawsOfBooks(session), QStringList());

    session.Keys().Execute("UPDATE KeySystem SET SystemName = 'School'");
    const ListedKey key = KeyNamed(session, "A1");
    EXPECT_THROW(IssueUnits(session, key, "9", ""), SystemGone);
    EXPECT_THROW(AssignUnit(session, key, "4", zoe), SystemGone);
    EXPECT_THROW(TakeBackUnit(session, key, held, shown[0], "note", true), SystemGone);
    EXPECT_THROW(DeleteUnit(session, key, "4"), SystemGone);
}

TEST_F(KeyUnits, AUnitWhoseTextBeginsALineGoesAlongAndIsLogged) {
    for (const char* unit : {"A", "A - 1", "B"})
        IssueUnits(session, a1, QLatin1String(unit), "");
    AssignUnit(session, a1, "A", HolderNumbered(session, "1"));
    Assign("A - 1");
    Assign("B");
    const QString line = Held().filter("A - 1 - ").value(0);
    EXPECT_EQ(UnitOfLine(line, HoldersOfLine(session, a1, line).back()), "A - 1");
    const auto taken = TakeBack(line, "note");
    ASSERT_EQ(taken.size(), 2U);
    EXPECT_EQ(taken[0].unit + '/' + taken[1].unit, "A/A - 1");
    const auto log = Returned();
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log[0].UnitID + '/' + log[1].UnitID, "A/A - 1");
    EXPECT_EQ(log[0].ReturnID + 1, log[1].ReturnID);
    EXPECT_EQ(Free(), (QStringList{"A", "A - 1***Returned!"}));
    EXPECT_EQ(Held().size(), 1);

    // The one that is meant is gone, and what begins like it must not go for it.
    Assign("A");
    EXPECT_THROW(TakeBack(line, "note"), ChangedElsewhere);
    EXPECT_EQ(Held().size(), 2);
}

TEST_F(KeyUnits, ABrokenRowIsDeletedAndEndsTheList) {
    IssueUnits(session, a1, "1", "4");
    for (const char* unit : {"4", "2", "1", "3"})
        Assign(QLatin1String(unit));
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
    session.Keys().Execute("UPDATE UsertoUnit SET UserID = '' WHERE UnitID = '2'", {});
    session.Keys().Execute("UPDATE KeySystem SET SystemName = 'School'", {});
    EXPECT_THROW(ListHeldUnits(session, "A1"), SystemGone) << "it is not ours to repair";
}

TEST_F(KeyUnits, OddRowsDoNotKeepTheOthersFromTheLists) {
    IssueUnits(session, a1, "1", "4");
    for (const char* unit : {"1", "2"})
        Assign(QLatin1String(unit));
    Database& keys = session.Keys();
    keys.Execute("UPDATE KeyUnit SET UnitIDNumber = 'many', SystemNumber = '1' WHERE UnitID = '3'");
    keys.Execute("UPDATE KeyUnit SET UnitID = X'FF00FE' WHERE UnitID = '4'");
    keys.Execute("UPDATE UsertoUnit SET KeyUsersID = 'yesterday', UTUID = 1e300, UserIDDouble = "
                 "'x' WHERE UnitID = '1'");
    keys.Execute("UPDATE UsertoUnit SET UserID = 'nobody' WHERE UnitID = '2'");
    keys.Execute("UPDATE KeyUsers SET UserID = 99999999999, Lastname = NULL, Department = "
                 "X'FF', Employee = 'perhaps' WHERE UserIDNumber = '1'");
    keys.Execute("UPDATE Patterns SET Description = X'FFFE0A' WHERE Label = 'A1'");
    EXPECT_EQ(ListKeys(session, "").size(), 2U);
    EXPECT_EQ(Free().size(), 2);
    EXPECT_EQ(Held().size(), 1);
    EXPECT_EQ(ListUnitsOf(session, "12").size(), 1);
    EXPECT_EQ(ListHolders(session, HolderColumn::LastName, "").size(), 3U);
    EXPECT_TRUE(FindHolder(session, "1"));
}

TEST_F(KeyUnits, KeysAreListedByPageWithoutSpecialRows) {
    auto rows = Recordset<PatternsRow>(session.Keys()).Rows();
    rows[1].Label = "B2";
    rows[0].Label = "A1";
    rows[0].Description = "Gate\r\nwest";
    rows[2].Label = " C3";
    for (std::size_t at = 0; at < 3; ++at)
        Recordset<PatternsRow>::Update(session.Keys(), rows[at]);
    EXPECT_EQ(ListKeys(session, "").size(), 2U);
    const auto found = ListKeys(session, "a");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].line, "A1          -  Gate  west");
    EXPECT_EQ(found[0].keyID, "A1");
    EXPECT_FALSE(FindKey(session, rows[2].key));
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
