#include "reports/DoorReports.h"
#include "reports/ReportKeys.h"
#include "reports/ReportSite.h"

namespace quorrel::test {
namespace {

QString Doors(ReportSite& site, const QStringList& keys, DoorsToList which = DoorsToList::All,
              const Paper& paper = kA4) {
    const auto print = [&](Printer& printer) {
        const auto chosen = ReportSite::Choose(ListNamedKeys(site.session), keys);
        EXPECT_TRUE(PrintDoorsByKey(site.session, printer, site.head, chosen, which).isEmpty());
    };
    return site.Printed(print, paper);
}

/// A master over A1 and A2, the grand master, and doors.
void FillSite(ReportSite& site) {
    site.NameKey(0, "A1", "Boiler room\r\nand cellar, with a description that is long");
    site.NameKey(1, Padded("A2", 12), kUnnamed);
    site.NameKey(4, "BM", QString::fromUtf8("Caf\u00E9 \U0001F511 \u05D3\u05DC\u05EA"));
    site.NameKey(5, "A10", "Not of the block");
    site.NameMaster("GM", "All of it");
    site.AddKeyedDoor("101", "A1", "First\r\ndoor");
    site.AddKeyedDoor("A door of a long name", "A1", QString(60, u'd'), true);
    site.AddKeyedDoor("102", "A2", "Second", true, true);
    site.AddKeyedDoor("103", "A10", "Third");
    site.AddKeyedDoor("104", "", "Of no key");
}

TEST(DoorReports, ListTheDoorsOfEachKeyAndOfAllUnderAMaster) {
    ReportSite site;
    FillSite(site);
    ExpectGolden("doors", Doors(site, {"GM", "BM", "A1", "A2"}));
    ExpectGolden("unkeyed", Doors(site, {"BM", "A2", "A1"}, DoorsToList::Unkeyed));
}

TEST(DoorReports, BreakBeforeALineThatWouldGoBeyondTheLimit) {
    // Head and key take 9 lines, and 62 (61) are the most: one door more begins a page, below the
    // key's line once more.
    const auto lines = [](DoorsToList which, int doors) {
        ReportSite site;
        site.NameKey(0, "A1", "Key");
        for (int door = 0; door < doors; ++door)
            site.AddKeyedDoor(QString("D%1").arg(door, 3, 10, QChar('0')), "A1");
        const QString text = Doors(site, {"A1"}, which);
        EXPECT_EQ(Doors(site, {"A1"}, which, kLetter), text) << "no paper is too small for it";
        EXPECT_EQ(text.count("\n    D0"), doors) << "each door stands there once";
        EXPECT_EQ(text.count(" Cont\n") + text.count(" Cont |"), text.count("=== sheet") - 1);
        return text.count("=== sheet");
    };
    EXPECT_EQ(lines(DoorsToList::All, 53), 1);
    EXPECT_EQ(lines(DoorsToList::All, 54), 2);
    EXPECT_EQ(lines(DoorsToList::Unkeyed, 52), 1);
    EXPECT_EQ(lines(DoorsToList::Unkeyed, 53), 2);
}

TEST(DoorReports, PassOverKeysThatWereRenamedOrDeletedSinceTheyWereChosen) {
    ReportSite site;
    FillSite(site);
    auto chosen = ReportSite::Choose(ListNamedKeys(site.session), {"A1", "A2"});
    site.NameKey(0, "Other");
    QStringList passedOver;
    const QString text = site.Printed([&](Printer& printer) {
        passedOver = PrintDoorsByKey(site.session, printer, site.head, chosen, DoorsToList::All);
    });
    EXPECT_EQ(passedOver, QStringList("A1"));
    EXPECT_FALSE(text.contains("A1"));
    EXPECT_TRUE(text.contains("Doors for Key - A2"));
}

} // namespace
} // namespace quorrel::test
