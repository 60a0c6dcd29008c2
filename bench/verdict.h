#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

namespace korva::bench {

/// A row of the report: what is measured, and what it may come to.
struct Row {
  const char* what;
  const char* benchmark;
  const char* value;  ///< "real" (the time of an iteration) or a counter
  double limit;       ///< infinite for a value that is only told
  const char* unit;   ///< empty for a ratio
};

/// What the repetitions of one benchmark gave, value by value.
struct Measured {
  std::map<std::string, std::vector<double>> values;
  bool failed = false;  ///< one of them could not do its work
};

/// All that was measured, by the benchmarks' names.
using Measurements = std::map<std::string, Measured>;

/// How a row came out. Only `Held` is good: a value that is missing, or was measured by a benchmark that
/// failed, tells nothing.
enum class Verdict { Held, Missed, Failed, NotMeasured };

Verdict Judge(const Row& row, const Measurements& measurements);

/// The table in Markdown: each row with its limit, the median of the repetitions, the middle half of them,
/// and the verdict.
std::string TableOf(std::span<const Row> rows, const Measurements& measurements);

/// True when every row is held.
bool AllHeld(std::span<const Row> rows, const Measurements& measurements);

/// A table with a line for each of several things that are measured alike.
struct Matrix {
  struct Line {
    std::string label;  ///< what stands in the first column
    std::string end;    ///< of the names of the benchmarks that measure it
  };
  const char* head;          ///< of the first column
  std::vector<Row> columns;  ///< `what` heads it, `benchmark` is the beginning of the benchmarks' names
  std::vector<Line> lines = {};
};

/// Each cell with the median, and the verdict unless it is held. The heads tell the limits.
std::string TableOf(const Matrix& matrix, const Measurements& measurements);

/// True when every cell is held.
bool AllHeld(const Matrix& matrix, const Measurements& measurements);

}  // namespace korva::bench
