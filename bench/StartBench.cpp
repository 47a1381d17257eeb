#include "Benches.h"
#include "Child.h"
#include "LargestSystem.h"
#include "access/CompanyInfo.h"

#include <memory>

namespace quorrel::bench {

namespace {

/// A folder with a company, without which the first run's form would come in place of the logon.
const FreshFolder& FolderInUse() {
    static const auto folder = [] {
        auto fresh = std::make_unique<FreshFolder>();
        QuietSession program(fresh->Path());
        SaveCompanyInfo(program.session, {});
        return fresh;
    }();
    return *folder;
}

template <Task task>
void RunTasks(benchmark::State& state) {
    const QString folder = FolderInUse().Path();
    while (state.KeepRunning())
        state.SetIterationTime(RunInChild(task, folder).seconds);
}

} // namespace

void AddStart(std::vector<Comparison>& comparisons) {
    RegisterSelfTimed("start to logon, painted", RunTasks<Task::ShowLogon>);
    RegisterSelfTimed("start to empty window", RunTasks<Task::ShowEmptyWindow>);
    comparisons.push_back(
        {"start to logon, painted", "start to empty window", {Bound::Kind::Seconds, 0.5}});
}

void MeasureMemory(Scoreboard& scoreboard, std::vector<Comparison>& comparisons) {
    const auto open = RunInChild(Task::OpenLargest, LargestFolder().Path()).memory;
    const auto empty = RunInChild(Task::ShowEmptyWindow, LargestFolder().Path()).memory;
    if (!open || !empty)
        return;
    const Bound bound{Bound::Kind::Megabytes, 150};
    scoreboard.Take("memory, resident", open->resident);
    scoreboard.Take("empty window, resident", empty->resident);
    scoreboard.Take("memory, of its own", open->anonymous);
    scoreboard.Take("empty window, of its own", empty->anonymous);
    comparisons.push_back({"memory, resident", "empty window, resident", bound});
    comparisons.push_back({"memory, of its own", "empty window, of its own", bound});
}

} // namespace quorrel::bench
