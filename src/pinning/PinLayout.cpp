#include "pinning/PinLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorrel {

namespace {

/// What a figure keeps from a shear line.
constexpr double kClear = kHalfShearStroke + 0.15;
/// The lowest part of a bottom pin is its tip, too narrow for a figure.
constexpr double kTip = 0.6;
/// From a pin to the figure beside it, and from there to the next chamber.
constexpr double kLeader = 0.6;
constexpr double kPitchGap = 0.4;
/// From the sides of the body to the outermost chambers.
constexpr double kWall = 1.2;
/// Between figures beside the same chamber.
constexpr double kFigureGap = 0.1;
constexpr double kBesideRoom = kLeader + kFigureWidth;
/// Narrowest drawing that has room for the words under it.
constexpr double kLeastWidth = 62;

/// The figure of a pin that finds no room in it.
struct BesideFigure {
    std::size_t pin;
    double wanted; ///< the middle of the pin
    double middle; ///< where the figure comes to stand
    bool onLeft;
};

/// The longest part of a pin that no shear line passes.
std::pair<double, double> ClearPartOf(const PlacedPin& pin, const std::vector<double>& lines) {
    double from = pin.from + (pin.kind == PlacedPin::Kind::Bottom ? kTip : 0);
    std::pair<double, double> longest{from, from};
    const auto take = [&](double to) {
        if (to - from > longest.second - longest.first)
            longest = {from, to};
    };
    for (const double line : lines) {
        if (line + kClear <= from || line - kClear >= pin.to)
            continue;
        take(line - kClear);
        from = line + kClear;
    }
    take(pin.to);
    return longest;
}

std::size_t BandOf(double height, const std::vector<double>& lines) {
    return static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.end(), [&](double line) { return line < height; }));
}

/// The lowest middle from `least` on at which a figure keeps clear of the shear lines.
double ClearMiddle(double least, const std::vector<double>& lines) {
    constexpr double reach = kFigureHeight / 2 + kClear;
    for (const double line : lines)
        if (std::abs(least - line) < reach)
            least = line + reach;
    return least;
}

/// Stacks the figures of each side upwards, each as near to its pin as the ones below it and the
/// shear lines allow, the lowest beginning `lowered` under its pin. The result tells how far they
/// stand from their pins; a figure on the other side of a shear line than its pin, or one on the
/// left, which takes a wider drawing, counts more.
double StackFigures(std::vector<BesideFigure>& figures, double lowered,
                    const std::vector<double>& lines) {
    double next[2] = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
    double cost = 0;
    for (BesideFigure& figure : figures) {
        double& least = next[figure.onLeft ? 1 : 0];
        const bool lowest = least == std::numeric_limits<double>::lowest();
        figure.middle = ClearMiddle(std::max(least, figure.wanted - (lowest ? lowered : 0)), lines);
        least = figure.middle + kFigureHeight + kFigureGap;
        cost += std::abs(figure.middle - figure.wanted) + (figure.onLeft ? 2 : 0) +
                (BandOf(figure.middle, lines) == BandOf(figure.wanted, lines) ? 0 : 20);
    }
    return cost;
}

/// Finds the places for what stands beside the pins of a chamber, of few figures the best ones by
/// trying all.
void PlaceBeside(std::vector<BesideFigure>& figures, const std::vector<double>& lines) {
    constexpr std::size_t kTriedSides = 6; ///< figures whose side is tried; any more go right
    std::vector<BesideFigure> best = figures;
    double least = std::numeric_limits<double>::max();
    for (std::size_t sides = 0; sides < 1U << std::min(figures.size(), kTriedSides); ++sides) {
        for (std::size_t at = 0; at < std::min(figures.size(), kTriedSides); ++at)
            figures[at].onLeft = (sides >> at & 1U) != 0;
        for (int quarters = 0; quarters <= 24; ++quarters) {
            const double cost = StackFigures(figures, quarters / 4.0, lines);
            if (cost < least - 1e-9) {
                least = cost;
                best = figures;
            }
        }
    }
    figures = best;
}

class LayoutMaker {
public:
    explicit LayoutMaker(const Cylinder& cylinder) : m_cylinder(cylinder) {
        m_layout.shearLines = {0};
        if (cylinder.core)
            m_layout.shearLines.push_back(kControlShearLine);
        for (std::size_t chamber = 0; chamber < cylinder.stacks.size(); ++chamber) {
            m_layout.pins.push_back(PlacePins(cylinder.stacks[chamber], Cut(chamber)));
            m_layout.top = std::max(m_layout.top, m_layout.pins.back().back().to);
            m_beside.push_back(FiguresBeside(m_layout.pins.back()));
        }
    }

    PinLayout Make() {
        PlaceBody();
        for (std::size_t chamber = 0; chamber < m_layout.pins.size(); ++chamber)
            PlaceFigures(chamber);
        return std::move(m_layout);
    }

private:
    int Cut(std::size_t chamber) const { return m_cylinder.key.at(chamber) - '0'; }

    std::vector<BesideFigure> FiguresBeside(const std::vector<PlacedPin>& pins) const {
        std::vector<BesideFigure> beside;
        for (std::size_t pin = 0; pin < pins.size(); ++pin) {
            const auto [from, to] = ClearPartOf(pins[pin], m_layout.shearLines);
            if (pins[pin].steps >= 0 && to - from < kFigureHeight)
                beside.push_back({pin, (pins[pin].from + pins[pin].to) / 2, 0, false});
        }
        PlaceBeside(beside, m_layout.shearLines);
        return beside;
    }

    void PlaceBody() {
        const bool anyOnLeft =
            std::any_of(m_beside.begin(), m_beside.end(), [](const auto& beside) {
                return std::any_of(beside.begin(), beside.end(),
                                   [](const BesideFigure& figure) { return figure.onLeft; });
            });
        const double onLeft = anyOnLeft ? kBesideRoom : 0;
        const double pitch = kPitchGap + onLeft + kPinWidth + kBesideRoom;
        const double body =
            2 * kWall - kPitchGap + pitch * static_cast<double>(m_layout.pins.size());
        m_layout.width = std::max(kLeastWidth, kBowRoom + body + kTipRoom);
        const double spare = m_layout.width - kBowRoom - body - kTipRoom;
        m_layout.left = spare / 2 + (m_cylinder.core ? kTipRoom : kBowRoom);
        m_layout.right = m_layout.left + body;
        m_layout.top += kSpring;
        m_layout.high = m_layout.top + 2 * kRow + 0.5;
        m_layout.low = kBladeEdge - 1.5 - 2 * kRow;
        for (std::size_t chamber = 0; chamber < m_layout.pins.size(); ++chamber)
            m_layout.middles.push_back(m_layout.left + kWall + onLeft + kPinWidth / 2 +
                                       pitch * static_cast<double>(chamber));
    }

    void PlaceFigures(std::size_t chamber) {
        using Kind = PlacedFigure::Kind;
        const double middle = m_layout.middles[chamber];
        Add(Kind::Chamber, chamber, 0, std::to_string(chamber + 1), middle,
            m_layout.top + 0.3 + kRow / 2);
        Add(Kind::Cut, chamber, 0, std::to_string(Cut(chamber)), middle,
            kBladeEdge - 1.3 - kRow / 2);
        const auto& pins = m_layout.pins[chamber];
        const auto& beside = m_beside[chamber];
        for (std::size_t pin = 0; pin < pins.size(); ++pin) {
            if (pins[pin].steps < 0)
                continue;
            const std::string text(1, PinCharacter(pins[pin].steps));
            const auto found = std::find_if(beside.begin(), beside.end(),
                                            [&](const auto& figure) { return figure.pin == pin; });
            if (found == beside.end()) {
                const auto [from, to] = ClearPartOf(pins[pin], m_layout.shearLines);
                Add(Kind::InPin, chamber, pin, text, middle, (from + to) / 2);
            } else {
                constexpr double aside = kPinWidth / 2 + kLeader + kFigureWidth / 2;
                Add(Kind::BesidePin, chamber, pin, text,
                    found->onLeft ? middle - aside : middle + aside, found->middle);
            }
        }
    }

    void Add(PlacedFigure::Kind kind, std::size_t chamber, std::size_t pin, std::string text,
             double x, double height) {
        const double width = kind == PlacedFigure::Kind::InPin ? kFigureInPinWidth : kFigureWidth;
        m_layout.figures.push_back({kind,
                                    chamber,
                                    pin,
                                    std::move(text),
                                    {x - width / 2, x + width / 2, height - kFigureHeight / 2,
                                     height + kFigureHeight / 2}});
    }

    const Cylinder& m_cylinder;
    PinLayout m_layout;
    std::vector<std::vector<BesideFigure>> m_beside; ///< of each chamber
};

} // namespace

PinLayout LayOutPins(const Cylinder& cylinder) {
    return LayoutMaker(cylinder).Make();
}

} // namespace quorrel
