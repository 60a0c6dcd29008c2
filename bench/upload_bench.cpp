// A whole upload, from the press of its button to the report that it is complete, against the raw loop with
// the same commands.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench_host.h"
#include "core/text_utilities.h"
#include "families.h"
#include "far_end.h"
#include "paired_times.h"
#include "raw_line.h"

namespace korva::bench {

namespace {

constexpr int kUploadRepetitions = 31;

using Questions = std::vector<Answer>;

// True when the upload told that it is complete.
bool Upload(BenchHost& host, const Questions& answers) {
  Page& page = *host.application.program.Showing();
  page.DataChanged = false;
  for (const Answer answer : answers) {
    host.dialogs.QueueAnswer(answer);
  }
  host.Act([&] { page.cmdUpload.Click(); });
  return host.dialogs.Unused() == 0 && host.dialogs.Boxes().back().box.text == BoxOf(BoxKey::UploadDone).text;
}

std::vector<std::string> CommandsOfUpload(BenchHost& host, const Questions& answers) {
  std::vector<std::string> commands;
  host.application.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent) {
      commands.push_back(ToUtf8(traffic.text) + '\r');
    }
  };
  Upload(host, answers);
  host.application.link.line.OnTraffic = nullptr;
  return commands;
}

void CompareUpload(benchmark::State& state, sim::Device simulated, const Questions& answers, int turns) {
  const String model = Ascii(simulated.GetModel().name);
  const FarEnd device(0, AnswersOf(std::move(simulated)));
  const RawLine line(device.Device());
  BenchHost host(device.Device());
  host.StartWith(model);
  const std::vector<std::string> commands = CommandsOfUpload(host, answers);
  const auto raw = [&] {
    return std::all_of(commands.begin(), commands.end(),
                       [&](const std::string& command) { return line.Exchange(command); });
  };
  const std::chrono::duration<double, std::milli> took =
      ComparePair(state, turns, raw, [&] { return Upload(host, answers); });
  state.counters["ms"] = took.count() / turns;
  state.counters["exchanges"] = static_cast<double>(commands.size());
}

void UploadItems(benchmark::State& state) {
  CompareUpload(state, sim::Device::ForModel(KORVA_BENCH_HOME, "QHN"), {Answer::Yes, Answer::Ok}, 30);
}
BENCHMARK(UploadItems)->Iterations(1)->Repetitions(kUploadRepetitions)->UseManualTime();

void UploadTable(benchmark::State& state) {
  sim::Device device = sim::Device::ForModel(KORVA_BENCH_HOME, "QHNY1");
  device.Set("01", "11", "1");  // the table is in use
  CompareUpload(state, std::move(device), {Answer::Yes, Answer::Ok, Answer::Yes}, 6);
}
BENCHMARK(UploadTable)->Iterations(1)->Repetitions(kUploadRepetitions)->UseManualTime();

// The same of each family.
void UploadFamily(benchmark::State& state, const FamilyModel& one) {
  CompareUpload(state, sim::Device::ForModel(KORVA_BENCH_HOME, ToUtf8(one.model)),
                one.asks ? Questions{Answer::Yes, Answer::Ok} : Questions{}, 10);
}
const bool kFamilyUploads = [] {
  for (const FamilyModel& one : kFamilyModels) {
    benchmark::RegisterBenchmark(("UploadOf" + ToUtf8(one.family)).c_str(), UploadFamily, one)
        ->Iterations(1)
        ->Repetitions(kRepetitions)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

// Bytes of the commands and of what comes back to them.
double BytesOf(const Answers& answers, const std::vector<std::string>& commands) {
  double bytes = 0;
  for (const std::string& command : commands) {
    bytes += static_cast<double>(command.size() +
                                 answers(std::string_view(command).substr(0, command.size() - 1)).size());
  }
  return bytes;
}

// The curve of a sensor of the user's, 1000 rows on a line of its own speed. Counter "over_wire": the
// program's time over what the characters alone need on the wire.
void UploadUserTable(benchmark::State& state) {
  constexpr int baud = 38400;
  constexpr double bits_per_character = 10;
  constexpr std::size_t rows = 1000;
  const auto simulated = [] {
    sim::Device device =
        sim::Device::ForModel(KORVA_BENCH_HOME, "Z2WU", {.latency = std::chrono::milliseconds(0)});
    device.Set("01", "10", "User's TC");
    device.GetKeyedTable("60").SetSize(rows);
    return device;
  };
  const FarEnd device(baud, AnswersOf(simulated()));
  BenchHost host(device.Device());
  host.StartWith(u"Z2WU");
  const Questions answers = {Answer::Yes, Answer::Ok};
  const double wire =
      BytesOf(AnswersOf(simulated()), CommandsOfUpload(host, answers)) * bits_per_character / baud;
  while (state.KeepRunning()) {
    const auto start = std::chrono::steady_clock::now();
    if (!Upload(host, answers)) {
      state.SkipWithError("the upload is not complete");
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    state.SetIterationTime(seconds);
    state.counters["over_wire"] = seconds / wire;
  }
}
BENCHMARK(UploadUserTable)->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
