#pragma once

#include "platform/Table.h"

#include <QStringList>

#include <string>
#include <vector>

namespace quorrel {

/// What a recordset selects from its table, and in which order. Values are bound, never pasted
/// into the statement. Rows that compare equal come in table order.
class Query {
public:
    Query& Where(const char* column, qint64 value) { return Test(column, " = ", value); }
    Query& Where(const char* column, const QString& value) { return Test(column, " = ", value); }
    Query& WhereBelow(const char* column, qint64 value) { return Test(column, " < ", value); }
    Query& WhereAtLeast(const char* column, qint64 value) { return Test(column, " >= ", value); }
    Query& WhereNot(const char* column, const QString& value) {
        return Test(column, " <> ", value);
    }
    /// Rows whose value was never given.
    Query& WhereNull(const char* column);
    Query& WhereAny(const char* column, const QStringList& values);
    Query& WhereKeys(const std::vector<RowKey>& keys);
    /// Rows whose text is this one, but for blanks on its right. An index on the column serves.
    Query& WhereTrimmed(const char* column, const QString& text);
    /// Rows whose text begins with this one, capitals told from small letters. An index on the
    /// column serves.
    Query& WhereBegins(const char* column, const QString& text);
    Query& OrderBy(const char* column, bool descending = false);

    /// The WHERE clause, empty when everything is selected.
    std::string Selection() const;
    /// The ORDER BY clause.
    std::string Order() const;
    const std::vector<Value>& Values() const { return m_values; }

    /// A name as the engine takes it, whatever it is made of.
    static std::string Quoted(const std::string& name);

private:
    Query& Test(const char* column, const char* comparison, Value value);
    template <class List>
    Query& TestAny(const char* column, const List& values);
    std::string Bind(Value value);

    std::string m_where;
    std::string m_order;
    std::vector<Value> m_values;
};

} // namespace quorrel
