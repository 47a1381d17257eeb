#include "store/Scramble.h"

#include <algorithm>
#include <stdexcept>

namespace quorrel {

namespace {

/// False when a code is or would be out of range.
bool Shift(QString& text, int direction) {
    QString shifted = text;
    for (int place = 1; place <= text.size(); ++place) {
        const int code = text[place - 1].unicode();
        const int moved = code + (place % 2 == 0 ? place : -place) * direction;
        if (code > 255 || moved < 0 || moved > 255)
            return false;
        shifted[place - 1] = QChar(static_cast<char16_t>(moved));
    }
    text = shifted;
    return true;
}

void ShiftOrThrow(QString& text, int direction) {
    if (!Shift(text, direction))
        throw std::range_error("This text cannot be kept: it is too long, or it has a "
                               "character other than plain letters, digits and signs.");
}

} // namespace

void ScrambleText(QString& text) {
    ShiftOrThrow(text, 1);
}

void UnscrambleText(QString& text) {
    ShiftOrThrow(text, -1);
}

QString Scrambled(QString text) {
    ScrambleText(text);
    return text;
}

QString Unscrambled(QString text) {
    UnscrambleText(text);
    return text;
}

std::optional<std::string> CutsOf(const QString& stored, int pins) {
    QString text = stored.left(pins + 1);
    if (!Shift(text, -1))
        return std::nullopt;
    std::string cuts = text.toLatin1().toStdString();
    cuts.resize(static_cast<std::size_t>(pins) + 1, ' ');
    const bool digits = std::all_of(cuts.begin(), cuts.end() - 1,
                                    [](char cut) { return cut >= '0' && cut <= '9'; });
    return digits ? std::optional(cuts) : std::nullopt;
}

QStringList StoredForms(const std::string& cuts) {
    QStringList forms;
    for (const char mark : {' ', '*'})
        forms.append(Scrambled(QString::fromStdString(cuts + mark)));
    return forms;
}

} // namespace quorrel
