#include "reports/ReportHead.h"

namespace quorrel {

namespace {

constexpr int kTitleSize = 15;
constexpr int kReportTitleSize = 11;

} // namespace

QString ReportDate(const QDate& date) {
    return date.toString(QStringLiteral("MM/dd/yyyy"));
}

QString Rule(int columns) {
    return QString(columns, u'_');
}

void PrintProgramTitle(Printer& printer, const ReportHead& head) {
    printer.FontBold = true;
    printer.FontSize = kTitleSize;
    printer.Print();
    printer.Print();
    printer.Print({Zone(2), "       ", head.ProgramTitle});
}

void PrintTitleBlock(Printer& printer, const ReportHead& head, const QString& title) {
    PrintProgramTitle(printer, head);
    printer.FontSize = kReportTitleSize;
    printer.Print({Zone(3), title});
    printer.Print({Zone(3), ReportDate(head.date)});
    printer.FontSize = 10;
    printer.FontBold = false;
    printer.Print({Zone(3), " ", Rule(76)});
    printer.PaintPicture(head.logo);
}

} // namespace quorrel
