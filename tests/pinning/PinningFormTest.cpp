#include "pinning/frmPinningChart.h"
#include "platform/Recordset.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorrel::test {
namespace {

NewSystem Core() {
    NewSystem system = StandardSystem("Pier", "171717");
    system.definition.increment = 2;
    system.lockBrand = "Generic .015 inch steps";
    system.type = SystemType::ICCore23;
    system.special = "505050";
    return system;
}

QString TextOf(QWidget* form, const QString& name) {
    return Find<QLabel>(form, name.toLatin1().constData())->text();
}

/// What the labels of an array read together, those that are hidden as a point.
QString Row(QWidget* form, const char* name) {
    QString row;
    for (int chamber = 0; chamber < 7; ++chamber) {
        const QString element = QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(chamber);
        row += Find<QWidget>(form, element.toLatin1().constData())->isVisible()
                   ? TextOf(form, element)
                   : QStringLiteral(".");
    }
    return row;
}

TEST(FrmPinningChart, ShowsTheChartOfTheKeyThatWasJustNamed) {
    RunningProgram run;
    NewSystem system = StandardSystem("Pier", "27154");
    system.lockBrand = "Generic .015 inch steps";
    QWidget* main = run.OpenMain(system);
    Click(main, "ChgKey_0");
    Type(main, "txtKeyID", "a1");
    Type(main, "txtDescription", "Gate");
    Click(main, "cmdPinning");
    QWidget* chart = run.Form("frmPinningChart");
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(TextOf(chart, "lblKeyID"), "A1");
    EXPECT_EQ(TextOf(chart, "lblDescription"), "Gate");
    const QString cuts = TextOf(chart, "lblCuts");
    QString bottom, top;
    for (int chamber = 0; chamber < 5; ++chamber) {
        const int a = cuts[chamber].digitValue();
        const int b = QStringLiteral("27154")[chamber].digitValue();
        bottom += QString::number(std::min(a, b));
        top += QString::number(std::abs(a - b));
    }
    EXPECT_EQ(Row(chart, "lblBottomPins"), bottom + "..");
    EXPECT_EQ(Row(chart, "lblTopPins"), top + "..");
    EXPECT_FALSE(Find<QWidget>(chart, "frmTall")->isVisible());
    EXPECT_TRUE(Find<QWidget>(chart, "picCylinder")->accessibleDescription().contains(cuts));
    EXPECT_EQ(Find<QLabel>(chart, "lblTop_2")->accessibleName(), "Master Pins Size, chamber 3");
    Click(chart, "cmdOK");
    EXPECT_EQ(run.Form("frmMain"), main);
    EXPECT_FALSE(run.IsLoaded("frmPinningChart"));
}

TEST(FrmPinningChart, OfACoreAsksTwiceForAMasterAndPrints) {
    RunningProgram run;
    QWidget* main = run.OpenMain(Core());
    Click(main, "ChgKey_107");
    run.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Ok);
    run.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Cancel);
    Click(main, "cmdPinning");
    EXPECT_TRUE(main->isVisible());
    run.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Ok);
    run.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Ok);
    Click(main, "cmdPinning");
    QWidget* chart = run.Form("frmPinningChartIC");
    EXPECT_EQ(Row(chart, "lblBottomPins"), "171717.");
    EXPECT_EQ(Row(chart, "lblTopPins"), "000000.");
    EXPECT_EQ(Row(chart, "lblControlPins"), "E3E3E3.");
    EXPECT_EQ(Row(chart, "lblDrivePins"), "8D8D8D.");
    EXPECT_EQ(TextOf(chart, "lblBot_0"), ".165");
    EXPECT_EQ(TextOf(chart, "lblTall_9"), " .300");
    EXPECT_TRUE(TextOf(chart, "lblWarnings").startsWith("This Key is a Master Level Key!"));
    EXPECT_TRUE(TextOf(chart, "lblNotes").startsWith("Chambers 1, 2, 3, 4, 5 and 6: no master"));

    const QString path = run.folder.filePath("chart.pdf");
    run.boxes.ExpectFileDialog("PDF Files (*.pdf)|*.pdf", path);
    Click(chart, "cmdPrint");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF"));
    run.boxes.ExpectFileDialog("PDF Files (*.pdf)|*.pdf", run.folder.path());
    run.boxes.Expect("cannot be written");
    Click(chart, "cmdPrint");
    EXPECT_TRUE(chart->isVisible());
}

TEST(FrmPinningChart, IsRefusedForANotRecommendedKeyWithoutKeyID) {
    RunningProgram run;
    NewSystem system = StandardSystem("Pier", "1919");
    system.definition.safetyFactor = 2;
    QWidget* main = run.OpenMain(system);
    int cell = 0;
    const auto name = [&] { return "ChgKey_" + std::to_string(cell); };
    while (!Find<QWidget>(main, name().c_str())->toolTip().contains('*'))
        ++cell;
    run.boxes.Expect("This Pattern is Not Recomended for use");
    Click(main, name().c_str());
    run.boxes.Expect("This Pattern is Not Recomended due to Safety Factor limitation");
    Click(main, "cmdPinning");
    EXPECT_TRUE(main->isVisible());
    Type(main, "txtKeyID", "a1");
    Click(main, "cmdPinning");
    EXPECT_EQ(TextOf(run.Form("frmPinningChart"), "lblKeyID"), "A1") << "with a Key ID it is shown";
}

TEST(FrmPinningChart, StaysEmptyForWhoMayNotReadCuts) {
    RunningProgram run;
    CreateKeySystem(run.session, Core());
    run.StartAndLogOn();
    run.session.SessionPermissions.ReadPrintPinning = false;
    Click(run.Form("frmOpenFile"), "cmdOpen");
    EXPECT_FALSE(Find<QPushButton>(run.Form("frmMain"), "cmdPinning")->isEnabled());
    PinningRequest request;
    request.key = request.master = request.control = "1234";
    request.lockBrand = "Nobody's";
    frmPinningChart chart(run.session, MakePinningChart(run.session, request));
    EXPECT_EQ(TextOf(&chart, "lblCuts"), "");
    EXPECT_EQ(chart.findChild<QLabel*>("lblTopPins_0"), nullptr);
    chart.show();
    QTest::keyClick(&chart, Qt::Key_PageDown);
    EXPECT_EQ(TextOf(&chart, "lblCuts") + TextOf(&chart, "lblNotes"), "");
}

/// Gives the first change keys of the open file their Key IDs.
void NameFirstKeys(Session& session, const QStringList& keyIDs) {
    for (int cell = 0; cell < keyIDs.size(); ++cell) {
        const auto atCell = Query<PatternsRow>()
                                .Where(&PatternsRow::PageNumber, 1)
                                .Where(&PatternsRow::Position, cell);
        auto row = *Recordset<PatternsRow>(session.Keys(), atCell).First();
        row.Label = keyIDs[cell];
        row.Description = QStringLiteral("Door of ") + keyIDs[cell];
        Recordset<PatternsRow>::Update(session.Keys(), row);
    }
}

TEST(FrmPinningChart, GoesToTheNextAndThePreviousNamedKey) {
    RunningProgram run;
    NewSystem system = Core();
    system.special = "313133"; // the cuts of the key in cell 1
    CreateKeySystem(run.session, system);
    NameFirstKeys(run.session, {"A1", "A2", "A3"});
    run.StartAndLogOn();
    Click(run.Form("frmOpenFile"), "cmdOpen");
    QWidget* main = run.Form("frmMain");
    Click(main, "ChgKey_0");
    Click(main, "cmdPinning");
    QWidget* chart = run.Form("frmPinningChartIC");
    EXPECT_EQ(TextOf(chart, "lblCuts"), "313131");
    EXPECT_FALSE(Find<QPushButton>(chart, "cmdPrevious")->isEnabled());
    QTest::keyClick(chart, Qt::Key_PageUp);
    EXPECT_EQ(TextOf(chart, "lblKeyID"), "A1") << "there is none before";

    run.boxes.Expect("This key has the cuts of the control key");
    QTest::keyClick(chart, Qt::Key_PageDown);
    EXPECT_EQ(TextOf(chart, "lblKeyID"), "A2");
    EXPECT_EQ(TextOf(chart, "lblDescription"), "Door of A2");
    EXPECT_EQ(TextOf(chart, "lblCuts"), "313133");
    EXPECT_EQ(Row(chart, "lblTopPins"), "262624.");
    EXPECT_EQ(Row(chart, "lblControlPins"), "A4A4A6.");
    EXPECT_TRUE(TextOf(chart, "lblWarnings").startsWith("This key has the cuts of the control"));
    Click(chart, "cmdNext");
    EXPECT_EQ(TextOf(chart, "lblKeyID"), "A3");
    EXPECT_EQ(TextOf(chart, "lblWarnings"), "");
    EXPECT_FALSE(Find<QPushButton>(chart, "cmdNext")->isEnabled());
    EXPECT_TRUE(
        Find<QWidget>(chart, "picCylinder")->accessibleDescription().contains("key 313135"));
    Click(chart, "cmdOK");
    EXPECT_EQ(run.Form("frmMain"), main);
}

TEST(FrmPinningChart, WarnsOfTheControlKeysCutsWhenItComesUp) {
    RunningProgram run;
    PinningRequest request;
    request.key = request.control = "3571";
    request.master = "1359";
    run.session.SessionPermissions.RunReports = false;
    frmPinningChart chart(run.session, MakePinningChart(run.session, request));
    run.boxes.Expect("This key has the cuts of the control key");
    chart.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(run.boxes.All().size(), 1U);
}

} // namespace
} // namespace quorrel::test
