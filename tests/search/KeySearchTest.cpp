#include "search/KeySearch.h"
#include "crosskeys/CrossSite.h"
#include "search/SearchLists.h"
#include "store/HolderTables.h"

namespace quorrel::test {
namespace {

/// A system of 7 pins, whose levels reach over pages.
class SearchSite : public CrossSite {
public:
    explicit SearchSite(const QString& master = QStringLiteral("3951728"),
                        SystemType type = SystemType::Standard)
        : CrossSite(master, type), search(session) {}

    void Describe(int page, int position, const QString& description) {
        PatternsRow row = Key(page, position);
        row.Description = description;
        Recordset<PatternsRow>::Update(session.Keys(), row);
    }

    template <class Row>
    void Add(Row row) {
        row.SystemNumber = system.SystemID;
        Recordset<Row>::Add(session.Keys(), row);
    }

    KeySearch search;
};

std::pair<int, int> PlaceOf(const std::optional<KeyHit>& hit) {
    return hit ? std::pair(hit->page, hit->position) : std::pair(-1, -1);
}

using Place = std::pair<int, int>;

TEST(KeySearch, FindsAKeyByItsCutsAndSerialNumber) {
    SearchSite site;
    const PatternsRow key = site.Key(3, 41);
    const QString cuts = QString::fromStdString(PlainCuts(key.Cuts, 7));
    EXPECT_EQ(PlaceOf(site.search.FindByCuts(cuts)), Place(3, 41));
    EXPECT_EQ(PlaceOf(site.search.FindByCuts(cuts + "99")), Place(3, 41)) << "cut to the pins";
    for (const QString& miss : {cuts.left(6), QString(), QString("ABCDEFG")})
        EXPECT_FALSE(site.search.FindByCuts(miss)) << miss.toStdString();
    EXPECT_EQ(PlaceOf(site.search.FindBySerial(QString::number(key.Serial))), Place(3, 41));
    for (const char* miss : {"", "0", "x", "1.5"})
        EXPECT_FALSE(site.search.FindBySerial(miss)) << miss;
}

TEST(KeySearch, FindsAKeyIDAsAWhole) {
    SearchSite site;
    site.Name(2, 5, "A 1");
    site.Name(3, 6, "A10");
    site.Name(4, 7, "A1");
    EXPECT_EQ(PlaceOf(site.search.FindByLabel("a1")), Place(4, 7));
    EXPECT_EQ(PlaceOf(site.search.FindByLabel("A1  ")), Place(4, 7));
    EXPECT_FALSE(site.search.FindByLabel("A"));
    EXPECT_EQ(PlaceOf(site.search.FindByLabel("")), Place(1, 0)) << "the first key without one";
}

TEST(KeySearch, PutsWhatIsNoKeyBehindTheKeys) {
    SearchSite site(QStringLiteral("3951"), SystemType::ICCore23);
    const auto hit = site.search.FindByCuts("4444");
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->NoKey(), "control key");
    // A key of a page with the same cuts wins although its page comes later.
    PatternsRow key = site.Key(1, 3);
    key.Cuts = Scrambled("4444 ");
    Recordset<PatternsRow>::Update(site.session.Keys(), key);
    EXPECT_EQ(PlaceOf(site.search.FindByCuts("4444")), Place(1, 3));
}

TEST(KeySearch, TellsThePagesOfAMasterAndGoesBySerialAfterwards) {
    SearchSite site;
    const PatternsRow group = site.Key(1, 106);
    ASSERT_EQ(group.Position, 106);
    const auto hit = site.search.FindByCuts(QString::fromStdString(PlainCuts(group.Cuts, 7)));
    ASSERT_TRUE(hit);
    EXPECT_TRUE(hit->IsLevelAbovePages());
    const auto pages = PagesOfLevel(site.session, *hit);
    ASSERT_TRUE(pages);
    const PageRange told = site.search.ReportMasterPages(*hit, {});
    EXPECT_EQ(told, *pages);
    EXPECT_EQ(site.session.hit.FoundCuts, hit->cuts);
    EXPECT_EQ(PageToShow(site.session, *hit), 1);

    KeyHit nowhere = *hit;
    nowhere.cuts = "9999999";
    EXPECT_EQ(site.search.ReportMasterPages(nowhere, {}), PageRange(99, 1));

    // A later row of an earlier serial number wins from now on.
    PatternsRow late = site.Key(5, 9);
    late.Description = "Twin";
    late.Serial = 0.5;
    Recordset<PatternsRow>::Update(site.session.Keys(), late);
    site.Describe(2, 3, "Twin");
    EXPECT_EQ(PlaceOf(site.search.FindByDescription("Twin")), Place(5, 9));
    EXPECT_EQ(PlaceOf(KeySearch(site.session).FindByDescription("Twin")), Place(2, 3));
}

TEST(KeySearch, ReachesAllPagesOfAGrandMasterOfSevenPins) {
    SearchSite site;
    const auto hit = site.search.FindByCuts("3951728");
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->position, 108);
    EXPECT_EQ(site.search.ReportMasterPages(*hit, {}), PageRange(hit->page, hit->page))
        << "as it has always been told";
    EXPECT_EQ(PagesOfLevel(site.session, *hit), PageRange(1, site.session.System.MaxPage));
}

TEST(KeySearch, RefinesDescriptionsByWords) {
    SearchSite site;
    site.Describe(1, 0, "Boiler room\r\nsouth");
    site.Describe(1, 1, "Boiler room\r\nsouth");
    site.Describe(1, 2, "Store  ");
    site.Describe(1, 3, "  hidden");
    const QStringList all = {"Boiler room  south", "Boiler room  south", "Store"};
    EXPECT_EQ(site.search.ListDescriptions(""), all);
    EXPECT_EQ(site.search.ListDescriptions(" store"), all) << "no word before a blank";
    EXPECT_EQ(site.search.ListDescriptions("SOUTH"), QStringList("Boiler room  south"));
    EXPECT_EQ(site.search.ListDescriptions("x  store"), QStringList()) << "two blanks end it";
    EXPECT_EQ(site.search.ListDescriptions("x store"), QStringList("Store"));
    const QString ten = QStringLiteral("x ").repeated(10);
    EXPECT_EQ(site.search.ListDescriptions(ten + "store"), QStringList("Store"));
    EXPECT_EQ(site.search.ListDescriptions("x " + ten + "store"), QStringList());
    EXPECT_EQ(PlaceOf(site.search.FindByDescription("Boiler")), Place(1, 0));
    EXPECT_FALSE(site.search.FindByDescription("boiler"));
}

TEST(SearchLists, ShowDoorsByEachColumnAndByDepartment) {
    SearchSite site(QStringLiteral("395172"));
    site.Name(1, 0, "A1");
    site.Name(1, 1, "A10");
    PatternsRow key = site.Key(1, 0);
    key.Department = QStringLiteral("O'BRIEN");
    Recordset<PatternsRow>::Update(site.session.Keys(), key);
    DoorsRow door = site.Door("North");
    door.CutsLabel = Padded("A1", 12);
    door.DoorLocation = "Cellar";
    Recordset<DoorsRow>::Update(site.session.Keys(), door);
    site.Save("South", "Hall");
    DepartmentRow department;
    department.Department = Padded("O'BRIEN", 34);
    site.Add(department);
    department.Department = "  HIDDEN";
    site.Add(department);

    const auto texts = [](const std::vector<DoorSearchLine>& lines) {
        QStringList all;
        for (const DoorSearchLine& line : lines)
            all += line.text;
        return all;
    };
    EXPECT_EQ(texts(SearchDoorsBy(site.session, DoorColumn::DoorID, "s")), QStringList("South"));
    EXPECT_EQ(texts(SearchDoorsBy(site.session, DoorColumn::Location, "CEL")),
              QStringList("Cellar  North"));
    EXPECT_EQ(texts(SearchDoorsBy(site.session, DoorColumn::Description, "h")),
              QStringList("Hall  South"));
    EXPECT_EQ(texts(DoorsByDepartment(site.session)),
              QStringList({Padded("O'BRIEN", 34), "  North  "}));
}

TEST(SearchLists, ShowWhoHoldsWhat) {
    SearchSite site(QStringLiteral("395172"));
    KeyUsersRow holder;
    holder.UserIDNumber = "7";
    holder.Lastname = "Marsh";
    holder.Firstname = "Edith";
    holder.Department = "OFFICE";
    site.Add(holder);
    UsertoUnitRow held;
    held.KeyID = Padded("A1", 12);
    held.UnitID = "5";
    held.UserID = "7";
    site.Add(held);
    qint64 number = 0;
    for (const auto& [keyID, unit] :
         {std::pair("A1", "5"), std::pair("A10", "5"), std::pair("B1", "5***LOST!"),
          std::pair("B1", "12***Returned!")}) {
        KeyUnitRow issued;
        issued.UnitIDNumber = ++number;
        issued.KeyID = Padded(QLatin1String(keyID), 12);
        issued.UnitID = QLatin1String(unit);
        site.Add(issued);
    }
    EXPECT_EQ(SearchHoldersBy(site.session, HolderColumn::UserID, "").at(0).line,
              "7 Marsh Edith - OFFICE");
    EXPECT_EQ(SearchHoldersBy(site.session, HolderColumn::LastName, "ma").at(0).line,
              "7 - Marsh Edith OFFICE");
    EXPECT_EQ(SearchHoldersBy(site.session, HolderColumn::FirstName, "E").at(0).line,
              "7 - Edith Marsh OFFICE");
    EXPECT_TRUE(SearchHoldersBy(site.session, HolderColumn::FirstName, "M").empty());
    const QString unit = Padded("A1", 12) + "  5";
    EXPECT_EQ(UnitsOfHolder(site.session, "7").at(0).text, unit);
    EXPECT_EQ(UnitsOfDepartment(site.session, "OFFICE  ").at(0).text, unit + " - 7 Marsh Edith");
    EXPECT_TRUE(UnitsOfDepartment(site.session, "OFF").empty());

    const KeysOfUnit found = FindKeysOfUnit(site.session, "5");
    EXPECT_EQ(found.keyIDs, QStringList({Padded("A1", 12), Padded("A10", 12)}));
    EXPECT_EQ(found.fates, QStringList("Unit 5 of B1 is recorded as lost"));
    EXPECT_EQ(HighestUnit(site.session), "5");
}

} // namespace
} // namespace quorrel::test
