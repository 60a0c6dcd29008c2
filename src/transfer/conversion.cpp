#include "transfer/conversion.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {
namespace {

// The devices' own constants for 273.15, 255.37 and 17.78.
constexpr double kKelvinOffset = 273.2;
constexpr double kKelvinAtZeroDegF = 255.4;
constexpr double kDegCBelowZeroAtZeroDegF = 17.8;

double Converted(StringView from, StringView to, double value) {
  if (from == kDegC && to == kDegF) {
    return value * 9 / 5 + 32;
  }
  if (from == kDegC && to == kKelvin) {
    return value + kKelvinOffset;
  }
  if (from == kDegF && to == kDegC) {
    return value * 5 / 9 - kDegCBelowZeroAtZeroDegF;
  }
  if (from == kDegF && to == kKelvin) {
    return value * 5 / 9 + kKelvinAtZeroDegF;
  }
  if (from == kKelvin && to == kDegC) {
    return value - kKelvinOffset;
  }
  if (from == kKelvin && to == kDegF) {
    return (value - kKelvinOffset) * 9 / 5 + 32;
  }
  return 0;
}

/// Splits the number at the text's beginning from what follows it; a blank between them stays with the unit.
std::size_t NumberLength(const String& text) {
  std::size_t length = NumericLength(text);
  while (length > 0 && (text[length - 1] == u' ' || text[length - 1] == u'\t')) {
    --length;
  }
  return length;
}

/// Rounds a number of whole grid units (msec, hundredths of a volt) by its last digit.
GridRounding Rounded(const String& text, std::size_t number_length, double units, bool up, double unit_size,
                     StringView mask) {
  const double last_digit = std::fmod(std::abs(units), 10);
  double change = 0;
  if (last_digit != 0 && last_digit != 5) {
    const double step = last_digit < 5 ? 0 : 5;
    change = up ? step + 5 - last_digit : step - last_digit;
  }
  const double rounded = units + (units < 0 ? -change : change);
  const String new_number = FormatMask(rounded * unit_size, mask);
  return {.number = true,
          .old_number = FormatMask(units * unit_size, mask),
          .new_number = new_number,
          .text = new_number + text.substr(number_length)};
}

}  // namespace

bool IsTemperatureUnit(StringView unit) { return unit == kDegC || unit == kDegF || unit == kKelvin; }

double ConvertTemperature(StringView from, StringView to, double value) {
  return RoundHalfEven(Converted(from, to, value) * 10) / 10;
}

double ConvertDifference(StringView from, StringView to, double value) {
  if (!IsTemperatureUnit(from) || !IsTemperatureUnit(to)) {
    return 0;
  }
  const double kelvins = from == kDegF ? value * 5 / 9 : value;
  return RoundHalfEven((to == kDegF ? kelvins * 9 / 5 : kelvins) * 10) / 10;
}

double LimitInUnit(double limit, StringView unit) {
  return unit == kDegF || unit == kKelvin ? Converted(kDegC, unit, limit) : limit;
}

double LowestInUnit(double limit, StringView unit) {
  return unit == kDegF || unit == kKelvin ? WholeUp(LimitInUnit(limit, unit)) : limit;
}

double HighestInUnit(double limit, StringView unit) {
  return unit == kDegF || unit == kKelvin ? WholeDown(LimitInUnit(limit, unit)) : limit;
}

double SpanInUnit(double span, StringView unit) { return unit == kDegF ? span * 9 / 5 : span; }

Quantity SplitQuantity(StringView text) {
  const std::size_t length = NumericLength(text);
  return length == 0 ? Quantity()
                     : Quantity{.number = TrimNumericText(text), .unit = Trimmed(text.substr(length))};
}

GridRounding RoundTo5Msec(const String& text) {
  const std::size_t length = NumberLength(text);
  if (length == 0) {
    return {};
  }
  return Rounded(text, length, RoundHalfEven(LeadingNumber(text)), false, 1, u"#0");
}

GridRounding RoundTo005V(const String& text) {
  const std::size_t length = NumberLength(text);
  if (length == 0) {
    return {};
  }
  const double hundredths = std::round(LeadingNumber(FormatMask(LeadingNumber(text), u"0.00")) * 100);
  return Rounded(text, length, hundredths, true, 0.01, u"0.00");
}

}  // namespace korva
