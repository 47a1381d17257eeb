#pragma once

#include <QString>

#include <optional>

namespace quorrel::bench {

/// What a process of its own is started for: figures of a whole process cannot be taken in one
/// that has done other work before.
enum class Task { None, ShowLogon, ShowEmptyWindow, OpenLargest };

/// The task that the arguments name, `Task::None` for an ordinary run.
Task TaskOf(int argc, char** argv);

/// Does a task on the folder that the arguments name, tells that it is done and ends.
int RunTask(Task task, const QString& folder);

/// What a process held in memory, in megabytes.
struct Memory {
    double resident, anonymous;
};

/// How a task went in a process of its own.
struct Outcome {
    double seconds; ///< from before the process was started until its window was painted
    std::optional<Memory> memory;
};

/// Starts this program once more for a task and waits until it has done it.
Outcome RunInChild(Task task, const QString& folder);

} // namespace quorrel::bench
