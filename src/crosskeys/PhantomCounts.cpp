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

void PhantomCounts::Begin(const CrossKeying& keying, const CrossKeying& without,
                          std::vector<std::string> candidates) {
    m_without = without;
    m_candidates = std::move(candidates);
    m_now = Phantoms(keying);
    m_next = 0;
    m_timer.start(0);
}

std::int64_t PhantomCounts::Phantoms(const CrossKeying& keying) const {
    return static_cast<std::int64_t>(keying.CountPhantoms(m_systemCuts));
}

void PhantomCounts::Count() {
    QElapsedTimer elapsed;
    elapsed.start();
    const std::size_t first = m_next;
    std::vector<std::int64_t> added;
    for (; m_next < m_candidates.size() && elapsed.elapsed() < kPiece; ++m_next) {
        const std::string& cuts = m_candidates[m_next];
        added.push_back(cuts.empty() ? 0 : Phantoms(m_without.With(cuts)) - m_now);
    }
    if (m_next == m_candidates.size())
        m_timer.stop();
    m_tell(first, added);
}

} // namespace quorrel
