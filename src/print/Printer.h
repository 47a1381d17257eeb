#pragma once

#include "print/PrintedPages.h"

#include <initializer_list>

namespace quorrel {

/// Something that is printed: so many moves to the next print zone, and then a text.
struct PrintItem {
    PrintItem(const QString& itsText) : text(itsText) {}
    PrintItem(const char* itsText) : text(QString::fromUtf8(itsText)) {}
    explicit PrintItem(int moves) : zones(moves) {}

    int zones = 0;
    QString text;
};

/// The moves that bring the beginning of a line to a print zone, counted from 1.
inline PrintItem Zone(int zone) {
    return PrintItem(zone - 1);
}
/// The move to the next zone.
inline PrintItem NextZone() {
    return PrintItem(1);
}

/// The printer as reports see it: a place that moves down the sheet as lines are printed. What is
/// printed is laid out and handed on sheet by sheet.
///
/// Zones are 14 columns of the present size wide, counted from the left edge. A text of several
/// lines goes on at the left edge. Where a line does not fit on the sheet, the next one begins.
class Printer {
public:
    Printer(const QString& title, const SheetLayout& layout, PrintTarget& target);
    /// Drops what was not ended.
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // How what follows is printed.
    int FontSize = 10; ///< points
    bool FontBold = false;
    bool FontItalic = false;
    bool FontUnderline = false;
    int ForeColor = ink::kBlack;

    /// Prints and ends the line.
    void Print(std::initializer_list<PrintItem> items = {});
    /// Prints and leaves the line open: what is printed next goes on there.
    void PrintOpen(std::initializer_list<PrintItem> items);

    /// What is printed next begins a new sheet. One on which nothing is printed does not come.
    void NewPage();

    /// Ends the document, unless nothing was printed. The next one begins.
    void EndDoc();
    /// Drops what was printed since the last document.
    void KillDoc();

    /// Puts a picture, at the size of its own, made smaller where needed, into the corner that the
    /// texts of this sheet leave free at the upper left. The place of the text does not move.
    void PaintPicture(const Picture& picture);

    /// Puts a picture at a place in 1/1440 inch, at a size in the same where that is told.
    void PaintPicture(const Picture& picture, double x, double y, double width = 0,
                      double height = 0);

    /// Sheets that the present document has by now.
    int Sheets() const { return m_sheets; }

private:
    PrintedStyle Style() const;
    PrintedSheet& Sheet();
    void EndSheet();
    void EndLine();
    void Squeeze();
    void Put(const QString& text);
    void PutLine(const QString& text);

    const QString m_title;
    const SheetLayout m_layout;
    PrintTarget& m_target;
    int m_sheets = 0;     ///< of the document; it has begun with the first
    PrintedSheet m_sheet; ///< that is printed on
    bool m_onSheet = false;
    double m_x = 0;       ///< where the next text goes
    double m_y = 0;       ///< upper edge of the line
    double m_tallest = 0; ///< size of the largest letters of the line
    PrintedLine m_line;   ///< texts of the open line
};

} // namespace quorrel
