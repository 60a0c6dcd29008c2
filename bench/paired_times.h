#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>

namespace korva::bench {

/// Wall and processor time of this process.
struct Times {
  std::chrono::duration<double> wall{0};
  std::chrono::duration<double> processor{0};

  static Times Now();
  Times& operator+=(const Times& other);
  Times operator-(const Times& other) const { return {wall - other.wall, processor - other.processor}; }
};

/// The times of the raw loop and of the program for the same work. The two take turns, each as often first as
/// last, so that a busy spell of the machine meets both: their ratio is steadier than either time.
class PairedTimes {
 public:
  /// What a side does in a turn; false when it failed.
  using Side = std::function<bool()>;

  /// Lets both take their turns, `turns` each; false when one of them failed.
  bool Run(int turns, const Side& raw, const Side& program);

  [[nodiscard]] const Times& Program() const { return program_; }
  /// Of program to raw loop.
  [[nodiscard]] double WallRatio() const { return program_.wall / raw_.wall; }
  /// Tells the ratios of program to raw loop as the counters "wall" and "processor", and the program's time
  /// as that of the iteration.
  void TellRatios(benchmark::State& state) const;

 private:
  Times raw_;
  Times program_;
};

/// A benchmark's one iteration: both sides take their turns, and its counters tell the ratios.
/// Returns the program's time for all its turns.
std::chrono::duration<double> ComparePair(benchmark::State& state, int turns, const PairedTimes::Side& raw,
                                          const PairedTimes::Side& program);

}  // namespace korva::bench
