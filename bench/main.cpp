// korva_bench: measures what the user would feel, and prints it as a table with the ratios that count. Ends
// with status 1 unless every row of the table was measured and is held.
//
//   korva_bench [--report=FILE] [options of Google Benchmark]
#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "app/window_host.h"
#include "report.h"

namespace {

constexpr std::string_view kReportOption = "--report=";

constexpr const char* kPreface = R"(# Performance

What `korva_bench` measured last, all in one run. A row is held when the median of its repetitions is within the
limit. The raw loop does the same exchanges on the same pseudo-terminal with `write`, `poll` and `read` alone. A ratio
to it is made within each repetition, in which program and loop take short turns: what disturbs the machine meets both.
Times without a line are those of a device that answers at once; memory is what the system calls the resident set, at
its most. "Nothing of it in memory" means the program and its libraries: what every program uses, such as the C library
and the fonts, stays.

To measure anew on a quiet machine, configure with `-DKORVA_BENCH=ON` and build the target `korva_bench_report`. It
ends with an error when a row is missed, failed or was not measured.

)";

// Takes "--report=FILE" out of the arguments; empty without it.
std::string TakeReportFile(int& argc, char** argv) {
  std::string file;
  int kept = 0;
  for (int index = 0; index < argc; ++index) {
    const std::string_view argument = argv[index];
    if (argument.starts_with(kReportOption)) {
      file = argument.substr(kReportOption.size());
    } else {
      argv[kept++] = argv[index];
    }
  }
  argc = kept;
  return file;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string file = TakeReportFile(argc, argv);
  // Repetitions take turns, so that a busy spell of the machine does not meet one side of a ratio only.
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, interleave.data());
  auto count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());

  qputenv("QT_QPA_PLATFORM", "offscreen");  // for the programs that are started, too
  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  korva::PrepareLook();

  korva::bench::Report report;
  benchmark::RunSpecifiedBenchmarks(&report);
  const std::string table = report.Table();
  std::cout << '\n' << table;
  if (!file.empty() && !(std::ofstream(file) << kPreface << table)) {
    std::cerr << "korva_bench: can't write " << file << '\n';
    return 1;
  }
  return report.AllHeld() ? 0 : 1;
}
