#include "access/IdleWatch.h"

namespace quorrel {

bool IdleTick(Session& session) {
    ++session.IdleTickCounter;
    if (!session.AutoLogoffActive)
        session.IdleTickCounter = 0;
    if (session.IdleTickCounter < kIdleTicks)
        return false;
    session.IdleTickCounter = -4;
    return true;
}

QString LogoffCountdown::Text() const {
    return QStringLiteral(" %1: %2 %3").arg(m_minutes).arg(m_tens).arg(m_seconds);
}

bool LogoffCountdown::Step() {
    if (--m_seconds < 0) {
        m_seconds = 9;
        --m_tens;
    }
    if (m_tens < 0) {
        m_tens = 5;
        --m_minutes;
    }
    return m_minutes < 0;
}

} // namespace quorrel
