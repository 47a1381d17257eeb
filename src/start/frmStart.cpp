#include "start/frmStart.h"

#include "start/Startup.h"
#include "ui_frmStart.h"

namespace quorrel {

namespace {

constexpr int kSplashTime = 1400; // milliseconds

} // namespace

frmStart::frmStart(Session& session) : Form(session), ui(std::make_unique<Ui::frmStart>()) {
    ui->setupUi(this);
    setWindowFlag(Qt::FramelessWindowHint);
    QFont font = ui->lblTitle->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    font.setBold(true);
    ui->lblTitle->setFont(font);
    m_splash.setStartValue(0.0);
    m_splash.setEndValue(1.0);
    m_splash.setDuration(kSplashTime);
    m_splash.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_splash, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& turn) { ui->picDunmere->SetTurn(turn.toDouble()); });
    On(&m_splash, &QVariantAnimation::finished, [this] { EndSplash(); });
}

frmStart::~frmStart() = default;

void frmStart::Begin(bool splash) {
    Guarded([&] {
        QString failure;
        if (!LoadStartupFilesWhenFree(m_session, failure)) {
            emit FilesNotFound(failure);
            return;
        }
        setWindowTitle(m_session.ProgramTitle);
        if (!splash) {
            EndSplash();
            return;
        }
        show();
        m_splash.start();
    });
}

void frmStart::EndSplash() {
    if (std::exchange(m_ended, true))
        return;
    m_splash.stop();
    QString failure;
    if (!LoadCompanyWhenFree(m_session, failure))
        emit FilesNotFound(failure);
    else if (m_session.FirstRun)
        emit FirstRunFound();
    else
        emit LogonWanted();
}

void frmStart::keyPressEvent(QKeyEvent*) {
    Guarded([this] { EndSplash(); });
}

void frmStart::mousePressEvent(QMouseEvent*) {
    Guarded([this] { EndSplash(); });
}

} // namespace quorrel
