#include "Tour.h"

#include "widgets/HelpContexts.h"
#include "widgets/TextList.h"

#include <QCheckBox>

namespace quorrel::tour {

namespace {

const QString kLabel = QStringLiteral("cmbDoorLabel");
const QString kFoot = QStringLiteral("lblFoot");

/// Clicks the line of a list that begins with a text.
void Choose(Walker& walker, const QString& list, const QString& begin) {
    const QStringList lines = walker.Find<TextList>(list).Lines();
    int row = 0;
    while (row < lines.size() && !lines[row].startsWith(begin))
        ++row;
    walker.ClickLine(list, row);
}

void CheckLines(Walker& walker, const QString& list, int count) {
    const int lines = walker.Find<TextList>(list).Count();
    walker.Check(lines == count,
                 QStringLiteral("%1 has %2 lines, not %3").arg(list).arg(lines).arg(count));
}

void RecordDoor(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuAssign", "mnuAssignDoors");
    walker.Enter("frmDoors");
    walker.ExpectGone("frmMain");
    walker.Picture(QStringLiteral("doors"));
    walker.Type(kLabel, QStringLiteral("Room 103"));
    walker.Type(QStringLiteral("txtDoorDescription"), QStringLiteral("Music room"));
    walker.Type(QStringLiteral("txtDoorLocation"),
                QStringLiteral("Ground floor, east wing, at the end of the corridor"));
    walker.Type(QStringLiteral("cmbHardware"), QStringLiteral("Mortice lock, 70 mm backset"));
    walker.Type(QStringLiteral("txtHardwareSpecs"),
                QStringLiteral("Left hand, opens inwards. Sound-proof door."));
    walker.Click(QStringLiteral("ckKeyed"));
    walker.Picture(QStringLiteral("doors-new"));
    walker.Press(Qt::Key_Return);
    walker.CheckText(kLabel, QStringLiteral("Room 103"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.CheckText(kFoot, QStringLiteral("Door Room 103 added"));
    walker.CheckText(kLabel, {});
    walker.CheckFocus(kLabel);
    walker.Type(kLabel, QStringLiteral("Room 103"));
    walker.CheckText(QStringLiteral("txtDoorDescription"), QStringLiteral("Music room"));
    walker.CheckText(QStringLiteral("txtNumberofHardware"), QStringLiteral("1"));
}

void AssignDoor(Tour& tour) {
    Walker& walker = tour.walker;
    Choose(walker, QStringLiteral("lstKeyIDs"), QStringLiteral("A1-101"));
    CheckLines(walker, QStringLiteral("lstKeyedDoors"), 1);
    walker.Type(QStringLiteral("txtSearchDoor"), QStringLiteral("room"));
    CheckLines(walker, QStringLiteral("lstAllDoors"), 3);
    Choose(walker, QStringLiteral("lstAllDoors"), QStringLiteral("Room 103"));
    walker.Click(QStringLiteral("cmdAssignTo"));
    CheckLines(walker, QStringLiteral("lstKeyedDoors"), 2);
    walker.CheckContains(QStringLiteral("txtKeyedTo"), QStringLiteral("A1-101"));
    walker.CheckText(kFoot, QStringLiteral("Door Room 103 assigned to A1-101"));
    walker.Picture(QStringLiteral("doors-assigned"));
    CheckHelp(tour, "frmDoors", help::kDoors, QStringLiteral("doors-help"));
}

void DeleteDoor(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(kLabel, QStringLiteral("Boiler room"));
    walker.ExpectBox(QStringLiteral("Are you sure you want to delete Boiler room?"),
                     QMessageBox::No, QStringLiteral("doors-delete"));
    walker.Click(QStringLiteral("cmdDelete"));
    walker.CheckText(kLabel, QStringLiteral("Boiler room"));
    walker.Click(QStringLiteral("cmdDone"));
    walker.ExpectGone("frmDoors");
    walker.Enter("frmMain");
}

void OpenFromList(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(QStringLiteral("ChgKey_0"));
    walker.Click(QStringLiteral("cmdListDoors"));
    walker.ClickLine(QStringLiteral("lstActiveDoors"), 1);
    walker.Enter("frmDoors");
    walker.CheckText(kLabel, QStringLiteral("Room 103"));
    walker.Check(walker.Find<QCheckBox>(QStringLiteral("ckKeyed")).isChecked(),
                 QStringLiteral("The door is not shown as keyed"));
    walker.Press(Qt::Key_Escape);
    walker.Enter("frmMain");
}

} // namespace

void WalkDoors(Tour& tour) {
    tour.Take({{"New door", RecordDoor},
               {"Door to key", AssignDoor},
               {"Cross-keyed door", CrossKeyDoor},
               {"Door deleted", DeleteDoor},
               {"Door from list", OpenFromList}});
}

} // namespace quorrel::tour
