#pragma once

#include "platform/ProgrammingError.h"

#include <QString>

#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace quorrel {

/// The hidden integer key of a stored row; 0 for a row that is not stored yet. The keys of a table
/// ascend in the order in which its rows were added: that order is called table order.
using RowKey = qint64;

/// The stored name of `RowKey key`.
inline constexpr const char* kRowKey = "RowKey";

/// A column of a table and the member of the row struct that holds it.
template <class Row, class Type>
struct Column {
    const char* name;
    Type Row::*member;
};

/// Declares a column whose stored name is the member's name. Used within a row struct that calls
/// itself `Self`.
#define QUORREL_COLUMN(name)                                                                       \
    quorrel::Column<Self, decltype(Self::name)> {                                                  \
#name, &Self::name                                                                         \
    }

/// Place of a field in a row, for reading and for writing.
using FieldRef = std::variant<QString*, int*, qint64*, double*, bool*>;

/// A value bound to a statement.
using Value = std::variant<qint64, double, QString>;

/// The row struct that holds all columns of a row's table: itself, unless it is a part of another
/// that it names `Whole`.
template <class Row, class = void>
struct WholeRow {
    using type = Row;
};
template <class Row>
struct WholeRow<Row, std::void_t<typename Row::Whole>> {
    using type = typename Row::Whole;
};
template <class Row>
using WholeOf = typename WholeRow<Row>::type;

template <class Row>
constexpr const char* TableName() {
    return WholeOf<Row>::kTable;
}

template <class Row>
std::vector<FieldRef> FieldsOf(Row& row) {
    return std::apply(
        [&](const auto&... column) {
            return std::vector<FieldRef>{FieldRef(&(row.*column.member))...};
        },
        Row::Columns());
}

template <class Row>
std::vector<const char*> ColumnNamesOf() {
    return std::apply([](const auto&... column) { return std::vector{column.name...}; },
                      Row::Columns());
}

/// The name of a column if this member holds it, else null.
template <class Row, class Type, class Wanted>
const char* NameIfHeldBy(const Column<Row, Type>& column, Wanted Row::*member) {
    if constexpr (std::is_same_v<Type, Wanted>)
        return column.member == member ? column.name : nullptr;
    return nullptr;
}

/// The stored name of the column that a member of its row struct holds.
template <class Row, class Type>
const char* ColumnName(Type Row::*member) {
    const char* name = nullptr;
    if constexpr (std::is_same_v<Type, RowKey>)
        name = member == &Row::key ? kRowKey : nullptr;
    std::apply(
        [&](const auto&... column) { ((name = name ? name : NameIfHeldBy(column, member)), ...); },
        Row::Columns());
    if (!name)
        throw ProgrammingError(std::string("Not a column of ") + TableName<Row>());
    return name;
}

/// Whether two rows agree in all columns, whatever their keys.
template <class Row>
bool SameFields(const Row& one, const Row& other) {
    return std::apply(
        [&](const auto&... column) {
            return ((one.*column.member == other.*column.member) && ...);
        },
        Row::Columns());
}

} // namespace quorrel
