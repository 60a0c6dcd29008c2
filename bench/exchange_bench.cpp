// Exchanges with a device: the whole path of the program against the plainest loop on the same line.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <string_view>

#include "app/main_window.h"
#include "bench_host.h"
#include "core/text_utilities.h"
#include "far_end.h"
#include "paired_times.h"
#include "raw_line.h"

namespace korva::bench {

namespace {

constexpr int kReplyTimeout = 3000;  // ms
constexpr int kExchangeRepetitions = 31;
constexpr int kTurns = 20;
constexpr int kReadsOfTurn = 100;

FarEnd& InstantDevice() {
  static FarEnd device(0);
  return device;
}

bool RawRead(const RawLine& line) {
  return line.Exchange(FarEnd::kSelectGroup) && line.Exchange(FarEnd::kSelectItem);
}

// The work of a turn: as many reads as make it long against the clock.
PairedTimes::Side Reads(const PairedTimes::Side& read) {
  return [read] {
    bool good = true;
    for (int count = 0; count < kReadsOfTurn && good; ++count) {
      good = read();
    }
    return good;
  };
}

// The exchange of the link, less all that the program does with it.
bool PortExchange(QtEventLoop& loop, QtPort& port, std::string_view command) {
  bool late = false;
  const TimerId timer = loop.StartTimer(Milliseconds(kReplyTimeout), [&] { late = true; });
  port.Write(command);
  std::string reply;
  while (!late && (reply.empty() || reply.back() != '\r')) {
    loop.Pump();
    reply += port.Take();
  }
  loop.StopTimer(timer);
  return !late;
}

void PortRead(benchmark::State& state) {
  const RawLine line(InstantDevice().Device());
  BenchHost host(InstantDevice().Device());
  host.port.OnArrival(nullptr);  // the link must not take the replies
  host.port.Open(1, {});
  ComparePair(state, kTurns, Reads([&] { return RawRead(line); }), Reads([&] {
                return PortExchange(host.loop, host.port, FarEnd::kSelectGroup) &&
                       PortExchange(host.loop, host.port, FarEnd::kSelectItem);
              }));
}
BENCHMARK(PortRead)->Iterations(1)->Repetitions(kExchangeRepetitions)->UseManualTime();

bool ReadItem(BenchHost& host) { return host.application.link.cok.ReadItem({u"01", u"14"}) == u"-12.50"; }

void ReadItem(benchmark::State& state) {
  const RawLine line(InstantDevice().Device());
  BenchHost host(InstantDevice().Device());
  host.application.link.line.OpenAtStart(u"1200,n,8,1");
  ComparePair(state, kTurns, Reads([&] { return RawRead(line); }), Reads([&] { return ReadItem(host); }));
}
BENCHMARK(ReadItem)->Iterations(1)->Repetitions(kExchangeRepetitions)->UseManualTime();

// Arguments: bit/s and how many reads each side makes. Counter "over_wire": the program's time over what the
// characters alone need on the wire.
void PacedRead(benchmark::State& state) {
  const auto baud = static_cast<int>(state.range(0));
  const auto reads = static_cast<int>(state.range(1));
  const FarEnd device(baud);
  const RawLine line(device.Device());
  BenchHost host(device.Device());
  host.application.link.line.OpenAtStart(Ascii(std::to_string(baud)) + u",n,8,1");
  constexpr double bits_per_character = 10;
  const double wire = reads * FarEnd::kCharacters * bits_per_character / baud;
  while (state.KeepRunning()) {
    PairedTimes pair;
    if (!pair.Run(
            reads, [&] { return RawRead(line); }, [&] { return ReadItem(host); })) {
      state.SkipWithError("an exchange failed");
    }
    pair.TellRatios(state);
    state.counters["over_wire"] = pair.Program().wall.count() / wire;
  }
}
BENCHMARK(PacedRead)
    ->Args({1200, 25})
    ->Args({9600, 100})
    ->Args({38400, 250})
    ->Iterations(1)
    ->Repetitions(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Counter "processor_ms": three exchanges that time out and a pause of a second, with the window showing.
void SilentDevice(benchmark::State& state) {
  const PseudoTerminal silent;
  BenchHost host(silent.Device());
  MainWindow window(host.application);
  host.application.program.Start();
  window.show();
  // Until the window stands, and has told once what it waits for.
  host.Act([&] { host.application.link.cok.ReadItem({u"01", u"14"}); });
  while (state.KeepRunning()) {
    const Times before = Times::Now();
    host.Act([&] {
      host.application.link.cok.ReadItemRetry(2, {u"01", u"14"});
      host.application.link.line.WaitFor(1000);
    });
    const std::chrono::duration<double, std::milli> took = (Times::Now() - before).processor;
    state.counters["processor_ms"] = took.count();
  }
}
BENCHMARK(SilentDevice)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace

}  // namespace korva::bench
