#pragma once

#include <QString>

namespace quorrel {

/// Text operations with 1-based places, as the stored formats are told in them.
QString Left(const QString& text, int count);
QString Right(const QString& text, int count);
QString Mid(const QString& text, int place, int count = -1);

/// The number that leads a text, blanks passed over; 0 when there is none.
double Val(const QString& text);

/// `Val` rounded down to a whole number, held within the range of an int.
int IntVal(const QString& text);

/// A number's decimal text to 15 significant digits: a blank before one that isn't negative, and
/// no zero before the point.
QString Str(double number);

/// Text cut or filled with blanks on the right to exactly `width` characters.
QString Padded(const QString& text, int width);

/// Text without its right-hand blanks, and how many characters that leaves.
qsizetype TrimmedSize(QStringView text);
QString RightTrimmed(const QString& text);

/// Text without the line ends behind it.
QString WithoutLastLineEnds(QString text);

/// Text on one line: each line end, whichever kind it is of, becomes two blanks.
QString OneLine(QString text);

/// A user's text as a message names it: on one line, and cut where it is too long for that.
QString Named(const QString& text);

/// Nothing but blanks, or nothing at all.
bool IsBlank(const QString& text);

/// Whether a text begins with another one, which is in capitals, whatever its own case.
bool BeginsWith(const QString& text, const QString& capitals);

/// A stored value that begins with two blanks, or is empty, counts as no value.
bool IsNoValue(const QString& text);

} // namespace quorrel
