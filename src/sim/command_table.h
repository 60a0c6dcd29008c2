#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/point.h"

namespace korva::sim {

/// A linearizer table that travels through one item: each data is a command, and points count from 0. Values
/// are fractions of full scale with four decimals. At power-up it is the straight line of 11 points.
///
/// A new table is announced with its size, then comes point by point, and is in use once it is ended with all
/// its points; until then the device works with the former one.
class CommandTable {
 public:
  static constexpr std::size_t kMostPoints = 100;

  CommandTable();

  /// Answers a command: "P" the size, "T" with an index a point; and, where `writable`, "P" with a size, "T"
  /// with an index, X and Y, and "F".
  /// \return none for what it doesn't take.
  std::optional<std::string> Answer(std::string_view command, bool writable);

  /// Size and values of the table in use, "2 0.0000 0.0000 1.0000 1.0000".
  std::string Text() const;
  /// Takes a table as `Text` has it. \return false for any other text.
  bool Set(std::string_view text);

  const std::vector<Point>& Points() const { return points_; }

 private:
  std::optional<std::string> AnswerSize(std::string_view size, bool writable);
  std::optional<std::string> AnswerPoint(std::string_view text, bool writable);
  std::optional<std::string> End();

  std::vector<Point> points_;
  std::vector<std::optional<Point>> coming_;
};

}  // namespace korva::sim
