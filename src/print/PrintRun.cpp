#include "print/PrintRun.h"

#include "platform/Files.h"
#include "platform/Text.h"
#include "print/Printers.h"
#include "print/SheetPainter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include <utility>

namespace quorrel {

namespace {

QString RunText(const char* text) {
    return QCoreApplication::translate("PrintRun", text);
}

struct PrintingCancelled {};

/// Hands sheets on while the user sees how far they are, and may end it.
class WatchedTarget : public PrintTarget {
public:
    WatchedTarget(Session& session, PrintTarget& inner, const PrintJob& job, int copies)
        : m_inner(inner),
          m_progress(session.boxes.BeginProgress(RunText("%1 is being printed").arg(job.name),
                                                 session.ProgramTitle, job.expected * copies)) {
        Advance();
    }

    int documents = 0; ///< that came to their end

    void Begin(const QString& title, const SheetLayout& layout) override {
        m_inner.Begin(title, layout);
    }
    void Take(const PrintedSheet& sheet) override {
        m_inner.Take(sheet);
        ++m_sheets;
        Advance();
    }
    void End() override {
        m_inner.End();
        ++documents;
    }
    void Drop() override { m_inner.Drop(); }

private:
    void Advance() {
        if (!m_progress->Advance(m_sheets))
            throw PrintingCancelled();
    }

    PrintTarget& m_inner;
    std::unique_ptr<Progress> m_progress;
    int m_sheets = 0;
};

/// Which copies a broken off report has left behind; of a single one there is none.
QString WholeCopies(int whole, int copies) {
    if (copies == 1)
        return {};
    if (whole == 0)
        return RunText(" No copy stands whole.");
    return whole == 1 ? RunText(" Copy 1 of %1 stands whole.").arg(copies)
                      : RunText(" Copies 1 to %1 of %2 stand whole.").arg(whole).arg(copies);
}

void TellPassedOver(Session& session, const QStringList& names) {
    if (names.isEmpty())
        return;
    constexpr int kNamed = 8;
    QStringList told;
    for (const QString& name : names.mid(0, kNamed))
        told += Named(name.trimmed());
    if (names.size() > kNamed)
        told += RunText("%1 more").arg(names.size() - kNamed);
    session.boxes.Message(RunText("Changed elsewhere meanwhile, and therefore not printed: %1.")
                              .arg(told.join(QStringLiteral(", "))),
                          session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
}

QString AskForPdf(Session& session, const QString& name) {
    return session.boxes.SaveFile(RunText("Print into a File"),
                                  QStringLiteral("PDF Files (*.pdf)|*.pdf"),
                                  FileNameFrom(name + QStringLiteral(".pdf")));
}

QString InFile(const QString& path) {
    return RunText("Printed into the file %1").arg(QDir::toNativeSeparators(path));
}

QString OnPaper(const QString& printer) {
    return RunText("Sent to the printer %1").arg(printer);
}

/// The margins of a page that paints itself.
constexpr double kPaintedMargin = 15; ///< mm

void SetUpPainted(QPagedPaintDevice& device, const PaintedJob& job, const Paper& paper) {
    const QMarginsF margins(kPaintedMargin, kPaintedMargin, kPaintedMargin, kPaintedMargin);
    device.setPageLayout(QPageLayout(
        QPageSize({paper.width, paper.height}, QPageSize::Point, {}, QPageSize::FuzzyMatch),
        job.orientation, margins, QPageLayout::Millimeter));
}

void PaintIntoFile(const QString& path, const PaintedJob& job) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw CannotWrite(path);
    {
        QPdfWriter writer(&file);
        SetUpPainted(writer, job, PaperOf(QString::fromLatin1(kPdfPrinter)));
        writer.setTitle(job.name);
        writer.setCreator(QCoreApplication::applicationName());
        job.paint(writer);
    }
    if (!file.commit())
        throw CannotWrite(path);
}

} // namespace

PrintRun::PrintRun(Session& session, const QString& name)
    : m_session(session), m_printer(PresentPrinter(session).DeviceName) {
    if (!IsPdfPrinter(m_printer)) {
        m_target = std::make_unique<PaperPrints>(m_printer);
        return;
    }
    m_path = AskForPdf(session, name);
    if (!m_path.isEmpty())
        m_target = std::make_unique<PdfFiles>(m_path);
}

PrintRun::~PrintRun() = default;

/// The first file was asked for by its dialog, which asks before one is replaced.
bool PrintRun::MayReplaceNext() const {
    const auto* files = dynamic_cast<const PdfFiles*>(m_target.get());
    return !files || files->Written().isEmpty() || !QFile::exists(files->NextPath()) ||
           m_session.boxes.ConfirmsLoss(RunText("The file %1 exists already. Replace it?")
                                            .arg(QDir::toNativeSeparators(files->NextPath())),
                                        m_session.ProgramTitle);
}

bool PrintRun::Print(const PrintJob& job, int copies) {
    if (!MayReplaceNext())
        return false;
    if (!m_path.isEmpty())
        copies = 1;
    int whole = 0;
    QStringList passedOver;
    try {
        WatchedTarget watched(m_session, *m_target, job, copies);
        Printer printer(job.name, LayOutSheets(PaperOf(m_printer), job.sheets), watched);
        for (; whole < copies; ++whole) {
            passedOver = job.print(printer);
            m_documents += std::exchange(watched.documents, 0);
        }
    } catch (const PrintingCancelled&) {
        m_session.boxes.Message(RunText("Printing was cancelled.") + WholeCopies(whole, copies),
                                m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
        return false;
    } catch (const PrintError& error) {
        throw PrintError(QString::fromUtf8(error.what()) + WholeCopies(whole, copies));
    }
    TellPassedOver(m_session, passedOver);
    return true;
}

QString PrintRun::Done() const {
    if (m_documents == 0)
        return RunText("There was nothing to print");
    return m_path.isEmpty() ? OnPaper(m_printer) : InFile(m_path);
}

QString PrintOnce(Session& session, const PrintJob& job) {
    PrintRun run(session, job.name);
    return run.IsReady() && run.Print(job) ? run.Done() : QString();
}

QString PrintPainted(Session& session, const PaintedJob& job, int copies) {
    const QString printer = PresentPrinter(session).DeviceName;
    if (IsPdfPrinter(printer))
        return PaintIntoPdf(session, job);
    for (int copy = 0; copy < copies; ++copy) {
        QPrinter device(QPrinter::HighResolution);
        SetUpPrinter(device, printer);
        SetUpPainted(device, job, PaperOf(printer));
        device.setDocName(job.name);
        job.paint(device);
    }
    return OnPaper(printer);
}

QString PaintIntoPdf(Session& session, const PaintedJob& job) {
    const QString path = AskForPdf(session, job.name);
    if (path.isEmpty())
        return {};
    PaintIntoFile(path, job);
    return InFile(path);
}

std::vector<PrintedPages> LayOut(Session& session, const PrintJob& job) {
    PageCollector kept;
    try {
        WatchedTarget watched(session, kept, job, 1);
        const Paper paper = PaperOf(PresentPrinter(session).DeviceName);
        Printer printer(job.name, LayOutSheets(paper, job.sheets), watched);
        TellPassedOver(session, job.print(printer));
    } catch (const PrintingCancelled&) {
        return {};
    }
    return kept.documents;
}

} // namespace quorrel
