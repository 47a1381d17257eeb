#pragma once

#include "engine/CrossKeying.h"

#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace quorrel {

/// Counts beside each key to pick from how many phantom keys more, or fewer, a cylinder would have
/// with it, a few at a time whenever nothing else is to be done.
class PhantomCounts {
public:
    /// `tell(first, added)` gets the counts from a place on.
    using Tell = std::function<void(std::size_t first, const std::vector<std::int64_t>& added)>;

    explicit PhantomCounts(Tell tell);

    /// The cuts of all keys of the system, each once.
    void SetSystem(std::vector<std::string> cuts) { m_systemCuts = std::move(cuts); }

    /// Begins anew. A key is added to `without`, which lacks what it would replace in `keying`.
    /// `candidates` are the cuts of the keys; one without cuts changes nothing.
    void Begin(const CrossKeying& keying, const CrossKeying& without,
               std::vector<std::string> candidates);
    void Stop() { m_timer.stop(); }

private:
    void Count();
    std::int64_t Phantoms(const CrossKeying& keying) const;

    QTimer m_timer;
    Tell m_tell;
    CrossKeying m_without;
    std::vector<std::string> m_systemCuts;
    std::vector<std::string> m_candidates;
    std::int64_t m_now = 0; ///< phantom keys as it is
    std::size_t m_next = 0;
};

} // namespace quorrel
