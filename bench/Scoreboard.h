#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace quorrel::bench {

/// What a figure must keep to.
struct Bound {
    enum class Kind { Seconds, TimesLimit, Megabytes };
    Kind kind;
    double most;
};

/// Something that is measured, the limit that it is held against, and its bound.
struct Comparison {
    std::string name, limit;
    Bound bound;
};

/// Keeps the median of every benchmark, besides showing what the console reporter shows, and sums
/// them up in a table.
class Scoreboard : public benchmark::ConsoleReporter {
public:
    Scoreboard() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Takes a figure that is no benchmark's.
    void Take(const std::string& name, double figure) { m_figures[name] = figure; }

    /// Prints the comparisons of which both figures were taken. True when all keep their bounds.
    bool PrintTable(const std::vector<Comparison>& comparisons);

    bool Failed() const { return m_failed; }

private:
    bool PrintRow(const Comparison& comparison, double figure, double limit);

    std::map<std::string, double> m_figures; ///< seconds, or megabytes
    bool m_failed = false;
};

} // namespace quorrel::bench
