#pragma once

#include "page/KeySelection.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PagePanel;
}

namespace quorrel {

/// The page view with the bar that turns the pages. It has all the room there is: in the compact
/// layout the whole page stands in it, in the large one no key becomes smaller than is comfortable
/// to look at, and the page scrolls where there is no room for that.
class PagePanel : public QWidget {
    Q_OBJECT

public:
    explicit PagePanel(QWidget* parent = nullptr);
    ~PagePanel() override;

    void SetPages(int pages);

    /// Sets the bar and the number to a page, without a signal.
    void ShowPage(int page);

    /// Shows what each cell is to the selected one.
    void PaintCells(const PageView& page, const KeySelection& selection);

    void SetCompactLayout();
    void SetLargeLayout();
    bool IsLarge() const { return m_cellIconSize == 1; }

    /// Width that the large layout needs so that nothing of a row is hidden, in pixels.
    int LargeWidth() const;

    void StepPage(int pages);

    /// Moves the focus to the cells.
    void FocusCells();
    bool BarHasFocus() const;
    void FocusBar();
    bool CellsHaveFocus() const;

signals:
    void CellClicked(int cell);
    /// The user wants a page. Until `ShowPage` is called the bar and the number are ahead of the
    /// cells.
    void PageWanted(int page);
    /// The bar is being dragged: nothing is to be read yet.
    void PageDragged(int page);
    /// The number of the page has been clicked.
    void NumberClicked();
    /// One of the two buttons that change between the layouts has been clicked.
    void LayoutToggled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<Ui::PagePanel> ui;
    int m_cellIconSize = 0; ///< 0 compact, 1 large
};

} // namespace quorrel
