#include "Tour.h"

#include "widgets/HelpContexts.h"

namespace quorrel::tour {

namespace {

void AddHolder(Walker& walker, const char* number, const char* first, const char* last,
               const char* department) {
    walker.Type(QStringLiteral("txtUserNumber"), QLatin1String(number));
    walker.Type(QStringLiteral("txtFirstName"), QLatin1String(first));
    walker.Type(QStringLiteral("txtLastName"), QLatin1String(last));
    walker.Type(QStringLiteral("cmbDepartment"), QLatin1String(department));
    walker.Click(QStringLiteral("cmdAddUser"));
    walker.CheckText(QStringLiteral("txtLastName"), {});
    walker.Type(QStringLiteral("txtUserSearch"), {});
}

void KeepHolders(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmMain");
    walker.ChooseFromMenu("mnuAssign", "mnuAssignUsers");
    walker.Enter("frmKeyUsers");
    walker.ExpectGone("frmMain");
    walker.Picture(QStringLiteral("holders-empty"));
    CheckHelp(tour, "frmKeyUsers", help::kKeyUsers);
    AddHolder(walker, "1041", "Ruth", "Okafor", "School");
    AddHolder(walker, "1042", "Sean", "O'Malley", "Grounds");
    walker.ClickLine(QStringLiteral("lstKeyHolders"), QStringLiteral("1042"));
    walker.CheckText(QStringLiteral("txtLastName"), QStringLiteral("O'Malley"));
}

void IssueAndAssign(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ClickLine(QStringLiteral("lstKeyIDs"), QStringLiteral("A1-101"));
    walker.Type(QStringLiteral("txtUnitID"), QStringLiteral("1"));
    walker.Type(QStringLiteral("txtLastUnitID"), QStringLiteral("12"));
    walker.Click(QStringLiteral("cmdIssueKey"));
    walker.CheckText(QStringLiteral("lblLastUnit"), QStringLiteral("Last Issued 12"));
    for (const char* unit : {"3", "4", "10"}) {
        walker.ClickLine(QStringLiteral("lstUnitID"), QLatin1String(unit));
        walker.Click(QStringLiteral("cmdAssign"));
    }
    walker.Click(QStringLiteral("cmdShowKeys"));
    walker.CheckText(QStringLiteral("lblUserList"), QStringLiteral("Keys Issued to Sean O'Malley"));
    walker.Picture(QStringLiteral("holders-units"));
}

void TakeBack(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ClickLine(QStringLiteral("lstKeyUsers"), QStringLiteral("4 - "));
    walker.ExpectInput(QStringLiteral("left the school"), QStringLiteral("holders-note"));
    walker.Click(QStringLiteral("cmdRemove"));
    walker.ClickLine(QStringLiteral("lstKeyUsers"), QStringLiteral("10 - "));
    walker.ExpectBox(QStringLiteral("as lost?"), QMessageBox::Yes,
                     QStringLiteral("holders-loss-question"));
    walker.ExpectInput(QStringLiteral("police report 118"), QStringLiteral("holders-report"));
    walker.Click(QStringLiteral("cmdLost"));
    walker.ClickLine(QStringLiteral("lstUnitID"), QStringLiteral("10***LOST!"));
    walker.ExpectBox(QStringLiteral("Key recorded as Lost"), QMessageBox::Ok,
                     QStringLiteral("holders-lost"));
    walker.Click(QStringLiteral("cmdAssign"));
    walker.Picture(QStringLiteral("holders-returned-and-lost"));
    walker.Click(QStringLiteral("cmdDone"));
    walker.ExpectGone("frmKeyUsers");
    walker.Enter("frmMain");
}

} // namespace

void WalkHolders(Tour& tour) {
    tour.Take({{"Key users", KeepHolders},
               {"Key units", IssueAndAssign},
               {"Returns and losses", TakeBack}});
}

} // namespace quorrel::tour
