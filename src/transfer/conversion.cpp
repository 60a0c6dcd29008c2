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

/// How devices of the first version and later ones spell a sensor.
struct SensorSpelling {
  StringView short_text;
  StringView long_text;
};
constexpr std::array<SensorSpelling, kSensorTexts> kSpellings = {{
    {.short_text = u"Tc-1: (PR)", .long_text = u"Tc-1:  (PR)"},
    {.short_text = u"Tc-2:K(CA)", .long_text = u"Tc-2: K(CA)"},
    {.short_text = u"Tc-3:E(CRC)", .long_text = u"Tc-3: E(CRC)"},
    {.short_text = u"Tc-4:J(IC)", .long_text = u"Tc-4: J(IC)"},
    {.short_text = u"Tc-5:T(CC)", .long_text = u"Tc-5: T(CC)"},
    {.short_text = u"Tc-6:B(RH)", .long_text = u"Tc-6: B(RH)"},
    {.short_text = u"Tc-7:R", .long_text = u"Tc-7: R"},
    {.short_text = u"Tc-8:S", .long_text = u"Tc-8: S"},
    {.short_text = u"Tc-9:WRe5-26", .long_text = u"Tc-9: WRe5-26"},
    {.short_text = u"DS:straight", .long_text = u"PS: Straight"},
    {.short_text = u"Fx:linearizer", .long_text = u"FX: Linearizer"},
    {.short_text = u"RB-1:Pt100", .long_text = u"RB-1: Pt100"},
    {.short_text = u"RB-2:JPt100", .long_text = u"RB-2: JPt100"},
    {.short_text = u"RB-3:Pt 50", .long_text = u"RB-3: Pt 50"},
    {.short_text = u"RB-4:Ni508.4", .long_text = u"RB-4: Ni508.4"},
    {.short_text = u"Sq-1:no drop", .long_text = u"Sq-1:no drop"},
    {.short_text = u"Sq-2:drop out", .long_text = u"Sq-2:drop out"},
}};

constexpr SensorTexts TextsOf(StringView SensorSpelling::*text) {
  SensorTexts texts;
  std::transform(kSpellings.begin(), kSpellings.end(), texts.begin(),
                 [text](const SensorSpelling& sensor) { return sensor.*text; });
  return texts;
}
constexpr SensorTexts kShortTexts = TextsOf(&SensorSpelling::short_text);
constexpr SensorTexts kLongTexts = TextsOf(&SensorSpelling::long_text);

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

double LimitInUnit(double limit, StringView unit) {
  return unit == kDegF || unit == kKelvin ? Converted(kDegC, unit, limit) : limit;
}

double SpanInUnit(double span, StringView unit) { return unit == kDegF ? span * 9 / 5 : span; }

const SensorTexts& ShortSensorTexts() { return kShortTexts; }

const SensorTexts& LongSensorTexts() { return kLongTexts; }

const SensorTexts& SensorTextsOf(StringView version) {
  return version == u"SYSVER   1.00" ? kShortTexts : kLongTexts;
}

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
