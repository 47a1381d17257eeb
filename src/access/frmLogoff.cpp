#include "access/frmLogoff.h"

#include "ui_frmLogoff.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

namespace {

constexpr int kReadingTime = 700; // milliseconds

} // namespace

frmLogoff::frmLogoff(Session& session) : Form(session), ui(std::make_unique<Ui::frmLogoff>()) {
    ui->setupUi(this);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    QFont large = ui->lblTimeout->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    ui->lblTimeout->setFont(large);
    ui->lblTimeout->setText(m_countdown.Text());
    PlaceOnScreen(*this);
    OfferHelp(help::kLogoff);
    On(ui->CancelButton, &QPushButton::clicked, [this] { close(); });
    On(&m_timer1, &QTimer::timeout, [this] { Tick(); });
    m_timer1.start(LogoffCountdown::kStepTime);
}

frmLogoff::~frmLogoff() = default;

void frmLogoff::Tick() {
    if (m_cancelling)
        return;
    const bool over = m_countdown.Step();
    // Switched off meanwhile, the countdown has no end to come to.
    if (!m_session.AutoLogoffActive)
        return;
    if (over)
        emit Ended();
    else
        ui->lblTimeout->setText(m_countdown.Text());
}

void frmLogoff::MouseMoved() {
    if (std::exchange(m_cancelling, true))
        return;
    ui->lblTimeout->setFont(font());
    ui->lblTimeout->setText(tr(" Mouse Movement detected,  canceling Logoff"));
    QTimer::singleShot(kReadingTime, this, [this] {
        m_session.IdleTickCounter = 0;
        close();
    });
}

} // namespace quorrel
