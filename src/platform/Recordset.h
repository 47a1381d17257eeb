#pragma once

#include "platform/Database.h"
#include "platform/Query.h"

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quorrel {

/// Typed rows of one table, selected and ordered by a query. Nothing is kept between calls: each
/// reads what is committed at that moment, by whichever form or workstation.
///
/// A row struct names its columns by `Columns()` and has a `RowKey key`. One of a whole table names
/// that as `kTable`; one that holds a part of the columns names the row of the whole as `Whole`.
template <class Row>
class Recordset {
public:
    using Whole = WholeOf<Row>;

    explicit Recordset(Database& database, Query<Whole> query = {})
        : m_database(database), m_query(std::move(query)) {}

    /// Calls `visit(const Row&)` for each row in order, for as long as it returns true.
    template <class Visit>
    void Walk(Visit&& visit) const {
        Row row;
        auto fields = FieldsOf(row);
        fields.emplace_back(&row.key);
        Cursor cursor(m_database, SelectText(), m_query.Values(), std::move(fields));
        while (cursor.Next())
            if (!visit(static_cast<const Row&>(row)))
                return;
    }

    std::vector<Row> Rows() const {
        std::vector<Row> rows;
        Walk([&](const Row& row) {
            rows.push_back(row);
            return true;
        });
        return rows;
    }

    std::optional<Row> First() const {
        std::optional<Row> first;
        Walk([&](const Row& row) {
            first = row;
            return false;
        });
        return first;
    }

    bool Empty() const { return !First(); }

    qint64 Count() const { return m_database.Number("SELECT COUNT(*)" + From(), m_query.Values()); }

    /// Largest value of a whole-number column; 0 when there are no rows. What another program has
    /// left there and no field of the type can hold, a text or too large a number, does not count.
    template <class Type>
    qint64 Largest(Type Whole::*column) const {
        auto held = m_query;
        held.WhereBelow(column, std::numeric_limits<Type>::max());
        return m_database.Number("SELECT MAX(" + QueryText::Quoted(ColumnName(column)) + ")" +
                                     From(held),
                                 held.Values());
    }

    /// The different texts of a column, in no order.
    QStringList Distinct(QString Whole::*column) const {
        QString text;
        Cursor cursor(m_database,
                      "SELECT DISTINCT " + QueryText::Quoted(ColumnName(column)) + From(),
                      m_query.Values(), {FieldRef(&text)});
        QStringList texts;
        while (cursor.Next())
            texts.append(text);
        return texts;
    }

    /// The keys of the rows, in order.
    std::vector<RowKey> Keys() const {
        RowKey key = 0;
        Cursor cursor(m_database, "SELECT " + QueryText::Quoted(kRowKey) + From() + m_query.Order(),
                      m_query.Values(), {FieldRef(&key)});
        std::vector<RowKey> keys;
        while (cursor.Next())
            keys.push_back(key);
        return keys;
    }

    /// Calls `visit(value, RowKey)` for one column of each row in order, quicker than whole rows.
    template <class Type, class Visit>
    void WalkColumn(Type Whole::*column, Visit&& visit) const {
        Type value{};
        RowKey key = 0;
        Cursor cursor(m_database,
                      "SELECT " + QueryText::Quoted(ColumnName(column)) + ", " +
                          QueryText::Quoted(kRowKey) + From() + m_query.Order(),
                      m_query.Values(), {FieldRef(&value), FieldRef(&key)});
        while (cursor.Next())
            visit(std::as_const(value), key);
    }

    /// Writes a column of every row that the query selects.
    void SetAll(QString Whole::*column, const QString& text) const {
        std::vector<Value> values = {text};
        values.insert(values.end(), m_query.Values().begin(), m_query.Values().end());
        m_database.Execute("UPDATE " + QueryText::Quoted(TableName<Row>()) + " SET " +
                               QueryText::Quoted(ColumnName(column)) + " = :text" +
                               m_query.Selection(),
                           values);
    }

    /// Adds a row and gives it its key.
    static void Add(Database& database, Row& row) {
        Statement(database, InsertText(), FieldsOf(row)).Execute();
        row.key = database.LastKey();
    }

    /// Writes all columns of a stored row.
    static void Update(Database& database, Row& row) {
        auto fields = FieldsOf(row);
        fields.emplace_back(&row.key);
        Statement(database, UpdateText(), std::move(fields)).Execute();
    }

    /// Writes only the columns of a stored row that differ from how they were before. What nobody
    /// has changed stays in the file as it is, also where reading it alters it.
    static void UpdateChanges(Database& database, const Row& before, const Row& row) {
        std::string changes;
        std::vector<Value> values;
        const auto take = [&](const auto& column) {
            const auto& value = row.*column.member;
            if (before.*column.member == value)
                return;
            changes += (changes.empty() ? "" : ", ") + QueryText::Quoted(column.name) +
                       " = :" + column.name;
            if constexpr (std::is_integral_v<std::decay_t<decltype(value)>>)
                values.emplace_back(static_cast<qint64>(value));
            else
                values.emplace_back(value);
        };
        std::apply([&](const auto&... column) { (take(column), ...); }, Row::Columns());
        if (values.empty())
            return;
        values.emplace_back(row.key);
        database.Execute("UPDATE " + QueryText::Quoted(TableName<Row>()) + " SET " + changes +
                             " WHERE " + QueryText::Quoted(kRowKey) + " = :RowKey",
                         values);
    }

    /// Deletes every row that the query selects.
    void DeleteAll() const { m_database.Execute("DELETE" + From(), m_query.Values()); }

    static std::string InsertText() {
        std::string columns;
        std::string values;
        for (const char* name : ColumnNamesOf<Row>()) {
            columns += (columns.empty() ? "" : ", ") + QueryText::Quoted(name);
            values += (values.empty() ? ":" : ", :") + std::string(name);
        }
        return "INSERT INTO " + QueryText::Quoted(TableName<Row>()) + " (" + columns +
               ") VALUES (" + values + ")";
    }

private:
    std::string From() const { return From(m_query); }

    static std::string From(const QueryText& query) {
        return " FROM " + QueryText::Quoted(TableName<Row>()) + query.Selection();
    }

    std::string SelectText() const {
        std::string columns;
        for (const char* name : ColumnNamesOf<Row>())
            columns += QueryText::Quoted(name) + ", ";
        return "SELECT " + columns + QueryText::Quoted(kRowKey) + From() + m_query.Order();
    }

    static std::string UpdateText() {
        std::string changes;
        for (const char* name : ColumnNamesOf<Row>())
            changes += (changes.empty() ? "" : ", ") + QueryText::Quoted(name) + " = :" + name;
        return "UPDATE " + QueryText::Quoted(TableName<Row>()) + " SET " + changes + " WHERE " +
               QueryText::Quoted(kRowKey) + " = :RowKey";
    }

    Database& m_database;
    Query<Whole> m_query;
};

/// Adds many rows of one table through one prepared statement.
template <class Row>
class Appender {
public:
    /// The values of `row` at each `Add` are what is added.
    Appender(Database& database, Row& row)
        : m_statement(database, Recordset<Row>::InsertText(), FieldsOf(row)) {}

    void Add() { m_statement.Execute(); }

private:
    Statement m_statement;
};

} // namespace quorrel
