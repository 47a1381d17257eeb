#pragma once

#include <QString>

#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

namespace quorrel::bench {

/// One stored value of any type.
struct BareValue {
    int type;
    sqlite3_int64 whole;
    double real;
    std::string text;
};
using BareRow = std::vector<BareValue>;

/// A database file through nothing but the engine's own interface, set up as the program does:
/// the limit that no layer above it can beat.
class BareFile {
public:
    using Prepared = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

    explicit BareFile(const QString& path);

    void Run(const char* statement);
    Prepared Prepare(const char* statement);

    /// Steps once. True when a row stands ready.
    bool Step(sqlite3_stmt* statement);

    /// All columns of all rows that a prepared statement gives.
    std::vector<BareRow> Rows(sqlite3_stmt* statement);

    /// Adds rows by one statement. The texts must outlive the call.
    void Add(sqlite3_stmt* statement, const std::vector<BareRow>& rows);

private:
    void Require(int result);

    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> m_handle{nullptr, &sqlite3_close};
};

} // namespace quorrel::bench
