#pragma once

#include "engine/PageGeometry.h"
#include "page/CellLayout.h"

#include <QTransform>
#include <QWidget>

#include <array>

namespace quorrel {

class KeyCell;

/// The 109 cells of the page view. Arrow keys move between them; Enter or Space clicks.
class PageGrid : public QWidget {
    Q_OBJECT

public:
    explicit PageGrid(QWidget* parent = nullptr);

    KeyCell& Cell(int index) { return *m_cells.at(static_cast<std::size_t>(index)); }

    /// Places the cells by the figures of a layout, in proportion to the room there is.
    void SetLayout(PageLayout layout);

    /// The least size of the grid in a layout, in pixels.
    static QSize LeastSize(PageLayout layout);

    QSize sizeHint() const override { return LeastSize(m_layout); }
    QSize minimumSizeHint() const override { return LeastSize(m_layout); }

signals:
    void CellClicked(int index);
    /// The focus has been moved to a cell by the keyboard.
    void CellEntered(QWidget* cell);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// How the figures of the layout come onto the widget.
    QTransform Placing() const;
    void PlaceCells();
    KeyCell* Neighbour(const KeyCell& from, int key) const;

    std::array<KeyCell*, kAllCells> m_cells{};
    PageLayout m_layout = PageLayout::Compact;
};

} // namespace quorrel
