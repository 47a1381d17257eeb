#include "widgets/KeyPainter.h"

#include "engine/CellStates.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quorrel::test {
namespace {

/// How much light a colour gives, 0 to 1 (WCAG 2.2, "relative luminance").
double LuminanceOf(const QColor& colour) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
}

/// How far two colours stand off from each other, 1 to 21 (WCAG 2.2, "contrast ratio").
double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

std::vector<int> PicturedStates() {
    std::vector<int> states;
    for (int state = 0; state < 40; ++state)
        if (HasPicture(state))
            states.push_back(state);
    return states;
}

TEST(KeyPainter, EveryKeyStandsOffFromWhatItLiesOn) {
    // Grounds of windows and of what is typed in, in the usual light and dark styles.
    const std::vector<QColor> grounds[] = {{"#ffffff", "#f7f7f7", "#efefef", "#e6e6e6"},
                                           {"#404040", "#353535", "#323232", "#2a2a2a", "#191919"}};
    for (const bool onDark : {false, true})
        for (const int state : PicturedStates()) {
            const KeyLook look = LookOfState(state, onDark);
            for (const QColor& window : grounds[onDark]) {
                const QColor ground = look.plate.isValid() ? look.plate : window;
                EXPECT_GE(Contrast(look.colour, ground), 3) << state << onDark;
                EXPECT_GE(Contrast(look.colour, window), 3) << "the plate's edge, " << state;
                if (look.notRecommended) {
                    EXPECT_GE(Contrast(look.line, ground), 3) << state << onDark;
                }
            }
        }
}

/// A state's picture in black on white, as whoever sees no colours has it.
QImage WithoutColours(int state) {
    KeyLook look = LookOfState(state, false);
    look.colour = look.line = Qt::black;
    if (look.plate.isValid())
        look.plate = Qt::white;
    QImage image(26, 12, QImage::Format_Grayscale8); // the smallest that is shown
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintKey(painter, QRectF(image.rect()).adjusted(1, 0.5, -1, -0.5), look);
    return image;
}

TEST(KeyPainter, StatesAreToldApartWithoutColours) {
    const auto states = PicturedStates();
    for (const int one : states)
        for (const int other : states) {
            if (one >= other)
                continue;
            const QImage left = WithoutColours(one);
            const QImage right = WithoutColours(other);
            int different = 0;
            for (int y = 0; y < left.height(); ++y)
                for (int x = 0; x < left.width(); ++x)
                    different +=
                        std::abs(qGray(left.pixel(x, y)) - qGray(right.pixel(x, y))) > 60 ? 1 : 0;
            EXPECT_GE(different, 6) << one << " and " << other;
        }
}

} // namespace
} // namespace quorrel::test
