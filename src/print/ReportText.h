#pragma once

#include <QDate>
#include <QString>

namespace quorrel {

/// A date as reports print it: month, day and year, as in "03/15/2026".
QString ReportDate(const QDate& date);

/// A rule across a report: so many underscores.
QString Rule(int columns);

} // namespace quorrel
