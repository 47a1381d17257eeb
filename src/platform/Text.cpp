#include "platform/Text.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorrel {

QString Left(const QString& text, int count) {
    return text.left(std::max(count, 0));
}

QString Right(const QString& text, int count) {
    return text.right(std::max(count, 0));
}

QString Mid(const QString& text, int place, int count) {
    return text.mid(place - 1, count);
}

double Val(const QString& text) {
    static const QRegularExpression number(
        QStringLiteral(R"(^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?)"));
    QString packed = text;
    packed.remove(QRegularExpression(QStringLiteral("[ \\t\\n]")));
    const double value = number.match(packed).captured().toDouble();
    return std::isfinite(value) ? value : 0;
}

int IntVal(const QString& text) {
    constexpr double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::floor(Val(text)), -limit, limit));
}

QString Str(double number) {
    QString text = QString::number(std::abs(number), 'g', 15);
    if (text.startsWith(QLatin1String("0.")))
        text.remove(0, 1);
    return (number < 0 ? u'-' : u' ') + text;
}

QString Padded(const QString& text, int width) {
    return text.leftJustified(width, u' ', true);
}

QString RightTrimmed(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.left(end);
}

bool IsNoValue(const QString& text) {
    return text.isEmpty() || text.startsWith(QLatin1String("  "));
}

} // namespace quorrel
