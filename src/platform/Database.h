#pragma once

#include "platform/DatabaseError.h"
#include "platform/Table.h"

#include <QString>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace quorrel {

class LogFile;

/// What marks a file as one of ours: an application id in its header, and how many of the steps
/// that its schema has taken since the first revision it has behind it.
struct FileKind {
    qint64 applicationId;
    /// The statements of each step, joined by semicolons. The first one makes revision 2 of a file
    /// of revision 1. What was once delivered is never changed, only followed by another step.
    std::span<const char* const> steps = {};
    /// Without one of these tables a file counts as damaged.
    std::span<const char* const> tables = {};

    /// The revision that this program reads and writes.
    qint64 Revision() const { return 1 + static_cast<qint64>(steps.size()); }
};

/// An open database file. Every routine throws `DatabaseError`.
class Database {
public:
    /// How long a statement waits for another workstation, in milliseconds.
    static constexpr int kBusyTimeout = 5000;

    /// Opens an existing file for reading and writing, shared with other workstations, after
    /// making sure that it is of the kind, not newer than this program, whole and writable. A file
    /// of an earlier revision is brought up to date; as it was before it stays beside it, under a
    /// name such as "KeySystem.revision1.qv2".
    static std::unique_ptr<Database> Open(const QString& path, const FileKind& kind,
                                          int busyTimeout = kBusyTimeout);

    /// How much is read of a file that is not ours before it counts as having no end, in steps of
    /// the engine: some seconds, or a million persons.
    static constexpr qint64 kForeignSteps = 100'000'000;

    /// Opens a file that is not ours, for reading alone. More than `mostSteps` are not read.
    static std::unique_ptr<Database> OpenForeign(const QString& path,
                                                 qint64 mostSteps = kForeignSteps);

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

    /// Waits for other workstations no longer than this from now on, in milliseconds.
    void SetPatience(int busyTimeout);
    int Patience() const { return m_patience; }

    /// Notes what it cannot report otherwise. The log must outlive the database.
    void NoteIn(const LogFile& log) { m_log = &log; }

private:
    friend class Attachment;
    friend class Cursor;
    friend class Statement;
    friend class Transaction;
    struct Engine;
    using Attempt = DatabaseError::Attempt;

    enum class Access { Full, ReadOnly };

    Database(const QString& path, int busyTimeout, Access access = Access::Full);
    void Check(const FileKind& kind);
    void RequireTables(const FileKind& kind);
    void RunAll(const QString& statements);
    void BringUpToDate(const FileKind& kind);
    void CopyTo(const QString& path);
    template <class Action>
    auto Guarded(Attempt attempt, Action&& action) const;
    DatabaseError Failure(int result, const QString& message, Attempt attempt) const;
    Attempt ReadAttempt() const { return m_transactions > 0 ? Attempt::Writing : Attempt::Reading; }
    void Note(const char* what, const std::exception& error) const;

    QString m_path;
    std::unique_ptr<Engine> m_engine;
    int m_patience;
    int m_transactions = 0; ///< open ones, one within the other
    qint64 m_stepsLeft = 0; ///< of a foreign file, in thousands
    const LogFile* m_log = nullptr;
};

/// For as long as it lives, a database waits for other workstations only a moment.
class ShortPatience {
public:
    explicit ShortPatience(Database& database);
    ~ShortPatience() { m_database.SetPatience(m_before); }
    ShortPatience(const ShortPatience&) = delete;
    ShortPatience& operator=(const ShortPatience&) = delete;

private:
    Database& m_database;
    int m_before;
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

    /// Everything that was written is stored when this returns.
    void Commit();

private:
    std::string Savepoint() const { return "nested" + std::to_string(m_depth); }

    Database& m_database;
    int m_depth; ///< 0 for the outermost
    bool m_open = true;
};

/// Another database file as a part of one that is open, for an action that touches both. A
/// transaction that is opened on `database` meanwhile spans both files: what it commits is stored
/// in both, or after a failure, even of the machine, in neither. A table is named as ever, as long
/// as only one of the files has it.
///
/// Not for longer than the action: a transaction locks every attached file.
class Attachment {
public:
    /// Neither database may be within a transaction.
    Attachment(Database& database, Database& other);
    ~Attachment();
    Attachment(const Attachment&) = delete;
    Attachment& operator=(const Attachment&) = delete;

private:
    void Detach();

    Database& m_database;
};

} // namespace quorrel
