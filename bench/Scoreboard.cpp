#include "Scoreboard.h"

#include <cstdio>

namespace quorrel::bench {

namespace {

std::string InUnit(Bound::Kind kind, double figure) {
    char text[32];
    if (kind == Bound::Kind::Megabytes)
        std::snprintf(text, sizeof text, "%.1f MB", figure);
    else
        std::snprintf(text, sizeof text, "%.3f ms", figure * 1e3);
    return text;
}

std::string InWords(const Bound& bound) {
    if (bound.kind != Bound::Kind::TimesLimit)
        return InUnit(bound.kind, bound.most);
    char text[32];
    std::snprintf(text, sizeof text, "%.1f x limit", bound.most);
    return text;
}

} // namespace

void Scoreboard::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        m_failed = m_failed || run.error_occurred;
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            Take(run.run_name.function_name,
                 run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit));
    }
    ConsoleReporter::ReportRuns(runs);
}

bool Scoreboard::PrintTable(const std::vector<Comparison>& comparisons) {
    std::printf("\n%-34s %13s %13s %8s %13s\n", "", "figure", "limit", "ratio", "bound");
    bool kept = true;
    for (const Comparison& comparison : comparisons) {
        const auto figure = m_figures.find(comparison.name);
        const auto limit = m_figures.find(comparison.limit);
        if (figure != m_figures.end() && limit != m_figures.end())
            kept = PrintRow(comparison, figure->second, limit->second) && kept;
    }
    return kept;
}

bool Scoreboard::PrintRow(const Comparison& comparison, double figure, double limit) {
    const Bound& bound = comparison.bound;
    const double ratio = figure / limit;
    const bool kept = (bound.kind == Bound::Kind::TimesLimit ? ratio : figure) <= bound.most;
    std::printf("%-34s %13s %13s %8.2f %13s  %s\n", comparison.name.c_str(),
                InUnit(bound.kind, figure).c_str(), InUnit(bound.kind, limit).c_str(), ratio,
                InWords(bound).c_str(), kept ? "ok" : "OVER");
    return kept;
}

} // namespace quorrel::bench
