#pragma once

#include <QString>

#include <stdexcept>
#include <vector>

/// \file
/// What has been laid out for printing: sheets with texts and pictures at their places. All places
/// and sizes are points of the layout, from the upper left corner of what can be printed on; the
/// whole of a sheet is made smaller by one factor to fit the paper.

namespace quorrel {

/// Characters of the one fixed-pitch face stand this far apart, and their lines, in parts of the
/// font's size. "Courier New" and the faces that are made to its measures are drawn so.
inline constexpr double kColumn = 1229 / 2048.0;
inline constexpr double kLine = 2320 / 2048.0;
inline constexpr double kAscent = 1705 / 2048.0; ///< of the line, above the base line

/// Paper that is printed on, in points, as it is held.
struct Paper {
    double width = 0, height = 0;
};
inline constexpr Paper kA4{595.28, 841.89};
inline constexpr Paper kLetter{612, 792};
inline constexpr double kPrintMargin = 18; ///< points on each side that stay white

/// What a report needs of its sheets.
struct SheetNeeds {
    bool landscape = false;
    int columns = 105; ///< of the size told next
    int lines = 0;     ///< of that size; 0 where as many as fit will do
    int size = 10;     ///< points
};

/// How sheets are laid out.
struct SheetLayout {
    Paper paper;       ///< as it is held: wider than high for landscape
    double width = 0;  ///< of the layout
    double height = 0; ///< of the layout
    double factor = 1; ///< what is printed is as much smaller; never above 1
};
SheetLayout LayOutSheets(const Paper& upright, const SheetNeeds& needs);

/// Inks by their blue-green-red values, as reports name them.
namespace ink {
inline constexpr int kBlack = 0;
inline constexpr int kRed = 255;
inline constexpr int kGreen = 65280;
inline constexpr int kBlue = 0xFF0000;
inline constexpr int kMagenta = 0xFF00FF;
inline constexpr int kCyan = 0xFFFF00;
inline constexpr int kYellow = 65535;
} // namespace ink

/// The red-green-blue value that an ink is printed with: dark enough to be read on white.
unsigned PrintedColour(int ink);

struct PrintedStyle {
    int size = 10; ///< points
    bool bold = false, italic = false, underline = false;
    int colour = ink::kBlack;

    bool operator==(const PrintedStyle&) const = default;
};

struct PrintedText {
    double x = 0;     ///< of its first character
    double width = 0; ///< of all its characters
    QString text;
    PrintedStyle style;
};

/// A picture by the file that it is read from and the size that it has of its own.
struct Picture {
    QString path;                 ///< empty for none
    double width = 0, height = 0; ///< points
};

struct PrintedPicture {
    QString path;
    double x = 0, y = 0, width = 0, height = 0;
};

struct PrintedLine {
    double top = 0;
    double base = 0;                ///< what the letters stand on
    std::vector<PrintedText> texts; ///< none for an empty line
};

struct PrintedSheet {
    std::vector<PrintedLine> lines;
    std::vector<PrintedPicture> pictures;
};

/// Something cannot be put on paper or into a file; says what in plain words.
class PrintError : public std::runtime_error {
public:
    explicit PrintError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// A document, sheet by sheet.
struct PrintedPages {
    QString title;
    SheetLayout layout;
    std::vector<PrintedSheet> sheets;
};

/// Where sheets go as soon as they are laid out. A document begins, takes its sheets, and then
/// either ends and counts, or is dropped and leaves nothing.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;

    virtual void Begin(const QString& title, const SheetLayout& layout) = 0;
    virtual void Take(const PrintedSheet& sheet) = 0;
    virtual void End() = 0;
    virtual void Drop() = 0;
};

/// Keeps the documents that come to their end.
class PageCollector : public PrintTarget {
public:
    std::vector<PrintedPages> documents;

    void Begin(const QString& title, const SheetLayout& layout) override;
    void Take(const PrintedSheet& sheet) override;
    void End() override;
    void Drop() override;

private:
    PrintedPages m_open;
};

/// How many columns a text takes: one each of what is read as a character.
int ColumnsOf(const QString& text);

/// The sheets as plain text, each beginning with "=== sheet 1" and so on. Behind each line that is
/// not plain black of 10 points stand, after a bar, the styles and the columns from which they
/// hold, as in "15 bold red @8".
QString PlainText(const PrintedPages& pages);

} // namespace quorrel
