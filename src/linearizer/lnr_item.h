#pragma once

#include "files/parameter_page.h"
#include "linearizer/lnr_table.h"

namespace korva {

// A table whose every value is an item of the device.

/// The item of a value as it is selected on the wire.
WireItem WireOfPoint(const PointPlace& place);

/// The value behind the head of a reply ("X(05):"); empty for one that has no more than the head, and for an
/// item of no use.
String LnrValueOf(const String& reply);

/// True when `value` begins with the number that was sent, give or take 0.01, to which devices round. A text
/// without a number is never the same as anything.
bool LnrValueMatches(const String& sent, const String& value);
/// The same for the value behind the head of a reply.
bool LnrReplyMatches(const String& sent, const String& reply);

/// Reads the item of a value, writes what the set holds for it, an empty cell as 0, and proves that. False
/// when the device did not take it.
bool WriteLnrValue(const ParameterPage& page, const PointPlace& place);

}  // namespace korva
