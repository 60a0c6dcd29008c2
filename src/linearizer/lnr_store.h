#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/control.h"

namespace korva {

/// A point of a table, both values in percent.
struct LnrPoint {
  double x = 0;
  double y = 0;
  bool operator==(const LnrPoint&) const = default;
};

/// Where some models keep their table of 100 points in place of its items. Both transfers leave the device in
/// whatever mode they need, and show in `bar` how far they are.
class LnrStore {
 public:
  LnrStore() = default;
  LnrStore(const LnrStore&) = delete;
  LnrStore& operator=(const LnrStore&) = delete;
  virtual ~LnrStore() = default;

  /// True when the chosen model keeps its table here.
  [[nodiscard]] virtual bool Serves() const = 0;
  /// The points that the device holds, none when it holds no table; nothing when it can't be read.
  [[nodiscard]] virtual std::optional<std::vector<LnrPoint>> Read(ProgressBar& bar) = 0;
  /// Writes 2 to 100 points, X rising. False when they were not all taken.
  virtual bool Write(std::span<const LnrPoint> points, ProgressBar& bar) = 0;
};

}  // namespace korva
