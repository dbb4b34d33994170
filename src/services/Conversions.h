#pragma once

#include <QString>
#include <QVariant>
#include <optional>

// Conversions between the loosely typed values of settings and arguments and the
// program's numbers and texts.

// True for a text that reads as a number: blanks around it, an optional sign, digits with
// an optional fraction and exponent, or "&H" hex and "&O" octal. The decimal point is ".".
bool IsNumeric(const QString& text);

// The number a text reads as, when IsNumeric holds.
std::optional<double> NumericValue(const QString& text);

// A value as a signed 32-bit integer, rounded half to even. A text that isn't a number
// raises TypeMismatch, a value outside 32 bits Overflow. An empty value is 0.
qint32 ToLong(const QVariant& value);

// The text form of a value: numbers in decimal with "." and up to 15 digits, booleans as
// "True" and "False", texts as they are.
QString TextOf(const QVariant& value);
