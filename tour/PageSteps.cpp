#include "Tour.h"

#include "access/IdleWatch.h"
#include "engine/CellStates.h"
#include "engine/PageGeometry.h"
#include "page/KeyCell.h"
#include "page/PageGrid.h"
#include "widgets/HelpContexts.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <map>
#include <optional>

namespace quorrel::tour {

namespace {

/// A cell to click and what the page must then show: the number of cells in each relation, and
/// the caption that stands out.
struct Look {
    const char* name;
    int cell;
    int subKeys, mastersAbove, mastersBelow;
    const char* caption;
};

constexpr Look kSixPins[] = {{"change-key", 0, 0, 8, 0, nullptr},
                             {"block-master", 4, 4, 6, 0, "lblBlockMaster"},
                             {"line-master", 80, 4, 5, 0, "lblLineMaster"},
                             {"area-master", 84, 16, 4, 8, "lblAreaMaster"},
                             {"column-master", 100, 16, 4, 4, "lblColumnMaster"},
                             {"page-master", 104, 64, 3, 40, "lblPageMaster"},
                             {"base-master", 105, 64, 2, 41, "lblBaseMaster"},
                             {"group-master", 106, 64, 1, 42, "lblGroupMaster"},
                             {"grand-master", 107, 64, 0, 43, "lblSystemMaster"}};
constexpr Look kSevenPins[] = {{"seven-change-key", 63, 0, 9, 0, nullptr},
                               {"seven-system-master", 107, 64, 1, 43, "lblSystemMaster"},
                               {"seven-grand-master", 108, 64, 0, 44, "lblGrandMaster"}};

QString NameOf(int cell) {
    return QStringLiteral("ChgKey_%1").arg(cell);
}

int StateOf(Walker& walker, int cell) {
    return walker.Find<KeyCell>(NameOf(cell)).ShownState();
}

void CheckRelations(Walker& walker, const Look& look) {
    std::map<int, int> cells;
    for (int cell = 0; cell < kAllCells; ++cell)
        if (StateOf(walker, cell) != cellstate::kBlank)
            ++cells[StateOf(walker, cell) % 10];
    const auto expect = [&](int relation, int count) {
        walker.Check(cells[relation] == count, QStringLiteral("%1: %2 cells in relation %3, not %4")
                                                   .arg(QLatin1String(look.name))
                                                   .arg(cells[relation])
                                                   .arg(relation)
                                                   .arg(count));
    };
    expect(cellstate::kActive, 1);
    expect(cellstate::kSub, look.subKeys);
    expect(cellstate::kPreMaster, look.mastersAbove);
    expect(cellstate::kSubMaster, look.mastersBelow);
    walker.Check(StateOf(walker, look.cell) % 10 == cellstate::kActive,
                 QStringLiteral("%1 is not the selected cell").arg(NameOf(look.cell)));
}

void CheckCaption(Walker& walker, const Look& look) {
    for (const char* level :
         {"Grand", "System", "Group", "Base", "Page", "Block", "Area", "Line", "Column"}) {
        const QString name = QStringLiteral("lbl%1Master").arg(QLatin1String(level));
        const bool bold = walker.Find<QLabel>(name).font().bold();
        walker.Check(bold == (name == QLatin1String(look.caption)),
                     QStringLiteral("%1 %2").arg(name, bold ? "stands out" : "does not stand out"));
    }
}

/// Clicks a cell. A key of the page that is not recommended says so first; the levels above are
/// not marked themselves.
void Select(Walker& walker, const Look& look) {
    if (look.cell < kFirstLevelCell && StateOf(walker, look.cell) >= cellstate::kNotRecommended)
        walker.ExpectBox(QStringLiteral("This Pattern is Not Recomended"), QMessageBox::Ok,
                         QStringLiteral("warning-") + QLatin1String(look.name));
    walker.Click(NameOf(look.cell));
    CheckRelations(walker, look);
    CheckCaption(walker, look);
    walker.Picture(QStringLiteral("page-") + QLatin1String(look.name));
}

/// Gives the main form the room that it has on a usual screen.
void EnterMain(Walker& walker) {
    walker.Enter("frmMain");
    QWidget& main = walker.Window();
    const QRect screen = main.screen()->availableGeometry();
    const QSize frame = main.frameSize() - main.size();
    main.move(screen.topLeft());
    main.resize(QSize(1340, 720).boundedTo(screen.size() - frame));
}

void ShowLayouts(Tour& tour) {
    Walker& walker = tour.walker;
    EnterMain(walker);
    const auto& grid = walker.Find<PageGrid>(QStringLiteral("grdPage"));
    const auto& cell = walker.Find<KeyCell>(NameOf(0));
    walker.Check(walker.Find(QStringLiteral("Picture1_0")).isVisible(),
                 QStringLiteral("The page is not shown compact first"));
    const int compact = cell.width();
    walker.Picture(QStringLiteral("page-compact"));
    walker.Click(QStringLiteral("Picture1_0"));
    walker.Check(cell.width() > compact, QStringLiteral("The cells do not grow"));
    walker.Check(grid.rect().contains(walker.Find<KeyCell>(NameOf(79)).geometry()),
                 QStringLiteral("The large page does not fit its frame"));
    walker.Picture(QStringLiteral("page-large"));
}

void ShowLegend(Tour& tour) {
    Walker& walker = tour.walker;
    const auto& legend = walker.Find<QGroupBox>(QStringLiteral("frmLegend"));
    walker.Click(QStringLiteral("cmdLegend"));
    walker.Check(legend.isVisible(), QStringLiteral("The legend does not come"));
    walker.Picture(QStringLiteral("page-legend"));
    walker.Click(QStringLiteral("cmdLegend"));
    walker.Check(!legend.isVisible(), QStringLiteral("The legend does not go"));
}

void SelectKinds(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Check(!walker.Find(QStringLiteral("lblGrandMaster")).isVisible(),
                 QStringLiteral("Six pins show the level of seven"));
    walker.CheckText(QStringLiteral("lblSystemMaster"), QStringLiteral("Grand Master"));
    for (const Look& look : kSixPins)
        Select(walker, look);
    walker.Check(walker.TextOf(QStringLiteral("lblCuts")).trimmed() == QStringLiteral("395172"),
                 QStringLiteral("The grand master has the cuts \"%1\"")
                     .arg(walker.TextOf(QStringLiteral("lblCuts"))));
}

void SelectNotRecommended(Tour& tour) {
    Walker& walker = tour.walker;
    std::optional<int> found;
    for (int cell = 0; cell < kPageCells && !found; ++cell)
        if (!IsMasterPosition(cell) && StateOf(walker, cell) >= cellstate::kNotRecommended)
            found = cell;
    walker.Check(found.has_value(), QStringLiteral("No key of the page exceeds the safety factor"));
    Select(walker, {"not-recommended", *found, 0, 8, 0, nullptr});
    walker.CheckContains(QStringLiteral("lblCuts"), QStringLiteral("*"));
}

void MoveByArrows(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(NameOf(0));
    walker.Find<KeyCell>(NameOf(0)).setFocus();
    walker.Press(NameOf(0), Qt::Key_Down);
    walker.CheckFocus(NameOf(1));
    walker.Picture(QStringLiteral("page-arrow-focus"));
    if (StateOf(walker, 1) >= cellstate::kNotRecommended)
        walker.ExpectBox(QStringLiteral("This Pattern is Not Recomended"), QMessageBox::Ok,
                         QStringLiteral("warning-enter"));
    walker.Press(NameOf(1), Qt::Key_Return);
    walker.Check(StateOf(walker, 1) % 10 == cellstate::kActive,
                 QStringLiteral("Enter does not select the key"));
}

/// Gives keys a record by typing, each saved by the click on the next.
void LabelKeys(Tour& tour) {
    Walker& walker = tour.walker;
    const struct {
        int cell;
        const char *keyID, *description;
    } records[] = {{0, "A1-101", "Class room 101"}, {1, "A1-102", "Class room 102"},
                   {4, "A1-M1", "Floor 1, east"},   {80, "A1-L1", "Cleaners"},
                   {84, "A1-AM", "Caretaker"},      {100, "A1-CM", "Stores"},
                   {104, "A1", "Head of school"},   {107, "GGM", "Fire brigade"}};
    for (const auto& record : records) {
        walker.Click(NameOf(record.cell));
        walker.Type(QStringLiteral("txtKeyID"), QLatin1String(record.keyID));
        walker.Type(QStringLiteral("cmbDepartment"), QStringLiteral("School"));
        walker.Type(QStringLiteral("txtDescription"), QLatin1String(record.description));
        walker.Type(QStringLiteral("txtKeyway"), QStringLiteral("K7"));
    }
    walker.Click(NameOf(0));
    walker.CheckText(QStringLiteral("txtKeyID"), QStringLiteral("A1-101"));
    walker.CheckText(QStringLiteral("lblBlockMasterID"), QStringLiteral("A1-M1"));
    walker.CheckText(QStringLiteral("lblSystemMasterDesc"), QStringLiteral("Fire brigade"));
    walker.Check(StateOf(walker, 0) == cellstate::kActive + cellstate::kLabelled,
                 QStringLiteral("The labelled key is not shown as one"));
    walker.Picture(QStringLiteral("page-labelled"));

    walker.Type(QStringLiteral("txtKeyID"), QStringLiteral("A1-102"));
    walker.ExpectBox(QStringLiteral("Are you sure you want to save changes to this record?"),
                     QMessageBox::Yes, QStringLiteral("record-question"));
    walker.ExpectBox(QStringLiteral("That Key Label is unavailable"), QMessageBox::Ok,
                     QStringLiteral("record-refused"));
    walker.Click(NameOf(1));
    walker.Click(NameOf(0));
    walker.CheckText(QStringLiteral("txtKeyID"), QStringLiteral("A1-101"));
}

void TurnPages(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(NameOf(104));
    const QString first = walker.TextOf(QStringLiteral("lblCuts"));
    walker.Press(Qt::Key_PageDown);
    walker.CheckText(QStringLiteral("lblCurrentPage"), QStringLiteral("2"));
    const QString second = walker.TextOf(QStringLiteral("lblCuts"));
    walker.Check(second != first, QStringLiteral("Page 2 has the page master %1 too").arg(first));
    walker.Picture(QStringLiteral("page-two"));
    walker.Press(QStringLiteral("scrlPage"), Qt::Key_End);
    walker.CheckText(QStringLiteral("lblCurrentPage"), QStringLiteral("64"));
    walker.Picture(QStringLiteral("page-last"));
    walker.Press(QStringLiteral("scrlPage"), Qt::Key_Home);
    walker.CheckText(QStringLiteral("lblCuts"), first);
}

void ShowSevenPins(Tour& tour) {
    Walker& walker = tour.walker;
    EnterMain(walker);
    walker.Check(walker.Find(QStringLiteral("lblGrandMaster")).isVisible(),
                 QStringLiteral("Seven pins lack their uppermost level"));
    walker.CheckText(QStringLiteral("lblSystemMaster"), QStringLiteral("System Master"));
    walker.Click(QStringLiteral("Picture1_0"));
    for (const Look& look : kSevenPins)
        Select(walker, look);
}

void ReadHelp(Tour& tour) {
    tour.walker.Enter("frmMain");
    CheckHelp(tour, "frmMain", help::kMainPage, QStringLiteral("help-main-page"));
}

void SearchHelp(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuHelp", "mnuHelpIndex");
    walker.Enter("frmHelp");
    const auto& list = walker.Find<QListWidget>(QStringLiteral("lstTopics"));
    const auto shown = [&] {
        int count = 0;
        for (int row = 0; row < list.count(); ++row)
            count += list.item(row)->isHidden() ? 0 : 1;
        return count;
    };
    const int all = shown();
    walker.Picture(QStringLiteral("help-welcome"));
    walker.Type(QStringLiteral("txtSearch"), QStringLiteral("safety factor"));
    walker.Check(shown() > 0 && shown() < all,
                 QStringLiteral("The search shows %1 of %2 topics").arg(shown()).arg(all));
    walker.Picture(QStringLiteral("help-search"));
    walker.Press(Qt::Key_Escape);
    walker.ExpectGone("frmHelp");
    walker.Enter("frmMain");
}

/// Each topic as the window renders it.
void ReadAllTopics(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuHelp", "mnuHelpContents");
    walker.Enter("frmHelp");
    const auto& list = walker.Find<QListWidget>(QStringLiteral("lstTopics"));
    for (int row = 0; row < list.count(); ++row) {
        const QString title = list.item(row)->text();
        walker.Check(list.currentRow() == row,
                     QStringLiteral("The arrow does not reach \"%1\"").arg(title));
        walker.Check(walker.TextOf(QStringLiteral("txtTopic")).startsWith(title),
                     QStringLiteral("\"%1\" is not shown").arg(title));
        walker.Picture(QStringLiteral("help-topic-%1").arg(row + 1));
        walker.Press(QStringLiteral("lstTopics"), Qt::Key_Down);
    }
    walker.Press(Qt::Key_Escape);
    walker.ExpectGone("frmHelp");
    walker.Enter("frmMain");
}

void ShowAbout(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuHelp", "mnuHelpAbout");
    walker.Enter("frmAbout");
    walker.ExpectGone("frmMain");
    walker.CheckText(QStringLiteral("lblVersion"), QStringLiteral("Version " QUORREL_VERSION));
    walker.Picture(QStringLiteral("about"));
    CheckHelp(tour, "frmAbout", help::kAbout);
    walker.Click(QStringLiteral("cmdOK"));
    walker.ExpectGone("frmAbout");
    walker.Enter("frmMain");
}

void ChangeCompany(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuUsers", "mnuCompanyInfo");
    walker.Enter("frmCompanyInfo");
    walker.CheckText(QStringLiteral("txtCompanyName"), QStringLiteral("Harbour Lock & Safe"));
    walker.CheckContains(QStringLiteral("txtKeyPolicy"), QStringLiteral("the same day"));
    walker.Click(QStringLiteral("cmdSave"));
    walker.ExpectGone("frmCompanyInfo");
    walker.Enter("frmMain");
}

void ShowPermissions(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuUsers", "mnuUsersAdd");
    walker.Enter("frmPermissions");
    walker.ExpectGone("frmMain");
    walker.Type(QStringLiteral("cmbUser"), QStringLiteral("Night porter"));
    walker.Type(QStringLiteral("txtPassword"), QStringLiteral("gate"));
    walker.Type(QStringLiteral("txtConfirmPassword"), QStringLiteral("gate"));
    walker.Click(QStringLiteral("ckAK"));
    walker.Check(walker.Find<QCheckBox>(QStringLiteral("ckRP")).isChecked(),
                 QStringLiteral("Altering the design does not bring reading the cuts"));
    walker.Picture(QStringLiteral("permissions"));
    CheckHelp(tour, "frmPermissions", help::kPermissions);
    walker.Click(QStringLiteral("cmdSave"));
    walker.Click(QStringLiteral("cmdExit"));
    walker.ExpectGone("frmPermissions");
    walker.Enter("frmMain");
}

void ShowSettings(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuUsers", "mnuNetwork");
    walker.Enter("frmNetwork");
    walker.ExpectGone("frmMain");
    const QString folder = walker.TextOf(QStringLiteral("txtMapPath"));
    walker.Picture(QStringLiteral("network-settings"));
    CheckHelp(tour, "frmNetwork", help::kNetwork);
    walker.Click(QStringLiteral("cmdBrowse_1"));
    walker.Enter("frmDrive");
    walker.Picture(QStringLiteral("map-folder"));
    walker.Click(QStringLiteral("cmdOK"));
    walker.Enter("frmNetwork");
    walker.CheckText(QStringLiteral("txtMapPath"), folder);
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmMain");
    walker.ExpectGone("frmNetwork");
}

/// Lets the time pass that a workstation may be left alone.
void LeaveAlone(Tour& tour) {
    Walker& walker = tour.walker;
    tour.session.AutoLogoffActive = true;
    auto* timer = walker.Window().findChild<QTimer*>(QStringLiteral("Timer1"));
    walker.Check(timer && timer->isActive(), QStringLiteral("Idle time is not counted"));
    for (int tick = 0; tick < kIdleTicks; ++tick)
        QMetaObject::invokeMethod(timer, "timeout");
    walker.Enter("frmLogoff");
    walker.Picture(QStringLiteral("logoff"));
    walker.Click(QStringLiteral("CancelButton"));
    walker.ExpectGone("frmLogoff");
    walker.Enter("frmMain");
    tour.session.AutoLogoffActive = false;
}

void CancelExit(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmExit");
    walker.CheckText(QStringLiteral("Label1"), QStringLiteral("Now Exiting Quorrel"));
    walker.Picture(QStringLiteral("exit"));
    CheckHelp(tour, "frmExit", help::kExit);
    walker.Click(QStringLiteral("cmdCancel"));
    walker.ExpectGone("frmExit");
    walker.Enter("frmMain");
}

} // namespace

void WalkPages(Tour& tour) {
    tour.Take({{"Layouts", ShowLayouts},
               {"Legend", ShowLegend},
               {"Kinds of keys", SelectKinds},
               {"Not recommended", SelectNotRecommended},
               {"Arrow keys", MoveByArrows},
               {"Paging", TurnPages},
               {"Key records", LabelKeys}});
}

void WalkAside(Tour& tour) {
    tour.Take({{"Seven pins", ShowSevenPins},
               {"Help", ReadHelp},
               {"Help search", SearchHelp},
               {"Help topics", ReadAllTopics},
               {"About", ShowAbout},
               {"Company again", ChangeCompany},
               {"Permissions", ShowPermissions},
               {"Network settings", ShowSettings},
               {"Left alone", LeaveAlone},
               {"Exit cancelled", CancelExit}});
}

} // namespace quorrel::tour
