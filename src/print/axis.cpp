#include "print/axis.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "print/contrast.h"

namespace korva {

namespace {

/// Spans smaller than this part of their values count as none: their ticks could not be told apart.
constexpr double kLeastSpan = 1e-9;

}  // namespace

std::vector<double> Axis::Ticks() const {
  std::vector<double> ticks;
  const double first = std::round(low / step);
  const auto count = static_cast<int>(std::lround((high - low) / step));
  for (int tick = 0; tick <= count; ++tick) {
    ticks.push_back((first + tick) * step);
  }
  return ticks;
}

Axis RoundAxis(double low, double high, int ticks) {
  const double size = std::max({1.0, std::abs(low), std::abs(high)});
  if (high - low < size * kLeastSpan) {
    low -= size / 10;
    high += size / 10;
  }
  const double least = (high - low) / ticks;
  const double decade = std::pow(10.0, std::floor(std::log10(least)));
  double step = 10 * decade;
  for (const double factor : {5.0, 2.0, 1.0}) {
    if (factor * decade >= least * (1 - kLeastSpan)) {
      step = factor * decade;
    }
  }
  return {.low = std::floor(low / step + kLeastSpan) * step,
          .high = std::ceil(high / step - kLeastSpan) * step,
          .step = step};
}

QString TickText(double value) { return QString::fromStdU16String(ShortestText(value)); }

QColor Mixed(const QPalette& palette, double strength) {
  return Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), strength);
}

}  // namespace korva
