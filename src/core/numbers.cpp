#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

namespace korva {
namespace {

constexpr int kSignificantDigits = 15;
// Far below any digit of a device's value, far above what binary fractions lose.
constexpr double kComputingError = 1e-9;

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsSign(char16_t c) { return c == u'+' || c == u'-'; }
bool IsExponentMark(char16_t c) { return c == u'e' || c == u'E' || c == u'd' || c == u'D'; }

/// Reads a number character by character. States: before the sign, before the digits, in them before or
/// behind the point, behind the exponent mark, behind its sign, in its digits, behind the number.
class NumberScanner {
 public:
  /// Takes the next character; false when no number goes on with it.
  bool Take(char16_t c) {
    if (IsDigit(c)) {
      return TakeDigit();
    }
    if (c == u'.') {
      return TakePoint();
    }
    if (IsSign(c)) {
      return TakeSign();
    }
    if (IsExponentMark(c)) {
      return TakeExponentMark();
    }
    return false;
  }

  /// True when what was taken is a whole number.
  [[nodiscard]] bool Complete() const {
    return (part_ == Part::Digits && digits_) || part_ == Part::ExponentDigits;
  }
  [[nodiscard]] bool Started() const { return part_ != Part::Start; }

 private:
  enum class Part { Start, Digits, ExponentMark, ExponentSign, ExponentDigits };

  bool TakeDigit() {
    if (part_ == Part::Start || part_ == Part::Digits) {
      part_ = Part::Digits;
      digits_ = true;
    } else {
      part_ = Part::ExponentDigits;
    }
    return true;
  }
  bool TakePoint() {
    if ((part_ != Part::Start && part_ != Part::Digits) || point_) {
      return false;
    }
    part_ = Part::Digits;
    point_ = true;
    return true;
  }
  bool TakeSign() {
    if (part_ == Part::Start) {
      part_ = Part::Digits;
      return true;
    }
    if (part_ == Part::ExponentMark) {
      part_ = Part::ExponentSign;
      return true;
    }
    return false;
  }
  bool TakeExponentMark() {
    if (!Complete() || part_ != Part::Digits) {
      return false;
    }
    part_ = Part::ExponentMark;
    return true;
  }

  Part part_ = Part::Start;
  bool digits_ = false;
  bool point_ = false;
};

/// Value of a complete number in plain characters ('e' as exponent mark, no plus sign in front). Out of the
/// range of a double, it is the largest one or 0.
double ValueOf(std::string_view number) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc::result_out_of_range) {
    return value + 0.0;  // makes a negative zero positive
  }
  // Too large or too small: the decimal place of the first digit that isn't 0 tells.
  const std::size_t mark = std::min(number.find('e'), number.size());
  const std::string_view digits = number.substr(0, mark);
  const std::size_t first = digits.find_first_of("123456789");
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const double place = static_cast<double>(point) - static_cast<double>(first);
  const bool negative_exponent = mark + 1 < number.size() && number[mark + 1] == '-';
  double exponent = 0.0;
  for (const char c : number.substr(mark)) {
    exponent = c >= '0' && c <= '9' ? exponent * 10.0 + (c - '0') : exponent;
  }
  if (place + (negative_exponent ? -exponent : exponent) < 0.0) {
    return 0.0;
  }
  const double largest = std::numeric_limits<double>::max();
  return number.front() == '-' ? -largest : largest;
}

double Finite(double value) {
  if (std::isnan(value)) {
    return 0.0;
  }
  const double largest = std::numeric_limits<double>::max();
  return std::clamp(value, -largest, largest);
}

/// A value as decimal digits: 0.d1 d2 d3 ... times ten to the power of `point`, no trailing zeros; no digits
/// for 0.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

Decimal DecimalOf(double value) {
  std::array<char, 40> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::abs(Finite(value)),
                                          std::chars_format::scientific, kSignificantDigits - 1);
  const std::string_view written(text.data(), static_cast<std::size_t>(end - text.data()));
  const std::size_t mark = written.find('e');
  Decimal decimal;
  decimal.negative = value < 0.0;
  decimal.digits = std::string(written.substr(0, 1)) + std::string(written.substr(2, mark - 2));
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  std::string_view exponent = written.substr(mark + 1);
  if (exponent.front() == '+') {
    exponent.remove_prefix(1);
  }
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
  decimal.point += 1;
  return decimal;
}

/// Cuts the value after `places` decimal places, rounding halves away from zero.
void RoundTo(Decimal& decimal, int places) {
  const int kept = decimal.point + places;
  if (kept >= static_cast<int>(decimal.digits.size())) {
    return;
  }
  const bool up = kept >= 0 && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
  if (up) {
    while (!decimal.digits.empty() && decimal.digits.back() == '9') {
      decimal.digits.pop_back();
    }
    if (decimal.digits.empty()) {
      decimal.digits = "1";
      decimal.point += 1;
    } else {
      ++decimal.digits.back();
    }
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
}

/// Digit at a decimal place: 0 the first one before the point, -1 the first one behind it.
char16_t DigitAt(const Decimal& decimal, int place) {
  const int index = decimal.point - 1 - place;
  const bool held = index >= 0 && index < static_cast<int>(decimal.digits.size());
  return held ? static_cast<char16_t>(decimal.digits[static_cast<std::size_t>(index)]) : u'0';
}

String WithExponent(const Decimal& decimal) {
  const int exponent = decimal.point - 1;
  String text;
  for (std::size_t index = 0; index < decimal.digits.size(); ++index) {
    if (index == 1) {
      text += u'.';
    }
    text += static_cast<char16_t>(decimal.digits[index]);
  }
  text += exponent < 0 ? u"E-" : u"E+";
  const std::string number = std::to_string(std::abs(exponent));
  if (number.size() < 2) {
    text += u'0';
  }
  return text.append(number.begin(), number.end());
}

/// True for an integer in digits alone, few enough for an int.
bool IsPlainInteger(StringView text) {
  return text.size() <= std::numeric_limits<int>::digits10 && std::all_of(text.begin(), text.end(), IsDigit);
}

}  // namespace

double LeadingNumber(StringView text) {
  NumberScanner scanner;
  std::string taken;
  std::size_t complete = 0;
  for (const char16_t c : text) {
    if (IsBlank(c)) {
      continue;
    }
    if (!scanner.Take(c)) {
      break;
    }
    if (c != u'+' || !taken.empty()) {
      taken += IsExponentMark(c) ? 'e' : static_cast<char>(c);
    }
    complete = scanner.Complete() ? taken.size() : complete;
  }
  return complete == 0 ? 0.0 : ValueOf(std::string_view(taken).substr(0, complete));
}

int LeadingInteger(StringView text) {
  // Such as the index of a control, which is asked for each time that a page shows or judges one.
  if (IsPlainInteger(text)) {
    return std::accumulate(text.begin(), text.end(), 0,
                           [](int number, char16_t digit) { return 10 * number + (digit - u'0'); });
  }
  const double rounded = RoundHalfEven(LeadingNumber(text));
  return static_cast<int>(std::clamp(rounded, static_cast<double>(std::numeric_limits<int>::min()),
                                     static_cast<double>(std::numeric_limits<int>::max())));
}

std::size_t NumericLength(StringView text) {
  NumberScanner scanner;
  std::size_t length = 0;
  bool ended = false;
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (IsBlank(text[index])) {
      ended = ended || scanner.Started();
    } else if (ended || !scanner.Take(text[index])) {
      break;
    }
    length = scanner.Complete() ? index + 1 : length;
  }
  return length;
}

bool IsPlainDecimal(StringView text) {
  return IsNumeric(text) && text.find_first_not_of(u"+-.0123456789") == StringView::npos;
}

bool IsNumeric(StringView text) { return !text.empty() && NumericLength(text) == text.size(); }

String ShortestText(double value) {
  const Decimal decimal = DecimalOf(value);
  if (decimal.digits.empty()) {
    return u"0";
  }
  const int places = std::max(static_cast<int>(decimal.digits.size()) - decimal.point, 0);
  String text = decimal.negative ? u"-" : u"";
  if (decimal.point > kSignificantDigits || places > kSignificantDigits) {
    return text + WithExponent(decimal);
  }
  for (int place = std::max(decimal.point - 1, 0); place >= -places; --place) {
    if (place == -1) {
      text += u'.';
    }
    text += DigitAt(decimal, place);
  }
  return text;
}

String FormatMask(double value, StringView mask) {
  const std::size_t point = std::min(mask.find(u'.'), mask.size());
  const StringView whole = mask.substr(0, point);
  const StringView fraction = mask.substr(std::min(point + 1, mask.size()));
  const int places = static_cast<int>(
      std::count_if(fraction.begin(), fraction.end(), [](char16_t c) { return c == u'0' || c == u'#'; }));
  const int fixed_whole = static_cast<int>(std::count(whole.begin(), whole.end(), u'0'));
  const int fixed_places = static_cast<int>(std::count(fraction.begin(), fraction.end(), u'0'));

  Decimal decimal = DecimalOf(value);
  RoundTo(decimal, places);
  const int held_places = static_cast<int>(decimal.digits.size()) - decimal.point;
  const int shown_places = decimal.digits.empty() ? fixed_places : std::max(fixed_places, held_places);
  const int shown_whole = decimal.digits.empty() ? fixed_whole : std::max(fixed_whole, decimal.point);
  String text = decimal.negative && !decimal.digits.empty() ? u"-" : u"";
  for (int place = shown_whole - 1; place >= -shown_places; --place) {
    if (place == -1) {
      text += u'.';
    }
    text += DigitAt(decimal, place);
  }
  return text;
}

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  const bool up = part > 0.5 || (part == 0.5 && std::fmod(below, 2.0) != 0.0);
  return (up ? below + 1.0 : below) + 0.0;
}

double WholeUp(double value) { return std::ceil(value - kComputingError); }

double WholeDown(double value) { return std::floor(value + kComputingError); }

bool AtLeast(double value, double limit) { return value >= limit - kComputingError; }

}  // namespace korva
