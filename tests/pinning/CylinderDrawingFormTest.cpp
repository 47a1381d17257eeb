#include "pinning/ChartPage.h"
#include "pinning/CylinderPainter.h"
#include "support/Cylinders.h"
#include "support/FormDriver.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

namespace quorrel::test {
namespace {

/// A look whose shear lines have a colour that nothing else has.
CylinderLook MarkedLook() {
    CylinderLook look = PaperLook();
    look.shear = QColor(255, 0, 255);
    return look;
}

QImage Painted(const Cylinder& cylinder, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintCylinder(painter, image.rect(), cylinder, MarkedLook());
    return image;
}

/// How many pixels of a figure's room have its own colour, and how many that of a shear line.
std::pair<int, int> CountInk(const QImage& image, const QRectF& room, QRgb ink) {
    int own = 0;
    int struck = 0;
    const QRect pixels = room.toRect() & image.rect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            own += pixel == ink ? 1 : 0;
            struck += qRed(pixel) > 200 && qGreen(pixel) < 60 && qBlue(pixel) > 200 ? 1 : 0;
        }
    return {own, struck};
}

TEST(CylinderPainter, PaintsEachFigureWholeAndOverEverythingElse) {
    // In the second, the control shear line passes the middle of each control pin.
    const Cylinder cylinders[] = {CylinderOf("42135", "31524"), CylinderOf("0000", "5678", "5432"),
                                  CylinderOf("3571624", "3951724", "5273940"),
                                  CrossKeyed("0248", {"012345", "24689", "4", "3789"}, "0909")};
    for (const Cylinder& cylinder : cylinders)
        for (const int width : {420, 680, 1360}) {
            const QImage image = Painted(cylinder, {width, width * 3 / 4});
            const PinLayout layout = LayOutPins(cylinder);
            const QTransform map = FitLayout(layout, image.rect());
            for (const PlacedFigure& figure : layout.figures) {
                if (figure.kind == PlacedFigure::Kind::Chamber)
                    continue; // A flagged one is in the colour of the lines itself.
                const LayoutBox& box = figure.box;
                const QRectF room = map.mapRect(QRectF(QPointF(box.left + 0.3, box.low + 0.3),
                                                       QPointF(box.right - 0.3, box.high - 0.3)));
                const QRgb ink =
                    figure.kind == PlacedFigure::Kind::InPin ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
                const auto [own, struck] = CountInk(image, room, ink);
                EXPECT_GT(own, room.width() * room.height() / 20)
                    << figure.text << " in chamber " << figure.chamber + 1 << " at " << width;
                EXPECT_EQ(struck, 0)
                    << figure.text << " in chamber " << figure.chamber + 1 << " at " << width;
            }
        }
}

/// Takes down the words that are painted, and whether some of them were cut off.
class WordRecorder : public QPaintEngine {
public:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}
    void drawTextItem(const QPointF&, const QTextItem& item) override {
        words += item.text();
        cutOff = cutOff || painter()->hasClipping();
    }

    QString words;
    bool cutOff = false;
};

class RecordedPaper : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return &recorder; }

    mutable WordRecorder recorder;

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 72;
        default:
            return 1;
        }
    }
};

/// The outermost pixels of a page that are not white, in points from its upper left corner.
QRect InkOf(const QImage& image, const QPoint& corner) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink.translated(-corner);
}

class ChartPage : public testing::Test {
protected:
    void SetUp() override {
        request.key = "3571624";
        request.master = "3951724";
        request.control = "5273940";
        request.keyID = "A1";
    }

    void Paint(QPainter& painter, const QSize& paper) {
        PaintChartPage(painter, paper, MakePinningChart(program.session, request),
                       "Quorrel for Harbour Locks", QDate(2026, 3, 15));
    }

    /// Nothing is painted beside the paper, and no word is missing.
    void ExpectWhole(const QSize& paper) {
        SCOPED_TRACE(std::to_string(paper.width()) + " x " + std::to_string(paper.height()));
        const QPoint corner(100, 100);
        QImage image(paper + QSize(400, 600), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(corner);
        Paint(painter, paper);
        painter.end();
        const QRect ink = InkOf(image, corner);
        EXPECT_TRUE(QRect(QPoint(-1, -1), paper + QSize(2, 2)).contains(ink))
            << "as far as " << ink.right() << ", " << ink.bottom();
        RecordedPaper recorded;
        QPainter recording(&recorded);
        Paint(recording, paper);
        recording.end();
        EXPECT_FALSE(recorded.recorder.cutOff);
        const QString words = recorded.recorder.words.remove(u' ');
        for (QString text : {request.system, request.address, request.lockBrand,
                             request.description, QStringLiteral("A=10"), QStringLiteral("J=19")})
            EXPECT_TRUE(words.contains(text.remove(u' '))) << text.toStdString();
    }

    TestProgram program;
    PinningRequest request;
    const std::vector<QSize> papers = {{527, 707}, {510, 757}, {335, 510}}; // Letter, A4, half A4
};

TEST_F(ChartPage, LosesNothingOnAnyPaper) {
    for (const QSize& paper : papers)
        ExpectWhole(paper);
}

TEST_F(ChartPage, LosesNothingOfTheLongestTexts) {
    request.system = request.lockBrand = QString(250, u'W');
    request.address = request.description = QStringLiteral("of the second door ").repeated(13);
    for (const QSize& paper : papers)
        ExpectWhole(paper);
}

} // namespace
} // namespace quorrel::test
