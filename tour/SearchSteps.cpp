#include "Tour.h"

#include "widgets/HelpContexts.h"
#include "widgets/TextList.h"

#include <QFileInfo>
#include <QTemporaryDir>

namespace quorrel::tour {

namespace {

void OpenFind(Walker& walker) {
    walker.ChooseFromMenu("mnuFind", "mnuCurrent");
    walker.Enter("frmFindKey");
    walker.ExpectGone("frmMain");
}

void FindKeys(Tour& tour) {
    Walker& walker = tour.walker;
    OpenFind(walker);
    CheckHelp(tour, "frmFindKey", help::kFindKey, QStringLiteral("find-help"));
    walker.Type(QStringLiteral("txtLabel"), QStringLiteral("A1-999"));
    walker.ExpectBox(QStringLiteral("That Key ID does not exist in this system."), QMessageBox::Ok,
                     QStringLiteral("find-miss"));
    walker.Press(QStringLiteral("txtLabel"), Qt::Key_Return);
    walker.CheckFocus(QStringLiteral("txtLabel"));
    walker.Type(QStringLiteral("txtLabel"), QStringLiteral("a1-102"));
    walker.Press(QStringLiteral("txtLabel"), Qt::Key_Return);
    walker.Enter("frmMain");
    walker.ExpectGone("frmFindKey");
    walker.CheckText(QStringLiteral("txtKeyID"), QStringLiteral("A1-102"));
    walker.Picture(QStringLiteral("find-page-of-hit"));
}

void FindDoorsAndUsers(Tour& tour) {
    Walker& walker = tour.walker;
    OpenFind(walker);
    walker.CheckText(QStringLiteral("txtLabel"), QStringLiteral("a1-102"));
    walker.Type(QStringLiteral("txtUserSearch"), QStringLiteral("1042"));
    walker.ClickLine(QStringLiteral("lstUserList"), 0);
    walker.CheckContains(QStringLiteral("lblListLabel"), QStringLiteral("O'Malley"));
    walker.ClickLine(QStringLiteral("lstDoors"), QStringLiteral("Room 103"));
    walker.CheckText(QStringLiteral("txtLabel"), QStringLiteral("A1-101"));
    walker.Picture(QStringLiteral("find"));
    walker.Press(QStringLiteral("lstDoors"), Qt::Key_Return);
    walker.Enter("frmDoors");
    walker.ExpectGone("frmFindKey");
    walker.CheckText(QStringLiteral("cmbDoorLabel"), QStringLiteral("Room 103"));
    walker.Press(Qt::Key_Escape);
    walker.Enter("frmMain");
    OpenFind(walker);
    walker.CheckText(QStringLiteral("txtUserSearch"), QStringLiteral("1042"));
    walker.Click(QStringLiteral("cmdExit"));
    walker.ExpectGone("frmFindKey");
    walker.Enter("frmMain");
}

} // namespace

void CrossKeyDoor(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Check(!walker.Find(QStringLiteral("cmdViewXK")).isEnabled(),
                 QStringLiteral("A door that is not cross-keyed offers its keys"));
    walker.Click(QStringLiteral("ckCrossKeyed"));
    walker.Click(QStringLiteral("cmdViewXK"));
    walker.Enter("frmCrossKeyed");
    walker.ExpectGone("frmDoors");
    for (const char* keyID : {"A1-102", "A1-101"}) {
        walker.ClickLine(QStringLiteral("lstKeyIDs"), QLatin1String(keyID));
        walker.Click(QStringLiteral("cmdAssignTo"));
    }
    walker.CheckContains(QStringLiteral("lblListedUnder"), QStringLiteral("A1-101"));
    walker.CheckContains(QStringLiteral("lblState"), QStringLiteral("not saved yet"));
    walker.ExpectBox(QStringLiteral("This will take several minutes!"), QMessageBox::Ok,
                     QStringLiteral("cross-keys-question"));
    walker.Click(QStringLiteral("cmdAccess"));
    walker.CheckContains(QStringLiteral("Label7"), QStringLiteral(" Phantom Keys"));
    walker.Check(walker.Find<TextList>(QStringLiteral("lstChanges")).Count() >= 2,
                 QStringLiteral("Keys with access are missing"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.CheckContains(QStringLiteral("lblFoot"),
                         QStringLiteral("The keys of Door Room 103 are saved"));
    walker.Picture(QStringLiteral("cross-keys"));
    CheckHelp(tour, "frmCrossKeyed", help::kCrossKeys, QStringLiteral("cross-keys-help"));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("cross.pdf"));
    walker.ExpectFileDialog(file, QStringLiteral("cross-keys-print"));
    walker.Click(QStringLiteral("cmdPrint"));
    walker.Check(QFileInfo::exists(file), QStringLiteral("The page was not printed"));
    walker.Click(QStringLiteral("cmdDone"));
    walker.ExpectGone("frmCrossKeyed");
    walker.Enter("frmDoors");
    walker.CheckContains(QStringLiteral("txtKeyedTo"), QStringLiteral("A1-101"));
}

void CrossKeyCore(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuAssign", "mnuAssignDoors");
    walker.Enter("frmDoors");
    walker.Type(QStringLiteral("cmbDoorLabel"), QStringLiteral("Pier gate"));
    walker.Click(QStringLiteral("ckCrossKeyed"));
    walker.Click(QStringLiteral("cmdViewXK"));
    walker.Enter("frmCrossKeyedIC");
    for (const char* keyID : {"F-1", "F-2"}) {
        walker.ClickLine(QStringLiteral("lstKeyIDs"), QLatin1String(keyID));
        walker.Click(QStringLiteral("cmdAssignTo"));
    }
    walker.Click(QStringLiteral("cmdSave"));
    walker.Click(QStringLiteral("cmdPinning"));
    walker.CheckContains(QStringLiteral("lblCuts_0"), QStringLiteral("3951724"));
    walker.Picture(QStringLiteral("cross-keys-core"));
    walker.Press(Qt::Key_Escape);
    walker.ExpectGone("frmCrossKeyedIC");
    walker.Enter("frmDoors");
    walker.Press(Qt::Key_Escape);
    walker.Enter("frmMain");
}

void WalkFind(Tour& tour) {
    tour.Take({{"Find keys", FindKeys}, {"Find doors and users", FindDoorsAndUsers}});
}

} // namespace quorrel::tour
