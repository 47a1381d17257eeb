#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/Scramble.h"
#include "support/TestProgram.h"

#include "platform/Recordset.h"

#include <QSet>

#include <limits>

namespace quorrel::test {
namespace {

/// The columns of a table as the file has them, without the hidden key.
QSet<QString> StoredColumns(Database& database, const char* table) {
    QSet<QString> columns;
    QString name;
    Cursor cursor(database, "SELECT name FROM pragma_table_info(:t)",
                  {Value(QString::fromLatin1(table))}, {FieldRef(&name)});
    while (cursor.Next())
        columns.insert(name);
    EXPECT_TRUE(columns.remove(QStringLiteral("RowKey"))) << table;
    return columns;
}

/// Checks a row struct's columns both ways and that an added row comes back whole.
template <class Row>
void CheckTable(Database& database, QSet<QString>& tables) {
    SCOPED_TRACE(Row::kTable);
    tables.insert(QString::fromLatin1(Row::kTable));
    QSet<QString> columns;
    for (const char* name : ColumnNamesOf<Row>())
        columns.insert(QString::fromLatin1(name));
    EXPECT_EQ(columns, StoredColumns(database, Row::kTable));

    Row row;
    int number = 0;
    for (const FieldRef& field : FieldsOf(row))
        std::visit(
            [&](auto* target) {
                ++number;
                if constexpr (std::is_same_v<decltype(target), QString*>)
                    *target =
                        QString::fromUtf8("Fran\u00e7ois O'Brien 100% ") + QString::number(number);
                else
                    *target = static_cast<std::remove_pointer_t<decltype(target)>>(number);
            },
            field);
    Recordset<Row>::Add(database, row);
    auto back = Recordset<Row>(database).Rows().back();
    EXPECT_EQ(back.key, row.key);
    const auto written = FieldsOf(row);
    const auto read = FieldsOf(back);
    for (std::size_t i = 0; i < written.size(); ++i)
        std::visit(
            [&](auto* target) {
                EXPECT_EQ(*target, *std::get<decltype(target)>(read[i])) << "column " << i;
            },
            written[i]);
}

template <class... Rows>
void CheckFile(Database& database) {
    QSet<QString> tables;
    (CheckTable<Rows>(database, tables), ...);
    QSet<QString> stored;
    QString name;
    Cursor cursor(database, "SELECT name FROM sqlite_master WHERE type = 'table'", {},
                  {FieldRef(&name)});
    while (cursor.Next())
        stored.insert(name);
    EXPECT_EQ(tables, stored);
}

TEST(Tables, RowsAgreeWithTheDeliveredFiles) {
    TestProgram program;
    Session& session = program.session;
    CheckFile<KeySystemRow, PatternsRow, AllKeysRow, DoorsRow, DepartmentRow, KeyUsersRow,
              KeyUnitRow, UsertoUnitRow, ReturnKeyRow, LostKeysRow, CrossKeyedRow, ActivityRow,
              ManufacturerRow, ProgramUsersRow, CompanyInfoRow, NumbersGivenRow>(session.Keys());
    CheckFile<SystemInfoRow, WindowPlaceRow>(*session.SysinfoDatabase);
    CheckFile<MapRow>(*Database::Open(program.PathOf(kMapFile), kMapKind));
}

TEST(Tables, ADeliveredFileHasTheDefaultAccountAndNoSystem) {
    TestProgram program;
    Database& keys = program.session.Keys();
    const auto users = Recordset<ProgramUsersRow>(keys).Rows();
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users[0].ProgramUserID, 1);
    EXPECT_EQ(users[0].UserName, "Administrator");
    EXPECT_EQ(Unscrambled(users[0].Password), "tamarisk");
    EXPECT_TRUE(Recordset<KeySystemRow>(keys).Empty());
    EXPECT_TRUE(Recordset<CompanyInfoRow>(keys).Empty());
}

DoorsRow Door(int system, const QString& label) {
    DoorsRow door;
    door.SystemNumber = system;
    door.DoorLabel = label;
    return door;
}

TEST(Recordset, TextsComeBackAsTheyWere) {
    TestProgram program;
    Database& keys = program.session.Keys();
    const QString texts[] = {
        QString::fromUtf8("Z\u00fcrich \u00c9cole \u0141\u00f3d\u017a"),
        QStringLiteral("O'Brien \"quoted\"; DROP TABLE Doors; --"),
        QStringLiteral("100% _ :v1 ? %1"),
        QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u0645\u0641\u062a\u0627\u062d"),
        QString::fromUtf8("\U0001F511 \u9470\u5319"),
        QStringLiteral("line one\r\nline two\t"),
        QString(10000, u'k'),
        QString(19, u' '),
        QString()};
    for (const QString& text : texts) {
        DoorsRow door = Door(1, text);
        Recordset<DoorsRow>::Add(keys, door);
        const Recordset<DoorsRow> found(keys, Query<DoorsRow>().Where(&DoorsRow::DoorLabel, text));
        EXPECT_EQ(found.Count(), 1) << text.left(40).toStdString();
        door.Text2 = text;
        Recordset<DoorsRow>::Update(keys, door);
        ASSERT_TRUE(found.First());
        EXPECT_EQ(found.First()->DoorLabel, text);
        EXPECT_EQ(found.First()->Text2, text);
    }
    EXPECT_EQ(Recordset<DoorsRow>(keys).Count(), 9);
}

TEST(Recordset, NullsReadAsEmpty) {
    TestProgram program;
    Database& keys = program.session.Keys();
    keys.Execute("INSERT INTO Doors (SystemNumber, DoorLabel, Text1, Sing1, Coordx) "
                 "VALUES (1, 'x', 'y', 7, 1.5)");
    keys.Execute("INSERT INTO Doors (SystemNumber) VALUES (1)");
    // The second row must not keep what the first one brought.
    const auto doors = Recordset<DoorsRow>(keys).Rows();
    ASSERT_EQ(doors.size(), 2U);
    EXPECT_EQ(doors[1].DoorLabel, "");
    EXPECT_EQ(doors[1].Text1, "");
    EXPECT_EQ(doors[1].Sing1, 0);
    EXPECT_EQ(doors[1].Coordx, 0);
    EXPECT_EQ(Recordset<DoorsRow>(keys).Largest(&DoorsRow::Long1), 0);
}

TEST(Recordset, OddValuesOfOtherProgramsAreReadAsFarAsTheyGo) {
    TestProgram program;
    Database& keys = program.session.Keys();
    keys.Execute("INSERT INTO Doors (SystemNumber, DoorLabel, Text1, Text2, Sing1, Sing2, Long1, "
                 "DoorID, Coordx, CoordY, Crosskeyed) VALUES "
                 "(1, 12.5, x'41ff42', printf('%.1000000c', 'k'), 9000000000, -9000000000, 'many', "
                 "9e999, 'left', 4611686018427387904, 9000000000)");
    keys.Execute("INSERT INTO Doors (SystemNumber, DoorLabel, Sing1) VALUES (1, 'next', 5)");
    const auto doors = Recordset<DoorsRow>(keys).Rows();
    ASSERT_EQ(doors.size(), 2U);
    const DoorsRow& door = doors[0];
    EXPECT_EQ(door.DoorLabel, "12.5");
    EXPECT_EQ(door.Text1, QString("A") + QChar::ReplacementCharacter + "B");
    EXPECT_EQ(door.Text2, QString(1000000, u'k'));
    EXPECT_EQ(door.Sing1, std::numeric_limits<int>::max()) << "not what its low half would be";
    EXPECT_EQ(door.Sing2, std::numeric_limits<int>::min());
    EXPECT_EQ(door.Long1, 0);
    EXPECT_EQ(door.DoorID, 0) << "no number without end";
    EXPECT_EQ(door.Coordx, 0);
    EXPECT_EQ(door.CoordY, 4611686018427387904.0);
    EXPECT_TRUE(door.Crosskeyed);
    keys.Execute("INSERT INTO KeyUsers (SystemNumber, UserID) VALUES (1, 7), (1, 'x'), "
                 "(1, 9000000000), (1, NULL)");
    EXPECT_EQ(Recordset<KeyUsersRow>(keys).Largest(&KeyUsersRow::UserID), 7);
    EXPECT_EQ(doors[1].DoorLabel, "next");
    EXPECT_EQ(doors[1].Sing1, 5);
}

TEST(Recordset, QueriesSelectAndOrder) {
    TestProgram program;
    Database& keys = program.session.Keys();
    for (const auto& [system, label] : {std::pair{1, "b"}, std::pair{2, "a"}, std::pair{1, "a"},
                                        std::pair{12, "c"}, std::pair{1, "c"}}) {
        DoorsRow door = Door(system, QString::fromLatin1(label));
        Recordset<DoorsRow>::Add(keys, door);
    }
    const auto labels = [&](const Query<DoorsRow>& query) {
        QString text;
        for (const DoorsRow& row : Recordset<DoorsRow>(keys, query).Rows())
            text += QString::number(row.SystemNumber) + row.DoorLabel + u' ';
        return text;
    };
    EXPECT_EQ(labels({}), "1b 2a 1a 12c 1c ");
    EXPECT_EQ(labels(Query<DoorsRow>().Where(&DoorsRow::SystemNumber, 1)), "1b 1a 1c ");
    EXPECT_EQ(labels(Query<DoorsRow>()
                         .Where(&DoorsRow::SystemNumber, 1)
                         .OrderBy(&DoorsRow::DoorLabel, true)),
              "1c 1b 1a ");
    EXPECT_EQ(labels(Query<DoorsRow>()
                         .WhereAtLeast(&DoorsRow::SystemNumber, 2)
                         .WhereBelow(&DoorsRow::SystemNumber, 12)),
              "2a ");
    EXPECT_EQ(labels(Query<DoorsRow>()
                         .WhereAny(&DoorsRow::DoorLabel, {"a", "c"})
                         .OrderBy(&DoorsRow::DoorLabel)),
              "2a 1a 12c 1c ");
    EXPECT_EQ(labels(Query<DoorsRow>().WhereAny(&DoorsRow::DoorLabel, {})), "");
    Recordset<DoorsRow>(keys, Query<DoorsRow>().Where(&DoorsRow::SystemNumber, 1)).DeleteAll();
    EXPECT_EQ(labels({}), "2a 12c ");
}

TEST(Transaction, RollsBackUnlessCommitted) {
    TestProgram program;
    Database& keys = program.session.Keys();
    const auto add = [&](bool commit) {
        Transaction transaction(keys);
        DoorsRow door = Door(1, QStringLiteral("A"));
        Recordset<DoorsRow>::Add(keys, door);
        if (commit)
            transaction.Commit();
    };
    add(false);
    EXPECT_EQ(Recordset<DoorsRow>(keys).Count(), 0);
    add(true);
    EXPECT_EQ(Recordset<DoorsRow>(keys).Count(), 1);
    add(true);
    EXPECT_EQ(Recordset<DoorsRow>(keys).Count(), 2);
}

} // namespace
} // namespace quorrel::test
