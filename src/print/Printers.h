#pragma once

#include "platform/Boxes.h"
#include "print/PrintedPages.h"

#include <optional>
#include <vector>

class QPrinter;

namespace quorrel {

struct Session;

/// The printer that writes files. It is there on every machine.
inline constexpr const char* kPdfPrinter = "PDF file";

/// A printer by its name and what is known of where it stands.
struct PrinterEntry {
    QString DeviceName;
    QString Port;
};

/// The printers of this machine, and last the one that writes files.
std::vector<PrinterEntry> ListPrinters();

/// The program's printer: the one that the user has chosen, else the usual one of this machine,
/// else the one that writes files.
PrinterEntry PresentPrinter(const Session& session);

bool IsPdfPrinter(const QString& printer);

/// The paper that a printer usually prints on; for files the one that is usual in this country.
Paper PaperOf(const QString& printer);

/// Asks for the printer and the copies, beginning at the program's printer; what is chosen becomes
/// that. Nothing when the user cancels.
std::optional<PrinterChoice> ChoosePrinter(Session& session, PrinterChoice proposal = {});

/// Makes a device the printer of that name. Throws `PrintError` when it is not there.
void SetUpPrinter(QPrinter& device, const QString& printer);

} // namespace quorrel
