#include "doors/DoorAssignment.h"
#include "doors/DoorSite.h"
#include "doors/frmDoors.h"
#include "platform/Text.h"
#include "store/DatabaseFiles.h"
#include "support/FileInUse.h"
#include "support/FormDriver.h"
#include "widgets/TextCombo.h"
#include "widgets/TextList.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include <functional>

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
                         [this](const DoorsRow& door) { crossKeyed.push_back(door); });
        form->show();
        QCoreApplication::processEvents();
    }

    QString LabelText() { return Find<TextCombo>(form, "cmbDoorLabel")->currentText(); }
    QString Line(const char* name) { return Find<QLineEdit>(form, name)->text(); }
    QString Area(const char* name) { return Find<QPlainTextEdit>(form, name)->toPlainText(); }
    QCheckBox* Box(const char* name) { return Find<QCheckBox>(form, name); }
    bool IsEnabled(const char* name) { return Find<QWidget>(form, name)->isEnabled(); }
    QStringList Lines(const char* name) { return Find<TextList>(form, name)->Lines(); }
    QString Chosen(const char* name) { return Find<TextList>(form, name)->CurrentText(); }
    QString Foot() { return Find<QLabel>(form, "lblFoot")->text(); }
    QString Focus() { return form->focusWidget()->objectName(); }

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
    std::vector<DoorsRow> crossKeyed;
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
    for (const auto& [answer, description] :
         {std::pair{BoxAnswer::No, "new"}, {BoxAnswer::Yes, "old"}}) {
        site.boxes.Expect("typed into this record is not saved", answer);
        label->showPopup();
        QTest::keyClick(label->view(), Qt::Key_Return);
        EXPECT_EQ(Area("txtDoorDescription"), description);
    }
}

TEST_F(FrmDoors, AnotherLabelIsChosenOverTypedTextOnlyAfterAQuestion) {
    site.Save("A1", "first");
    site.Save("B1", "second");
    Open();
    auto* label = Find<TextCombo>(form, "cmbDoorLabel");
    Type(form, "cmbDoorLabel", "A1");
    QTest::keyClick(label, Qt::Key_Down);
    EXPECT_EQ(Area("txtDoorDescription"), "second") << "nothing was typed";
    Type(form, "txtDoorDescription", "mine");
    label->setFocus();
    site.boxes.Expect("typed into this record is not saved", BoxAnswer::No);
    QTest::keyClick(label, Qt::Key_Up);
    EXPECT_EQ(LabelText(), "B1");
    EXPECT_EQ(Area("txtDoorDescription"), "mine");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Door("B1").DoorDescription, "mine");
    EXPECT_EQ(site.Door("A1").DoorDescription, "first");
    Type(form, "txtDoorDescription", "typed first");
    Type(form, "cmbDoorLabel", "A1");
    EXPECT_EQ(Area("txtDoorDescription"), "first") << "while a label is typed nothing is asked";
    EXPECT_TRUE(Foot().contains("was not saved")) << "but it is told";
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
    EXPECT_EQ(crossKeyed[0].DoorLabel, "A1");
    EXPECT_EQ(crossKeyed[0].DoorID, site.system.SystemID * 10000 + 1);
    EXPECT_EQ(crossKeyed[0].DoorDescription, "Vault");
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
        site.session.Keys().SetPatience(20);
        const auto elsewhere = Database::Open(site.PathOf(kKeySystemFile), kKeySystemKind);
        const Transaction writing(*elsewhere);
        site.boxes.Expect("in use by another workstation");
        Click(form, "cmdSave");
    }
    EXPECT_EQ(Area("txtDoorDescription"), "kept");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Doors().size(), 1U);
}

TEST_F(FrmDoors, WhoTypesIsNotKeptByAFileInUse) {
    site.NameKey(0, Padded("K1", 12));
    site.Save("A1", "Boiler room");
    site.Save("B1", "Roof");
    Open();
    {
        const FileInUse inUse(site);
        Type(form, "txtSearchDoor", "b");
        Type(form, "cmbDoorLabel", "A1");
        EXPECT_EQ(LabelText(), "A1");
        EXPECT_EQ(Area("txtDoorDescription"), "") << "not read yet";
        EXPECT_TRUE(Foot().startsWith("The file is in use by another workstation."));
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return Foot().isEmpty(); }));
    EXPECT_EQ(Area("txtDoorDescription"), "Boiler room");
    {
        const FileInUse inUse(site);
        Type(form, "cmbDoorLabel", "B1");
        Type(form, "txtDoorDescription", "Flat");
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return Foot().contains("Door B1 came up only now."); }));
    EXPECT_EQ(Area("txtDoorDescription"), "Flat");
    Type(form, "cmbDoorLabel", "A1");
    EXPECT_EQ(Lines("lstAllDoors"), QStringList(Padded("B1", 18) + "Roof"));

    // A command does not act on what nobody has seen.
    {
        const FileInUse inUse(site);
        Type(form, "cmbDoorLabel", "B1");
        Type(form, "txtDoorDescription", "Attic");
        site.boxes.Expect("in use by another workstation");
        Click(form, "cmdSave");
    }
    Click(form, "cmdSave");
    EXPECT_TRUE(Foot().contains("Nothing was done yet"));
    EXPECT_EQ(Line("txtDoorID"), QString::number(site.system.SystemID * 10000 + 2)) << "came up";
    EXPECT_EQ(Area("txtDoorDescription"), "Attic") << "typed since";
    EXPECT_EQ(site.Door("B1").DoorDescription, "Roof");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Door("B1").DoorDescription, "Attic");
    EXPECT_EQ(site.Door("A1").DoorDescription, "Boiler room");
}

TEST_F(FrmDoors, PastesOfAnyTextAreKeptWhole) {
    Open();
    const QString text = QString::fromUtf8("\u05e9\u05e2\u05e8 O'Brien\n100% \u00e9").repeated(500);
    form->AskFor("100%_%1");
    auto* description = Find<QPlainTextEdit>(form, "txtDoorDescription");
    description->setPlainText(text + "\n\n"); // As a line copied from a table ends.
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

TEST_F(FrmDoors, OnlyTheSaveButtonSaves) {
    site.NameKey(0, Padded("K1", 12));
    site.Save("A1");
    Open();
    Type(form, "cmbDoorLabel", "A2");
    for (const auto& [box, next] : {std::pair{"cmbDoorLabel", "txtDoorDescription"},
                                    {"cmbHardware", "txtHardwareSpecs"},
                                    {"txtSearchKey", "lstKeyIDs"},
                                    {"txtSearchDoor", "lstAllDoors"},
                                    {"ckKeyed", "ckCrossKeyed"},
                                    {"lstAllDoors", "lstAllDoors"}}) {
        Find<QWidget>(form, box)->setFocus();
        QTest::keyClick(form->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(Focus(), next);
        for (int more = 0; more < 10; ++more)
            QTest::keyClick(form->focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(Focus().startsWith("cmd")) << "a button is reached from " << box;
    }
    EXPECT_EQ(site.Doors().size(), 1U);
    EXPECT_EQ(site.KeysOfDoors(), QStringList(QString(8, u' ')));
    EXPECT_EQ(LabelText(), "A2");
    EXPECT_FALSE(Box("ckKeyed")->isChecked());
    Find<QWidget>(form, "cmdSave")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(site.Doors().size(), 2U) << "Enter on the button is its click";
}

TEST_F(FrmDoors, IsWorkedByKeysAlone) {
    site.NameKey(0, Padded("K1", 12), "Hall");
    site.NameKey(1, Padded("K2", 12), "Store");
    site.Save("A1");
    Open();
    form->activateWindow();
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(form->focusWidget(), key);
        QCoreApplication::processEvents();
    };
    const auto alt = [&](Qt::Key key, const char* button) {
        QSignalSpy clicked(Find<QPushButton>(form, button), &QPushButton::clicked);
        QTest::keyClick(form->focusWidget(), key, Qt::AltModifier);
        EXPECT_TRUE(!clicked.empty() || clicked.wait()) << button;
    };
    const auto tabTo = [&](const char* name) {
        for (int stop = 0; stop < 30 && Focus() != QLatin1String(name); ++stop)
            press(Qt::Key_Tab);
        EXPECT_EQ(Focus(), name);
    };
    EXPECT_EQ(Focus(), "cmbDoorLabel");
    QTest::keyClicks(form->focusWidget(), "B1");
    press(Qt::Key_Return);
    QTest::keyClicks(form->focusWidget(), "Boiler room");
    tabTo("ckKeyed");
    press(Qt::Key_Space);
    alt(Qt::Key_S, "cmdSave");
    EXPECT_EQ(Foot(), "Door B1 added");
    EXPECT_EQ(Focus(), "cmbDoorLabel");
    tabTo("txtSearchKey");
    QTest::keyClicks(form->focusWidget(), "k2");
    press(Qt::Key_Return);
    tabTo("lstAllDoors");
    EXPECT_TRUE(Chosen("lstAllDoors").startsWith("B1")) << "the door just saved";
    press(Qt::Key_Up);
    alt(Qt::Key_T, "cmdAssignTo");
    EXPECT_EQ(Foot(), "Door A1 assigned to K2");
    EXPECT_EQ(site.KeysOfDoors(), QStringList({Padded("K2", 12), QString(8, ' ')}));
    tabTo("lstKeyedDoors");
    press(Qt::Key_Down);
    alt(Qt::Key_R, "cmdRemoveFrom");
    EXPECT_EQ(Foot(), "Door A1 removed from K2");
    EXPECT_EQ(site.KeysOfDoors().at(0), QString(7, ' '));
    alt(Qt::Key_O, "cmdDone");
    EXPECT_EQ(closed, 1);
}

TEST_F(FrmDoors, TheSavedDoorIsHighlightedAndInView) {
    for (int door = 0; door < 60; ++door)
        site.Save(QStringLiteral("D%1").arg(door));
    Open();
    Type(form, "txtSearchDoor", "D5");
    Type(form, "cmbDoorLabel", "D44");
    Type(form, "txtDoorDescription", "Vault");
    Click(form, "cmdSave");
    EXPECT_EQ(Foot(), "Door D44 changed");
    auto* list = Find<TextList>(form, "lstAllDoors");
    EXPECT_EQ(list->CurrentText(), DoorLine("D44", "Vault"));
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->currentIndex())));
    form->AskFor("D44");
    Click(form, "cmdSave");
    EXPECT_EQ(Foot(), "Door D44 is as it was");
    site.boxes.Expect("delete D44?", BoxAnswer::Yes);
    form->AskFor("D44");
    Click(form, "cmdDelete");
    EXPECT_EQ(Foot(), "Door D44 deleted");
    Click(form, "cmdAssignTo");
    EXPECT_EQ(Foot(), "Choose a Key ID and a door, then add it");
    Type(form, "cmbDoorLabel", "D99");
    Find<TextCombo>(form, "cmbHardware")->setEditText(QString(60, 'h'));
    Click(form, "cmdSave");
    EXPECT_EQ(Foot(), "Door D99 added, with the first 50 characters of its hardware");
}

TEST_F(FrmDoors, AKeyIDThatCannotBeAssignedIsTold) {
    site.NameKey(0, "ABCDEFGHIJK", "Hall");
    for (const char* label : {"Corridor door 0001A", "Corridor door 0001B"})
        site.Save(label);
    Open();
    ClickLine("lstKeyIDs", "ABC");
    ClickLine("lstAllDoors", "Corr");
    site.boxes.Expect("2 doors left without a key: a Key ID of more than 10 characters, such as "
                      "ABCDEFGHIJK, cannot be assigned.");
    Click(form, "cmdAssignTo");
    EXPECT_EQ(site.KeysOfDoors(), QStringList({"", ""}));
}

TEST_F(FrmDoors, ShowsWhatHoldsAfterAnotherWorkstationsChange) {
    site.Save("A1", "old");
    OtherWorkstation other(site);
    Open();
    form->AskFor("A1");
    Type(form, "txtDoorDescription", "mine");
    Type(form, "txtHardwareSpecs", "left hand");
    other.Change("A1", &DoorText::description, "theirs");
    other.Change("A1", &DoorText::location, "East wing");
    site.boxes.Expect("You had typed:\n    mine");
    Click(form, "cmdSave");
    EXPECT_EQ(Area("txtDoorDescription"), "theirs");
    EXPECT_EQ(Area("txtDoorLocation"), "East wing");
    EXPECT_EQ(Area("txtHardwareSpecs"), "left hand") << "what met nothing is not lost";
    EXPECT_EQ(site.Door("A1").Text2, "");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Door("A1").Text2, "left hand");
    EXPECT_EQ(site.Door("A1").DoorDescription, "theirs");

    form->AskFor("A1");
    other.Change("A1", &DoorText::details, "right hand");
    site.boxes.Expect("delete A1?", BoxAnswer::Yes);
    site.boxes.Expect("Door A1 has been changed at another workstation");
    Click(form, "cmdDelete");
    EXPECT_EQ(Area("txtHardwareSpecs"), "right hand");
    Type(form, "txtDoorLocation", "West wing");
    other.Delete("A1");
    site.boxes.Expect("Door A1 is no longer in the file");
    Click(form, "cmdSave");
    EXPECT_EQ(Lines("lstAllDoors"), QStringList());
    EXPECT_EQ(Area("txtDoorLocation"), "West wing");
    EXPECT_EQ(Foot(), "Door A1 is not stored any more. Save adds it anew.");
    Click(form, "cmdSave");
    EXPECT_EQ(site.Door("A1").DoorLocation, "West wing");
}

TEST_F(FrmDoors, ALabelTakenMeanwhileIsTold) {
    OtherWorkstation other(site);
    Open();
    Type(form, "cmbDoorLabel", "A1");
    Type(form, "txtDoorDescription", "mine");
    DoorText theirs;
    theirs.label = "A1";
    theirs.description = "theirs";
    SaveOver(other.session, theirs);
    site.boxes.Expect("Door A1 has been added at another workstation");
    Click(form, "cmdSave");
    EXPECT_EQ(Area("txtDoorDescription"), "theirs");
    EXPECT_EQ(Line("txtDoorID"), QString::number(site.Door("A1").DoorID));
    EXPECT_EQ(site.Doors().size(), 1U);
    QTest::keyClick(form.data(), Qt::Key_Escape);
    EXPECT_EQ(closed, 1) << "nothing is unsaved";
}

TEST_F(FrmDoors, ChoicesFromAgedListsAreToldAndTheListsReadAnew) {
    site.NameKey(0, Padded("K1", 12), "Hall");
    site.NameKey(1, Padded("K2", 12), "Store");
    for (const char* label : {"A1", "A2"})
        site.Save(label);
    Open();
    form->AskFor("A1");
    Type(form, "txtDoorDescription", "half typed");
    ClickLine("lstKeyIDs", "K1");
    ClickLine("lstAllDoors", "A2", true);
    site.NameKey(0, Padded("K3", 12), "Hall");
    ClickLine("lstAllDoors", "A1");
    site.boxes.Expect("Key ID K1 is no longer in the file");
    Click(form, "cmdAssignTo");
    EXPECT_EQ(Lines("lstKeyIDs").at(0), Padded("K3", 12) + "Hall");
    EXPECT_EQ(Chosen("lstKeyIDs").left(2), "K3") << "the same key";
    EXPECT_EQ(Chosen("lstAllDoors").left(2), "A1");
    EXPECT_EQ(Area("txtDoorDescription"), "half typed");
    EXPECT_EQ(site.KeysOfDoors(), QStringList({QString(8, ' '), Padded("K1", 12)}));

    ClickLine("lstKeyIDs", "K2");
    ClickLine("lstAllDoors", "A2", true);
    OtherWorkstation other(site);
    AssignDoorToKey(other.session, ListKeyableKeys(other.session)[0], ListDoors(other.session)[1]);
    ClickLine("lstKeyedDoors", "A2");
    site.boxes.Expect("The key of door A2 has been changed at another workstation");
    Click(form, "cmdRemoveFrom");
    EXPECT_EQ(Lines("lstKeyedDoors"), QStringList());
    EXPECT_EQ(site.KeysOfDoors().at(1), Padded("K3", 12));

    // The form still shows the door on it without a key.
    AssignDoorToKey(other.session, ListKeyableKeys(other.session)[1], ListDoors(other.session)[0]);
    ClickLine("lstKeyIDs", "K3");
    ClickLine("lstAllDoors", "A1");
    site.boxes.Expect("The key of door A1 has been changed at another workstation");
    Click(form, "cmdAssignTo");
    EXPECT_EQ(Line("txtKeyedTo"), Padded("K2", 12));
    Click(form, "cmdAssignTo");
    EXPECT_EQ(site.KeysOfDoors().at(0), Padded("K3", 12)) << "now it was shown";

    // A label that is listed no longer leads nowhere.
    form->AskFor("A1");
    other.Delete("A2");
    site.boxes.Expect("Door A2 is no longer in the file");
    Find<TextCombo>(form, "cmbDoorLabel")->setCurrentIndex(1);
    EXPECT_EQ(LabelText(), "A1");
    EXPECT_EQ(Find<TextCombo>(form, "cmbDoorLabel")->Texts(), QStringList("A1"));
}

TEST_F(FrmDoors, AsksAboutNothingThatIsAsItWas) {
    site.Save("A1", "Caf\u00e9\r\nsouth\u00a0wing"); // The box shows other line ends and blanks.
    const auto leavesUnasked = [&](const std::function<void()>& road) {
        Open();
        road();
        const int before = closed;
        QTest::keyClick(form.data(), Qt::Key_Escape);
        EXPECT_EQ(closed, before + 1);
        delete form.data();
    };
    leavesUnasked([] {});
    leavesUnasked([&] { form->AskFor("gone"); });
    leavesUnasked([&] {
        Type(form, "cmbDoorLabel", "A1");
        Click(form, "ckKeyed");
        Click(form, "ckKeyed");
        Click(form, "ckCrossKeyed");
        Click(form, "ckCrossKeyed");
        Type(form, "txtDoorLocation", "typed");
        Type(form, "txtDoorLocation", "");
        Type(form, "txtSearchDoor", "A");
    });
    leavesUnasked([&] {
        Type(form, "cmbDoorLabel", "A2");
        Click(form, "cmdSave");
        Type(form, "cmbDoorLabel", "A2 ");
        Type(form, "cmbDoorLabel", "");
    });
    Open();
    Type(form, "txtDoorLocation", "without a label");
    site.boxes.Expect("What you have typed is not saved", BoxAnswer::Yes);
    QTest::keyClick(form.data(), Qt::Key_Escape);
}

TEST_F(FrmDoors, TextsThatAreTooLongForTheirBoxesAreShownCutAndStayWhole) {
    const QString huge = QString(1 << 20, 'x');
    site.Save("A1", "Vault");
    site.session.Keys().Execute("UPDATE Doors SET DoorLocation = :text, Text1 = :same, "
                                "CutsLabel = :again",
                                {huge, huge, huge});
    Open();
    Type(form, "cmbDoorLabel", "A1");
    EXPECT_LT(Area("txtDoorLocation").size(), 40000);
    EXPECT_TRUE(Find<QPlainTextEdit>(form, "txtDoorLocation")->isReadOnly());
    Type(form, "txtDoorDescription", "Safe");
    Click(form, "cmdSave");
    EXPECT_FALSE(Find<QPlainTextEdit>(form, "txtDoorLocation")->isReadOnly());
    const DoorsRow door = site.Door("A1");
    EXPECT_EQ(door.DoorDescription, "Safe");
    EXPECT_EQ(door.DoorLocation, huge);
    EXPECT_EQ(door.Text1, huge);
    EXPECT_EQ(door.CutsLabel, huge);
    site.session.Keys().Execute("UPDATE Doors SET DoorLabel = :text", {huge});
    delete form.data();
    Open();
    Find<TextCombo>(form, "cmbDoorLabel")->setCurrentIndex(0);
    EXPECT_EQ(Area("txtDoorDescription"), "Safe");
    EXPECT_LT(form->width(), 1366);
}

TEST(FrmDoorsInProgram, ReadingChangesNoByteOfTheFile) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Type(main, "txtKeyID", "north");
    Choose(main, "mnuAssignDoors"); // stores the key
    QWidget* doors = run.Form("frmDoors");
    Type(doors, "cmbDoorLabel", "East gate");
    Click(doors, "ckKeyed");
    Click(doors, "cmdSave");
    Click(doors, "cmdDone");
    const auto bytes = [&] {
        QFile file(run.PathOf(kKeySystemFile));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray before = bytes();
    for (const bool escape : {true, false}) {
        Choose(main, "mnuAssignDoors");
        doors = run.Form("frmDoors");
        Type(doors, "cmbDoorLabel", "East gate");
        Type(doors, "txtSearchKey", "n");
        for (const char* list : {"lstKeyIDs", "lstAllDoors"}) {
            Find<TextList>(doors, list)->setFocus();
            QTest::keyClick(doors->focusWidget(), Qt::Key_Down);
        }
        doors->hide();
        doors->show();
        if (escape)
            QTest::keyClick(doors, Qt::Key_Escape);
        else
            Click(doors, "cmdDone");
        EXPECT_EQ(run.Form("frmMain"), main);
        EXPECT_EQ(bytes(), before);
    }
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
