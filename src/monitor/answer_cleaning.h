#pragma once

#include "platform/string.h"

namespace korva {

/// Turns a device's answer about a live value into what is shown of it; also a typed value into what is sent.
/// `prefix` is the text that the device puts before the value, as the definition tells.
using Cleaner = String (*)(StringView answer, StringView prefix);

// Each gives an empty text for an answer without a number.
String TrimNumericHead(StringView answer, StringView prefix);  ///< "DS:12.5" gives "12.5"
String TrimNumericTail(StringView answer, StringView prefix);  ///< "12.5 mA" gives "12.5"
/// As TrimNumericTail, with two decimals: "7.5 Hz" gives "7.50".
String TrimNumericTailFixed(StringView answer, StringView prefix);

/// Cuts as many characters as the prefix has, whatever they are, and blanks at both ends. "ERROR" and
/// "NEEDLESS" stay.
String StripItemPrefix(StringView answer, StringView prefix);
/// Drops blanks at both ends.
String TrimPlain(StringView answer, StringView prefix);

}  // namespace korva
