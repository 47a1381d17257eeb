#include "pinning/PinLayout.h"
#include "engine/Patterns.h"
#include "support/Cylinders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace quorrel::test {
namespace {

using Kind = PlacedFigure::Kind;

std::string Told(const Cylinder& cylinder) {
    std::ostringstream told;
    told << (cylinder.core ? "core" : "cylinder") << " with " << cylinder.key << " in it:";
    for (const PinStack& stack : cylinder.stacks) {
        told << ' ' << stack.bottom;
        for (const int wafer : stack.wafers)
            told << '+' << wafer;
    }
    return told.str();
}

LayoutBox BoxOf(const PinLayout& layout, const PlacedFigure& figure) {
    const PlacedPin& pin = layout.pins[figure.chamber][figure.pin];
    const double middle = layout.middles[figure.chamber];
    return {middle - kPinWidth / 2, middle + kPinWidth / 2, pin.from, pin.to};
}

bool Within(const LayoutBox& inner, const LayoutBox& outer) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.low >= outer.low &&
           inner.high <= outer.high;
}

/// No figure is struck by a shear line or by another figure; each stands in its pin, or clear of
/// all pins; and every pin that has a figure shows it once.
void ExpectReadable(const Cylinder& cylinder) {
    SCOPED_TRACE(Told(cylinder));
    const PinLayout layout = LayOutPins(cylinder);
    const LayoutBox whole{0, layout.width, layout.low, layout.high};
    std::vector<std::string> shown(cylinder.stacks.size());
    for (std::size_t at = 0; at < layout.figures.size(); ++at) {
        const PlacedFigure& figure = layout.figures[at];
        EXPECT_TRUE(Within(figure.box, whole));
        for (const double line : layout.shearLines)
            EXPECT_FALSE(figure.box.Meets(
                {0, layout.width, line - kHalfShearStroke, line + kHalfShearStroke}))
                << figure.text << " in chamber " << figure.chamber + 1 << " is struck";
        for (std::size_t other = 0; other < at; ++other)
            EXPECT_FALSE(figure.box.Meets(layout.figures[other].box))
                << figure.text << " on " << layout.figures[other].text;
        if (figure.kind == Kind::InPin || figure.kind == Kind::BesidePin)
            shown[figure.chamber] += figure.text;
        if (figure.kind == Kind::InPin) {
            EXPECT_TRUE(Within(figure.box, BoxOf(layout, figure)));
        }
        if (figure.kind != Kind::BesidePin)
            continue;
        for (const double middle : layout.middles)
            EXPECT_FALSE(figure.box.Meets(
                {middle - kPinWidth / 2, middle + kPinWidth / 2, layout.low, layout.high}));
    }
    for (std::size_t chamber = 0; chamber < shown.size(); ++chamber) {
        const PinStack& stack = cylinder.stacks[chamber];
        std::string figures(1, PinCharacter(stack.bottom));
        for (const int wafer : stack.wafers)
            figures += PinCharacter(wafer);
        if (cylinder.core) {
            figures += PinCharacter(*stack.control);
            figures += PinCharacter(*stack.driver);
        }
        EXPECT_EQ(shown[chamber], figures) << "chamber " << chamber + 1;
    }
}

TEST(PinLayout, StrikesNoFigureOfAWholeSystem) {
    int keys = 0;
    GeneratePatterns({"31524", 5, 1, 5, 1, 9}, SystemType::Standard, "", [&](const Pattern& key) {
        if (key.master)
            return;
        ++keys;
        const std::string cuts = key.text.substr(0, 5);
        ExpectReadable(CylinderOf(cuts, "31524"));
        for (const char* control : {"24135", "90817", "00000"})
            ExpectReadable(CylinderOf(cuts, "31524", control));
    });
    EXPECT_EQ(keys, 1024);
}

TEST(PinLayout, StrikesNoFigureOfAnyTwoCutsAndControl) {
    for (int key = 0; key < 10; ++key)
        for (int control = 0; control < 10; ++control) {
            const std::string keys(7, static_cast<char>('0' + key));
            ExpectReadable(
                CylinderOf(keys, "0123456", std::string(7, static_cast<char>('0' + control))));
            ExpectReadable(CylinderOf(keys.substr(3), "6789"));
        }
}

TEST(PinLayout, StrikesNoFigureOfManyWafers) {
    std::mt19937 random(20260315);
    for (int drawing = 0; drawing < 500; ++drawing) {
        std::vector<std::string> cuts(4 + random() % 4);
        std::string key;
        std::string control;
        for (std::string& chamber : cuts) {
            std::string all = "0123456789";
            std::shuffle(all.begin(), all.end(), random);
            chamber = all.substr(0, 1 + random() % 6);
            key += chamber[random() % chamber.size()];
            control += static_cast<char>('0' + random() % 10);
            std::sort(chamber.begin(), chamber.end());
        }
        ExpectReadable(CrossKeyed(key, cuts));
        ExpectReadable(CrossKeyed(key, cuts, control));
    }
}

TEST(PinLayout, PutsAFigureBesideItsPinOnlyWhereThePinIsTooLow) {
    const PinLayout layout = LayOutPins(CylinderOf("3579", "2715"));
    std::string kinds;
    for (const PlacedFigure& figure : layout.figures)
        if (figure.kind != Kind::Chamber && figure.kind != Kind::Cut)
            kinds += figure.text + (figure.kind == Kind::InPin ? " " : "b ");
    EXPECT_EQ(kinds, "2 1b 5 2b 1 6 5 4 ");
}

TEST(PinLayout, KeepsAFigureOnItsPinsSideOfTheShearLine) {
    // The chamber opens to 4 and 5: with 4 in it the thin wafer is over the line, with 5 below.
    for (const char* key : {"4444", "5555"}) {
        const PinLayout layout = LayOutPins(CrossKeyed(key, {"45", "45", "45", "45"}));
        for (const PlacedFigure& figure : layout.figures) {
            if (figure.kind == Kind::BesidePin) {
                EXPECT_EQ(figure.box.low > 0, key[0] == '4');
            }
        }
    }
}

TEST(PinLayout, LeavesRoomForTheBowOnTheRightOfACore) {
    const PinLayout plain = LayOutPins(CylinderOf("3571624", "3951724"));
    EXPECT_GE(plain.left, kBowRoom);
    EXPECT_GE(plain.width - plain.right, kTipRoom);
    const PinLayout core = LayOutPins(CylinderOf("3571624", "3951724", "5273940"));
    EXPECT_GE(core.left, kTipRoom);
    EXPECT_GE(core.width - core.right, kBowRoom);
    EXPECT_LT(core.middles.front(), core.middles.back()) << "chamber 1 stays on the left";
    EXPECT_EQ(core.shearLines.size(), 2U);
}

} // namespace
} // namespace quorrel::test
