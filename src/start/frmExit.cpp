#include "start/frmExit.h"

#include "ui_frmExit.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmExit::frmExit(Session& session) : Form(session), ui(std::make_unique<Ui::frmExit>()) {
    ui->setupUi(this);
    PlaceOnScreen(*this);
    OfferHelp(help::kExit);
    ui->cmdExit->setFocus();
    On(ui->cmdExit, &QPushButton::clicked, [this] { End(); });
    On(ui->cmdCancel, &QPushButton::clicked, [this] { close(); });
}

frmExit::~frmExit() = default;

void frmExit::End() {
    m_ending = true;
    emit Ended();
}

bool frmExit::Unloading() {
    if (!m_ending)
        emit Cancelled();
    return true;
}

} // namespace quorrel
