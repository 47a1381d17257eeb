#pragma once

#include "print/Printer.h"
#include "print/ReportText.h"

#include <QDate>

namespace quorrel {

/// What the heads of all reports name.
struct ReportHead {
    QString ProgramTitle;
    QString SystemNameLabel;
    QDate date;
    Picture logo;
};

/// Two empty lines and the program's title, in the size that stands above all reports. Leaves that
/// size and bold type on.
void PrintProgramTitle(Printer& printer, const ReportHead& head);

/// The rest of a head below two empty lines: the program's title, the report's own, the date with
/// what stands behind it, a rule of 76 underscores, and the logo. Leaves plain type of 10 points
/// on.
void PrintTitleLines(Printer& printer, const ReportHead& head, const QString& title,
                     const QString& behindDate = {});

/// The block that begins each page of most reports: the program's title, the report's own, the
/// date, a rule of 76 underscores, and the logo. Leaves plain type of 10 points on.
void PrintTitleBlock(Printer& printer, const ReportHead& head, const QString& title);

} // namespace quorrel
