#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "SiteForm.h"
#include "doors/frmDoors.h"
#include "store/DatabaseFiles.h"
#include "widgets/TextCombo.h"

namespace quorrel::bench {

namespace {

using DoorForm = SiteForm<frmDoors>;

QString LabelOf(int number) {
    return QStringLiteral("D%1").arg(number, 5, 10, QChar(u'0'));
}

void OpenDoors(benchmark::State& state) {
    DoorForm form(LargeSiteFolder().Path());
    while (state.KeepRunning()) {
        form.Open();
        form.Require("lstAllDoors", kSiteDoors);
    }
}

void SearchDoor(benchmark::State& state) {
    DoorForm form(LargeSiteFolder().Path());
    form.Open();
    const QString searches[] = {QStringLiteral("d"), QStringLiteral("d0")};
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type("txtSearchDoor", searches[keystroke++ % 2]);
        form.Require("lstAllDoors", kSiteDoors);
    }
}

void SearchKey(benchmark::State& state) {
    DoorForm form(LargeSiteFolder().Path());
    form.Open();
    const QString searches[] = {QStringLiteral("k"), QStringLiteral("k0")};
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type("txtSearchKey", searches[keystroke++ % 2]);
        form.Require("lstKeyIDs", kSiteKeys / 2);
    }
}

void ChooseKey(benchmark::State& state) {
    DoorForm form(LargeSiteFolder().Path());
    form.Open();
    int row = 0;
    while (state.KeepRunning()) {
        form.Choose("lstKeyIDs", row);
        form.Require("lstKeyedDoors", 1);
        row = row == 0 ? 1 : 0; // the first has a tenth of all doors
    }
}

void TypeLabel(benchmark::State& state) {
    DoorForm form(LargeSiteFolder().Path());
    form.Open();
    int door = 0;
    while (state.KeepRunning()) {
        door = (door + 7) % kSiteDoors;
        form.Watch().UntilPainted(
            [&] { form.Find<TextCombo>("cmbDoorLabel").setEditText(LabelOf(door)); });
        if (form.Find<QLineEdit>("txtDoorID").text().isEmpty())
            throw std::runtime_error("No door is shown.");
    }
}

void AssignDoors(benchmark::State& state) {
    const LargeSiteCopy site;
    DoorForm form(site.Path());
    form.Open();
    form.Choose("lstKeyIDs", 1);
    int door = 0;
    while (state.KeepRunning()) {
        form.Find<TextList>("lstAllDoors").SetCurrentRow(++door);
        Time(state, [&] { form.Press("cmdAssignTo"); });
    }
}

void AssignBare(benchmark::State& state) {
    const LargeSiteCopy site;
    BareFile file(site.PathOf(kKeySystemFile));
    int door = 0;
    while (state.KeepRunning()) {
        const std::string update = "UPDATE \"Doors\" SET \"CutsLabel\" = 'K00002      ' WHERE "
                                   "\"RowKey\" = " +
                                   std::to_string(++door);
        Time(state, [&] {
            file.Run("BEGIN IMMEDIATE");
            file.Run(update.c_str());
            file.Run("COMMIT");
        });
    }
}

void WalkDoors(benchmark::State& state) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning()) {
        const auto query = file.Prepare("SELECT * FROM \"Doors\" WHERE \"SystemNumber\" = 1");
        if (file.Rows(query.get()).size() < kSiteDoors)
            throw std::runtime_error("There are not as many doors as there should be.");
    }
}

} // namespace

void AddDoors(std::vector<Comparison>& comparisons) {
    const Bound list{Bound::Kind::Seconds, 0.05};
    const Bound frame{Bound::Kind::Seconds, 0.016};
    const char* walk = "walk of the site's doors, bare";
    Register(walk, WalkDoors);
    Register("doors opened, painted", OpenDoors);
    Register("keystroke in door search, painted", SearchDoor);
    Register("keystroke in key search, painted", SearchKey);
    Register("keystroke in door label, painted", TypeLabel);
    Register("doors of a chosen key, painted", ChooseKey);
    RegisterSelfTimed("door assigned, painted", AssignDoors);
    RegisterSelfTimed("door assigned, bare", AssignBare);
    comparisons.push_back({"doors opened, painted", walk, list});
    comparisons.push_back({"keystroke in door search, painted", walk, list});
    comparisons.push_back({"keystroke in key search, painted", walk, list});
    comparisons.push_back({"keystroke in door label, painted", walk, frame});
    comparisons.push_back({"doors of a chosen key, painted", walk, list});
    comparisons.push_back({"door assigned, painted", "door assigned, bare", list});
}

} // namespace quorrel::bench
