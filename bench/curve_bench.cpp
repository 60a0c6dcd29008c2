// A sensor's curve on its way into a device's memory, against the raw loop with the same commands.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench_host.h"
#include "core/text_utilities.h"
#include "far_end.h"
#include "paired_times.h"
#include "raw_line.h"
#include "support/page_parts.h"
#include "tables/eeprom_stage.h"

namespace korva::bench {

namespace {

constexpr int kCurveRepetitions = 31;
constexpr int kCurveTurns = 4;
constexpr int kItemTurns = 20;
constexpr int kReads = 100;  // of a turn
constexpr int kTypeK = 1;    // the curve of 1744 points

using Commands = std::vector<std::string>;

bool SendAll(const RawLine& line, const Commands& commands) {
  return std::all_of(commands.begin(), commands.end(),
                     [&](const std::string& command) { return line.Exchange(command); });
}

bool WriteCurve(BenchHost& host) {
  CurveWriter& curves = test::Part<EepromStage>(*host.application.program.Showing()).Curves();
  int result = -1;
  host.Act([&] { result = curves.DownloadTcTable(kTypeK, u"K"); });
  return result == 0;
}

bool ReadItems(BenchHost& host) {
  bool good = true;
  for (int read = 0; read < kReads && good; ++read) {
    good = !host.application.link.enter_item.ReadParam({u"01", u"14"}).empty();
  }
  return good;
}

/// What `action` sends.
Commands CommandsOf(BenchHost& host, const PairedTimes::Side& action) {
  Commands commands;
  host.application.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent) {
      commands.push_back(ToUtf8(traffic.text) + '\r');
    }
  };
  action();
  host.application.link.line.OnTraffic = nullptr;
  return commands;
}

/// Both sides take their turns with the work of `program`.
bool Compare(BenchHost& host, const RawLine& line, int turns, const PairedTimes::Side& program,
             PairedTimes& pair) {
  const Commands commands = CommandsOf(host, program);
  return pair.Run(
      turns, [&] { return SendAll(line, commands); }, program);
}

// Counter "over_plain": the ratio of the curve to the raw loop over that of plain exchanges on the same line.
void WriteCurve(benchmark::State& state) {
  const FarEnd device(0, AnswersOf(sim::Device::ForModel(KORVA_BENCH_HOME, "Z2WT")));
  const RawLine line(device.Device());
  BenchHost host(device.Device());
  host.StartWith(u"Z2WT");
  while (state.KeepRunning()) {
    PairedTimes curve;
    PairedTimes plain;
    if (!Compare(
            host, line, kCurveTurns, [&] { return WriteCurve(host); }, curve) ||
        !Compare(
            host, line, kItemTurns, [&] { return ReadItems(host); }, plain)) {
      state.SkipWithError("an exchange failed");
    }
    curve.TellRatios(state);
    state.counters["over_plain"] = curve.WallRatio() / plain.WallRatio();
  }
}
BENCHMARK(WriteCurve)->Iterations(1)->Repetitions(kCurveRepetitions)->UseManualTime();

void CurveToHex(benchmark::State& state) {
  const NativeFileStore files;
  SystemReason reason;
  const CurveFile& longest = *FindCurveFile(SensorKind::Thermocouple, 8);
  const auto values = ReadTableFile(files, FromUtf8(KORVA_BENCH_HOME), longest, reason);
  if (!values) {
    state.SkipWithError("no curve");
    return;
  }
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(ImageOf(*values));
  }
}
BENCHMARK(CurveToHex)->Repetitions(kRepetitions)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
