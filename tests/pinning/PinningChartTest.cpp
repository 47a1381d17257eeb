#include "pinning/PinningChart.h"
#include "pinning/PinSizes.h"
#include "pinning/PinText.h"
#include "support/Cylinders.h"
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
    ASSERT_EQ(chart.cylinder.stacks.size(), 4U);
    EXPECT_EQ(chart.cylinder.stacks[0], (PinStack{1, {8}, {}, {}}));
    EXPECT_EQ(chart.sizes[0].bottom, ".165");
    EXPECT_EQ(chart.sizes[0].master, ".120");
    EXPECT_EQ(chart.sizes[2].master, "") << "a size left empty shows empty";
    QStringList headings;
    for (const ChartLine& line : ChartLines(chart))
        headings += line.heading + u' ' + line.figures.join(u' ');
    EXPECT_EQ(headings,
              (QStringList{"Chamber 1 2 3 4", "Master Pins 8 2 0 2", "Size .120 .030  .030",
                           "Bottom Pins 1 1 3 7", "Size .165 .165 .195 .255"}));
}

TEST(PinningChart, SaysWhenTheBrandHasNoSizes) {
    TestProgram program;
    const auto notes = [&](const QString& brand) {
        PinningRequest request = Request("9157", "1339");
        request.lockBrand = brand;
        return ChartNotes(MakePinningChart(program.session, request)).join(u'|');
    };
    EXPECT_EQ(notes("Generic .015 inch steps"), "") << "a step of 0 has no size and needs none";
    EXPECT_EQ(notes(" "), "No pin sizes: this system has no lock brand.");
    EXPECT_TRUE(notes("Nobody's").startsWith("The lock brand Nobody's has no pin sizes."));
    PinSizes few;
    few.bottom[1] = ".165";
    SavePinSizes(program.session, FindOrAddLockBrand(program.session, "Few"), few);
    EXPECT_TRUE(notes("few").startsWith("The lock brand few lacks the sizes of some"));
}

TEST(PinningChart, WarnsOfThinPinsAndTakesOneCutAloneForANote) {
    TestProgram program;
    const auto chart = MakePinningChart(program.session, Request("2434", "1353"));
    EXPECT_EQ(ChartWarnings(chart),
              QStringList{"Chambers 1, 2 and 4: a master pin of one step. So thin a pin may tilt "
                          "and jam the cylinder."});
    EXPECT_EQ(ChartNotes(chart), QStringList());
    const auto shared = MakePinningChart(program.session, Request("9339", "1359"));
    EXPECT_EQ(ChartNotes(shared),
              QStringList{"Chambers 2 and 4: no master pin, one cut alone. The cylinder opens to "
                          "fewer keys of the system."});
    EXPECT_EQ(ChartWarnings(shared).size(), 1) << "the key is a master, no chamber is flagged";
    EXPECT_TRUE(ChartWarnings(shared)[0].startsWith("This Key is a Master Level Key!"));
}

TEST(PinningChart, WarnsOfAKeyThatDrawsTheCore) {
    TestProgram program;
    const auto warnings = [&](const char* control) {
        return ChartWarnings(MakePinningChart(program.session, Request("3571", "1359", control)));
    };
    EXPECT_EQ(warnings("3571"), QStringList{ControlKeyWarning()});
    EXPECT_EQ(warnings("3572"), QStringList());
    EXPECT_EQ(warnings(""), QStringList());
}

TEST(PinningChart, IsRefusedInPlainWordsWhereCutsAreBroken) {
    TestProgram program;
    for (const auto& request :
         {Request("35 1", "1359"), Request("3571", "135"), Request("3571", "1359", "12x4")})
        try {
            LoadPinningChart(program.session, request);
            ADD_FAILURE() << "A chart was made of " << request.key;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("cannot be read"), std::string::npos);
        }
}

TEST(PinningChart, IsToldInWordsFromTheEndThatCounts) {
    const QStringList plain = DescribeCylinder(CylinderOf("3571", "1351"));
    EXPECT_EQ(plain[0], "Cylinder of 4 chambers with the key 3571 in it, counted from its bow");
    EXPECT_EQ(plain[4], "Chamber 4: cut 1, bottom pin 1, no master pin");
    const QStringList core = DescribeCylinder(CrossKeyed("35", {"37", "589"}, "50"));
    EXPECT_EQ(core[0], "Cylinder of 2 chambers with the key 35 in it, counted from its tip");
    EXPECT_EQ(core[2], "Chamber 2: cut 5, bottom pin 5, master pins 3 and 1, control pin 1, "
                       "driver pin 13");
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
