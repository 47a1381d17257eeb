#include "reports/IssueByDepartment.h"
#include "reports/IssueByUser.h"
#include "reports/IssueChart.h"
#include "reports/ReportKeys.h"
#include "reports/ReportSite.h"

namespace quorrel::test {
namespace {

void FillBooks(ReportSite& site) {
    site.NameKey(0, "A1", "Boiler room\r\nand cellar");
    site.NameKey(4, "BM-of-a-name", kUnnamed);
    site.NameMaster("GM", "All of it");
    site.AddHolder("1041", "Marsh", "Edith", "STORES");
    site.AddHolder("1042", "Marsh", "Edith", "STORES");
    site.AddHolder("7", "", QString::fromUtf8("Zo\u00EB"), "OFFICE");
    site.AddHolder("8", "Nokeys", "Ann", "OFFICE");
    site.AddHolder("123456789012", QString(24, u'L'), QString(24, u'F'), "");
    site.AddUnit("A1", "1", "1041");
    site.AddUnit("A1", "2", "7", 0);
    site.AddUnit("A1", "3");
    site.AddUnit("BM-of-a-name", "12", "1041");
    site.AddUnit("GM", "A unit of twelve and more", "123456789012");
    site.AddUnit("Gone", "1", "1042");
}

QString ByUser(ReportSite& site, const std::vector<ReportEntry>& chosen) {
    const auto print = [&](Printer& printer) {
        EXPECT_TRUE(PrintIssueByUser(site.session, printer, site.head, chosen).isEmpty());
    };
    const QString text = site.Printed(print);
    EXPECT_EQ(site.Printed(print, kLetter), text) << "no paper is too small for it";
    return text;
}

TEST(IssueByUser, PrintsTheUnitsOfEachHolderAndTellsNamesakesApart) {
    ReportSite site;
    FillBooks(site);
    const auto all = ListReportHolders(site.session);
    ASSERT_EQ(all.size(), 5U);
    EXPECT_EQ(all[4].text, QString::fromUtf8("Zo\u00EB                     OFFICE"));
    ExpectGolden("issue-by-user", ByUser(site, all));
}

TEST(IssueByUser, NamesTheHolderAgainWhereAPageBegins) {
    // A rule and a line a unit: past 58 lines the next unit begins a page.
    for (const auto& [units, sheets] : {std::pair(58, 1), {59, 2}}) {
        ReportSite site;
        site.AddHolder("1041", "Marsh", "Edith");
        for (int unit = 0; unit < units; ++unit)
            site.AddUnit("A1", QString("U%1").arg(unit, 3, 10, QChar('0')), "1041");
        const QString text = ByUser(site, ListReportHolders(site.session));
        EXPECT_EQ(text.count("=== sheet"), sheets);
        EXPECT_EQ(text.count("    1041        Marsh Edith"), sheets);
        EXPECT_EQ(text.count(" U0"), units);
    }
}

TEST(IssueByDepartment, PrintsItsHoldersWithTheirUnitsAndWhatTheseOpen) {
    ReportSite site;
    FillBooks(site);
    const auto all = ListReportDepartments(site.session);
    EXPECT_EQ(all.size(), 2U);
    ExpectGolden("issue-by-department", site.Printed([&](Printer& printer) {
        PrintIssueByDepartment(site.session, printer, site.head,
                               {{0, "STORES", "STORES"}, {0, "EMPTY", "EMPTY"}, all[0]});
    }));
    for (const auto& [units, sheets] : {std::pair(54, 1), {55, 2}}) {
        ReportSite large;
        large.AddHolder("1041", "Marsh", "Edith", "STORES");
        for (int unit = 0; unit < units; ++unit)
            large.AddUnit("A1", QString("U%1").arg(unit, 3, 10, QChar('0')), "1041");
        const QString text = large.Printed([&](Printer& printer) {
            PrintIssueByDepartment(large.session, printer, large.head, {{0, "STORES", "STORES"}});
        });
        EXPECT_EQ(text.count("=== sheet"), sheets) << units;
        EXPECT_EQ(text.count("STORES . . . Continued"), sheets - 1);
        EXPECT_EQ(text.count("1041         Marsh Edith"), sheets);
        EXPECT_EQ(text.count(" - U0"), units);
    }
}

TEST(IssueChart, HasALineToSignOnForEachUnitAndASheetForEachKey) {
    ReportSite site;
    FillBooks(site);
    const auto charts = [&](const QStringList& keys) {
        const auto print = [&](Printer& printer) {
            const auto chosen = ReportSite::Choose(ListNamedKeys(site.session), keys);
            EXPECT_TRUE(PrintIssueCharts(site.session, printer, site.head, chosen).isEmpty());
        };
        const QString text = site.Printed(print);
        EXPECT_EQ(site.Printed(print, kLetter), text) << "no paper is too small for it";
        return text;
    };
    ExpectGolden("issue-chart", charts({"A1"}));
    EXPECT_EQ(charts({"GM", "BM-of-a-name"}).count("=== sheet"), 2);
    site.NameKey(1, "A2");
    EXPECT_EQ(charts({"A2"}).count(QString(96, ' ') + " |"), 27) << "no unit: a page to sign on";
    for (int unit = 4; unit <= 27; ++unit)
        site.AddUnit("A1", QString::number(unit));
    EXPECT_EQ(charts({"A1"}).count("=== sheet"), 1);
    site.AddUnit("A1", "28");
    EXPECT_EQ(charts({"A1"}).count("=== sheet"), 2);
    site.session.SessionPermissions.ReadPrintPinning = false;
    const QString hidden = charts({"A1", "GM"});
    EXPECT_TRUE(hidden.contains("********"));
    EXPECT_FALSE(hidden.contains("395172"));
}

} // namespace
} // namespace quorrel::test
