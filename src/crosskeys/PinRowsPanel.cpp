#include "crosskeys/PinRowsPanel.h"

#include "ui_PinRowsPanel.h"

#include <QFontDatabase>

namespace quorrel {

PinRowsPanel::PinRowsPanel(QWidget* parent)
    : QGroupBox(parent), ui(std::make_unique<Ui::PinRowsPanel>()) {
    ui->setupUi(this);
    QFont rows = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    rows.setPointSizeF(font().pointSizeF() * 1.3);
    rows.setBold(true);
    for (int row = 0; row <= kWaferRows; ++row)
        RowLabel(row)->setFont(rows);
    ui->lblBottomPins->setFont(rows);
    ui->lblBottomPins->setMinimumWidth(
        QFontMetrics(rows).horizontalAdvance(QString(kPinRowWidth, u'0')));
}

PinRowsPanel::~PinRowsPanel() = default;

/// The sixth row stays empty: five are all that there ever were.
QLabel* PinRowsPanel::RowLabel(int row) const {
    return findChild<QLabel*>(QStringLiteral("lblTopPins_%1").arg(row));
}

void PinRowsPanel::ShowRows(const PinRows& rows, bool mayReadCuts) {
    const auto shown = [&](const std::string& row) {
        return mayReadCuts ? QString::fromStdString(row) : QString(kPinRowWidth, u'*');
    };
    ui->lblBottomPins->setText(shown(rows.bottom));
    for (int row = 0; row < kWaferRows; ++row)
        RowLabel(row)->setText(shown(rows.wafers[static_cast<std::size_t>(row)]));
}

void PinRowsPanel::Clear() {
    ui->lblBottomPins->clear();
    for (int row = 0; row <= kWaferRows; ++row)
        RowLabel(row)->clear();
}

} // namespace quorrel
