#include "pinning/PinningChart.h"

#include "engine/SystemDefinition.h"
#include "pinning/PinSizes.h"
#include "pinning/PinText.h"
#include "platform/Text.h"

#include <stdexcept>

namespace quorrel {

namespace {

constexpr const char* kMasterLevelWarning =
    " This Key is a Master Level Key! You should not key a cylinder to this Pattern!";

int Digit(const std::string& cuts, std::size_t place) {
    return cuts.at(place) - '0';
}

/// What a broken file holds must not come to be a pin.
void CheckCuts(const PinningRequest& request) {
    const auto chambers = static_cast<int>(request.key.size());
    if (!IsDigits(request.key, chambers) || !IsDigits(request.master, chambers) ||
        (request.IsCore() && !IsDigits(request.control, chambers)))
        throw std::runtime_error("The cuts of this key, of the master key or of the control key "
                                 "cannot be read, so the cylinder cannot be worked out. The key "
                                 "file may be damaged.");
}

Cylinder CylinderFor(const PinningRequest& request) {
    Cylinder cylinder{request.key, {}, request.IsCore()};
    for (std::size_t chamber = 0; chamber < request.key.size(); ++chamber) {
        const int key = Digit(request.key, chamber);
        const int master = Digit(request.master, chamber);
        cylinder.stacks.push_back(request.IsCore()
                                      ? CoreStackOf(key, master, Digit(request.control, chamber))
                                      : StackOf(key, master));
    }
    return cylinder;
}

/// A blank, the point and three decimals, for what is less than 1.
QString TallSize(double size) {
    return Left(Str(size) + QStringLiteral("000"), 5);
}

/// What the chart has to say of sizes that it does not show.
QString SizesNote(const PinningChart& chart) {
    std::size_t pins = 0;
    std::size_t missing = 0;
    for (std::size_t chamber = 0; chamber < chart.sizes.size(); ++chamber) {
        const ChamberSizes& sizes = chart.sizes[chamber];
        const bool hasMaster = !chart.cylinder.stacks[chamber].wafers.empty();
        pins += hasMaster ? 2 : 1;
        missing += sizes.bottom.isEmpty() ? 1 : 0;
        missing += hasMaster && sizes.master.isEmpty() ? 1 : 0;
    }
    if (missing == 0)
        return {};
    const QString brand = chart.request.lockBrand.trimmed();
    if (brand.isEmpty())
        return QStringLiteral("No pin sizes: this system has no lock brand.");
    return (missing < pins ? QStringLiteral("The lock brand %1 lacks the sizes of some of these "
                                            "pins. They can be entered under Pin Sizes.")
                           : QStringLiteral("The lock brand %1 has no pin sizes. They can be "
                                            "entered under Pin Sizes."))
        .arg(brand);
}

} // namespace

bool IsMasterLevel(const PinningRequest& request) {
    for (std::size_t chamber = 0; chamber < request.key.size(); ++chamber)
        if (request.key[chamber] == request.master.at(chamber))
            return true;
    return false;
}

std::array<QString, 10> TallPins(const std::array<QString, 10>& topSizes) {
    const auto t = [&](std::size_t steps) { return Val(topSizes[steps]); };
    std::array<QString, 10> tall = {TallSize(t(8) + t(2)),
                                    TallSize(t(9) + t(2)),
                                    TallSize(t(8) + t(4)),
                                    TallSize(t(9) + t(4)),
                                    TallSize(t(8) + t(6)),
                                    TallSize(t(9) + t(6)),
                                    TallSize(t(8) + t(8)),
                                    TallSize(t(9) + t(8)),
                                    {},
                                    {}};
    tall[8] = TallSize(Val(tall[0]) + t(8));
    // On 12 and not on 11 steps: charts have always told the pin of 19 steps so.
    tall[9] = TallSize(Val(tall[2]) + t(8));
    return tall;
}

PinningChart MakePinningChart(Session& session, const PinningRequest& request) {
    CheckCuts(request);
    PinningChart chart{request, CylinderFor(request), {}, {}};
    const PinSizes sizes = FindPinSizes(session, request.lockBrand).value_or(PinSizes());
    for (const PinStack& stack : chart.cylinder.stacks)
        chart.sizes.push_back({sizes.bottom.at(static_cast<std::size_t>(stack.bottom)).trimmed(),
                               sizes.top.at(static_cast<std::size_t>(stack.Master())).trimmed()});
    if (request.IsCore())
        chart.tallPins = TallPins(sizes.top);
    return chart;
}

std::optional<PinningChart> LoadPinningChart(Session& session, const PinningRequest& request) {
    CheckCuts(request);
    Boxes& boxes = session.boxes;
    const bool asked = IsMasterLevel(request);
    if (asked)
        boxes.Message(QLatin1String(kMasterLevelWarning), session.ProgramTitle,
                      BoxButtons::OkCancel, BoxIcon::Question);
    if (boxes.LastAnswer() == BoxAnswer::Cancel) {
        // A Cancel from before would come as a surprise. This message ends it.
        if (!asked)
            boxes.Message(QStringLiteral("The last question was answered with Cancel, so no chart "
                                         "is shown. Click Pinning once more to see it."),
                          session.ProgramTitle, BoxButtons::Ok, BoxIcon::Information);
        return std::nullopt;
    }
    return MakePinningChart(session, request);
}

std::vector<ChartLine> ChartLines(const PinningChart& chart) {
    QStringList numbers, driver, control, master, masterSizes, bottom, bottomSizes;
    for (const PinStack& stack : chart.cylinder.stacks) {
        numbers += QString::number(numbers.size() + 1);
        driver += PinFigure(stack.driver.value_or(0));
        control += PinFigure(stack.control.value_or(0));
        master += QString::number(stack.Master());
        bottom += QString::number(stack.bottom);
    }
    for (const ChamberSizes& sizes : chart.sizes) {
        masterSizes += sizes.master;
        bottomSizes += sizes.bottom;
    }
    const auto text = [](const char* heading) { return QLatin1String(heading); };
    std::vector<ChartLine> lines = {{text("Chamber"), text("lblChamber"), false, numbers}};
    if (chart.cylinder.core) {
        lines.push_back({text("Driver Pins"), text("lblDrivePins"), false, driver});
        lines.push_back({text("Control Pins"), text("lblControlPins"), false, control});
    }
    lines.push_back({text("Master Pins"), text("lblTopPins"), false, master});
    lines.push_back({text("Size"), text("lblTop"), true, masterSizes});
    lines.push_back({text("Bottom Pins"), text("lblBottomPins"), false, bottom});
    lines.push_back({text("Size"), text("lblBot"), true, bottomSizes});
    return lines;
}

QString ControlKeyWarning() {
    return QStringLiteral("This key has the cuts of the control key: whoever holds it can draw "
                          "every core of the system.");
}

QStringList ChartWarnings(const PinningChart& chart) {
    QStringList lines;
    if (IsControlKeysCuts(chart.request.key, chart.request.control))
        lines += ControlKeyWarning();
    if (IsMasterLevel(chart.request))
        lines += QLatin1String(kMasterLevelWarning).trimmed();
    return lines + DescribeFlaws(chart.cylinder);
}

QStringList ChartNotes(const PinningChart& chart) {
    QStringList lines = DescribeNotes(chart.cylinder);
    if (const QString note = SizesNote(chart); !note.isEmpty())
        lines += note;
    return lines;
}

} // namespace quorrel
