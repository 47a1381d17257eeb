#include "page/SystemPanel.h"

#include "ui_SystemPanel.h"

namespace quorrel {

SystemPanel::SystemPanel(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::SystemPanel>()) {
    ui->setupUi(this);
    QFont bold = font();
    bold.setBold(true);
    ui->lblSystem->setFont(bold);
}

SystemPanel::~SystemPanel() = default;

void SystemPanel::ShowSystem(const OpenSystem& system, bool mayReadCuts) {
    if (system.PinCount > 0) {
        ui->lblSystem->setText(system.name);
        ui->lblAddress->setText(system.address);
        ui->lblBrand->setText(system.lockBrand);
        ui->lblSafety->setText(QString::number(system.safetyFactor));
        ui->lblNumofPins->setText(QString::number(system.PinCount));
        ui->lblIncrement->setText(QString::number(system.increment));
        ui->lblNotes->setText(system.notes);
    }
    for (QLabel* label : {ui->Label38, static_cast<QLabel*>(ui->lblNotes)})
        label->setVisible(!system.notes.isEmpty());
    const QString cuts = mayReadCuts ? QString::fromStdString(system.SpecialCuts) : QString();
    ui->lblAngle->setText(system.SystemIsAngled ? cuts : QString());
    ui->lblControlKey->setText(system.SystemIsIC ? cuts : QString());
    for (QLabel* label : {ui->lblAngleLabel, ui->lblAngle})
        label->setVisible(system.SystemIsAngled && mayReadCuts);
    for (QLabel* label : {ui->lblControlKeyLabel, ui->lblControlKey})
        label->setVisible(system.SystemIsIC && mayReadCuts);
}

void SystemPanel::ShowNumber(int systemNumber) {
    ui->lblSysid->setText(QString::number(systemNumber));
}

void SystemPanel::ShowLogo(const QString& path) {
    ui->picQV->ShowLogo(path);
}

} // namespace quorrel
