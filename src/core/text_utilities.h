#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/string.h"

namespace korva {

/// True when lower <= x <= upper. The upper limit is the first argument.
bool IsBetween(double upper, double lower, double x);

/// Cuts characters from the end until the text is numeric or empty, then blanks and TABs at both ends:
/// "12.5 mA" gives "12.5".
String TrimNumericText(StringView text);

/// The same with the characters cut from the front: "DS:12.5" gives "12.5".
String TrimNumericTextLeft(StringView text);

/// Keeps digits, signs and points in their order and drops all else; empty when that is no number.
String FilterNumericText(StringView text);

/// Value of the text less all but its digits, signs and points; 0 when that is no number.
double NumericValue(StringView text);

/// Replaces the first comma by a point.
String CommaToPoint(StringView text);

/// Full-width digits, signs and points become the half-width ones; all else stays.
String HalfWidthNumber(StringView text);

/// The text without blanks at both ends. TABs stay.
String Trimmed(StringView text);

/// The text without blanks of any kind at both ends, and with one blank for each run of them within.
String Simplified(StringView text);

/// True when the text has the pattern's characters, in which "?" stands for any one and "#" for any digit:
/// "Z2WT.def" is like "Z#W?.def".
bool IsLike(StringView text, StringView pattern);

/// The text with its places "{1}" to "{9}" filled with `arguments` in their order.
String Filled(StringView text, std::initializer_list<String> arguments);

/// The text of 7-bit characters; any other byte becomes U+FFFD.
String Ascii(std::string_view text);

/// The text as UTF-8, and back. A broken sequence becomes U+FFFD.
std::string ToUtf8(StringView text);
String FromUtf8(std::string_view text);

/// True when no sequence of the text is broken.
bool IsUtf8(std::string_view text);

}  // namespace korva
