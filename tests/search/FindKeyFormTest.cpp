#include "platform/Text.h"
#include "search/frmFindKey.h"
#include "store/DatabaseFiles.h"
#include "support/AllForms.h"
#include "systems/KeySystems.h"
#include "widgets/TextCombo.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace quorrel::test {
namespace {

/// The program with its find form on the screen, brought up from the main form.
class FrmFindKey : public testing::Test {
protected:
    FrmFindKey() {
        const auto& roads = AllForms();
        const auto road = std::find_if(roads.begin(), roads.end(), [](const FormRoad& one) {
            return QLatin1String(one.form) == QLatin1String("frmFindKey");
        });
        screen = std::make_unique<FormOnScreen>(*road);
        form = screen->form;
    }

    QWidget* Shown(const char* name) { return screen->Site().Form(name); }
    QString Line(const char* name) { return Find<QLineEdit>(form, name)->text(); }
    QStringList Lines(const char* name) { return Find<TextList>(form, name)->Lines(); }
    QString Foot() { return LabelText(form, "lblFoot"); }
    void Expect(const char* text) { screen->Site().boxes.Expect(QLatin1String(text)); }

    std::unique_ptr<FormOnScreen> screen;
    QWidget* form = nullptr;
};

TEST_F(FrmFindKey, LeadsToAKeyAndComesBackWithItsTexts) {
    Type(form, "txtLabel", "k2");
    QTest::keyClick(Find<QLineEdit>(form, "txtLabel"), Qt::Key_Return);
    QWidget* main = Shown("frmMain");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Find<QLineEdit>(main, "txtKeyID")->text(), "K2");
    EXPECT_EQ(screen->Site().session.hit.FoundLabel, Padded("K2", 12));
    Choose(main, "mnuCurrent");
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(Line("txtLabel"), "k2");
    Click(form, "cmdExit");
    EXPECT_TRUE(Shown("frmMain"));
    EXPECT_FALSE(screen->Site().IsLoaded("frmFindKey"));
}

TEST_F(FrmFindKey, TellsWhatIsNotInTheSystemAndStays) {
    for (const auto& [box, button, text] :
         {std::tuple("txtLabel", "cmdFindLable", "That Key ID does not exist in this system."),
          std::tuple("txtCuts", "cmdFindCuts", "Those cuts do not exist in this system."),
          std::tuple("txtSerial", "cmdFindSerial",
                     "That Serial Number does not exist in this system.")}) {
        Type(form, box, "ZZ");
        Expect(text);
        Click(form, button);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(Find<QLineEdit>(form, box)->selectedText(), "ZZ");
    }
    Click(form, "Command1");
    EXPECT_TRUE(Foot().contains("Choose a description"));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(Shown("frmMain")->isVisible());
}

TEST_F(FrmFindKey, LeadsToTheUnitsOfAKey) {
    Type(form, "txtKeyUnit", "99");
    Click(form, "Command2");
    EXPECT_TRUE(Find<TextList>(form, "lstKeyID")->isVisible());
    EXPECT_TRUE(Foot().contains("No key has a unit 99"));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(Find<TextList>(form, "lstKeyID")->isVisible());
    EXPECT_TRUE(form->isVisible());
    Type(form, "txtKeyUnit", "2");
    Click(form, "Command2");
    QWidget* users = Shown("frmKeyUsers");
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Find<TextList>(users, "lstKeyIDs")->CurrentText().startsWith("K0 "));
    EXPECT_EQ(Find<TextList>(users, "lstUnitID")->Lines(), QStringList("2"));
    Click(users, "cmdDone");
    EXPECT_TRUE(Shown("frmMain"));
}

TEST_F(FrmFindKey, LeadsFromAHolderToTheUnitsInHisHands) {
    EXPECT_TRUE(LabelText(form, "lblListLabel").startsWith("Keys Assigned to 1001 Marsh"));
    ASSERT_EQ(Lines("lstKeys").size(), 1);
    auto* keys = Find<TextList>(form, "lstKeys");
    keys->setFocus();
    QTest::keyClick(keys, Qt::Key_Down);
    EXPECT_TRUE(form->isVisible()) << "arrows only move";
    QTest::keyClick(keys, Qt::Key_Return);
    EXPECT_TRUE(Shown("frmKeyUsers"));
}

TEST_F(FrmFindKey, ShowsTheUnitsOfTheChosenHolderAgainWhenItComesBack) {
    const QStringList units = Lines("lstKeys");
    Type(form, "txtKeyUnit", "2");
    Click(form, "Command2");
    Click(Shown("frmKeyUsers"), "cmdDone");
    Choose(Shown("frmMain"), "mnuCurrent");
    EXPECT_EQ(Lines("lstKeys"), units);
    EXPECT_TRUE(LabelText(form, "lblListLabel").contains("Marsh"));
    Click(form, "Command1");
    EXPECT_NE(Foot(), "");
    Type(form, "txtLabel", "ZZ");
    Expect("That Key ID does not exist");
    Click(form, "cmdFindLable");
    EXPECT_EQ(Foot(), "") << "nothing of an earlier search";
}

TEST_F(FrmFindKey, KeepsItsListsAndCaptionsTogetherWhenTheFileIsInUse) {
    Database& keys = screen->Site().session.Keys();
    keys.Execute("PRAGMA busy_timeout = 20");
    auto other = Database::Open(screen->Site().PathOf(kKeySystemFile), kKeySystemKind);
    const QStringList doors = Lines("lstDoors");
    other->Execute("BEGIN EXCLUSIVE");
    for (const char* button : {"cmdDoorList", "cmdSearch", "Command2"}) {
        Expect("is in use by another workstation");
        Click(form, button);
    }
    EXPECT_EQ(Find<QPushButton>(form, "cmdDoorList")->text(), "by Door ID");
    EXPECT_EQ(Find<QPushButton>(form, "cmdSearch")->text(), "by User ID");
    EXPECT_EQ(Lines("lstDoors"), doors);
    EXPECT_EQ(LabelText(form, "Label4"), "Description");
    other.reset();
    Click(form, "cmdSearch");
    EXPECT_EQ(Find<QPushButton>(form, "cmdSearch")->text(), "by Last Name");
}

TEST_F(FrmFindKey, TellsOfADeletedSystemNotOfAnEmptyOne) {
    DeleteKeySystem(screen->Site().session, ListKeySystems(screen->Site().session).front());
    Type(form, "txtKeyUnit", "2");
    Expect("has been deleted at another workstation");
    Click(form, "Command2");
    EXPECT_FALSE(screen->Site().IsLoaded("frmFindKey"));
}

TEST_F(FrmFindKey, LeadsFromADoorToItsKeyOrToItsRecord) {
    Type(form, "txtDoorSearch", "west");
    ASSERT_EQ(Lines("lstDoors"), QStringList("West gate"));
    ChooseLine(form, "lstDoors", 0);
    EXPECT_EQ(Line("txtLabel"), "K0");
    EXPECT_EQ(screen->Site().session.door.CurrentDoorLabel, "West gate");
    for (const char* caption : {"by Location", "by Description", "by Department", "by Door ID"}) {
        Click(form, "cmdDoorList");
        EXPECT_EQ(Find<QPushButton>(form, "cmdDoorList")->text(), caption);
        EXPECT_EQ(Find<TextList>(form, "lstDDoors")->isVisible(),
                  QLatin1String(caption) == QLatin1String("by Department"));
    }
    ChooseLine(form, "lstDoors", 0);
    auto* doors = Find<TextList>(form, "lstDoors");
    doors->setFocus();
    QTest::keyClick(doors, Qt::Key_Return);
    QWidget* record = Shown("frmDoors");
    EXPECT_EQ(Find<TextCombo>(record, "cmbDoorLabel")->currentText(), "West gate");
    Click(record, "cmdDone");
    EXPECT_TRUE(Shown("frmMain"));
}

} // namespace
} // namespace quorrel::test
