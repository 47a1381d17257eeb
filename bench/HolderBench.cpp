#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "SiteForm.h"
#include "holders/frmKeyUsers.h"
#include "store/DatabaseFiles.h"

namespace quorrel::bench {

namespace {

using HolderForm = SiteForm<frmKeyUsers>;

void OpenHolders(benchmark::State& state) {
    HolderForm form(LargeSiteFolder().Path());
    while (state.KeepRunning()) {
        form.Open();
        form.Require("lstKeyHolders", kSiteHolders);
    }
}

void SearchHolder(benchmark::State& state) {
    HolderForm form(LargeSiteFolder().Path());
    form.Open();
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type("txtUserSearch", keystroke++ % 2 ? QStringLiteral("1") : QString());
        form.Require("lstKeyHolders", 1);
    }
}

void ChooseHolder(benchmark::State& state) {
    HolderForm form(LargeSiteFolder().Path());
    form.Open();
    int row = 0;
    while (state.KeepRunning())
        form.Choose("lstKeyHolders", row = (row + 7) % kSiteHolders);
}

/// The first key has a tenth of all units.
void ChooseUnits(benchmark::State& state) {
    HolderForm form(LargeSiteFolder().Path());
    form.Open();
    form.Type("txtKeySearch", QLatin1String(kPopularKeyID));
    while (state.KeepRunning()) {
        form.Choose("lstKeyIDs", 0);
        form.Require("lstKeyUsers", kSiteUnits / 10);
    }
}

void Walk(benchmark::State& state, const char* select, std::size_t rows) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning()) {
        const auto query = file.Prepare(select);
        if (file.Rows(query.get()).size() < rows)
            throw std::runtime_error("There are not as many rows as there should be.");
    }
}

void WalkHolders(benchmark::State& state) {
    Walk(state, "SELECT * FROM \"KeyUsers\" WHERE \"SystemNumber\" = 1", kSiteHolders);
}

void WalkUnits(benchmark::State& state) {
    Walk(state, "SELECT * FROM \"UsertoUnit\" WHERE \"SystemNumber\" = 1", kSiteUnits);
}

} // namespace

void AddHolders(std::vector<Comparison>& comparisons) {
    const Bound list{Bound::Kind::Seconds, 0.05};
    const char* holders = "walk of the site's holders, bare";
    const char* units = "walk of the site's units, bare";
    Register(holders, WalkHolders);
    Register(units, WalkUnits);
    Register("key users opened, painted", OpenHolders);
    Register("keystroke in user search, painted", SearchHolder);
    Register("chosen user, painted", ChooseHolder);
    Register("units of a chosen key, painted", ChooseUnits);
    comparisons.push_back({"key users opened, painted", holders, list});
    comparisons.push_back({"keystroke in user search, painted", holders, list});
    comparisons.push_back({"chosen user, painted", holders, list});
    comparisons.push_back({"units of a chosen key, painted", units, list});
}

} // namespace quorrel::bench
