#include "reports/ReportHead.h"

namespace quorrel {

namespace {

constexpr int kTitleSize = 15;

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

} // namespace quorrel
