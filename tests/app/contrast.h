#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace korva::test {

/// How bright a colour looks, 0 to 1.
inline double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// How well two colours can be told apart, 1 to 21.
inline double ContrastOf(const QColor& one, const QColor& other) {
  const auto [low, high] = std::minmax({Luminance(one), Luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

}  // namespace korva::test
