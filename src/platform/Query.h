#pragma once

#include "platform/Table.h"

#include <QStringList>

#include <string>
#include <type_traits>
#include <vector>

namespace quorrel {

/// The clauses and bound values of a query. Values are never pasted into the statement.
class QueryText {
public:
    /// The WHERE clause, empty when everything is selected.
    const std::string& Selection() const { return m_where; }
    /// The ORDER BY clause.
    std::string Order() const;
    const std::vector<Value>& Values() const { return m_values; }

    /// A name as the engine takes it, whatever it is made of.
    static std::string Quoted(const std::string& name);

protected:
    void Test(const char* column, const char* comparison, Value value);
    void TestNull(const char* column);
    void TestAny(const char* column, const std::vector<Value>& values);
    void TestTrimmed(const char* column, const QString& text);
    void TestBegins(const char* column, const QString& text);
    void AddOrder(const char* column, bool descending);

private:
    void And();
    std::string Bind(Value value);

    std::string m_where;
    std::string m_order;
    std::vector<Value> m_values;
};

/// What a recordset selects from the table of `Row`, and in which order. Rows that compare equal
/// come in table order. Columns are named by the members that hold them.
template <class Row>
class Query : public QueryText {
public:
    template <class Type>
    Query& Where(Type Row::*column, const std::type_identity_t<Type>& value) {
        return Compare(column, " = ", value);
    }
    template <class Type>
    Query& WhereNot(Type Row::*column, const std::type_identity_t<Type>& value) {
        return Compare(column, " <> ", value);
    }
    template <class Type>
    Query& WhereBelow(Type Row::*column, const std::type_identity_t<Type>& value) {
        return Compare(column, " < ", value);
    }
    template <class Type>
    Query& WhereAtLeast(Type Row::*column, const std::type_identity_t<Type>& value) {
        return Compare(column, " >= ", value);
    }
    /// The one row of a key.
    Query& WhereKey(RowKey key) { return Compare(&Row::key, " = ", key); }
    /// Rows whose value was never given.
    template <class Type>
    Query& WhereNull(Type Row::*column) {
        TestNull(ColumnName(column));
        return *this;
    }
    Query& WhereAny(QString Row::*column, const QStringList& values) {
        TestAny(ColumnName(column), {values.begin(), values.end()});
        return *this;
    }
    Query& WhereKeys(const std::vector<RowKey>& keys) {
        TestAny(kRowKey, {keys.begin(), keys.end()});
        return *this;
    }
    /// Rows whose text is this one, but for blanks on its right. An index on the column serves.
    Query& WhereTrimmed(QString Row::*column, const QString& text) {
        TestTrimmed(ColumnName(column), text);
        return *this;
    }
    /// Rows whose text begins with this one, capitals told from small letters. An index on the
    /// column serves.
    Query& WhereBegins(QString Row::*column, const QString& text) {
        TestBegins(ColumnName(column), text);
        return *this;
    }
    template <class Type>
    Query& OrderBy(Type Row::*column, bool descending = false) {
        AddOrder(ColumnName(column), descending);
        return *this;
    }

private:
    template <class Type>
    Query& Compare(Type Row::*column, const char* comparison, const Type& value) {
        if constexpr (std::is_integral_v<Type>)
            Test(ColumnName(column), comparison, static_cast<qint64>(value));
        else
            Test(ColumnName(column), comparison, value);
        return *this;
    }
};

} // namespace quorrel
