#include "pinning/PinningChart.h"
#include "pinning/PinSizes.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

PinningRequest Request(const std::string& key, const std::string& master,
                       const std::string& control = {}) {
    PinningRequest request;
    request.lockBrand = "GENERIC .015 inch steps";
    request.key = key;
    request.master = master;
    request.control = control;
    return request;
}

TEST(PinningChart, TakesSizesFromTheBrandsTable) {
    TestProgram program;
    const auto chart = MakePinningChart(program.session, Request("9137", "1339"));
    ASSERT_EQ(chart.chambers.size(), 4U);
    EXPECT_EQ(chart.chambers[0].pins, (PinStack{1, 8, {}, {}}));
    EXPECT_EQ(chart.chambers[0].bottomSize, ".165");
    EXPECT_EQ(chart.chambers[0].masterSize, ".120");
    EXPECT_EQ(chart.chambers[2].masterSize, "") << "a size left empty shows empty";
    EXPECT_EQ(DescribeFlaws(chart).size(), 1);
    EXPECT_TRUE(
        DescribeCylinder(chart)[3].contains("Chamber 3: cut 3, bottom pin 3, master pin 0"));
    PinningRequest unknown = Request("9137", "1359");
    unknown.lockBrand = "Nobody's";
    EXPECT_EQ(MakePinningChart(program.session, unknown).chambers[0].bottomSize, "");
}

TEST(PinningChart, TellsTallPinsAsABlankThePointAndThreeDecimals) {
    std::array<QString, 10> sizes;
    for (int step = 0; step < 10; ++step)
        sizes[static_cast<std::size_t>(step)] =
            QStringLiteral(".%1").arg(step * 15, 3, 10, QLatin1Char('0'));
    EXPECT_EQ(TallPins(sizes),
              (std::array<QString, 10>{" .150", " .165", " .180", " .195", " .210", " .225",
                                       " .240", " .255", " .270", " .300"}));
    sizes[8] = "1.25";
    sizes[2] = "junk";
    sizes[4] = "";
    EXPECT_EQ(TallPins(sizes)[0], " 1.25");
    EXPECT_EQ(TallPins({})[3], " 0000");
}

TEST(PinningChart, AsksBeforeAMasterLevelKeyAndHeedsTheLastAnswer) {
    TestProgram program;
    const PinningRequest change = Request("3571", "1359");
    const PinningRequest master = Request("3379", "1359");
    EXPECT_TRUE(LoadPinningChart(program.session, change)) << "no box has been answered yet";
    program.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Ok);
    EXPECT_TRUE(LoadPinningChart(program.session, master));
    program.boxes.Expect("This Key is a Master Level Key!", BoxAnswer::Cancel);
    EXPECT_FALSE(LoadPinningChart(program.session, master));
    EXPECT_EQ(program.boxes.Last().buttons, BoxButtons::OkCancel);
    program.boxes.Expect("answered with Cancel");
    EXPECT_FALSE(LoadPinningChart(program.session, change)) << "the answer to another box counts";
    EXPECT_TRUE(LoadPinningChart(program.session, change));
}

} // namespace
} // namespace quorrel::test
