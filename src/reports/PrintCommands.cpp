#include "reports/PrintCommands.h"

#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "print/Printers.h"
#include "print/SheetPainter.h"

namespace quorrel {

ReportHead HeadOfReports(Session& session) {
    const QString logo = session.Company.CompanyLogo;
    return {session.ProgramTitle, session.System.name, session.clock().date(),
            IsLogo(logo) ? PictureFrom(FindIgnoringCase(logo)) : Picture{}};
}

std::optional<PrinterChoice> ChoosePrinter(Session& session, PrinterChoice proposal) {
    proposal.printer = PresentPrinter(session).DeviceName;
    const auto choice = session.boxes.ChoosePrinter(proposal);
    if (choice)
        session.Printer = choice->printer;
    return choice;
}

void TellingOfPrinter(Session& session, const std::function<void()>& print) {
    try {
        print();
    } catch (const PrintError&) {
        session.boxes.Message(QStringLiteral("Check Printer Connection and retry."),
                              QStringLiteral("Printer Not Found"), BoxButtons::Ok,
                              BoxIcon::Warning);
    }
}

} // namespace quorrel
