#include "print/SheetPainter.h"

#include <QCoreApplication>
#include <QDir>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <stdexcept>

namespace quorrel {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kScreenDots = 96;       ///< an inch, of a picture that does not tell its own
constexpr double kUnderlineBelow = 0.13; ///< the base line, and how thick, in parts of the size
constexpr double kUnderlineWidth = 0.05;
constexpr int kPdfDots = 1200; ///< an inch

QFont FontOf(const PrintedStyle& style) {
    QFont font;
    font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"),
                      QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(style.size);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    return font;
}

/// Draws a word at its place, no wider than its columns: a letter of another face must not move
/// what stands behind it.
void DrawWord(QPainter& painter, const QPointF& base, double width, const QString& word) {
    const double natural = QFontMetricsF(painter.font()).horizontalAdvance(word);
    if (natural <= width * 1.01) {
        painter.drawText(base, word);
        return;
    }
    painter.save();
    painter.translate(base);
    painter.scale(width / natural, 1);
    painter.drawText(QPointF(), word);
    painter.restore();
}

/// Draws the words of a text, each at its own column, so that no rounding adds up.
void DrawWords(QPainter& painter, const PrintedText& text, double base) {
    const int columns = ColumnsOf(text.text);
    const double column = columns > 0 ? text.width / columns : 0;
    int at = 0;
    const QStringList words = text.text.split(u' ');
    for (const QString& word : words) {
        const int wide = ColumnsOf(word);
        if (wide > 0)
            DrawWord(painter, {text.x + at * column, base}, wide * column, word);
        at += wide + 1;
    }
}

void DrawText(QPainter& painter, const PrintedText& text, double base, double edge) {
    const QColor colour = QColor::fromRgb(PrintedColour(text.style.colour));
    painter.setFont(FontOf(text.style));
    painter.setPen(colour);
    DrawWords(painter, text, base);
    if (!text.style.underline)
        return;
    const double below = base + kUnderlineBelow * text.style.size;
    painter.setPen(QPen(colour, kUnderlineWidth * text.style.size, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(text.x, below), QPointF(std::min(text.x + text.width, edge), below));
}

[[noreturn]] void Fail(const QString& path) {
    throw std::runtime_error(
        QCoreApplication::translate("SheetPainter", "The file %1 cannot be written.")
            .arg(QDir::toNativeSeparators(path))
            .toStdString());
}

} // namespace

void SheetPainter::Paint(QPainter& painter, const PrintedSheet& sheet, const SheetLayout& layout) {
    for (const PrintedPicture& picture : sheet.pictures)
        painter.drawImage(QRectF(picture.x, picture.y, picture.width, picture.height),
                          ImageOf(picture.path));
    for (const PrintedLine& line : sheet.lines)
        for (const PrintedText& text : line.texts)
            DrawText(painter, text, line.base, layout.width);
}

const QImage& SheetPainter::ImageOf(const QString& path) {
    if (!m_images.contains(path))
        m_images.insert(path, QImage(path));
    return m_images[path];
}

Picture PictureFrom(const QString& path) {
    const QSize size = path.isEmpty() ? QSize() : QImageReader(path).size();
    const QSize whole = size.isValid() ? size : path.isEmpty() ? QSize() : QImage(path).size();
    if (whole.isEmpty())
        return {};
    return {path, whole.width() * kPointsPerInch / kScreenDots,
            whole.height() * kPointsPerInch / kScreenDots};
}

void SetUpPaper(QPagedPaintDevice& device, const SheetLayout& layout) {
    const bool landscape = layout.paper.width > layout.paper.height;
    const QSizeF upright(std::min(layout.paper.width, layout.paper.height),
                         std::max(layout.paper.width, layout.paper.height));
    device.setPageLayout(QPageLayout(
        QPageSize(upright, QPageSize::Point, {}, QPageSize::FuzzyMatch),
        landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
        QMarginsF(kPrintMargin, kPrintMargin, kPrintMargin, kPrintMargin), QPageLayout::Point));
}

bool PaintPages(QPagedPaintDevice& device, const PrintedPages& pages,
                const std::function<bool(int)>& goesOn) {
    QPainter painter;
    const auto require = [](bool taken) {
        if (!taken)
            throw std::runtime_error(
                QCoreApplication::translate("SheetPainter", "The page cannot be printed there.")
                    .toStdString());
    };
    require(painter.begin(&device));
    const double unit = device.logicalDpiX() / kPointsPerInch * pages.layout.factor;
    SheetPainter sheets;
    int drawn = 0;
    for (const PrintedSheet& sheet : pages.sheets) {
        if (goesOn && !goesOn(drawn))
            return false;
        require(drawn == 0 || device.newPage());
        painter.resetTransform();
        painter.scale(unit, unit);
        sheets.Paint(painter, sheet, pages.layout);
        ++drawn;
    }
    require(painter.end());
    return true;
}

bool WritePagesToPdf(const QString& path, const PrintedPages& pages,
                     const std::function<bool(int)>& goesOn) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        Fail(path);
    bool whole = false;
    {
        QPdfWriter writer(&file);
        writer.setResolution(kPdfDots);
        SetUpPaper(writer, pages.layout);
        writer.setTitle(pages.title);
        writer.setCreator(QCoreApplication::applicationName());
        whole = PaintPages(writer, pages, goesOn);
    }
    if (!whole) {
        file.cancelWriting();
        return false;
    }
    if (!file.commit())
        Fail(path);
    return true;
}

} // namespace quorrel
