#include "print/Printer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorrel::test {
namespace {

/// A printer that keeps what is handed on.
struct Kept : PageCollector {
    explicit Kept(const Paper& paper = kA4, const SheetNeeds& needs = {})
        : printer("Test", LayOutSheets(paper, needs), *this) {}

    QString Text() {
        printer.EndDoc();
        return documents.empty() ? QString() : PlainText(documents.back());
    }

    Printer printer;
};

TEST(Printer, MovesToTheZoneBeyondWhatStandsThere) {
    Kept kept;
    kept.printer.Print({Zone(2), "two", NextZone(), "three", Zone(3), "five"});
    kept.printer.Print({"thirteen char", NextZone(), "two"});
    kept.printer.Print({"fourteen chars", NextZone(), "three"});
    kept.printer.Print({"a text that passes two zones", NextZone(), "four"});
    kept.printer.PrintOpen({"open", NextZone()});
    kept.printer.Print({"closed"});
    kept.printer.Print();
    kept.printer.Print({"\u00C4\u0041\u030A\U0001F511", NextZone(), "two\tb"});
    EXPECT_EQ(kept.Text(), "=== sheet 1\n"
                           "              two           three                       five\n"
                           "thirteen char two\n"
                           "fourteen chars              three\n"
                           "a text that passes two zones              four\n"
                           "open          closed\n"
                           "\n" +
                               QString::fromUtf8("\u00C4\u0041\u030A\U0001F511") +
                               "           two b\n");
}

TEST(Printer, TakesZonesFromThePresentSizeAndNotesEachStyle) {
    Kept kept;
    Printer& printer = kept.printer;
    printer.FontSize = 20;
    printer.FontBold = true;
    printer.PrintOpen({"ten"});
    printer.FontSize = 10;
    printer.ForeColor = ink::kCyan;
    printer.Print({NextZone(), "x"});
    const QString text = kept.Text();
    EXPECT_TRUE(text.contains("| 20 bold @0, 10 bold cyan @14")) << text.toStdString();
    const PrintedLine& line = kept.documents[0].sheets[0].lines[0];
    EXPECT_DOUBLE_EQ(line.texts[1].x, 14 * 10 * kColumn);
    EXPECT_DOUBLE_EQ(line.base, 20 * kAscent) << "both stand on one line";
}

TEST(Printer, FitsTheWidestLinesAndAsManyAsAreTold) {
    const SheetLayout a4 = LayOutSheets(kA4, {});
    const SheetLayout letter = LayOutSheets(kLetter, {});
    EXPECT_NEAR(a4.factor, 0.888, 0.0005);
    EXPECT_NEAR(letter.factor, 0.914, 0.0005);
    EXPECT_EQ(std::floor(a4.height / (10 * kLine)), 80);
    EXPECT_EQ(std::floor(letter.height / (10 * kLine)), 73);
    const SheetLayout chart = LayOutSheets(kA4, {true, 147, 59});
    EXPECT_NEAR(chart.factor * 10, 8.4, 0.05);
    EXPECT_GT(chart.paper.width, chart.paper.height);
    EXPECT_EQ(LayOutSheets(kA4, {false, 40}).factor, 1) << "nothing grows";
}

TEST(Printer, BeginsASheetOnlyForWhatIsPrintedOnIt) {
    Kept kept;
    kept.printer.NewPage();
    EXPECT_EQ(kept.Text(), "");
    kept.printer.NewPage();
    kept.printer.Print({"one"});
    kept.printer.NewPage();
    kept.printer.NewPage();
    kept.printer.PrintOpen({"two"});
    kept.printer.NewPage();
    EXPECT_EQ(kept.Text(), "=== sheet 1\none\n=== sheet 2\ntwo\n");
    kept.printer.Print({"dropped"});
    kept.printer.KillDoc();
    kept.printer.EndDoc();
    EXPECT_EQ(kept.documents.size(), 1U);
}

TEST(Printer, GoesOnWithANewSheetWhereALineDoesNotFit) {
    Kept kept(kLetter);
    for (int line = 1; line <= 74; ++line)
        kept.printer.Print({QString::number(line)});
    kept.printer.EndDoc();
    ASSERT_EQ(kept.documents[0].sheets.size(), 2U);
    EXPECT_EQ(kept.documents[0].sheets[0].lines.size(), 73U);
    EXPECT_EQ(kept.documents[0].sheets[1].lines[0].texts[0].text, "74");
}

TEST(Printer, BreaksATextOfSeveralLinesAtTheLeftEdge) {
    Kept kept;
    kept.printer.Print({Zone(2), "policy\r\nline two\rthree\n", "end"});
    EXPECT_EQ(kept.Text(), "=== sheet 1\n              policy\nline two\nthree\nend\n");
}

TEST(Printer, SqueezesALineThatIsTooWideButNotItsRuledBlanks) {
    Kept kept;
    kept.printer.FontSize = 20;
    kept.printer.Print({QString(100, u'W'), "   "});
    kept.printer.FontUnderline = true;
    kept.printer.Print({"Sign: ", QString(100, u' ')});
    kept.printer.EndDoc();
    const PrintedPages& pages = kept.documents[0];
    const auto& lines = pages.sheets[0].lines;
    EXPECT_NEAR(lines[0].texts[0].x + lines[0].texts[0].width, pages.layout.width, 0.01);
    EXPECT_DOUBLE_EQ(lines[1].texts[0].width, 6 * 20 * kColumn);
}

TEST(Printer, ShrinksALogoIntoTheCornerThatTheHeadLeaves) {
    Kept kept;
    Printer& printer = kept.printer;
    const auto head = [&](const Picture& logo) {
        printer.FontSize = 15;
        printer.Print();
        printer.Print();
        printer.Print({Zone(2), "       Acme"});
        printer.FontSize = 10;
        printer.Print({Zone(3), " ___"});
        printer.PaintPicture(logo);
        printer.Print({"below"});
        printer.EndDoc();
        return kept.documents.back().sheets[0].pictures;
    };
    const double top = 3 * 15 * kLine + 10 * kLine;
    const auto tall = head({"logo.png", 100, 400});
    ASSERT_EQ(tall.size(), 1U);
    EXPECT_NEAR(tall[0].height, top, 0.01);
    EXPECT_NEAR(tall[0].width, top / 4, 0.01);
    const auto wide = head({"logo.png", 4000, 400});
    EXPECT_NEAR(wide[0].height, 2 * 15 * kLine, 0.01) << "above the title";
    const auto broad = head({"logo.png", 3000, 2400});
    EXPECT_LE(broad[0].width, 29.01 * 10 * kColumn) << "beside title and rule";
    EXPECT_EQ(head({"logo.png", 10, 10})[0].width, 10) << "never larger";
    EXPECT_TRUE(head({}).empty());
}

TEST(Printer, PutsAPictureWhereItIsTold) {
    Kept kept;
    kept.printer.PaintPicture({"map.bmp", 500, 400}, 1440, 720, 2880, 1440);
    kept.printer.Print({"first line"});
    EXPECT_EQ(kept.Text(), "=== sheet 1\nfirst line\n[picture 72.0,36.0 144.0x72.0]\n");
}

TEST(PrintedColour, IsDarkEnoughOnWhite) {
    const auto part = [](unsigned colour, int shift) {
        const double value = (colour >> shift & 0xFF) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    for (const int colour : {ink::kBlack, ink::kRed, ink::kGreen, ink::kBlue, ink::kMagenta,
                             ink::kCyan, ink::kYellow}) {
        const unsigned printed = PrintedColour(colour);
        const double light =
            0.2126 * part(printed, 16) + 0.7152 * part(printed, 8) + 0.0722 * part(printed, 0);
        EXPECT_GE(1.05 / (light + 0.05), 4.5) << colour;
    }
    EXPECT_EQ(PrintedColour(0x102030), 0x302010U);
}

} // namespace
} // namespace quorrel::test
