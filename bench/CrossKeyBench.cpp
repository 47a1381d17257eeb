#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "SiteForm.h"
#include "crosskeys/AccessPanel.h"
#include "crosskeys/frmCrossKeyed.h"
#include "doors/DoorRecords.h"
#include "pinning/PinningChart.h"

#include <unordered_set>

namespace quorrel::bench {

namespace {

/// A cylinder whose chambers admit the master key's cut and those of other keys, each of them at
/// every chamber `step` higher than the one before.
CrossKeying CylinderOf(Session& session, int cutsPerChamber, int step) {
    CrossKeyCuts keys;
    keys[0] = session.System.MasterKeyCuts;
    for (std::size_t key = 1; key < static_cast<std::size_t>(cutsPerChamber); ++key)
        for (const char cut : keys[key - 1])
            keys[key] += static_cast<char>('0' + (cut - '0' + step) % 10);
    return CrossKeyingFor(session, keys);
}

std::size_t Raised(std::size_t base, int exponent) {
    return exponent == 0 ? 1 : base * Raised(base, exponent - 1);
}

/// The keys with access on the largest system, with so many cuts at each chamber, in their lists.
void FindAccess(benchmark::State& state, int cutsPerChamber, int step) {
    QuietSession program(LargestFolder().Path());
    program.OpenFirstSystem();
    const CrossKeying keying = CylinderOf(program.session, cutsPerChamber, step);
    const std::size_t expected =
        Raised(static_cast<std::size_t>(cutsPerChamber), program.session.System.PinCount);
    PaintWatch watch;
    AccessPanel panel;
    panel.OfferCuts(true);
    watch.UntilPainted([&] { panel.show(); });
    while (state.KeepRunning()) {
        const auto progress = program.session.boxes.BeginProgress({}, {}, AccessSteps(keying));
        const auto access = CalculateKeysWithAccess(program.session, keying, *progress);
        if (!access || access->combinations != expected)
            throw std::runtime_error("Not all combinations were worked out.");
        watch.UntilPainted(
            [&] { panel.ShowAccess(*access, program.session.System.MasterKeyCuts); });
    }
}

/// The limit: each combination looked up among the cuts of all keys, and nothing else.
void LookUpBare(benchmark::State& state, int cutsPerChamber, int step) {
    QuietSession program(LargestFolder().Path());
    program.OpenFirstSystem();
    const CrossKeying keying = CylinderOf(program.session, cutsPerChamber, step);
    const auto cuts = ListSystemCuts(program.session);
    const std::unordered_set<std::string> system(cuts.begin(), cuts.end());
    while (state.KeepRunning()) {
        std::size_t found = 0;
        keying.WalkCombinations([&](const std::string& one) {
            found += system.count(one);
            return true;
        });
        if (found == 0)
            throw std::runtime_error("No key of the system turns the cylinder.");
    }
}

void SearchCrossKey(benchmark::State& state) {
    SiteForm<frmCrossKeyed> form(LargeSiteFolder().Path());
    form.Open([](Session& session) {
        const auto door = FindDoor(session, QStringLiteral("D00001"));
        return std::make_unique<frmCrossKeyed>(session, door.value(), PinningRequest());
    });
    const QString searches[] = {QStringLiteral("k"), QStringLiteral("k0")};
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type("txtSearchKey", searches[keystroke++ % 2]);
        form.Require("lstKeyIDs", kSiteKeys / 2);
    }
}

} // namespace

void AddCrossKeys(std::vector<Comparison>& comparisons) {
    const char* five = "keys with access of 5^7, listed";
    const char* fiveBare = "look-ups of 5^7, bare";
    const char* seven = "keys with access of 7^7, listed";
    const char* sevenBare = "look-ups of 7^7, bare";
    const char* search = "keystroke in keys to cross-key, painted";
    Register(five, [](benchmark::State& state) { FindAccess(state, 5, 2); });
    Register(fiveBare, [](benchmark::State& state) { LookUpBare(state, 5, 2); });
    Register(seven, [](benchmark::State& state) { FindAccess(state, 7, 1); });
    Register(sevenBare, [](benchmark::State& state) { LookUpBare(state, 7, 1); });
    Register(search, SearchCrossKey);
    comparisons.push_back({five, fiveBare, {Bound::Kind::Seconds, 0.5}});
    // Longer than a look: it shows how far it is and can be cancelled.
    comparisons.push_back({seven, sevenBare, {Bound::Kind::Seconds, 5}});
    comparisons.push_back({search, "walk of the keys, bare", {Bound::Kind::Seconds, 0.05}});
}

} // namespace quorrel::bench
