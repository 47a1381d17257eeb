#include "engine/Patterns.h"
#include "engine/Preview.h"
#include "engine/RandomMaster.h"
#include "support/PlainEnumeration.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorrel::test {
namespace {

std::string Told(const SystemDefinition& d) {
    return d.master + " " + std::to_string(d.minPin) + "-" + std::to_string(d.maxPin) + " by " +
           std::to_string(d.increment) + ", safety " + std::to_string(d.safetyFactor);
}

std::string Told(const Pattern& key) {
    return "[" + key.text + "] page " + std::to_string(key.page) + " position " +
           std::to_string(key.position) + " serial " + std::to_string(key.serial) +
           (key.master ? " master" : "");
}

bool Same(const Pattern& a, const Pattern& b) {
    return a.text == b.text && a.page == b.page && a.position == b.position &&
           a.serial == b.serial && a.master == b.master;
}

/// Compares all that the engine says of a definition with the plain enumeration.
void Compare(const SystemDefinition& definition) {
    SCOPED_TRACE(Told(definition));
    const PlainEnumeration plain(definition);
    EXPECT_EQ(definition.PageCount(), plain.pages);
    if (plain.pages > 300) {
        EXPECT_THROW(CountUsableKeys(definition), PageLimitError);
        EXPECT_THROW(GeneratePatterns(definition, SystemType::Standard, "",
                                      [](const Pattern&) { FAIL() << "A key was given"; }),
                     PageLimitError);
        return;
    }
    std::size_t next = 0;
    std::string difference;
    GeneratePatterns(definition, SystemType::Standard, "", [&](const Pattern& key) {
        if (next >= plain.patterns.size())
            difference = "more than expected: " + Told(key);
        else if (difference.empty() && !Same(key, plain.patterns[next]))
            difference = Told(key) + " instead of " + Told(plain.patterns[next]);
        ++next;
    });
    EXPECT_EQ(difference, "");
    EXPECT_EQ(next, plain.patterns.size());
    const UsableKeys usable = CountUsableKeys(definition);
    EXPECT_EQ(usable.perPage, plain.UsablePerPage());
    EXPECT_EQ(usable.withinSafetyFactor, plain.UsableWithinSafetyFactor());
}

TEST(Enumeration, AgreesWithThePlainOneForFourToSixPins) {
    const std::pair<int, int> ranges[] = {{0, 9}, {0, 5}, {1, 5}, {3, 7}, {4, 9}, {4, 5}};
    int safety = 0;
    for (const std::string master : {"395172", "000000", "999999", "546135"})
        for (std::size_t pins = 4; pins <= 6; ++pins)
            for (int increment = 1; increment <= 4; ++increment)
                for (const auto& [low, high] : ranges)
                    Compare({master.substr(0, pins), static_cast<int>(pins), low, high, increment,
                             2 + safety++ % 8});
}

TEST(Enumeration, AgreesWithThePlainOneForSevenPins) {
    Compare({"3951728", 7, 0, 9, 2, 5});
    Compare({"3951728", 7, 0, 9, 4, 3});
    Compare({"2345432", 7, 1, 5, 1, 2});
    Compare({"0000000", 7, 0, 9, 3, 9});
    Compare({"3336669", 7, 2, 9, 3, 4});
    Compare({"9123456", 7, 4, 9, 2, 7});
    Compare({"9999999", 7, 0, 9, 1, 9});
}

TEST(Enumeration, NumbersOutsideTheirLimitsGiveNothingAtOnce) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const struct {
        int SystemDefinition::*number;
        NumberLimits limits;
    } fields[] = {{&SystemDefinition::pins, kPinCountLimits},
                  {&SystemDefinition::minPin, kMinPinLimits},
                  {&SystemDefinition::maxPin, kMaxPinLimits},
                  {&SystemDefinition::increment, kIncrementLimits},
                  {&SystemDefinition::safetyFactor, kSafetyFactorLimits}};
    for (const auto& [number, limits] : fields)
        for (const int value : {limits.lowest, limits.highest, limits.lowest - 1,
                                limits.highest + 1, 0, least, most}) {
            SystemDefinition definition{"3951728", 6, 0, 9, 2, 9};
            definition.*number = value;
            SCOPED_TRACE(value);
            EXPECT_EQ(definition.IsWithinLimits(), limits.Hold(value));
            if (limits.Hold(value))
                continue;
            GeneratePatterns(definition, SystemType::Standard, "",
                             [](const Pattern& key) { ADD_FAILURE() << Told(key); });
            EXPECT_TRUE(CountUsableKeys(definition).perPage.empty());
            EXPECT_EQ(CountUsableKeys(definition).Total(), 0);
            EXPECT_TRUE(definition.Progression(1).empty());
            EXPECT_FALSE(definition.ExceedsPinVariance());
            EXPECT_EQ(DrawRandomMaster(definition, [] { return 0.5; }), std::nullopt);
        }
}

TEST(Enumeration, KnownSystems) {
    struct Known {
        SystemDefinition definition;
        std::size_t pages;
        int total;
    };
    for (const Known& known :
         {Known{{"395172", 6, 0, 9, 2, 9}, 64, 4096}, Known{{"31524", 5, 1, 5, 1, 9}, 16, 1024},
          Known{{"2715", 4, 0, 9, 2, 9}, 4, 256}}) {
        const UsableKeys usable = CountUsableKeys(known.definition);
        EXPECT_EQ(usable.perPage, std::vector<int>(known.pages, 64)) << known.definition.master;
        EXPECT_EQ(usable.Total(), known.total);
    }
    std::vector<std::string> firstKeys;
    GeneratePatterns({"395172", 6, 0, 9, 2, 9}, SystemType::Standard, "", [&](const Pattern& key) {
        if (key.serial <= 2)
            firstKeys.push_back(Told(key));
    });
    EXPECT_EQ(firstKeys,
              (std::vector<std::string>{"[111110 ] page 1 position 80 serial 1 master",
                                        "[111112 ] page 1 position 84 serial 2 master"}));
}

TEST(Enumeration, TheMarkLeavesTheCountAsItIs) {
    SystemDefinition definition{"395172", 6, 0, 9, 2, 2};
    EXPECT_EQ(CountUsableKeys(definition).Total(), 4096);
    long marked = 0;
    GeneratePatterns(definition, SystemType::Standard, "", [&](const Pattern& key) {
        const bool level = key.position >= kFirstLevelCell;
        marked += key.text.back() == '*' ? 1 : 0;
        EXPECT_FALSE(level && key.text.back() == '*') << Told(key);
    });
    EXPECT_GT(marked, 4096);
}

TEST(Enumeration, SpecialRowsComeLastAndLieOnNoPage) {
    for (const auto& [type, position] :
         {std::pair{SystemType::AngledCut, 190}, std::pair{SystemType::ICCore23, 200}}) {
        const SystemDefinition definition{"2715", 4, 0, 9, 2, 9};
        const auto standard = PlainEnumeration(definition).patterns.size();
        std::vector<Pattern> keys;
        GeneratePatterns(definition, type, "4321",
                         [&](const Pattern& key) { keys.push_back(key); });
        ASSERT_EQ(keys.size(), standard + 1);
        EXPECT_EQ(keys.back().text, "4321 ");
        EXPECT_EQ(keys.back().page, 0);
        EXPECT_EQ(keys.back().position, position);
        EXPECT_EQ(keys.back().serial, static_cast<long>(keys.size()));
    }
}

TEST(Enumeration, APageLimitErrorSaysWhatToDo) {
    try {
        CountUsableKeys({"999999", 6, 0, 8, 1, 9});
        FAIL() << "729 pages were accepted";
    } catch (const PageLimitError& error) {
        const std::string text = error.what();
        EXPECT_NE(text.find("729 pages"), std::string::npos) << text;
        EXPECT_NE(text.find("at most 300 pages"), std::string::npos) << text;
    }
}

TEST(Preview, LinesPadThePageNumberToFour) {
    EXPECT_EQ(PreviewLine(1, 64), "Page 1    = 64");
    EXPECT_EQ(PreviewLine(64, 0), "Page 64   = 0");
    EXPECT_EQ(PreviewLine(256, 125), "Page 256  = 125");
}

} // namespace
} // namespace quorrel::test
