#include "page/PageGrid.h"

#include "engine/CellStates.h"
#include "page/KeyCell.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorrel {

namespace {

/// Pixels a twip: the least, and the most in the compact layout, which stays a compact one.
constexpr double kLeastScale = 0.1;
constexpr double kMostCompactScale = 0.15;

} // namespace

PageGrid::PageGrid(QWidget* parent) : QWidget(parent) {
    for (int index = 0; index < kAllCells; ++index) {
        auto* cell = new KeyCell(index, this);
        m_cells[static_cast<std::size_t>(index)] = cell;
        connect(cell, &KeyCell::clicked, this, [this, index] { emit CellClicked(index); });
    }
    // One stop for the tab key: the arrows move on from there.
    for (KeyCell* cell : m_cells)
        cell->setFocusPolicy(Qt::ClickFocus);
    setFocusPolicy(Qt::TabFocus);
}

void PageGrid::SetLayout(PageLayout layout) {
    m_layout = layout;
    updateGeometry();
    PlaceCells();
}

QSize PageGrid::sizeHint() const {
    return (PageFrameSize(m_layout) * kLeastScale).toSize();
}

void PageGrid::resizeEvent(QResizeEvent*) {
    PlaceCells();
}

void PageGrid::PlaceCells() {
    const QSizeF frame = PageFrameSize(m_layout);
    double scale = std::min(width() / frame.width(), height() / frame.height());
    if (m_layout == PageLayout::Compact)
        scale = std::min(scale, kMostCompactScale);
    const QPointF origin((width() - frame.width() * scale) / 2, 0);
    for (KeyCell* cell : m_cells) {
        const QRectF place = CellPlace(m_layout, cell->Index());
        cell->setGeometry(QRectF(origin + place.topLeft() * scale, place.size() * scale).toRect());
    }
}

void PageGrid::focusInEvent(QFocusEvent*) {
    const auto selected = std::find_if(m_cells.begin(), m_cells.end(), [](const KeyCell* cell) {
        return cell->ShownState() % 10 == cellstate::kActive && cell->isEnabled();
    });
    const auto first = selected != m_cells.end()
                           ? selected
                           : std::find_if(m_cells.begin(), m_cells.end(),
                                          [](const KeyCell* cell) { return cell->isEnabled(); });
    if (first != m_cells.end())
        (*first)->setFocus();
}

KeyCell* PageGrid::Neighbour(const KeyCell& from, int key) const {
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int sign = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    const QPointF start = CellPlace(m_layout, from.Index()).center();
    KeyCell* nearest = nullptr;
    double least = std::numeric_limits<double>::max();
    for (KeyCell* cell : m_cells) {
        const QPointF way = CellPlace(m_layout, cell->Index()).center() - start;
        const double ahead = sign * (sideways ? way.x() : way.y());
        const double aside = std::abs(sideways ? way.y() : way.x());
        if (!cell->isEnabled() || ahead < 20)
            continue;
        // What lies straight ahead comes before what lies nearer but aside.
        const double distance = ahead + 4 * aside;
        if (distance < least) {
            least = distance;
            nearest = cell;
        }
    }
    return nearest;
}

void PageGrid::keyPressEvent(QKeyEvent* event) {
    const auto* from = qobject_cast<KeyCell*>(focusWidget());
    KeyCell* to = from ? Neighbour(*from, event->key()) : nullptr;
    if (to && event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down)
        to->setFocus();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quorrel
