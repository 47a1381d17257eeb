#include "print/Printers.h"

#include "store/Session.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace quorrel {

namespace {

QString PrintersText(const char* text) {
    return QCoreApplication::translate("Printers", text);
}

/// Where a printer stands; failing that, what it is.
PrinterEntry EntryOf(const QPrinterInfo& info) {
    for (const QString& where : {info.location(), info.description(), info.makeAndModel()})
        if (!where.trimmed().isEmpty())
            return {info.printerName(), where};
    return {info.printerName(),
            info.isRemote() ? PrintersText("On the network") : PrintersText("At this workstation")};
}

PrinterEntry PdfEntry() {
    return {QString::fromLatin1(kPdfPrinter),
            PrintersText("Into a file; its folder and name are asked for with each report")};
}

} // namespace

std::vector<PrinterEntry> ListPrinters() {
    std::vector<PrinterEntry> printers;
    for (const QPrinterInfo& info : QPrinterInfo::availablePrinters())
        printers.push_back(EntryOf(info));
    printers.push_back(PdfEntry());
    return printers;
}

PrinterEntry PresentPrinter(const Session& session) {
    const QString name =
        session.Printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : session.Printer;
    if (name.isEmpty() || IsPdfPrinter(name))
        return PdfEntry();
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    return info.isNull() ? PrinterEntry{name, PrintersText("Not there any more")} : EntryOf(info);
}

bool IsPdfPrinter(const QString& printer) {
    return printer == QLatin1String(kPdfPrinter);
}

Paper PaperOf(const QString& printer) {
    if (!IsPdfPrinter(printer)) {
        const QSizeF size =
            QPrinterInfo::printerInfo(printer).defaultPageSize().size(QPageSize::Point);
        if (size.width() > 0 && size.height() > 0)
            return {std::min(size.width(), size.height()), std::max(size.width(), size.height())};
    }
    return QLocale().measurementSystem() == QLocale::MetricSystem ? kA4 : kLetter;
}

std::optional<PrinterChoice> ChoosePrinter(Session& session, PrinterChoice proposal) {
    proposal.printer = PresentPrinter(session).DeviceName;
    const auto choice = session.boxes.ChoosePrinter(proposal);
    if (choice)
        session.Printer = choice->printer;
    return choice;
}

void SetUpPrinter(QPrinter& device, const QString& printer) {
    if (QPrinterInfo::printerInfo(printer).isNull())
        throw PrintError(PrintersText("The printer \"%1\" is not there.").arg(printer));
    device.setOutputFormat(QPrinter::NativeFormat);
    device.setPrinterName(printer);
    device.setCreator(QCoreApplication::applicationName());
    // Without a printer of that name it would write a file of its own choice.
    if (!device.isValid() || device.outputFormat() != QPrinter::NativeFormat)
        throw PrintError(PrintersText("The printer \"%1\" does not answer.").arg(printer));
}

} // namespace quorrel
