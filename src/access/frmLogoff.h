#pragma once

#include "access/IdleWatch.h"
#include "widgets/Form.h"

#include <QCursor>
#include <QTimer>

#include <memory>

namespace Ui {
class frmLogoff;
}

namespace quorrel {

/// Announces that a workstation left alone is about to be closed, and counts down to it.
class frmLogoff : public Form {
    Q_OBJECT

public:
    explicit frmLogoff(Session& session);
    ~frmLogoff() override;

    /// The mouse was moved: says so for a moment, and goes.
    void MouseMoved();

    /// A tick of `Timer1`, every `LogoffCountdown::kStepTime`.
    void Tick();

signals:
    /// The time is over.
    void Ended();

private:
    std::unique_ptr<Ui::frmLogoff> ui;
    QTimer m_timer1;
    QTimer m_watch;
    QPoint m_pointer = QCursor::pos(); ///< when the form came up
    LogoffCountdown m_countdown;
    bool m_cancelling = false;
};

} // namespace quorrel
