#include "BareFile.h"

#include <stdexcept>

namespace quorrel::bench {

namespace {

BareValue ValueAt(sqlite3_stmt* statement, int column) {
    BareValue value{sqlite3_column_type(statement, column), 0, 0, {}};
    if (value.type == SQLITE_INTEGER)
        value.whole = sqlite3_column_int64(statement, column);
    if (value.type == SQLITE_FLOAT)
        value.real = sqlite3_column_double(statement, column);
    if (value.type == SQLITE_TEXT)
        value.text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return value;
}

int Bind(sqlite3_stmt* statement, int place, const BareValue& value) {
    switch (value.type) {
    case SQLITE_INTEGER:
        return sqlite3_bind_int64(statement, place, value.whole);
    case SQLITE_FLOAT:
        return sqlite3_bind_double(statement, place, value.real);
    case SQLITE_TEXT:
        return sqlite3_bind_text(statement, place, value.text.data(),
                                 static_cast<int>(value.text.size()), SQLITE_STATIC);
    default:
        return sqlite3_bind_null(statement, place);
    }
}

} // namespace

BareFile::BareFile(const QString& path) {
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    m_handle.reset(handle);
    Require(result);
    Run("PRAGMA synchronous = FULL");
    Run("PRAGMA cache_size = -32000");
    Run("PRAGMA trusted_schema = OFF");
    // The program has read the schema before its user does anything.
    Run("SELECT COUNT(*) FROM \"KeySystem\"");
}

void BareFile::Require(int result) {
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(m_handle.get()));
}

void BareFile::Run(const char* statement) {
    Require(sqlite3_exec(m_handle.get(), statement, nullptr, nullptr, nullptr));
}

BareFile::Prepared BareFile::Prepare(const char* statement) {
    sqlite3_stmt* prepared = nullptr;
    Require(sqlite3_prepare_v2(m_handle.get(), statement, -1, &prepared, nullptr));
    return {prepared, &sqlite3_finalize};
}

bool BareFile::Step(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    Require(result);
    return result == SQLITE_ROW;
}

std::vector<BareRow> BareFile::Rows(sqlite3_stmt* statement) {
    std::vector<BareRow> rows;
    while (Step(statement)) {
        BareRow& row = rows.emplace_back();
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            row.push_back(ValueAt(statement, column));
    }
    return rows;
}

void BareFile::Add(sqlite3_stmt* statement, const std::vector<BareRow>& rows) {
    for (const BareRow& row : rows) {
        for (std::size_t place = 0; place < row.size(); ++place)
            Require(Bind(statement, static_cast<int>(place) + 1, row[place]));
        Step(statement);
        Require(sqlite3_reset(statement));
    }
}

} // namespace quorrel::bench
