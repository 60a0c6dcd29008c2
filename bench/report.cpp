#include "report.h"

#include <QtGlobal>
#include <array>
#include <fstream>
#include <limits>
#include <sstream>
#include <thread>

#include "core/text_utilities.h"
#include "families.h"

namespace korva::bench {

namespace {

constexpr std::array<Row, 35> kRows = {{
    {.what = "An exchange through the whole path over the raw loop, wall time",
     .benchmark = "ReadItem",
     .value = "wall",
     .limit = 1.25,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "ReadItem",
     .value = "processor",
     .limit = 1.8,
     .unit = ""},
    {.what = "The port alone over the raw loop, wall time",
     .benchmark = "PortRead",
     .value = "wall",
     .limit = 1.25,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "PortRead",
     .value = "processor",
     .limit = 1.8,
     .unit = ""},
    {.what = "A whole upload over the raw loop, wall time",
     .benchmark = "UploadItems",
     .value = "wall",
     .limit = 1.2,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "UploadItems",
     .value = "processor",
     .limit = 1.8,
     .unit = ""},
    {.what = "An upload with a table of 100 points over the raw loop, wall time",
     .benchmark = "UploadTable",
     .value = "wall",
     .limit = 1.2,
     .unit = ""},
    {.what = "The same, processor time",
     .benchmark = "UploadTable",
     .value = "processor",
     .limit = 1.8,
     .unit = ""},
    {.what = "An upload with a user's table of 1000 points at 38400 bit/s over the wire's own time",
     .benchmark = "UploadUserTable",
     .value = "over_wire",
     .limit = 1.03,
     .unit = ""},
    {.what = "A sensor's curve of 1744 points over the raw loop, over plain exchanges, wall time",
     .benchmark = "WriteCurve",
     .value = "over_plain",
     .limit = 1.15,
     .unit = ""},
    {.what = "The longest curve in the hexadecimal digits of a device's memory",
     .benchmark = "CurveToHex",
     .value = "real",
     .limit = 1,
     .unit = " ms"},
    {.what = "50 exchanges at 1200 bit/s over the raw loop on the same line",
     .benchmark = "PacedRead/1200/25",
     .value = "wall",
     .limit = 1.01,
     .unit = ""},
    {.what = "The same over the wire's own time",
     .benchmark = "PacedRead/1200/25",
     .value = "over_wire",
     .limit = 1.005,
     .unit = ""},
    {.what = "200 exchanges at 9600 bit/s over the raw loop on the same line",
     .benchmark = "PacedRead/9600/100",
     .value = "wall",
     .limit = 1.01,
     .unit = ""},
    {.what = "500 exchanges at 38400 bit/s over the raw loop on the same line",
     .benchmark = "PacedRead/38400/250",
     .value = "wall",
     .limit = 1.02,
     .unit = ""},
    {.what = "The same over the wire's own time",
     .benchmark = "PacedRead/38400/250",
     .value = "over_wire",
     .limit = 1.03,
     .unit = ""},
    {.what = "A monitor cycle of five items at 1200 bit/s over wire and waits",
     .benchmark = "MonitorCycle",
     .value = "over_plan",
     .limit = 1.01,
     .unit = ""},
    {.what = "Processor time while waiting 10 s for a silent device, window showing",
     .benchmark = "SilentDevice",
     .value = "processor_ms",
     .limit = 5,
     .unit = " ms"},
    {.what = "Start to first page, `korva-cli`",
     .benchmark = "StartWithoutWindow",
     .value = "real",
     .limit = 60,
     .unit = " ms"},
    {.what = "Start to first page, `korva` (offscreen)",
     .benchmark = "StartWithWindow",
     .value = "real",
     .limit = 400,
     .unit = " ms"},
    {.what = "The same of `korva-cli` with nothing of it in memory",
     .benchmark = "ColdStartWithoutWindow",
     .value = "real",
     .limit = 200,
     .unit = " ms"},
    {.what = "The same of `korva` with nothing of it in memory",
     .benchmark = "ColdStartWithWindow",
     .value = "real",
     .limit = 600,
     .unit = " ms"},
    {.what = "Memory to the first page, `korva-cli`",
     .benchmark = "StartWithoutWindow",
     .value = "memory",
     .limit = 15,
     .unit = " MB"},
    {.what = "Memory to the first page, `korva` (offscreen)",
     .benchmark = "StartWithWindow",
     .value = "memory",
     .limit = 60,
     .unit = " MB"},
    {.what = "Thirty devices in a row with `korva-cli`, time for each without its line",
     .benchmark = "ThirtyDevices",
     .value = "ms_per_device",
     .limit = 20,
     .unit = " ms"},
    {.what = "The last ten of them over the first ten",
     .benchmark = "ThirtyDevices",
     .value = "last_over_first",
     .limit = 1.1,
     .unit = ""},
    {.what = "Memory gained from the third of them to the last",
     .benchmark = "ThirtyDevices",
     .value = "memory_gained",
     .limit = 1,
     .unit = " MB"},
    {.what = "Choosing a model, from click to built page",
     .benchmark = "ChooseModel",
     .value = "real",
     .limit = 10,
     .unit = " ms"},
    {.what = "The same with the window, until it is painted",
     .benchmark = "ChooseModelInWindow",
     .value = "real",
     .limit = 50,
     .unit = " ms"},
    {.what = "Going from page to page, until it is painted",
     .benchmark = "SwitchPagesInWindow",
     .value = "real",
     .limit = 30,
     .unit = " ms"},
    {.what = "Opening a full `.cfg`",
     .benchmark = "OpenFullFile",
     .value = "real",
     .limit = 10,
     .unit = " ms"},
    {.what = "Opening a table of 100 points from a file, until grid and curve are painted",
     .benchmark = "OpenTableInWindow",
     .value = "real",
     .limit = 20,
     .unit = " ms"},
    {.what = "Changing a cell of it, from click to painted curve",
     .benchmark = "EditCellInWindow",
     .value = "real",
     .limit = 5,
     .unit = " ms"},
    {.what = "Opening a sensor's table of 1000 points from a file, until grid and curve are painted",
     .benchmark = "OpenSensorTableInWindow",
     .value = "real",
     .limit = 30,
     .unit = " ms"},
    {.what = "Changing a cell of it, from click to painted curve",
     .benchmark = "EditSensorCellInWindow",
     .value = "real",
     .limit = 5,
     .unit = " ms"},
}};

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// What a model costs, family by family.
Matrix FamilyCosts() {
  Matrix matrix{
      .head = "Family, by model",
      .columns = {
          {.what = "Definition read",
           .benchmark = "ModelOf",
           .value = "definition",
           .limit = 0.5,
           .unit = " ms"},
          {.what = "Page shown for the first time",
           .benchmark = "FirstVisitOf",
           .value = "real",
           .limit = 30,
           .unit = " ms"},
          {.what = "Model chosen on it", .benchmark = "ModelOf", .value = "real", .limit = 10, .unit = " ms"},
          {.what = "Upload", .benchmark = "UploadOf", .value = "ms", .limit = 10, .unit = " ms"},
          {.what = "Exchanges of it",
           .benchmark = "UploadOf",
           .value = "exchanges",
           .limit = kNoLimit,
           .unit = ""},
          {.what = "Upload over the raw loop",
           .benchmark = "UploadOf",
           .value = "wall",
           .limit = 1.2,
           .unit = ""}}};
  for (const FamilyModel& one : kFamilyModels) {
    const std::string family = ToUtf8(one.family);
    matrix.lines.push_back({.label = family + ", " + ToUtf8(one.model), .end = family});
  }
  return matrix;
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

// What a benchmark is called in the rows: its name less the repetitions and the kind of time.
std::string PlainName(const benchmark::BenchmarkReporter::Run& run) {
  return run.run_name.args.empty() ? run.run_name.function_name
                                   : run.run_name.function_name + "/" + run.run_name.args;
}

}  // namespace

void Report::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration) {
      continue;
    }
    Measured& measured = measurements_[PlainName(run)];
    measured.failed = measured.failed || run.error_occurred;
    measured.values["real"].push_back(run.GetAdjustedRealTime());
    for (const auto& [name, counter] : run.counters) {
      measured.values[name].push_back(counter.value);
    }
  }
  ConsoleReporter::ReportRuns(runs);
}

std::string Report::Table() const {
  std::ostringstream table;
  table
      << TableOf(kRows, measurements_)
      << "\nEach family, by one of its models: painted in the window, and read from a device that answers at "
         "once. In brackets\nstands what it may come to. The first page of all shows with the start; of its "
         "family it is the click on another model.\n\n"
      << TableOf(FamilyCosts(), measurements_) << "\nMeasured on " << std::thread::hardware_concurrency()
      << " cores of " << Processor() << ", compiler version " << __VERSION__ << ", Qt " << qVersion()
      << ".\n";
  return table.str();
}

bool Report::AllHeld() const {
  return bench::AllHeld(kRows, measurements_) && bench::AllHeld(FamilyCosts(), measurements_);
}

}  // namespace korva::bench
