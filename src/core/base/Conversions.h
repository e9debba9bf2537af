// SPDX-License-Identifier: MIT
#pragma once

// Conversions with the classic runtime's results. Every module that turns
// numbers, dates or Variants into text, or text into them, goes through here.

#include <QDate>
#include <QString>
#include <QVariant>

#include <optional>

namespace zolt {

// A Double as text: 15 significant digits, plain between 1E-4 and 1E15,
// otherwise mantissa and exponent ("1.23456789012346E+17", "1E-05").
// A value that is not finite raises error 6.
QString DoubleToText(double value);

// A Double rounded half to even to a 32-bit whole number; error 6 beyond the range.
qint32 RoundToLong(double value);

// Blanks around, a sign, digits that may be grouped by "," between digits,
// one "." decimal point and an exponent.
bool IsNumeric(const QString &text);
bool IsNumeric(const QVariant &value);

// The number a numeric text or Variant stands for; error 13 when it is not numeric.
double ToDouble(const QString &text);
double ToDouble(const QVariant &value);

// A real calendar date written day first as d/m/y (one or two digits for day
// and month, one to four for the year), optionally between "#" delimiters.
bool IsDate(const QString &text);
std::optional<QDate> ParseDayFirstDate(const QString &text);

// The calendar date of day, month and a year of one to four digits; years
// below 100 ("98", "0098") fall in 1930..2029, like the runtime's century window.
std::optional<QDate> MakeDate(int day, int month, const QString &yearDigits);

// A Variant as text: a database Null as "", a Double as DoubleToText,
// a Boolean as "True" / "False".
QString VariantToText(const QVariant &value);

// "" for a database Null, else the value as text.
QString NullToStr(const QVariant &value);

// The value as a whole number when numeric (half to even), else 0; error 6
// beyond the 32-bit range.
qint32 LngVal(const QVariant &value);

// The value rounded half to even to a 32-bit whole number when it is numeric,
// else 0; error 6 beyond the 32-bit range.
double NumVal(const QVariant &value);

QString UCase(const QString &text);

// True when two names are the same without regard to case, as the
// initialisation files and the registry compare section, key and value names.
bool SameText(const QString &a, const QString &b);

// The text without the blanks (spaces only) at its ends.
QString Trim(const QString &text);

// 1-based position of pattern in text, searching from position start; 0 when absent.
int InStr(int start, const QString &text, const QString &pattern);
inline int InStr(const QString &text, const QString &pattern) { return InStr(1, text, pattern); }

// 1-based substring from start, length characters or to the end.
QString Mid(const QString &text, int start, int length = -1);

// Lengths of the classic dialogs were reckoned in twips, 15 to a pixel.
constexpr int TwipsPerPixel = 15;
constexpr int ToPixels(int twips) { return (twips + TwipsPerPixel / 2) / TwipsPerPixel; }
constexpr int ToTwips(int pixels) { return pixels * TwipsPerPixel; }

} // namespace zolt
