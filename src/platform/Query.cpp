#include "platform/Query.h"

#include <utility>

namespace quorrel {

std::string Query::Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

std::string Query::Bind(Value value) {
    m_values.push_back(std::move(value));
    return ":v" + std::to_string(m_values.size());
}

Query& Query::Test(const char* column, const char* comparison, Value value) {
    m_where += m_where.empty() ? " WHERE " : " AND ";
    m_where += Quoted(column) + comparison + Bind(std::move(value));
    return *this;
}

template <class List>
Query& Query::TestAny(const char* column, const List& values) {
    m_where += m_where.empty() ? " WHERE " : " AND ";
    m_where += Quoted(column) + " IN (";
    bool first = true;
    for (const auto& value : values)
        m_where += (std::exchange(first, false) ? "" : ", ") + Bind(value);
    m_where += ")";
    return *this;
}

Query& Query::WhereNull(const char* column) {
    m_where += (m_where.empty() ? " WHERE " : " AND ") + Quoted(column) + " IS NULL";
    return *this;
}

Query& Query::WhereAny(const char* column, const QStringList& values) {
    return TestAny(column, values);
}

Query& Query::WhereKeys(const std::vector<RowKey>& keys) {
    return TestAny("RowKey", keys);
}

Query& Query::WhereTrimmed(const char* column, const QString& text) {
    // The texts that go on with a blank lie before those that go on with the character after it.
    Test(column, " >= ", text);
    Test(column, " < ", text + QChar(u' ' + 1));
    m_where += " AND RTRIM(" + Quoted(column) + ") = " + Bind(text);
    return *this;
}

Query& Query::WhereBegins(const char* column, const QString& text) {
    // A text cut within a character is looked up without the half of it.
    const bool cut = !text.isEmpty() && text.back().isHighSurrogate();
    const QString whole = cut ? text.chopped(1) : text;
    Test(column, " >= ", whole);
    return Test(column, " < ", whole + QString::fromUcs4(U"\U0010FFFF", 1));
}

Query& Query::OrderBy(const char* column, bool descending) {
    m_order += Quoted(column) + (descending ? " DESC, " : ", ");
    return *this;
}

std::string Query::Selection() const {
    return m_where;
}

std::string Query::Order() const {
    return " ORDER BY " + m_order + Quoted("RowKey");
}

} // namespace quorrel
