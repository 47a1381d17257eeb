#pragma once

#include "store/Session.h"

#include <QString>

namespace quorrel {

/// Milliseconds between two idle ticks, and ticks without mouse movement until the warning.
inline constexpr int kIdleTickTime = 50000;
inline constexpr int kIdleTicks = 14;

/// Counts a tick of the clock. True when the workstation has been left alone for so long that the
/// log-off is to be announced. While the automatic log-off is off the counter stays 0. After an
/// announcement it starts at -4, so a next one takes longer.
bool IdleTick(Session& session);

/// The two minutes between the announcement and the end, in steps of about a second.
class LogoffCountdown {
public:
    /// Milliseconds of a step.
    static constexpr int kStepTime = 980;

    /// The time left, such as " 1: 5 9": each digit has the blank of a number's sign before it.
    QString Text() const;

    /// Takes a step. True when the time is over.
    bool Step();

private:
    int m_minutes = 2;
    int m_tens = 0;
    int m_seconds = 0;
};

} // namespace quorrel
