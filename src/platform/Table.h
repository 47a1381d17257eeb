#pragma once

#include <QString>

#include <tuple>
#include <utility>
#include <variant>
#include <vector>

namespace quorrel {

/// The hidden integer key of a stored row; 0 for a row that is not stored yet. The keys of a table
/// ascend in the order in which its rows were added: that order is called table order.
using RowKey = qint64;

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

} // namespace quorrel
