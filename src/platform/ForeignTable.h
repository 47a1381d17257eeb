#pragma once

#include "platform/Database.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace quorrel {

/// A row of a foreign table; it lives as long as the visit that it is handed to.
class ForeignRow {
public:
    virtual ~ForeignRow() = default;

    /// The value of the column at a place of the list that was asked for, as text. Empty for a
    /// null, and where the table has no such column. Numbers stand without needless digits, a
    /// date as year-month-day, yes and no of an Access file as True and False.
    virtual QString Text(qsizetype column) const = 0;
};

/// A table of a database that is not ours: another program keeps it, perhaps at this moment. The
/// file is opened anew for each walk, so that a walk sees what is there, and nobody is hindered
/// in between. Every routine throws `DatabaseError`.
class ForeignTable {
public:
    using Visit = std::function<bool(const ForeignRow&)>;

    /// A table of an Access or an SQLite file, told apart by what the file holds. The names of
    /// table and columns are found without regard to case. Makes sure that a row can be read. A
    /// walk through an SQLite file fails after `mostSteps`, see `Database::kForeignSteps`: a view
    /// may have no end.
    static std::unique_ptr<ForeignTable> Open(const QString& path, const QString& table,
                                              qint64 mostSteps = Database::kForeignSteps);

    virtual ~ForeignTable() = default;
    ForeignTable(const ForeignTable&) = delete;
    ForeignTable& operator=(const ForeignTable&) = delete;

    /// The names of the columns as the table has them now.
    virtual QStringList Columns() const = 0;

    /// Visits the rows in the order in which the file has them, for as long as `visit` says so.
    virtual void Walk(const QStringList& columns, const Visit& visit) const = 0;

protected:
    ForeignTable(QString path, QString table)
        : m_path(std::move(path)), m_table(std::move(table)) {}

    QString m_path;
    QString m_table;
};

} // namespace quorrel
