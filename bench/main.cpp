// Measures what a user waits for on the largest system, each beside its limit in the same run.
//
//   quorrel_bench [--strict] [options of the benchmark library]
//
// Ends with a table of medians. With --strict the exit code is 1 when a bound is exceeded.

#include "Benches.h"
#include "Child.h"

#include <QApplication>
#include <QLoggingCategory>

#include <exception>
#include <iostream>
#include <string_view>

using namespace quorrel::bench;

namespace {

/// Takes `--strict` out of the arguments.
bool TakeStrict(std::vector<char*>& arguments) {
    return std::erase_if(arguments, [](const char* argument) {
               return std::string_view(argument) == "--strict";
           }) > 0;
}

int RunAll(std::vector<char*> arguments) {
    const bool strict = TakeStrict(arguments);
    // Turn by turn, so that a busy moment of the machine meets a figure and its limit alike. An
    // option of the caller's comes later and wins.
    static char interleaving[] = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleaving);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    std::vector<Comparison> comparisons;
    AddPreview(comparisons);
    AddCreate(comparisons);
    AddPage(comparisons);
    AddPinning(comparisons);
    AddLists(comparisons);
    AddDoors(comparisons);
    AddCrossKeys(comparisons);
    AddFind(comparisons);
    AddPrint(comparisons);
    AddHolders(comparisons);
    AddLogs(comparisons);
    AddStart(comparisons);
    Scoreboard scoreboard;
    benchmark::RunSpecifiedBenchmarks(&scoreboard);
    MeasureMemory(scoreboard, comparisons);
    const bool kept = scoreboard.PrintTable(comparisons);
    return scoreboard.Failed() || (strict && !kept) ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    // Without a screen of a user's own, unless he asks for it: the figures are compared between
    // machines.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit warns at each window of what a screen of no user's own cannot do.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    const Task task = TaskOf(argc, argv);
    const QString folder = task == Task::None ? QString() : QString::fromLocal8Bit(argv[2]);
    std::vector<char*> arguments(argv, argv + argc);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        return task == Task::None ? RunAll(arguments) : RunTask(task, folder);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
