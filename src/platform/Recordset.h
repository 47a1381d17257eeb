#pragma once

#include "platform/Database.h"
#include "platform/Query.h"

#include <optional>
#include <string>
#include <vector>

namespace quorrel {

/// Typed rows of one table, selected and ordered by a query. Nothing is kept between calls: each
/// reads what is committed at that moment, by whichever form or workstation.
///
/// A row struct names its table as `kTable`, its columns by `Columns()` and has a `RowKey key`.
template <class Row>
class Recordset {
public:
    explicit Recordset(Database& database, Query query = {})
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

    qint64 Count() const { return Aggregate("COUNT(*)"); }

    /// Largest value of a whole-number column; 0 when there are no rows.
    qint64 Largest(const char* column) const {
        return Aggregate("MAX(" + Query::Quoted(column) + ")");
    }

    /// The different texts of a column, in no order.
    QStringList Distinct(const char* column) const {
        QString text;
        Cursor cursor(m_database,
                      "SELECT DISTINCT " + Query::Quoted(column) + " FROM " +
                          Query::Quoted(Row::kTable) + m_query.Selection(),
                      m_query.Values(), {FieldRef(&text)});
        QStringList texts;
        while (cursor.Next())
            texts.append(text);
        return texts;
    }

    /// Writes a column of every row that the query selects.
    void SetAll(const char* column, const QString& text) const {
        std::vector<Value> values = {text};
        values.insert(values.end(), m_query.Values().begin(), m_query.Values().end());
        m_database.Execute("UPDATE " + Query::Quoted(Row::kTable) + " SET " +
                               Query::Quoted(column) + " = :text" + m_query.Selection(),
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

    /// Deletes every row that the query selects.
    void DeleteAll() const {
        m_database.Execute("DELETE FROM " + Query::Quoted(Row::kTable) + m_query.Selection(),
                           m_query.Values());
    }

    static std::string InsertText() {
        std::string columns;
        std::string values;
        for (const char* name : ColumnNamesOf<Row>()) {
            columns += (columns.empty() ? "" : ", ") + Query::Quoted(name);
            values += (values.empty() ? ":" : ", :") + std::string(name);
        }
        return "INSERT INTO " + Query::Quoted(Row::kTable) + " (" + columns + ") VALUES (" +
               values + ")";
    }

private:
    std::string SelectText() const {
        std::string columns;
        for (const char* name : ColumnNamesOf<Row>())
            columns += Query::Quoted(name) + ", ";
        return "SELECT " + columns + Query::Quoted("RowKey") + " FROM " +
               Query::Quoted(Row::kTable) + m_query.Selection() + m_query.Order();
    }

    static std::string UpdateText() {
        std::string changes;
        for (const char* name : ColumnNamesOf<Row>())
            changes += (changes.empty() ? "" : ", ") + Query::Quoted(name) + " = :" + name;
        return "UPDATE " + Query::Quoted(Row::kTable) + " SET " + changes + " WHERE " +
               Query::Quoted("RowKey") + " = :RowKey";
    }

    qint64 Aggregate(const std::string& expression) const {
        return m_database.Number("SELECT " + expression + " FROM " + Query::Quoted(Row::kTable) +
                                     m_query.Selection(),
                                 m_query.Values());
    }

    Database& m_database;
    Query m_query;
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
