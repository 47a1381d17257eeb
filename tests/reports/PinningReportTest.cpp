#include "reports/PinningReport.h"
#include "pinning/PinSizes.h"
#include "reports/ReportKeys.h"
#include "reports/ReportSite.h"

namespace quorrel::test {
namespace {

NewSystem CoreSystem() {
    NewSystem system = StandardSystem("Pier", "2715208");
    system.type = SystemType::ICCore23;
    system.special = QStringLiteral("3826319");
    system.lockBrand = QStringLiteral("Brand");
    return system;
}

QString Pinning(ReportSite& site, const QStringList& keys, bool kit = false) {
    const auto print = [&](Printer& printer) {
        const auto chosen = ReportSite::Choose(ListNamedKeys(site.session), keys);
        EXPECT_TRUE(PrintPinningReport(site.session, printer, site.head, chosen, kit).isEmpty());
    };
    const QString text = site.Printed(print);
    EXPECT_EQ(site.Printed(print, kLetter), text) << "no paper is too small for it";
    return text;
}

/// Gives the brand of a system all sizes but one.
void AddSizes(ReportSite& site) {
    auto brand = FindOrAddLockBrand(site.session, "Brand");
    PinSizes sizes;
    for (int step = 0; step < 10; ++step) {
        sizes.bottom[static_cast<std::size_t>(step)] = QString(".%1").arg(150 + 15 * step);
        sizes.top[static_cast<std::size_t>(step)] =
            QString(".%1").arg(15 * step, 3, 10, QChar('0'));
    }
    sizes.bottom[1].clear();
    SavePinSizes(site.session, brand, sizes);
}

TEST(PinningReport, ShowsThePinsOfThreeKeysBesideOneAnotherBelowTheirTotals) {
    ReportSite site;
    site.NameKey(0, "A1", "Boiler room\r\nand cellar, and more");
    site.NameKey(1, "A2", "Office");
    site.NameKey(2, "Twelve chars", QString::fromUtf8("Caf\u00E9"));
    site.NameKey(3, "A4");
    ExpectGolden("pinning", Pinning(site, {"A1", "A2", "Twelve chars", "A4"}));
    site.session.SessionPermissions.ReadPrintPinning = false;
    const QString hidden = Pinning(site, {"A1"});
    EXPECT_TRUE(hidden.contains("A1           ********"));
    EXPECT_TRUE(hidden.contains("_T____ 0_____ 0_____"));
}

TEST(PinningReport, OfACoreHasItsControlAndDriverPinsAndAPageForThePinKit) {
    ReportSite site(CoreSystem());
    AddSizes(site);
    site.NameKey(0, "A1", "Boiler room");
    site.NameKey(63, "A64", "Attic");
    ExpectGolden("pinning-core", Pinning(site, {"A1", "A64"}, true));
}

TEST(PinningReport, BreaksBehindABlockThatPassesItsLimit) {
    // A block takes 6 lines and a head 14: the eighth block passes 58.
    for (const auto& [keys, sheets] : {std::pair(24, 1), {25, 2}, {48, 2}, {49, 3}}) {
        ReportSite site;
        QStringList names;
        for (int key = 0; key < keys; ++key) {
            names += QString("K%1").arg(key, 3, 10, QChar('0'));
            site.NameKey(key, names.last());
        }
        const QString text = Pinning(site, names);
        EXPECT_EQ(text.count("=== sheet"), sheets) << keys;
        EXPECT_TRUE(text.contains(QString("Page #%1").arg(sheets)));
        EXPECT_EQ(text.count("Page #"), sheets);
    }
}

} // namespace
} // namespace quorrel::test
