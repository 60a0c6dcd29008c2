#include "verdict.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <sstream>

namespace korva::bench {

namespace {

const char* WordOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::Held:
      return "held";
    case Verdict::Missed:
      return "missed";
    case Verdict::Failed:
      return "failed";
    case Verdict::NotMeasured:
      break;
  }
  return "not measured";
}

/// The values of the row in rising order; empty when there are none.
std::vector<double> Sorted(const Row& row, const Measurements& measurements) {
  const auto benchmark = measurements.find(row.benchmark);
  if (benchmark == measurements.end()) {
    return {};
  }
  const auto found = benchmark->second.values.find(row.value);
  std::vector<double> values =
      found == benchmark->second.values.end() ? std::vector<double>() : found->second;
  std::sort(values.begin(), values.end());
  return values;
}

/// The value below which `part` (0 to 1) of the sorted ones lie.
double Quantile(const std::vector<double>& sorted, double part) {
  const double place = part * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return std::lerp(sorted[below], sorted[above], place - static_cast<double>(below));
}

double Median(const std::vector<double>& sorted) { return Quantile(sorted, 0.5); }

std::string Number(double value, const char* unit) {
  constexpr double whole = 10;  // from here on decimals tell nothing
  std::ostringstream text;
  text << std::fixed << std::setprecision(value < whole ? 3 : 0) << value << unit;
  return text.str();
}

std::string MiddleHalf(const std::vector<double>& sorted, const char* unit) {
  return Number(Quantile(sorted, 0.25), "") + " to " + Number(Quantile(sorted, 0.75), unit);
}

/// The row of one line's benchmark, whose name outlives it.
Row At(Row column, const std::string& benchmark) {
  column.benchmark = benchmark.c_str();
  return column;
}

std::string CellOf(const Row& row, const Measurements& measurements) {
  const std::vector<double> values = Sorted(row, measurements);
  const Verdict verdict = Judge(row, measurements);
  const std::string median = values.empty() ? "" : Number(Median(values), row.unit);
  return verdict == Verdict::Held ? median : median + (values.empty() ? "" : ", ") + WordOf(verdict);
}

}  // namespace

Verdict Judge(const Row& row, const Measurements& measurements) {
  const auto benchmark = measurements.find(row.benchmark);
  if (benchmark != measurements.end() && benchmark->second.failed) {
    return Verdict::Failed;
  }
  const std::vector<double> values = Sorted(row, measurements);
  if (values.empty()) {
    return Verdict::NotMeasured;
  }
  return Median(values) <= row.limit ? Verdict::Held : Verdict::Missed;
}

std::string TableOf(std::span<const Row> rows, const Measurements& measurements) {
  std::ostringstream table;
  table << "| What | At most | Median | Middle half | |\n|---|---|---|---|---|\n";
  for (const Row& row : rows) {
    const std::vector<double> values = Sorted(row, measurements);
    table << "| " << row.what << " | " << Number(row.limit, row.unit) << " | "
          << (values.empty() ? "" : Number(Median(values), row.unit)) << " | "
          << (values.empty() ? "" : MiddleHalf(values, row.unit)) << " | " << WordOf(Judge(row, measurements))
          << " |\n";
  }
  return table.str();
}

bool AllHeld(std::span<const Row> rows, const Measurements& measurements) {
  return std::all_of(rows.begin(), rows.end(),
                     [&](const Row& row) { return Judge(row, measurements) == Verdict::Held; });
}

std::string TableOf(const Matrix& matrix, const Measurements& measurements) {
  std::ostringstream table;
  table << "| " << matrix.head << " |";
  std::string rule = "\n|---|";
  for (const Row& column : matrix.columns) {
    table << ' ' << column.what;
    if (std::isfinite(column.limit)) {
      table << " (" << Number(column.limit, column.unit) << ")";
    }
    table << " |";
    rule += "---|";
  }
  table << rule << '\n';
  for (const Matrix::Line& line : matrix.lines) {
    table << "| " << line.label << " |";
    for (const Row& column : matrix.columns) {
      const std::string name = column.benchmark + line.end;
      table << ' ' << CellOf(At(column, name), measurements) << " |";
    }
    table << '\n';
  }
  return table.str();
}

bool AllHeld(const Matrix& matrix, const Measurements& measurements) {
  return std::all_of(matrix.lines.begin(), matrix.lines.end(), [&](const Matrix::Line& line) {
    return std::all_of(matrix.columns.begin(), matrix.columns.end(), [&](const Row& column) {
      const std::string name = column.benchmark + line.end;
      return Judge(At(column, name), measurements) == Verdict::Held;
    });
  });
}

}  // namespace korva::bench
