#pragma once

#include <QStringList>

namespace quorrel {

/// Orders units by the numbers that lead their texts. Numbered units come in the order of their
/// numbers; units without number stay where the numbered ones leave them.
void SortUnits(QStringList& units);

/// Orders lines of held units by the number before their first blank. A unit without number that
/// is met on the way leaves the lines as they were.
void SortHeldUnits(QStringList& lines);

} // namespace quorrel
