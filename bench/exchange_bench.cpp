// Exchanges with a device: the whole path of the program against the plainest loop on the same line.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string_view>

#include "app/main_window.h"
#include "bench_host.h"
#include "far_end.h"

namespace korva::bench {

namespace {

constexpr int kReplyTimeout = 3000;
constexpr int kExchangeRepetitions = 31;
constexpr double kSeconds = 0.1;  // of each repetition: many short ones meet a quiet moment of the machine

FarEnd& InstantDevice() {
  static FarEnd device(0);
  return device;
}

bool RawExchange(int line, std::string_view command) {
  if (write(line, command.data(), command.size()) < 0) {
    return false;
  }
  std::array<char, 256> reply{};
  char last = 0;
  while (last != '\r') {
    pollfd waiting{.fd = line, .events = POLLIN, .revents = 0};
    poll(&waiting, 1, kReplyTimeout);
    const ssize_t count = read(line, reply.data(), reply.size());
    if (count <= 0) {
      return false;
    }
    last = reply[static_cast<std::size_t>(count) - 1];
  }
  return true;
}

void RawRead(benchmark::State& state) {
  const int line = open(InstantDevice().Device().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
  termios settings{};
  tcgetattr(line, &settings);
  cfmakeraw(&settings);
  tcsetattr(line, TCSANOW, &settings);
  while (state.KeepRunning()) {
    if (!RawExchange(line, FarEnd::kSelectGroup) || !RawExchange(line, FarEnd::kSelectItem)) {
      state.SkipWithError("no reply");
    }
  }
  close(line);
}
BENCHMARK(RawRead)->UseRealTime()->MinTime(kSeconds)->Repetitions(kExchangeRepetitions);

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
  BenchHost host(InstantDevice().Device());
  host.port.OnArrival(nullptr);  // the link must not take the replies
  host.port.Open(1, {});
  while (state.KeepRunning()) {
    if (!PortExchange(host.loop, host.port, FarEnd::kSelectGroup) ||
        !PortExchange(host.loop, host.port, FarEnd::kSelectItem)) {
      state.SkipWithError("no reply");
    }
  }
}
BENCHMARK(PortRead)->UseRealTime()->MinTime(kSeconds)->Repetitions(kExchangeRepetitions);

bool ReadItem(BenchHost& host) { return host.application.link.cok.ReadItem({u"01", u"14"}) == u"-12.50"; }

void ReadItem(benchmark::State& state) {
  BenchHost host(InstantDevice().Device());
  host.application.link.line.OpenAtStart(u"1200,n,8,1");
  while (state.KeepRunning()) {
    if (!ReadItem(host)) {
      state.SkipWithError("no value");
    }
  }
}
BENCHMARK(ReadItem)->UseRealTime()->MinTime(kSeconds)->Repetitions(kExchangeRepetitions);

// Counter "over_wire": the time of all exchanges over what the characters alone need on the wire.
void PacedRead(benchmark::State& state) {
  const auto baud = static_cast<int>(state.range(0));
  const auto exchanges = static_cast<int>(state.range(1));
  const FarEnd device(baud);
  BenchHost host(device.Device());
  host.application.link.line.OpenAtStart(baud == 1200 ? u"1200,n,8,1" : u"38400,n,8,1");
  const int reads = exchanges / FarEnd::kExchanges;
  constexpr double bits_per_character = 10;
  const double wire = reads * FarEnd::kCharacters * bits_per_character / baud;
  while (state.KeepRunning()) {
    const Clock start = host.loop.Now();
    for (int count = 0; count < reads; ++count) {
      if (!ReadItem(host)) {
        state.SkipWithError("no value");
      }
    }
    const std::chrono::duration<double> took = host.loop.Now() - start;
    state.counters["over_wire"] = took.count() / wire;
  }
}
BENCHMARK(PacedRead)
    ->Args({1200, 50})
    ->Args({38400, 500})
    ->Iterations(1)
    ->Repetitions(5)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

std::chrono::duration<double, std::milli> ProcessorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return std::chrono::seconds(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
         std::chrono::microseconds(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

// Counter "processor_ms": three exchanges that time out and a pause of a second, with the window showing.
void SilentDevice(benchmark::State& state) {
  const PseudoTerminal silent;
  BenchHost host(silent.Device());
  MainWindow window(host.application);
  host.application.program.Start();
  window.show();
  host.Act([&] { host.application.link.line.WaitFor(1000); });  // until the window stands
  while (state.KeepRunning()) {
    const auto before = ProcessorTime();
    host.Act([&] {
      host.application.link.cok.ReadItemRetry(2, {u"01", u"14"});
      host.application.link.line.WaitFor(1000);
    });
    state.counters["processor_ms"] = (ProcessorTime() - before).count();
  }
}
BENCHMARK(SilentDevice)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace

}  // namespace korva::bench
