#include "Tour.h"

#include "holders/KeyLogs.h"
#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "widgets/HelpContexts.h"
#include "widgets/RecordGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

namespace quorrel::tour {

namespace {

/// Lines of a log, as other workstations wrote them when they took key units back.
void RecordLog(Session& session, KeyLog log) {
    const struct {
        const char *date, *time, *keyID, *unitID, *userName, *department, *report;
    } lines[] = {
        {"2026-01-12", "09:14:02", "A1-102", "3", "Marsh, Edith", "SCHOOL", "Left the school"},
        {"2026-02-03", "16:40:55", "A1-102", "1", "O'Dell, Sam", "SCHOOL", "Report 2026/017"},
        {"2026-02-03", "16:52:10", "A1-M1", "2", "Winter, Rosa", "GROUNDS", "Report 2026/018"}};
    std::vector<LogChange> changes;
    for (const auto& line : lines) {
        LogChange change;
        change.wanted.texts = {QLatin1String(line.date),
                               QLatin1String(line.time),
                               QString::fromLatin1(line.keyID).leftJustified(12),
                               QLatin1String(line.unitID),
                               QLatin1String(line.userName),
                               QLatin1String(line.department),
                               QLatin1String(line.report),
                               QStringLiteral("Porter")};
        changes.push_back(change);
    }
    WriteLog(session, log, changes);
}

/// Types into a cell of the grid.
void TypeInto(Walker& walker, int row, int column, const QString& text) {
    auto& grid = walker.Find<RecordGrid>(QStringLiteral("grdDataGrid"));
    grid.setCurrentIndex(grid.model()->index(row, column));
    walker.Press(QStringLiteral("grdDataGrid"), Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    walker.Check(editor && grid.isAncestorOf(editor), QStringLiteral("No editor opens"));
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

void CorrectLostKeys(Tour& tour) {
    Walker& walker = tour.walker;
    RecordLog(tour.session, KeyLog::Lost);
    walker.ChooseFromMenu("mnuFind", "mnuLost");
    walker.Enter("frmDBLostKeys");
    walker.ExpectGone("frmMain");
    walker.CheckText(QStringLiteral("datPrimaryRS"), QStringLiteral("Record: 1"));
    walker.Picture(QStringLiteral("log-lost"));
    auto& grid = walker.Find<RecordGrid>(QStringLiteral("grdDataGrid"));
    QHeaderView* heads = grid.horizontalHeader();
    QTest::mouseClick(heads->viewport(), Qt::LeftButton, {},
                      QPoint(heads->sectionViewportPosition(2) + 10, heads->height() / 2));
    walker.Check(grid.model()->index(0, 6).data() == QStringLiteral("police report 118"),
                 QStringLiteral("The log is not sorted by its keys"));
    TypeInto(walker, 1, 3, QStringLiteral("13"));
    walker.Click(QStringLiteral("cmdAdd"));
    TypeInto(walker, 4, 0, QStringLiteral("2026-03-14"));
    walker.Picture(QStringLiteral("log-pending"));
    walker.ExpectBox(QStringLiteral("(records: 2). Drop them?"), QMessageBox::No,
                     QStringLiteral("log-question"));
    walker.Click(QStringLiteral("cmdClose"));
    walker.Click(QStringLiteral("cmdUpdate"));
    walker.Check(Recordset<LostKeysRow>(tour.session.Keys()).Count() == 5,
                 QStringLiteral("The new record is not stored"));
    CheckHelp(tour, "frmDBLostKeys", help::kLostKeys);
    walker.Click(QStringLiteral("cmdClose"));
    walker.ExpectGone("frmDBLostKeys");
    walker.Enter("frmMain");
}

void ReadReturnedKeys(Tour& tour) {
    Walker& walker = tour.walker;
    RecordLog(tour.session, KeyLog::Returned);
    walker.ChooseFromMenu("mnuFind", "mnuReturned");
    walker.Enter("frmDBReturnKey");
    walker.Click(QStringLiteral("cmdLast"));
    walker.CheckText(QStringLiteral("datPrimaryRS"), QStringLiteral("Record: 4"));
    walker.Click(QStringLiteral("cmdDelete"));
    walker.CheckText(QStringLiteral("datPrimaryRS"), QStringLiteral("Record: 3"));
    walker.Picture(QStringLiteral("log-returned"));
    CheckHelp(tour, "frmDBReturnKey", help::kReturnedKeys);
    walker.Press(Qt::Key_Escape);
    walker.Enter("frmMain");
}

void RenameDepartment(Tour& tour) {
    Walker& walker = tour.walker;
    DepartmentRow department;
    department.Department = QStringLiteral("GROUNDS");
    department.SystemNumber = tour.session.ActiveSystemNumber;
    Recordset<DepartmentRow>::Add(tour.session.Keys(), department);
    walker.Click(QStringLiteral("ChgKey_0"));
    walker.CheckText(QStringLiteral("cmbDepartment"), QStringLiteral("SCHOOL"));
    walker.ChooseFromMenu("mnuUsers", "mnuEditDepartment");
    walker.Enter("frmDepartments");
    walker.ClickLine(QStringLiteral("lstDepartment"), 0);
    walker.Picture(QStringLiteral("departments"));
    walker.Click(QStringLiteral("cmdRename"));
    walker.CheckFocus(QStringLiteral("txtRename"));
    walker.Type(QStringLiteral("txtRename"), QStringLiteral("Chapel Lane School"));
    walker.Picture(QStringLiteral("department-renaming"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.ClickLine(QStringLiteral("lstDepartment"), 0);
    walker.ExpectBox(QStringLiteral("delete GROUNDS?"), QMessageBox::Yes,
                     QStringLiteral("department-question"));
    walker.Click(QStringLiteral("cmdDelete"));
    CheckHelp(tour, "frmDepartments", help::kDepartments);
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmMain");
    walker.CheckText(QStringLiteral("cmbDepartment"), QStringLiteral("CHAPEL LANE SCHOOL"));
}

void ReplaceHardware(Tour& tour) {
    Walker& walker = tour.walker;
    DoorsRow door;
    door.SystemNumber = tour.session.ActiveSystemNumber;
    door.DoorLabel = QStringLiteral("Store room");
    door.Text1 = QStringLiteral("Mortise lock 70mm");
    Recordset<DoorsRow>::Add(tour.session.Keys(), door);
    walker.ChooseFromMenu("mnuUsers", "mnuEditHardware");
    walker.Enter("frmEditHardware");
    walker.Type(QStringLiteral("cmbHardware"), QStringLiteral("Mortise lock 70mm"));
    walker.Type(QStringLiteral("txtChangeTo"), QStringLiteral("Mortice lock, 70 mm backset"));
    walker.Picture(QStringLiteral("hardware"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.CheckText(QStringLiteral("lblHardware"), QStringLiteral("Mortice lock, 70 mm backset"));
    CheckHelp(tour, "frmEditHardware", help::kHardware);
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmMain");
}

} // namespace

void WalkBooks(Tour& tour) {
    tour.Take({{"Lost keys", CorrectLostKeys},
               {"Returned keys", ReadReturnedKeys},
               {"Departments", RenameDepartment},
               {"Hardware descriptions", ReplaceHardware}});
}

} // namespace quorrel::tour
