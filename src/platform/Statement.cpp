#include "platform/DatabaseEngine.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <type_traits>

namespace quorrel {

namespace {

/// A field on its way between the engine and a row: the engine knows no QString and no bool.
struct Slot {
    std::variant<std::string, long long, double> value;
    soci::indicator indicator = soci::i_ok;
    QString stored = {}; ///< The text that `value` was made of: most texts stay from row to row.
};

/// The engine's type for the type of a field.
template <class Type>
struct Engines {
    using type = long long;
};
template <>
struct Engines<QString> {
    using type = std::string;
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

/// What a field of a type makes of a stored number: another program may have left any number there.
template <class Type>
Type Held(EngineType<Type> value) {
    if constexpr (std::is_same_v<Type, int>)
        return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                      std::numeric_limits<int>::max()));
    else if constexpr (std::is_same_v<Type, double>)
        return std::isfinite(value) ? value : 0;
    else
        return static_cast<Type>(value);
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
                *target = null ? Type{} : Held<Type>(value);
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

void Database::Execute(const std::string& statement, const std::vector<Value>& values) {
    Guarded(Attempt::Writing, [&] {
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
    database.Guarded(database.ReadAttempt(), [&] {
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
    return m_database.Guarded(m_database.ReadAttempt(), [&] {
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
    database.Guarded(Database::Attempt::Writing, [&] {
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
    m_database.Guarded(Database::Attempt::Writing, [&] {
        for (std::size_t i = 0; i < m_state->fields.size(); ++i)
            StoreField(m_state->fields[i], m_state->buffers[i]);
        m_state->statement.execute(true);
    });
}

} // namespace quorrel
