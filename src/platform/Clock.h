#pragma once

#include <QDateTime>
#include <QRandomGenerator>

#include <functional>

namespace quorrel {

/// Tells the present moment. Handed in, so that dates can be tested.
using Clock = std::function<QDateTime()>;

inline Clock SystemClock() {
    return [] { return QDateTime::currentDateTime(); };
}

/// A source of numbers from 0 up to but not including 1, started anew from a seed.
class Random {
public:
    /// `seed` gives the seed of the next run of numbers: the clock's, or a fixed one.
    explicit Random(std::function<quint32()> seed) : m_seed(std::move(seed)) {}

    void Seed() { m_generator.seed(m_seed()); }
    double Next() { return m_generator.generateDouble(); }

private:
    std::function<quint32()> m_seed;
    QRandomGenerator m_generator;
};

} // namespace quorrel
