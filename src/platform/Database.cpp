#include "platform/Database.h"

#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include <QFileInfo>

#include <deque>
#include <type_traits>

namespace quorrel {

struct Database::Engine {
    soci::session session;

    sqlite_api::sqlite3* Handle() {
        return static_cast<soci::sqlite3_session_backend*>(session.get_backend())->conn_;
    }
};

namespace {

DatabaseError::Kind KindOf(int result) {
    switch (result & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseError::Kind::Busy;
    case SQLITE_CORRUPT:
        return DatabaseError::Kind::Damaged;
    case SQLITE_NOTADB:
        return DatabaseError::Kind::NotOurs;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
        return DatabaseError::Kind::ReadOnly;
    case SQLITE_FULL:
        return DatabaseError::Kind::Full;
    default:
        return DatabaseError::Kind::Other;
    }
}

/// The engine's connection text. Its values end at a blank unless quoted.
std::string ConnectionText(const QString& path, int busyTimeout, bool readOnly) {
    const int seconds = (busyTimeout + 999) / 1000;
    return std::string(readOnly ? "readonly=1 " : "") + "timeout=" + std::to_string(seconds) +
           " dbname=\"" + path.toStdString() + '"';
}

/// A field on its way between the engine and a row: the engine knows no QString and no bool.
struct Slot {
    std::variant<std::string, int, long long, double> value;
    soci::indicator indicator = soci::i_ok;
    QString stored = {}; ///< The text that `value` was made of: most texts stay from row to row.
};

/// The engine's type for the type of a field.
template <class Type>
struct Engines {
    using type = int;
};
template <>
struct Engines<QString> {
    using type = std::string;
};
template <>
struct Engines<qint64> {
    using type = long long;
};
template <>
struct Engines<double> {
    using type = double;
};
template <class Type>
using EngineType = typename Engines<Type>::type;

Slot SlotFor(const FieldRef& field) {
    return std::visit(
        [](auto* target) { return Slot{EngineType<std::remove_pointer_t<decltype(target)>>{}}; },
        field);
}

void LoadField(const FieldRef& field, const Slot& slot) {
    const bool null = slot.indicator == soci::i_null;
    std::visit(
        [&](auto* target) {
            using Type = std::remove_pointer_t<decltype(target)>;
            const auto& value = std::get<EngineType<Type>>(slot.value);
            if constexpr (std::is_same_v<Type, QString>)
                *target = null ? QString() : QString::fromStdString(value);
            else
                *target = null ? Type{} : static_cast<Type>(value);
        },
        field);
}

void StoreField(const FieldRef& field, Slot& slot) {
    std::visit(
        [&](auto* source) {
            using Type = std::remove_pointer_t<decltype(source)>;
            if constexpr (std::is_same_v<Type, QString>) {
                if (slot.stored == *source)
                    return;
                slot.stored = *source;
                const QByteArray utf8 = source->toUtf8();
                std::get<std::string>(slot.value)
                    .assign(utf8.constData(), static_cast<std::size_t>(utf8.size()));
            } else {
                slot.value = static_cast<EngineType<Type>>(*source);
            }
        },
        field);
}

Slot SlotHolding(const Value& value) {
    return std::visit(
        [](const auto& held) {
            using Type = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Type, QString>)
                return Slot{held.toStdString()};
            else if constexpr (std::is_same_v<Type, qint64>)
                return Slot{static_cast<long long>(held)};
            else
                return Slot{held};
        },
        value);
}

void BindInto(soci::statement& statement, Slot& slot) {
    std::visit([&](auto& value) { statement.exchange(soci::into(value, slot.indicator)); },
               slot.value);
}

void BindUse(soci::statement& statement, Slot& slot) {
    std::visit([&](auto& value) { statement.exchange(soci::use(value)); }, slot.value);
}

} // namespace

template <class Action>
auto Database::Guarded(Action&& action) const {
    try {
        return action();
    } catch (const soci::sqlite3_soci_error& error) {
        throw DatabaseError(KindOf(error.result()), m_path,
                            QString::fromStdString(error.get_error_message()));
    } catch (const soci::soci_error& error) {
        throw DatabaseError(DatabaseError::Kind::Other, m_path,
                            QString::fromStdString(error.get_error_message()));
    }
}

Database::Database(const QString& path, int busyTimeout, Access access)
    : m_path(path), m_engine(std::make_unique<Engine>()) {
    // The connection text has no way to write one: the engine would open, and make, another file.
    if (path.contains(u'"'))
        throw DatabaseError(DatabaseError::Kind::Other, path,
                            QStringLiteral("Its path has a quotation mark."));
    Guarded([&] {
        m_engine->session.open(soci::sqlite3,
                               ConnectionText(path, busyTimeout, access == Access::ReadOnly));
        sqlite_api::sqlite3_busy_timeout(m_engine->Handle(), busyTimeout);
        m_engine->session << "PRAGMA synchronous = FULL";
        // Room for a whole large system, so that readers are shut out at the commit alone.
        m_engine->session << "PRAGMA cache_size = -32000";
        m_engine->session << "PRAGMA trusted_schema = OFF";
    });
}

Database::~Database() = default;

std::unique_ptr<Database> Database::Open(const QString& path, const FileKind& kind,
                                         int busyTimeout) {
    const QFileInfo info(path);
    if (!info.isFile()) // Opening would make an empty file.
        throw DatabaseError(DatabaseError::Kind::Missing, path);
    std::unique_ptr<Database> database(new Database(path, busyTimeout));
    database->Check(kind);
    return database;
}

std::unique_ptr<Database> Database::OpenForeign(const QString& path) {
    if (!QFileInfo(path).isFile())
        throw DatabaseError(DatabaseError::Kind::Missing, path);
    return std::unique_ptr<Database>(new Database(path, kBusyTimeout, Access::ReadOnly));
}

void Database::Check(const FileKind& kind) {
    if (Number("PRAGMA application_id") != kind.applicationId)
        throw DatabaseError(DatabaseError::Kind::NotOurs, m_path);
    if (Number("PRAGMA user_version") > kind.schemaVersion)
        throw DatabaseError(DatabaseError::Kind::TooNew, m_path);
    if (Number("PRAGMA page_count") * Number("PRAGMA page_size") > QFileInfo(m_path).size())
        throw DatabaseError(DatabaseError::Kind::Damaged, m_path);
    if (sqlite_api::sqlite3_db_readonly(m_engine->Handle(), "main") != 0)
        throw DatabaseError(DatabaseError::Kind::ReadOnly, m_path);
}

std::unique_ptr<Database> Database::Create(const QString& path, const FileKind& kind,
                                           const QString& schema) {
    if (QFileInfo::exists(path))
        throw DatabaseError(DatabaseError::Kind::Other, path, QStringLiteral("It exists already."));
    std::unique_ptr<Database> database(new Database(path, kBusyTimeout));
    database->Execute("PRAGMA application_id = " + std::to_string(kind.applicationId));
    Transaction transaction(*database);
    for (const QString& statement : schema.split(u';'))
        if (!statement.trimmed().isEmpty())
            database->Execute(statement.toStdString());
    database->Execute("PRAGMA user_version = " + std::to_string(kind.schemaVersion));
    transaction.Commit();
    return database;
}

void Database::Execute(const std::string& statement, const std::vector<Value>& values) {
    Guarded([&] {
        std::deque<Slot> bound;
        soci::statement run(m_engine->session);
        for (const Value& value : values)
            BindUse(run, bound.emplace_back(SlotHolding(value)));
        run.alloc();
        run.prepare(statement);
        run.define_and_bind();
        run.execute(true);
    });
}

qint64 Database::Number(const std::string& statement, const std::vector<Value>& values) {
    qint64 number = 0;
    Cursor cursor(*this, statement, values, {FieldRef(&number)});
    cursor.Next();
    return number;
}

RowKey Database::LastKey() {
    return sqlite_api::sqlite3_last_insert_rowid(m_engine->Handle());
}

struct Cursor::State {
    explicit State(soci::session& session) : statement(session) {}

    std::vector<FieldRef> fields;
    std::deque<Slot> buffers; ///< What the engine fills; a deque, so that the places stay.
    std::deque<Slot> values;  ///< What is bound.
    soci::statement statement;
    bool executed = false;
};

Cursor::Cursor(Database& database, const std::string& statement, std::vector<Value> values,
               std::vector<FieldRef> fields)
    : m_database(database) {
    database.Guarded([&] {
        m_state = std::make_unique<State>(database.m_engine->session);
        m_state->fields = std::move(fields);
        for (const FieldRef& field : m_state->fields)
            BindInto(m_state->statement, m_state->buffers.emplace_back(SlotFor(field)));
        for (const Value& value : values)
            BindUse(m_state->statement, m_state->values.emplace_back(SlotHolding(value)));
        m_state->statement.alloc();
        m_state->statement.prepare(statement);
        m_state->statement.define_and_bind();
    });
}

Cursor::~Cursor() = default;

bool Cursor::Next() {
    return m_database.Guarded([&] {
        if (!m_state->executed) {
            m_state->executed = true;
            m_state->statement.execute(false);
        }
        if (!m_state->statement.fetch())
            return false;
        for (std::size_t i = 0; i < m_state->fields.size(); ++i)
            LoadField(m_state->fields[i], m_state->buffers[i]);
        return true;
    });
}

struct Statement::State {
    explicit State(soci::session& session) : statement(session) {}

    std::vector<FieldRef> fields;
    std::deque<Slot> buffers;
    soci::statement statement;
};

Statement::Statement(Database& database, const std::string& statement, std::vector<FieldRef> fields)
    : m_database(database) {
    database.Guarded([&] {
        m_state = std::make_unique<State>(database.m_engine->session);
        m_state->fields = std::move(fields);
        for (const FieldRef& field : m_state->fields)
            BindUse(m_state->statement, m_state->buffers.emplace_back(SlotFor(field)));
        m_state->statement.alloc();
        m_state->statement.prepare(statement);
        m_state->statement.define_and_bind();
    });
}

Statement::~Statement() = default;

void Statement::Execute() {
    m_database.Guarded([&] {
        for (std::size_t i = 0; i < m_state->fields.size(); ++i)
            StoreField(m_state->fields[i], m_state->buffers[i]);
        m_state->statement.execute(true);
    });
}

Transaction::Transaction(Database& database)
    : m_database(database), m_depth(database.m_transactions) {
    // A plain BEGIN that reads and then writes would fail at once, without waiting, when another
    // workstation holds the lock.
    database.Execute(m_depth == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT " + Savepoint());
    ++database.m_transactions;
}

Transaction::~Transaction() {
    m_database.m_transactions = m_depth;
    if (!m_open)
        return;
    try {
        m_database.Execute(m_depth == 0 ? "ROLLBACK" : "ROLLBACK TO " + Savepoint());
        if (m_depth > 0)
            m_database.Execute("RELEASE " + Savepoint());
    } catch (...) {
        // The engine has rolled back by itself, as it does when the disk is full.
    }
}

void Transaction::Commit() {
    if (m_database.m_transactions != m_depth + 1)
        throw ProgrammingError("A transaction is committed while one within it is open");
    m_database.Execute(m_depth == 0 ? "COMMIT" : "RELEASE " + Savepoint());
    m_open = false;
}

} // namespace quorrel
