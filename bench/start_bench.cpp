// From the start of a program to its first page, seen from outside: with its files in memory already, and
// without. And the memory that it takes for that.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "bench_host.h"
#include "child.h"
#include "cold_copy.h"

namespace korva::bench {

namespace {

using Seconds = std::chrono::duration<double>;
using std::chrono::steady_clock;

constexpr int kStarts = 15;
constexpr int kColdStarts = 7;
constexpr const char* kWithoutWindow = KORVA_BENCH_HOME "/korva-cli";
constexpr const char* kWithWindow = KORVA_BENCH_HOME "/korva";

// Waits for the first page that the program prints; false when none comes.
bool ReachesPage(const Child& program) {
  program.Say("start\n");
  return program.ReadsUpTo("page ");
}

void StartWithoutWindow(benchmark::State& state) {
  const PseudoTerminal device;
  const HomeFolder home(device.Device());
  while (state.KeepRunning()) {
    const auto start = steady_clock::now();
    const Child program(kWithoutWindow, home.Path().string());
    if (!ReachesPage(program)) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(Seconds(steady_clock::now() - start).count());
    state.counters["memory"] = program.MostMemory();
  }
}
BENCHMARK(StartWithoutWindow)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void StartWithWindow(benchmark::State& state) {
  while (state.KeepRunning()) {
    const WatchedDevice device;
    const HomeFolder home(device.Path());
    const auto start = steady_clock::now();
    const Child program(kWithWindow, home.Path().string());
    const Seconds spawned = steady_clock::now() - start;
    const double seconds = SecondsToWindow(program, device);
    if (seconds < 0) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(spawned.count() + seconds);
    state.counters["memory"] = program.MostMemory();
  }
}
BENCHMARK(StartWithWindow)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ColdStartWithoutWindow(benchmark::State& state) {
  const PseudoTerminal device;
  const HomeFolder home(device.Device());
  const ColdCopy copy([&] {
    const Child program(kWithoutWindow, home.Path().string());
    return ReachesPage(program) ? program.MappedFiles() : std::vector<std::string>();
  }());
  while (state.KeepRunning()) {
    if (!copy.Cool()) {
      state.SkipWithError("the files stay in memory");
    }
    const auto start = steady_clock::now();
    const Child program(copy.Of(kWithoutWindow), home.Path().string(), copy.Surroundings());
    if (!ReachesPage(program)) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(Seconds(steady_clock::now() - start).count());
  }
}
BENCHMARK(ColdStartWithoutWindow)
    ->Iterations(1)
    ->Repetitions(kColdStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ColdStartWithWindow(benchmark::State& state) {
  const WatchedDevice device;
  const HomeFolder home(device.Path());
  const ColdCopy copy([&] {
    const Child program(kWithWindow, home.Path().string());
    return SecondsToWindow(program, device) < 0 ? std::vector<std::string>() : program.MappedFiles();
  }());
  while (state.KeepRunning()) {
    if (!copy.Cool()) {
      state.SkipWithError("the files stay in memory");
    }
    const auto start = steady_clock::now();
    const Child program(copy.Of(kWithWindow), home.Path().string(), copy.Surroundings());
    const Seconds spawned = steady_clock::now() - start;
    const double seconds = SecondsToWindow(program, device);
    if (seconds < 0) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(spawned.count() + seconds);
  }
}
BENCHMARK(ColdStartWithWindow)
    ->Iterations(1)
    ->Repetitions(kColdStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
