#include "access/frmLogoff.h"

#include "ui_frmLogoff.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

namespace {

constexpr int kReadingTime = 700; // milliseconds
constexpr int kWatchTime = 100;   // milliseconds

} // namespace

frmLogoff::frmLogoff(Session& session) : Form(session), ui(std::make_unique<Ui::frmLogoff>()) {
    ui->setupUi(this);
    // Above any box that is open, which otherwise would keep mouse and keys for itself.
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    QFont large = ui->lblTimeout->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    ui->lblTimeout->setFont(large);
    ui->lblTimeout->setText(m_countdown.Text());
    OfferHelp(help::kLogoff);
    On(ui->CancelButton, &QPushButton::clicked, [this] { close(); });
    On(&m_timer1, &QTimer::timeout, [this] { Tick(); });
    m_timer1.start(LogoffCountdown::kStepTime);
    // The windows behind this one do not get the mouse: it is watched wherever it is.
    On(&m_watch, &QTimer::timeout, [this] {
        if (QCursor::pos() != m_pointer)
            MouseMoved();
    });
    m_watch.start(kWatchTime);
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
