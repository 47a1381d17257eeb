#include "doors/DoorSite.h"
#include "doors/frmDoors.h"
#include "platform/Text.h"
#include "store/DatabaseFiles.h"
#include "support/FormDriver.h"
#include "widgets/TextCombo.h"
#include "widgets/TextList.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

namespace quorrel::test {
namespace {

/// The door form on the screen, opened by itself.
class FrmDoors : public testing::Test {
protected:
    ~FrmDoors() override { delete form.data(); }

    void Open(const DoorWindows& offered = {true, true}) {
        form = new frmDoors(site.session, offered);
        QObject::connect(&form->Events(), &FormEvents::Closed, [this] { ++closed; });
        QObject::connect(form, &frmDoors::MapWanted, [this] {
            ++maps;
            placeAtMap = site.session.door.CurrentDoorX;
        });
        QObject::connect(form, &frmDoors::CrossKeyWanted,
                         [this](const CrossKeyDoor& door) { crossKeyed.push_back(door); });
        form->show();
        QCoreApplication::processEvents();
    }

    QString LabelText() { return Find<TextCombo>(form, "cmbDoorLabel")->currentText(); }
    QString Line(const char* name) { return Find<QLineEdit>(form, name)->text(); }
    QString Area(const char* name) { return Find<QPlainTextEdit>(form, name)->toPlainText(); }
    QCheckBox* Box(const char* name) { return Find<QCheckBox>(form, name); }
    bool IsEnabled(const char* name) { return Find<QWidget>(form, name)->isEnabled(); }
    QStringList Lines(const char* name) { return Find<TextList>(form, name)->Lines(); }

    /// Clicks the line of a list that begins with a text, once or twice.
    void ClickLine(const char* name, const QString& begin, bool twice = false) {
        auto* list = Find<TextList>(form, name);
        for (int row = 0; row < list->Count(); ++row) {
            const QModelIndex line = list->model()->index(row, 0);
            if (!line.data().toString().startsWith(begin))
                continue;
            list->scrollTo(line);
            const QPoint place = list->visualRect(line).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            if (twice)
                QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
            QCoreApplication::processEvents();
            return;
        }
        ADD_FAILURE() << name << " has no line " << begin.toStdString();
    }

    DoorSite site;
    QPointer<frmDoors> form;
    int closed = 0;
    int maps = 0;
    double placeAtMap = -1;
    std::vector<CrossKeyDoor> crossKeyed;
};

TEST_F(FrmDoors, KeepsARecordAndBringsItUpAgainWhileItsLabelIsTyped) {
    Open();
    Type(form, "cmbDoorLabel", "A1");
    Type(form, "txtDoorDescription", "Boiler room");
    Type(form, "txtDoorLocation", "Cellar");
    Type(form, "cmbHardware", "Lever");
    EXPECT_EQ(Line("txtNumberofHardware"), "0");
    Type(form, "txtHardwareSpecs", "left hand");
    Click(form, "ckKeyed");
    Click(form, "cmdSave");
    EXPECT_EQ(LabelText(), "");
    EXPECT_EQ(Area("txtDoorDescription"), "");
    EXPECT_FALSE(Box("ckKeyed")->isChecked());
    EXPECT_EQ(form->focusWidget()->objectName(), "cmbDoorLabel");
    EXPECT_EQ(Find<TextCombo>(form, "cmbHardware")->Texts(), QStringList("Lever"));

    Type(form, "cmbDoorLabel", "A1");
    EXPECT_EQ(Area("txtDoorDescription"), "Boiler room");
    EXPECT_EQ(Line("txtDoorID"), QString::number(site.system.SystemID * 10000 + 1));
    EXPECT_EQ(Line("txtNumberofHardware"), "1");
    EXPECT_EQ(Box("ckKeyed")->text(), "Keyed");
    Click(form, "cmdSave");
    Find<TextCombo>(form, "cmbDoorLabel")->setCurrentIndex(0);
    EXPECT_EQ(Box("ckKeyed")->text(), "Keyed - 03/15/2026");

    QTest::keyClicks(Find<TextCombo>(form, "cmbDoorLabel"), "0");
    EXPECT_EQ(LabelText(), "A10");
    EXPECT_EQ(Area("txtHardwareSpecs"), "left hand") << "a new label leaves what stands there";
    Click(form, "cmdSave");
    ASSERT_EQ(site.Doors().size(), 2U);
    EXPECT_EQ(site.Doors()[1].DoorLabel, "A10");
    EXPECT_EQ(site.Doors()[1].DoorDescription, "Boiler room");
    EXPECT_EQ(site.Doors()[1].Long1, 0);
    EXPECT_EQ(Box("ckKeyed")->text(), "Keyed");
}

TEST_F(FrmDoors, OnlyAChoiceFromTheListBringsUpTheSameDoorAgain) {
    site.Save("A1", "old");
    Open();
    form->AskFor("A1");
    Type(form, "txtDoorDescription", "new");
    auto* label = Find<TextCombo>(form, "cmbDoorLabel");
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Tab);
    EXPECT_EQ(Area("txtDoorDescription"), "new");
    label->showPopup();
    QTest::keyClick(label->view(), Qt::Key_Return);
    EXPECT_EQ(Area("txtDoorDescription"), "old");
}

TEST_F(FrmDoors, DeletesADoorAfterAQuestion) {
    site.Save("A1");
    site.Save("B1");
    Open();
    form->AskFor("A1");
    site.boxes.Expect("Are you sure you want to delete A1?", BoxAnswer::No);
    Click(form, "cmdDelete");
    EXPECT_EQ(LabelText(), "A1");
    site.boxes.Expect("Are you sure you want to delete A1?", BoxAnswer::Yes);
    Click(form, "cmdDelete");
    EXPECT_EQ(Lines("lstAllDoors").size(), 1);
    EXPECT_TRUE(IsEnabled("cmdDelete"));
    form->AskFor("B1");
    site.boxes.Expect("delete B1?", BoxAnswer::Yes);
    Click(form, "cmdDelete");
    EXPECT_FALSE(IsEnabled("cmdDelete")) << "no door is left";
    form->AskFor("C1");
    Click(form, "cmdSave");
    EXPECT_TRUE(IsEnabled("cmdDelete"));
    form->AskFor("C");
    Click(form, "cmdDelete");
    EXPECT_EQ(site.Doors().size(), 1U) << "no door has that label";
}

TEST_F(FrmDoors, AssignsDoorsByButtonAndByDoubleClick) {
    site.NameKey(0, Padded("K1", 12), "Hall");
    site.NameKey(1, Padded("K2", 12), "Store");
    for (const char* label : {"A1", "A2", "B1"})
        site.Save(label, "door");
    Open();
    form->AskFor("A1");
    ClickLine("lstKeyIDs", "K1");
    ClickLine("lstAllDoors", "A1");
    Click(form, "cmdAssignTo");
    ClickLine("lstAllDoors", "B1", true);
    EXPECT_EQ(Lines("lstKeyedDoors").size(), 2);
    EXPECT_EQ(Line("txtKeyedTo"), Padded("K1", 12)) << "the door on the screen has its key";
    ClickLine("lstKeyedDoors", "A1", true);
    EXPECT_EQ(Lines("lstKeyedDoors").size(), 1);
    EXPECT_EQ(Line("txtKeyedTo"), QString(7, ' '));
    ClickLine("lstKeyIDs", "K2");
    EXPECT_EQ(Lines("lstKeyedDoors"), QStringList());
    QTest::keyClick(Find<TextList>(form, "lstKeyIDs"), Qt::Key_Up);
    QCoreApplication::processEvents();
    ClickLine("lstKeyedDoors", "B1");
    Click(form, "cmdRemoveFrom");
    EXPECT_EQ(site.KeysOfDoors(), QStringList({QString(7, ' '), QString(8, ' '), QString(7, ' ')}));
}

TEST_F(FrmDoors, RefinesItsListsAndForgetsAKeyThatIsGoneFromThem) {
    site.NameKey(0, Padded("K1", 12), "Hall");
    site.NameKey(1, Padded("K2", 12), "Store");
    for (const char* label : {"A1", "a2", "B1"})
        site.Save(label);
    Open();
    Type(form, "txtSearchDoor", "A");
    EXPECT_EQ(Lines("lstAllDoors").size(), 2);
    ClickLine("lstKeyIDs", "K1");
    ClickLine("lstAllDoors", "A1", true);
    Type(form, "txtSearchKey", "k");
    EXPECT_EQ(Lines("lstKeyedDoors").size(), 1) << "the chosen key is still there";
    Type(form, "txtSearchKey", "k2");
    EXPECT_EQ(Lines("lstKeyIDs").size(), 1);
    EXPECT_EQ(Lines("lstKeyedDoors").size(), 0);
    Click(form, "cmdAssignTo");
    EXPECT_EQ(site.KeysOfDoors().at(0), Padded("K1", 12)) << "no key was chosen";
    form->AskFor("B1");
    Click(form, "cmdSave");
    EXPECT_EQ(Lines("lstAllDoors").size(), 3);
    EXPECT_EQ(Line("txtSearchDoor"), "") << "the lists are whole again";
}

TEST_F(FrmDoors, CrossKeyingTakesALabelAndLeadsOn) {
    site.Save("A1", "Vault");
    Open();
    EXPECT_FALSE(IsEnabled("ckCrossKeyed"));
    Type(form, "cmbDoorLabel", " A");
    EXPECT_FALSE(IsEnabled("ckCrossKeyed"));
    Type(form, "cmbDoorLabel", "A1  ");
    EXPECT_FALSE(IsEnabled("cmdViewXK"));
    Click(form, "ckCrossKeyed");
    Click(form, "cmdViewXK");
    ASSERT_EQ(crossKeyed.size(), 1U);
    EXPECT_EQ(crossKeyed[0].label, "A1");
    EXPECT_EQ(crossKeyed[0].id, QString::number(site.system.SystemID * 10000 + 1));
    EXPECT_EQ(crossKeyed[0].description, "Vault");
    EXPECT_FALSE(crossKeyed[0].isIC);
    form->hide();
    DoorsRow door = site.Doors().at(0);
    EXPECT_TRUE(door.Crosskeyed);
    door.CutsLabel = "K9";
    Recordset<DoorsRow>::Update(site.session.Keys(), door);
    form->show();
    EXPECT_EQ(Line("txtKeyedTo"), "K9") << "what was done meanwhile is shown";
    site.session.SessionPermissions.IssueKeys = false;
    Click(form, "cmdViewXK");
    EXPECT_EQ(crossKeyed.size(), 1U);
    EXPECT_EQ(closed, 0);
}

TEST_F(FrmDoors, TheMapTakesOverTheDoorEvenWithoutTheRight) {
    site.Save("A1");
    DoorsRow door = site.Doors().at(0);
    door.Coordx = 30;
    door.LinkMapID = 2;
    door.CutsLabel = "K1";
    Recordset<DoorsRow>::Update(site.session.Keys(), door);
    site.session.SessionPermissions.IssueKeys = false;
    Open();
    for (const char* button : {"cmdAssignTo", "cmdRemoveFrom", "cmdDelete", "cmdSave"})
        EXPECT_FALSE(IsEnabled(button)) << button;
    Type(form, "cmbDoorLabel", "A1");
    EXPECT_EQ(Find<QPushButton>(form, "cmdAttachMap")->text(), "View &Map");
    Type(form, "txtDoorLocation", "East");
    Click(form, "cmdAttachMap");
    EXPECT_EQ(maps, 1);
    EXPECT_EQ(placeAtMap, 30);
    EXPECT_EQ(site.session.door.CurrentDoorX, 0);
    EXPECT_EQ(site.session.door.CurrentDoorID, door.DoorID);
    EXPECT_EQ(site.session.door.MapDoorLabel, "A1");
    EXPECT_EQ(site.session.door.MapDoorKeyID, "K1");
    EXPECT_EQ(site.session.door.CurrentDoorColour, 16776960);
    EXPECT_EQ(site.Doors().at(0).DoorLocation, "East");
}

TEST_F(FrmDoors, AMapCanBeAskedForWithANewDoor) {
    Open();
    EXPECT_EQ(Find<QPushButton>(form, "cmdAttachMap")->text(), "Attach &Map");
    Type(form, "cmbDoorLabel", "New");
    Click(form, "cmdAttachMap");
    EXPECT_EQ(site.session.door.CurrentDoorLabel, "New");
    EXPECT_EQ(site.Doors().size(), 1U);
}

TEST_F(FrmDoors, WindowsThatDoNotExistYetAreNotOffered) {
    site.Save("A1");
    Open({});
    Type(form, "cmbDoorLabel", "A1");
    Click(form, "ckCrossKeyed");
    for (const char* button : {"cmdViewXK", "cmdAttachMap"}) {
        EXPECT_FALSE(IsEnabled(button)) << button;
        EXPECT_EQ(Find<QWidget>(form, button)->toolTip(),
                  "This window is not part of this version yet.");
    }
    site.session.MapDatabase.reset();
    delete form.data();
    Open();
    EXPECT_FALSE(Find<QWidget>(form, "cmdAttachMap")->isVisible());
}

TEST_F(FrmDoors, ClosingTheWindowAsksBeforeItDropsWhatWasTypedAndTheButtonDoesNot) {
    site.Save("A1", "old");
    Open();
    form->AskFor("A1");
    Type(form, "txtDoorDescription", "new");
    site.boxes.Expect("What you have typed for door A1 is not saved", BoxAnswer::No);
    QTest::keyClick(form.data(), Qt::Key_Escape);
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Area("txtDoorDescription"), "new");
    site.boxes.Expect("What you have typed for door A1 is not saved", BoxAnswer::Yes);
    QTest::keyClick(form.data(), Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
    delete form.data();
    Open();
    form->AskFor("A1");
    form->close(); // as it came up: no question
    EXPECT_EQ(closed, 2);
    delete form.data();
    Open();
    form->AskFor("A1");
    Type(form, "txtDoorDescription", "lost");
    Click(form, "cmdDone");
    EXPECT_EQ(closed, 3);
    EXPECT_EQ(site.Doors().at(0).DoorDescription, "old");
}

TEST_F(FrmDoors, AFailureToSaveIsToldAndLeavesWhatWasTyped) {
    Open();
    Type(form, "cmbDoorLabel", "A1");
    Type(form, "txtDoorDescription", "kept");
    {
        site.session.Keys().Execute("PRAGMA busy_timeout = 20");
        const auto elsewhere = Database::Open(site.PathOf(kKeySystemFile), kKeySystemKind);
        const Transaction writing(*elsewhere);
        site.boxes.Expect("in use by another workstation");
        Click(form, "cmdSave");
    }
    EXPECT_EQ(Area("txtDoorDescription"), "kept");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Doors().size(), 1U);
}

TEST_F(FrmDoors, PastesOfAnyTextAreKeptWhole) {
    Open();
    const QString text =
        QString::fromUtf8("\u05e9\u05e2\u05e8 O'Brien 100% \u00e9\n").repeated(500);
    form->AskFor("100%_%1");
    Find<QPlainTextEdit>(form, "txtDoorDescription")->setPlainText(text);
    Find<TextCombo>(form, "cmbHardware")->setEditText(QString(10000, 'h'));
    Click(form, "cmdSave");
    const DoorsRow door = site.Doors().at(0);
    EXPECT_EQ(door.DoorLabel, "100%_%1");
    EXPECT_EQ(door.DoorDescription, text);
    EXPECT_EQ(door.Text1.size(), 50);
    EXPECT_EQ(Lines("lstAllDoors").at(0), Padded("100%_%1", 18) + text);
    auto* list = Find<TextList>(form, "lstAllDoors");
    EXPECT_LT(list->visualRect(list->model()->index(0, 0)).height(), 40) << "shown on one line";
}

TEST_F(FrmDoors, TheTabKeyGoesRoundInReadingOrder) {
    Open();
    form->setFocus();
    QTest::keyClick(form.data(), Qt::Key_Tab);
    const QStringList round = TabRound(form);
    EXPECT_EQ(round.mid(0, 5), QStringList({"cmbDoorLabel", "txtDoorDescription", "txtDoorLocation",
                                            "cmbHardware", "txtHardwareSpecs"}));
    EXPECT_TRUE(round.contains("lstKeyedDoors"));
    EXPECT_EQ(round.last(), "cmdHelp");
}

TEST(FrmDoorsInProgram, LeadsFromTheMainFormAndBack) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Type(main, "txtKeyID", "north");
    Choose(main, "mnuAssignDoors");
    EXPECT_FALSE(main->isVisible());
    QWidget* doors = run.Form("frmDoors");
    Type(doors, "cmbDoorLabel", "East gate");
    Click(doors, "cmdSave");
    for (const char* list : {"lstKeyIDs", "lstAllDoors"})
        Find<TextList>(doors, list)->SetCurrentRow(0);
    EXPECT_EQ(Find<TextList>(doors, "lstKeyIDs")->CurrentText().left(5), "NORTH")
        << "the typed Key ID was stored before";
    Click(doors, "cmdAssignTo");
    Click(doors, "cmdDone");
    EXPECT_FALSE(run.IsLoaded("frmDoors"));
    ASSERT_EQ(run.Form("frmMain"), main);
    Click(main, "cmdListDoors");
    auto* list = Find<TextList>(main, "lstActiveDoors");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(0, 0)).center());
    doors = run.Form("frmDoors");
    EXPECT_EQ(Find<TextCombo>(doors, "cmbDoorLabel")->currentText(), "East gate");
    EXPECT_EQ(Find<QLineEdit>(doors, "txtKeyedTo")->text(), Padded("NORTH", 12));
    EXPECT_FALSE(main->isVisible());
}

} // namespace
} // namespace quorrel::test
