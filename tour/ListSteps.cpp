#include "Tour.h"

#include "platform/Recordset.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "widgets/TextList.h"

namespace quorrel::tour {

namespace {

/// Doors and holders of the keys that the tour has named, as other workstations would record them.
void RecordDoorsAndHolders(Session& session) {
    Database& keys = session.Keys();
    DoorsRow door;
    UsertoUnitRow unit;
    KeyUsersRow holder;
    door.SystemNumber = session.MapFilingNumber;
    unit.SystemNumber = holder.SystemNumber = session.ActiveSystemNumber;
    const struct {
        const char *keyID, *door, *description, *userID, *lastName, *firstName;
    } records[] = {{"A1-101", "Room 101", "Class room, ground floor", "1001", "Marsh", "Edith"},
                   {"A1-102", "Room 102", "Class room, ground floor", "1002", "O'Dell", "Sam"},
                   {"A1-M1", "East corridor", "Glass door", "1003", "Winter", "Rosa"},
                   {"A1-AM", "Boiler room", "", "1004", "Bell", "Tom"},
                   {"GGM", "Main gate", "To Chapel Lane", "1005", "Fire brigade", "Port Ellery"}};
    for (const auto& record : records) {
        door.CutsLabel = unit.KeyID = QString::fromLatin1(record.keyID).leftJustified(12);
        door.DoorLabel = QLatin1String(record.door);
        door.DoorDescription = QLatin1String(record.description);
        unit.UnitID = QStringLiteral("1");
        unit.UserID = holder.UserIDNumber = QLatin1String(record.userID);
        holder.Lastname = QLatin1String(record.lastName);
        holder.Firstname = QLatin1String(record.firstName);
        Recordset<DoorsRow>::Add(keys, door);
        Recordset<UsertoUnitRow>::Add(keys, unit);
        Recordset<KeyUsersRow>::Add(keys, holder);
    }
}

void ShowLists(Tour& tour) {
    Walker& walker = tour.walker;
    RecordDoorsAndHolders(tour.session);
    const auto lines = [&](const char* list) {
        return walker.Find<TextList>(QLatin1String(list)).Lines().size();
    };
    const auto check = [&](const char* list, qsizetype count) {
        walker.Check(lines(list) == count, QStringLiteral("%1 has %2 lines, not %3")
                                               .arg(QLatin1String(list))
                                               .arg(lines(list))
                                               .arg(count));
    };
    walker.Click(QStringLiteral("cmdKeyList"));
    check("lstAllIDs", 8);
    walker.ClickLine(QStringLiteral("lstAllIDs"), 7);
    walker.CheckText(QStringLiteral("txtKeyID"), QStringLiteral("GGM"));
    walker.Click(QStringLiteral("cmdListDoors"));
    walker.Click(QStringLiteral("cmdListUsers"));
    check("lstActiveDoors", 5);
    check("lstKeyUsers", 1);
    walker.Picture(QStringLiteral("page-lists"));
    walker.Type(QStringLiteral("txtSearchAll"), QStringLiteral("a1-1"));
    walker.Press(QStringLiteral("txtSearchAll"), Qt::Key_Return);
    check("lstAllIDs", 2);
    walker.Press(QStringLiteral("txtSearchAll"), Qt::Key_F7);
    walker.CheckFocus(QStringLiteral("txtSearchDoor"));
    walker.Type(QStringLiteral("txtSearchDoor"), QStringLiteral("x"));
    walker.Press(QStringLiteral("txtSearchDoor"), Qt::Key_Return);
    check("lstActiveDoors", 1);
    walker.Picture(QStringLiteral("page-lists-restricted"));
    walker.Type(QStringLiteral("txtSearchAll"), {});
    walker.Type(QStringLiteral("txtSearchDoor"), {});
    walker.Click(QStringLiteral("ChgKey_0"));
    walker.Click(QStringLiteral("cmdListDoors"));
    walker.Click(QStringLiteral("cmdListUsers"));
    walker.Picture(QStringLiteral("page-lists-of-key"));
}

void ShowMenus(Tour& tour) {
    Walker& walker = tour.walker;
    for (const char* menu : {"mnuFile", "mnuUsers", "mnuAssign", "mnuFind", "mnuHelp"})
        walker.PictureOfMenu(menu, QStringLiteral("menu-") + QLatin1String(menu).mid(3).toString());
}

} // namespace

void WalkLists(Tour& tour) {
    tour.Take({{"Lists", ShowLists}, {"Menus", ShowMenus}});
}

} // namespace quorrel::tour
