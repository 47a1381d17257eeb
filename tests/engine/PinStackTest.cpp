#include "engine/PinStack.h"

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

TEST(PinStack, OfACoreAddsUpTo23InEveryChamber) {
    EXPECT_EQ(CoreStackOf(9, 1, 5), (PinStack{1, 8, 6, 8}));
    EXPECT_EQ(CoreStackOf(1, 9, 5), (PinStack{1, 8, 6, 8}));
    EXPECT_EQ(CoreStackOf(4, 4, 9), (PinStack{4, 0, 15, 4}));
    for (int key = 0; key < 10; ++key)
        for (int master = 0; master < 10; ++master)
            for (int control = 0; control < 10; ++control) {
                const PinStack core = CoreStackOf(key, master, control);
                EXPECT_EQ(core.bottom + core.master + *core.control + *core.driver, 23);
                const PinStack plain = StackOf(key, master);
                EXPECT_EQ(plain, (PinStack{core.bottom, core.master, {}, {}}));
            }
}

TEST(PinStack, FiguresAreLettersFrom10AndBareDigitsBelow0) {
    std::string figures;
    for (const int steps : {-12, -1, 0, 9, 10, 11, 19})
        figures += PinCharacter(steps);
    EXPECT_EQ(figures, "2109ABJ");
}

TEST(PinStack, FlawsAreWhatCannotBeMade) {
    using Flaws = std::vector<PinFlaw>;
    EXPECT_EQ(FlawsOf(StackOf(3, 5)), Flaws());
    EXPECT_EQ(FlawsOf(StackOf(5, 5)), Flaws{PinFlaw::NoMasterPin});
    EXPECT_EQ(FlawsOf(PinStack{1, 1, 0, 1}), Flaws()) << "a chamber without control pin";
    EXPECT_EQ(FlawsOf(PinStack{1, 1, -1, 0}), (Flaws{PinFlaw::NoDriverPin, PinFlaw::NoControlPin}));
}

/// True when two pins of the chamber part at a height.
bool PartsAt(const std::vector<PlacedPin>& pins, double height) {
    for (std::size_t pin = 0; pin + 1 < pins.size(); ++pin)
        if (pins[pin].to == height && pins[pin + 1].from == height)
            return true;
    return false;
}

TEST(PlacedPins, PartAtTheShearLinesForTheKeysThatTurnThem) {
    for (int key = 0; key < 10; ++key)
        for (int master = 0; master < 10; ++master)
            for (int control = 0; control < 10; ++control) {
                const PinStack core = CoreStackOf(key, master, control);
                EXPECT_TRUE(PartsAt(PlacePins(core, key), 0));
                EXPECT_TRUE(PartsAt(PlacePins(core, master), 0));
                EXPECT_TRUE(PartsAt(PlacePins(core, control), kControlShearLine));
                EXPECT_TRUE(PartsAt(PlacePins(StackOf(key, master), key), 0));
            }
}

TEST(PlacedPins, LeaveOutWhatHasNoLength) {
    const auto pins = PlacePins(PinStack{2, 0, -1, 9}, 2);
    ASSERT_EQ(pins.size(), 2U);
    EXPECT_EQ(pins[0].kind, PlacedPin::Kind::Bottom);
    EXPECT_EQ(pins[1].kind, PlacedPin::Kind::Driver);
    EXPECT_EQ(pins[1].to - pins[1].from, 9);
}

} // namespace
} // namespace quorrel::test
