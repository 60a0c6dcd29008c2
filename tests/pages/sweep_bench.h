#pragma once

#include <string>
#include <vector>

#include "page_bench.h"

namespace korva::test {

/// A break of the line that begins with exchange `at` (from 0).
struct Break {
  sim::Fault fault = sim::Fault::Silent;
  bool for_good = false;
  std::size_t at = 0;

  [[nodiscard]] std::string Name() const;
  /// False for a device that answers too late for good: what it is asked and what it answers then depends on
  /// each instant.
  [[nodiscard]] bool Foreseen() const { return fault != sim::Fault::Late || !for_good; }
};

/// Each exchange silent, refused, garbled and late, once and for good, and doubled once.
std::vector<Break> BreaksOf(std::size_t exchanges);

/// No run takes longer than this: 80 exchanges that each wait in vain, four times.
inline constexpr Clock kLongestRun = std::chrono::minutes(30);

/// The device reports what the page keeps, item by item: a number as the same number, anything else to the
/// letter.
void ExpectDeviceHolds(const ParameterPage& page, const sim::Device& device);

/// A program with a device of the model, whose set has been uploaded. Exchanges are counted from there.
class SweepBench : public PageBench {
 public:
  explicit SweepBench(const String& model);

  void StartBreak(const Break& line_break);
  /// The parameter set's cells of group "01".
  std::vector<String> SetOf();
  /// Nothing is left of an operation: the program runs on, with an unlocked page.
  void ExpectUsable();
  /// The line is good again: what is still under way arrives, and an upload brings the device's set.
  void ExpectUploadWorks();

  sim::Device& device;
  std::vector<std::string> commands;  ///< sent since the upload
  std::vector<String> uploaded;       ///< SetOf() after the upload

 private:
  std::vector<int> open_tabs_;  ///< after the upload, the linearizer's apart
};

}  // namespace korva::test
