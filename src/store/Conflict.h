#pragma once

#include "platform/Recordset.h"
#include "store/Session.h"

#include <QStringList>

#include <stdexcept>

/// \file
/// What the screen showed must be what a transaction still finds. These routines stand at the
/// beginning of everything that writes; what they throw, a form tells its user, and then shows
/// what holds now. Nothing has been written then.

namespace quorrel {

/// Another workstation has changed or deleted what is on the screen.
class ChangedElsewhere : public std::runtime_error {
public:
    /// `text` says in plain words what has happened.
    explicit ChangedElsewhere(const QString& text) : std::runtime_error(text.toStdString()) {}

    /// `subject` as in "Door A-101". `unsaved` are the texts that were typed and cannot be kept.
    static ChangedElsewhere Changed(const QString& subject, const QStringList& unsaved = {});
    static ChangedElsewhere Deleted(const QString& subject);
    /// What was to be new here is there by now.
    static ChangedElsewhere Added(const QString& subject, const QStringList& unsaved);
};

/// The open key system is not in the file any more.
class SystemGone : public std::runtime_error {
public:
    explicit SystemGone(const QString& systemName);
};

/// Throws `SystemGone` when another workstation has deleted the open key system, also where its
/// number belongs to a system of another name: nothing is told of it that holds no longer.
void RequireSystem(Session& session);

/// A transaction that writes for the open key system, which `RequireSystem`.
class SystemTransaction : public Transaction {
public:
    explicit SystemTransaction(Session& session);
};

/// The row as it is stored now. Throws `ChangedElsewhere` when it has been deleted. Within the
/// caller's transaction.
template <class Row>
Row StoredRow(Database& database, RowKey key, const QString& subject) {
    auto stored = Recordset<Row>(database, Query<WholeOf<Row>>().WhereKey(key)).First();
    if (!stored)
        throw ChangedElsewhere::Deleted(subject);
    return *stored;
}

/// Makes sure that a row is stored as it was shown, in all columns that `Row` has. Throws
/// `ChangedElsewhere` when it is not. Within the caller's transaction.
template <class Row>
void RequireAsShown(Database& database, const Row& shown, const QString& subject) {
    if (!SameFields(StoredRow<Row>(database, shown.key, subject), shown))
        throw ChangedElsewhere::Changed(subject);
}

/// The changes that two workstations have made to one row.
template <class Row>
struct Merge {
    Row row;               ///< as stored, with what was typed here where nobody else has changed it
    bool conflict = false; ///< both have changed the same column to something else
    QStringList unsaved;   ///< the texts typed here that are not in `row`
    QStringList typed;     ///< all texts typed here
};

/// Puts together that `shown` was changed to `typed` here while it became `stored` elsewhere.
template <class Row>
Merge<Row> MergeOf(const Row& shown, const Row& typed, const Row& stored) {
    Merge<Row> merge{stored, false, {}, {}};
    const auto take = [&](const auto& column) {
        const auto& mine = typed.*column.member;
        if (mine == shown.*column.member || mine == stored.*column.member)
            return;
        if constexpr (std::is_same_v<std::decay_t<decltype(mine)>, QString>)
            merge.typed.append(mine);
        if (stored.*column.member == shown.*column.member) {
            merge.row.*column.member = mine;
            return;
        }
        merge.conflict = true;
        if constexpr (std::is_same_v<std::decay_t<decltype(mine)>, QString>)
            merge.unsaved.append(mine);
    };
    std::apply([&](const auto&... column) { (take(column), ...); }, Row::Columns());
    return merge;
}

/// What to store when `shown` was changed to `typed` here while it became `stored` at another
/// workstation: the changes of both. Throws `ChangedElsewhere` where both have changed the same
/// column to something else.
template <class Row>
Row MergedChanges(const Row& shown, const Row& typed, const Row& stored, const QString& subject) {
    auto merge = MergeOf(shown, typed, stored);
    if (merge.conflict)
        throw ChangedElsewhere::Changed(subject, merge.typed);
    return merge.row;
}

} // namespace quorrel
