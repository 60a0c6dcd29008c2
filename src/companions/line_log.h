#pragma once

#include <cstddef>
#include <vector>

#include "link/serial_link.h"

namespace korva {

/// The last lines of the traffic with the device: as many as kMost, then each new one takes the place of the
/// oldest. Lines are numbered from 0 in the order in which they came.
class LineLog {
 public:
  static constexpr int kMost = 5000;

  struct Line {
    Clock time{0};  ///< of the loop
    SerialLink::Traffic traffic{};
  };

  void Add(Clock time, const SerialLink::Traffic& traffic);
  [[nodiscard]] int First() const { return end_ - static_cast<int>(lines_.size()); }
  [[nodiscard]] int End() const { return end_; }
  /// A line from First() up to End().
  [[nodiscard]] const Line& At(int number) const { return lines_.at(PlaceOf(number)); }

 private:
  [[nodiscard]] static std::size_t PlaceOf(int number) { return static_cast<std::size_t>(number % kMost); }

  std::vector<Line> lines_;
  int end_ = 0;
};

/// The text with each control character in words or digits, so that it can be seen: "<CR>", "<1B>".
String WithVisibleControls(StringView text);

}  // namespace korva
