#include "widgets/WindowPlace.h"

#include <QHeaderView>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QWindow>

#include <algorithm>

namespace quorrel {

namespace {

/// What a window manager puts around a window, at most. It is not known before the window shows.
constexpr QSize kFrame(12, 40);

QSize FreeRoom(const QWidget& window) {
    return window.screen()->availableSize() - kFrame;
}

QString Joined(const QList<int>& numbers) {
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(u',');
}

QList<int> Numbers(const QString& text) {
    QList<int> numbers;
    for (const QString& part : text.split(u',', Qt::SkipEmptyParts))
        numbers.append(part.toInt());
    return numbers;
}

QList<int> WidthsOf(const QHeaderView& columns) {
    QList<int> widths;
    for (int column = 0; column < columns.count(); ++column)
        widths.append(columns.sectionSize(column));
    return widths;
}

/// Calls `visit(name, splitter)` or `visit(name, columns)` for each part that the user can set.
template <class Visit>
void ForParts(const QWidget& window, Visit&& visit) {
    for (auto* splitter : window.findChildren<QSplitter*>())
        visit(splitter->objectName(), *splitter);
    for (auto* columns : window.findChildren<QHeaderView*>())
        if (columns->orientation() == Qt::Horizontal && columns->parent())
            visit(columns->parent()->objectName(), *columns);
}

void SetPart(QSplitter& splitter, const QList<int>& sizes) {
    if (sizes.size() == splitter.count())
        splitter.setSizes(sizes);
}

void SetPart(QHeaderView& columns, const QList<int>& widths) {
    if (widths.size() != columns.count())
        return;
    for (int column = 0; column < columns.count(); ++column)
        if (const int width = widths[column]; width > 0)
            columns.resizeSection(column, width);
}

QList<int> PartOf(const QSplitter& splitter) {
    return splitter.sizes();
}
QList<int> PartOf(const QHeaderView& columns) {
    return WidthsOf(columns);
}

} // namespace

QString PlaceOf(const QWidget& window) {
    const bool maximised = window.isMaximized();
    const QRect normal = maximised ? window.normalGeometry() : window.geometry();
    QStringList parts = {
        Joined({window.x(), window.y(), normal.width(), normal.height(), maximised ? 1 : 0})};
    ForParts(window, [&](const QString& name, const auto& part) {
        parts.append(name + u'=' + Joined(PartOf(part)));
    });
    return parts.join(u';');
}

void PlaceWindow(QWidget& window, const QString& place, const std::pair<double, double>& share) {
    const QRect free = window.screen()->availableGeometry();
    const QSize room = FreeRoom(window);
    const QStringList parts = place.split(u';');
    const QList<int> stored = Numbers(parts.first());
    const bool known = stored.size() == 5 && stored[2] > 0 && stored[3] > 0;
    const QSize wanted = known ? QSize(stored[2], stored[3]) : window.size();
    const QSize size = wanted.expandedTo(window.minimumSizeHint()).boundedTo(room);
    const QSize left = free.size() - size - kFrame;
    const QPoint corner =
        known ? QPoint(stored[0], stored[1])
              : free.topLeft() + QPoint(static_cast<int>(left.width() * share.first),
                                        static_cast<int>(left.height() * share.second));
    window.resize(size);
    const QPoint goal(std::clamp(corner.x(), free.x(), free.x() + std::max(0, left.width())),
                      std::clamp(corner.y(), free.y(), free.y() + std::max(0, left.height())));
    window.move(goal);
    // A window that is being shown has no frame yet that it could count.
    if (QWindow* handle = window.windowHandle())
        handle->setFramePosition(goal);
    ForParts(window, [&](const QString& name, auto& part) {
        for (const QString& text : parts.mid(1))
            if (text.startsWith(name + u'='))
                SetPart(part, Numbers(text.mid(name.size() + 1)));
    });
    if (known && stored[4] == 1)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void FitIntoScreen(QWidget& window) {
    window.ensurePolished();
    const QSize needed = window.minimumSizeHint();
    const QSize room = FreeRoom(window);
    if (needed.width() <= room.width() && needed.height() <= room.height())
        return;
    QWidget* const focus = window.focusWidget();
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    if (auto* main = qobject_cast<QMainWindow*>(&window)) {
        area->setWidget(main->takeCentralWidget());
        main->setCentralWidget(area);
    } else {
        auto* content = new QWidget;
        content->setLayout(window.layout()); // and with it all that is in it
        area->setWidget(content);
        auto* around = new QVBoxLayout(&window);
        around->setContentsMargins(0, 0, 0, 0);
        around->addWidget(area);
    }
    window.setMinimumSize(0, 0);
    if (focus) // Moving house, the controls have lost it.
        focus->setFocus();
}

} // namespace quorrel
