#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/point.h"

namespace korva::sim {

/// A linearizer table that travels in a dialogue, one data line after the other for as long as its item is
/// selected again each time.
///
///     Idle --"C"--> Idle, the table is empty
///     Idle --"I"--> input number --a number of points--> input num-data, which takes "K X Y" for each
///     Idle --"O"--> output number --a number of points--> output num-data, which takes "K" for each
///
/// "C", "I" and "O" begin anew in each state. A line that it can't take is refused and changes nothing. At
/// power-up the table is the straight line from 0 to 100 % through five points.
class TableDialogue {
 public:
  static constexpr std::size_t kMostPoints = 100;

  /// Ends the dialogue; the table stays.
  void End() { state_ = State::Idle; }

  /// Whether the line belongs to the dialogue as it stands.
  bool Takes(std::string_view data) const;

  /// Whether the device gives its table, so that what it answers is no echo.
  bool Gives() const { return state_ == State::OutputNumber || state_ == State::Output; }

  /// What the device answers, without its padding; nothing when it refuses.
  /// \param programming  Whether the device is in programming mode, without which the table can't be changed.
  std::optional<std::string> Answer(std::string_view data, bool programming);

  /// The points in their order, in percent.
  const std::vector<Point>& Points() const { return points_; }
  void SetPoints(std::vector<Point> points) { points_ = std::move(points); }

 private:
  enum class State { Idle, InputNumber, Input, OutputNumber, Output };

  std::optional<std::string> Begin(char letter, bool programming);
  std::optional<std::string> TakeNumber(std::string_view data);
  std::optional<std::string> TakePoint(std::string_view data);
  std::optional<std::string> GivePoint(std::string_view data) const;

  State state_ = State::Idle;
  std::vector<Point> points_ = {
      {.x = 0, .y = 0}, {.x = 25, .y = 25}, {.x = 50, .y = 50}, {.x = 75, .y = 75}, {.x = 100, .y = 100}};
};

}  // namespace korva::sim
