#pragma once

#include "platform/DatabaseError.h"
#include "platform/Table.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace quorrel {

/// What marks a file as one of ours: an application id in its header and a schema version.
struct FileKind {
    qint64 applicationId;
    qint64 schemaVersion;
};

/// An open database file. Every routine throws `DatabaseError`.
class Database {
public:
    /// How long a statement waits for another workstation, in milliseconds.
    static constexpr int kBusyTimeout = 5000;

    /// Opens an existing file for reading and writing, shared with other workstations, after
    /// making sure that it is of the kind, not newer than this program, whole and writable.
    static std::unique_ptr<Database> Open(const QString& path, const FileKind& kind,
                                          int busyTimeout = kBusyTimeout);

    /// Opens a file that is not ours, for reading alone.
    static std::unique_ptr<Database> OpenForeign(const QString& path);

    /// Makes a new file of a kind from the statements of its schema. The file must not exist.
    static std::unique_ptr<Database> Create(const QString& path, const FileKind& kind,
                                            const QString& schema);

    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const QString& Path() const { return m_path; }

    /// Runs one statement without result.
    void Execute(const std::string& statement, const std::vector<Value>& values = {});

    /// The first column of the first row as a whole number; 0 for no row or a null.
    qint64 Number(const std::string& statement, const std::vector<Value>& values = {});

    /// Key of the row added last.
    RowKey LastKey();

    /// A number that differs when another connection has committed a change since it was taken.
    qint64 DataVersion() { return Number("PRAGMA data_version"); }

private:
    friend class Cursor;
    friend class Statement;
    friend class Transaction;
    struct Engine;

    enum class Access { Full, ReadOnly };

    Database(const QString& path, int busyTimeout, Access access = Access::Full);
    void Check(const FileKind& kind);
    template <class Action>
    auto Guarded(Action&& action) const;

    QString m_path;
    std::unique_ptr<Engine> m_engine;
    int m_transactions = 0; ///< open ones, one within the other
};

/// A forward walk over the rows that a SELECT gives. Each step fills the fields it was given.
class Cursor {
public:
    Cursor(Database& database, const std::string& statement, std::vector<Value> values,
           std::vector<FieldRef> fields);
    ~Cursor();
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    /// False when there is no further row.
    bool Next();

private:
    struct State;
    Database& m_database;
    std::unique_ptr<State> m_state;
};

/// A prepared statement that writes; it takes its values from the same fields at each run.
class Statement {
public:
    Statement(Database& database, const std::string& statement, std::vector<FieldRef> fields);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Execute();

private:
    struct State;
    Database& m_database;
    std::unique_ptr<State> m_state;
};

/// Everything that one action of the user writes. Opening it waits for the file's write lock, so
/// that what it reads cannot change before it writes. Rolls back unless committed.
///
/// One that is opened within another belongs to that: what it has committed is stored when the
/// outermost one commits, and what it has not is undone alone.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    std::string Savepoint() const { return "nested" + std::to_string(m_depth); }

    Database& m_database;
    int m_depth; ///< 0 for the outermost
    bool m_open = true;
};

} // namespace quorrel
