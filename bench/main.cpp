// korva_bench: measures what the user would feel, and prints it as a table with the ratios that count.
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

What `korva_bench` measured last, all in one run. Ratios are of the fastest repetitions, times the median of
theirs. The raw loop does the same two exchanges on the same pseudo-terminal with `write`, `poll` and `read`
alone; repetitions of both take turns at random. To measure anew on a quiet machine, configure with
`-DKORVA_BENCH=ON` and build the target `korva_bench_report`.

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
  return 0;
}
