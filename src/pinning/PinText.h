#pragma once

#include "engine/PinStack.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// Steps of a control or driver pin as charts write them.
QString PinFigure(int steps);

/// From which end of the key the chambers of a cylinder count: "bow" or "tip".
QString FirstEnd(const Cylinder& cylinder);

/// Chambers by their 1-based places, as in "Chamber 3" or "Chambers 1, 3 and 4"; empty for none.
QString NameChambers(const std::vector<int>& chambers);

/// What the drawing of a cylinder shows, in words, a chamber a line.
QStringList DescribeCylinder(const Cylinder& cylinder);

/// What may go wrong with the cylinder, a line each.
QStringList DescribeFlaws(const Cylinder& cylinder);

/// What is as it should be and yet worth knowing, a line each.
QStringList DescribeNotes(const Cylinder& cylinder);

} // namespace quorrel
