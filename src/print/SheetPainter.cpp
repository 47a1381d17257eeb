#include "print/SheetPainter.h"

#include "print/Printers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPdfWriter>
#include <QPrinter>
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

void RequireTaken(bool taken) {
    if (!taken)
        throw NoPageTaken();
}

/// The path of a document by its number from 1, which stands behind the name from 2 on.
QString NumberedPath(const QString& path, qsizetype number) {
    if (number == 1)
        return path;
    const QFileInfo file(path);
    return file.dir().filePath(
        QStringLiteral("%1 %2.%3").arg(file.completeBaseName()).arg(number).arg(file.suffix()));
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

SheetPress::SheetPress(QPagedPaintDevice& device) : m_device(device) {
    RequireTaken(m_painter.begin(&device));
}

void SheetPress::Take(const PrintedSheet& sheet, const SheetLayout& layout) {
    RequireTaken(m_drawn == 0 || m_device.newPage());
    const QSizeF room = m_device.pageLayout().paintRectPoints().size();
    const double factor =
        std::min({layout.factor, room.width() / layout.width, room.height() / layout.height});
    const double unit = m_device.logicalDpiX() / kPointsPerInch * factor;
    m_painter.resetTransform();
    m_painter.scale(unit, unit);
    m_sheets.Paint(m_painter, sheet, layout);
    ++m_drawn;
}

void SheetPress::End() {
    RequireTaken(m_painter.end());
}

PrintError CannotWrite(const QString& path) {
    return PrintError(QCoreApplication::translate("SheetPainter", "The file %1 cannot be written.")
                          .arg(QDir::toNativeSeparators(path)));
}

PrintError NoPageTaken() {
    return PrintError(
        QCoreApplication::translate("SheetPainter", "The page cannot be printed there."));
}

struct PdfFiles::Document {
    Document(const QString& path, const SheetLayout& itsLayout) : file(path), layout(itsLayout) {
        if (!file.open(QIODevice::WriteOnly))
            throw CannotWrite(path);
    }

    QSaveFile file;
    const SheetLayout layout;
    std::unique_ptr<QPdfWriter> writer;
    std::unique_ptr<SheetPress> press;
};

PdfFiles::PdfFiles(const QString& path) : m_path(path) {}

PdfFiles::~PdfFiles() = default;

QString PdfFiles::NextPath() const {
    return NumberedPath(m_path, m_written.size() + 1);
}

void PdfFiles::Begin(const QString& title, const SheetLayout& layout) {
    m_open = std::make_unique<Document>(NextPath(), layout);
    m_open->writer = std::make_unique<QPdfWriter>(&m_open->file);
    m_open->writer->setResolution(kPdfDots);
    SetUpPaper(*m_open->writer, layout);
    m_open->writer->setTitle(title);
    m_open->writer->setCreator(QCoreApplication::applicationName());
    m_open->press = std::make_unique<SheetPress>(*m_open->writer);
}

void PdfFiles::Take(const PrintedSheet& sheet) {
    m_open->press->Take(sheet, m_open->layout);
    if (m_open->file.error() != QFileDevice::NoError)
        throw CannotWrite(m_open->file.fileName());
}

void PdfFiles::End() {
    const std::unique_ptr<Document> done = std::move(m_open);
    done->press->End();
    done->press.reset();
    done->writer.reset();
    if (!done->file.commit())
        throw CannotWrite(done->file.fileName());
    m_written.push_back(done->file.fileName());
}

void PdfFiles::Drop() {
    if (m_open)
        m_open->file.cancelWriting();
    m_open.reset();
}

struct PaperPrints::Document {
    explicit Document(const SheetLayout& itsLayout) : layout(itsLayout) {}

    const SheetLayout layout;
    QPrinter printer{QPrinter::HighResolution};
    std::unique_ptr<SheetPress> press;
};

PaperPrints::PaperPrints(const QString& printer) : m_printer(printer) {}

PaperPrints::~PaperPrints() = default;

void PaperPrints::Begin(const QString& title, const SheetLayout& layout) {
    auto document = std::make_unique<Document>(layout);
    SetUpPrinter(document->printer, m_printer);
    SetUpPaper(document->printer, layout);
    document->printer.setDocName(title);
    document->press = std::make_unique<SheetPress>(document->printer);
    m_open = std::move(document);
}

void PaperPrints::Take(const PrintedSheet& sheet) {
    m_open->press->Take(sheet, m_open->layout);
}

void PaperPrints::End() {
    const std::unique_ptr<Document> done = std::move(m_open);
    done->press->End();
    RequireTaken(done->printer.printerState() != QPrinter::Error);
}

void PaperPrints::Drop() {
    if (m_open)
        m_open->printer.abort();
    m_open.reset();
}

} // namespace quorrel
