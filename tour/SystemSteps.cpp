#include "Tour.h"

#include "engine/SystemDefinition.h"
#include "widgets/HelpContexts.h"
#include "widgets/TextList.h"

namespace quorrel::tour {

namespace {

const QString kFirstName = QStringLiteral("Ellery Grammar School");
const QString kSecondName = QStringLiteral("Quay House Offices");

void CheckPreview(Walker& walker, int keys, int pages) {
    walker.CheckText(QStringLiteral("lblTotalChanges"),
                     QStringLiteral("Total Usable Change Keys = %1").arg(keys));
    walker.CheckContains(QStringLiteral("lblWithinSafety"), QStringLiteral("Safety Factor = "));
    const auto& list = walker.Find<TextList>(QStringLiteral("List1"));
    walker.Check(list.Count() == pages,
                 QStringLiteral("The preview has %1 lines, not %2").arg(list.Count()).arg(pages));
}

void PreviewSystem(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmCreateFile");
    walker.Picture(QStringLiteral("create-empty"));
    CheckHelp(tour, "frmCreateFile", help::kCreateSystem);
    walker.Type(QStringLiteral("txtMinimumPin"), QStringLiteral("0"));
    walker.Type(QStringLiteral("txtMaximumPin"), QStringLiteral("9"));
    walker.Type(QStringLiteral("txtNumberofPins"), QStringLiteral("6"));
    walker.Type(QStringLiteral("txtIncrement"), QStringLiteral("2"));
    walker.Type(QStringLiteral("txtSafetyFactor"), QStringLiteral("7"));
    walker.Type(QStringLiteral("txtMasterKey"), QStringLiteral("395172"));
    CheckPreview(walker, 4096, 64);
    const QString line = walker.Find<TextList>(QStringLiteral("List1")).Lines().value(0);
    walker.Check(line == QStringLiteral("Page 1    = 64"),
                 QStringLiteral("The preview begins with \"%1\"").arg(line));
    walker.Picture(QStringLiteral("create-preview"));
}

void RefuseVariance(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(QStringLiteral("txtIncrement"), QStringLiteral("1"));
    walker.ExpectBox(QStringLiteral("pin variance of 5"), QMessageBox::Ok,
                     QStringLiteral("create-pin-variance"));
    walker.Type(QStringLiteral("txtMasterKey"), QStringLiteral("395172"));
    walker.Type(QStringLiteral("txtIncrement"), QStringLiteral("2"));
    CheckPreview(walker, 4096, 64);
}

void TakeRandomMaster(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(QStringLiteral("txtMasterKey"), QString());
    walker.CheckText(QStringLiteral("txtMasterKey"), QString());
    walker.Click(QStringLiteral("cmdRandomMaster"));
    const std::string master = walker.TextOf(QStringLiteral("txtMasterKey")).toStdString();
    walker.Check(IsDigits(master, 6),
                 QStringLiteral("The drawn master is \"%1\"").arg(QString::fromStdString(master)));
    walker.Check(OffendingPairs(master, 6, 7) == 0,
                 QStringLiteral("The drawn master exceeds the safety factor"));
    CheckPreview(walker, 4096, 64);
    walker.Picture(QStringLiteral("create-random-master"));
}

void ShowTypes(Tour& tour) {
    Walker& walker = tour.walker;
    const auto visible = [&](const char* control) {
        return walker.Find(QLatin1String(control)).isVisible();
    };
    walker.Click(QStringLiteral("opType_1"));
    walker.Check(visible("txtAngle") && !visible("txtControlKey"),
                 QStringLiteral("Angled Cut does not show its field"));
    walker.Type(QStringLiteral("txtAngle"), QStringLiteral("121212"));
    walker.Picture(QStringLiteral("create-angled-cut"));
    walker.Click(QStringLiteral("opType_2"));
    walker.Check(!visible("txtAngle") && visible("txtControlKey"),
                 QStringLiteral("IC Core 23 does not show its field"));
    walker.Type(QStringLiteral("txtControlKey"), QStringLiteral("527394"));
    walker.Picture(QStringLiteral("create-ic-core"));
    walker.Click(QStringLiteral("opType_0"));
    walker.Check(!visible("txtAngle") && !visible("txtControlKey"),
                 QStringLiteral("Standard shows a field of the other types"));
}

void RefuseNameless(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(QStringLiteral("txtMasterKey"), QStringLiteral("395172"));
    walker.ExpectBox(QStringLiteral("There has been an error in Pre-Creation Process"),
                     QMessageBox::Ok, QStringLiteral("create-refused"));
    walker.Click(QStringLiteral("cmdCreate"));
    walker.Enter("frmCreateFile");
    walker.CheckFocus(QStringLiteral("txtSystemName"));
}

void LearnBrand(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(QStringLiteral("txtLockBrand"), QStringLiteral("Tidewater"));
    walker.Press(QStringLiteral("txtLockBrand"), Qt::Key_Tab);
    walker.Enter("frmManufacturer");
    walker.CheckText(QStringLiteral("txtBottom_0"), {});
    walker.Type(QStringLiteral("txtBottom_0"), QStringLiteral(".17."));
    walker.CheckFocus(QStringLiteral("txtBottom_1"));
    walker.Type(QStringLiteral("txtBottom_1"), QStringLiteral(".186"));
    walker.Click(QStringLiteral("cmdRecord"));
    walker.CheckText(QStringLiteral("txtBottom_0"), QStringLiteral(".17"));
    walker.Picture(QStringLiteral("pin-sizes"));
    walker.Click(QStringLiteral("cmdExit"));
    walker.ExpectGone("frmManufacturer");
    walker.Enter("frmCreateFile");
}

void CreateFirst(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Type(QStringLiteral("txtSystemName"), kFirstName);
    walker.Type(QStringLiteral("txtSystemAddress"), QStringLiteral("3 Chapel Lane, Port Ellery"));
    walker.Type(QStringLiteral("txtNotes"),
                QStringLiteral("Front doors to be re-keyed in the summer holidays"));
    walker.Picture(QStringLiteral("create-filled"));
    walker.Click(QStringLiteral("cmdCreate"));
    walker.Enter("frmMain");
    walker.ExpectGone("frmCreateFile");
    walker.CheckText(QStringLiteral("lblSystem"), kFirstName);
    walker.CheckText(QStringLiteral("lblMaxPage"), QStringLiteral("64"));
}

void CreateSecond(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmMain");
    walker.ChooseFromMenu("mnuFile", "mnuFileNew");
    walker.Enter("frmCreateFile");
    walker.ExpectGone("frmMain");
    walker.Type(QStringLiteral("txtSystemName"), kSecondName);
    walker.Click(QStringLiteral("opType_1"));
    walker.Type(QStringLiteral("txtNumberofPins"), QStringLiteral("7"));
    walker.Type(QStringLiteral("txtMasterKey"), QStringLiteral("4625381"));
    CheckPreview(walker, 16384, 256);
    walker.Type(QStringLiteral("txtAngle"), QStringLiteral("1231"));
    walker.ExpectBox(QStringLiteral("Angle Values: 7 digits are needed"), QMessageBox::Ok,
                     QStringLiteral("create-angle-refused"));
    walker.Click(QStringLiteral("cmdCreate"));
    walker.Type(QStringLiteral("txtAngle"), QStringLiteral("1231232"));
    walker.Click(QStringLiteral("cmdCreate"));
    walker.Enter("frmMain");
    walker.CheckText(QStringLiteral("lblSystem"), kSecondName);
    walker.CheckText(QStringLiteral("lblAngle"), QStringLiteral("1231232"));
    walker.CheckText(QStringLiteral("lblMaxPage"), QStringLiteral("256"));
}

void CheckList(Walker& walker) {
    walker.Enter("frmOpenFile");
    const auto& list = walker.Find<TextList>(QStringLiteral("lstSystemFiles"));
    walker.Check(list.Count() == 3,
                 QStringLiteral("The list has %1 systems, not 3").arg(list.Count()));
    walker.Check(list.Lines().mid(0, 2) == QStringList({kFirstName, kSecondName}),
                 QStringLiteral("The list does not name the first two systems"));
    walker.Check(list.CurrentRow() == 0, QStringLiteral("The first system is not selected"));
}

void OpenSystemFromList(Tour& tour) {
    Walker& walker = tour.walker;
    walker.ChooseFromMenu("mnuFile", "mnuFileOpen");
    CheckList(walker);
    walker.ExpectGone("frmMain");
    walker.Picture(QStringLiteral("open-list"));
    CheckHelp(tour, "frmOpenFile", help::kOpenSystem);
    walker.ExpectBox(QStringLiteral("delete the key system \"%1\"").arg(kFirstName),
                     QMessageBox::No, QStringLiteral("open-delete-question"));
    walker.Click(QStringLiteral("cmdDelete"));
    CheckList(walker);
    walker.Click(QStringLiteral("cmdOpen"));
    walker.Enter("frmMain");
    walker.ExpectGone("frmOpenFile");
    walker.CheckText(QStringLiteral("lblSystem"), kFirstName);
    walker.CheckText(QStringLiteral("lblCurrentPage"), QStringLiteral("1"));
}

void Exit(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Click(QStringLiteral("cmdExit"));
    walker.Enter("frmExit");
    walker.Click(QStringLiteral("cmdExit"));
    walker.ExpectGone("frmExit");
    walker.ExpectGone("frmMain");
}

} // namespace

void WalkFirstSystem(Tour& tour) {
    tour.Take({{"Preview", PreviewSystem},
               {"Pin variance", RefuseVariance},
               {"Random master", TakeRandomMaster},
               {"System types", ShowTypes},
               {"Refused creation", RefuseNameless},
               {"New brand", LearnBrand},
               {"Creation", CreateFirst}});
}

void WalkSecondSystem(Tour& tour) {
    tour.Take({{"Second system", CreateSecond}});
}

void WalkListAndExit(Tour& tour) {
    tour.Take({{"List of systems", OpenSystemFromList}, {"Exit", Exit}});
}

} // namespace quorrel::tour
