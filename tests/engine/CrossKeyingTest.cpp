#include "engine/CrossKeying.h"
#include "engine/PinStack.h"
#include "support/SimulatedLock.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace quorrel::test {
namespace {

std::set<std::string> Combinations(const CrossKeying& keying) {
    std::set<std::string> all;
    std::string last;
    keying.WalkCombinations([&](const std::string& cuts) {
        EXPECT_LT(last, cuts) << "the first chamber is outermost";
        all.insert(last = cuts);
        return true;
    });
    EXPECT_EQ(all.size(), keying.CountCombinations());
    return all;
}

SimulatedLock Loaded(const CrossKeying& keying) {
    const PinRows rows = keying.Rows();
    SimulatedLock lock;
    lock.Load(rows.bottom, {rows.wafers.begin(), rows.wafers.end()}, keying.Chambers().size());
    return lock;
}

TEST(CrossKeying, AdmitsTheCutsOfAllKeysInEachChamber) {
    const CrossKeying keying({"135", "1 9", "", "732"}, 3);
    EXPECT_EQ(keying.Chambers(), (std::vector<std::vector<int>>{{1, 7}, {3}, {2, 5, 9}}));
    EXPECT_EQ(Combinations(keying),
              (std::set<std::string>{"132", "135", "139", "732", "735", "739"}));
    EXPECT_TRUE(keying.Admits("735*"));
    EXPECT_FALSE(keying.Admits("73"));
    EXPECT_FALSE(keying.Admits("7 5"));
    const PinRows rows = keying.Rows();
    EXPECT_EQ(rows.bottom, "132     ");
    EXPECT_EQ(rows.wafers[0], "6 3     ");
    EXPECT_EQ(rows.wafers[1], "  4     ");
    EXPECT_EQ(rows.wafers[2], "        ");
    EXPECT_TRUE(rows.overfull.empty());
}

TEST(CrossKeying, StopsWhereTheVisitorDoesAndHasNothingWhereAChamberIsEmpty) {
    int visits = 0;
    CrossKeying({"12", "34"}, 2).WalkCombinations([&](const std::string&) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
    EXPECT_TRUE(Combinations(CrossKeying({"1 "}, 2)).empty());
    EXPECT_TRUE(Combinations(CrossKeying()).empty());
    EXPECT_FALSE(CrossKeying().Admits("1"));
}

TEST(CrossKeying, CountsTheMixturesThatNoKeyHas) {
    EXPECT_EQ(CrossKeying({"000000", "222222"}, 6).CountPhantoms({"000000", "222222"}), 62U);
    const std::vector<std::string> three = {"000000", "222222", "444444"};
    EXPECT_EQ(CrossKeying(three, 6).CountPhantoms(three), 726U);
    EXPECT_EQ(CrossKeying({"000000", "222222"}, 6).With("444444").CountPhantoms(three), 726U);
    EXPECT_EQ(CrossKeying({"000000"}, 6).With("").CountPhantoms(three), 0U);
}

TEST(CrossKeying, HasNoRowForASixthWafer) {
    std::vector<std::string> keys;
    for (char cut = '0'; cut < '7'; ++cut)
        keys.push_back({cut, '5'});
    const PinRows rows = CrossKeying(keys, 2).Rows();
    EXPECT_EQ(rows.bottom, "05      ");
    for (const std::string& row : rows.wafers)
        EXPECT_EQ(row, "1       ");
    EXPECT_EQ(rows.overfull, std::vector<int>{1});
    EXPECT_TRUE(CrossKeying({keys.begin(), keys.begin() + 6}, 2).Rows().overfull.empty());
}

/// Keys in which each chamber has one cut, two or up to five.
std::vector<std::string> RandomKeys(std::mt19937& random, std::size_t pins) {
    std::vector<std::string> keys(1 + random() % 7, std::string(pins, '0'));
    for (std::size_t place = 0; place < pins; ++place) {
        const auto cuts = std::array{1U, 2U, 5U}[random() % 3];
        for (std::string& key : keys)
            key[place] = static_cast<char>('0' + (random() % cuts + place) % 5);
    }
    return keys;
}

TEST(CrossKeying, TurnsForExactlyItsCombinationsInASimulatedLock) {
    std::mt19937 random(20260315);
    std::size_t turned = 0;
    for (int run = 0; run < 1200; ++run) {
        const std::size_t pins = 4 + static_cast<std::size_t>(run % 4);
        const CrossKeying keying(RandomKeys(random, pins), static_cast<int>(pins));
        const SimulatedLock lock = Loaded(keying);
        std::set<std::string> turning;
        // All keys where they are few, else those around the ones that are meant to turn.
        if (pins < 6 || run % 40 == 3)
            ForEveryKey(pins, pins == 4 ? '9' : '4', [&](const std::string& key) {
                if (lock.Turns(key))
                    turning.insert(key);
            });
        else
            keying.WalkCombinations([&](const std::string& cuts) {
                for (std::size_t place = 0; place < pins; ++place)
                    for (char cut = '0'; cut <= '9'; ++cut) {
                        std::string key = cuts;
                        key[place] = cut;
                        if (lock.Turns(key))
                            turning.insert(key);
                    }
                return turning.size() < 2000;
            });
        const auto expected = Combinations(keying);
        if (turning.size() < 2000)
            ASSERT_EQ(turning, expected) << "run " << run;
        else
            ASSERT_TRUE(
                std::includes(expected.begin(), expected.end(), turning.begin(), turning.end()))
                << "run " << run;
        turned += turning.size();
    }
    EXPECT_GT(turned, 10000U);
}

TEST(CrossKeying, OnlyTheControlKeyPullsACore) {
    std::mt19937 random(7);
    for (int run = 0; run < 200; ++run) {
        const std::size_t pins = 4 + static_cast<std::size_t>(run % 2);
        const CrossKeying keying(RandomKeys(random, pins), static_cast<int>(pins));
        const std::string control = RandomKeys(random, pins).front();
        SimulatedLock lock = Loaded(keying);
        std::string controlPins, drivers;
        for (std::size_t place = 0; place < pins; ++place) {
            const PinStack stack = CoreStackOf(keying.Chambers()[place], control[place] - '0');
            controlPins += PinCharacter(stack.control.value());
            drivers += PinCharacter(stack.driver.value());
        }
        lock.LoadCore(controlPins, drivers);
        ForEveryKey(pins, '9', [&](const std::string& key) {
            ASSERT_EQ(lock.Pulls(key), key == control) << key << " in run " << run;
        });
        for (std::size_t place = 0; place < pins; ++place)
            EXPECT_EQ(lock.Height(place), 23);
    }
}

} // namespace
} // namespace quorrel::test
