#include "engine/CellStates.h"
#include "page/KeyCell.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolButton>

namespace quorrel::test {
namespace {

KeyCell* CellOf(QWidget* main, int cell) {
    return Find<KeyCell>(main, ("ChgKey_" + std::to_string(cell)).c_str());
}

void ClickCell(QWidget* main, int cell) {
    Click(main, ("ChgKey_" + std::to_string(cell)).c_str());
}

/// Types a Key ID for a cell's key, which the next click on a cell stores.
void TypeKeyID(QWidget* main, int cell, const char* keyID) {
    ClickCell(main, cell);
    Type(main, "txtKeyID", keyID);
}

/// Gives keys of the open file a Key ID and a description.
void LabelKeys(RunningProgram& run, const std::map<int, QString>& labelOfPosition) {
    for (PatternsRow& row : Recordset<PatternsRow>(run.session.Keys()).Rows()) {
        const auto label = labelOfPosition.find(row.Position);
        if (row.PageNumber != 1 || label == labelOfPosition.end())
            continue;
        row.Label = label->second.leftJustified(19);
        row.Description = "Of " + label->second;
        Recordset<PatternsRow>::Update(run.session.Keys(), row);
    }
}

TEST(FrmMain, ClickRepaintsEveryCellAndNamesTheMasters) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "395172"));
    LabelKeys(run, {{6, "CHANGE6"},
                    {9, "BLOCK9"},
                    {86, "LINE86"},
                    {89, "AREA89"},
                    {100, "COL100"},
                    {104, "PAGE"},
                    {107, "GRAND"}});
    run.StartAndLogOn();
    Click(run.Form("frmOpenFile"), "cmdOpen");
    QWidget* main = run.Form("frmMain");
    ClickCell(main, 6);
    EXPECT_EQ(LabelText(main, "lblBlockMasterID"), "BLOCK9");
    EXPECT_EQ(LabelText(main, "lblLineMasterDesc"), "Of LINE86");
    EXPECT_EQ(LabelText(main, "lblAreaMasterID"), "AREA89");
    EXPECT_EQ(LabelText(main, "lblColumnMasterID"), "COL100");
    EXPECT_EQ(LabelText(main, "lblSystemMasterID"), "GRAND");
    EXPECT_EQ(LabelText(main, "lblSystemMaster"), "Grand Master");
    EXPECT_FALSE(Find<QLabel>(main, "lblGrandMaster")->isVisible()) << "six pins";
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "CHANGE6");
    EXPECT_TRUE(Find<QLineEdit>(main, "txtKeyID")->hasFocus());
    for (const auto& [cell, state] : std::map<int, int>{{6, 11},
                                                        {7, 0},
                                                        {9, 13},
                                                        {86, 13},
                                                        {89, 13},
                                                        {100, 13},
                                                        {104, 13},
                                                        {105, 3},
                                                        {107, 13},
                                                        {108, 15}})
        EXPECT_EQ(CellOf(main, cell)->ShownState(), state) << cell;
    EXPECT_FALSE(CellOf(main, 108)->isEnabled());
    EXPECT_EQ(CellOf(main, 6)->accessibleName(), "Change Key 6, Key ID CHANGE6, selected");

    ClickCell(main, 89);
    EXPECT_EQ(LabelText(main, "lblBlockMasterID"), "N/A");
    EXPECT_TRUE(Find<QLabel>(main, "lblAreaMaster")->font().bold());
    EXPECT_EQ(CellOf(main, 6)->ShownState(), 12);
    EXPECT_EQ(CellOf(main, 9)->ShownState(), 14);
    ClickCell(main, 105);
    EXPECT_EQ(LabelText(main, "lblColumnMasterID"), "All for this Page");
    EXPECT_EQ(LabelText(main, "lblColumnMasterDesc"), "N/A");
    EXPECT_FALSE(Find<QLabel>(main, "lblAreaMaster")->font().bold());
    EXPECT_EQ(CellOf(main, 104)->ShownState(), 14);
    EXPECT_EQ(CellOf(main, 106)->ShownState(), 3);
}

TEST(FrmMain, NoCutIsVisibleWithoutTheRightToReadThem) {
    RunningProgram run;
    NewSystem system = StandardSystem("Pier", "395172");
    system.type = SystemType::ICCore23;
    system.special = "135797";
    CreateKeySystem(run.session, system);
    auto account = *Recordset<ProgramUsersRow>(run.session.Keys()).First();
    account.ReadPrintPinning = false;
    Recordset<ProgramUsersRow>::Update(run.session.Keys(), account);
    run.RecordCompany();
    run.program.Start(false);
    Click(run.Form("frmLogon"), "cmdLogon"); // and no question about the log-off
    Click(run.Form("frmOpenFile"), "cmdOpen");
    QWidget* main = run.Form("frmMain");

    QStringList cuts = {"135797", "395172"};
    for (const PatternsRow& row : Recordset<PatternsRow>(run.session.Keys()).Rows())
        cuts.append(Unscrambled(row.Cuts).left(6));
    for (int cell : {0, 4, 80, 84, 100, 104, 107}) {
        ClickCell(main, cell);
        EXPECT_EQ(LabelText(main, "lblCuts"), "********");
        QString visible;
        for (const QWidget* widget : main->findChildren<QWidget*>()) {
            visible += widget->toolTip() + '\n' + widget->accessibleName() + '\n';
            if (const auto* label = qobject_cast<const QLabel*>(widget))
                visible += label->text() + '\n';
            if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
                visible += edit->text() + '\n';
        }
        for (const QString& text : cuts)
            ASSERT_FALSE(visible.contains(text)) << text.toStdString();
    }
    EXPECT_FALSE(Find<QLabel>(main, "lblControlKey")->isVisible());
}

TEST(FrmMain, PagingShowsTheOtherPageAndItsLevels) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "395172"));
    ClickCell(main, 0);
    EXPECT_EQ(LabelText(main, "lblCuts"), "111310 ");
    auto* bar = Find<QScrollBar>(main, "scrlPage");
    EXPECT_EQ(bar->maximum(), 64);
    bar->setValue(64);
    EXPECT_EQ(LabelText(main, "lblCurrentPage"), "64");
    EXPECT_EQ(LabelText(main, "lblCuts"), "979310 ");
    ClickCell(main, 104);
    EXPECT_EQ(LabelText(main, "lblCuts"), "979172 ");
    EXPECT_TRUE(CellOf(main, 104)->toolTip().contains("979172"));
    QTest::keyClick(main, Qt::Key_PageUp);
    EXPECT_EQ(LabelText(main, "lblCurrentPage"), "63");
}

TEST(FrmMain, WarnsOfAKeyBeyondTheSafetyFactorWhenClicked) {
    RunningProgram run;
    NewSystem system = StandardSystem("Pier", "395172");
    system.definition.safetyFactor = 3;
    QWidget* main = run.OpenMain(system);
    int offending = 0;
    while (!CellOf(main, offending)->toolTip().contains('*'))
        ++offending;
    EXPECT_EQ(CellOf(main, offending)->ShownState() / 20, 1);
    run.boxes.Expect("This Pattern is Not Recomended for use due to Safety Factor Limitation!");
    ClickCell(main, offending);
    Find<QScrollBar>(main, "scrlPage")->setValue(2); // a page just loaded does not warn
    Click(main, "Picture1_0");
}

TEST(FrmMain, KeyboardMovesBetweenCellsAndSelects) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "395172"));
    QTest::keyClick(main->focusWidget(), Qt::Key_F6);
    EXPECT_EQ(main->focusWidget()->objectName(), "ChgKey_0");
    QTest::keyClick(main->focusWidget(), Qt::Key_Down);
    QTest::keyClick(main->focusWidget(), Qt::Key_Right);
    EXPECT_EQ(main->focusWidget()->objectName(), "ChgKey_21");
    QTest::keyClick(main->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(CellOf(main, 21)->ShownState(), cellstate::kActive);
    EXPECT_TRUE(Find<QLineEdit>(main, "txtKeyID")->hasFocus());
}

PatternsRow RowOf(RunningProgram& run, int position) {
    return *Recordset<PatternsRow>(run.session.Keys(), Query<PatternsRow>()
                                                           .Where(&PatternsRow::PageNumber, 1)
                                                           .Where(&PatternsRow::Position, position))
                .First();
}

TEST(FrmMain, LeavingAKeySavesItsRecord) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    TypeKeyID(main, 6, "front");
    QTest::keyClick(Find<QLineEdit>(main, "txtKeyID"), Qt::Key_Return);
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "FRONT");
    QTest::keyClicks(main->focusWidget(), "caretakers");
    QTest::keyClick(main->focusWidget(), Qt::Key_Return);
    QTest::keyClicks(main->focusWidget(), "Front door");
    Type(main, "txtKeyway", "kw");
    EXPECT_EQ(RowOf(run, 6).Label, QString(19, ' ')) << "there is no save button";

    ClickCell(main, 7);
    EXPECT_EQ(RowOf(run, 6).Label, "FRONT       ");
    EXPECT_EQ(RowOf(run, 6).Description, "Front door");
    EXPECT_EQ(CellOf(main, 6)->ShownState(), 10);
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "");
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyway")->text(), "KW") << "carried forward";
    EXPECT_GE(Find<QComboBox>(main, "cmbDepartment")->findText("CARETAKERS"), 0);

    ClickCell(main, 8);
    EXPECT_EQ(RowOf(run, 7).Label, QString(19, ' ')) << "nothing was typed for it";
    Type(main, "txtKeyID", "x");
    ClickCell(main, 6);
    EXPECT_EQ(RowOf(run, 8).Label, "X           ");
    EXPECT_EQ(RowOf(run, 8).Department, "CARETAKERS");

    run.boxes.Expect("Are you sure you want to save changes to this record?", BoxAnswer::Yes);
    Type(main, "txtKeyID", "back");
    Choose(main, "mnuHelpAbout");
    EXPECT_EQ(RowOf(run, 6).Label, "BACK        ");
    Click(run.Form("frmAbout"), "cmdOK");
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "BACK");
}

TEST(FrmMain, ABlankTakesTheKeyIDAway) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    TypeKeyID(main, 6, "gone");
    ClickCell(main, 7);
    TypeKeyID(main, 6, "   ");
    run.boxes.Expect("Are you sure you want to save changes to this record?", BoxAnswer::Yes);
    ClickCell(main, 7);
    EXPECT_TRUE(Recordset<AllKeysRow>(run.session.Keys()).Empty());
    EXPECT_EQ(CellOf(main, 6)->ShownState(), 0);
}

TEST(FrmMain, PageChangeSavesTwoCharactersAndNotOne) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    auto* bar = Find<QScrollBar>(main, "scrlPage");
    TypeKeyID(main, 6, "a");
    run.boxes.Expect("A Key ID of one character is stored by a click on another key",
                     BoxAnswer::No);
    bar->setValue(2);
    EXPECT_EQ(bar->value(), 1);
    run.boxes.Expect("What you have typed is not saved", BoxAnswer::Yes);
    bar->setValue(2);
    EXPECT_EQ(RowOf(run, 6).Label, QString(19, ' '));
    bar->setValue(1);
    TypeKeyID(main, 6, "a1");
    emit bar->sliderMoved(3); // The number moves ahead of the page while the slider is dragged.
    bar->setValue(3);
    EXPECT_EQ(RowOf(run, 6).Label, "A1          ");
    EXPECT_EQ(Recordset<AllKeysRow>(run.session.Keys()).First()->PageNumber, 1);
}

TEST(FrmMain, ARefusedRecordIsToldAndAFailureKeepsTheText) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    TypeKeyID(main, 6, "one");
    TypeKeyID(main, 7, "one");
    run.boxes.Expect("That Key Label is unavailable, Choose another one");
    ClickCell(main, 8);
    EXPECT_EQ(RowOf(run, 7).Label, QString(19, ' '));

    run.session.Keys().Execute("CREATE TRIGGER \"Full\" BEFORE INSERT ON \"AllKeys\" BEGIN "
                               "SELECT RAISE(ABORT, 'no room'); END");
    Type(main, "txtKeyID", "two");
    run.boxes.Expect("could not be used. Nothing was changed.");
    ClickCell(main, 9);
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "TWO");
    EXPECT_EQ(CellOf(main, 8)->ShownState(), cellstate::kActive) << "still the selected key";
    run.boxes.Expect("could not be used. Nothing was changed.");
    Find<QScrollBar>(main, "scrlPage")->setValue(3);
    EXPECT_EQ(Find<QScrollBar>(main, "scrlPage")->value(), 1) << "the page is not left";
    EXPECT_EQ(LabelText(main, "lblCurrentPage"), "1");
    run.session.Keys().Execute("DROP TRIGGER \"Full\"");
    ClickCell(main, 9);
    EXPECT_EQ(RowOf(run, 8).Label, "TWO         ");
}

/// The rows of both tables that hold a key's record.
QStringList Records(RunningProgram& run) {
    QStringList rows;
    for (const PatternsRow& row : Recordset<PatternsRow>(run.session.Keys()).Rows())
        rows += row.Label + '|' + row.KeyWay + '|' + row.Department + '|' + row.Description + '|' +
                row.AlphaCode;
    for (const AllKeysRow& row : Recordset<AllKeysRow>(run.session.Keys()).Rows())
        rows += row.KeyID + '|' + row.KeyWay + '|' + row.Cuts + '|' + row.CustomCuts + '|' +
                QString::number(row.PageNumber) + '|' + QString::number(row.Position);
    return rows;
}

/// Names a key as an earlier version or another program may have left it.
void NameOldKey(RunningProgram& run, int position) {
    PatternsRow row = RowOf(run, position);
    row.Label = "Old" + QString::number(position);
    row.KeyWay = "kw";
    row.Department = "Caretakers";
    row.Description = "Cellar\r\nwest \n";
    row.AlphaCode = "2001-02-03";
    Recordset<PatternsRow>::Update(run.session.Keys(), row);
    AllKeysRow named;
    named.SystemNumber = row.SystemNumber;
    named.PageNumber = 1;
    named.Position = position;
    named.KeyID = row.Label;
    named.Cuts = row.Cuts;
    named.CustomCuts = row.AlphaCode;
    Recordset<AllKeysRow>::Add(run.session.Keys(), named);
}

TEST(FrmMain, LookingAroundStoresAndOffersNothing) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "395172"));
    NameOldKey(run, 0);
    NameOldKey(run, 9);
    const QStringList before = Records(run);
    run.StartAndLogOn();
    Click(run.Form("frmOpenFile"), "cmdOpen");
    QWidget* main = run.Form("frmMain");
    const auto around = [&] {
        for (const int cell : {9, 1, 0}) {
            ClickCell(main, cell);
            for (const char* box : {"txtKeyID", "txtKeyway", "txtDescription", "cmbDepartment"})
                Find<QWidget>(main, box)->setFocus();
        }
        ClickCell(main, 2);
        EXPECT_EQ(Find<QLineEdit>(main, "txtKeyway")->text(), "") << "offered without a save";
        EXPECT_EQ(Find<QComboBox>(main, "cmbDepartment")->currentText(), "");
        ClickCell(main, 0);
    };
    around();
    for (const char* entry : {"mnuHelpAbout", "mnuAssignUsers", "mnuEditDepartment"}) {
        Choose(main, entry);
        for (const char* form : {"frmAbout", "frmKeyUsers", "frmDepartments"})
            if (run.IsLoaded(form))
                run.Form(form)->close();
        EXPECT_EQ(Find<QLineEdit>(run.Form("frmMain"), "txtKeyID")->text(), "Old0");
        around();
    }
    Click(main, "Picture1_0");
    Find<QScrollBar>(main, "scrlPage")->setValue(2);
    Find<QScrollBar>(main, "scrlPage")->setValue(1);
    around();
    main->close();
    EXPECT_EQ(Records(run), before);
    Click(run.Form("frmExit"), "cmdExit");
    EXPECT_TRUE(run.ended);
}

TEST(FrmMain, ARenameIsAskedAboutHoweverTheKeyCameUp) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    TypeKeyID(main, 6, "front");
    ClickCell(main, 7);
    ClickCell(main, 6);
    const auto refuse = [&] {
        Type(main, "txtKeyID", "back");
        run.boxes.Expect("Are you sure you want to save changes to this record?", BoxAnswer::No);
    };
    refuse();
    Click(main, "Picture1_0");
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "FRONT") << "what holds is shown";
    refuse();
    ClickCell(main, 7);
    ClickCell(main, 6);
    Choose(main, "mnuHelpAbout");
    Click(run.Form("frmAbout"), "cmdOK");
    refuse();
    ClickCell(main, 7);
    EXPECT_EQ(RowOf(run, 6).Label, "FRONT       ");
}

TEST(FrmMain, TypedTextWithoutAKeyIDIsNotDroppedWithoutAQuestion) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    ClickCell(main, 6);
    Type(main, "txtDescription", "Front door");
    run.boxes.Expect("A key needs a Key ID to be stored", BoxAnswer::No);
    ClickCell(main, 7);
    EXPECT_EQ(CellOf(main, 6)->ShownState(), cellstate::kActive);
    run.boxes.Expect("A key needs a Key ID to be stored", BoxAnswer::No);
    main->close();
    EXPECT_EQ(Find<QPlainTextEdit>(main, "txtDescription")->toPlainText(), "Front door");
    Type(main, "txtKeyID", "front");
    ClickCell(main, 7);
    EXPECT_EQ(RowOf(run, 6).Description, "Front door");
}

TEST(FrmMain, AFullDescriptionRefusesWhatIsTooMuchWhereItIsTyped) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    auto* box = Find<QPlainTextEdit>(main, "txtDescription");
    const QString full = QString(245, 'd') + "_end_";
    box->setPlainText(full);
    box->setFocus();
    box->moveCursor(QTextCursor::Start);
    box->moveCursor(QTextCursor::Right);
    QTest::keyClicks(box, "xyz");
    EXPECT_EQ(box->toPlainText(), full);
    EXPECT_EQ(box->textCursor().position(), 1) << "the user is where he was";
    QTest::keyClick(box, Qt::Key_Delete);
    box->insertPlainText("1234");
    EXPECT_EQ(box->toPlainText(), "d1" + full.mid(2)) << "as much as there is room for";
}

TEST(FrmMain, EnterOnceMoreThanNeededErasesNoDescription) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    auto* box = Find<QPlainTextEdit>(main, "txtDescription");
    box->setPlainText("Front door");
    Find<QWidget>(main, "cmbDepartment")->setFocus();
    QTest::keyClick(main->focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(box->hasFocus());
    box->selectAll(); // As a box does that the Tab key comes into.
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(box->toPlainText(), "Front door");
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClicks(box, "west");
    EXPECT_EQ(box->toPlainText(), "Front door\nwest");
}

TEST(FrmMain, AFailedSaveKeepsTheTextAndLeavesAWayOut) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    run.session.Keys().Execute("CREATE TRIGGER \"Full\" BEFORE INSERT ON \"AllKeys\" BEGIN "
                               "SELECT RAISE(ABORT, 'no room'); END");
    TypeKeyID(main, 6, "front");
    for (int attempt = 0; attempt < 2; ++attempt) {
        run.boxes.Expect("Leave it without saving?", BoxAnswer::No);
        main->close();
        EXPECT_EQ(Find<QLineEdit>(run.Form("frmMain"), "txtKeyID")->text(), "FRONT");
    }
    run.boxes.Expect("Leave it without saving?", BoxAnswer::No);
    Choose(main, "mnuFileOpen");
    run.boxes.Expect("Leave it without saving?", BoxAnswer::Yes);
    main->close();
    EXPECT_TRUE(run.Form("frmExit"));
}

TEST(FrmMain, APageThatCannotBeReadLeavesTheShownOneWithItsNumber) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "395172"));
    ClickCell(main, 5);
    const QString cuts = LabelText(main, "lblCuts");
    run.session.Keys().Execute("ALTER TABLE AllKeys RENAME TO Elsewhere");
    auto* bar = Find<QScrollBar>(main, "scrlPage");
    run.boxes.Expect("could not be");
    emit bar->sliderMoved(7);
    bar->setValue(7);
    EXPECT_EQ(bar->value(), 1);
    EXPECT_EQ(LabelText(main, "lblCurrentPage"), "1");
    EXPECT_EQ(LabelText(main, "lblCuts"), cuts);
    EXPECT_EQ(run.session.CurrentPage, 1);
    run.session.Keys().Execute("ALTER TABLE Elsewhere RENAME TO AllKeys");
    bar->setValue(7);
    EXPECT_EQ(LabelText(main, "lblCurrentPage"), "7");
}

TEST(FrmMain, AConflictIsToldAndWhatHoldsIsShown) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    ClickCell(main, 6);
    run.session.Keys().Execute("UPDATE Patterns SET Label = 'THEIRS' WHERE PageNumber = 1 AND "
                               "Position = 6");
    Type(main, "txtKeyID", "mine");
    run.boxes.Expect("has been changed at another workstation");
    ClickCell(main, 7);
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "THEIRS");
    EXPECT_EQ(CellOf(main, 6)->ShownState(), cellstate::kActive + cellstate::kLabelled);
    ClickCell(main, 7); // and nothing is asked again
    EXPECT_EQ(RowOf(run, 6).Label, "THEIRS");
}

TEST(FrmMain, LayoutsAndLegendAreToggled) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "395172"));
    EXPECT_TRUE(Find<QToolButton>(main, "Picture1_0")->isVisible());
    const int compact = CellOf(main, 0)->width();
    Click(main, "Picture1_0");
    QTest::qWait(10);
    EXPECT_GT(CellOf(main, 0)->width(), compact);
    EXPECT_FALSE(Find<QToolButton>(main, "Picture1_0")->isVisible());
    Click(main, "Picture1_1");
    EXPECT_TRUE(Find<QToolButton>(main, "Picture1_0")->isVisible());

    auto* legend = Find<QWidget>(main, "frmLegend");
    EXPECT_FALSE(legend->isVisible());
    Click(main, "cmdLegend");
    EXPECT_TRUE(legend->isVisible());
    Click(main, "cmdLegend");
    EXPECT_FALSE(legend->isVisible());
}

TEST(FrmMain, NeitherLongTextsNorTheLegendMakeItLarger) {
    RunningProgram few;
    QWidget* plain = few.OpenMain(StandardSystem("Pier", "2715"));
    const QSize least = plain->minimumSizeHint();

    RunningProgram run;
    const QString text = QString("in the north wing ").repeated(20).left(250);
    NewSystem system = StandardSystem(text, "2715");
    system.address = system.notes = system.lockBrand = text;
    QWidget* main = run.OpenMain(system);
    for (const int master : {4, 80, 84, 100}) {
        ClickCell(main, master);
        Type(main, "txtKeyID", QString("WWWWWWWW%1").arg(master));
        Find<QPlainTextEdit>(main, "txtDescription")->setPlainText(text);
    }
    ClickCell(main, 0);
    EXPECT_EQ(LabelText(main, "lblBlockMasterDesc"), text);
    EXPECT_EQ(main->minimumSizeHint(), least);
    Click(main, "cmdLegend");
    EXPECT_EQ(main->minimumSizeHint(), least);
    EXPECT_GT(Find<QWidget>(main, "frmLegend")->height(), 150);
}

TEST(FrmMain, SaysWhenNoMapFilesAreThere) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    run.session.MapDatabasePath = "/nowhere";
    run.StartAndLogOn();
    run.session.MapDatabasePath = "/nowhere";
    run.boxes.Expect("No Map Files are available");
    Click(run.Form("frmOpenFile"), "cmdOpen");
    EXPECT_EQ(run.boxes.Last().title, "File Access Error");
    EXPECT_TRUE(run.Form("frmMain"));
}

} // namespace
} // namespace quorrel::test
