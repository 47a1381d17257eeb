#pragma once

#include "store/Session.h"

#include <QStringList>

#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorrel {

// What writes throws `SystemGone` when the open system has been deleted at another workstation.

/// The two logs. They differ in their table and in the name of its row key alone.
enum class KeyLog { Returned, Lost };

/// Columns of a log that hold text; the row key follows them.
inline constexpr int kLogTexts = 8;
inline constexpr int kLogColumns = kLogTexts + 1;

/// A row of a log, in the order of the grid's columns.
struct LogEntry {
    RowKey key = 0; ///< 0: not stored yet
    std::array<QString, kLogTexts> texts;
    int number = 0; ///< `ReturnID` or `LostID`

    bool IsBlank() const;
    friend bool operator==(const LogEntry&, const LogEntry&) = default;
};

/// A row as it was read and as it is wanted. A row to be added was read with key 0.
struct LogChange {
    LogEntry read, wanted;
};

/// A row that is not any more what it was when it was read.
struct LogConflict {
    RowKey key = 0;
    std::optional<LogEntry> stored; ///< as it is now; nothing when it is gone
};

/// The names of the columns, the row key last.
QStringList LogColumns(KeyLog log);

/// The keys of the open system's rows, in table order or ascending by a column. Texts compare
/// character by character, blanks and case counting; equal ones come in table order.
std::vector<RowKey> ListLog(Session& session, KeyLog log, std::optional<int> sortedBy = {});

/// The rows of these keys. One that is gone is left out.
std::unordered_map<RowKey, LogEntry> ReadLog(Session& session, KeyLog log,
                                             const std::vector<RowKey>& keys);

/// Writes all changes at once and sets each `wanted` to what is stored then: an added row gets its
/// key, the next number and the open system's. When a row was changed or deleted since it was
/// read, nothing is written and these rows are given.
std::vector<LogConflict> WriteLog(Session& session, KeyLog log, std::vector<LogChange>& changes);

/// Deletes a row, unless it was changed since it was read. One that is gone counts as deleted.
std::optional<LogConflict> DeleteLogEntry(Session& session, KeyLog log, const LogEntry& read);

} // namespace quorrel
