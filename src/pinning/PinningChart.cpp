#include "pinning/PinningChart.h"

#include "pinning/PinSizes.h"
#include "platform/Text.h"

#include <QStringList>

namespace quorrel {

namespace {

int Digit(const std::string& cuts, std::size_t place) {
    return cuts.at(place) - '0';
}

PinStack StackAt(const PinningRequest& request, std::size_t chamber) {
    const int key = Digit(request.key, chamber);
    const int master = Digit(request.master, chamber);
    return request.IsCore() ? CoreStackOf(key, master, Digit(request.control, chamber))
                            : StackOf(key, master);
}

/// A blank, the point and three decimals, for what is less than 1.
QString TallSize(double size) {
    return Left(Str(size) + QStringLiteral("000"), 5);
}

QString DescribeFlaw(PinFlaw flaw) {
    switch (flaw) {
    case PinFlaw::NoMasterPin:
        return QStringLiteral("no master pin, the key shares the cut of the master key");
    case PinFlaw::NoDriverPin:
        return QStringLiteral("the driver pin is less than one step");
    case PinFlaw::NoControlPin:
        return QStringLiteral("the control pin is less than 0");
    }
    return {};
}

} // namespace

QString PinFigure(int steps) {
    return QString(QLatin1Char(PinCharacter(steps)));
}

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
    PinningChart chart;
    chart.request = request;
    const PinSizes sizes = FindPinSizes(session, request.lockBrand).value_or(PinSizes());
    for (std::size_t chamber = 0; chamber < request.key.size(); ++chamber) {
        const PinStack pins = StackAt(request, chamber);
        chart.chambers.push_back({pins,
                                  sizes.bottom.at(static_cast<std::size_t>(pins.bottom)).trimmed(),
                                  sizes.top.at(static_cast<std::size_t>(pins.master)).trimmed()});
    }
    if (request.IsCore())
        chart.tallPins = TallPins(sizes.top);
    return chart;
}

std::optional<PinningChart> LoadPinningChart(Session& session, const PinningRequest& request) {
    Boxes& boxes = session.boxes;
    const bool asked = IsMasterLevel(request);
    if (asked)
        boxes.Message(QStringLiteral(" This Key is a Master Level Key! You should not key a "
                                     "cylinder to this Pattern!"),
                      session.ProgramTitle, BoxButtons::OkCancel, BoxIcon::Question);
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

QStringList DescribeCylinder(const PinningChart& chart) {
    QStringList lines = {QStringLiteral("Cylinder of %1 chambers with the key %2 in it")
                             .arg(chart.chambers.size())
                             .arg(QString::fromStdString(chart.request.key))};
    for (std::size_t at = 0; at < chart.chambers.size(); ++at) {
        const PinStack& pins = chart.chambers[at].pins;
        QString line = QStringLiteral("Chamber %1: cut %2, bottom pin %3, master pin %4")
                           .arg(at + 1)
                           .arg(QLatin1Char(chart.request.key[at]))
                           .arg(pins.bottom)
                           .arg(pins.master);
        if (pins.control)
            line += QStringLiteral(", control pin %1, driver pin %2")
                        .arg(*pins.control)
                        .arg(*pins.driver);
        for (const PinFlaw flaw : FlawsOf(pins))
            line += QStringLiteral("; ") + DescribeFlaw(flaw);
        lines += line;
    }
    return lines;
}

QStringList DescribeFlaws(const PinningChart& chart) {
    QStringList lines;
    for (std::size_t at = 0; at < chart.chambers.size(); ++at)
        for (const PinFlaw flaw : FlawsOf(chart.chambers[at].pins))
            lines += QStringLiteral("Chamber %1: %2").arg(at + 1).arg(DescribeFlaw(flaw));
    return lines;
}

} // namespace quorrel
