#include "print/Printer.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quorrel {

namespace {

constexpr int kZone = 14;          ///< columns
constexpr double kSmallUnits = 20; ///< 1/1440 inch of a point
constexpr double kRounding = 1e-6;

/// Blanks leave no ink, unless they are underlined.
double EndOfInk(const PrintedText& text) {
    if (text.style.underline)
        return text.x + text.width;
    qsizetype seen = text.text.size();
    while (seen > 0 && text.text[seen - 1] == u' ')
        --seen;
    return seen == 0 ? 0 : text.x + ColumnsOf(text.text.left(seen)) * kColumn * text.style.size;
}

double BeginOfInk(const PrintedText& text) {
    qsizetype blanks = 0;
    while (!text.style.underline && blanks < text.text.size() && text.text[blanks] == u' ')
        ++blanks;
    return text.x + static_cast<double>(blanks) * kColumn * text.style.size;
}

/// Where the ink of a line begins; beyond all sheets for one without.
double BeginOfInk(const PrintedLine& line) {
    double begin = std::numeric_limits<double>::max();
    for (const PrintedText& text : line.texts)
        if (EndOfInk(text) > 0)
            begin = std::min(begin, BeginOfInk(text));
    return begin;
}

/// The largest part of a picture's size that fits into the upper left corner beside and above the
/// lines of a sheet, of which it has the width and the height.
double LargestScale(const PrintedSheet& sheet, const Picture& picture, double width,
                    double height) {
    double largest = 0;
    for (const PrintedLine& line : sheet.lines) {
        largest = std::max(largest, std::min(width / picture.width, line.top / picture.height));
        width = std::min(width, BeginOfInk(line));
    }
    largest = std::max(largest, std::min(width / picture.width, height / picture.height));
    return std::min(largest, 1.0);
}

} // namespace

Printer::Printer(const QString& title, const SheetLayout& layout, PrintTarget& target)
    : m_title(title), m_layout(layout), m_target(target) {}

Printer::~Printer() {
    if (m_sheets > 0)
        m_target.Drop();
}

PrintedStyle Printer::Style() const {
    return {FontSize, FontBold, FontItalic, FontUnderline, ForeColor};
}

/// The sheet that is printed on; a new one where there is none.
PrintedSheet& Printer::Sheet() {
    if (!m_onSheet) {
        if (m_sheets == 0)
            m_target.Begin(m_title, m_layout);
        ++m_sheets;
        m_onSheet = true;
        m_y = 0;
    }
    return m_sheet;
}

/// Hands the sheet on: nothing more comes onto it.
void Printer::EndSheet() {
    if (std::exchange(m_onSheet, false))
        m_target.Take(std::exchange(m_sheet, {}));
}

void Printer::Print(std::initializer_list<PrintItem> items) {
    PrintOpen(items);
    EndLine();
}

void Printer::PrintOpen(std::initializer_list<PrintItem> items) {
    Sheet();
    for (const PrintItem& item : items) {
        const double column = kColumn * FontSize;
        for (int move = 0; move < item.zones; ++move)
            m_x = (std::floor(m_x / column / kZone + kRounding) + 1) * kZone * column;
        Put(item.text);
    }
}

void Printer::Put(const QString& text) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    const QStringList parts = lines.split(u'\n');
    for (const QString& part : parts) {
        PutLine(part);
        if (&part != &parts.last())
            EndLine();
    }
}

void Printer::PutLine(const QString& text) {
    if (text.isEmpty())
        return;
    QString shown = text;
    std::replace_if(
        shown.begin(), shown.end(), [](QChar letter) { return letter < u' '; }, u' ');
    const double width = ColumnsOf(shown) * kColumn * FontSize;
    m_line.texts.push_back({m_x, width, shown, Style()});
    m_x += width;
    m_tallest = std::max(m_tallest, static_cast<double>(FontSize));
}

/// Puts the open line on the sheet.
void Printer::EndLine() {
    const double tallest = m_tallest > 0 ? m_tallest : FontSize;
    const double height = tallest * kLine;
    if (m_y > 0 && m_y + height > m_layout.height + kRounding)
        EndSheet();
    PrintedSheet& sheet = Sheet();
    m_line.top = m_y;
    m_line.base = m_y + tallest * kAscent;
    Squeeze();
    sheet.lines.push_back(std::exchange(m_line, {}));
    m_y += height;
    m_x = m_tallest = 0;
}

/// Makes the open line as narrow as the sheet is.
void Printer::Squeeze() {
    double end = 0;
    for (const PrintedText& text : m_line.texts)
        if (!text.style.underline)
            end = std::max(end, EndOfInk(text));
    if (end <= m_layout.width)
        return;
    const double squeeze = m_layout.width / end;
    for (PrintedText& text : m_line.texts) {
        text.x *= squeeze;
        text.width *= squeeze;
    }
}

void Printer::NewPage() {
    if (!m_line.texts.empty())
        EndLine();
    EndSheet();
    m_x = 0;
}

void Printer::EndDoc() {
    NewPage();
    if (std::exchange(m_sheets, 0) > 0)
        m_target.End();
}

void Printer::KillDoc() {
    m_line = {};
    m_sheet = {};
    m_onSheet = false;
    m_x = m_tallest = 0;
    if (std::exchange(m_sheets, 0) > 0)
        m_target.Drop();
}

void Printer::PaintPicture(const Picture& picture) {
    if (picture.width <= 0 || picture.height <= 0)
        return;
    PrintedSheet& sheet = Sheet();
    const double scale = LargestScale(sheet, picture, m_layout.width, m_y);
    if (scale > 0)
        sheet.pictures.push_back(
            {picture.path, 0, 0, picture.width * scale, picture.height * scale});
}

void Printer::PaintPicture(const Picture& picture, double x, double y, double width,
                           double height) {
    if (picture.path.isEmpty())
        return;
    Sheet().pictures.push_back({picture.path, x / kSmallUnits, y / kSmallUnits,
                                width > 0 ? width / kSmallUnits : picture.width,
                                height > 0 ? height / kSmallUnits : picture.height});
}

} // namespace quorrel
