#include "access/frmEditHardware.h"

#include "access/HardwareDescriptions.h"
#include "doors/DoorLists.h"
#include "ui_frmEditHardware.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmEditHardware::frmEditHardware(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmEditHardware>()) {
    ui->setupUi(this);
    OfferHelp(help::kHardware);
    QFont bold = font();
    bold.setBold(true);
    ui->lblHardware->setFont(bold);
    On(ui->cmbHardware, &QComboBox::editTextChanged,
       [this](const QString& text) { ShowDescription(text); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
    Guarded([this] { LoadHardwareList({}); });
}

frmEditHardware::~frmEditHardware() = default;

/// Reads the list and selects a description of it; none when it is not there.
void frmEditHardware::LoadHardwareList(const QString& shown) {
    const QStringList descriptions = ListHardwareTypes(m_session);
    const QString present = descriptions.contains(shown) ? shown : QString();
    ui->cmbHardware->SetTexts(descriptions, present);
    ShowDescription(present);
}

void frmEditHardware::ShowDescription(const QString& description) {
    ui->lblHardware->setText(description);
    ui->txtChangeTo->setText(description);
    // Doors without hardware have no description to replace.
    ui->cmdSave->setEnabled(!description.isEmpty());
}

void frmEditHardware::Save() {
    const BusyPointer busy;
    const QString to = ui->txtChangeTo->text();
    ReplaceHardware(m_session, ui->lblHardware->text(), to, ui->opAll->isChecked());
    LoadHardwareList(to);
}

} // namespace quorrel
