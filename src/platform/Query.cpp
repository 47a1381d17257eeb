#include "platform/Query.h"

#include <utility>

namespace quorrel {

std::string QueryText::Quoted(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

std::string QueryText::Bind(Value value) {
    m_values.push_back(std::move(value));
    return ":v" + std::to_string(m_values.size());
}

void QueryText::And() {
    m_where += m_where.empty() ? " WHERE " : " AND ";
}

void QueryText::Test(const char* column, const char* comparison, Value value) {
    And();
    m_where += Quoted(column) + comparison + Bind(std::move(value));
}

void QueryText::TestNull(const char* column) {
    And();
    m_where += Quoted(column) + " IS NULL";
}

void QueryText::TestAny(const char* column, const std::vector<Value>& values) {
    And();
    m_where += Quoted(column) + " IN (";
    bool first = true;
    for (const Value& value : values)
        m_where += (std::exchange(first, false) ? "" : ", ") + Bind(value);
    m_where += ")";
}

void QueryText::TestTrimmed(const char* column, const QString& text) {
    // The texts that go on with a blank lie before those that go on with the character after it.
    Test(column, " >= ", text);
    Test(column, " < ", text + QChar(u' ' + 1));
    And();
    m_where += "RTRIM(" + Quoted(column) + ") = " + Bind(text);
}

void QueryText::TestBegins(const char* column, const QString& text) {
    // A text cut within a character is looked up without the half of it.
    const bool cut = !text.isEmpty() && text.back().isHighSurrogate();
    const QString whole = cut ? text.chopped(1) : text;
    Test(column, " >= ", whole);
    Test(column, " < ", whole + QString::fromUcs4(U"\U0010FFFF", 1));
}

void QueryText::AddOrder(const char* column, bool descending) {
    m_order += Quoted(column) + (descending ? " DESC, " : ", ");
}

std::string QueryText::Order() const {
    return " ORDER BY " + m_order + Quoted(kRowKey);
}

} // namespace quorrel
