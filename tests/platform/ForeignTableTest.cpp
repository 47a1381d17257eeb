#include "platform/ForeignTable.h"
#include "platform/Database.h"
#include "support/JetWriter.h"

#include <QTemporaryDir>

#include <random>

namespace quorrel::test {
namespace {

using Rows = QList<QStringList>;

class ForeignTableTest : public testing::Test {
protected:
    QString Jet(const std::vector<JetTable>& tables) {
        JetWriter::Write(m_path, tables);
        return m_path;
    }

    QString Sqlite(const QString& statements) {
        QFile::remove(m_path);
        Database::Create(m_path, {1}, statements);
        return m_path;
    }

    QString Bytes(const QByteArray& bytes) {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return m_path;
    }

    static Rows RowsOf(const ForeignTable& table, const QStringList& columns) {
        Rows rows;
        table.Walk(columns, [&](const ForeignRow& row) {
            QStringList texts;
            for (qsizetype column = 0; column < columns.size(); ++column)
                texts.append(row.Text(column));
            rows.append(texts);
            return true;
        });
        return rows;
    }

    /// What a failed opening says.
    static std::string Failure(const QString& path, const QString& table = "Staff") {
        try {
            ForeignTable::Open(path, table);
        } catch (const DatabaseError& error) {
            return error.what();
        }
        ADD_FAILURE() << "Opened: " << path.toStdString();
        return {};
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QString::fromUtf8("Pers\u00f6nal list"));
};

const QString kLong = QString("0123456789abc\u00e9").repeated(1000);

JetTable Staff() {
    return {"Staff",
            {{"TM", JetType::Text},
             {"Active", JetType::Boolean},
             {"Small", JetType::Byte},
             {"Half", JetType::Integer},
             {"Whole", JetType::Long},
             {"Pay", JetType::Money},
             {"Single", JetType::Single},
             {"Double", JetType::Double},
             {"Since", JetType::Date},
             {"Notes", JetType::Memo}},
            {{{"a'b \u05de\u05e4", "True", "200", "-5", "123456", "-12345", "0.25", "1001",
               "45000.5", "short"}},
             {{"deleted"}, JetRow::State::Deleted},
             {{"moved", "False"}, JetRow::State::Moved},
             {{QString(), "True", "0", "0", "0", "0", "0", "-2.5", "-1", kLong.left(900)}},
             {{"last", "True", "1", "1", "1", "10000", "1e6", "1e-7", "0", kLong}}}};
}

TEST_F(ForeignTableTest, AJetFileIsReadWhateverItsColumns) {
    const JetTable other{"Other", {{"TM", JetType::Long}}, {{{"7"}}}};
    const auto table = ForeignTable::Open(Jet({other, Staff()}), "STAFF");
    EXPECT_EQ(table->Columns(), QStringList({"TM", "Active", "Small", "Half", "Whole", "Pay",
                                             "Single", "Double", "Since", "Notes"}));
    const Rows rows = RowsOf(*table, table->Columns());
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0],
              QStringList({QString::fromUtf8("a'b \u05de\u05e4"), "True", "200", "-5", "123456",
                           "-1.2345", "0.25", "1001", "2023-03-15 12:00:00", "short"}));
    EXPECT_EQ(rows[1], QStringList({"moved", "False", "", "", "", "", "", "", "", ""}));
    EXPECT_EQ(rows[2].mid(7), QStringList({"-2.5", "1899-12-29", kLong.left(900)}));
    EXPECT_EQ(rows[3].mid(5, 4), QStringList({"1.0000", "1000000", "1e-07", "1899-12-30"}));
    EXPECT_EQ(rows[3][9], kLong);
    EXPECT_EQ(RowsOf(*table, {"notes", "no such", "tm"})[0],
              QStringList({"short", "", QString::fromUtf8("a'b \u05de\u05e4")}));
    EXPECT_EQ(RowsOf(*ForeignTable::Open(m_path, "other"), {"TM"}), Rows({{"7"}}));
    EXPECT_NE(Failure(m_path, "Staff2").find("no table Staff2"), std::string::npos);
    EXPECT_NE(Failure(m_path, "").find("no table"), std::string::npos);
}

TEST_F(ForeignTableTest, ALargeJetFileIsReadToItsEnd) {
    JetTable staff{"Staff", {{"TM", JetType::Long}, {"Name", JetType::Text}}, {}};
    const QString name = QString(230, QChar(0x5d0));
    for (int i = 0; i < 5000; ++i)
        staff.rows.push_back({{QString::number(i), name}});
    const auto table = ForeignTable::Open(Jet({staff}), "Staff");
    ASSERT_GT(QFile(m_path).size(), 600 * 4096);
    const Rows rows = RowsOf(*table, {"TM", "Name"});
    ASSERT_EQ(rows.size(), 5000);
    for (int i = 0; i < 5000; i += 499)
        EXPECT_EQ(rows[i], QStringList({QString::number(i), name}));
    int visits = 0;
    table->Walk({"TM"}, [&](const ForeignRow&) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
}

TEST_F(ForeignTableTest, AnSqliteFileIsReadTheSameWay) {
    const auto table = ForeignTable::Open(
        Sqlite("CREATE TABLE Staff (TM, \"First \"\"x\"\" name\" TEXT, Pay REAL);"
               "INSERT INTO Staff VALUES (17, 'J\u00f6rg', 1001.0);"
               "INSERT INTO Staff VALUES ('0017', NULL, 2.25);"
               "CREATE VIEW People AS SELECT TM AS Badge FROM Staff"),
        "sTaFF");
    EXPECT_EQ(table->Columns(), QStringList({"TM", "First \"x\" name", "Pay"}));
    EXPECT_EQ(RowsOf(*table, {"pay", "FIRST \"X\" NAME", "none", "tm"}),
              Rows({{"1001", QString::fromUtf8("J\u00f6rg"), "", "17"}, {"2.25", "", "", "0017"}}));
    EXPECT_EQ(RowsOf(*ForeignTable::Open(m_path, "people"), {"badge"}), Rows({{"17"}, {"0017"}}));
    EXPECT_NE(Failure(m_path, "x\"; DROP TABLE Staff; --").find("no table"), std::string::npos);
    Database::Open(m_path, {1})->Execute("INSERT INTO Staff VALUES (18, 'New', 0)");
    EXPECT_EQ(RowsOf(*table, {"TM"}).size(), 3) << "as the file is now";
}

TEST_F(ForeignTableTest, WhatIsNoDatabaseIsRefused) {
    EXPECT_NE(Failure(m_folder.path()).find("cannot be found"), std::string::npos);
    EXPECT_NE(Failure(m_folder.filePath("none")).find("cannot be found"), std::string::npos);
    for (const QByteArray& bytes : {QByteArray(), QByteArray("Just a text.\n"),
                                    QByteArray(100000, '\xff'), QByteArray(100000, '\0')})
        EXPECT_NE(Failure(Bytes(bytes)).find("neither an Access nor"), std::string::npos);
    const QByteArray jet = QByteArray("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24);
    for (const QByteArray& bytes :
         {jet, jet + QByteArray(20000, '\0'), jet + QByteArray(20000, 'x'),
          QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x')})
        EXPECT_FALSE(Failure(Bytes(bytes)).empty());
    const auto table = ForeignTable::Open(Jet({Staff()}), "Staff");
    QFile::remove(m_path);
    EXPECT_THROW(table->Columns(), DatabaseError);
    EXPECT_THROW(RowsOf(*table, {"TM"}), DatabaseError);
}

/// Opens a file and reads all of it, or is told that it cannot be read.
void ReadIfPossible(const QString& path) {
    try {
        const auto table = ForeignTable::Open(path, "Staff");
        const QStringList columns = table->Columns();
        table->Walk(columns, [&](const ForeignRow& row) {
            for (qsizetype column = 0; column < columns.size(); ++column)
                row.Text(column);
            return true;
        });
    } catch (const DatabaseError&) {
        // Just as well.
    }
}

TEST_F(ForeignTableTest, ABrokenFileEndsInAFailureOrInFewerRows) {
    testing::internal::CaptureStderr(); // The library has a lot to say.
    const QByteArray whole = JetWriter::FileOf({Staff()});
    for (qsizetype length = 32; length < whole.size(); length += 509)
        ReadIfPossible(Bytes(whole.left(length)));
    std::mt19937 random(1);
    for (int file = 0; file < 1000; ++file) {
        QByteArray broken = whole;
        for (unsigned bytes = 1 + random() % 30; bytes > 0; --bytes) {
            // Most of what leads the reader on stands where a page begins.
            const auto page = 1 + random() % (static_cast<unsigned>(whole.size()) / 4096 - 1);
            const auto place = 4096 * page + random() % (bytes % 2 ? 80 : 4096);
            broken[static_cast<qsizetype>(place)] = static_cast<char>(random());
        }
        ReadIfPossible(Bytes(broken));
    }
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(RowsOf(*ForeignTable::Open(Bytes(whole), "Staff"), {"TM"}).size(), 4);
}

TEST_F(ForeignTableTest, AViewWithoutEndIsGivenUp) {
    const QString path = Sqlite(
        "CREATE VIEW Rows AS WITH RECURSIVE n(TM) AS (SELECT 1 UNION ALL SELECT TM + 1 FROM n) "
        "SELECT TM FROM n;"
        "CREATE VIEW Silent AS SELECT TM FROM Rows WHERE TM < 0;"
        "CREATE VIEW Huge AS SELECT hex(zeroblob(6000000)) AS TM");
    constexpr qint64 steps = 1'000'000;
    const auto rows = ForeignTable::Open(path, "Rows", steps);
    for (int walk = 0; walk < 2; ++walk) { // Each has the bound anew.
        int seen = 0;
        try {
            rows->Walk({"TM"}, [&](const ForeignRow&) { return ++seen > 0; });
            ADD_FAILURE() << "A walk without end has ended";
        } catch (const DatabaseError& error) {
            EXPECT_TRUE(QString::fromUtf8(error.what()).contains("the reading was given up"))
                << error.what();
        }
        EXPECT_GT(seen, 1000);
        EXPECT_LT(seen, steps);
    }
    EXPECT_THROW(ForeignTable::Open(path, "Silent", steps), DatabaseError);
    EXPECT_THROW(ForeignTable::Open(path, "Huge", steps), DatabaseError);
}

} // namespace
} // namespace quorrel::test
