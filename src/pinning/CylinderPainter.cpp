#include "pinning/CylinderPainter.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>

namespace quorrel {

namespace {

// All lengths are steps of the cut depth; heights count up from the operating shear line.
constexpr double kPitch = 7; ///< from chamber to chamber
constexpr double kPinWidth = 4.2;
constexpr double kBow = 9;       ///< room for the key's bow on the left
constexpr double kLabels = 26;   ///< room for the words on the right
constexpr double kBlade = -17;   ///< the blade's lower edge
constexpr double kShoulder = -3; ///< the blade before it is cut
constexpr double kSpring = 4;
constexpr double kFootRoom = 3.5; ///< for the cuts under the blade
constexpr double kHeadRoom = 3.5; ///< for the chambers' numbers
constexpr double kLetters = 2.1;

struct PinLook {
    const char* name;
    QColor colour;
};

/// Colours that carry white letters and stand off from a light and from a dark window.
PinLook LookOf(PlacedPin::Kind kind) {
    switch (kind) {
    case PlacedPin::Kind::Bottom:
        return {QT_TRANSLATE_NOOP("Cylinder", "Bottom pin"), QColor(0x1f, 0x7a, 0x45)};
    case PlacedPin::Kind::Master:
        return {QT_TRANSLATE_NOOP("Cylinder", "Master pin"), QColor(0x24, 0x58, 0xb3)};
    case PlacedPin::Kind::Control:
        return {QT_TRANSLATE_NOOP("Cylinder", "Control pin"), QColor(0x0b, 0x72, 0x85)};
    case PlacedPin::Kind::Driver:
        break;
    }
    return {QT_TRANSLATE_NOOP("Cylinder", "Driver pin"), QColor(0x8a, 0x3a, 0x7d)};
}

class CylinderPainter {
public:
    CylinderPainter(QPainter& painter, const QRectF& bounds, const PinningChart& chart,
                    const CylinderLook& look)
        : m_painter(painter), m_chart(chart), m_look(look),
          m_count(static_cast<int>(chart.chambers.size())) {
        for (int chamber = 0; chamber < m_count; ++chamber)
            m_pins.push_back(PlacePins(Pins(chamber), Cut(chamber)));
        for (const auto& pins : m_pins)
            m_top = std::max(m_top, pins.back().to);
        m_top += kSpring;
        const double width = kBow + m_count * kPitch + kLabels;
        const double height = m_top + kHeadRoom - kBlade + kFootRoom;
        m_scale = std::min(bounds.width() / width, bounds.height() / height);
        m_origin =
            QPointF(bounds.center().x() - width * m_scale / 2,
                    bounds.center().y() - height * m_scale / 2 + (m_top + kHeadRoom) * m_scale);
    }

    void Paint() {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
        PaintBody();
        PaintKey();
        for (int chamber = 0; chamber < m_count; ++chamber)
            PaintChamber(chamber);
        PaintShearLine(0, QCoreApplication::translate("Cylinder", "Shear line"), Qt::SolidLine);
        if (m_chart.request.IsCore())
            PaintShearLine(kControlShearLine,
                           QCoreApplication::translate("Cylinder", "Control shear line"),
                           Qt::DashLine);
        PaintLegend();
        m_painter.restore();
    }

private:
    const PinStack& Pins(int chamber) const {
        return m_chart.chambers[static_cast<std::size_t>(chamber)].pins;
    }
    int Cut(int chamber) const {
        return m_chart.request.key.at(static_cast<std::size_t>(chamber)) - '0';
    }
    static double Middle(int chamber) { return kBow + (chamber + 0.5) * kPitch; }
    double Right() const { return kBow + m_count * kPitch; }

    QPointF At(double x, double height) const { return m_origin + QPointF(x, -height) * m_scale; }
    QRectF Box(double left, double right, double low, double high) const {
        return {At(left, high), At(right, low)};
    }
    QPen Pen(const QColor& colour, double width, Qt::PenStyle style = Qt::SolidLine) const {
        return {colour, width * m_scale, style, Qt::FlatCap, Qt::RoundJoin};
    }

    void Write(const QRectF& box, int flags, const QString& text, const QColor& colour,
               bool bold = false) {
        QFont font = m_painter.font();
        font.setPixelSize(std::max(1, static_cast<int>(kLetters * m_scale + 0.5)));
        font.setBold(bold);
        m_painter.setFont(font);
        m_painter.setPen(colour);
        m_painter.drawText(box, flags | Qt::TextDontClip, text);
    }

    void PaintBody() {
        m_painter.setPen(Pen(m_look.ink, 0.15));
        m_painter.setBrush(m_look.housing);
        m_painter.drawRect(Box(kBow, Right(), 0, m_top));
        m_painter.setBrush(m_look.plug);
        // A core's sleeve turns with the control key.
        if (m_chart.request.IsCore())
            m_painter.drawRect(Box(kBow, Right(), 0, kControlShearLine));
        m_painter.drawRect(Box(kBow, Right(), kBlade - 1, 0));
    }

    void PaintKey() {
        QPolygonF blade;
        blade << At(kBow - 1, kBlade) << At(kBow - 1, kShoulder) << At(kBow + 0.8, kShoulder);
        for (int chamber = 0; chamber < m_count; ++chamber)
            for (const double side : {-1.1, 1.1})
                blade << At(Middle(chamber) + side, -Cut(chamber) - kBottomPinBase);
        blade << At(Right() - 0.6, kShoulder - 2) << At(Right() + 3, kBlade + 3)
              << At(Right() + 1, kBlade);
        QPainterPath key;
        key.addPolygon(blade);
        key.closeSubpath();
        QPainterPath bow;
        bow.addRoundedRect(Box(0.3, kBow - 1, kBlade - 2, kShoulder + 3), 2.5 * m_scale,
                           2.5 * m_scale);
        bow.addEllipse(At(3, (kBlade + kShoulder) / 2), 1.3 * m_scale, 1.3 * m_scale);
        m_painter.setPen(Pen(m_look.ink, 0.18));
        m_painter.setBrush(QColor(0xd4, 0xb0, 0x55));
        m_painter.drawPath(bow);
        m_painter.drawPath(key);
    }

    void PaintChamber(int chamber) {
        const double middle = Middle(chamber);
        const auto& pins = m_pins[static_cast<std::size_t>(chamber)];
        const double side = kPinWidth / 2 + 0.25;
        m_painter.setPen(Pen(m_look.ink, 0.12));
        m_painter.setBrush(m_look.paper);
        QPolygonF bore;
        const double foot = pins.front().from;
        bore << At(middle - 1.1, foot) << At(middle - side, foot + 1.8) << At(middle - side, m_top)
             << At(middle + side, m_top) << At(middle + side, foot + 1.8) << At(middle + 1.1, foot);
        m_painter.drawPolygon(bore);
        PaintSpring(middle, pins.back().to);
        for (const PlacedPin& pin : pins)
            PaintPin(middle, pin);
        const bool flawed = !FlawsOf(Pins(chamber)).empty();
        if (flawed) {
            m_painter.setPen(Pen(m_look.shear, 0.4, Qt::DashLine));
            m_painter.setBrush(Qt::NoBrush);
            m_painter.drawRect(
                Box(middle - side - 0.7, middle + side + 0.7, foot - 0.7, m_top + 0.4));
        }
        Write(Box(middle - kPitch / 2, middle + kPitch / 2, m_top + 0.5, m_top + kHeadRoom),
              Qt::AlignCenter, QString::number(chamber + 1) + (flawed ? QStringLiteral(" !") : ""),
              flawed ? m_look.shear : m_look.ink, flawed);
        Write(Box(middle - kPitch / 2, middle + kPitch / 2, kBlade - kFootRoom, kBlade - 1.2),
              Qt::AlignCenter, QString::number(Cut(chamber)), m_look.ink, true);
    }

    void PaintSpring(double middle, double from) {
        constexpr int turns = 6;
        QPolygonF spring;
        for (int turn = 0; turn <= turns; ++turn)
            spring << At(middle + (turn % 2 ? 1.4 : -1.4), from + (m_top - from) * turn / turns);
        m_painter.setPen(Pen(m_look.ink, 0.2));
        m_painter.drawPolyline(spring);
    }

    void PaintPin(double middle, const PlacedPin& pin) {
        const double side = kPinWidth / 2;
        const double cone = pin.kind == PlacedPin::Kind::Bottom ? 1.8 : 0;
        QPolygonF shape;
        shape << At(middle - side, pin.to) << At(middle + side, pin.to)
              << At(middle + side, pin.from + cone)
              << At(middle + (cone > 0 ? 1.1 : side), pin.from)
              << At(middle - (cone > 0 ? 1.1 : side), pin.from)
              << At(middle - side, pin.from + cone);
        m_painter.setPen(Pen(m_look.ink, 0.15));
        m_painter.setBrush(LookOf(pin.kind).colour);
        m_painter.drawPolygon(shape);
        if (pin.steps < 0)
            return;
        const QString figure =
            pin.kind == PlacedPin::Kind::Bottom || pin.kind == PlacedPin::Kind::Master
                ? QString::number(pin.steps)
                : PinFigure(pin.steps);
        // What is too low for its figure has it beside.
        if (pin.to - pin.from < kLetters)
            Write(Box(middle + side + 0.4, middle + kPitch / 2, pin.from - 1, pin.to + 1),
                  Qt::AlignLeft | Qt::AlignVCenter, figure, m_look.ink, true);
        else
            Write(Box(middle - side, middle + side, pin.from, pin.to), Qt::AlignCenter, figure,
                  Qt::white, true);
    }

    void PaintShearLine(double height, const QString& name, Qt::PenStyle style) {
        m_painter.setPen(Pen(m_look.shear, 0.35, style));
        m_painter.drawLine(At(kBow - 1.5, height), At(Right() + 1.5, height));
        Write(Box(Right() + 2.2, Right() + kLabels, height - 1.5, height + 1.5),
              Qt::AlignLeft | Qt::AlignVCenter, name, m_look.shear, true);
    }

    void PaintLegend() {
        double height = kBlade + 9;
        const double left = Right() + 4.5;
        std::vector<PlacedPin::Kind> kinds = {PlacedPin::Kind::Master, PlacedPin::Kind::Bottom};
        if (m_chart.request.IsCore())
            kinds.insert(kinds.begin(), PlacedPin::Kind::Control);
        kinds.insert(kinds.begin(), PlacedPin::Kind::Driver);
        height += 3 * (static_cast<double>(kinds.size()) - 3);
        for (const PlacedPin::Kind kind : kinds) {
            const PinLook look = LookOf(kind);
            m_painter.setPen(Pen(m_look.ink, 0.15));
            m_painter.setBrush(look.colour);
            m_painter.drawRect(Box(left, left + 2, height - 1, height + 1));
            Write(Box(left + 3, left + kLabels - 5, height - 1.5, height + 1.5),
                  Qt::AlignLeft | Qt::AlignVCenter,
                  QCoreApplication::translate("Cylinder", look.name), m_look.ink);
            height -= 3;
        }
    }

    QPainter& m_painter;
    const PinningChart& m_chart;
    const CylinderLook& m_look;
    int m_count;
    std::vector<std::vector<PlacedPin>> m_pins;
    double m_top = 0;   ///< of the chambers
    double m_scale = 1; ///< of the device's units to a step
    QPointF m_origin;   ///< where the shear line begins
};

} // namespace

CylinderLook PaperLook() {
    return {Qt::black, Qt::white, QColor(0xf3, 0xea, 0xd2), QColor(0xe2, 0xe5, 0xea),
            QColor(0xc0, 0x10, 0x10)};
}

void PaintCylinder(QPainter& painter, const QRectF& bounds, const PinningChart& chart,
                   const CylinderLook& look) {
    if (!chart.chambers.empty())
        CylinderPainter(painter, bounds, chart, look).Paint();
}

} // namespace quorrel
