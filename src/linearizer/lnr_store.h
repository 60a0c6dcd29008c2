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

/// The texts of a point.
struct PointTexts {
  String x;
  String y;
  bool operator==(const PointTexts&) const = default;
};

/// What a device gave of its table.
struct LnrReading {
  std::vector<PointTexts> points;  ///< none when it holds no table; a point that it didn't give is empty
  bool complete = true;            ///< false when something could not be read
};

/// Where some models have their table of 100 points in place of an item for each value. Both transfers show
/// in `bar` how far they are.
class LnrStore {
 public:
  LnrStore() = default;
  LnrStore(const LnrStore&) = delete;
  LnrStore& operator=(const LnrStore&) = delete;
  virtual ~LnrStore() = default;

  /// True when the chosen model has its table here.
  [[nodiscard]] virtual bool Serves() const = 0;
  /// Reads the table; the device is in monitor mode before and after it.
  [[nodiscard]] virtual LnrReading Read(ProgressBar& bar) = 0;
  /// Makes the device ready to be written to. False, after its box, when it isn't.
  virtual bool BeginWriting() { return true; }
  /// Writes 2 to 100 points, all texts numbers, X rising. False when they were not all taken, after a box of
  /// its own where there is one.
  virtual bool Write(std::span<const PointTexts> points, ProgressBar& bar) = 0;
};

}  // namespace korva
