#include "print/PrintedPages.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorrel {

namespace {

QString NameOf(int colour) {
    switch (colour) {
    case ink::kBlack:
        return {};
    case ink::kRed:
        return QStringLiteral(" red");
    case ink::kGreen:
        return QStringLiteral(" green");
    case ink::kBlue:
        return QStringLiteral(" blue");
    case ink::kMagenta:
        return QStringLiteral(" magenta");
    case ink::kCyan:
        return QStringLiteral(" cyan");
    case ink::kYellow:
        return QStringLiteral(" yellow");
    default:
        return QStringLiteral(" #%1").arg(PrintedColour(colour), 6, 16, QChar(u'0'));
    }
}

QString NameOf(const PrintedStyle& style) {
    QString name = QString::number(style.size);
    if (style.bold)
        name += QStringLiteral(" bold");
    if (style.italic)
        name += QStringLiteral(" italic");
    if (style.underline)
        name += QStringLiteral(" underlined");
    return name + NameOf(style.colour);
}

int ColumnOf(const PrintedText& text) {
    return static_cast<int>(std::lround(text.x / (kColumn * text.style.size)));
}

QString PlainLine(const PrintedLine& printed) {
    QString line;
    QStringList styles;
    PrintedStyle last;
    for (const PrintedText& text : printed.texts) {
        const int column = ColumnOf(text);
        line += QString(std::max(0, column - ColumnsOf(line)), u' ') + text.text;
        if (text.style != last)
            styles += QStringLiteral("%1 @%2").arg(NameOf(text.style)).arg(column);
        last = text.style;
    }
    return styles.isEmpty() ? line
                            : line + QStringLiteral(" | ") + styles.join(QStringLiteral(", "));
}

} // namespace

SheetLayout LayOutSheets(const Paper& upright, const SheetNeeds& needs) {
    SheetLayout layout;
    layout.paper = needs.landscape ? Paper{upright.height, upright.width} : upright;
    const double width = layout.paper.width - 2 * kPrintMargin;
    const double height = layout.paper.height - 2 * kPrintMargin;
    layout.factor = std::min(1.0, width / (needs.columns * kColumn * needs.size));
    if (needs.lines > 0)
        layout.factor = std::min(layout.factor, height / (needs.lines * kLine * needs.size));
    layout.width = width / layout.factor;
    layout.height = height / layout.factor;
    return layout;
}

unsigned PrintedColour(int colour) {
    switch (colour) {
    case ink::kRed:
        return 0xEE0000;
    case ink::kGreen:
        return 0x008A00;
    case ink::kMagenta:
        return 0xD100D1;
    case ink::kCyan:
        return 0x008484;
    case ink::kYellow:
        return 0x7A7A00;
    default: {
        const auto value = static_cast<unsigned>(colour);
        return (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
    }
    }
}

int ColumnsOf(const QString& text) {
    const bool plain = std::all_of(text.begin(), text.end(),
                                   [](QChar letter) { return letter.unicode() < 0x300; });
    if (plain)
        return static_cast<int>(text.size());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int columns = 0;
    while (finder.toNextBoundary() >= 0)
        ++columns;
    return columns;
}

QString PlainText(const PrintedPages& pages) {
    QString all;
    int number = 0;
    for (const PrintedSheet& sheet : pages.sheets) {
        all += QStringLiteral("=== sheet %1\n").arg(++number);
        for (const PrintedLine& line : sheet.lines)
            all += PlainLine(line) + u'\n';
        for (const PrintedPicture& picture : sheet.pictures)
            all += QStringLiteral("[picture %1,%2 %3x%4]\n")
                       .arg(picture.x, 0, 'f', 1)
                       .arg(picture.y, 0, 'f', 1)
                       .arg(picture.width, 0, 'f', 1)
                       .arg(picture.height, 0, 'f', 1);
    }
    return all;
}

void PageCollector::Begin(const QString& title, const SheetLayout& layout) {
    m_open = {title, layout, {}};
}

void PageCollector::Take(const PrintedSheet& sheet) {
    m_open.sheets.push_back(sheet);
}

void PageCollector::End() {
    documents.push_back(std::exchange(m_open, {}));
}

void PageCollector::Drop() {
    m_open = {};
}

} // namespace quorrel
