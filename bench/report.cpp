#include "report.h"

#include <QtGlobal>
#include <algorithm>
#include <array>
#include <fstream>
#include <iomanip>
#include <optional>
#include <sstream>
#include <thread>

namespace korva::bench {

namespace {

struct Row {
  const char* what;
  const char* benchmark;
  const char* value;  // "real", "cpu" or a counter
  const char* over;   // the benchmark whose same value it is divided by
  double limit;
  const char* unit;  // empty for a ratio
};

constexpr std::array<Row, 18> kRows = {{
    {.what = "Exchange through the whole path over a raw write-poll-read loop, wall time",
     .benchmark = "ReadItem",
     .value = "real",
     .over = "RawRead",
     .limit = 1.25,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "ReadItem",
     .value = "cpu",
     .over = "RawRead",
     .limit = 1.8,
     .unit = ""},
    {.what = "Port alone over the raw loop, wall time",
     .benchmark = "PortRead",
     .value = "real",
     .over = "RawRead",
     .limit = 1.25,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "PortRead",
     .value = "cpu",
     .over = "RawRead",
     .limit = 1.8,
     .unit = ""},
    {.what = "50 exchanges at 1200 bit/s over the wire's own time",
     .benchmark = "PacedRead/1200/50",
     .value = "over_wire",
     .over = nullptr,
     .limit = 1.005,
     .unit = ""},
    {.what = "500 exchanges at 38400 bit/s over the wire's own time",
     .benchmark = "PacedRead/38400/500",
     .value = "over_wire",
     .over = nullptr,
     .limit = 1.03,
     .unit = ""},
    {.what = "Processor time while waiting 10 s for a silent device, window showing",
     .benchmark = "SilentDevice",
     .value = "processor_ms",
     .over = nullptr,
     .limit = 5,
     .unit = " ms"},
    {.what = "Start to first page, `korva-cli`",
     .benchmark = "StartWithoutWindow",
     .value = "real",
     .over = nullptr,
     .limit = 60,
     .unit = " ms"},
    {.what = "Start to first page, `korva` (offscreen)",
     .benchmark = "StartWithWindow",
     .value = "real",
     .over = nullptr,
     .limit = 400,
     .unit = " ms"},
    {.what = "Choosing a model, from click to built page",
     .benchmark = "ChooseModel",
     .value = "real",
     .over = nullptr,
     .limit = 10,
     .unit = " ms"},
    {.what = "The same with the window, until it is painted",
     .benchmark = "ChooseModelInWindow",
     .value = "real",
     .over = nullptr,
     .limit = 50,
     .unit = " ms"},
    {.what = "Showing the page of family Second for the first time, until it is painted",
     .benchmark = "FirstVisitOfSecond",
     .value = "real",
     .over = nullptr,
     .limit = 30,
     .unit = " ms"},
    {.what = "The same of family Third",
     .benchmark = "FirstVisitOfThird",
     .value = "real",
     .over = nullptr,
     .limit = 30,
     .unit = " ms"},
    {.what = "Going from page to page, until it is painted",
     .benchmark = "SwitchPagesInWindow",
     .value = "real",
     .over = nullptr,
     .limit = 30,
     .unit = " ms"},
    {.what = "Opening a full `.cfg`",
     .benchmark = "OpenFullFile",
     .value = "real",
     .over = nullptr,
     .limit = 10,
     .unit = " ms"},
    {.what = "Opening a table of 100 points from a file, until grid and curve are painted",
     .benchmark = "OpenTableInWindow",
     .value = "real",
     .over = nullptr,
     .limit = 20,
     .unit = " ms"},
    {.what = "Changing a cell of it, from click to painted curve",
     .benchmark = "EditCellInWindow",
     .value = "real",
     .over = nullptr,
     .limit = 5,
     .unit = " ms"},
    {.what = "A monitor cycle of five items at 1200 bit/s over wire and waits",
     .benchmark = "MonitorCycle",
     .value = "over_plan",
     .over = nullptr,
     .limit = 1.01,
     .unit = ""},
}};

// For a ratio: all that disturbs a repetition only makes it slower.
double Fastest(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

// For a time that the user waits.
double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::string Processor() {
  std::ifstream in("/proc/cpuinfo");
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("model name")) {
      return line.substr(line.find(": ") + 2);
    }
  }
  return "unknown processor";
}

std::string Number(double value, const char* unit) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(value < 10 ? 3 : 0) << value << unit;
  return text.str();
}

// What a benchmark is called in the rows: its name less the repetitions and the kind of time.
std::string PlainName(const benchmark::BenchmarkReporter::Run& run) {
  return run.run_name.args.empty() ? run.run_name.function_name
                                   : run.run_name.function_name + "/" + run.run_name.args;
}

}  // namespace

void Report::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) {
      continue;
    }
    auto& values = measured_[PlainName(run)];
    values["real"].push_back(run.GetAdjustedRealTime());
    values["cpu"].push_back(run.GetAdjustedCPUTime());
    for (const auto& [name, counter] : run.counters) {
      values[name].push_back(counter.value);
    }
  }
  ConsoleReporter::ReportRuns(runs);
}

std::optional<double> Report::Measured(const std::string& benchmark, const std::string& value,
                                       bool is_ratio) const {
  const auto found = measured_.find(benchmark);
  if (found == measured_.end()) {
    return std::nullopt;
  }
  const std::vector<double>& values = found->second.at(value);
  return is_ratio ? Fastest(values) : Median(values);
}

std::string Report::Table() const {
  std::ostringstream table;
  table << "| What | Target | Measured | |\n|---|---|---|---|\n";
  for (const Row& row : kRows) {
    const bool is_ratio = *row.unit == 0;
    const std::optional<double> value = Measured(row.benchmark, row.value, is_ratio);
    const std::optional<double> base = row.over == nullptr ? 1.0 : Measured(row.over, row.value, is_ratio);
    if (value && base) {
      const double result = *value / *base;
      table << "| " << row.what << " | " << Number(row.limit, row.unit) << " | " << Number(result, row.unit)
            << " | " << (result <= row.limit ? "held" : "missed") << " |\n";
    }
  }
  table << "\nMeasured on " << std::thread::hardware_concurrency() << " cores of " << Processor()
        << ", compiler version " << __VERSION__ << ", Qt " << qVersion() << ".\n";
  return table.str();
}

}  // namespace korva::bench
