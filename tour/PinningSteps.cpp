#include "Tour.h"

#include "widgets/HelpContexts.h"

#include <QFileInfo>
#include <QTemporaryDir>

namespace quorrel::tour {

namespace {

const QString kCoreName = QStringLiteral("Ferry terminal cores");

/// The chart of a key that has a Key ID, and of the system's master.
void ShowStandardChart(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmMain");
    walker.Click(QStringLiteral("ChgKey_0"));
    walker.Click(QStringLiteral("cmdPinning"));
    walker.Enter("frmPinningChart");
    walker.ExpectGone("frmMain");
    walker.CheckText(QStringLiteral("lblKeyID"), QStringLiteral("A1-101"));
    walker.Picture(QStringLiteral("pinning-standard"));
    CheckHelp(tour, "frmPinningChart", help::kPinningChart);
    walker.Click(QStringLiteral("cmdOK"));
    walker.ExpectGone("frmPinningChart");
    walker.Enter("frmMain");
    walker.Click(QStringLiteral("ChgKey_104"));
    walker.ExpectBox(QStringLiteral("This Key is a Master Level Key!"), QMessageBox::Ok,
                     QStringLiteral("pinning-question"));
    walker.Click(QStringLiteral("cmdPinning"));
    walker.Enter("frmPinningChart");
    walker.CheckContains(QStringLiteral("lblNotes"),
                         QStringLiteral("Chambers 4, 5 and 6: no master pin"));
    walker.Picture(QStringLiteral("pinning-master-level"));
    walker.Press(Qt::Key_Escape);
    walker.Enter("frmMain");
}

void CreateCore(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuFile", "mnuFileNew");
    walker.Enter("frmCreateFile");
    walker.Type(QStringLiteral("txtSystemName"), kCoreName);
    walker.Click(QStringLiteral("opType_2"));
    walker.Type(QStringLiteral("txtNumberofPins"), QStringLiteral("7"));
    walker.Type(QStringLiteral("txtMasterKey"), QStringLiteral("3951724"));
    walker.Type(QStringLiteral("txtControlKey"), QStringLiteral("5273940"));
    walker.Type(QStringLiteral("txtLockBrand"), QStringLiteral("Generic .015 inch steps"));
    walker.Click(QStringLiteral("cmdCreate"));
    walker.Enter("frmMain");
    walker.CheckText(QStringLiteral("lblControlKey"), QStringLiteral("5273940"));
}

void PrintCoreChart(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(QStringLiteral("ChgKey_6"));
    walker.Type(QStringLiteral("txtKeyID"), QStringLiteral("F-2"));
    walker.Click(QStringLiteral("ChgKey_0"));
    walker.Type(QStringLiteral("txtKeyID"), QStringLiteral("F-1"));
    walker.Type(QStringLiteral("txtDescription"),
                QStringLiteral("Ticket office, door to the pier"));
    walker.Click(QStringLiteral("cmdPinning"));
    walker.Enter("frmPinningChartIC");
    walker.Picture(QStringLiteral("pinning-core"));
    walker.Press(Qt::Key_PageDown);
    walker.CheckText(QStringLiteral("lblKeyID"), QStringLiteral("F-2"));
    walker.Picture(QStringLiteral("pinning-next-key"));
    walker.Press(Qt::Key_PageUp);
    walker.CheckText(QStringLiteral("lblKeyID"), QStringLiteral("F-1"));
    const QTemporaryDir folder;
    walker.ExpectFileDialog(folder.filePath(QStringLiteral("chart.pdf")),
                            QStringLiteral("pinning-print"));
    walker.Click(QStringLiteral("cmdPrint"));
    walker.Check(QFileInfo::exists(folder.filePath(QStringLiteral("chart.pdf"))),
                 QStringLiteral("No chart was printed"));
    walker.Click(QStringLiteral("cmdOK"));
    walker.ExpectGone("frmPinningChartIC");
    walker.Enter("frmMain");
}

} // namespace

void WalkPinning(Tour& tour) {
    tour.Take({{"Pinning chart", ShowStandardChart}});
}

void WalkCore(Tour& tour) {
    tour.Take({{"Core system", CreateCore},
               {"Core chart", PrintCoreChart},
               {"Cross-keyed core", CrossKeyCore}});
}

} // namespace quorrel::tour
