#include "reports/SystemPrints.h"

#include "page/PageView.h"
#include "print/Preview.h"
#include "print/Printers.h"
#include "reports/CompleteChart.h"
#include "reports/KeyListReport.h"
#include "reports/PageViewReport.h"
#include "reports/PrintCommands.h"
#include "store/Conflict.h"

#include <QCoreApplication>

namespace quorrel {

namespace {

QString SystemText(const char* text) {
    return QCoreApplication::translate("SystemPrints", text);
}

PrintJob ChartJob(Session& session, const ChartExtent& extent) {
    PrintJob job;
    job.name = SystemText("Complete Chart");
    job.sheets = CompleteChartSheets(session);
    job.expected = CompleteChartSheetCount(session, extent);
    job.print = [&session, extent, head = HeadOfReports(session)](Printer& printer) {
        PrintCompleteChart(session, printer, head, extent);
        return QStringList();
    };
    return job;
}

QString PrintSystem(Session& session, QWidget* over, bool preview) {
    ChartExtent extent;
    extent.masters =
        session.boxes.Confirms(QStringLiteral("Would you like to print the Masters Pages? Y/N"),
                               QStringLiteral("Print Partial System"));
    if (preview)
        return ShowPreview(session, over, ChartJob(session, extent));
    PrinterChoice pages;
    pages.lastPage = HighestPage(session);
    const auto choice = ChoosePrinter(session, pages);
    if (!choice)
        return {};
    extent.firstPage = choice->firstPage;
    extent.lastPage = choice->lastPage;
    const PrintJob job = ChartJob(session, extent);
    PrintRun run(session, job.name);
    return run.IsReady() && run.Print(job, choice->copies) ? run.Done() : QString();
}

using PageReport = void (*)(Session&, Printer&, const ReportHead&, const PageView&);

PrintJob PageJob(Session& session, const PageView& page, const char* name, PageReport report) {
    PrintJob job;
    job.name = SystemText(name).arg(page.LoadedPage());
    job.print = [&session, &page, report, head = HeadOfReports(session)](Printer& printer) {
        report(session, printer, head, page);
        return QStringList();
    };
    return job;
}

bool WantsPinning(Session& session) {
    return session.boxes.Confirms(QStringLiteral("Do you wish to print pinning charts?"),
                                  QStringLiteral("Pinning Charts"));
}

QString PrintThePage(Session& session, QWidget* over, bool preview) {
    PageView page(session);
    page.LoadPageView();
    const PrintJob view = PageJob(session, page, "Page View %1", PrintPageView);
    const PrintJob pinning = PageJob(session, page, "Pinning Chart of Page %1", PrintPagePinning);
    if (preview) {
        std::vector<PrintedPages> documents = LayOut(session, view);
        if (!documents.empty() && WantsPinning(session))
            for (PrintedPages& document : LayOut(session, pinning))
                documents.push_back(std::move(document));
        return ShowPreview(session, over, std::move(documents));
    }
    QString told;
    TellingOfPrinter(session, [&] {
        PrintRun run(session, view.name);
        if (!run.IsReady() || !run.Print(view))
            return;
        told = run.Done();
        if (WantsPinning(session))
            run.Print(pinning);
    });
    return told;
}

QString PrintKeys(Session& session, QWidget* over, bool preview) {
    PrintJob job;
    job.name = SystemText("Key List");
    job.print = [&session, head = HeadOfReports(session)](Printer& printer) {
        PrintKeyList(session, printer, head);
        return QStringList();
    };
    return preview ? ShowPreview(session, over, job) : PrintOnce(session, job);
}

} // namespace

QString PrintMainReport(Session& session, QWidget* over, MainReport report, bool preview) {
    RequireSystem(session);
    switch (report) {
    case MainReport::System:
        return PrintSystem(session, over, preview);
    case MainReport::Page:
        return PrintThePage(session, over, preview);
    case MainReport::Keys:
        break;
    }
    return PrintKeys(session, over, preview);
}

} // namespace quorrel
