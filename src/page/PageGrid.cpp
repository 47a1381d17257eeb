#include "page/PageGrid.h"

#include "engine/CellStates.h"
#include "page/KeyCell.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorrel {

namespace {

/// The least pixels a twip: the keys of the compact layout can still be told apart then, those of
/// the large one are comfortable to look at.
constexpr double kLeastCompactScale = 0.1;
constexpr double kLeastLargeScale = 0.12;

/// The place of the card under a block, the cells of one column and group.
QRectF CardPlace(PageLayout layout, int column, int group) {
    const int first = 20 * column + 5 * group;
    // In the column of the line masters the fifth cell is the area master, which stands elsewhere.
    const int last = first + (column < 4 ? 4 : 3);
    const QRectF cell = CellPlace(layout, first);
    const double aside = 0.14 * cell.width();
    const double above = 0.2 * cell.height();
    return cell.united(CellPlace(layout, last)).adjusted(-aside, -above, aside, above);
}

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

QSize PageGrid::LeastSize(PageLayout layout) {
    const double scale = layout == PageLayout::Compact ? kLeastCompactScale : kLeastLargeScale;
    return (PageFrameSize(layout) * scale).toSize();
}

void PageGrid::showEvent(QShowEvent*) {
    // The form's own tab order has left the cells at its end, away from the grid.
    QWidget* before = this;
    for (KeyCell* cell : m_cells) {
        setTabOrder(before, cell);
        before = cell;
    }
}

void PageGrid::resizeEvent(QResizeEvent*) {
    PlaceCells();
}

QTransform PageGrid::Placing() const {
    const QSizeF frame = PageFrameSize(m_layout);
    const double scale = std::min(width() / frame.width(), height() / frame.height());
    return QTransform::fromScale(scale, scale) *
           QTransform::fromTranslate((width() - frame.width() * scale) / 2, 0);
}

void PageGrid::PlaceCells() {
    const QTransform placing = Placing();
    for (KeyCell* cell : m_cells)
        cell->setGeometry(placing.mapRect(CellPlace(m_layout, cell->Index())).toRect());
    update();
}

/// Lays a card under each block, so that the eye finds the four by four blocks of the page.
void PageGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.14F);
    painter.setPen(edge);
    const QTransform placing = Placing();
    for (int column = 0; column < 5; ++column) {
        QColor card = palette().color(QPalette::Base);
        card.setAlphaF(column < 4 ? 1.0F : 0.5F);
        painter.setBrush(card);
        for (int group = 0; group < 4; ++group) {
            const QRectF place = placing.mapRect(CardPlace(m_layout, column, group));
            painter.drawRoundedRect(QRectF(place.toRect()).translated(0.5, 0.5), 4, 4);
        }
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

/// Whoever leaves a cell with the tab key leaves the grid.
bool PageGrid::focusNextPrevChild(bool next) {
    // The grid itself is no stop on the way back: it would hand the focus to the cell again.
    setFocusPolicy(Qt::NoFocus);
    const bool moved = QWidget::focusNextPrevChild(next);
    setFocusPolicy(Qt::TabFocus);
    return moved;
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
    if (!to || event->key() < Qt::Key_Left || event->key() > Qt::Key_Down) {
        QWidget::keyPressEvent(event);
        return;
    }
    to->setFocus();
    emit CellEntered(to);
}

} // namespace quorrel
