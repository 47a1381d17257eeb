#include "reports/SelectionReport.h"

#include "reports/HardwareReport.h"

#include <QCoreApplication>

namespace quorrel {

namespace {

QString ReportText(const char* text) {
    return QCoreApplication::translate("SelectionReport", text);
}

QString Literal(const char* text) {
    return QString::fromLatin1(text);
}

SelectionReport HardwareTotals() {
    SelectionReport report;
    report.form = Literal("frmPrintHardware");
    report.lists = Literal("Hardware");
    report.title = ReportText("Hardware Totals");
    report.candidates = ReportText("Hardware of the doors");
    report.asksCopies = true;
    report.list = ListReportHardware;
    report.about = [](Session& session, const ReportEntry& hardware) {
        return ReportText("Doors with this hardware: %1")
            .arg(CountDoorsWith(session, hardware.text));
    };
    report.print = [](Session& session, Printer& printer, const ReportHead& head,
                      const std::vector<ReportEntry>& chosen, bool) {
        PrintHardware(session, printer, head, chosen);
        return QStringList();
    };
    return report;
}

} // namespace

const std::vector<SelectionReport>& SelectionReports() {
    static const std::vector<SelectionReport> reports = {HardwareTotals()};
    return reports;
}

} // namespace quorrel
