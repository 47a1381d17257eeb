#include "start/frmExit.h"

#include "ui_frmExit.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

frmExit::frmExit(Session& session) : Form(session), ui(std::make_unique<Ui::frmExit>()) {
    ui->setupUi(this);
    OfferHelp(help::kExit);
    ui->cmdExit->setFocus();
    On(ui->cmdExit, &QPushButton::clicked, [this] { emit Ended(); });
    On(ui->cmdCancel, &QPushButton::clicked, [this] { Leave(); });
}

frmExit::~frmExit() = default;

} // namespace quorrel
