#include "start/frmAbout.h"

#include "ui_frmAbout.h"
#include "widgets/HelpContexts.h"

#include <QCoreApplication>

namespace quorrel {

frmAbout::frmAbout(Session& session, const std::optional<OutsideProgram>& systemInformation)
    : Form(session), ui(std::make_unique<Ui::frmAbout>()), m_systemInformation(systemInformation) {
    ui->setupUi(this);
    QFont font = ui->lblTitle->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    ui->lblTitle->setFont(font);
    ui->lblVersion->setText(tr("Version %1").arg(QCoreApplication::applicationVersion()));
    ui->cmdSysInfo->setEnabled(m_systemInformation.has_value());
    if (!m_systemInformation)
        ui->cmdSysInfo->setToolTip(tr("No system information tool is installed."));
    OfferHelp(help::kAbout);
    On(ui->cmdOK, &QPushButton::clicked, [this] { Leave(); });
    On(ui->cmdSysInfo, &QPushButton::clicked, [this] {
        if (!StartProgram(*m_systemInformation))
            m_session.boxes.Message(tr("System information is not available at this time."),
                                    m_session.ProgramTitle);
    });
}

frmAbout::~frmAbout() = default;

} // namespace quorrel
