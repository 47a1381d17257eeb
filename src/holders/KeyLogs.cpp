#include "holders/KeyLogs.h"

#include "platform/Recordset.h"
#include "store/Conflict.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"

#include <algorithm>
#include <numeric>

namespace quorrel {

namespace {

/// The texts of a row, in the order of the columns.
template <class Row>
constexpr std::array<QString Row::*, kLogTexts> kUnitTexts = {
    &Row::Date,     &Row::Time,           &Row::KeyID,  &Row::UnitID,
    &Row::UserName, &Row::UserDepartment, &Row::Report, &Row::LoggedUser};

/// The column of a log's own running number.
template <class Row>
constexpr int Row::*kNumber = nullptr;
template <>
constexpr int ReturnKeyRow::*kNumber<ReturnKeyRow> = &ReturnKeyRow::ReturnID;
template <>
constexpr int LostKeysRow::*kNumber<LostKeysRow> = &LostKeysRow::LostID;

/// Runs an action that is written once for the rows of either table.
template <class Action>
auto WithRowOf(KeyLog log, Action&& action) {
    return log == KeyLog::Lost ? action(LostKeysRow()) : action(ReturnKeyRow());
}

template <class Row>
LogEntry EntryOf(Row row) {
    LogEntry entry;
    entry.key = row.key;
    entry.number = row.*kNumber<Row>;
    for (std::size_t i = 0; i < entry.texts.size(); ++i)
        entry.texts[i] = row.*kUnitTexts<Row>[i];
    return entry;
}

template <class Row>
Row RowOf(const LogEntry& entry, int systemNumber) {
    Row row;
    row.key = entry.key;
    row.*kNumber<Row> = entry.number;
    for (std::size_t i = 0; i < entry.texts.size(); ++i)
        row.*kUnitTexts<Row>[i] = entry.texts[i];
    row.SystemNumber = systemNumber;
    return row;
}

std::optional<LogEntry> FindEntry(Session& session, KeyLog log, RowKey key) {
    const auto rows = ReadLog(session, log, {key});
    return rows.empty() ? std::nullopt : std::optional(rows.begin()->second);
}

/// A column of the open system's rows, in table order.
template <class Value>
struct ColumnOfRows {
    std::vector<Value> values;
    std::vector<RowKey> keys;
};

template <class Row, class Value>
ColumnOfRows<Value> ReadColumn(Session& session, Value Row::*column) {
    ColumnOfRows<Value> rows;
    Recordset<Row>(session.Keys(), OfSystem<Row>(session))
        .WalkColumn(column, [&](const Value& value, RowKey key) {
            rows.values.push_back(value);
            rows.keys.push_back(key);
        });
    return rows;
}

/// How many characters all texts begin with alike.
qsizetype CommonLength(const std::vector<QString>& texts) {
    const QString first = texts.empty() ? QString() : texts.front();
    qsizetype common = first.size();
    for (const QString& text : texts) {
        const auto end = std::min(common, text.size());
        common = std::mismatch(first.cbegin(), first.cbegin() + end, text.cbegin()).first -
                 first.cbegin();
    }
    return common;
}

constexpr qsizetype kHeadLength = 16;
/// Some characters of a text as numbers that compare as the text does.
using Head = std::array<quint64, 4>;

Head HeadOf(const QString& text, qsizetype place) {
    Head head{};
    for (qsizetype i = 0; i < kHeadLength; ++i) {
        const char16_t unit = place + i < text.size() ? text[place + i].unicode() : u'\0';
        quint64& half = head[static_cast<std::size_t>(i / 4)];
        half = half << 16 | unit;
    }
    return head;
}

/// The keys in ascending order of the texts. Half a million texts are too far apart in memory to
/// be compared one by one: sorting goes by what follows their common beginning, and looks at a
/// text itself only where that is the same and goes on.
std::vector<RowKey> SortedKeys(const ColumnOfRows<QString>& rows) {
    struct Entry {
        Head head;
        std::size_t row;
    };
    const qsizetype common = CommonLength(rows.values);
    std::vector<Entry> entries;
    entries.reserve(rows.values.size());
    for (std::size_t row = 0; row < rows.values.size(); ++row)
        entries.push_back({HeadOf(rows.values[row], common), row});
    std::sort(entries.begin(), entries.end(), [&](const Entry& left, const Entry& right) {
        if (left.head != right.head)
            return left.head < right.head;
        const QString& leftText = rows.values[left.row];
        const QString& rightText = rows.values[right.row];
        const bool goesOn = std::max(leftText.size(), rightText.size()) > common + kHeadLength;
        const int order = goesOn ? leftText.compare(rightText) : 0;
        return order != 0 ? order < 0 : left.row < right.row;
    });
    std::vector<RowKey> keys;
    keys.reserve(entries.size());
    for (const Entry& entry : entries)
        keys.push_back(rows.keys[entry.row]);
    return keys;
}

std::vector<RowKey> SortedKeys(const ColumnOfRows<int>& rows) {
    std::vector<std::size_t> order(rows.keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return rows.values[left] < rows.values[right];
    });
    std::vector<RowKey> keys;
    keys.reserve(order.size());
    for (const std::size_t row : order)
        keys.push_back(rows.keys[row]);
    return keys;
}

/// The changes of which the stored row is not any more what was read. Within the caller's
/// transaction.
std::vector<LogConflict> FindConflicts(Session& session, KeyLog log,
                                       const std::vector<LogChange>& changes) {
    std::vector<LogConflict> conflicts;
    for (const LogChange& change : changes) {
        if (change.read.key == 0)
            continue;
        const auto stored = FindEntry(session, log, change.read.key);
        if (stored != change.read)
            conflicts.push_back({change.read.key, stored});
    }
    return conflicts;
}

} // namespace

bool LogEntry::IsBlank() const {
    return std::all_of(texts.begin(), texts.end(),
                       [](const QString& text) { return text.isEmpty(); });
}

QStringList LogColumns(KeyLog log) {
    return WithRowOf(log, []<class Row>(const Row&) {
        QStringList names;
        for (const auto column : kUnitTexts<Row>)
            names.append(QLatin1String(ColumnName(column)));
        return names << QLatin1String(ColumnName(kNumber<Row>));
    });
}

std::vector<RowKey> ListLog(Session& session, KeyLog log, std::optional<int> sortedBy) {
    return WithRowOf(log, [&]<class Row>(const Row&) {
        if (!sortedBy)
            return Recordset<Row>(session.Keys(), OfSystem<Row>(session)).Keys();
        if (*sortedBy == kLogTexts)
            return SortedKeys(ReadColumn(session, kNumber<Row>));
        return SortedKeys(
            ReadColumn(session, kUnitTexts<Row>.at(static_cast<std::size_t>(*sortedBy))));
    });
}

std::unordered_map<RowKey, LogEntry> ReadLog(Session& session, KeyLog log,
                                             const std::vector<RowKey>& keys) {
    return WithRowOf(log, [&]<class Row>(const Row&) {
        std::unordered_map<RowKey, LogEntry> entries;
        Recordset<Row>(session.Keys(), OfSystem<Row>(session).WhereKeys(keys))
            .Walk([&](const Row& row) {
                entries.emplace(row.key, EntryOf(row));
                return true;
            });
        return entries;
    });
}

std::vector<LogConflict> WriteLog(Session& session, KeyLog log, std::vector<LogChange>& changes) {
    return WithRowOf(log, [&]<class Row>(const Row&) {
        Database& keys = session.Keys();
        SystemTransaction transaction(session);
        auto conflicts = FindConflicts(session, log, changes);
        if (!conflicts.empty())
            return conflicts;
        auto number = static_cast<int>(Recordset<Row>(keys).Largest(kNumber<Row>));
        std::vector<LogChange> written = changes;
        for (auto& [read, wanted] : written) {
            if (read.key == 0)
                wanted.number = ++number;
            Row row = RowOf<Row>(wanted, session.ActiveSystemNumber);
            if (read.key == 0)
                Recordset<Row>::Add(keys, row);
            else
                Recordset<Row>::Update(keys, row);
            wanted.key = row.key;
        }
        transaction.Commit();
        changes = std::move(written);
        return conflicts;
    });
}

std::optional<LogConflict> DeleteLogEntry(Session& session, KeyLog log, const LogEntry& read) {
    return WithRowOf(log, [&]<class Row>(const Row&) -> std::optional<LogConflict> {
        SystemTransaction transaction(session);
        const auto stored = FindEntry(session, log, read.key);
        if (stored && *stored != read)
            return LogConflict{read.key, stored};
        Recordset<Row>(session.Keys(), OfSystem<Row>(session).WhereKey(read.key)).DeleteAll();
        transaction.Commit();
        return std::nullopt;
    });
}

} // namespace quorrel
