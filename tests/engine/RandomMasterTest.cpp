#include "engine/RandomMaster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

namespace quorrel::test {
namespace {

RandomNumber Numbers(unsigned seed) {
    return [engine = std::mt19937(seed),
            spread = std::uniform_real_distribution<double>()]() mutable { return spread(engine); };
}

/// What a drawn master breaks; empty for a good one.
std::string Fault(const std::string& cuts, const SystemDefinition& d) {
    if (cuts.size() != static_cast<std::size_t>(d.pins))
        return "length";
    for (const char cut : cuts)
        if (cut < '0' + d.minPin || cut >= '0' + d.maxPin)
            return "range";
    const std::size_t last = cuts.size() - 1;
    if (std::max(cuts[0], cuts[1]) <= '0' + d.maxPin - 2)
        return "start";
    if (std::min(cuts[last - 1], cuts[last]) >= '0' + d.minPin + 2)
        return "end";
    for (std::size_t i = 1; i < cuts.size(); ++i)
        if (std::abs(cuts[i] - cuts[i - 1]) > d.safetyFactor)
            return "safety factor";
    return {};
}

TEST(RandomMaster, KeepsTheRulesOrGivesNothing) {
    int impossible = 0;
    for (int pins = 4; pins <= 7; ++pins)
        for (const auto& [low, high] : {std::pair{0, 9}, std::pair{1, 5}, std::pair{4, 9}})
            for (int safety = 2; safety <= 9; ++safety) {
                const SystemDefinition definition{"", pins, low, high, 2, safety};
                std::set<std::string> drawn;
                for (unsigned seed = 1; seed <= 5; ++seed) {
                    const auto master = DrawRandomMaster(definition, Numbers(seed));
                    EXPECT_EQ(master.has_value(), RandomMasterExists(definition));
                    if (!master)
                        continue;
                    EXPECT_EQ(Fault(*master, definition), "") << *master;
                    EXPECT_EQ(master, DrawRandomMaster(definition, Numbers(seed)));
                    drawn.insert(*master);
                }
                impossible += drawn.empty() ? 1 : 0;
                EXPECT_NE(drawn.size(), 1U) << "pins " << pins << " safety " << safety;
            }
    EXPECT_GT(impossible, 0);
}

TEST(RandomMaster, ImpossibleDefinitionsAreTold) {
    // From 8 down to 1 in three steps of at most two: no.
    EXPECT_FALSE(RandomMasterExists({"", 4, 0, 9, 2, 2}));
    EXPECT_FALSE(DrawRandomMaster({"", 4, 0, 9, 2, 2}, Numbers(1)));
    EXPECT_TRUE(RandomMasterExists({"", 4, 0, 9, 2, 3}));
    EXPECT_TRUE(RandomMasterExists({"", 4, 1, 5, 1, 2}));
    EXPECT_FALSE(DrawRandomMaster({"", 8, 0, 9, 2, 9}, Numbers(1)));
    EXPECT_FALSE(DrawRandomMaster({"", 4, 5, 5, 2, 9}, Numbers(1)));
}

TEST(RandomMaster, LeadingZerosThatDropOutAreCutZero) {
    // The draws 0, 8, 0, 0, 0, 0, 0 are the number 800000, which with its leading blank fills
    // seven.
    int turn = 0;
    const auto draws = [&] { return turn++ % 7 == 1 ? 0.95 : 0.0; };
    EXPECT_EQ(DrawRandomMaster({"", 7, 0, 9, 2, 9}, draws), "0800000");
}

} // namespace
} // namespace quorrel::test
