#include "platform/JetFile.h"

#include "platform/DatabaseError.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QTime>

#include <glib.h>
#include <mdbtools.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace quorrel {

namespace {

/// The catalogue of all tables is itself a table, defined on this page.
constexpr unsigned long kCataloguePage = 2;

// The library trusts a file in more than one place. What it reads without looking is held within
// these limits first; the format's own are lower.
constexpr long kMostColumns = 255;
constexpr long kMostIndexes = 1000;
constexpr int kMostDefinitionPages = 1000;
constexpr long kLongestText = 1L << 20; ///< bytes

struct CloseFile {
    void operator()(MdbHandle* file) const { mdb_close(file); }
};
struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using FileHandle = std::unique_ptr<MdbHandle, CloseFile>;
using TableHandle = std::unique_ptr<MdbTableDef, FreeTable>;

/// A text of the library's making, which it leaves to the caller to free.
QString Taken(char* text) {
    QString taken = QString::fromUtf8(text);
    g_free(text);
    return taken;
}

QString DateText(double days) {
    // Days since 30 December 1899; the fraction is the time of the day, whatever the sign.
    if (!(std::fabs(days) < 3e6))
        return {};
    const QDate date = QDate(1899, 12, 30).addDays(static_cast<qint64>(days));
    const auto seconds = std::lround(std::fabs(days - std::trunc(days)) * 86400);
    QString text = date.toString(Qt::ISODate);
    if (seconds > 0 && seconds < 86400)
        text += u' ' + QTime(0, 0).addSecs(static_cast<int>(seconds)).toString(Qt::ISODate);
    return text;
}

/// An open file with one of its tables.
class JetRows : public ForeignRow {
public:
    JetRows(const QString& path, const QString& table) : m_path(path) {
        const QFileInfo info(path);
        if (!info.isFile())
            throw DatabaseError(DatabaseError::Kind::Missing, path);
        m_file.reset(mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS));
        if (!m_file)
            throw Damaged();
        m_pageSize = m_file->fmt->pg_size;
        m_pages = static_cast<unsigned long>(info.size() / m_pageSize);
        Define("MSysObjects", kCataloguePage);
        const unsigned long page = PageOf(table);
        if (page == 0)
            throw DatabaseError(DatabaseError::Kind::Other, m_path,
                                QStringLiteral("It has no table %1.").arg(table));
        Define(table.toUtf8(), page);
    }

    QStringList Columns() const {
        QStringList names;
        for (guint i = 0; i < m_table->columns->len; ++i)
            names.append(QString::fromUtf8(ColumnAt(i).name));
        return names;
    }

    void Walk(const QStringList& columns, const ForeignTable::Visit& visit) {
        m_asked.clear();
        for (const QString& name : columns)
            m_asked.push_back(FindColumn(name));
        for (const unsigned long page : TablePages())
            if (!WalkPage(page, visit))
                return;
    }

    QString Text(qsizetype column) const override {
        const MdbColumn* asked = m_asked[static_cast<std::size_t>(column)];
        return asked ? TextOf(*asked) : QString();
    }

private:
    DatabaseError Damaged() const { return {DatabaseError::Kind::Damaged, m_path}; }

    const MdbColumn& ColumnAt(guint i) const {
        return *static_cast<const MdbColumn*>(g_ptr_array_index(m_table->columns, i));
    }

    const MdbColumn* FindColumn(const QString& name) const {
        for (guint i = 0; i < m_table->columns->len; ++i)
            if (QString::fromUtf8(ColumnAt(i).name).compare(name, Qt::CaseInsensitive) == 0)
                return &ColumnAt(i);
        return nullptr;
    }

    bool ReadPage(unsigned long page) const {
        return page < m_pages && mdb_read_pg(m_file.get(), page) == m_pageSize;
    }

    int PageKind() const { return mdb_get_byte(m_file->pg_buf, 0); }

    void Define(const QByteArray& name, unsigned long page) {
        m_table.reset();
        CheckDefinition(page);
        m_entry = {};
        m_entry.mdb = m_file.get();
        m_entry.object_type = MDB_TABLE;
        m_entry.table_pg = page;
        qstrncpy(m_entry.object_name, name.constData(), sizeof m_entry.object_name);
        m_table.reset(mdb_read_table(&m_entry));
        if (!m_table || !mdb_read_columns(m_table.get()))
            throw Damaged();
        for (guint i = 0; i < m_table->columns->len; ++i)
            if (ColumnAt(i).col_num < 0 || ColumnAt(i).col_num > kMostColumns)
                throw Damaged();
    }

    void CheckDefinition(unsigned long page) const {
        const MdbFormatConstants& format = *m_file->fmt;
        unsigned char* bytes = m_file->pg_buf;
        if (!ReadPage(page) || PageKind() != MDB_PAGE_TABLE)
            throw Damaged();
        const long columns = mdb_get_int16(bytes, format.tab_num_cols_offset);
        const long indexes = mdb_get_int32(bytes, format.tab_num_ridxs_offset);
        if (columns < 1 || columns > kMostColumns || indexes < 0 || indexes > kMostIndexes)
            throw Damaged();
        int pages = 1;
        while (const auto next = static_cast<unsigned long>(mdb_get_int32(bytes, 4)))
            if (++pages > kMostDefinitionPages || !ReadPage(next) || PageKind() != MDB_PAGE_TABLE)
                throw Damaged();
    }

    /// The page on which a table of the catalogue is defined, 0 when there is none.
    unsigned long PageOf(const QString& table) {
        unsigned long page = 0;
        Walk({QStringLiteral("Id"), QStringLiteral("Name"), QStringLiteral("Type")},
             [&](const ForeignRow& object) {
                 const bool found = (object.Text(2).toInt() & 0x7f) == MDB_TABLE &&
                                    object.Text(1).compare(table, Qt::CaseInsensitive) == 0;
                 if (found)
                     page = object.Text(0).toULong() & 0xffffff;
                 return !found;
             });
        return page;
    }

    /// The pages that hold rows of the table, in ascending order.
    std::vector<unsigned long> TablePages() const {
        std::vector<unsigned long> pages;
        unsigned char* map = m_table->usage_map;
        const size_t size = m_table->map_sz;
        if (size < 5)
            throw Damaged();
        if (map[0] == 0) {
            AddMarked(map + 5, size - 5, static_cast<unsigned long>(mdb_get_int32(map, 1)), pages);
            return pages;
        }
        // A large table lists the pages that its bitmap fills.
        const auto bits = static_cast<size_t>(m_pageSize) - 4;
        for (size_t part = 0; 1 + 4 * (part + 1) <= size; ++part) {
            const auto page =
                static_cast<unsigned long>(mdb_get_int32(map, static_cast<int>(1 + 4 * part)));
            if (page != 0 && ReadPage(page) && PageKind() == MDB_PAGE_MAP)
                AddMarked(m_file->pg_buf + 4, bits, static_cast<unsigned long>(part * bits * 8),
                          pages);
        }
        return pages;
    }

    static void AddMarked(const unsigned char* bits, size_t bytes, unsigned long first,
                          std::vector<unsigned long>& pages) {
        for (size_t bit = 0; bit < bytes * 8; ++bit)
            if (bits[bit / 8] & (1U << bit % 8))
                pages.push_back(first + bit);
    }

    bool WalkPage(unsigned long page, const ForeignTable::Visit& visit) {
        if (!ReadPage(page) || PageKind() != MDB_PAGE_DATA ||
            static_cast<unsigned long>(mdb_get_int32(m_file->pg_buf, 4)) != m_entry.table_pg)
            return true;
        const int counter = m_file->fmt->row_count_offset;
        const int most = static_cast<int>(m_pageSize - counter - 2) / 2;
        const int rows = std::min(mdb_get_int16(m_file->pg_buf, counter), most);
        for (int row = 0; row < rows; ++row)
            if (mdb_read_row(m_table.get(), static_cast<unsigned>(row)) && !visit(*this))
                return false;
        return true;
    }

    /// The value of a column in the row that was read last.
    QString TextOf(const MdbColumn& column) const {
        const int start = column.cur_value_start;
        const int length = column.cur_value_len;
        if (column.col_type == MDB_BOOL) // Its length says whether it is null, which means no.
            return length ? QStringLiteral("False") : QStringLiteral("True");
        if (length <= 0 || start < 0 || start + length > m_pageSize ||
            length < LeastLength(column.col_type))
            return {};
        unsigned char* bytes = m_file->pg_buf;
        switch (column.col_type) {
        case MDB_BYTE:
        case MDB_INT:
        case MDB_LONGINT:
        case MDB_MONEY:
        case MDB_TEXT:
        case MDB_REPID:
            return Taken(mdb_col_to_string(m_file.get(), bytes, start, column.col_type, length));
        case MDB_FLOAT:
            return QString::number(mdb_get_single(bytes, start), 'g', 7);
        case MDB_DOUBLE:
            return QString::number(mdb_get_double(bytes, start), 'g', 15);
        case MDB_DATETIME:
            return DateText(mdb_get_double(bytes, start));
        case MDB_NUMERIC:
            return Taken(
                mdb_numeric_to_string(m_file.get(), start, column.col_scale, column.col_prec));
        case MDB_MEMO:
            if ((mdb_get_int32(bytes, start) & 0x3fffffff) > kLongestText)
                return {};
            return Taken(mdb_col_to_string(m_file.get(), bytes, start, column.col_type, length));
        default:
            return {};
        }
    }

    static int LeastLength(int type) {
        static const std::map<int, int> lengths = {
            {MDB_INT, 2},   {MDB_LONGINT, 4},  {MDB_MONEY, 8},  {MDB_FLOAT, 4},    {MDB_DOUBLE, 8},
            {MDB_MEMO, 12}, {MDB_DATETIME, 8}, {MDB_REPID, 16}, {MDB_NUMERIC, 17},
        };
        const auto found = lengths.find(type);
        return found == lengths.end() ? 1 : found->second;
    }

    QString m_path;
    FileHandle m_file;
    ssize_t m_pageSize = 0; ///< bytes
    unsigned long m_pages = 0;
    MdbCatalogEntry m_entry = {}; ///< what the table keeps a pointer to
    TableHandle m_table;
    std::vector<const MdbColumn*> m_asked;
};

class JetTable : public ForeignTable {
public:
    JetTable(const QString& path, const QString& table) : ForeignTable(path, table) {}

    QStringList Columns() const override { return JetRows(m_path, m_table).Columns(); }

    void Walk(const QStringList& columns, const Visit& visit) const override {
        JetRows(m_path, m_table).Walk(columns, visit);
    }
};

} // namespace

bool IsJetFile(const QByteArray& head) {
    return head.startsWith(QByteArray("\0\1\0\0Standard Jet DB", 19)) ||
           head.startsWith(QByteArray("\0\1\0\0Standard ACE DB", 19));
}

std::unique_ptr<ForeignTable> OpenJetTable(const QString& path, const QString& table) {
    return std::make_unique<JetTable>(path, table);
}

} // namespace quorrel
