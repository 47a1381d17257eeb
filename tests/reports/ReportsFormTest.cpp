#include "print/Preview.h"
#include "print/Printers.h"
#include "reports/SelectionReport.h"
#include "support/AllForms.h"
#include "widgets/PrinterBox.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QProcess>
#include <QSpinBox>
#include <QTimer>

/// \file
/// Printing along the roads of a user. There is no printer here but the one that writes files.

namespace quorrel::test {
namespace {

const QString kPdf = QStringLiteral("PDF Files (*.pdf)|*.pdf");
const PrinterChoice kIntoFile{QString::fromLatin1(kPdfPrinter)};

QString TextOf(const QString& path) {
    QProcess reader;
    reader.start("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(reader.waitForFinished());
    return QString::fromUtf8(reader.readAllStandardOutput());
}

/// A site with one of the forms on the screen.
class ReportOnScreen {
public:
    explicit ReportOnScreen(const char* form) {
        for (const FormRoad& road : AllForms())
            if (QLatin1String(road.form) == QLatin1String(form)) {
                FormRoad bare = road;
                bare.fill = [](QWidget*) {};
                m_shown = std::make_unique<FormOnScreen>(bare);
            }
    }

    RunningProgram& Site() { return m_shown->Site(); }
    QWidget* Form() { return m_shown->form; }
    QStringList Lines(const char* list) { return Find<TextList>(Form(), list)->Lines(); }
    bool Enabled(const char* button) { return Find<QWidget>(Form(), button)->isEnabled(); }
    QString Foot() { return LabelText(Form(), "lblFoot"); }
    QString PathOf(const char* name) { return Site().folder.filePath(QLatin1String(name)); }
    void DoubleClick(const char* list, int row) {
        Find<TextList>(Form(), list)->SetCurrentRow(row);
        emit Find<TextList>(Form(), list)->DoubleClicked();
    }

private:
    std::unique_ptr<FormOnScreen> m_shown;
};

TEST(Selection, AddsRemovesAndSearchesAndPrintsWhatIsChosen) {
    ReportOnScreen report("frmPrintHardware");
    const QStringList all = report.Lines("lstAllHardware");
    ASSERT_EQ(all, QStringList({"Lever of East gate", "Lever of West gate"}));
    EXPECT_FALSE(report.Enabled("cmdPrint"));
    EXPECT_FALSE(report.Enabled("cmdRemove"));
    ChooseLine(report.Form(), "lstAllHardware", 1);
    EXPECT_TRUE(report.Foot().contains("1"));
    report.DoubleClick("lstAllHardware", 1);
    Click(report.Form(), "cmdAddTo");
    EXPECT_EQ(report.Lines("lstPrintHardware"), QStringList({all[1]})) << "once is enough";
    Click(report.Form(), "cmdAddAll");
    EXPECT_EQ(report.Lines("lstPrintHardware"), QStringList({all[1], all[0]}));
    report.DoubleClick("lstPrintHardware", 0);
    Type(report.Form(), "txtSearch", "lever OF w");
    EXPECT_EQ(report.Lines("lstAllHardware"), QStringList({all[1]}));
    EXPECT_EQ(report.Lines("lstPrintHardware"), QStringList({all[0]}));

    report.Site().boxes.ExpectPrinter(std::nullopt);
    Click(report.Form(), "cmdPrint");
    report.Site().boxes.ExpectPrinter(kIntoFile);
    report.Site().boxes.ExpectFileDialog(kPdf, "");
    Click(report.Form(), "cmdPrint");
    EXPECT_TRUE(QDir(report.Site().folder.path()).entryList({"*.pdf"}).isEmpty());
    report.Site().boxes.ExpectPrinter(PrinterChoice{QString::fromLatin1(kPdfPrinter), 3});
    report.Site().boxes.ExpectFileDialog(kPdf, report.PathOf("hardware.pdf"));
    Click(report.Form(), "cmdPrint");
    const QString text = TextOf(report.PathOf("hardware.pdf"));
    EXPECT_EQ(text.count("Lever of East gate"), 1) << "a file is written once";
    EXPECT_FALSE(text.contains("West"));
    EXPECT_TRUE(report.Foot().contains("hardware.pdf"));

    Find<TextList>(report.Form(), "lstPrintHardware")->SetCurrentRow(0);
    Click(report.Form(), "cmdRemove");
    EXPECT_FALSE(report.Enabled("cmdPrint"));
    Click(report.Form(), "cmdCancel");
    EXPECT_TRUE(report.Site().Form("frmMain")->isVisible());
}

TEST(Selection, TellsWhichReportWasCancelledOrFoundNoPrinter) {
    ReportOnScreen report("frmDoorsList");
    Click(report.Form(), "cmdAddAll");
    report.Site().boxes.ExpectFileDialog(kPdf, report.PathOf("doors.pdf"));
    report.Site().boxes.CancelProgress();
    report.Site().boxes.Expect("Printing was cancelled.");
    Click(report.Form(), "cmdPrint");
    report.Site().boxes.ExpectFileDialog(kPdf, report.PathOf("no folder/doors.pdf"));
    report.Site().boxes.Expect("cannot be written");
    Click(report.Form(), "cmdPrint");
    EXPECT_TRUE(QDir(report.Site().folder.path()).entryList({"*.pdf"}).isEmpty());
    report.Site().session.Printer = "Gone";
    report.Site().boxes.Expect("The printer \"Gone\" is not there.");
    Click(report.Form(), "cmdPrint");

    ReportOnScreen pinning("frmPrintPinning");
    Click(pinning.Form(), "cmdAddAll");
    pinning.Site().session.Printer = "Gone";
    pinning.Site().boxes.Expect("Check Printer Connection and retry.");
    Click(pinning.Form(), "cmdPrint");
    EXPECT_EQ(pinning.Site().boxes.Last().title, "Printer Not Found");
}

TEST(Selection, EachReportPrintsAndOnlyWithTheRightToIt) {
    for (const SelectionReport& kind : SelectionReports()) {
        ReportOnScreen report(kind.form.toLatin1().constData());
        Click(report.Form(), "cmdAddAll");
        if (kind.asksCopies)
            report.Site().boxes.ExpectPrinter(kIntoFile);
        report.Site().boxes.ExpectFileDialog(kPdf, report.PathOf("report.pdf"));
        Click(report.Form(), "cmdPrint");
        EXPECT_FALSE(TextOf(report.PathOf("report.pdf")).simplified().isEmpty())
            << kind.form.toStdString();
        report.Site().session.SessionPermissions.RunReports = false;
        Click(report.Form(), "cmdAddTo");
        Click(report.Form(), "cmdAddAll");
        EXPECT_FALSE(report.Enabled("cmdPrint"));
        EXPECT_FALSE(report.Enabled("cmdPreview"));
    }
}

TEST(Preview, TurnsPagesAndWritesWhatItShows) {
    ReportOnScreen report("frmPrintKeyPages");
    Click(report.Form(), "cmdAddAll");
    bool looked = false;
    QTimer::singleShot(0, report.Form(), [&] {
        auto* preview = qobject_cast<Preview*>(QApplication::activeModalWidget());
        ASSERT_TRUE(preview);
        const QString first = LabelText(preview, "lblPage");
        EXPECT_TRUE(first.startsWith("Page 1 of "));
        EXPECT_FALSE(Find<QWidget>(preview, "cmdPrevious")->isEnabled());
        preview->activateWindow();
        QCoreApplication::processEvents();
        QTest::keyClick(preview->focusWidget(), Qt::Key_PageDown);
        EXPECT_TRUE(LabelText(preview, "lblPage").startsWith("Page 2 of "));
        Click(preview, "cmdPrevious");
        EXPECT_EQ(LabelText(preview, "lblPage"), first);
        report.Site().boxes.ExpectFileDialog(kPdf, report.PathOf("shown.pdf"));
        Click(preview, "cmdPdf");
        report.Site().boxes.ExpectPrinter(std::nullopt);
        Click(preview, "cmdPrint");
        looked = true;
        Click(preview, "cmdClose");
    });
    Click(report.Form(), "cmdPreview");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(TextOf(report.PathOf("shown.pdf")).contains("Key Issue Chart"));
    EXPECT_TRUE(report.Foot().contains("shown.pdf"));
}

TEST(Preview, ShowsAChartOfAKey) {
    ReportOnScreen report("frmPinningChart");
    bool looked = false;
    QTimer::singleShot(0, report.Form(), [&] {
        auto* preview = qobject_cast<Preview*>(QApplication::activeModalWidget());
        ASSERT_TRUE(preview);
        EXPECT_EQ(LabelText(preview, "lblPage"), "Page 1 of 1");
        looked = true;
        QTest::keyClick(preview, Qt::Key_Escape);
    });
    Click(report.Form(), "cmdPreview");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(report.Form()->isVisible());
}

TEST(PrinterBoxes, AskForCopiesAndPagesWithinTheirRange) {
    PrinterBox box({QString::fromLatin1(kPdfPrinter), 1, 1, 64}, nullptr);
    box.show();
    EXPECT_EQ(Find<QComboBox>(&box, "cmbPrinter")->currentText(), QString(kPdfPrinter));
    EXPECT_FALSE(Find<QWidget>(&box, "txtCopies")->isEnabled()) << "a file is written once";
    EXPECT_EQ(box.Choice().lastPage, 0) << "all pages";
    Find<QSpinBox>(&box, "txtTo")->setValue(9);
    Find<QSpinBox>(&box, "txtFrom")->setValue(12);
    EXPECT_EQ(box.Choice().firstPage, 12);
    EXPECT_EQ(box.Choice().lastPage, 12) << "never before the first";
    Find<QSpinBox>(&box, "txtTo")->setValue(99);
    EXPECT_EQ(box.Choice().lastPage, 64);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.result(), QDialog::Accepted);
    PrinterBox plain({}, nullptr);
    EXPECT_FALSE(plain.findChild<QSpinBox*>("txtFrom"));
}

TEST(PrinterForm, ListsTheOneThatWritesFilesLastAndTakesIt) {
    ReportOnScreen report("frmPrinter");
    const QStringList printers = report.Lines("lstPrinters");
    EXPECT_EQ(printers.last(), QString(kPdfPrinter));
    ChooseLine(report.Form(), "lstPrinters", static_cast<int>(printers.size()) - 1);
    EXPECT_EQ(report.Site().session.Printer, QString(kPdfPrinter));
    EXPECT_EQ(LabelText(report.Form(), "lblType"), QString(kPdfPrinter));
    EXPECT_FALSE(LabelText(report.Form(), "lblWhere").isEmpty());
    QTest::keyClick(Find<TextList>(report.Form(), "lstPrinters"), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(report.Site().Form("frmMain")->isVisible());
}

TEST(MainReports, PrintThePageTheSystemAndTheKeys) {
    ReportOnScreen report("frmMain");
    ScriptedBoxes& boxes = report.Site().boxes;
    boxes.ExpectFileDialog(kPdf, report.PathOf("page.pdf"));
    boxes.Expect("Do you wish to print pinning charts?", BoxAnswer::Yes);
    Click(report.Form(), "cmdPrintPage");
    EXPECT_TRUE(TextOf(report.PathOf("page.pdf")).contains("Page View for Page 1"));
    EXPECT_TRUE(TextOf(report.PathOf("page 2.pdf")).contains("Part 2"));
    boxes.ExpectFileDialog(kPdf, report.PathOf("page.pdf"));
    boxes.Expect("Do you wish to print pinning charts?", BoxAnswer::Yes);
    boxes.Expect("page 2.pdf exists already. Replace it?", BoxAnswer::No);
    Click(report.Form(), "cmdPrintPage");

    boxes.ExpectFileDialog(kPdf, report.PathOf("keys.pdf"));
    Choose(report.Form(), "mnuPrintKeys");
    EXPECT_TRUE(TextOf(report.PathOf("keys.pdf")).contains("K103"));

    boxes.Expect("Would you like to print the Masters Pages? Y/N", BoxAnswer::No);
    boxes.ExpectPrinter(std::nullopt);
    Choose(report.Form(), "mnuPrintAll");
    boxes.Expect("Would you like to print the Masters Pages? Y/N", BoxAnswer::Yes);
    boxes.ExpectPrinter(PrinterChoice{QString::fromLatin1(kPdfPrinter), 1, 1, 1});
    boxes.ExpectFileDialog(kPdf, report.PathOf("all.pdf"));
    Choose(report.Form(), "mnuPrintAll");
    const QString text = TextOf(report.PathOf("all.pdf"));
    EXPECT_TRUE(text.contains("Part II - System Page Number 1"));
    EXPECT_TRUE(text.contains("Complete Chart for"));
    EXPECT_FALSE(text.contains("System Page Number 2"));
}

TEST(Receipts, AreOfferedForWhatWasDoneLast) {
    ReportOnScreen report("frmKeyUsers");
    ScriptedBoxes& boxes = report.Site().boxes;
    boxes.Expect("BLANK", BoxAnswer::No);
    Click(report.Form(), "cmdPrintKeySignature");
    ChooseLine(report.Form(), "lstKeyHolders", 0);
    ChooseLine(report.Form(), "lstKeyIDs", 0);
    ChooseLine(report.Form(), "lstUnitID", 0);
    boxes.Expect("  Unit 2 ?", BoxAnswer::No);
    boxes.Expect("all unassigned Units?", BoxAnswer::No);
    boxes.Expect("all keys assigned to Edith", BoxAnswer::Yes);
    boxes.ExpectPrinter(kIntoFile);
    boxes.ExpectFileDialog(kPdf, report.PathOf("receipt.pdf"));
    Click(report.Form(), "cmdPrintKeySignature");
    EXPECT_TRUE(TextOf(report.PathOf("receipt.pdf")).contains("Key Receipt for"));
    Type(report.Form(), "txtUnitID", "77");
    Click(report.Form(), "cmdIssueKey");
    boxes.Expect("  Unit 77 ?", BoxAnswer::Yes);
    boxes.ExpectPrinter(std::nullopt);
    Click(report.Form(), "cmdPrintKeySignature");
}

} // namespace
} // namespace quorrel::test
