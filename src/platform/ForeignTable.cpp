#include "platform/ForeignTable.h"

#include "platform/JetFile.h"
#include "platform/Query.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

namespace quorrel {

namespace {

/// The text of a column: a number that is whole stands without its fraction.
std::string AsText(const QString& column) {
    const std::string name = QueryText::Quoted(column.toStdString());
    return "CASE typeof(" + name + ") WHEN 'real' THEN printf('%.15g', " + name + ") ELSE CAST(" +
           name + " AS TEXT) END";
}

class SqliteRow : public ForeignRow {
public:
    explicit SqliteRow(qsizetype columns) : m_texts(static_cast<std::size_t>(columns)) {}

    QString Text(qsizetype column) const override {
        return m_texts[static_cast<std::size_t>(column)];
    }

    std::vector<FieldRef> Fields() {
        std::vector<FieldRef> fields;
        for (QString& text : m_texts)
            fields.emplace_back(&text);
        return fields;
    }

private:
    std::vector<QString> m_texts;
};

class SqliteTable : public ForeignTable {
public:
    SqliteTable(const QString& path, const QString& table, qint64 mostSteps)
        : ForeignTable(path, table), m_mostSteps(mostSteps) {}

    QStringList Columns() const override {
        return ColumnsOf(*Database::OpenForeign(m_path, m_mostSteps));
    }

    void Walk(const QStringList& columns, const Visit& visit) const override {
        const auto database = Database::OpenForeign(m_path, m_mostSteps);
        const QStringList known = ColumnsOf(*database);
        std::string texts;
        for (const QString& column : columns)
            texts += (texts.empty() ? "" : ", ") +
                     (known.contains(column, Qt::CaseInsensitive) ? AsText(column) : "NULL");
        SqliteRow row(columns.size());
        Cursor cursor(*database,
                      "SELECT " + texts + " FROM " + QueryText::Quoted(m_table.toStdString()), {},
                      row.Fields());
        while (cursor.Next())
            if (!visit(row))
                return;
    }

private:
    QStringList ColumnsOf(Database& database) const {
        QStringList columns;
        QString name;
        Cursor cursor(database, "SELECT name FROM pragma_table_info(:v1)", {m_table},
                      {FieldRef(&name)});
        while (cursor.Next())
            columns.append(name);
        if (columns.isEmpty())
            throw DatabaseError(DatabaseError::Kind::Other, m_path,
                                QStringLiteral("It has no table %1.").arg(m_table));
        return columns;
    }

    qint64 m_mostSteps;
};

std::unique_ptr<ForeignTable> TableOfItsKind(const QString& path, const QString& table,
                                             qint64 mostSteps) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw DatabaseError(DatabaseError::Kind::Missing, path);
    const QByteArray head = file.read(32);
    if (IsJetFile(head))
        return OpenJetTable(path, table);
    if (head.startsWith("SQLite format 3"))
        return std::make_unique<SqliteTable>(path, table, mostSteps);
    throw DatabaseError(DatabaseError::Kind::Other, path,
                        QStringLiteral("It is neither an Access nor an SQLite database."));
}

} // namespace

std::unique_ptr<ForeignTable> ForeignTable::Open(const QString& path, const QString& table,
                                                 qint64 mostSteps) {
    auto opened = TableOfItsKind(path, table, mostSteps);
    const QStringList columns = opened->Columns();
    opened->Walk(columns, [&](const ForeignRow& row) {
        for (qsizetype column = 0; column < columns.size(); ++column)
            row.Text(column);
        return false;
    });
    return opened;
}

} // namespace quorrel
