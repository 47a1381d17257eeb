#include "Tour.h"

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

/// Lines of a log, as taking key units back writes them.
template <class Row>
void RecordLog(Session& session, int Row::*id) {
    Row row;
    row.SystemNumber = session.ActiveSystemNumber;
    row.LoggedUser = QStringLiteral("Administrator");
    const struct {
        const char *date, *time, *keyID, *unitID, *userName, *department, *report;
    } lines[] = {
        {"2026-01-12", "09:14:02", "A1-101", "3", "Marsh, Edith", "SCHOOL", "Left the school"},
        {"2026-02-03", "16:40:55", "A1-102", "1", "O'Dell, Sam", "SCHOOL", "Report 2026/017"},
        {"2026-02-03", "16:52:10", "A1-M1", "2", "Winter, Rosa", "HOUSEKEEPING", "Report 2026/018"},
        {"2026-03-09", "08:05:31", "A1-101", "4", "Bell, Tom", "SCHOOL", "Bent in the lock"}};
    for (const auto& line : lines) {
        ++(row.*id);
        row.Date = QLatin1String(line.date);
        row.Time = QLatin1String(line.time);
        row.KeyID = QString::fromLatin1(line.keyID).leftJustified(12);
        row.UnitID = QLatin1String(line.unitID);
        row.UserName = QLatin1String(line.userName);
        row.UserDepartment = QLatin1String(line.department);
        row.Report = QLatin1String(line.report);
        Recordset<Row>::Add(session.Keys(), row);
    }
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
    RecordLog(tour.session, &LostKeysRow::LostID);
    walker.ChooseFromMenu("mnuFind", "mnuLost");
    walker.Enter("frmDBLostKeys");
    walker.ExpectGone("frmMain");
    walker.CheckText(QStringLiteral("datPrimaryRS"), QStringLiteral("Record: 1"));
    walker.Picture(QStringLiteral("log-lost"));
    auto& grid = walker.Find<RecordGrid>(QStringLiteral("grdDataGrid"));
    QHeaderView* heads = grid.horizontalHeader();
    QTest::mouseClick(heads->viewport(), Qt::LeftButton, {},
                      QPoint(heads->sectionViewportPosition(2) + 10, heads->height() / 2));
    walker.Check(grid.model()->index(1, 3).data() == QStringLiteral("4"),
                 QStringLiteral("The log is not sorted by its keys"));
    TypeInto(walker, 1, 3, QStringLiteral("14"));
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
    RecordLog(tour.session, &ReturnKeyRow::ReturnID);
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
    department.Department = QStringLiteral("HOUSEKEEPING");
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
    walker.ExpectBox(QStringLiteral("delete HOUSEKEEPING?"), QMessageBox::Yes,
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
    for (const char* hardware : {"Mortice lock, 60 mm", "Mortise lock 60mm", "Rim night latch"}) {
        door.Text1 = QLatin1String(hardware);
        Recordset<DoorsRow>::Add(tour.session.Keys(), door);
    }
    walker.ChooseFromMenu("mnuUsers", "mnuEditHardware");
    walker.Enter("frmEditHardware");
    walker.Type(QStringLiteral("cmbHardware"), QStringLiteral("Mortise lock 60mm"));
    walker.Type(QStringLiteral("txtChangeTo"), QStringLiteral("Mortice lock, 60 mm"));
    walker.Picture(QStringLiteral("hardware"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.CheckText(QStringLiteral("lblHardware"), QStringLiteral("Mortice lock, 60 mm"));
    CheckHelp(tour, "frmEditHardware", help::kHardware);
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmMain");
}

} // namespace

void WalkBooks(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Step(QStringLiteral("Lost keys"), [&] { CorrectLostKeys(tour); });
    walker.Step(QStringLiteral("Returned keys"), [&] { ReadReturnedKeys(tour); });
    walker.Step(QStringLiteral("Departments"), [&] { RenameDepartment(tour); });
    walker.Step(QStringLiteral("Hardware descriptions"), [&] { ReplaceHardware(tour); });
}

} // namespace quorrel::tour
