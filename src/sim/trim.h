#pragma once

#include <string>
#include <string_view>

namespace korva::sim {

/// The trim of an output: its zero and its span, as fractions of full scale with four decimals. At power-up
/// the zero is 0 and the span 1. The device itself takes more than a configurator should send.
class Trim {
 public:
  /// Furthest that either end can be trimmed.
  static constexpr double kFurthest = 0.10;

  /// Both values, "0.0100 1.0000".
  std::string Text() const;

  /// Carries a command out: "Z" or "S" with a difference in hundredths of a percent, such as "Z-10", for zero
  /// or span; "C0" resets both.
  /// \return false for any other text and beyond `kFurthest`; nothing changes then.
  bool Apply(std::string_view command);

  /// Takes both values as `Text` has them. \return false for a text that isn't two numbers.
  bool Set(std::string_view text);

  /// An output of so many percent as it comes out.
  double Applied(double percent) const { return (percent * span_) + (100 * zero_); }

 private:
  double zero_ = 0;
  double span_ = 1;
};

}  // namespace korva::sim
