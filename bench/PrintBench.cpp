#include "Benches.h"
#include "LargestSystem.h"
#include "print/SheetPainter.h"
#include "reports/CompleteChart.h"
#include "reports/PrintCommands.h"

#include <QTemporaryDir>

namespace quorrel::bench {

namespace {

/// The complete chart of the largest system into a PDF file: two sheets a page of it.
void PrintIntoPdf(benchmark::State& state) {
    QuietSession program(LargestFolder().Path());
    program.OpenFirstSystem();
    const QTemporaryDir folder;
    while (state.KeepRunning()) {
        PdfFiles files(folder.filePath(QStringLiteral("chart.pdf")));
        Printer printer("Chart", LayOutSheets(kA4, CompleteChartSheets(program.session)), files);
        PrintCompleteChart(program.session, printer, HeadOfReports(program.session), {});
        if (files.Written().size() != 1)
            throw std::runtime_error("The chart was not written.");
    }
}

/// The limit: the same sheets, laid out before, drawn into the file and nothing else.
void DrawBare(benchmark::State& state) {
    QuietSession program(LargestFolder().Path());
    program.OpenFirstSystem();
    const QTemporaryDir folder;
    PageCollector kept;
    const SheetLayout layout = LayOutSheets(kA4, CompleteChartSheets(program.session));
    Printer printer("Chart", layout, kept);
    PrintCompleteChart(program.session, printer, HeadOfReports(program.session), {});
    while (state.KeepRunning()) {
        PdfFiles files(folder.filePath(QStringLiteral("bare.pdf")));
        files.Begin("Chart", layout);
        for (const PrintedSheet& sheet : kept.documents.at(0).sheets)
            files.Take(sheet);
        files.End();
    }
}

} // namespace

void AddPrint(std::vector<Comparison>& comparisons) {
    constexpr double kMostSeconds = 10;
    Register("complete chart, 512 sheets, into a PDF file", PrintIntoPdf);
    Register("complete chart, its sheets drawn alone", DrawBare);
    comparisons.push_back({"complete chart, 512 sheets, into a PDF file",
                           "complete chart, its sheets drawn alone",
                           {Bound::Kind::Seconds, kMostSeconds}});
}

} // namespace quorrel::bench
