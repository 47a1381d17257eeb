#pragma once

#include "engine/CrossKeying.h"

#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace quorrel {

/// Counts beside each key to pick from how many phantom keys it would add to a cylinder, a few at
/// a time whenever nothing else is to be done.
class PhantomCounts {
public:
    /// `tell(first, added)` gets the counts from a place on.
    using Tell = std::function<void(std::size_t first, const std::vector<std::uint64_t>& added)>;

    explicit PhantomCounts(Tell tell);

    /// The cuts of all keys of the system, each once.
    void SetSystem(std::vector<std::string> cuts) { m_systemCuts = std::move(cuts); }

    /// Begins anew. `candidates` are the cuts of the keys; one without cuts adds nothing.
    void Begin(const CrossKeying& keying, std::vector<std::string> candidates);
    void Stop() { m_timer.stop(); }

private:
    void Count();

    QTimer m_timer;
    Tell m_tell;
    CrossKeying m_keying;
    std::vector<std::string> m_systemCuts;
    std::vector<std::string> m_candidates;
    std::uint64_t m_now = 0; ///< phantom keys without any of them
    std::size_t m_next = 0;
};

} // namespace quorrel
