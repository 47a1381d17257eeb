#pragma once

#include <QString>

namespace quorrel {

/// Replaces a text by its scrambled form: the character at an even place i gains i on its code,
/// one at an odd place loses i. Keeps casual eyes off stored cuts and passwords; no key is
/// involved. Throws `std::range_error`, leaving the text as it was, when a code is or would be
/// outside 0 to 255.
void ScrambleText(QString& text);

/// The reverse of `ScrambleText`.
void UnscrambleText(QString& text);

QString Scrambled(QString text);
QString Unscrambled(QString text);

} // namespace quorrel
