#pragma once

#include <QStringList>

#include <optional>
#include <string>

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

/// A stored text as it reads; nothing for one that no `ScrambleText` has made.
std::optional<QString> Readable(const QString& stored);

/// The cuts and the mark of a key out of its stored text, `pins` + 1 characters; nothing when that
/// holds no such cuts.
std::optional<std::string> CutsOf(const QString& stored, int pins);

/// The cuts alone, `pins` digits; empty when they cannot be read.
std::string PlainCuts(const QString& stored, int pins);

/// The texts under which a key with these cuts can be stored: one for each mark.
QStringList StoredForms(const std::string& cuts);

} // namespace quorrel
