#include "page/PagePanel.h"

#include "page/KeyCell.h"
#include "ui_PagePanel.h"

#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>

namespace quorrel {

PagePanel::PagePanel(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::PagePanel>()) {
    ui->setupUi(this);
    connect(ui->grdPage, &PageGrid::CellClicked, this, &PagePanel::CellClicked);
    connect(ui->grdPage, &PageGrid::CellEntered, this,
            [this](QWidget* cell) { ui->scrGrid->ensureWidgetVisible(cell); });
    connect(ui->scrlPage, &QScrollBar::valueChanged, this, &PagePanel::PageWanted);
    connect(ui->scrlPage, &QScrollBar::sliderMoved, this, [this](int page) {
        ui->lblCurrentPage->setText(QString::number(page));
        emit PageDragged(page);
    });
    // While the slider is dragged only the number moves; the page is read when it is let go.
    ui->scrlPage->setTracking(false);
    for (QToolButton* button : {ui->Picture1_0, ui->Picture1_1})
        connect(button, &QToolButton::clicked, this, &PagePanel::LayoutToggled);
    ui->lblCurrentPage->installEventFilter(this);
    // In the compact layout no part of the page is ever hidden at its side.
    ui->scrGrid->setMinimumWidth(PageGrid::LeastSize(PageLayout::Compact).width());
    SetCompactLayout();
}

PagePanel::~PagePanel() = default;

bool PagePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress)
        emit NumberClicked();
    return QWidget::eventFilter(watched, event);
}

void PagePanel::SetPages(int pages) {
    ui->lblMaxPage->setText(QString::number(pages));
    const QSignalBlocker blocker(ui->scrlPage);
    ui->scrlPage->setRange(1, std::max(1, pages));
}

void PagePanel::ShowPage(int page) {
    ui->lblCurrentPage->setText(QString::number(page));
    const QSignalBlocker blocker(ui->scrlPage);
    ui->scrlPage->setValue(page);
}

void PagePanel::PaintCells(const PageView& page, const KeySelection& selection) {
    for (int index = 0; index < kAllCells; ++index) {
        KeyCell& cell = ui->grdPage->Cell(index);
        const PageCell& content = page.Cell(index);
        cell.ShowState(selection.states[static_cast<std::size_t>(index)]);
        cell.setEnabled(!content.IsBlank());
        cell.setToolTip(content.toolTip);
        cell.setAccessibleName(DescribeCell(page, index, cell.ShownState()));
    }
    ui->scrGrid->ensureWidgetVisible(&ui->grdPage->Cell(selection.cell));
}

void PagePanel::SetCompactLayout() {
    ui->grdPage->SetLayout(PageLayout::Compact);
    ui->Picture1_0->setVisible(true);
    ui->Picture1_1->setVisible(false);
    m_cellIconSize = 0;
}

void PagePanel::SetLargeLayout() {
    ui->grdPage->SetLayout(PageLayout::Large);
    ui->Picture1_0->setVisible(false);
    ui->Picture1_1->setVisible(true);
    m_cellIconSize = 1;
}

int PagePanel::LargeWidth() const {
    const int around = width() - ui->scrGrid->viewport()->width();
    return PageGrid::LeastSize(PageLayout::Large).width() + around +
           style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void PagePanel::StepPage(int pages) {
    ui->scrlPage->setValue(ui->scrlPage->value() + pages);
}

void PagePanel::FocusCells() {
    ui->grdPage->setFocus();
}

bool PagePanel::CellsHaveFocus() const {
    return ui->grdPage->isAncestorOf(window()->focusWidget());
}

bool PagePanel::BarHasFocus() const {
    return ui->scrlPage->hasFocus();
}

void PagePanel::FocusBar() {
    ui->scrlPage->setFocus();
}

} // namespace quorrel
