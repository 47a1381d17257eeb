#include "Tour.h"
#include "print/Printers.h"
#include "widgets/HelpContexts.h"

#include <QAction>
#include <QDir>

namespace quorrel::tour {

namespace {

void LookAtPrinters(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuFile", "mnuFilePrinter");
    walker.Enter("frmPrinter");
    walker.ClickLine(QStringLiteral("lstPrinters"), QString::fromLatin1(kPdfPrinter));
    walker.CheckText(QStringLiteral("lblType"), QString::fromLatin1(kPdfPrinter));
    walker.Picture(QStringLiteral("printer"));
    CheckHelp(tour, "frmPrinter", help::kPrinter);
    walker.Click(QStringLiteral("cmdOK"));
    walker.Enter("frmMain");
}

void PrintDoors(Tour& tour) {
    Walker& walker = tour.walker;
    const QString path = QDir(tour.session.ProgramFolder).filePath(QStringLiteral("doors.pdf"));
    walker.Find<QAction>(QStringLiteral("mnuPrintDoors")).trigger();
    walker.Enter("frmDoorsList");
    walker.ClickLine(QStringLiteral("lstAllKeys"), 0);
    walker.Click(QStringLiteral("cmdAddTo"));
    walker.Click(QStringLiteral("cmdAddAll"));
    walker.Picture(QStringLiteral("report"));
    walker.ExpectFileDialog(path, QStringLiteral("report-file"));
    walker.Click(QStringLiteral("cmdPrint"));
    walker.CheckContains(QStringLiteral("lblFoot"), QStringLiteral("doors.pdf"));
    walker.Check(QFile::exists(path), QStringLiteral("No file was printed"));
    CheckHelp(tour, "frmDoorsList", help::kReports);
    walker.Click(QStringLiteral("cmdCancel"));
    walker.Enter("frmMain");
}

} // namespace

void WalkReports(Tour& tour) {
    tour.Take({{"Printers", LookAtPrinters}, {"Doors by key", PrintDoors}});
}

} // namespace quorrel::tour
