#include "reports/PrintCommands.h"

#include "access/LogoLabel.h"

namespace quorrel {

ReportHead HeadOfReports(Session& session) {
    return {session.ProgramTitle, session.System.name, session.clock().date(),
            LogoPicture(session.Company.CompanyLogo)};
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
