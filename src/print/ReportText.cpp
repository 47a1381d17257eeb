#include "print/ReportText.h"

namespace quorrel {

QString ReportDate(const QDate& date) {
    return date.toString(QStringLiteral("MM/dd/yyyy"));
}

QString Rule(int columns) {
    return QString(columns, u'_');
}

} // namespace quorrel
