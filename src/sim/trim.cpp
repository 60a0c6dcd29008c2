#include "sim/trim.h"

#include <cmath>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr int kDecimals = 4;
constexpr double kStep = 0.0001;
constexpr double kRoundOff = 1e-9;

}  // namespace

std::string Trim::Text() const {
  return FormatNumber(zero_, kDecimals) + " " + FormatNumber(span_, kDecimals);
}

bool Trim::Apply(std::string_view command) {
  if (command == "C0") {
    *this = Trim();
    return true;
  }
  const bool zero = command.starts_with('Z');
  const auto steps = zero || command.starts_with('S') ? ParseNumber(command.substr(1)) : std::nullopt;
  if (!steps) {
    return false;
  }
  double& end = zero ? zero_ : span_;
  const double trimmed = end + (*steps * kStep);
  if (std::abs(trimmed - (zero ? 0 : 1)) > kFurthest + kRoundOff) {
    return false;
  }
  end = std::round(trimmed / kStep) * kStep;
  return true;
}

bool Trim::Set(std::string_view text) {
  const auto blank = text.find(' ');
  const auto zero = ParseNumber(text.substr(0, blank));
  const auto span = blank == std::string_view::npos ? std::nullopt : ParseNumber(text.substr(blank + 1));
  if (!zero || !span) {
    return false;
  }
  zero_ = *zero;
  span_ = *span;
  return true;
}

}  // namespace korva::sim
