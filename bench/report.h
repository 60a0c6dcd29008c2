#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace korva::bench {

/// Prints the benchmarks as usual and keeps what the table of the requirements needs.
class Report final : public benchmark::ConsoleReporter {
 public:
  Report() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// The table in Markdown: what was asked, the limit, what was measured, and the machine. A row whose
  /// benchmarks did not run is left out.
  [[nodiscard]] std::string Table() const;

 private:
  /// The fastest repetition of a ratio's side, the median of others; nothing when the benchmark did not run.
  [[nodiscard]] std::optional<double> Measured(const std::string& benchmark, const std::string& value,
                                               bool is_ratio) const;

  // What was measured in each repetition: "real", "cpu" and the counters.
  std::map<std::string, std::map<std::string, std::vector<double>>> measured_;
};

}  // namespace korva::bench
