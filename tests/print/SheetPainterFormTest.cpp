#include "print/Printer.h"
#include "print/SheetPainter.h"

#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

/// What a report prints, on A4.
PrintedPages Print(const std::function<void(Printer&)>& report, const SheetNeeds& needs = {}) {
    PageCollector kept;
    Printer printer("Keys of the harbour", LayOutSheets(kA4, needs), kept);
    report(printer);
    printer.EndDoc();
    return kept.documents.at(0);
}

/// The first sheet as it is drawn, four dots a point.
QImage Drawn(const PrintedPages& pages) {
    constexpr double dots = 4;
    QImage image(qRound(pages.layout.width * dots), 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(dots, dots);
    SheetPainter().Paint(painter, pages.sheets.at(0), pages.layout);
    return image;
}

/// The columns of ink in a band of a picture, from the first to the last, in points.
std::pair<double, double> InkOf(const QImage& image, double from, double to) {
    int first = image.width();
    int last = -1;
    for (int x = qRound(from * 4); x < qMin(qRound(to * 4), image.width()); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 128) {
                first = qMin(first, x);
                last = x;
                break;
            }
    return {first / 4.0, last / 4.0};
}

TEST(SheetPainter, DrawsEachWordAtItsColumnWhateverStandsBefore) {
    const QString odd = QString::fromUtf8("\u0428\u5BB6\U0001F511 \u0645\u0641\u062A\u0627\u062D");
    const auto place = [](const QString& before, int moves) {
        const auto pages = Print([&](Printer& printer) {
            printer.Print({before, PrintItem(moves), "H"});
        });
        const double column = 98 * 10 * kColumn;
        return InkOf(Drawn(pages), column - 2, column + 8);
    };
    const auto plain = place("plain", 7);
    EXPECT_GT(plain.second, plain.first);
    EXPECT_EQ(place(odd, 7), plain);
    EXPECT_EQ(place(QString(90, u'W'), 1), plain);
}

TEST(SheetPainter, RulesUnderlinedBlanksToTheRightEdgeButNotTheGapOfAZone) {
    const auto pages = Print([](Printer& printer) {
        printer.FontUnderline = true;
        printer.Print({"ab", NextZone(), "Signed", QString(200, u' ')});
    });
    const QImage image = Drawn(pages);
    const double zone = 14 * 10 * kColumn;
    EXPECT_LT(InkOf(image, 0, zone - 1).second, 2 * 10 * kColumn + 1);
    EXPECT_GT(InkOf(image, zone, pages.layout.width).second, pages.layout.width - 1);
}

QString TextOfPdf(const QString& path) {
    QProcess reader;
    reader.start("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(reader.waitForFinished());
    return QString::fromUtf8(reader.readAllStandardOutput()).simplified();
}

TEST(SheetPainter, WritesPdfFilesWhoseTextCanBeReadWholeOrNoneAtAll) {
    const QTemporaryDir folder;
    PdfFiles files(folder.filePath("keys.pdf"));
    Printer printer("Keys of the harbour", LayOutSheets(kA4, {}), files);
    printer.Print({"Key A1", NextZone(), "Boiler room"});
    printer.NewPage();
    printer.Print({"second sheet"});
    printer.EndDoc();
    printer.Print({"dropped"});
    printer.NewPage();
    printer.KillDoc();
    printer.Print({"second file"});
    printer.EndDoc();
    EXPECT_EQ(files.Written(),
              QStringList({folder.filePath("keys.pdf"), folder.filePath("keys 2.pdf")}));
    EXPECT_EQ(TextOfPdf(files.Written()[0]), "Key A1 Boiler room second sheet");
    EXPECT_EQ(TextOfPdf(files.Written()[1]), "second file");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2);

    PdfFiles nowhere(folder.filePath("none/keys.pdf"));
    Printer failing("Keys", LayOutSheets(kA4, {}), nowhere);
    EXPECT_THROW(failing.Print({"a key"}), PrintError);
    EXPECT_TRUE(nowhere.Written().isEmpty());

    PaperPrints vanished(QStringLiteral("no such printer"));
    Printer paper("Keys", LayOutSheets(kA4, {}), vanished);
    EXPECT_THROW(paper.Print({"a key"}), PrintError);
}

TEST(SheetPainter, TakesALogoOfAnySizeAndNothingForWhatIsNoPicture) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("logo.png");
    QImage(400, 300, QImage::Format_RGB32).save(path);
    EXPECT_EQ(PictureFrom(path).width, 300);
    EXPECT_EQ(PictureFrom(path).height, 225);
    QFile text(folder.filePath("text.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    for (const QString& none : {QString(), folder.filePath("missing.png"), text.fileName()})
        EXPECT_EQ(PictureFrom(none).width, 0) << none.toStdString();
}

} // namespace
} // namespace quorrel::test
