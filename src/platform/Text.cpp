#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorrel {

namespace {

/// Characters of the number that leads a text: digits with a point at most, and an exponent.
qsizetype LeadingNumber(const QString& text) {
    qsizetype at = 0;
    const auto takes = [&](auto&& fits) {
        const bool taken = at < text.size() && fits(text[at]);
        at += taken ? 1 : 0;
        return taken;
    };
    const auto digits = [&] {
        const qsizetype first = at;
        while (takes([](QChar c) { return c >= u'0' && c <= u'9'; })) {
        }
        return at - first;
    };
    const auto sign = [](QChar c) { return c == u'+' || c == u'-'; };
    takes(sign);
    qsizetype found = digits();
    if (takes([](QChar c) { return c == u'.'; }))
        found += digits();
    if (found == 0)
        return 0;
    const qsizetype mantissa = at;
    if (takes([](QChar c) { return c == u'e' || c == u'E'; })) {
        takes(sign);
        if (digits() == 0)
            return mantissa;
    }
    return at;
}

} // namespace

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
    QString packed = text;
    packed.removeIf([](QChar c) { return c == u' ' || c == u'\t' || c == u'\n'; });
    const double value = packed.left(LeadingNumber(packed)).toDouble();
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

qsizetype TrimmedSize(QStringView text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return end;
}

QString RightTrimmed(const QString& text) {
    return text.left(TrimmedSize(text));
}

QString WithoutLastLineEnds(QString text) {
    while (!text.isEmpty() && (text.back() == u'\n' || text.back() == u'\r'))
        text.chop(1);
    return text;
}

QString OneLine(QString text) {
    const auto ends = [](QChar c) {
        return c == u'\r' || c == u'\n' || c == u'\u2028' || c == u'\u2029';
    };
    if (std::none_of(text.cbegin(), text.cend(), ends))
        return text;
    const QString blanks(2, u' ');
    text.replace(QLatin1String("\r\n"), blanks);
    for (const char16_t end : {u'\r', u'\n', u'\u2028', u'\u2029'})
        text.replace(QString(QChar(end)), blanks);
    return text;
}

QString Named(const QString& text) {
    constexpr int mostCharacters = 80;
    const QString shown = OneLine(text.left(mostCharacters));
    return text.size() > mostCharacters ? shown + u'\u2026' : RightTrimmed(shown);
}

bool IsBlank(const QString& text) {
    return TrimmedSize(text) == 0;
}

bool BeginsWith(const QString& text, const QString& capitals) {
    return text.left(capitals.size()).toUpper() == capitals;
}

bool IsNoValue(const QString& text) {
    return text.isEmpty() || text.startsWith(QLatin1String("  "));
}

} // namespace quorrel
