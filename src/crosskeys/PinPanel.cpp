#include "crosskeys/PinPanel.h"

#include "engine/SystemDefinition.h"
#include "ui_PinPanel.h"

#include <QLabel>

namespace quorrel {

namespace {

/// A row of the panel of a core.
struct CoreRow {
    const char* name;
    const char* heading;
    const char* spoken;
    QStringList CorePanel::*figures;
};

constexpr CoreRow kCoreRows[] = {
    {"XlblDrivePins", "Driver Pins", "Driver pin", &CorePanel::driver},
    {"XlblControlPins", "Control Pins", "Control pin", &CorePanel::control},
    {"XlblTopPins", "Master Pins", "Master pin", &CorePanel::top},
    {"XlblTop", "    Size", "Size of the master pin", &CorePanel::topSizes},
    {"XlblBottomPins", "Bottom Pins", "Bottom pin", &CorePanel::bottom},
    {"XlblBot", "    Size", "Size of the bottom pin", &CorePanel::bottomSizes}};

QString NameOf(const CoreRow& row, int chamber) {
    return QStringLiteral("%1_%2").arg(QLatin1String(row.name)).arg(chamber);
}

} // namespace

PinPanel::PinPanel(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::PinPanel>()) {
    ui->setupUi(this);
    ui->frCore->hide();
    Clear();
}

PinPanel::~PinPanel() = default;

void PinPanel::OfferCore(const QString& door, const PinningRequest& key, bool mayReadCuts) {
    m_core = true;
    ui->lblCoreDoor->setText(door);
    ui->XlblSystem->setText(key.system);
    ui->XlblAddress->setText(key.address);
    ui->XlblDepartment->setText(key.department);
    ui->XlblDescription->setText(key.description);
    ui->XlblKeyID->setText(key.keyID);
    ui->XlblKeyWay->setText(key.keyway);
    ui->XlblCuts->setText(mayReadCuts ? QString::fromStdString(key.key) : QString(8, u'*'));
    int line = 0;
    for (const CoreRow& row : kCoreRows) {
        ui->grdCore->addWidget(new QLabel(tr(row.heading)), line, 0);
        for (int chamber = 0; chamber < kPinCountLimits.highest; ++chamber) {
            auto* figure = new QLabel;
            figure->setObjectName(NameOf(row, chamber));
            figure->setAccessibleName(tr("%1, chamber %2").arg(tr(row.spoken)).arg(chamber + 1));
            figure->setAlignment(Qt::AlignCenter);
            figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
            figure->setVisible(chamber < static_cast<int>(key.master.size()));
            ui->grdCore->addWidget(figure, line, chamber + 1);
        }
        ++line;
    }
    ui->frCore->show();
}

void PinPanel::ShowPins(const CrossPinning& pinning, bool mayReadCuts) {
    ui->picCylinder->SetCylinder(mayReadCuts ? pinning.cylinder : Cylinder());
    ui->lblNotes->setText(mayReadCuts ? pinning.notes.join(u'\n') : QString());
    ui->lblNotes->setVisible(!ui->lblNotes->text().isEmpty());
    if (m_core)
        ShowCore(mayReadCuts ? CorePanelOf(pinning) : CorePanel());
}

void PinPanel::ShowCore(const CorePanel& panel) {
    for (const CoreRow& row : kCoreRows)
        for (int chamber = 0; chamber < kPinCountLimits.highest; ++chamber)
            ui->frCore->findChild<QLabel*>(NameOf(row, chamber))
                ->setText((panel.*row.figures).value(chamber));
}

void PinPanel::Clear() {
    ui->picCylinder->SetCylinder({});
    ui->lblNotes->clear();
    ui->lblNotes->hide();
    if (m_core)
        ShowCore({});
}

} // namespace quorrel
