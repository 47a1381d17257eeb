#pragma once

#include "print/Printer.h"

#include <QDate>

namespace quorrel {

/// What the heads of all reports name.
struct ReportHead {
    QString ProgramTitle;
    QString SystemNameLabel;
    QDate date;
    Picture logo;
};

/// A date as reports print it: month, day and year, as in "03/15/2026".
QString ReportDate(const QDate& date);

/// A rule across a report: so many underscores.
QString Rule(int columns);

/// Two empty lines and the program's title, in the size that stands above all reports. Leaves that
/// size and bold type on.
void PrintProgramTitle(Printer& printer, const ReportHead& head);

} // namespace quorrel
