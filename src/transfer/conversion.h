#pragma once

#include "platform/string.h"

namespace korva {

// Temperature units as the devices and the option buttons spell them.
inline constexpr StringView kDegC = u"deg C";
inline constexpr StringView kDegF = u"deg F";
inline constexpr StringView kKelvin = u"K";

/// True for the three temperature units.
bool IsTemperatureUnit(StringView unit);

/// `value` in another temperature unit, rounded to one decimal (a tie to the even neighbour). The constants
/// are the rounded ones that the devices use (273.2, 255.4, 17.8). Equal units and texts that are no
/// temperature unit give 0.
double ConvertTemperature(StringView from, StringView to, double value);

/// The same of a lowest and of a highest value: in deg F and K the whole number within it.
double LowestInUnit(double limit, StringView unit);
double HighestInUnit(double limit, StringView unit);
/// A difference of two temperatures in another unit, without the offset, rounded in the same way. Texts that
/// are no temperature unit give 0.
double ConvertDifference(StringView from, StringView to, double value);

/// A limit of a definition file, in deg C, in `unit`, not rounded. Any other unit than deg F and K leaves it.
double LimitInUnit(double limit, StringView unit);
/// A difference of two temperatures in deg C, in `unit`: without the offset.
double SpanInUnit(double span, StringView unit);

/// A value as the devices report it: a number, and behind it its unit. Both empty for a text that begins with
/// no number.
struct Quantity {
  String number;
  String unit;
};
/// Split at the first character behind the leading number, both trimmed: "12.50 kHz", "12.50kHz".
Quantity SplitQuantity(StringView text);

/// A number of a field on the grid of the device: the text before and after, and the field's text after it.
struct GridRounding {
  bool number = false;  ///< false: the text begins with no number and nothing else here has a meaning
  String old_number;    ///< as shown to the user
  String new_number;
  String text;  ///< the new number with the unit that stood behind the old one
};
/// A time in msec, cut to the grid of 5 msec; first made a whole number, a tie to the even neighbour.
GridRounding RoundTo5Msec(const String& text);
/// A voltage in V, raised to the grid of 0.05 V; first brought to two decimals.
GridRounding RoundTo005V(const String& text);

}  // namespace korva
