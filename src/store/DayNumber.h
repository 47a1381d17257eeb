#pragma once

#include <QDate>
#include <QString>

namespace quorrel {

/// A day as it is stored in a number: the decimal yyyymmdd.
inline int DayNumber(const QDate& day) {
    return day.year() * 10000 + day.month() * 100 + day.day();
}

/// A stored day as month/day/year.
inline QString DayText(int number) {
    const QString digits = QString::number(number);
    return digits.mid(4, 2) + u'/' + digits.right(2) + u'/' + digits.left(4);
}

} // namespace quorrel
