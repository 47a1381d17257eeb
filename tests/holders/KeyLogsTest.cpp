#include "holders/KeyLogModel.h"
#include "platform/Recordset.h"
#include "store/HolderTables.h"
#include "support/TestProgram.h"

#include <QRandomGenerator>

namespace quorrel::test {
namespace {

enum LogColumn { Date, Time, KeyID, UnitID, UserName, UserDepartment, Report, LoggedUser, Number };

/// A text that begins with some characters alike; many go on alike for longer, and many are equal.
QString RandomText(QRandomGenerator& random, int alike) {
    const QString letters = QString::fromUtf8(" aA\u00c9");
    QString text(alike, u'x');
    if (random.bounded(2) == 0)
        text += QString(random.bounded(14, 18), u'A');
    for (int more = random.bounded(4); more > 0; --more)
        text += letters[random.bounded(4)];
    return text;
}

/// Runs over both logs: they must not differ.
class KeyLogs : public testing::TestWithParam<KeyLog> {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        session.Keys().Execute("UPDATE KeySystem SET SystemID = 7");
        OpenKeySystem(session, ListKeySystems(session).front());
        QString failure;
        ASSERT_TRUE(LoadStartupFiles(other, failure)) << failure.toStdString();
        OpenKeySystem(other, ListKeySystems(other).front());
    }

    /// Adds a stored row as another part of the program does.
    RowKey Store(const QString& keyID, int number = 0, int system = 7) {
        return GetParam() == KeyLog::Lost
                   ? StoreRow(&LostKeysRow::LostID, keyID, number, system)
                   : StoreRow(&ReturnKeyRow::ReturnID, keyID, number, system);
    }

    template <class Row>
    RowKey StoreRow(int Row::*id, const QString& keyID, int number, int system) {
        Row row;
        row.*id = number;
        row.KeyID = keyID;
        row.SystemNumber = system;
        Recordset<Row>::Add(session.Keys(), row);
        return row.key;
    }

    KeyLogModel Model(Session& station) {
        return KeyLogModel(station, GetParam(), [this](const QString& told) { failures += told; });
    }

    static QString Cell(const KeyLogModel& model, int row, int column) {
        return model.data(model.index(row, column)).toString();
    }

    static void Type(KeyLogModel& model, int row, int column, const QString& text) {
        EXPECT_TRUE(model.setData(model.index(row, column), text, Qt::EditRole));
    }

    /// A column of what is stored, in table order.
    QStringList Stored(int column) {
        KeyLogModel model = Model(session);
        model.Refresh();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts += Cell(model, row, column);
        return texts;
    }

    TestProgram program;
    Session& session = program.session;
    Session other{program.folder.path(), program.boxes, session.clock, session.random};
    QStringList failures;
};

INSTANTIATE_TEST_SUITE_P(Both, KeyLogs, testing::Values(KeyLog::Returned, KeyLog::Lost));

TEST_P(KeyLogs, AreListedInTableOrderOrAscendingByEveryColumn) {
    QRandomGenerator random(20260315);
    std::vector<LogChange> changes(400);
    for (LogChange& change : changes) {
        int column = 0;
        for (QString& text : change.wanted.texts)
            text = RandomText(random, 5 * column++);
    }
    ASSERT_TRUE(WriteLog(session, GetParam(), changes).empty());
    Store("of another system", 1000, 8);
    for (int column = -1; column < kLogColumns; ++column) {
        std::vector<LogChange> expected = changes;
        std::stable_sort(expected.begin(), expected.end(),
                         [&](const LogChange& left, const LogChange& right) {
                             if (column < 0 || column == Number)
                                 return left.wanted.number < right.wanted.number;
                             const auto text = static_cast<std::size_t>(column);
                             return left.wanted.texts[text] < right.wanted.texts[text];
                         });
        const auto keys =
            column < 0 ? ListLog(session, GetParam()) : ListLog(session, GetParam(), column);
        ASSERT_EQ(keys.size(), expected.size());
        const auto rows = ReadLog(session, GetParam(), keys);
        for (std::size_t row = 0; row < keys.size(); ++row)
            ASSERT_EQ(rows.at(keys[row]), expected[row].wanted) << column << ' ' << row;
    }
}

TEST_P(KeyLogs, WriteAddedRowsWithTheNextNumbersOfTheFile) {
    Store("A1", 41);
    Store("elsewhere", 60, 8);
    KeyLogModel model = Model(session);
    model.Refresh();
    const int row = model.OpenNewRow();
    EXPECT_EQ(row, 1);
    EXPECT_EQ(model.OpenNewRow(), row) << "the blank row serves again";
    EXPECT_EQ(model.PendingCount(), 0);
    Type(model, row, Report, QString(10000, u'x'));
    Type(model, model.OpenNewRow(), UserName, QString::fromUtf8("O'Hara 100%, Zo\u00eb"));
    model.OpenNewRow();
    EXPECT_EQ(model.PendingCount(), 2);
    EXPECT_EQ(Stored(KeyID), (QStringList{"A1"})) << "nothing is stored before";

    EXPECT_EQ(model.Update(), "");
    EXPECT_EQ(model.PendingCount(), 0);
    EXPECT_EQ(model.rowCount(), 3) << "the blank row is not written";
    EXPECT_EQ(Cell(model, 2, Number), "62");
    EXPECT_EQ(Stored(Number), (QStringList{"41", "61", "62"}));
    EXPECT_EQ(Stored(Report)[1], QString(10000, u'x'));
    EXPECT_EQ(Stored(UserName)[2], QString::fromUtf8("O'Hara 100%, Zo\u00eb"));
}

TEST_P(KeyLogs, KeepEditsUntilTheyAreWrittenOrTakenBack) {
    for (const char* keyID : {"B", "A", "C"})
        Store(QLatin1String(keyID));
    KeyLogModel model = Model(session);
    model.Refresh();
    Type(model, 0, KeyID, "Z");
    Type(model, 1, UnitID, "5");
    Type(model, 1, UnitID, "");
    EXPECT_EQ(model.PendingCount(), 1) << "an edit that was taken back is none";
    EXPECT_TRUE(model.index(0, KeyID).data(KeyLogModel::kPendingRole).toBool());
    EXPECT_FALSE(model.index(0, UnitID).data(KeyLogModel::kPendingRole).toBool());
    EXPECT_FALSE(model.setData(model.index(0, Number), "9", Qt::EditRole));

    model.Refresh(KeyID);
    EXPECT_EQ(Cell(model, 0, KeyID) + Cell(model, 1, KeyID) + Cell(model, 2, KeyID), "AZC");
    EXPECT_EQ(Stored(KeyID), (QStringList{"B", "A", "C"}));
    EXPECT_EQ(model.Update(), "");
    EXPECT_EQ(Stored(KeyID), (QStringList{"Z", "A", "C"}));
    Type(model, 0, KeyID, "Y");
    model.DropPending();
    EXPECT_EQ(Cell(model, 0, KeyID), "A");
}

TEST_P(KeyLogs, DoNotOverwriteWhatAnotherWorkstationHasChanged) {
    for (const char* keyID : {"A", "B", "C"})
        Store(QLatin1String(keyID));
    KeyLogModel here = Model(session);
    KeyLogModel there = Model(other);
    here.Refresh();
    there.Refresh();
    Type(here, 0, Report, "mine");
    Type(here, 2, Report, "untouched elsewhere");
    Type(here, here.OpenNewRow(), KeyID, "D");
    Type(there, 0, Report, "theirs");
    Type(there, 0, UnitID, "12");
    EXPECT_EQ(there.Update(), "");

    EXPECT_TRUE(here.Update().contains("Record 1 was changed."));
    EXPECT_EQ(Stored(Report), (QStringList{"theirs", "", ""})) << "nothing is written";
    EXPECT_EQ(Cell(here, 0, UnitID), "12") << "what is stored is shown";
    EXPECT_EQ(Cell(here, 0, Report), "mine") << "and what was typed is not lost";
    EXPECT_EQ(here.PendingCount(), 3);
    EXPECT_EQ(here.Update(), "");
    EXPECT_EQ(Stored(Report), (QStringList{"mine", "", "untouched elsewhere", ""}));
    EXPECT_EQ(Stored(UnitID)[0], "12");
}

TEST_P(KeyLogs, KeepEditsOfARowThatAnotherWorkstationDeletes) {
    for (const char* keyID : {"A", "B", "C"})
        Store(QLatin1String(keyID), 1);
    KeyLogModel here = Model(session);
    KeyLogModel there = Model(other);
    here.Refresh();
    there.Refresh();
    Type(here, 1, Report, "typed");
    EXPECT_EQ(there.Delete(0) + there.Delete(0), "");
    here.Refresh(); // The edited row stays although it is gone.
    ASSERT_EQ(here.rowCount(), 2);
    EXPECT_EQ(Cell(here, 0, KeyID) + Cell(here, 1, KeyID), "CB");
    EXPECT_TRUE(here.Update().contains("Record 2 was deleted."));
    EXPECT_EQ(Stored(KeyID), (QStringList{"C"}));
    EXPECT_EQ(Cell(here, 1, Report), "typed");
    EXPECT_EQ(here.Update(), "");
    EXPECT_EQ(Stored(KeyID), (QStringList{"C", "B"}));
    EXPECT_EQ(Stored(Number), (QStringList{"1", "2"}));
}

TEST_P(KeyLogs, DeleteARowAndNothingElse) {
    KeyUnitRow unit;
    unit.UnitID = "1***LOST!";
    unit.SystemNumber = 7;
    Recordset<KeyUnitRow>::Add(session.Keys(), unit);
    Store("A");
    Store("B");
    KeyLogModel here = Model(session);
    here.Refresh();
    EXPECT_EQ(Cell(here, 0, KeyID), "A");
    KeyLogModel there = Model(other);
    there.Refresh();
    Type(there, 0, Report, "found again");
    EXPECT_EQ(there.Update(), "");
    EXPECT_EQ(there.Delete(1), "");

    EXPECT_TRUE(here.Delete(0).contains("was changed at another workstation"));
    EXPECT_EQ(Cell(here, 0, Report), "found again");
    EXPECT_EQ(here.Delete(1), "") << "deleted there already";
    EXPECT_EQ(here.Delete(0), "");
    EXPECT_EQ(here.rowCount(), 0);
    EXPECT_EQ(Stored(KeyID), QStringList());
    EXPECT_EQ(Recordset<KeyUnitRow>(session.Keys()).First()->UnitID, "1***LOST!");
}

TEST_P(KeyLogs, TellOnceThatRowsCannotBeRead) {
    KeyLogModel model = Model(session);
    for (int row = 0; row < 300; ++row)
        Type(model, model.OpenNewRow(), KeyID, QString::number(row));
    EXPECT_EQ(model.Update(), "");
    model.Refresh();
    EXPECT_EQ(Cell(model, 299, KeyID), "299");
    session.Keys().Execute("ALTER TABLE \"ReturnKey\" RENAME TO \"a\"");
    session.Keys().Execute("ALTER TABLE \"LostKeys\" RENAME TO \"b\"");
    EXPECT_EQ(Cell(model, 0, KeyID) + Cell(model, 1, KeyID), "");
    EXPECT_EQ(failures.size(), 1);
    EXPECT_FALSE(model.flags(model.index(0, KeyID)) & Qt::ItemIsEditable);
    EXPECT_EQ(Cell(model, 299, KeyID), "299");
}

} // namespace
} // namespace quorrel::test
