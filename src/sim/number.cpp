#include "sim/number.h"

#include <array>
#include <charconv>
#include <cmath>

namespace korva::sim {

namespace {

constexpr std::size_t kLongestNumber = 340;  ///< characters: 309 digits, sign, point and decimals

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const auto begin = text.find_first_not_of(' ');
  return begin == std::string_view::npos ? std::string_view{}
                                         : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::optional<double> ParseNumber(std::string_view text) {
  if (text.find_first_not_of("+-.0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return std::nullopt;
    }
  }
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

std::string FormatNumber(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  // std::round halves away from zero; the addition turns a negative zero into a plain one.
  const double rounded = std::round(value * scale) / scale + 0.0;
  std::array<char, kLongestNumber> text{};
  const auto* const end =
      std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed, decimals).ptr;
  return {text.data(), static_cast<std::size_t>(end - text.data())};
}

}  // namespace korva::sim
