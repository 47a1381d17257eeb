#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"
#include "support/Workstation.h"
#include "widgets/TextList.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quorrel::test {
namespace {

QString TextOf(QWidget* form, const char* name) {
    return Find<QLineEdit>(form, name)->text();
}

/// The create form on a file without systems.
class FrmCreateFile : public testing::Test {
protected:
    void SetUp() override {
        run.StartAndLogOn();
        form = run.Form("frmCreateFile");
    }

    void TypeValues(const QString& pins, const QString& lowest, const QString& highest,
                    const QString& increment) {
        Type(form, "txtIncrement", "2"); // Lets any range through while the rest is typed.
        Type(form, "txtNumberofPins", pins);
        Type(form, "txtMinimumPin", lowest);
        Type(form, "txtMaximumPin", highest);
        Type(form, "txtIncrement", increment);
    }

    RunningProgram run;
    QWidget* form = nullptr;
};

TEST_F(FrmCreateFile, HoldsTheNumbersWithinTheirLimits) {
    const struct {
        const char* field;
        const char* typed;
        const char* kept;
    } cases[] = {{"txtMaximumPin", "12", "9"},  {"txtMaximumPin", "4", "5"},
                 {"txtMinimumPin", "7", "4"},   {"txtMinimumPin", "-1", "0"},
                 {"txtNumberofPins", "0", "4"}, {"txtNumberofPins", "8", "7"},
                 {"txtIncrement", "5", "4"},    {"txtIncrement", "x", "1"},
                 {"txtSafetyFactor", "1", "2"}, {"txtSafetyFactor", "99", "9"},
                 {"txtMinimumPin", "x", "0"},   {"txtMinimumPin", ".5", "0"}};
    for (const auto& test : cases) {
        // Pasted whole: each key by itself would be held within the limits at once.
        Find<QLineEdit>(form, test.field)->setText(test.typed);
        EXPECT_EQ(TextOf(form, test.field), test.kept) << test.field << " " << test.typed;
        EXPECT_EQ(Find<QLineEdit>(form, test.field)->selectedText(), test.kept);
    }
}

TEST_F(FrmCreateFile, PreviewFollowsTheMasterAndTheValues) {
    const struct {
        const char *master, *lowest, *highest, *increment;
        int pages, total;
    } cases[] = {{"395172", "0", "9", "2", 64, 4096},
                 {"31524", "1", "5", "1", 16, 1024},
                 {"2715", "0", "9", "2", 4, 256}};
    const auto* list = Find<TextList>(form, "List1");
    for (const auto& test : cases) {
        Type(form, "txtMasterKey", "");
        TypeValues(QString::number(QString(test.master).size()), test.lowest, test.highest,
                   test.increment);
        Type(form, "txtMasterKey", test.master);
        EXPECT_EQ(list->Count(), test.pages) << test.master;
        EXPECT_EQ(list->Lines().value(0), "Page 1    = 64");
        EXPECT_EQ(Find<QLabel>(form, "lblTotalChanges")->text(),
                  QString("Total Usable Change Keys = %1").arg(test.total));
    }
    Type(form, "txtIncrement", "3");
    EXPECT_NE(Find<QLabel>(form, "lblTotalChanges")->text(), "Total Usable Change Keys = 256");
    const auto* within = Find<QLabel>(form, "lblWithinSafety");
    Type(form, "txtIncrement", "2");
    Type(form, "txtSafetyFactor", "9");
    EXPECT_EQ(within->text(), "Of these within the Safety Factor = 256");
    Type(form, "txtSafetyFactor", "2");
    EXPECT_EQ(Find<QLabel>(form, "lblTotalChanges")->text(), "Total Usable Change Keys = 256");
    EXPECT_EQ(within->text(), "Of these within the Safety Factor = 22");
    Type(form, "txtNumberofPins", "5");
    EXPECT_EQ(list->Count(), 0) << "a master of four cuts says nothing about five pins";
    EXPECT_EQ(within->text(), "Of these within the Safety Factor =");
}

TEST_F(FrmCreateFile, TooWideARangeForIncrementOneLeavesTheListAsItIs) {
    TypeValues("4", "0", "9", "2");
    Type(form, "txtMasterKey", "2715");
    TypeValues("4", "4", "9", "1");
    const QStringList before = Find<TextList>(form, "List1")->Lines();
    EXPECT_FALSE(before.isEmpty());
    run.boxes.Expect("Quorrel is limited to a pin variance of 5 when creating a Single Increment "
                     "System");
    Type(form, "txtMasterKey", "4567");
    EXPECT_EQ(run.boxes.Last().title, "Pin Variance Error");
    EXPECT_TRUE(Find<QLineEdit>(form, "txtMinimumPin")->hasFocus());
    EXPECT_EQ(Find<TextList>(form, "List1")->Lines(), before);
}

TEST_F(FrmCreateFile, TypeShowsItsOwnField) {
    const auto shown = [&](const char* name) { return Find<QWidget>(form, name)->isVisible(); };
    EXPECT_FALSE(shown("txtAngle") || shown("lblAngle") || shown("txtControlKey"));
    Click(form, "opType_1");
    EXPECT_TRUE(shown("txtAngle") && shown("lblAngle") && !shown("txtControlKey"));
    Click(form, "opType_2");
    EXPECT_TRUE(shown("txtControlKey") && shown("lblControlKey") && !shown("txtAngle"));
    Click(form, "opType_0");
    EXPECT_FALSE(shown("txtAngle") || shown("txtControlKey") || shown("lblControlKey"));
}

TEST_F(FrmCreateFile, RandomMasterPreviewsItself) {
    for (int draw = 0; draw < 20; ++draw) {
        Click(form, "cmdRandomMaster");
        EXPECT_TRUE(IsDigits(TextOf(form, "txtMasterKey").toStdString(), 6));
        EXPECT_GT(Find<TextList>(form, "List1")->Count(), 0);
    }
    TypeValues("4", "0", "9", "2");
    Type(form, "txtSafetyFactor", "2");
    run.boxes.Expect("No master key keeps to these values");
    Click(form, "cmdRandomMaster");
}

TEST_F(FrmCreateFile, RefusesBeforeAnythingIsWrittenAndSaysWhichField) {
    const auto refused = [&](const QString& text, const char* focus) {
        run.boxes.Expect(text);
        Click(form, "cmdCreate");
        EXPECT_TRUE(
            run.boxes.Last().text.startsWith("There has been an error in Pre-Creation Process"));
        EXPECT_TRUE(Find<QLineEdit>(form, focus)->hasFocus()) << text.toStdString();
        EXPECT_TRUE(Recordset<KeySystemRow>(run.session.Keys()).Empty());
    };
    refused("Name of Key System", "txtSystemName");
    Type(form, "txtSystemName", "Pier");
    Type(form, "txtMasterKey", "39517");
    refused("Master Key: 6 digits", "txtMasterKey");
    Type(form, "txtMasterKey", "395172");
    Click(form, "opType_1");
    Type(form, "txtAngle", "12345x");
    refused("Angle Values: 6 digits", "txtAngle");
    Click(form, "opType_2");
    refused("Control Key: 6 digits", "txtControlKey");
    Type(form, "txtControlKey", "395172");
    refused("Control Key: these are the cuts of the master key", "txtControlKey");
    Type(form, "txtControlKey", "135790");
    Click(form, "cmdCreate");
    EXPECT_EQ(Find<QLabel>(run.Form("frmMain"), "lblControlKey")->text(), "135790");
    EXPECT_FALSE(run.IsLoaded("frmCreateFile"));
}

TEST_F(FrmCreateFile, NewBrandIsLearntOnceAndAnEmptyOneIsNot) {
    const auto brands = [&] { return Recordset<ManufacturerRow>(run.session.Keys()).Count(); };
    const auto before = brands();
    const auto enter = [&](const char* brand) {
        auto* combo = Find<QComboBox>(form, "txtLockBrand");
        combo->setFocus();
        combo->setCurrentText(brand);
        QTest::keyClick(combo, Qt::Key_Tab);
        QCoreApplication::processEvents();
    };
    enter("");
    enter("generic");
    EXPECT_EQ(brands(), before);
    enter("Quayside");
    Click(run.Form("frmManufacturer"), "cmdExit");
    form->activateWindow();
    enter("quayside 40");
    EXPECT_EQ(brands(), before + 1);
    Find<QLineEdit>(form, "txtMinimumPin")->setFocus();
    const auto* combo = Find<QComboBox>(form, "txtLockBrand");
    EXPECT_GE(combo->findText("Quayside"), 0);
    EXPECT_EQ(combo->currentText(), "quayside 40");
}

TEST_F(FrmCreateFile, CancelOnAFileWithoutSystemsEndsTheProgram) {
    Click(form, "cmdCancel");
    EXPECT_TRUE(run.ended);
}

/// The list on a file with two systems.
class FrmOpenFile : public testing::Test {
protected:
    void SetUp() override {
        CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
        CreateKeySystem(run.session, StandardSystem("Quay", "395172"));
        run.StartAndLogOn();
        open = run.Form("frmOpenFile");
        list = Find<TextList>(open, "lstSystemFiles");
    }

    RunningProgram run;
    QWidget* open = nullptr;
    TextList* list = nullptr;
};

TEST_F(FrmOpenFile, OpensListsAndGoesToANewSystem) {
    EXPECT_EQ(list->Lines(), QStringList({"Pier", "Quay"}));
    EXPECT_EQ(list->CurrentRow(), 0);
    list->SetCurrentRow(1);
    QTest::keyClick(list, Qt::Key_Return);
    QWidget* main = run.Form("frmMain");
    EXPECT_EQ(Find<QLabel>(main, "lblSystem")->text(), "Quay");
    EXPECT_EQ(Find<QLabel>(main, "lblMaxPage")->text(), "64");

    Choose(main, "mnuFileOpen");
    EXPECT_FALSE(run.IsLoaded("frmMain"));
    Click(run.Form("frmOpenFile"), "cmdNew");
    Click(run.Form("frmCreateFile"), "cmdCancel");
    EXPECT_TRUE(run.Form("frmOpenFile"));
    EXPECT_FALSE(run.ended);
    run.Form("frmOpenFile")->close();
    EXPECT_TRUE(run.ended);
}

TEST_F(FrmOpenFile, ShowsWhatAnotherWorkstationHasCreatedWhenComeBackTo) {
    list->SetCurrentRow(1);
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    EXPECT_EQ(Workstation(run.folder.path(), {"create", "Basin", "2715"}).Finish(), 0);
    open->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(list->Lines(), QStringList({"Pier", "Quay", "Basin"}));
    EXPECT_EQ(list->CurrentRow(), 1) << "the selection stays";
}

TEST_F(FrmOpenFile, ChoosesNoOtherSystemForOneThatIsGone) {
    list->SetCurrentRow(0);
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    EXPECT_EQ(Workstation(run.folder.path(), {"delete", "Pier"}).Finish(), 0);
    open->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(list->Lines(), QStringList("Quay"));
    Click(open, "cmdDelete");
    Click(open, "cmdOpen");
    EXPECT_EQ(run.Form("frmOpenFile"), open);
    QTest::keyClick(list, Qt::Key_Down);
    Click(open, "cmdOpen");
    EXPECT_EQ(Find<QLabel>(run.Form("frmMain"), "lblSystem")->text(), "Quay");
}

TEST_F(FrmOpenFile, DeletesAfterAQuestionThatNamesTheSystem) {
    list->SetCurrentRow(1);
    run.boxes.Expect("\"Quay\"", BoxAnswer::No);
    Click(open, "cmdDelete");
    EXPECT_TRUE(run.boxes.Last().text.contains("6,741 keys"))
        << run.boxes.Last().text.toStdString();
    EXPECT_EQ(list->Count(), 2);

    list->SetCurrentRow(1);
    run.boxes.Expect("\"Quay\"", BoxAnswer::Yes);
    Click(open, "cmdDelete");
    EXPECT_EQ(list->Lines(), QStringList({"Pier"}));
    run.boxes.Expect("\"Pier\"", BoxAnswer::Yes);
    Click(open, "cmdDelete");
    EXPECT_TRUE(run.Form("frmCreateFile")) << "no system is left to choose";
}

TEST_F(FrmOpenFile, DeletesAndOpensWhatItShowsOrTellsWhatHasHappened) {
    const auto elsewhere = Database::Open(run.PathOf(kKeySystemFile), kKeySystemKind);
    const auto meanwhile = [&](const char* name) {
        return [&elsewhere, name] {
            elsewhere->Execute("UPDATE KeySystem SET SystemName = :n WHERE SystemID = 2",
                               {QString(name)});
        };
    };
    list->SetCurrentRow(1);
    run.boxes.ExpectWhile("delete the key system \"Quay\"", meanwhile("School"), BoxAnswer::Yes);
    run.boxes.Expect("The key system \"Quay\" is no longer in the file");
    Click(open, "cmdDelete");
    EXPECT_EQ(list->Lines(), QStringList({"Pier", "School"}));
    EXPECT_EQ(ContentsOf(run.session, 2).keys, 6741);

    list->SetCurrentRow(1);
    meanwhile("Library")();
    run.boxes.Expect("The key system \"School\" is no longer in the file");
    Click(open, "cmdOpen");
    EXPECT_EQ(list->Lines(), QStringList({"Pier", "Library"}));
    list->SetCurrentRow(1);
    Click(open, "cmdOpen");
    EXPECT_EQ(Find<QLabel>(run.Form("frmMain"), "lblSystem")->text(), "Library");
}

TEST_F(FrmOpenFile, SaysInPlainWordsWhatIsBroken) {
    run.session.Keys().Execute("UPDATE KeySystem SET NumberOfPins = 12 WHERE SystemID = 2");
    list->SetCurrentRow(1);
    run.boxes.Expect("\"Quay\" cannot be opened: it is stored with 12 pins");
    Click(open, "cmdOpen");
    EXPECT_TRUE(open->isVisible());
    run.session.Keys().Execute("UPDATE KeySystem SET NumberOfPins = 6, SystemName = NULL "
                               "WHERE SystemID = 2");
    run.session.Keys().Execute("UPDATE KeySystem SET SystemName = printf('%.1000000c', 'P') "
                               "WHERE SystemID = 1");
    open->hide();
    open->show();
    ASSERT_EQ(list->Count(), 2);
    EXPECT_EQ(list->Lines()[0], QString(255, u'P')) << "cut for the screen";
    EXPECT_EQ(list->Lines()[1], "(no name)");
    list->SetCurrentRow(1);
    run.boxes.Expect("It has no name.");
    Click(open, "cmdOpen");
    EXPECT_EQ(run.session.ActiveSystemNumber, 2);
    EXPECT_TRUE(run.Form("frmMain"));
}

TEST(FrmOpenFileRights, WithoutTheRightNothingButOpeningIsPossible) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    auto account = *Recordset<ProgramUsersRow>(run.session.Keys()).First();
    account.CreateSystem = false;
    Recordset<ProgramUsersRow>::Update(run.session.Keys(), account);
    run.StartAndLogOn();
    QWidget* open = run.Form("frmOpenFile");
    EXPECT_FALSE(Find<QPushButton>(open, "cmdNew")->isEnabled());
    EXPECT_FALSE(Find<QPushButton>(open, "cmdDelete")->isEnabled());
    QTest::keyClick(Find<TextList>(open, "lstSystemFiles"), Qt::Key_Delete);
    Click(open, "cmdOpen");
    EXPECT_TRUE(run.Form("frmMain"));
}

} // namespace
} // namespace quorrel::test
