#include "pinning/CylinderPainter.h"

#include "pinning/PinText.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace quorrel {

namespace {

// All lengths are steps of the cut depth, as in the layout.
constexpr double kShoulder = -3; ///< the blade before it is cut
constexpr double kBoreGap = 0.25;
constexpr double kCone = 1.8;     ///< height of a bottom pin's tip, which is
constexpr double kHalfCone = 1.1; ///< this wide at its end, to each side
constexpr double kWords = 2;      ///< size of words
constexpr double kFigure = 2.2;   ///< height of a figure itself

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

QString Tr(const char* text) {
    return QCoreApplication::translate("Cylinder", text);
}

class CylinderPainter {
public:
    CylinderPainter(QPainter& painter, const QRectF& bounds, const Cylinder& cylinder,
                    const CylinderLook& look)
        : m_painter(painter), m_cylinder(cylinder), m_look(look), m_layout(LayOutPins(cylinder)),
          m_map(FitLayout(m_layout, bounds)), m_scale(m_map.m11()), m_words(painter.font()),
          m_figures(painter.font()) {
        m_words.setPixelSize(std::max(1, qRound(kWords * m_scale)));
        m_figures.setBold(true);
        m_figures.setHintingPreference(QFont::PreferNoHinting);
        m_figures.setPixelSize(100);
        const QRectF zero = QFontMetricsF(m_figures).tightBoundingRect(QStringLiteral("0"));
        const double fits =
            std::min(kFigure / zero.height(), (kFigureWidth - 0.2) / zero.width()) * m_scale;
        m_figures.setPixelSize(std::max(1, static_cast<int>(100 * fits)));
    }

    void Paint() {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
        PaintBody();
        PaintKey();
        for (std::size_t chamber = 0; chamber < m_layout.pins.size(); ++chamber)
            PaintChamber(chamber);
        PaintShearLine(0, Tr("Shear line"), Qt::SolidLine);
        if (m_cylinder.core)
            PaintShearLine(kControlShearLine, Tr("Control\nshear line"), Qt::DashLine);
        PaintDirection();
        PaintLegend();
        for (const PlacedFigure& figure : m_layout.figures)
            PaintFigure(figure);
        m_painter.restore();
    }

private:
    QPointF At(double x, double height) const { return m_map.map(QPointF(x, height)); }
    QRectF Box(double left, double right, double low, double high) const {
        return {At(left, high), At(right, low)};
    }
    QPen Pen(const QColor& colour, double width, Qt::PenStyle style = Qt::SolidLine) const {
        return {colour, width * m_scale, style, Qt::FlatCap, Qt::RoundJoin};
    }
    bool IsThin(std::size_t chamber) const { return m_cylinder.stacks[chamber].HasThinWafer(); }

    /// Writes words as large as they all are, or smaller where they would not fit into the box.
    void Write(const QRectF& box, int flags, const QString& text, const QColor& colour,
               bool bold = false) {
        QFont font = m_words;
        font.setBold(bold);
        const double width = QFontMetricsF(font).size(0, text).width();
        if (width > box.width())
            font.setPixelSize(
                std::max(1, static_cast<int>(font.pixelSize() * box.width() / width)));
        m_painter.setFont(font);
        m_painter.setPen(colour);
        m_painter.drawText(box, flags | Qt::AlignVCenter | Qt::TextDontClip, text);
    }

    void PaintBody() {
        m_painter.setPen(Pen(m_look.ink, 0.15));
        m_painter.setBrush(m_look.housing);
        m_painter.drawRect(Box(m_layout.left, m_layout.right, 0, m_layout.top));
        m_painter.setBrush(m_look.plug);
        // A core's sleeve turns with the control key.
        if (m_cylinder.core)
            m_painter.drawRect(Box(m_layout.left, m_layout.right, 0, kControlShearLine));
        m_painter.drawRect(Box(m_layout.left, m_layout.right, kBladeEdge - 1, 0));
    }

    /// A place on the key, so far from the body's side at the bow towards the tip.
    QPointF OnKey(double along, double height) const {
        return At(m_cylinder.core ? m_layout.right - along : m_layout.left + along, height);
    }

    void PaintKey() {
        const double length = m_layout.right - m_layout.left;
        QPolygonF blade;
        blade << OnKey(-1, kBladeEdge) << OnKey(-1, kShoulder) << OnKey(0.5, kShoulder);
        for (std::size_t count = 0; count < m_layout.pins.size(); ++count) {
            const std::size_t chamber = m_cylinder.core ? m_layout.pins.size() - 1 - count : count;
            const double along = m_cylinder.core ? m_layout.right - m_layout.middles[chamber]
                                                 : m_layout.middles[chamber] - m_layout.left;
            for (const double side : {-kHalfCone, kHalfCone})
                blade << OnKey(along + side, m_layout.pins[chamber].front().from);
        }
        blade << OnKey(length - 0.6, kShoulder - 2) << OnKey(length + 3, kBladeEdge + 3)
              << OnKey(length + 1, kBladeEdge);
        QPainterPath key;
        key.addPolygon(blade);
        key.closeSubpath();
        QPainterPath bow;
        bow.addRoundedRect(
            QRectF(OnKey(-1, kShoulder + 2), OnKey(0.3 - kBowRoom, kBladeEdge - 1)).normalized(),
            2.5 * m_scale, 2.5 * m_scale);
        bow.addEllipse(OnKey(2.7 - kBowRoom, (kBladeEdge + kShoulder) / 2), 1.2 * m_scale,
                       1.2 * m_scale);
        m_painter.setPen(Pen(m_look.ink, 0.18));
        m_painter.setBrush(QColor(0xd4, 0xb0, 0x55));
        m_painter.drawPath(bow);
        m_painter.drawPath(key);
    }

    void PaintChamber(std::size_t chamber) {
        const double middle = m_layout.middles[chamber];
        const auto& pins = m_layout.pins[chamber];
        const double side = kPinWidth / 2 + kBoreGap;
        const double foot = pins.front().from;
        QPolygonF bore;
        bore << At(middle - kHalfCone, foot) << At(middle - side, foot + kCone)
             << At(middle - side, m_layout.top) << At(middle + side, m_layout.top)
             << At(middle + side, foot + kCone) << At(middle + kHalfCone, foot);
        m_painter.setPen(Pen(m_look.ink, 0.12));
        m_painter.setBrush(m_look.paper);
        m_painter.drawPolygon(bore);
        PaintSpring(middle, pins.back().to);
        for (const PlacedPin& pin : pins)
            PaintPin(middle, pin);
    }

    void PaintSpring(double middle, double from) {
        constexpr int turns = 6;
        QPolygonF spring;
        for (int turn = 0; turn <= turns; ++turn)
            spring << At(middle + (turn % 2 ? 1.4 : -1.4),
                         from + (m_layout.top - from) * turn / turns);
        m_painter.setPen(Pen(m_look.ink, 0.2));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPolyline(spring);
    }

    void PaintPin(double middle, const PlacedPin& pin) {
        const double side = kPinWidth / 2;
        const bool bottom = pin.kind == PlacedPin::Kind::Bottom;
        const double cone = bottom ? kCone : 0;
        const double end = bottom ? kHalfCone : side;
        QPolygonF shape;
        shape << At(middle - side, pin.to) << At(middle + side, pin.to)
              << At(middle + side, pin.from + cone) << At(middle + end, pin.from)
              << At(middle - end, pin.from) << At(middle - side, pin.from + cone);
        m_painter.setPen(Pen(m_look.ink, 0.15));
        m_painter.setBrush(LookOf(pin.kind).colour);
        m_painter.drawPolygon(shape);
    }

    void PaintShearLine(double height, const QString& name, Qt::PenStyle style) {
        m_painter.setPen(Pen(m_look.shear, 2 * kHalfShearStroke, style));
        m_painter.drawLine(At(m_layout.left - 1.5, height), At(m_layout.right + 1.5, height));
        // The name is on the side of the key's tip.
        if (m_cylinder.core)
            Write(Box(m_layout.left - kTipRoom, m_layout.left - 2, height - 1.5, height + 1.5),
                  Qt::AlignRight, name, m_look.shear, true);
        else
            Write(Box(m_layout.right + 2, m_layout.right + kTipRoom, height - 1.5, height + 1.5),
                  Qt::AlignLeft, name, m_look.shear, true);
    }

    /// Says over the chambers' numbers from which end they count, with an arrow along them.
    void PaintDirection() {
        const double low = m_layout.high - kRow;
        const QString words = Tr("Counted from the %1 of the key").arg(FirstEnd(m_cylinder));
        Write(Box(m_layout.left, m_layout.right, low, m_layout.high), Qt::AlignLeft, words,
              m_look.ink);
        const QPointF from = At(m_layout.left + 1, low + kRow / 2) +
                             QPointF(QFontMetricsF(m_words).horizontalAdvance(words), 0);
        const QPointF to(std::max(At(m_layout.right, 0).x(), from.x() + 4 * m_scale), from.y());
        const double barb = 0.8 * m_scale;
        m_painter.setPen(Pen(m_look.ink, 0.2));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawLine(from, to);
        m_painter.drawPolyline(
            QPolygonF{to + QPointF(-barb, -barb), to, to + QPointF(-barb, barb)});
    }

    void PaintLegend() {
        std::vector<PlacedPin::Kind> kinds = {PlacedPin::Kind::Driver, PlacedPin::Kind::Master,
                                              PlacedPin::Kind::Bottom};
        if (m_cylinder.core)
            kinds.insert(kinds.begin() + 1, PlacedPin::Kind::Control);
        const QFontMetricsF metrics(m_words);
        const auto width = [&](PlacedPin::Kind kind) {
            return 4.5 + metrics.horizontalAdvance(Tr(LookOf(kind).name)) / m_scale;
        };
        double left = m_layout.width / 2;
        for (const PlacedPin::Kind kind : kinds)
            left -= width(kind) / 2;
        const double low = m_layout.low;
        for (const PlacedPin::Kind kind : kinds) {
            m_painter.setPen(Pen(m_look.ink, 0.15));
            m_painter.setBrush(LookOf(kind).colour);
            m_painter.drawRect(Box(left, left + 1.8, low + 0.6, low + 2.4));
            Write(Box(left + 2.5, left + width(kind), low, low + kRow), Qt::AlignLeft,
                  Tr(LookOf(kind).name), m_look.ink);
            left += width(kind);
        }
    }

    void PaintFigure(const PlacedFigure& figure) {
        const LayoutBox& box = figure.box;
        const QRectF room = Box(box.left, box.right, box.low, box.high);
        QColor colour = m_look.ink;
        if (figure.kind == PlacedFigure::Kind::InPin)
            colour = Qt::white;
        if (figure.kind == PlacedFigure::Kind::BesidePin)
            PaintPlate(figure, room);
        if (figure.kind == PlacedFigure::Kind::Chamber && IsThin(figure.chamber)) {
            colour = m_look.shear;
            Write(room.translated(room.width(), 0), Qt::AlignLeft, QStringLiteral("!"), colour,
                  true);
        }
        const QString text = QString::fromStdString(figure.text);
        const QRectF ink = QFontMetricsF(m_figures).tightBoundingRect(text);
        m_painter.setFont(m_figures);
        m_painter.setPen(colour);
        m_painter.drawText(room.center() - ink.center(), text);
    }

    /// What the figure beside a pin stands on, with a line to the pin.
    void PaintPlate(const PlacedFigure& figure, const QRectF& room) {
        const PlacedPin& pin = m_layout.pins[figure.chamber][figure.pin];
        const bool thin = pin.kind == PlacedPin::Kind::Master && pin.steps == 1;
        const double middle = m_layout.middles[figure.chamber];
        const bool onLeft = figure.box.right < middle;
        m_painter.setPen(Pen(m_look.ink, 0.25));
        m_painter.drawLine(
            At(middle + (onLeft ? -kPinWidth : kPinWidth) / 2, (pin.from + pin.to) / 2),
            QPointF(onLeft ? room.right() : room.left(), room.center().y()));
        m_painter.setPen(Pen(thin ? m_look.shear : m_look.ink, thin ? 0.3 : 0.12));
        m_painter.setBrush(m_look.paper);
        m_painter.drawRoundedRect(room, 0.5 * m_scale, 0.5 * m_scale);
    }

    QPainter& m_painter;
    const Cylinder& m_cylinder;
    const CylinderLook& m_look;
    PinLayout m_layout;
    QTransform m_map;
    double m_scale; ///< of the device's units to a step
    QFont m_words, m_figures;
};

} // namespace

CylinderLook PaperLook() {
    return {Qt::black, Qt::white, QColor(0xf3, 0xea, 0xd2), QColor(0xe2, 0xe5, 0xea),
            QColor(0xc0, 0x10, 0x10)};
}

CylinderLook LookOn(const QPalette& palette) {
    if (palette.color(QPalette::Window).lightness() >= 128)
        return PaperLook();
    return {palette.color(QPalette::WindowText), QColor(0x20, 0x22, 0x26), QColor(0x4a, 0x44, 0x36),
            QColor(0x3c, 0x40, 0x47), QColor(0xff, 0x78, 0x78)};
}

QTransform FitLayout(const PinLayout& layout, const QRectF& bounds) {
    const double height = layout.high - layout.low;
    const double scale = std::min(bounds.width() / layout.width, bounds.height() / height);
    const double left = bounds.center().x() - layout.width * scale / 2;
    const double top = bounds.center().y() - height * scale / 2;
    return {scale, 0, 0, -scale, left, top + layout.high * scale};
}

void PaintCylinder(QPainter& painter, const QRectF& bounds, const Cylinder& cylinder,
                   const CylinderLook& look) {
    if (!cylinder.stacks.empty())
        CylinderPainter(painter, bounds, cylinder, look).Paint();
}

} // namespace quorrel
