#include "reports/SelectionReport.h"
#include "support/AllForms.h"

#include <QDir>
#include <QProcess>

/// \file
/// Printing on paper, on the printer that tools/print_server.sh sets up; passed over without it.

namespace quorrel::test {
namespace {

const QString kBench = QStringLiteral("Bench");

int PagesOf(const QString& path) {
    QProcess reader;
    reader.start("pdfinfo", {path});
    EXPECT_TRUE(reader.waitForFinished());
    const QString told = QString::fromUtf8(reader.readAllStandardOutput());
    return told.section("Pages:", 1).section('\n', 0, 0).trimmed().toInt();
}

/// Prints as a user does on a form, and gives the pages of each job that arrives then.
template <class Act>
std::vector<int> Arrived(std::size_t expected, Act&& act) {
    const QDir folder(qEnvironmentVariable("QUORREL_ARRIVED"));
    const QStringList before = folder.entryList({"*.pdf"}, QDir::Files);
    act();
    QStringList now;
    constexpr int kPatience = 90'000;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            now = folder.entryList({"*.pdf"}, QDir::Files);
            return now.size() >= before.size() + static_cast<qsizetype>(expected);
        },
        kPatience));
    QTest::qWait(2'000); // For what should not come.
    std::vector<int> pages;
    for (const QString& name : folder.entryList({"*.pdf"}, QDir::Files))
        if (!before.contains(name))
            pages.push_back(PagesOf(folder.filePath(name)));
    return pages;
}

FormRoad Bare(const QString& form) {
    for (FormRoad road : AllForms())
        if (form == QLatin1String(road.form)) {
            road.fill = [](QWidget*) {};
            return road;
        }
    throw std::logic_error("no such form");
}

TEST(Paper, EachReportArrivesInAsManyCopiesAsWereAskedFor) {
    if (!qEnvironmentVariableIsSet("QUORREL_ARRIVED"))
        GTEST_SKIP() << "run tools/print_server.sh";
    for (const SelectionReport& kind : SelectionReports()) {
        FormOnScreen shown(Bare(kind.form));
        shown.Site().session.Printer = kBench;
        const std::size_t copies = kind.asksCopies ? 3 : 1;
        const auto pages = Arrived(copies, [&] {
            Click(shown.form, "cmdAddAll");
            if (kind.asksCopies)
                shown.Site().boxes.ExpectPrinter(PrinterChoice{kBench, 3});
            Click(shown.form, "cmdPrint");
        });
        EXPECT_EQ(pages.size(), copies) << kind.form.toStdString();
        for (const int each : pages)
            EXPECT_EQ(each, pages.front());
        EXPECT_TRUE(LabelText(shown.form, "lblFoot").contains(kBench));
    }
}

TEST(Paper, TheSystemArrivesWithThePagesThatWereAskedFor) {
    if (!qEnvironmentVariableIsSet("QUORREL_ARRIVED"))
        GTEST_SKIP() << "run tools/print_server.sh";
    FormOnScreen shown(Bare("frmMain"));
    ScriptedBoxes& boxes = shown.Site().boxes;
    shown.Site().session.Printer = kBench;
    EXPECT_EQ(Arrived(2,
                      [&] {
                          boxes.Expect("Would you like to print the Masters Pages? Y/N",
                                       BoxAnswer::No);
                          boxes.ExpectPrinter(PrinterChoice{kBench, 2, 2, 3});
                          Choose(shown.form, "mnuPrintAll");
                      }),
              (std::vector<int>{4, 4}));
    EXPECT_EQ(Arrived(2,
                      [&] {
                          boxes.Expect("Do you wish to print pinning charts?", BoxAnswer::Yes);
                          Click(shown.form, "cmdPrintPage");
                      }),
              (std::vector<int>{1, 2}));
    EXPECT_TRUE(Arrived(0, [&] {
                    boxes.Expect("Would you like to print the Masters Pages? Y/N", BoxAnswer::No);
                    boxes.ExpectPrinter(PrinterChoice{kBench, 1, 1, 9});
                    boxes.CancelProgress();
                    boxes.Expect("Printing was cancelled.");
                    Choose(shown.form, "mnuPrintAll");
                }).empty());
}

} // namespace
} // namespace quorrel::test
