#pragma once

#include <cstddef>

#include "platform/string.h"

namespace korva {

// Numbers as text, read and written in the same way under every locale of the machine.

/// The number with which the text begins: optional sign, digits with at most one decimal point, optional
/// exponent (e, E, d or D). Blanks and TABs are skipped wherever they stand. What follows is ignored ("1.5.2"
/// is 1.5); a text that begins with no number counts 0. A number too large for a double gives the largest
/// one.
double LeadingNumber(StringView text);

/// The leading number as an integer: rounded, a tie to the even neighbour, and held to the range of int.
int LeadingInteger(StringView text);

/// True when the whole text is a number: optional sign, digits with at most one decimal point, optional
/// exponent; blanks and TABs around it are allowed.
bool IsNumeric(StringView text);

/// True when the text is a number as devices write it: an optional sign, digits with at most one decimal
/// point, and nothing else.
bool IsPlainDecimal(StringView text);

/// Length of the longest beginning of the text that is numeric; 0 when none is.
std::size_t NumericLength(StringView text);

/// Shortest decimal form of the value, with at most 15 significant digits: 0.2 + 0.1 gives "0.3". A value
/// whose plain form needs more than 15 digits before or after the point has an exponent ("1E+20").
String ShortestText(double value);

/// The value by a number mask: `0` a fixed digit, `#` an optional one, a point ("#0", "0.00", "#0.000").
/// Rounds halves away from zero on the value's 15 decimal digits, so that 2.675 by "0.00" gives "2.68". Never
/// "-0".
String FormatMask(double value, StringView mask);

/// The next whole number at or above the value, and at or below it. What a computation leaves behind the
/// ninth decimal doesn't count as a fraction.
double WholeUp(double value);
double WholeDown(double value);

/// True when `value` is at least `limit`, both meant as the decimal numbers that a user reads: 0.3 - 0.2 is
/// at least 0.1.
bool AtLeast(double value, double limit);

/// The nearest integer; a tie goes to the even neighbour.
double RoundHalfEven(double value);

}  // namespace korva
