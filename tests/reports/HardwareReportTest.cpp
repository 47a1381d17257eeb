#include "reports/HardwareReport.h"
#include "reports/ReportSite.h"

namespace quorrel::test {
namespace {

QString Hardware(ReportSite& site, const QStringList& chosen) {
    std::vector<ReportEntry> entries;
    for (const QString& text : chosen)
        entries.push_back({0, text, text});
    return site.Printed(
        [&](Printer& printer) { PrintHardware(site.session, printer, site.head, entries); });
}

TEST(HardwareReport, ListsTheDoorsOfEachHardwareByTheirLabels) {
    ReportSite site;
    site.AddDoor("Room 2", "Class room\r\nwith a second line", "Floor 1", "Mortice lock");
    site.AddDoor("Room 1", QString::fromUtf8("Caf\u00E9 \U0001F511 room"), "", "Mortice lock");
    site.AddDoor("Door with a very long label", "Hall", "Ground floor", "Mortice lock");
    site.AddDoor("Gate", "Outside", "Street", "Padlock");
    site.AddDoor("Shed", "", "", "Padlock 40");
    EXPECT_EQ(ListReportHardware(site.session),
              (std::vector<ReportEntry>{{0, "Mortice lock", "Mortice lock"},
                                        {0, "Padlock", "Padlock"},
                                        {0, "Padlock 40", "Padlock 40"}}));
    EXPECT_EQ(CountDoorsWith(site.session, "Mortice lock"), 3);
    ExpectGolden("hardware", Hardware(site, {"Mortice lock", "Padlock", "No such"}));
}

TEST(HardwareReport, BreaksOnlyBetweenDoorsPastItsLimit) {
    // A heading counts three lines and a door two: past 52 the next one begins a page.
    for (const auto& [doors, sheets] : {std::pair(25, 1), {26, 2}, {50, 2}, {51, 3}}) {
        ReportSite site;
        for (int door = 0; door < doors; ++door)
            site.AddDoor(QString("D%1").arg(door, 3), "", "", "Lock");
        const QString text = Hardware(site, {"Lock"});
        EXPECT_EQ(text.count("=== sheet"), sheets) << doors;
        EXPECT_EQ(text.count("Lock  continued."), sheets - 1);
        EXPECT_EQ(text.count("\n              D"), doors) << "each door stands there once";
    }
}

} // namespace
} // namespace quorrel::test
