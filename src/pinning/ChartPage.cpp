#include "pinning/ChartPage.h"

#include "pinning/CylinderPainter.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

#include <stdexcept>

namespace quorrel {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kHeading = 78; ///< points that a line's heading takes

QString tr(const char* text) {
    return QCoreApplication::translate("ChartPage", text);
}

/// One page that is written from the top down, measured in points.
class Page {
public:
    explicit Page(QPainter& painter)
        : m_painter(painter), m_points(painter.device()->logicalDpiX() / kPointsPerInch),
          m_width(painter.device()->width() / m_points),
          m_height(painter.device()->height() / m_points) {
        painter.scale(m_points, m_points);
    }

    void Line(const QString& text, int size, bool bold) {
        SetFont(size, bold);
        Put({0, m_at, m_width, m_height - m_at}, Qt::AlignLeft | Qt::TextWordWrap, text);
        m_at += Height({0, 0, m_width, m_height}, Qt::TextWordWrap, text) + 3;
    }

    /// A heading and its text, which may take several lines.
    void Field(const QString& heading, const QString& text) {
        SetFont(10, true);
        Put({0, m_at, kHeading, 14}, Qt::AlignLeft, heading);
        SetFont(10, false);
        const QRectF room(kHeading, m_at, m_width - kHeading, m_height - m_at);
        Put(room, Qt::AlignLeft | Qt::TextWordWrap, text);
        m_at += std::max(14.0, Height(room, Qt::TextWordWrap, text)) + 1;
    }

    /// A heading and figures in columns.
    void Row(const QString& heading, const QStringList& figures, bool bold) {
        SetFont(10, bold);
        Put({0, m_at, kHeading, 15}, Qt::AlignLeft | Qt::AlignVCenter, heading);
        const double column =
            std::min(56.0, (m_width - kHeading) / std::max(1, static_cast<int>(figures.size())));
        for (qsizetype at = 0; at < figures.size(); ++at)
            Put({kHeading + column * static_cast<double>(at), m_at, column, 15}, Qt::AlignCenter,
                figures[at]);
        m_at += 15;
    }

    void Rule() {
        m_painter.setPen(QPen(Qt::black, 0.5));
        m_painter.drawLine(QPointF(0, m_at + 2), QPointF(m_width, m_at + 2));
        m_at += 8;
    }

    void Drawing(const PinningChart& chart, double height) {
        SetFont(8, false);
        PaintCylinder(m_painter, {0, m_at, m_width, height}, chart, PaperLook());
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
    void Put(const QRectF& room, int flags, const QString& text) {
        m_painter.drawText(room, flags, text);
    }
    double Height(const QRectF& room, int flags, const QString& text) const {
        return m_painter.boundingRect(room, flags, text).height();
    }

    QPainter& m_painter;
    double m_points; ///< device units in a point
    double m_width, m_height;
    double m_at = 0;
};

void WritePins(Page& page, const PinningChart& chart) {
    QStringList numbers, driver, control, top, topSize, bottom, bottomSize;
    for (const ChartChamber& chamber : chart.chambers) {
        numbers += QString::number(numbers.size() + 1);
        top += QString::number(chamber.pins.master);
        topSize += chamber.masterSize;
        bottom += QString::number(chamber.pins.bottom);
        bottomSize += chamber.bottomSize;
        if (chamber.pins.control) {
            driver += PinFigure(*chamber.pins.driver);
            control += PinFigure(*chamber.pins.control);
        }
    }
    page.Row(tr("Chamber"), numbers, true);
    if (chart.request.IsCore()) {
        page.Row(tr("Driver Pins"), driver, false);
        page.Row(tr("Control Pins"), control, false);
    }
    page.Row(tr("Top Pins"), top, false);
    page.Row(tr("   Size"), topSize, false);
    page.Row(tr("Bottom Pins"), bottom, false);
    page.Row(tr("   Size"), bottomSize, false);
}

void WriteTallPins(Page& page, const PinningChart& chart) {
    QStringList steps, sizes;
    for (int step = 10; step < 20; ++step) {
        steps += QString::number(step);
        sizes += chart.tallPins[static_cast<std::size_t>(step - 10)];
    }
    page.Row(tr("Tall pins"), steps, true);
    page.Row(tr("   Size"), sizes, false);
    page.Line(QLatin1String(kPinLetters), 8, false);
}

} // namespace

void PrintChartPage(QPagedPaintDevice& device, const PinningChart& chart, const QString& title,
                    const QDate& date) {
    QPainter painter;
    if (!painter.begin(&device))
        throw std::runtime_error(tr("The page cannot be printed there.").toStdString());
    Page page(painter);
    const PinningRequest& key = chart.request;
    page.Line(title, 15, true);
    page.Line(tr("Pinning Chart for %1").arg(key.system), 12, true);
    page.Line(date.toString(Qt::ISODate), 10, false);
    page.Rule();
    page.Field(tr("Address"), key.address);
    page.Field(tr("Lock Brand"), key.lockBrand);
    page.Field(tr("Key ID"), key.keyID);
    page.Field(tr("Key Cuts"), QString::fromStdString(key.key));
    if (key.IsCore())
        page.Field(tr("Control Key"), QString::fromStdString(key.control));
    page.Field(tr("KeyWay"), key.keyway);
    page.Field(tr("Department"), key.department);
    page.Field(tr("Description"), key.description);
    page.Rule();
    WritePins(page, chart);
    page.Rule();
    page.Drawing(chart, 250);
    for (const QString& flaw : DescribeFlaws(chart))
        page.Line(flaw, 10, true);
    if (key.IsCore())
        WriteTallPins(page, chart);
}

void PrintChartToFile(const QString& path, const PinningChart& chart, const QString& title,
                      const QDate& date) {
    QPdfWriter writer(path);
    const bool metric = QLocale().measurementSystem() == QLocale::MetricSystem;
    writer.setPageSize(QPageSize(metric ? QPageSize::A4 : QPageSize::Letter));
    writer.setPageMargins({15, 15, 15, 15}, QPageLayout::Millimeter);
    writer.setTitle(title);
    try {
        PrintChartPage(writer, chart, title, date);
    } catch (const std::runtime_error&) {
        throw std::runtime_error(
            tr("The file %1 cannot be written.").arg(QDir::toNativeSeparators(path)).toStdString());
    }
}

} // namespace quorrel
