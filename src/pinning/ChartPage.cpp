#include "pinning/ChartPage.h"

#include "pinning/CylinderPainter.h"
#include "print/SheetPainter.h"

#include <QCoreApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextOption>

namespace quorrel {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kHeading = 92;       ///< points that a line's heading takes
constexpr double kLeastDrawing = 220; ///< points that the drawing has at least
constexpr double kMostDrawing = 400;

QString tr(const char* text) {
    return QCoreApplication::translate("ChartPage", text);
}

/// One page that is written from the top down, measured in points.
class Page {
public:
    /// One that is only measured paints nothing.
    Page(QPainter& painter, double width, bool measured)
        : m_painter(painter), m_width(width), m_measured(measured) {}

    /// What has been written so far takes so much of the page.
    double Used() const { return m_at; }

    void Line(const QString& text, int size, bool bold) {
        SetFont(size, bold);
        m_at += Put({0, m_at, m_width, 0}, text) + 3;
    }

    /// A heading and its text, which may take several lines.
    void Field(const QString& heading, const QString& text, int size = 10) {
        SetFont(size, true);
        const double height = Put({0, m_at, kHeading, 0}, heading);
        SetFont(size, size > 10);
        m_at += std::max(height, Put({kHeading, m_at, m_width - kHeading, 0}, text)) + 2;
    }

    /// A heading and figures in columns.
    void Row(const QString& heading, const QStringList& figures, int size, bool bold) {
        const double height = size * 1.5;
        SetFont(10, bold);
        Centre({0, m_at, kHeading, height}, Qt::AlignLeft, heading);
        SetFont(size, bold);
        const double column =
            std::min(60.0, (m_width - kHeading) / std::max(1, static_cast<int>(figures.size())));
        for (qsizetype at = 0; at < figures.size(); ++at)
            Centre({kHeading + column * static_cast<double>(at), m_at, column, height},
                   Qt::AlignHCenter, figures[at]);
        m_at += height;
    }

    void Rule() {
        m_painter.setPen(QPen(Qt::black, 0.5));
        if (!m_measured)
            m_painter.drawLine(QPointF(0, m_at + 2), QPointF(m_width, m_at + 2));
        m_at += 8;
    }

    void Drawing(const Cylinder& cylinder, double height) {
        SetFont(8, false);
        if (!m_measured)
            PaintCylinder(m_painter, {0, m_at, m_width, height}, cylinder, PaperLook());
        m_at += height + 6;
    }

private:
    void SetFont(int size, bool bold) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setStyleHint(QFont::SansSerif);
        font.setPixelSize(size);
        font.setBold(bold);
        m_painter.setFont(font);
        m_painter.setPen(Qt::black);
    }

    /// Writes a text in as many lines as it takes and gives their height.
    double Put(QRectF room, const QString& text) {
        // A word that is longer than the line is broken too: nothing runs off the paper.
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        room.setHeight(1e6);
        room.setHeight(m_painter.boundingRect(room, text, option).height());
        if (!m_measured)
            m_painter.drawText(room, text, option);
        return room.height();
    }

    void Centre(const QRectF& room, Qt::AlignmentFlag alignment, const QString& text) {
        if (!m_measured)
            m_painter.drawText(room, text, QTextOption(alignment | Qt::AlignVCenter));
    }

    QPainter& m_painter;
    double m_width;
    bool m_measured;
    double m_at = 0;
};

void WriteTallPins(Page& page, const PinningChart& chart) {
    QStringList steps, sizes;
    for (int step = 10; step < 20; ++step) {
        steps += QString::number(step);
        sizes += chart.tallPins[static_cast<std::size_t>(step - 10)];
    }
    page.Row(tr("Tall Pins"), steps, 10, true);
    page.Row(tr("   Size"), sizes, 10, false);
    page.Line(QLatin1String(kPinLetters), 8, false);
}

struct Sheet {
    const PinningChart& chart;
    const QString& title;
    const QDate& date;
};

void WriteSheet(Page& page, const Sheet& sheet, double drawing) {
    const PinningRequest& key = sheet.chart.request;
    page.Line(sheet.title, 15, true);
    page.Line(tr("Pinning Chart for %1").arg(key.system), 12, true);
    page.Line(sheet.date.toString(Qt::ISODate), 10, false);
    page.Rule();
    page.Field(tr("Key ID"), key.keyID, 14);
    page.Field(tr("Key Cuts"), QString::fromStdString(key.key), 14);
    if (key.IsCore())
        page.Field(tr("Control Key"), QString::fromStdString(key.control));
    page.Field(tr("KeyWay"), key.keyway);
    page.Field(tr("Address"), key.address);
    page.Field(tr("Lock Brand"), key.lockBrand);
    page.Field(tr("Department"), key.department);
    page.Field(tr("Description"), key.description);
    page.Rule();
    for (const ChartLine& line : ChartLines(sheet.chart))
        page.Row(line.sizes ? QStringLiteral("   ") + line.heading : line.heading, line.figures,
                 line.sizes ? 10 : 14, !line.sizes);
    page.Rule();
    page.Drawing(sheet.chart.cylinder, drawing);
    for (const QString& warning : ChartWarnings(sheet.chart))
        page.Line(warning, 10, true);
    for (const QString& note : ChartNotes(sheet.chart))
        page.Line(note, 10, false);
    if (key.IsCore())
        WriteTallPins(page, sheet.chart);
}

} // namespace

void PaintChartPage(QPainter& painter, const QSizeF& size, const PinningChart& chart,
                    const QString& title, const QDate& date) {
    const Sheet sheet{chart, title, date};
    Page measured(painter, size.width(), true);
    WriteSheet(measured, sheet, 0);
    // The drawing gets what the words leave; where that is too little, all of it is made smaller.
    const double left = size.height() - measured.Used();
    const double drawing = std::clamp(left, kLeastDrawing, kMostDrawing);
    const double scale = std::min(1.0, size.height() / (measured.Used() + drawing));
    painter.save();
    painter.scale(scale, scale);
    Page page(painter, size.width() / scale, false);
    WriteSheet(page, sheet, drawing);
    painter.restore();
}

void PrintChartPage(QPagedPaintDevice& device, const PinningChart& chart, const QString& title,
                    const QDate& date) {
    QPainter painter;
    if (!painter.begin(&device))
        throw NoPageTaken();
    const double points = device.logicalDpiX() / kPointsPerInch;
    painter.scale(points, points);
    PaintChartPage(painter, QSizeF(device.width(), device.height()) / points, chart, title, date);
}

} // namespace quorrel
