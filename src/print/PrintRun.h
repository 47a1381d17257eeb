#pragma once

#include "print/Printer.h"
#include "store/Session.h"

#include <QPageLayout>
#include <QStringList>

#include <functional>
#include <memory>

class QPagedPaintDevice;

namespace quorrel {

/// A report, ready to be printed.
struct PrintJob {
    QString name; ///< of the document, and of the file that is proposed for it
    SheetNeeds sheets;
    int expected = 0; ///< sheets of a copy, as far as that is known before
    /// Prints one copy and ends the document. Gives the names of what had been chosen and is not
    /// there any more.
    std::function<QStringList(Printer&)> print;
};

/// A page that paints itself, such as the image of a form.
struct PaintedJob {
    QString name; ///< as that of a `PrintJob`
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::function<void(QPagedPaintDevice&)> paint;
};

/// Prints on the program's printer. Where that writes files, it first asks which; later documents
/// of the same run have their number behind that name.
class PrintRun {
public:
    PrintRun(Session& session, const QString& name);
    ~PrintRun();
    PrintRun(const PrintRun&) = delete;
    PrintRun& operator=(const PrintRun&) = delete;

    /// False when the user has named no file: nothing is to be printed.
    bool IsReady() const { return m_target != nullptr; }

    /// Prints a report so many times; a file gets it once. Shows how far it is. False when the
    /// user has cancelled, which it tells, with the copies that stand whole. Tells also what was
    /// passed over. Throws `PrintError`.
    bool Print(const PrintJob& job, int copies = 1);

    /// Where to look for what was printed, for the foot of a form.
    QString Done() const;

private:
    bool MayReplaceNext() const;

    Session& m_session;
    const QString m_printer;
    std::unique_ptr<PrintTarget> m_target;
    QString m_path; ///< of the file, where it is one
    int m_documents = 0;
};

/// Prints a report once, and says where to look for it; nothing when the user has cancelled.
QString PrintOnce(Session& session, const PrintJob& job);

/// Prints a page that paints itself so many times, on the program's printer. Says where to look for
/// it; nothing when the user has named no file. Throws `PrintError`.
QString PrintPainted(Session& session, const PaintedJob& job, int copies = 1);

/// Writes a page that paints itself into a file that is asked for. Otherwise as `PrintPainted`.
QString PaintIntoPdf(Session& session, const PaintedJob& job);

/// Lays out one copy of a report without printing it. No document when the user has cancelled.
std::vector<PrintedPages> LayOut(Session& session, const PrintJob& job);

} // namespace quorrel
