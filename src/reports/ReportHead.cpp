#include "reports/ReportHead.h"

namespace quorrel {

namespace {

constexpr int kTitleSize = 15;
constexpr int kReportTitleSize = 11;

/// Two empty lines in the size of the program's title.
void BeginHead(Printer& printer) {
    printer.FontBold = true;
    printer.FontSize = kTitleSize;
    printer.Print();
    printer.Print();
}

} // namespace

void PrintProgramTitle(Printer& printer, const ReportHead& head) {
    BeginHead(printer);
    printer.Print({Zone(2), "       ", head.ProgramTitle});
}

void PrintTitleLines(Printer& printer, const ReportHead& head, const QString& title,
                     const QString& behindDate) {
    printer.FontSize = kTitleSize;
    printer.Print({Zone(2), "       ", head.ProgramTitle});
    printer.FontSize = kReportTitleSize;
    printer.Print({Zone(3), title});
    printer.Print({Zone(3), ReportDate(head.date), behindDate});
    printer.FontSize = 10;
    printer.FontBold = false;
    printer.Print({Zone(3), " ", Rule(76)});
    printer.PaintPicture(head.logo);
}

void PrintTitleBlock(Printer& printer, const ReportHead& head, const QString& title) {
    BeginHead(printer);
    PrintTitleLines(printer, head, title);
}

} // namespace quorrel
