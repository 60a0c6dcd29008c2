#include "paired_times.h"

#include <sys/resource.h>

namespace korva::bench {

namespace {

bool Take(const PairedTimes::Side& side, Times& sum) {
  const Times before = Times::Now();
  const bool good = side();
  sum += Times::Now() - before;
  return good;
}

}  // namespace

Times Times::Now() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return {.wall = std::chrono::steady_clock::now().time_since_epoch(),
          .processor = std::chrono::seconds(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                       std::chrono::microseconds(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec)};
}

Times& Times::operator+=(const Times& other) {
  wall += other.wall;
  processor += other.processor;
  return *this;
}

bool PairedTimes::Run(int turns, const Side& raw, const Side& program) {
  bool good = true;
  for (int turn = 0; turn < turns && good; ++turn) {
    good = turn % 2 == 0 ? Take(raw, raw_) && Take(program, program_)
                         : Take(program, program_) && Take(raw, raw_);
  }
  return good;
}

void PairedTimes::TellRatios(benchmark::State& state) const {
  state.SetIterationTime(program_.wall.count());
  state.counters["wall"] = WallRatio();
  state.counters["processor"] = program_.processor / raw_.processor;
}

std::chrono::duration<double> ComparePair(benchmark::State& state, int turns, const PairedTimes::Side& raw,
                                          const PairedTimes::Side& program) {
  std::chrono::duration<double> took{0};
  while (state.KeepRunning()) {
    PairedTimes pair;
    if (!pair.Run(turns, raw, program)) {
      state.SkipWithError("an exchange failed");
    }
    pair.TellRatios(state);
    took = pair.Program().wall;
  }
  return took;
}

}  // namespace korva::bench
