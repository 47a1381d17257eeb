#include "crosskeys/PhantomCounts.h"

#include <QElapsedTimer>

namespace quorrel {

namespace {

/// Milliseconds of work in one go, too few to be felt.
constexpr int kPiece = 4;

} // namespace

PhantomCounts::PhantomCounts(Tell tell) : m_tell(std::move(tell)) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Count(); });
}

void PhantomCounts::Begin(const CrossKeying& keying, std::vector<std::string> candidates) {
    m_keying = keying;
    m_candidates = std::move(candidates);
    m_now = keying.CountPhantoms(m_systemCuts);
    m_next = 0;
    m_timer.start(0);
}

void PhantomCounts::Count() {
    QElapsedTimer elapsed;
    elapsed.start();
    const std::size_t first = m_next;
    std::vector<std::uint64_t> added;
    for (; m_next < m_candidates.size() && elapsed.elapsed() < kPiece; ++m_next)
        added.push_back(m_keying.With(m_candidates[m_next]).CountPhantoms(m_systemCuts) - m_now);
    if (m_next == m_candidates.size())
        m_timer.stop();
    m_tell(first, added);
}

} // namespace quorrel
