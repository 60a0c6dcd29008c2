#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "verdict.h"

namespace korva::bench {

/// Prints the benchmarks as usual and keeps what the report's rows need.
class Report final : public benchmark::ConsoleReporter {
 public:
  Report() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// The table of all rows in Markdown, and the machine.
  [[nodiscard]] std::string Table() const;
  /// True when every row was measured and is held.
  [[nodiscard]] bool AllHeld() const;

 private:
  Measurements measurements_;
};

}  // namespace korva::bench
