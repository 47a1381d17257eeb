#include "store/Scramble.h"

#include <stdexcept>

namespace quorrel {

namespace {

void Shift(QString& text, int direction) {
    QString shifted = text;
    for (int place = 1; place <= text.size(); ++place) {
        const int code = text[place - 1].unicode();
        const int moved = code + (place % 2 == 0 ? place : -place) * direction;
        if (code > 255 || moved < 0 || moved > 255)
            throw std::range_error("This text cannot be kept: it is too long, or it has a "
                                   "character other than plain letters, digits and signs.");
        shifted[place - 1] = QChar(static_cast<char16_t>(moved));
    }
    text = shifted;
}

} // namespace

void ScrambleText(QString& text) {
    Shift(text, 1);
}

void UnscrambleText(QString& text) {
    Shift(text, -1);
}

QString Scrambled(QString text) {
    ScrambleText(text);
    return text;
}

QString Unscrambled(QString text) {
    UnscrambleText(text);
    return text;
}

} // namespace quorrel
