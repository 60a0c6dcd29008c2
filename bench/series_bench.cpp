// Thirty devices one after the other with the same settings, as a batch does it: each is written and
// verified.
#include <benchmark/benchmark.h>

#include <chrono>
#include <numeric>
#include <string>
#include <vector>

#include "bench_host.h"
#include "child.h"
#include "far_end.h"

namespace korva::bench {

namespace {

constexpr int kDevices = 30;
constexpr int kPart = 10;    // devices at the beginning and at the end, which are compared
constexpr int kSettled = 3;  // devices after which the program has all that it needs
constexpr const char* kModel = "QHN";
constexpr const char* kDone = "ﾀﾞｳﾝﾛｰﾄﾞ完了。";

// Reads a device into a file, the settings of the series.
bool KeepsSettings(const Child& program, const std::string& file) {
  program.Say(std::string("choose ") + kModel + "\nanswer yes ok\nclick cmdUpload\nfile " + file +
              "\nclick cmdSave\n");
  return program.ReadsUpTo("ファイルの保存が終了しました。");
}

// Opens the file and writes the device; the seconds that took, below 0 when it failed.
double WriteOne(const Child& program, const std::string& file) {
  const auto start = std::chrono::steady_clock::now();
  program.Say("file " + file + "\nclick cmdOpen\nanswer ok\nclick cmdDownload\nshow lbl_FrmVersion\n");
  const bool done = program.ReadUpTo("lbl_FrmVersion").find(kDone) != std::string::npos;
  return done ? std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() : -1;
}

double Sum(const std::vector<double>& values, int from) {
  return std::accumulate(values.begin() + from, values.begin() + from + kPart, 0.0);
}

// Counters: "ms_per_device"; "last_over_first": the last ten over the first ten; "memory_gained": from the
// third device on, in MB.
void ThirtyDevices(benchmark::State& state) {
  const FarEnd device(0, AnswersOf(sim::Device::ForModel(KORVA_BENCH_HOME, kModel)));
  const HomeFolder home(device.Device());
  const std::string file = (home.Path() / "data" / "series.cfg").string();
  while (state.KeepRunning()) {
    const Child program(KORVA_BENCH_HOME "/korva-cli", home.Path().string());
    bool good = KeepsSettings(program, file);
    std::vector<double> seconds;
    double settled = 0;
    while (good && seconds.size() < kDevices) {
      seconds.push_back(WriteOne(program, file));
      good = seconds.back() >= 0;
      settled = seconds.size() == kSettled ? program.Memory() : settled;
    }
    if (!good) {
      state.SkipWithError("a device was not written");
      break;
    }
    const double all = std::accumulate(seconds.begin(), seconds.end(), 0.0);
    state.SetIterationTime(all);
    state.counters["ms_per_device"] = all * 1000 / kDevices;
    state.counters["last_over_first"] = Sum(seconds, kDevices - kPart) / Sum(seconds, 0);
    state.counters["memory_gained"] = program.Memory() - settled;
  }
}
BENCHMARK(ThirtyDevices)
    ->Iterations(1)
    ->Repetitions(kRepetitions)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
