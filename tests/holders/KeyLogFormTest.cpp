#include "holders/KeyLogs.h"
#include "platform/Recordset.h"
#include "store/HolderTables.h"
#include "support/FormDriver.h"
#include "widgets/RecordGrid.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

namespace quorrel::test {
namespace {

class FrmKeyLog : public testing::TestWithParam<KeyLog> {
protected:
    void SetUp() override { main = run.OpenMain(StandardSystem("Pier", "2715")); }

    void Open() {
        Choose(main, IsLost() ? "mnuLost" : "mnuReturned");
        form = run.Form(Name());
        grid = Find<RecordGrid>(form, "grdDataGrid");
        EXPECT_FALSE(main->isVisible());
    }

    const char* Name() const { return IsLost() ? "frmDBLostKeys" : "frmDBReturnKey"; }

    /// The form has gone and given the main form back.
    void ExpectClosed() {
        EXPECT_FALSE(run.IsLoaded(Name()));
        EXPECT_EQ(run.Form("frmMain"), main);
    }

    /// Leaves the form for another window and comes back to it.
    void ComeBack() {
        form->hide();
        QWidget elsewhere;
        elsewhere.show();
        elsewhere.activateWindow();
        QCoreApplication::processEvents();
        form->show();
        form->activateWindow();
        QCoreApplication::processEvents();
    }

    bool IsLost() const { return GetParam() == KeyLog::Lost; }

    /// Stores a row behind the form's back.
    template <class Row>
    void StoreRow(const QString& keyID, const QString& report) {
        Row row;
        row.KeyID = keyID;
        row.Report = report;
        row.SystemNumber = session.ActiveSystemNumber;
        Recordset<Row>::Add(session.Keys(), row);
    }

    void Store(const QString& keyID, const QString& report = {}) {
        IsLost() ? StoreRow<LostKeysRow>(keyID, report) : StoreRow<ReturnKeyRow>(keyID, report);
    }

    /// The Key IDs as they are stored, in table order.
    QString Stored() {
        std::vector<RowKey> keys = ListLog(session, GetParam());
        QString text;
        for (auto rows = ReadLog(session, GetParam(), keys); const RowKey key : keys)
            text += rows.at(key).texts[2] + u' ';
        return text;
    }

    /// The Key IDs as they are shown.
    QString Shown() {
        QString text;
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            text += grid->model()->index(row, 2).data().toString() + u' ';
        return text;
    }

    QString Mover() { return Find<QLabel>(form, "datPrimaryRS")->text(); }

    QPoint PlaceOf(int row, int column) {
        return grid->visualRect(grid->model()->index(row, column)).center();
    }

    void ClickHead(int column) {
        QHeaderView* heads = grid->horizontalHeader();
        grid->scrollTo(grid->model()->index(0, column));
        QTest::mouseClick(heads->viewport(), Qt::LeftButton, {},
                          QPoint(heads->sectionViewportPosition(column) + 8, 8));
        QCoreApplication::processEvents();
    }

    /// Types into a cell as a user does, leaving the editor open.
    void TypeInto(int row, int column, const QString& text) {
        QCoreApplication::processEvents();
        grid->setFocus();
        grid->setCurrentIndex(grid->model()->index(row, column));
        QTest::keyClick(grid, Qt::Key_F2);
        QWidget* editor = QApplication::focusWidget();
        ASSERT_TRUE(qobject_cast<QLineEdit*>(editor));
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
    }

    RunningProgram run;
    Session& session = run.session;
    QWidget* main = nullptr;
    QWidget* form = nullptr;
    RecordGrid* grid = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Both, FrmKeyLog, testing::Values(KeyLog::Returned, KeyLog::Lost));

TEST_P(FrmKeyLog, ShowsTheLogAndMovesThroughItsRecords) {
    for (const char* keyID : {"B", "A", "C"})
        Store(QLatin1String(keyID));
    Open();
    EXPECT_EQ(form->windowTitle(), IsLost() ? "Lost Keys Recorded" : "Returned Keys Recorded");
    QStringList heads;
    for (int column = 0; column < grid->model()->columnCount(); ++column)
        heads += grid->model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(heads.join(u','),
              QStringLiteral("Date,Time,KeyID,UnitID,UserName,UserDepartment,Report,LoggedUser,") +
                  (IsLost() ? "LostID" : "ReturnID"));
    EXPECT_EQ(Shown(), "B A C ");
    EXPECT_EQ(Mover(), "Record: 1");
    Click(form, "cmdLast");
    EXPECT_EQ(Mover(), "Record: 3");
    Click(form, "cmdNext");
    Click(form, "cmdPrevious");
    EXPECT_EQ(Mover(), "Record: 2");
    Click(form, "cmdFirst");
    Click(form, "cmdPrevious");
    EXPECT_EQ(Mover(), "Record: 1");

    grid->setFocus();
    EXPECT_EQ(TabRound(form).join(' '), "grdDataGrid cmdFirst cmdPrevious cmdNext cmdLast cmdAdd "
                                        "cmdUpdate cmdDelete cmdRefresh cmdClose");
    const int above = grid->height();
    form->resize(form->width(), form->height() + 150);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->height(), above + 150) << "the grid takes the room";
}

TEST_P(FrmKeyLog, AddsRowsAndWritesAllChangesAtOnce) {
    Store("A");
    Open();
    Click(form, "cmdAdd");
    EXPECT_EQ(Mover(), "Record: 2");
    EXPECT_TRUE(grid->hasFocus());
    TypeInto(1, 2, "B");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(Mover(), "Record: 3") << "Down opens the next new row";
    TypeInto(2, 2, "C");
    QApplication::clipboard()->setText(QString(10000, u'k'));
    TypeInto(0, 3, "");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Stored(), "A ");
    // The shortcut leaves the editor open, unlike a click.
    QTest::keyClick(form, Qt::Key_U, Qt::AltModifier);
    QTRY_COMPARE(Stored(), QStringLiteral("A B C "));
    EXPECT_EQ(ReadLog(session, GetParam(), {1}).at(1).texts[3], QString(10000, u'k'));
    Click(form, "cmdClose");
    ExpectClosed();
}

TEST_P(FrmKeyLog, DeletesTheCurrentRecordWithoutAQuestion) {
    for (const char* keyID : {"A", "B", "C"})
        Store(QLatin1String(keyID));
    Open();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, PlaceOf(1, 0));
    Click(form, "cmdDelete");
    EXPECT_EQ(Stored() + Shown(), "A C A C ");
    EXPECT_EQ(Mover(), "Record: 2");
    Click(form, "cmdDelete");
    EXPECT_EQ(Mover(), "Record: 1") << "at the end it goes to the last";
    Click(form, "cmdDelete");
    EXPECT_EQ(Stored() + Shown(), "");
    EXPECT_EQ(Mover(), "Record: 0");
    Click(form, "cmdDelete");
}

TEST_P(FrmKeyLog, SortsByTheHeadAlwaysAscending) {
    for (const char* keyID : {"B", "A ", "A", "C"})
        Store(QLatin1String(keyID));
    Open();
    ClickHead(2);
    EXPECT_EQ(Shown(), "A A  B C ");
    Store("0");
    ClickHead(2);
    EXPECT_EQ(Shown(), "0 A A  B C ");
    EXPECT_EQ(grid->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    Store("1");
    Click(form, "cmdRefresh");
    EXPECT_EQ(Shown(), "0 1 A A  B C ") << "the order stays";
    ComeBack();
    EXPECT_EQ(Shown(), "B A  A C 0 1 ") << "coming back it is the table's";
}

TEST_P(FrmKeyLog, AHeadOfAnEmptyGridRefreshesTheReturnedKeysOnly) {
    Open();
    Store("A");
    ClickHead(2);
    EXPECT_EQ(Shown(), IsLost() ? "" : "A ");
    Click(form, "cmdRefresh");
    EXPECT_EQ(Shown(), "A ");
}

TEST_P(FrmKeyLog, DropsWhatWasTypedOnlyAfterAQuestion) {
    Store("A");
    Open();
    TypeInto(0, 2, "Z");
    run.boxes.Expect("(records: 1). Drop them?", BoxAnswer::No);
    Click(form, "cmdRefresh");
    ComeBack();
    EXPECT_EQ(Shown(), "Z ");
    run.boxes.Expect("Drop them?", BoxAnswer::No);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    run.boxes.Expect("Drop them?", BoxAnswer::Yes);
    Click(form, "cmdRefresh");
    EXPECT_EQ(Shown(), "A ");
    TypeInto(0, 2, "Y");
    run.boxes.Expect("Drop them?", BoxAnswer::Yes);
    Click(form, "cmdClose");
    ExpectClosed();
    EXPECT_EQ(Stored(), "A ");
}

TEST_P(FrmKeyLog, TellsWhatFailsAndKeepsWhatWasTyped) {
    Store("A");
    Open();
    TypeInto(0, 2, "Z");
    session.Keys().Execute("PRAGMA busy_timeout = 10");
    {
        Session other(run.folder.path(), run.boxes, session.clock, session.random);
        QString failure;
        ASSERT_TRUE(LoadStartupFiles(other, failure));
        const Transaction held(other.Keys());
        run.boxes.Expect("Data error event hit err:The file ");
        Click(form, "cmdUpdate");
        run.boxes.Expect("Data error event hit err:The file ");
        Click(form, "cmdDelete");
    }
    EXPECT_EQ(Shown(), "Z ");
    EXPECT_EQ(run.boxes.Last().title, session.ProgramTitle);
    Click(form, "cmdUpdate");
    EXPECT_EQ(Stored(), "Z ");
}

} // namespace
} // namespace quorrel::test
