#include "pinning/PinSizes.h"
#include "platform/Recordset.h"
#include "support/FormDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace quorrel::test {
namespace {

class FrmManufacturer : public testing::Test {
protected:
    void SetUp() override {
        NewSystem system = StandardSystem("Pier", "2715");
        system.lockBrand = "generic .015 INCH steps";
        main = run.OpenMain(system);
        Choose(main, "mnuPinSizes");
        form = run.Form("frmManufacturer");
    }

    QString TextOf(const char* name) { return Find<QLineEdit>(form, name)->text(); }

    void ChooseBrand(const char* brand) {
        auto* combo = Find<QComboBox>(form, "cmbLockBrand");
        combo->setFocus();
        combo->setCurrentText(brand);
        QTest::keyClick(combo, Qt::Key_Tab);
        QCoreApplication::processEvents();
    }

    RunningProgram run;
    QWidget* main = nullptr;
    QWidget* form = nullptr;
};

TEST_F(FrmManufacturer, ShowsTheSizesOfTheSystemsBrandAndGivesTheMainFormBack) {
    EXPECT_EQ(TextOf("txtBottom_9"), ".285");
    EXPECT_EQ(TextOf("txtTop_3"), ".045");
    EXPECT_FALSE(main->isVisible());
    Click(form, "cmdExit");
    EXPECT_EQ(run.Form("frmMain"), main);
}

TEST_F(FrmManufacturer, PointAndEnterGoOnEachTheirOwnWay) {
    Type(form, "txtBottom_0", ".17.");
    EXPECT_EQ(TextOf("txtBottom_0"), ".17");
    EXPECT_EQ(form->focusWidget()->objectName(), "txtBottom_1");
    Type(form, "txtBottom_9", ".30.");
    EXPECT_EQ(form->focusWidget()->objectName(), "txtTop_1");
    Find<QLineEdit>(form, "txtBottom_9")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), "txtTop_0");
    Type(form, "txtTop_9", ".13.");
    EXPECT_EQ(form->focusWidget()->objectName(), "txtTop_9");
}

TEST_F(FrmManufacturer, KeepsTheSizesOfANewBrandCutToFourCharacters) {
    ChooseBrand("Quayside");
    EXPECT_EQ(TextOf("txtBottom_9"), "");
    Type(form, "txtBottom_2", "0.1234");
    Type(form, "txtTop_9", "5");
    Click(form, "cmdRecord");
    const auto sizes = FindPinSizes(run.session, "QUAYSIDE");
    ASSERT_TRUE(sizes);
    EXPECT_EQ(sizes->bottom[2], "0.12");
    EXPECT_EQ(sizes->top[9], "5");
    EXPECT_EQ(sizes->top[0], " ");
    ChooseBrand("generic .015 inch steps");
    EXPECT_EQ(TextOf("txtBottom_2"), ".180");

    ChooseBrand("quayside");
    run.boxes.Expect("delete Quayside?", BoxAnswer::No);
    Click(form, "Command1");
    run.boxes.Expect("delete Quayside?", BoxAnswer::Yes);
    Click(form, "Command1");
    EXPECT_FALSE(FindPinSizes(run.session, "Quayside"));
    EXPECT_EQ(TextOf("txtBottom_2"), ".180") << "the brand that is left is shown";
}

TEST_F(FrmManufacturer, AsksBeforeWhatWasTypedIsDropped) {
    Type(form, "txtBottom_2", "9.99");
    run.boxes.Expect("What you have typed for Generic .015 inch steps", BoxAnswer::No);
    ChooseBrand("Quayside");
    EXPECT_EQ(TextOf("txtBottom_2"), "9.99");
    EXPECT_FALSE(FindPinSizes(run.session, "Quayside"));
    run.boxes.Expect("What you have typed for Generic .015 inch steps", BoxAnswer::Yes);
    ChooseBrand("Quayside");
    Type(form, "txtTop_1", ".020");
    run.boxes.Expect("What you have typed for Quayside is not saved", BoxAnswer::No);
    Click(form, "cmdExit");
    Click(form, "cmdRecord");
    Click(form, "cmdExit");
    EXPECT_FALSE(run.IsLoaded("frmManufacturer"));
    EXPECT_EQ(FindPinSizes(run.session, "Generic .015 inch steps")->bottom[2], ".180");
    EXPECT_EQ(FindPinSizes(run.session, "Quayside")->top[1], ".020");
}

TEST_F(FrmManufacturer, TheBrandInTheBoxIsTheOneThatACommandActsOn) {
    // A shortcut does not move the focus out of the box.
    auto* combo = Find<QComboBox>(form, "cmbLockBrand");
    combo->setFocus();
    combo->setEditText("Quayside  ");
    QTest::keyClick(combo, Qt::Key_S, Qt::AltModifier);
    LetButtonsComeUp(form);
    EXPECT_EQ(FindPinSizes(run.session, "quayside")->bottom[2], " ");
    EXPECT_EQ(FindPinSizes(run.session, "Generic .015 inch steps")->bottom[2], ".180");
    combo->setEditText({});
    run.boxes.Expect("Type the name of the lock brand");
    Click(form, "cmdRecord");
    EXPECT_EQ(Recordset<ManufacturerRow>(run.session.Keys()).Count(), 2);
}

TEST_F(FrmManufacturer, SizesTypedBeforeTheirBrandAreItsOwn) {
    run.boxes.Expect("Are you sure you want to delete Generic", BoxAnswer::Yes);
    Click(form, "Command1");
    Type(form, "txtBottom_0", ".150");
    run.boxes.Expect("What you have typed for a lock brand without a name is not saved.",
                     BoxAnswer::No);
    form->close();
    auto* combo = Find<QComboBox>(form, "cmbLockBrand");
    combo->setFocus();
    combo->setEditText("Quayside");
    Click(form, "cmdRecord");
    EXPECT_EQ(FindPinSizes(run.session, "Quayside")->bottom[0], ".150");
}

TEST_F(FrmManufacturer, SizesOfTwoWorkstationsAreMerged) {
    run.session.Keys().Execute("UPDATE Manufacturer SET Bottom3 = '.777'");
    Type(form, "txtBottom_2", ".888");
    Click(form, "cmdRecord");
    EXPECT_EQ(TextOf("txtBottom_3"), ".777");
    EXPECT_EQ(FindPinSizes(run.session, "Generic .015 inch steps")->bottom[3], ".777");
    run.session.Keys().Execute("UPDATE Manufacturer SET Bottom2 = '.666'");
    Type(form, "txtBottom_2", ".999");
    run.boxes.Expect("has been changed at another workstation");
    Click(form, "cmdRecord");
    EXPECT_EQ(TextOf("txtBottom_2"), ".666");
    run.session.Keys().Execute("DELETE FROM Manufacturer");
    run.boxes.Expect("delete Generic", BoxAnswer::Yes);
    run.boxes.Expect("is no longer in the file");
    Click(form, "Command1");
}

TEST_F(FrmManufacturer, WithoutTheRightNothingIsStored) {
    run.session.SessionPermissions.CreateSystem = false;
    Type(form, "txtBottom_2", "9.99");
    Click(form, "cmdRecord");
    Click(form, "Command1");
    EXPECT_EQ(FindPinSizes(run.session, "Generic .015 inch steps")->bottom[2], ".180");
}

TEST(FrmManufacturerFromCreate, ComesUpForABrandThatIsNew) {
    RunningProgram run;
    run.StartAndLogOn();
    QWidget* create = run.Form("frmCreateFile");
    auto* combo = Find<QComboBox>(create, "txtLockBrand");
    combo->setFocus();
    combo->setCurrentText("Quayside");
    QTest::keyClick(combo, Qt::Key_Tab);
    QWidget* sizes = run.Form("frmManufacturer");
    EXPECT_EQ(Find<QComboBox>(sizes, "cmbLockBrand")->currentText(), "Quayside");
    Click(sizes, "cmdExit");
    EXPECT_EQ(run.Form("frmCreateFile"), create);
    EXPECT_FALSE(run.ended);
}

} // namespace
} // namespace quorrel::test
