#include "holders/KeyLogs.h"

#include "platform/Recordset.h"
#include "store/HolderTables.h"

#include <QHash>

#include <algorithm>

namespace quorrel {

namespace {

constexpr std::array<const char*, kLogTexts> kTextColumns = {
    "Date", "Time", "KeyID", "UnitID", "UserName", "UserDepartment", "Report", "LoggedUser"};

/// The texts of a row, in the order of the columns.
template <class Row>
constexpr std::array<QString Row::*, kLogTexts> kTexts = {
    &Row::Date,     &Row::Time,           &Row::KeyID,  &Row::UnitID,
    &Row::UserName, &Row::UserDepartment, &Row::Report, &Row::LoggedUser};

int& NumberOf(ReturnKeyRow& row) {
    return row.ReturnID;
}
int& NumberOf(LostKeysRow& row) {
    return row.LostID;
}

const char* NumberColumn(KeyLog log) {
    return log == KeyLog::Lost ? "LostID" : "ReturnID";
}

/// Runs an action that is written once for the rows of either table.
template <class Action>
auto WithRowOf(KeyLog log, Action&& action) {
    return log == KeyLog::Lost ? action(LostKeysRow()) : action(ReturnKeyRow());
}

template <class Row>
LogEntry EntryOf(Row row) {
    LogEntry entry;
    entry.key = row.key;
    entry.number = NumberOf(row);
    for (std::size_t i = 0; i < entry.texts.size(); ++i)
        entry.texts[i] = row.*kTexts<Row>[i];
    return entry;
}

template <class Row>
Row RowOf(const LogEntry& entry, int systemNumber) {
    Row row;
    row.key = entry.key;
    NumberOf(row) = entry.number;
    for (std::size_t i = 0; i < entry.texts.size(); ++i)
        row.*kTexts<Row>[i] = entry.texts[i];
    row.SystemNumber = systemNumber;
    return row;
}

Query OfSystem(Session& session) {
    return Query().Where("SystemNumber", session.ActiveSystemNumber);
}

std::optional<LogEntry> FindEntry(Session& session, KeyLog log, RowKey key) {
    const auto rows = ReadLog(session, log, {key});
    return rows.empty() ? std::nullopt : std::optional(rows.begin()->second);
}

/// Puts keys into the order of their values; those of one value stay as they came. Logs repeat
/// their values - days, departments, names - so each is compared once, not once a row.
template <class Value>
class ValueOrder {
public:
    void Add(const Value& value, RowKey key) {
        auto group = m_groups.constFind(value);
        if (group == m_groups.cend()) {
            group = m_groups.insert(value, m_values.size());
            m_values.push_back(value);
            m_sizes.push_back(0);
        }
        ++m_sizes[*group];
        m_rows.push_back({*group, key});
    }

    std::vector<RowKey> Keys() {
        std::vector<std::size_t> order(m_values.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
            return m_values[left] < m_values[right];
        });
        std::vector<std::size_t> next(order.size());
        std::size_t place = 0;
        for (const std::size_t group : order) {
            next[group] = place;
            place += m_sizes[group];
        }
        std::vector<RowKey> keys(m_rows.size());
        for (const auto& [group, key] : m_rows)
            keys[next[group]++] = key;
        return keys;
    }

private:
    QHash<Value, std::size_t> m_groups;
    std::vector<Value> m_values;
    std::vector<std::size_t> m_sizes;
    std::vector<std::pair<std::size_t, RowKey>> m_rows;
};

/// Reads a column and the keys of the open system's rows, in table order.
template <class Value>
std::vector<RowKey> SortedKeys(Session& session, const char* table, const char* column) {
    Value value{};
    RowKey key = 0;
    const Query query = OfSystem(session);
    Cursor cursor(session.Keys(),
                  "SELECT " + Query::Quoted(column) + ", " + Query::Quoted("RowKey") + " FROM " +
                      Query::Quoted(table) + query.Selection() + query.Order(),
                  query.Values(), {FieldRef(&value), FieldRef(&key)});
    ValueOrder<Value> order;
    while (cursor.Next())
        order.Add(value, key);
    return order.Keys();
}

std::vector<RowKey> KeysInTableOrder(Session& session, const char* table) {
    RowKey key = 0;
    const Query query = OfSystem(session);
    Cursor cursor(session.Keys(),
                  "SELECT " + Query::Quoted("RowKey") + " FROM " + Query::Quoted(table) +
                      query.Selection() + query.Order(),
                  query.Values(), {FieldRef(&key)});
    std::vector<RowKey> keys;
    while (cursor.Next())
        keys.push_back(key);
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
    QStringList names;
    for (const char* name : kTextColumns)
        names.append(QLatin1String(name));
    return names << QLatin1String(NumberColumn(log));
}

std::vector<RowKey> ListLog(Session& session, KeyLog log, std::optional<int> sortedBy) {
    const char* table = log == KeyLog::Lost ? LostKeysRow::kTable : ReturnKeyRow::kTable;
    if (!sortedBy)
        return KeysInTableOrder(session, table);
    if (*sortedBy == kLogTexts)
        return SortedKeys<int>(session, table, NumberColumn(log));
    return SortedKeys<QString>(session, table,
                               kTextColumns.at(static_cast<std::size_t>(*sortedBy)));
}

std::unordered_map<RowKey, LogEntry> ReadLog(Session& session, KeyLog log,
                                             const std::vector<RowKey>& keys) {
    return WithRowOf(log, [&]<class Row>(const Row&) {
        std::unordered_map<RowKey, LogEntry> entries;
        Recordset<Row>(session.Keys(), OfSystem(session).WhereKeys(keys)).Walk([&](const Row& row) {
            entries.emplace(row.key, EntryOf(row));
            return true;
        });
        return entries;
    });
}

std::vector<LogConflict> WriteLog(Session& session, KeyLog log, std::vector<LogChange>& changes) {
    return WithRowOf(log, [&]<class Row>(const Row&) {
        Database& keys = session.Keys();
        Transaction transaction(keys);
        auto conflicts = FindConflicts(session, log, changes);
        if (!conflicts.empty())
            return conflicts;
        auto number = static_cast<int>(Recordset<Row>(keys).Largest(NumberColumn(log)));
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
        Transaction transaction(session.Keys());
        const auto stored = FindEntry(session, log, read.key);
        if (stored && *stored != read)
            return LogConflict{read.key, stored};
        Recordset<Row>(session.Keys(), OfSystem(session).Where("RowKey", read.key)).DeleteAll();
        transaction.Commit();
        return std::nullopt;
    });
}

} // namespace quorrel
