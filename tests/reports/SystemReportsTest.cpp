#include "reports/CompleteChart.h"
#include "reports/KeyListReport.h"
#include "reports/PageViewReport.h"
#include "reports/ReportSite.h"

namespace quorrel::test {
namespace {

void NameSome(ReportSite& site) {
    site.NameKey(0, "A1", "Boiler room\r\nand cellar");
    site.NameKey(1, Padded("Twelve chars", 12), kUnnamed);
    site.NameKey(4, "BM", QString::fromUtf8("Caf\u00E9 \U0001F511 \u05D3\u05DC\u05EA"));
    site.NameKey(103, "CM", "A column");
    site.NameMaster("GM", "All of it");
    site.AddUnit("A1", "1");
    site.AddUnit("A1", "2***Returned!");
}

QString Chart(ReportSite& site, const ChartExtent& extent) {
    const auto print = [&](Printer& printer) {
        PrintCompleteChart(site.session, printer, site.head, extent);
    };
    const SheetNeeds needs = CompleteChartSheets(site.session);
    const QString text = site.Printed(print, kA4, needs);
    EXPECT_EQ(site.Printed(print, kLetter, needs), text) << "no paper is too small for it";
    return text;
}

TEST(CompleteChart, PrintsEveryCellOfAPageInTwoPartsAndTheMastersAbove) {
    ReportSite site;
    NameSome(site);
    ExpectGolden("complete-chart", Chart(site, {1, 1, true}));
}

TEST(CompleteChart, PrintsThePagesThatAreAskedForAndNoOthers) {
    ReportSite site;
    const int pages = HighestPage(site.session);
    ASSERT_GT(pages, 3);
    const QString text = Chart(site, {2, 3, false});
    EXPECT_EQ(text.count("=== sheet"), 4);
    EXPECT_TRUE(text.contains("  Part II - System Page Number 2"));
    EXPECT_FALSE(text.contains("System Page Number 1"));
    EXPECT_EQ(Chart(site, {pages, pages + 9, false}).count("=== sheet"), 2);
    EXPECT_EQ(CompleteChartSheetCount(site.session, {0, 0, false}), 2 * pages);
    site.session.SessionPermissions.ReadPrintPinning = false;
    const QString hidden = Chart(site, {1, 1, true});
    EXPECT_TRUE(hidden.contains("********"));
    EXPECT_FALSE(hidden.contains("395172"));
}

TEST(KeyList, CountsTheUnitsOfEachKey) {
    ReportSite site;
    NameSome(site);
    ExpectGolden("key-list", site.Printed([&](Printer& printer) {
        PrintKeyList(site.session, printer, site.head);
    }));
}

TEST(PageViewReport, ShowsThePageAndHowItsCylindersArePinned) {
    NewSystem core = StandardSystem("Pier", "27152");
    core.type = SystemType::ICCore23;
    core.special = QStringLiteral("38263");
    ReportSite site(core);
    NameSome(site);
    PageView page(site.session);
    page.LoadPageView();
    ExpectGolden("page-view", site.Printed([&](Printer& printer) {
        PrintPageView(site.session, printer, site.head, page);
    }));
    const QString pinning = site.Printed(
        [&](Printer& printer) { PrintPagePinning(site.session, printer, site.head, page); });
    EXPECT_EQ(pinning.count("=== sheet"), 2);
    ExpectGolden("page-pinning", pinning);
}

} // namespace
} // namespace quorrel::test
