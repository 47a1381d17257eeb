#include "reports/SelectionReport.h"

#include "reports/DoorReports.h"
#include "reports/HardwareReport.h"
#include "reports/IssueByDepartment.h"
#include "reports/IssueByUser.h"
#include "reports/IssueChart.h"
#include "reports/PinningReport.h"
#include "reports/ReportKeys.h"

namespace quorrel {

namespace {

using Chosen = std::vector<ReportEntry>;

QString ReportText(const char* text) {
    return QString::fromLatin1(text);
}

SelectionReport NewReport(const char* form, const char* lists, const char* title,
                          const char* candidates) {
    SelectionReport report;
    report.form = ReportText(form);
    report.lists = ReportText(lists);
    report.title = ReportText(title);
    report.candidates = ReportText(candidates);
    return report;
}

SelectionReport HardwareTotals() {
    SelectionReport report =
        NewReport("frmPrintHardware", "Hardware", "Hardware Totals", "Hardware of the doors");
    report.asksCopies = true;
    report.list = ListReportHardware;
    report.about = [](Session& session, const ReportEntry& hardware) {
        return ReportText("Doors with this hardware: %1")
            .arg(CountDoorsWith(session, hardware.text));
    };
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const Chosen& chosen, bool) {
        PrintHardware(session, printer, head, chosen);
        return QStringList();
    };
    return report;
}

SelectionReport KeysByUsers() {
    SelectionReport report =
        NewReport("frmKeysbyUsers", "Users", "Key Issue by User Chart", "Key users");
    report.list = ListReportHolders;
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const Chosen& chosen,
                      bool) { return PrintIssueByUser(session, printer, head, chosen); };
    return report;
}

SelectionReport KeysByDepartment() {
    SelectionReport report = NewReport("frmKeysbyDepartment", "Departments",
                                       "Key Issue by Department Chart", "Departments");
    report.list = ListReportDepartments;
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const Chosen& chosen, bool) {
        PrintIssueByDepartment(session, printer, head, chosen);
        return QStringList();
    };
    return report;
}

SelectionReport OfKeys(const char* form, const char* title) {
    SelectionReport report = NewReport(form, "Keys", title, "Key IDs");
    report.list = ListNamedKeys;
    return report;
}

SelectionReport DoorsOfKeys(const char* form, const char* title, DoorsToList which) {
    SelectionReport report = OfKeys(form, title);
    report.print = [which](Session& session, Printer& printer, const ReportHead& head,
                           const Chosen& chosen,
                           bool) { return PrintDoorsByKey(session, printer, head, chosen, which); };
    return report;
}

SelectionReport IssueCharts() {
    SelectionReport report = OfKeys("frmPrintKeyPages", "Key Issue Chart");
    report.asksCopies = true;
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const Chosen& chosen,
                      bool) { return PrintIssueCharts(session, printer, head, chosen); };
    return report;
}

SelectionReport Pinning() {
    SelectionReport report = OfKeys("frmPrintPinning", "Pinning Charts");
    report.tellsOfPrinter = true;
    report.atMost = kMostPinnedKeys;
    report.option = ReportText("Add a page of what to take out of the pin &kit");
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const Chosen& chosen, bool pinKit) {
        return PrintPinningReport(session, printer, head, chosen, pinKit);
    };
    return report;
}

} // namespace

const std::vector<SelectionReport>& SelectionReports() {
    static const std::vector<SelectionReport> reports = {
        HardwareTotals(),
        KeysByUsers(),
        KeysByDepartment(),
        DoorsOfKeys("frmDoorsList", "Doors by Key", DoorsToList::All),
        DoorsOfKeys("frmUKDoorsList", "UnKeyed Doors", DoorsToList::Unkeyed),
        IssueCharts(),
        Pinning()};
    return reports;
}

} // namespace quorrel
