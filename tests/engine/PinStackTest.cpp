#include "engine/PinStack.h"
#include "engine/SystemDefinition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace quorrel::test {
namespace {

TEST(PinStack, OfACoreAddsUpTo23InEveryChamber) {
    EXPECT_EQ(CoreStackOf(9, 1, 5), (PinStack{1, {8}, 6, 8}));
    EXPECT_EQ(CoreStackOf(1, 9, 5), (PinStack{1, {8}, 6, 8}));
    EXPECT_EQ(CoreStackOf(4, 4, 9), (PinStack{4, {}, 15, 4}));
    for (int key = 0; key < 10; ++key)
        for (int master = 0; master < 10; ++master)
            for (int control = 0; control < 10; ++control) {
                const PinStack core = CoreStackOf(key, master, control);
                EXPECT_EQ(core.bottom + core.Master() + *core.control + *core.driver, 23);
                EXPECT_GE(*core.control, 1);
                EXPECT_GE(*core.driver, 1);
                const PinStack plain = StackOf(key, master);
                EXPECT_EQ(plain, (PinStack{core.bottom, core.wafers, {}, {}}));
            }
}

TEST(PinStack, BridgesEachGapBetweenItsCutsWithAWafer) {
    EXPECT_EQ(StackOf({1, 2, 5, 9}), (PinStack{1, {1, 3, 4}, {}, {}}));
    EXPECT_EQ(StackOf({0, 2, 4, 6, 8, 9}).wafers, (std::vector<int>{2, 2, 2, 2, 1}));
    EXPECT_EQ(StackOf({7}), StackOf(7, 7));
    EXPECT_EQ(StackOf({7}).Master(), 0);
    EXPECT_EQ(StackOf({2, 2, 5, 5}), StackOf(5, 2)) << "a cut told twice is one cut";
    // Control and driver follow the highest cut, whichever lie below it.
    EXPECT_EQ(CoreStackOf({1, 2, 5, 9}, 5), (PinStack{1, {1, 3, 4}, 6, 8}));
    EXPECT_THROW(StackOf(std::vector<int>()), std::invalid_argument);
}

TEST(PinStack, TellsAWaferOfOneStep) {
    EXPECT_TRUE(StackOf({1, 4, 5}).HasThinWafer());
    EXPECT_FALSE(StackOf({1, 4, 6}).HasThinWafer());
    EXPECT_FALSE(StackOf({1}).HasThinWafer()) << "no wafer at all is not a thin one";
}

TEST(PinStack, FiguresAreLettersFrom10AndBareDigitsBelow0) {
    std::string figures;
    for (const int steps : {-12, -1, 0, 9, 10, 11, 19})
        figures += PinCharacter(steps);
    EXPECT_EQ(figures, "2109ABJ");
}

/// True when two pins of the chamber part at a height.
bool PartsAt(const std::vector<PlacedPin>& pins, double height) {
    for (std::size_t pin = 0; pin + 1 < pins.size(); ++pin)
        if (pins[pin].to == height && pins[pin + 1].from == height)
            return true;
    return false;
}

TEST(PlacedPins, PartAtTheShearLinesForTheKeysThatTurnThem) {
    const auto expectAll = [](const std::vector<int>& cuts) {
        for (int control = 0; control < 10; ++control) {
            const PinStack core = CoreStackOf(cuts, control);
            EXPECT_TRUE(PartsAt(PlacePins(core, control), kControlShearLine));
            for (int key = 0; key < 10; ++key) {
                const bool opens = std::find(cuts.begin(), cuts.end(), key) != cuts.end();
                EXPECT_EQ(PartsAt(PlacePins(core, key), 0), opens);
                EXPECT_EQ(PartsAt(PlacePins(StackOf(cuts), key), 0), opens);
            }
        }
    };
    for (int low = 0; low < 10; ++low)
        for (int high = low; high < 10; ++high)
            expectAll({low, high});
    expectAll({0, 1, 2, 3, 4, 5});
    expectAll({1, 4, 5, 8, 9});
}

TEST(ControlKey, IsKnownByItsCutsWhateverTheMark) {
    EXPECT_TRUE(IsControlKeysCuts("24135 ", "24135"));
    EXPECT_TRUE(IsControlKeysCuts("24135*", "24135"));
    EXPECT_FALSE(IsControlKeysCuts("24134 ", "24135"));
    EXPECT_FALSE(IsControlKeysCuts("24135 ", "")) << "a system without a control key";
}

} // namespace
} // namespace quorrel::test
