#include "store/Scramble.h"

#include <algorithm>
#include <stdexcept>

namespace quorrel {

namespace {

/// Empty when a code is or would be out of range.
std::optional<QString> Shifted(const QString& text, int direction) {
    QString shifted = text;
    for (int place = 1; place <= text.size(); ++place) {
        const int code = text[place - 1].unicode();
        const int moved = code + (place % 2 == 0 ? place : -place) * direction;
        if (code > 255 || moved < 0 || moved > 255)
            return std::nullopt;
        shifted[place - 1] = QChar(static_cast<char16_t>(moved));
    }
    return shifted;
}

} // namespace

void ScrambleText(QString& text) {
    const auto scrambled = Shifted(text, 1);
    if (!scrambled)
        throw std::range_error("This text cannot be kept: it is too long, or it has a character "
                               "other than plain letters, digits and signs.");
    text = *scrambled;
}

void UnscrambleText(QString& text) {
    const auto plain = Readable(text);
    if (!plain)
        throw std::range_error("A stored text cannot be read: it is damaged, or it was not stored "
                               "by Quorrel.");
    text = *plain;
}

QString Scrambled(QString text) {
    ScrambleText(text);
    return text;
}

QString Unscrambled(QString text) {
    UnscrambleText(text);
    return text;
}

std::optional<QString> Readable(const QString& stored) {
    return Shifted(stored, -1);
}

std::optional<std::string> CutsOf(const QString& stored, int pins) {
    const auto text = Readable(stored.left(pins + 1));
    if (!text)
        return std::nullopt;
    std::string cuts = text->toLatin1().toStdString();
    cuts.resize(static_cast<std::size_t>(pins) + 1, ' ');
    const bool digits = std::all_of(cuts.begin(), cuts.end() - 1,
                                    [](char cut) { return cut >= '0' && cut <= '9'; });
    return digits ? std::optional(cuts) : std::nullopt;
}

std::string PlainCuts(const QString& stored, int pins) {
    return CutsOf(stored, pins).value_or(std::string()).substr(0, static_cast<std::size_t>(pins));
}

QStringList StoredForms(const std::string& cuts) {
    QStringList forms;
    for (const char mark : {' ', '*'})
        forms.append(Scrambled(QString::fromStdString(cuts + mark)));
    return forms;
}

} // namespace quorrel
