#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "SiteForm.h"
#include "search/frmFindKey.h"
#include "store/DatabaseFiles.h"

namespace quorrel::bench {

namespace {

using FindForm = SiteForm<frmFindKey>;

void OpenFind(benchmark::State& state) {
    FindForm form(LargeSiteFolder().Path());
    while (state.KeepRunning()) {
        form.Open();
        form.Require("lstDoors", kSiteDoors);
    }
}

/// The limit of opening it: all rows of what it lists.
void WalkListed(benchmark::State& state) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning()) {
        std::size_t rows = 0;
        for (const char* table : {"Doors", "KeyUsers", "KeyUnit", "Patterns"}) {
            const std::string select =
                "SELECT * FROM \"" + std::string(table) + "\" WHERE \"SystemNumber\" = 1";
            const auto query = file.Prepare(select.c_str());
            rows += file.Rows(query.get()).size();
        }
        if (rows < kSiteDoors + kSiteHolders + kSiteUnits + kSiteKeys)
            throw std::runtime_error("There are not as many rows as there should be.");
    }
}

/// Types by turns one of two texts into a search box, of which each leaves a long list.
void TypeInto(benchmark::State& state, const char* box, const char* one, const char* other,
              const char* list, int lines) {
    FindForm form(LargeSiteFolder().Path());
    form.Open();
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type(box, QLatin1String(keystroke++ % 2 ? one : other));
        form.Require(list, lines);
    }
}

/// The last key by page and position, so that all rows are looked at.
void FindByLabel(benchmark::State& state) {
    FindForm form(LargeSiteFolder().Path());
    form.Open();
    form.Find<QLineEdit>("txtLabel")
        .setText(QStringLiteral("K%1").arg(kSiteKeys - 1, 5, 10, QChar(u'0')));
    int found = 0;
    QObject::connect(&form.Window(), &frmFindKey::KeyFound, [&found] { ++found; });
    while (state.KeepRunning())
        form.Find<QPushButton>("cmdFindLable").click();
    if (found == 0)
        throw std::runtime_error("The key was not found.");
}

} // namespace

void AddFind(std::vector<Comparison>& comparisons) {
    const Bound list{Bound::Kind::Seconds, 0.05};
    const char* doors = "walk of the site's doors, bare";
    const char* keys = "walk of the keys, bare";
    const char* holders = "walk of the site's holders, bare";
    Register("find form opened, painted", OpenFind);
    Register("walk of what it lists, bare", WalkListed);
    Register("keystroke in find doors, painted", [](benchmark::State& state) {
        TypeInto(state, "txtDoorSearch", "d", "d0", "lstDoors", kSiteDoors);
    });
    Register("keystroke in find users, painted", [](benchmark::State& state) {
        TypeInto(state, "txtUserSearch", "1", "10", "lstUserList", kSiteHolders / 2);
    });
    Register("keystroke in find descriptions, painted", [](benchmark::State& state) {
        TypeInto(state, "txtDescSearch", "room", "rooms", "lstDescriptions", kSiteKeys - 1);
    });
    Register("key found by its Key ID", FindByLabel);
    // Four lists at once: together they take no longer than their rows do.
    comparisons.push_back(
        {"find form opened, painted", "walk of what it lists, bare", {Bound::Kind::TimesLimit, 1}});
    comparisons.push_back({"keystroke in find doors, painted", doors, list});
    comparisons.push_back({"keystroke in find users, painted", holders, list});
    comparisons.push_back({"keystroke in find descriptions, painted", keys, list});
    comparisons.push_back({"key found by its Key ID", keys, list});
}

} // namespace quorrel::bench
