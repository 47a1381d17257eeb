#include "access/frmEditHardware.h"

#include "access/HardwareDescriptions.h"
#include "platform/Text.h"
#include "ui_frmEditHardware.h"
#include "widgets/HelpContexts.h"
#include "widgets/Manners.h"

#include <QKeyEvent>

#include <algorithm>

namespace quorrel {

frmEditHardware::frmEditHardware(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmEditHardware>()) {
    ui->setupUi(this);
    OfferHelp(help::kHardware);
    OfferFoot();
    QFont bold = font();
    bold.setBold(true);
    ui->lblHardware->setFont(bold);
    On(ui->cmbHardware, &QComboBox::editTextChanged, [this] { ChooseDescription(); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
    Guarded([this] { LoadHardwareList({}); });
}

frmEditHardware::~frmEditHardware() = default;

/// The usual button is meant where the new description is typed, not where one is chosen.
void frmEditHardware::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(*event) && ui->cmbHardware->hasFocus())
        ui->txtChangeTo->setFocus();
    else
        Form::keyPressEvent(event);
}

/// Reads the list and selects a description of it; none when it is not there.
void frmEditHardware::LoadHardwareList(const QString& shown) {
    const QStringList descriptions = ListHardwareTypes(m_session);
    ui->cmbHardware->SetTexts(descriptions, descriptions.contains(shown) ? shown : QString());
    ShowDescription();
}

/// Another description: one that was typed for the former is not dropped without a question.
void frmEditHardware::ChooseDescription() {
    if (MayDrop())
        ShowDescription();
    else
        ui->cmbHardware->SetTexts(ui->cmbHardware->Texts(), ui->lblHardware->text());
}

void frmEditHardware::ShowDescription() {
    const QString shown = ui->cmbHardware->currentText();
    ui->lblHardware->setText(shown);
    ui->txtChangeTo->setText(shown);
    m_proposal = ui->txtChangeTo->text();
    // A box holds the beginning of a text that is too long for it.
    const QStringList known = ui->cmbHardware->Texts();
    const auto whole = std::find_if(known.begin(), known.end(), [&](const QString& text) {
        return text.left(ui->txtChangeTo->maxLength()) == shown;
    });
    m_description = whole == known.end() ? QString() : *whole;
    ui->cmdSave->setEnabled(!m_description.isEmpty());
}

void frmEditHardware::Save() {
    const BusyPointer busy;
    const QString to = ui->txtChangeTo->text();
    const QString from = Named(m_description);
    if (to == m_proposal) {
        Tell(tr("%1 is as it was: type another description").arg(from));
        return;
    }
    if (!ReplaceHardware(m_session, m_description, to, ui->opAll->isChecked())) {
        Tell(tr("No door of this system has %1, only doors of others").arg(from));
        return;
    }
    TellDone(to.isEmpty() ? tr("%1 taken away").arg(from)
                          : tr("%1 replaced by %2").arg(from, Named(to)),
             [&] { LoadHardwareList(to); });
}

void frmEditHardware::Reload() {
    LoadHardwareList(m_description);
}

QString frmEditHardware::Unsaved() const {
    if (m_description.isEmpty() || ui->txtChangeTo->text() == m_proposal)
        return {};
    return tr("The new description for %1").arg(Named(m_description));
}

} // namespace quorrel
