#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace korva::sim {

// What transmitters measure and give.
inline constexpr double kLowestReading = -15;  ///< Of an output, in %.
inline constexpr double kHighestReading = 115;
inline constexpr double kTerminals = 25;  ///< Degrees at the cold junction.

/// The device's measurement: an input that wanders about the middle of its range, the same way after each
/// power-up, one step with each read. A forced output takes the place of the measured one, and the input
/// values follow it.
class LiveValues {
 public:
  /// Lowest and highest output that can be forced, in percent.
  static constexpr double kLowestOutput = -20.0;
  static constexpr double kHighestOutput = 120.0;

  /// Moves the measurement one step on.
  void Step() { ++reads_; }

  /// Present value of an item.
  /// \param zero,span  The item's value at 0 % and at 100 % of the range.
  double Value(std::string_view item, double zero, double span) const;

  /// Forces the output.
  /// \return false when the percentage is beyond what the output can do; nothing changes then.
  bool Force(double percent);
  void Release() { forced_.reset(); }
  /// The percentage that the output is forced to; none while it isn't.
  std::optional<double> Forced() const { return forced_; }

  /// Lets an item stand still at a value.
  void Hold(std::string_view item, double value) { held_[std::string(item)] = value; }
  /// The value that an item stands still at; none while it doesn't.
  std::optional<double> Held(std::string_view item) const;

 private:
  unsigned reads_ = 0;
  std::optional<double> forced_;
  std::map<std::string, double, std::less<>> held_;
};

}  // namespace korva::sim
