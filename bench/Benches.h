#pragma once

#include "Scoreboard.h"

#include <chrono>
#include <vector>

namespace quorrel::bench {

/// Each registers the benchmarks of a subject and adds how they are to be compared.
void AddPreview(std::vector<Comparison>& comparisons);
void AddCreate(std::vector<Comparison>& comparisons);
void AddPage(std::vector<Comparison>& comparisons);
void AddPinning(std::vector<Comparison>& comparisons);
void AddLists(std::vector<Comparison>& comparisons);
void AddDoors(std::vector<Comparison>& comparisons);
void AddCrossKeys(std::vector<Comparison>& comparisons);
void AddFind(std::vector<Comparison>& comparisons);
void AddPrint(std::vector<Comparison>& comparisons);
void AddHolders(std::vector<Comparison>& comparisons);
void AddLogs(std::vector<Comparison>& comparisons);
void AddStart(std::vector<Comparison>& comparisons);

/// Measures what the program holds in memory with the largest system open, where the platform
/// tells. It is no time and hence no benchmark.
void MeasureMemory(Scoreboard& scoreboard, std::vector<Comparison>& comparisons);

/// Runs of which the median counts: single ones are at the mercy of what else the machine does.
inline constexpr int kRepetitions = 7;

template <class Body>
void Register(const char* name, Body body) {
    benchmark::RegisterBenchmark(name, body)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.2)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly()
        ->UseRealTime();
}

/// For what has to be prepared anew before each run: the body sets each run's time itself.
template <class Body>
void RegisterSelfTimed(const char* name, Body body) {
    benchmark::RegisterBenchmark(name, body)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(2 * kRepetitions + 1)
        ->ReportAggregatesOnly()
        ->UseManualTime();
}

/// What is prepared anew for each run must not count, and is too slow for the clock to be stopped
/// and started around it.
template <class Action>
void Time(benchmark::State& state, Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(passed.count());
}

} // namespace quorrel::bench
