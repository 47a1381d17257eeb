#include "engine/CellStates.h"
#include "page/KeyCell.h"
#include "page/frmMain.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"
#include "widgets/TextList.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolTip>

namespace quorrel::test {
namespace {

/// The main form with keys named on two pages, on the first of which it stands.
class SideLists : public testing::Test {
protected:
    void SetUp() override {
        main = qobject_cast<frmMain*>(run.OpenMain(StandardSystem("Pier", "2715")));
        for (const auto& [page, cell, label] :
             {std::tuple{1, 6, "LONGNAME-1"}, {2, 6, "LONGNAME-2"}, {2, 8, "SIDE"}}) {
            Find<QScrollBar>(main, "scrlPage")->setValue(page);
            ClickCell(cell);
            Type(main, "txtKeyID", label);
            ClickCell(0);
        }
        Find<QScrollBar>(main, "scrlPage")->setValue(1);
        ClickCell(6);
    }

    void ClickCell(int cell) { Click(main, ("ChgKey_" + std::to_string(cell)).c_str()); }

    TextList* List(const char* name) { return Find<TextList>(main, name); }

    QStringList Lines(const char* name) {
        QStringList lines;
        for (const QString& line : List(name)->Lines())
            lines.append(line.trimmed());
        return lines;
    }

    /// Clicks where a line is, or will be.
    void ClickLine(const char* name, int row) {
        TextList* list = List(name);
        const int height = list->fontMetrics().height();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          QPoint(20, row * (height + 1) + height / 2));
        QCoreApplication::processEvents();
    }

    void AddDoor(const QString& label, const QString& cutsLabel) {
        DoorsRow door;
        door.SystemNumber = run.session.MapFilingNumber;
        door.DoorLabel = label;
        door.CutsLabel = cutsLabel;
        Recordset<DoorsRow>::Add(run.session.Keys(), door);
    }

    void HandOut(const QString& userID) {
        UsertoUnitRow unit;
        unit.SystemNumber = run.session.ActiveSystemNumber;
        unit.KeyID = "LONGNAME-1  ";
        unit.UnitID = "1";
        unit.UserID = userID;
        Recordset<UsertoUnitRow>::Add(run.session.Keys(), unit);
    }

    QString KeyID() { return Find<QLineEdit>(main, "txtKeyID")->text(); }
    QString Page() { return Find<QLabel>(main, "lblCurrentPage")->text(); }

    RunningProgram run;
    frmMain* main = nullptr;
};

const QStringList kNone = {"None"};

TEST_F(SideLists, AClickOnAKeyIDTurnsToItsPageAndSelectsIt) {
    Click(main, "cmdKeyList");
    EXPECT_EQ(Lines("lstAllIDs"), QStringList({"LONGNAME-1", "LONGNAME-2", "SIDE"}));
    ClickCell(7);
    Type(main, "txtKeyID", "new");
    ClickLine("lstAllIDs", 1);
    EXPECT_EQ(Page(), "2");
    EXPECT_EQ(KeyID(), "LONGNAME-2") << "not the first key that begins like it";
    EXPECT_EQ(Find<KeyCell>(main, "ChgKey_6")->ShownState(),
              cellstate::kActive + cellstate::kLabelled);
    Click(main, "cmdKeyList");
    EXPECT_EQ(Lines("lstAllIDs").at(1), "NEW") << "what was typed is saved";

    TextList* list = List("lstAllIDs");
    list->setFocus();
    list->SetCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Page(), "2") << "arrow keys only move";
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(Page(), "1");
    EXPECT_EQ(KeyID(), "NEW");
}

TEST_F(SideLists, AKeyThatIsRefusedIsNotLeft) {
    Click(main, "cmdKeyList");
    ClickCell(7);
    const auto refuse = [&](auto leave) {
        Type(main, "txtKeyID", "side");
        run.boxes.Expect("That Key Label is unavailable, Choose another one");
        leave();
        EXPECT_TRUE(main->isVisible());
        EXPECT_EQ(Page(), "1");
        EXPECT_TRUE(Find<KeyCell>(main, "ChgKey_7")->ShownState() == cellstate::kActive);
    };
    refuse([&] { ClickLine("lstAllIDs", 1); });
    for (const char* entry : {"mnuFileNew", "mnuFileOpen", "mnuPinSizes", "mnuHelpAbout",
                              "mnuFileExit", "mnuHelpContents"})
        refuse([&] { Choose(main, entry); });
    refuse([&] { main->close(); });
    EXPECT_EQ(run.session.ActiveSystemNumber, 1);
}

TEST_F(SideLists, AListIsFilledByItsButtonItsBoxAndItself) {
    AddDoor("Gate", "LONGNAME-1");
    AddDoor("Hall", "LONGNAME-1");
    Type(main, "txtSearchDoor", "h");
    EXPECT_TRUE(Lines("lstActiveDoors").empty()) << "not while typing";
    QTest::keyClick(main->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Lines("lstActiveDoors"), QStringList("Hall"));
    Type(main, "txtSearchDoor", "");
    QTest::keyClick(main->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Lines("lstActiveDoors"), QStringList({"Gate", "Hall"})) << "the box was left";
    ClickCell(6);
    EXPECT_TRUE(Lines("lstActiveDoors").empty()) << "a click on a key empties it";
    ClickLine("lstActiveDoors", 0);
    EXPECT_EQ(Lines("lstActiveDoors"), QStringList({"Gate", "Hall"}));
    EXPECT_FALSE(QToolTip::isVisible()) << "a click that fills the list chooses nothing";
    ClickCell(7);
    Click(main, "cmdListDoors");
    Click(main, "cmdListUsers");
    EXPECT_EQ(Lines("lstActiveDoors"), kNone);
    EXPECT_EQ(Lines("lstKeyUsers"), kNone);
    ClickLine("lstActiveDoors", 0);
    ClickLine("lstKeyUsers", 0);
    EXPECT_FALSE(QToolTip::isVisible());
    for (const char* box : {"txtSearchAll", "txtSearchDoor", "txtSearchUser"}) {
        QTest::keyClick(main->focusWidget(), Qt::Key_F7);
        EXPECT_TRUE(Find<QLineEdit>(main, box)->hasFocus()) << box;
        Find<QLineEdit>(main, box)->setText(QString::fromUtf8("%'\u05de\u00e9").repeated(2500));
    }
    QTest::keyClick(main->focusWidget(), Qt::Key_F7);
    EXPECT_TRUE(Lines("lstAllIDs").empty());
    EXPECT_EQ(Lines("lstKeyUsers"), kNone);
}

TEST_F(SideLists, DoorsAndHoldersLeadToTheirForms) {
    AddDoor("East  gate", "LONGNAME-1");
    HandOut("1001");
    main->OfferForms({});
    QStringList wanted;
    QObject::connect(main, &frmMain::FormWanted, [&](const QString&, const QString& subject) {
        wanted += subject;
        main->hide();
    });
    Type(main, "txtDescription", "Typed");
    Click(main, "cmdListDoors");
    Click(main, "cmdListUsers");
    ClickLine("lstActiveDoors", 0);
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(QToolTip::text(), "This window is not part of this version yet.");
    EXPECT_EQ(Find<QPlainTextEdit>(main, "txtDescription")->toPlainText(), "Typed");
    EXPECT_TRUE(wanted.empty());

    QObject::disconnect(main, nullptr, &run.program, nullptr);
    main->OfferForms({"frmDoors", "frmKeyUsers"});
    run.boxes.Expect("Are you sure you want to save changes to this record?", BoxAnswer::Yes);
    ClickLine("lstActiveDoors", 0);
    EXPECT_FALSE(main->isVisible());
    main->show();
    Click(main, "cmdListUsers");
    ClickLine("lstKeyUsers", 0);
    EXPECT_FALSE(main->isVisible());
    main->show();
    EXPECT_EQ(wanted, QStringList({"East  gate", "1001"}));
    EXPECT_EQ(Recordset<PatternsRow>(
                  run.session.Keys(),
                  Query<PatternsRow>().Where(&PatternsRow::Description, QString("Typed")))
                  .Count(),
              1);
}

} // namespace
} // namespace quorrel::test
