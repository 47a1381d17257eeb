#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <vector>

namespace quorrel::test {

enum class JetType : unsigned char {
    Boolean = 1,
    Byte,
    Integer,
    Long,
    Money, ///< in ten thousandths
    Single,
    Double,
    Date, ///< days since 30 December 1899
    Text = 10,
    Ole, ///< always null
    Memo
};

struct JetColumn {
    const char* name;
    JetType type;
};

/// A row of values as texts, a null text for a null.
struct JetRow {
    enum class State { Plain, Deleted, Moved };
    QStringList values;
    State state = State::Plain;
};

struct JetTable {
    QString name;
    std::vector<JetColumn> columns;
    std::vector<JetRow> rows;
};

/// Writes database files of the Jet 4 format: tables without indexes, in as many pages of 4096
/// bytes as they need, and the catalogue that names them.
class JetWriter {
public:
    static QByteArray FileOf(const std::vector<JetTable>& tables) {
        JetWriter writer;
        return writer.Write(tables);
    }

    static void Write(const QString& path, const std::vector<JetTable>& tables) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(FileOf(tables));
    }

private:
    static constexpr int kPage = 4096;

    template <class Number>
    static QByteArray Bytes(Number number) {
        QByteArray bytes(sizeof(Number), '\0');
        qToLittleEndian(number, bytes.data());
        return bytes;
    }
    static QByteArray Two(qsizetype number) { return Bytes(static_cast<quint16>(number)); }
    static QByteArray Four(qsizetype number) { return Bytes(static_cast<quint32>(number)); }
    static qsizetype PointerTo(std::size_t page, qsizetype row) {
        return static_cast<qsizetype>(page) * 256 + row;
    }

    static void SetBit(QByteArray& bits, std::size_t bit) {
        char& byte = bits.data()[bit / 8];
        byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << bit % 8);
    }

    std::size_t NewPage(const QByteArray& content = {}) {
        m_pages.push_back(content.leftJustified(kPage, '\0', true));
        return m_pages.size() - 1;
    }

    void Put(std::size_t page, qsizetype place, const QByteArray& bytes) {
        m_pages[page].replace(place, bytes.size(), bytes);
    }

    /// A page of rows that belongs to a table definition, or "LVAL" for parts of long values.
    std::size_t NewRowPage(const QByteArray& owner) {
        return NewPage(QByteArray("\1\1\0\0", 4) + owner + Four(0) + Two(0));
    }

    /// Puts a row at the end of the room that is left; false when there is too little.
    bool PutRow(std::size_t page, const QByteArray& row, int flags, qsizetype* number = nullptr) {
        const QByteArray& bytes = m_pages[page];
        const auto count = qFromLittleEndian<quint16>(bytes.constData() + 12);
        const qsizetype end = count == 0
                                  ? kPage
                                  : qFromLittleEndian<quint16>(bytes.constData() + 12 +
                                                               2 * static_cast<qsizetype>(count)) &
                                        0x1fff;
        const qsizetype start = end - row.size();
        if (start < 14 + 2 * (count + 1))
            return false;
        Put(page, start, row);
        Put(page, 14 + 2 * count, Two(start | flags));
        Put(page, 12, Two(count + 1));
        if (number)
            *number = count;
        return true;
    }

    QByteArray Write(const std::vector<JetTable>& tables) {
        NewPage(Header());
        NewRowPage(Four(0)); // which pages belong to which table
        NewPage();           // the definition of the catalogue
        JetTable catalogue{"MSysObjects",
                           {{"Id", JetType::Long},
                            {"ParentId", JetType::Long},
                            {"Name", JetType::Text},
                            {"Type", JetType::Integer},
                            {"Flags", JetType::Long},
                            {"LvProp", JetType::Ole}},
                           {}};
        for (const JetTable& table : tables) {
            const std::size_t definition = NewPage();
            WriteTable(table, definition);
            catalogue.rows.push_back(
                {{QString::number(definition), "251658241", table.name, "1", "0"}});
        }
        WriteTable(catalogue, 2);
        return std::accumulate(m_pages.begin(), m_pages.end(), QByteArray());
    }

    /// The marks of the format; what follows them is hidden by a stream cipher with a known key.
    static QByteArray Header() {
        QByteArray hidden(128, '\0');
        hidden.replace(0x3a - 0x18, 4, Two(0x409) + Two(1252));
        unsigned char state[256];
        std::iota(std::begin(state), std::end(state), static_cast<unsigned char>(0));
        const unsigned char key[] = {0xc7, 0xda, 0x39, 0x6b};
        for (unsigned i = 0, j = 0; i < 256; ++i) {
            j = (j + state[i] + key[i % 4]) % 256;
            std::swap(state[i], state[j]);
        }
        unsigned j = 0;
        for (qsizetype k = 0; k < hidden.size(); ++k) {
            const auto i = static_cast<unsigned>(k + 1) % 256;
            j = (j + state[i]) % 256;
            std::swap(state[i], state[j]);
            hidden[k] = static_cast<char>(static_cast<unsigned char>(hidden[k]) ^
                                          state[(state[i] + state[j]) % 256]);
        }
        return QByteArray("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24) + hidden;
    }

    static bool IsFixed(JetType type) { return type < JetType::Text; }

    static int SizeOf(JetType type) {
        static constexpr int sizes[] = {0, 1, 1, 2, 4, 8, 4, 8, 8};
        return IsFixed(type) ? sizes[static_cast<int>(type)] : type == JetType::Text ? 510 : 0;
    }

    void WriteTable(const JetTable& table, std::size_t definition) {
        std::vector<std::size_t> pages{NewRowPage(Four(static_cast<qsizetype>(definition)))};
        const auto add = [&](const QByteArray& row, int flags) {
            qsizetype number = 0;
            if (!PutRow(pages.back(), row, flags, &number)) {
                pages.push_back(NewRowPage(Four(static_cast<qsizetype>(definition))));
                if (!PutRow(pages.back(), row, flags, &number))
                    throw std::length_error("A row is longer than a page.");
            }
            return PointerTo(pages.back(), number);
        };
        for (const JetRow& row : table.rows) {
            const QByteArray bytes = RowOf(table.columns, row.values);
            if (row.state == JetRow::State::Moved)
                add(Four(add(bytes, 0x8000)), 0x4000);
            else
                add(bytes, row.state == JetRow::State::Deleted ? 0xc000 : 0);
        }
        qsizetype map = 0;
        PutRow(1, MapOf(pages), 0, &map);
        WriteDefinition(table, definition, PointerTo(1, map));
    }

    /// The bitmap of a table's pages: within the row, or on pages of its own for a large table.
    QByteArray MapOf(const std::vector<std::size_t>& pages) {
        const std::size_t first = pages.front();
        const bool small = pages.back() - first < 512;
        QByteArray bits(small ? 64 : kPage - 4, '\0');
        for (const std::size_t page : pages) {
            const std::size_t bit = small ? page - first : page;
            SetBit(bits, bit);
        }
        if (small)
            return QByteArray(1, '\0') + Four(static_cast<qsizetype>(first)) + bits;
        const auto map = static_cast<qsizetype>(NewPage(QByteArray("\5\1\0\0", 4) + bits));
        return (QByteArray(1, '\1') + Four(map)).leftJustified(69, '\0');
    }

    void WriteDefinition(const JetTable& table, std::size_t page, qsizetype map) {
        QByteArray columns;
        QByteArray names;
        qsizetype variable = 0;
        qsizetype place = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const JetType type = table.columns[i].type;
            const auto number = static_cast<qsizetype>(i);
            columns += QByteArray(1, static_cast<char>(type)) + Four(0) + Two(number) +
                       Two(IsFixed(type) ? 0 : variable) + Two(number) + Two(0x409) + Two(0) +
                       (IsFixed(type) ? "\3" : "\2") + '\1' + Four(0) +
                       Two(IsFixed(type) ? place : 0) + Two(SizeOf(type));
            if (!IsFixed(type))
                ++variable;
            else if (type != JetType::Boolean)
                place += SizeOf(type);
            const QByteArray name = Wide(QString::fromUtf8(table.columns[i].name));
            names += Two(name.size()) + name;
        }
        const auto count = static_cast<qsizetype>(table.columns.size());
        Put(page, 0,
            QByteArray("\2\1\0\0", 4) + Four(0) + Four(55 + columns.size() + names.size()) +
                Four(0) + Four(LivingRows(table)) + QByteArray(20, '\0') + 'N' + Two(count) +
                Two(variable) + Two(count) + Four(0) + Four(0) + Four(map) + Four(map) + columns +
                names);
        if (m_pages[page].size() != kPage)
            throw std::length_error("A definition is longer than a page.");
    }

    static qsizetype LivingRows(const JetTable& table) {
        return std::count_if(table.rows.begin(), table.rows.end(),
                             [](const JetRow& row) { return row.state != JetRow::State::Deleted; });
    }

    static QByteArray Wide(const QString& text) {
        QByteArray bytes;
        for (const QChar c : text)
            bytes += Two(c.unicode());
        return bytes;
    }

    /// Characters of one byte are stored as such behind a mark.
    static QByteArray Stored(const QString& text) {
        const bool narrow = std::all_of(
            text.begin(), text.end(), [](QChar c) { return c.unicode() > 0 && c.unicode() < 256; });
        return narrow && text.size() > 2 ? "\xff\xfe" + text.toLatin1() : Wide(text);
    }

    static QByteArray FixedValue(JetType type, const QString& text) {
        switch (type) {
        case JetType::Byte:
            return QByteArray(1, static_cast<char>(text.toUInt()));
        case JetType::Integer:
            return Bytes(text.toShort());
        case JetType::Long:
            return Bytes(text.toInt());
        case JetType::Money:
            return Bytes(text.toLongLong());
        case JetType::Single:
            return Bytes(text.toFloat());
        default:
            return Bytes(text.toDouble());
        }
    }

    /// A long value: with its row when short, else on pages for parts of long values.
    QByteArray MemoOf(const QString& text) {
        const QByteArray bytes = Stored(text);
        if (bytes.size() <= 64)
            return Four(bytes.size() | 0x80000000) + Four(0) + Four(0) + bytes;
        constexpr qsizetype room = 4000;
        qsizetype next = 0;
        if (bytes.size() <= room) {
            next = PutPart(bytes);
            return Four(bytes.size() | 0x40000000) + Four(next) + Four(0);
        }
        for (qsizetype part = (bytes.size() - 1) / room; part >= 0; --part)
            next = PutPart(Four(next) + bytes.mid(part * room, room));
        return Four(bytes.size()) + Four(next) + Four(0);
    }

    qsizetype PutPart(const QByteArray& part) {
        const std::size_t page = NewRowPage("LVAL");
        PutRow(page, part, 0);
        return PointerTo(page, 0);
    }

    QByteArray RowOf(const std::vector<JetColumn>& columns, const QStringList& values) {
        QByteArray fixed;
        QByteArray variable;
        QByteArray present(static_cast<qsizetype>(columns.size() + 7) / 8, '\0');
        QByteArray places;
        const auto isLong = [](JetType type) { return type == JetType::Memo; };
        std::vector<QByteArray> texts;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const QString value = values.value(static_cast<qsizetype>(i));
            const JetType type = columns[i].type;
            if (type == JetType::Boolean ? value == "True" : !value.isNull())
                SetBit(present, i);
            if (type != JetType::Boolean && IsFixed(type))
                fixed += FixedValue(type, value);
            if (!IsFixed(type))
                texts.push_back(value.isNull() ? QByteArray()
                                : isLong(type) ? MemoOf(value)
                                               : Stored(value));
        }
        const auto start = 2 + fixed.size();
        for (const QByteArray& text : texts) {
            places.prepend(Two(start + variable.size()));
            variable += text;
        }
        QByteArray row = Two(static_cast<qsizetype>(columns.size())) + fixed + variable;
        if (!texts.empty())
            row +=
                Two(start + variable.size()) + places + Two(static_cast<qsizetype>(texts.size()));
        return row + present;
    }

    std::vector<QByteArray> m_pages;
};

} // namespace quorrel::test
