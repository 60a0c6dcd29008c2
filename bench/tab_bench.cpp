// What the user waits for on the linearizer's and the I/O check tab.
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <fstream>
#include <string>

#include "bench_host.h"
#include "core/text_utilities.h"
#include "far_end.h"
#include "pages/kv_config/kv_config.h"
#include "shown_window.h"

namespace korva::bench {

namespace {

constexpr int kPoints = 100;

KvConfig& PageOf(BenchHost& host) { return dynamic_cast<KvConfig&>(*host.application.program.Showing()); }

// The long table of a model in front.
struct TableWindow : ShownWindow {
  TableWindow() : ShownWindow(u"QHNY1") {
    host.Act([this] { Page().linearizer.Opt_Lnr[1].Click(); });
    Show(Page().TabWith(TextKey::Linearizer));
  }
  KvConfig& Page() { return PageOf(host); }
};

// A file of 100 points, none of which has the value of another file's.
String TableFile(const BenchHost& host, int number) {
  const auto path = host.home.Path() / "data" / (std::to_string(number) + ".csv");
  std::ofstream file(path, std::ios::binary);
  for (int point = 0; point < kPoints; ++point) {
    file << point << '.' << number << ',' << (point * point) / kPoints << '.' << number << "\r\n";
  }
  return path.u16string();
}

void OpenTableInWindow(benchmark::State& state) {
  TableWindow shown;
  const std::array files = {TableFile(shown.host, 1), TableFile(shown.host, 2)};
  std::size_t next = 0;
  while (state.KeepRunning()) {
    next = 1 - next;
    shown.host.dialogs.QueueFile(files.at(next));
    shown.host.Act([&] { shown.Page().linearizer.cmd_csvFileOpen.Click(); });
    TableWindow::Paint();
  }
  if (shown.Page().linearizer.LnrFlexGrid.At(kPoints, 1).text != (next == 0 ? u"99.1" : u"99.2")) {
    state.SkipWithError("the file was not opened");
  }
}
BENCHMARK(OpenTableInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

void EditCellInWindow(benchmark::State& state) {
  TableWindow shown;
  shown.host.dialogs.QueueFile(TableFile(shown.host, 1));
  shown.host.Act([&] { shown.Page().linearizer.cmd_csvFileOpen.Click(); });
  TableWindow::Paint();
  int edits = 0;
  while (state.KeepRunning()) {
    const int row = 1 + edits++ % 10;
    shown.host.Act([&] { shown.Page().linearizer.LnrFlexGrid.UserClicks(row, 2); });
    shown.host.Act([&] {
      shown.Page().linearizer.Editor().txtLnrNewValue.UserTypes(Ascii(std::to_string(edits % 100)));
    });
    shown.host.Act([&] { shown.Page().linearizer.Editor().cmdLnrChangeOK.Click(); });
    TableWindow::Paint();
  }
  if (shown.Page().GroupItem.At(2, 1) == u"0.1") {
    state.SkipWithError("the cell was not changed");
  }
}
BENCHMARK(EditCellInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

// Counter "over_plan": a cycle of five items over what wire and waits take of it.
void MonitorCycle(benchmark::State& state) {
  constexpr int baud = 1200;
  constexpr int items = 5;
  constexpr double bits_per_character = 10;
  constexpr double wait = 0.5;
  const double plan = items * (FarEnd::kCharacters * bits_per_character / baud + wait);
  const FarEnd device(baud);
  BenchHost host(device.Device());
  host.StartWith(u"QHG");
  while (state.KeepRunning()) {
    Clock start{};
    int reads = 0;
    host.application.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
      if (!traffic.sent || traffic.text.front() != u'G') {
        return;
      }
      ++reads;
      if (reads == 2) {  // the first selects the mode
        start = host.loop.Now();
      } else if (reads == 2 + items) {
        const std::chrono::duration<double> took = host.loop.Now() - start;
        state.counters["over_plan"] = took.count() / plan;
        PageOf(host).monitor.cmdMonitorOFF.Click();
      }
    };
    host.Act([&] { PageOf(host).monitor.cmdMonitorON.Click(); });
    host.application.link.line.OnTraffic = nullptr;
  }
}
BENCHMARK(MonitorCycle)->Iterations(1)->Repetitions(3)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace

}  // namespace korva::bench
