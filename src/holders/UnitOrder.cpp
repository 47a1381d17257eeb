#include "holders/UnitOrder.h"

#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace quorrel {

namespace {

struct Unit {
    QString text;
    int value;
};

int WholeValue(const QString& text) {
    return static_cast<int>(std::nearbyint(std::clamp(Val(text), -2e9, 2e9)));
}

/// True when sorting by number alone gives what exchanging one by one gives.
bool NumberedApart(const std::vector<Unit>& units) {
    std::set<int> values;
    return std::all_of(units.begin(), units.end(), [&](const Unit& unit) {
        return unit.value > 0 && values.insert(unit.value).second;
    });
}

void SortByNumber(std::vector<Unit>& units) {
    std::sort(units.begin(), units.end(),
              [](const Unit& one, const Unit& other) { return one.value < other.value; });
}

/// The order that users know: it comes of exchanging one by one, which decides where units with
/// the same number, and those without, end up.
void Exchange(std::vector<Unit>& units) {
    for (std::size_t i = 0; i + 1 < units.size(); ++i)
        for (std::size_t j = i + 1; j < units.size(); ++j) {
            const bool lower = units[j].value != 0 && units[j].value < units[i].value;
            const bool neither = units[i].value == 0 && units[j].value == 0;
            if (lower || (neither && units[i + 1].text < units[i].text))
                std::swap(units[i], units[j]);
        }
}

/// As `Exchange` for held units. False when a unit without number was met.
bool ExchangeHeld(std::vector<Unit>& units) {
    for (std::size_t i = 0; i + 1 < units.size(); ++i) {
        if (units[i].value == 0)
            return false;
        for (std::size_t j = i + 1; j < units.size(); ++j)
            if (units[j].value < units[i].value)
                std::swap(units[i], units[j]);
    }
    return true;
}

template <class ValueOf>
std::vector<Unit> UnitsOf(const QStringList& texts, ValueOf&& valueOf) {
    std::vector<Unit> units;
    units.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString& text : texts)
        units.push_back({text, valueOf(text)});
    return units;
}

QStringList TextsOf(const std::vector<Unit>& units) {
    QStringList texts;
    for (const Unit& unit : units)
        texts.append(unit.text);
    return texts;
}

} // namespace

void SortUnits(QStringList& texts) {
    auto units = UnitsOf(texts, WholeValue);
    if (NumberedApart(units))
        SortByNumber(units);
    else
        Exchange(units);
    texts = TextsOf(units);
}

void SortHeldUnits(QStringList& lines) {
    auto units = UnitsOf(
        lines, [](const QString& line) { return WholeValue(line.left(line.indexOf(u' '))); });
    if (NumberedApart(units))
        SortByNumber(units);
    else if (!ExchangeHeld(units))
        return;
    lines = TextsOf(units);
}

} // namespace quorrel
