#pragma once

#include <QString>

#include <utility>

class QWidget;

namespace quorrel {

/// Where and how large a window is, and how its splitters and columns are set, as one line of
/// text. Empty for a window that has never been shown.
QString PlaceOf(const QWidget& window);

/// Puts a window where a line says; without one, with these shares of the free room to its left
/// and above it. It lies wholly on the screen in either case, its frame counted.
void PlaceWindow(QWidget& window, const QString& place, const std::pair<double, double>& share);

/// Lets a window that needs more room than the screen has scroll what it holds.
void FitIntoScreen(QWidget& window);

} // namespace quorrel
