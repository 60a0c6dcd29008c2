// What the user waits for between a click and the page that it brings.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <functional>
#include <vector>

#include "app/main_window.h"
#include "bench_host.h"
#include "files/parameter_page.h"
#include "platform/pseudo_terminal.h"

namespace korva::bench {

namespace {

// The models of the showing page, one after the other; `shown` ends each choice.
void ChooseModels(benchmark::State& state, BenchHost& host, const std::function<void()>& shown) {
  Page& page = *host.application.program.Showing();
  std::vector<int> rows;
  for (int row = 0; row < ModelTable::kRows; ++row) {
    if (FamilyOfRow(page.Models, row) == page.ItsFamily().word) {
      rows.push_back(row);
    }
  }
  std::size_t next = 0;
  while (state.KeepRunning()) {
    next = (next + 1) % rows.size();
    host.Act([&] { page.lst_TypeSelect.UserPicks(rows[next]); });
    shown();
  }
  if (host.loop.Gate().Ended()) {
    state.SkipWithError("the program ended");
  }
}

void ChooseModel(benchmark::State& state) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  host.application.program.Start();
  ChooseModels(state, host, [] {});
}
BENCHMARK(ChooseModel)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

void ChooseModelInWindow(benchmark::State& state) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  MainWindow window(host.application);
  host.application.program.Start();
  window.show();
  QCoreApplication::processEvents();
  ChooseModels(state, host, [&] {
    QCoreApplication::sendPostedEvents();  // the layout's
    window.repaint();
  });
}
BENCHMARK(ChooseModelInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

// The row of the family's first model.
int RowOf(const Page& page, StringView family) {
  int row = 0;
  while (FamilyOfRow(page.Models, row) != family) {
    ++row;
  }
  return row;
}

// From the click on a model of `family` until its page is painted, which has not been shown before.
void FirstVisit(benchmark::State& state, StringView family) {
  const PseudoTerminal device;
  while (state.KeepRunning()) {
    BenchHost host(device.Device());
    MainWindow window(host.application);
    host.application.program.Start();
    window.resize(1180, 740);
    window.show();
    QCoreApplication::processEvents();
    Page& page = *host.application.program.Showing();
    const int row = RowOf(page, family);
    const auto start = std::chrono::steady_clock::now();
    host.Act([&] { page.lst_TypeSelect.UserPicks(row); });
    QCoreApplication::sendPostedEvents();
    window.repaint();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(took.count());
    if (host.application.program.Showing()->ItsFamily().word != family) {
      state.SkipWithError("the page does not show");
    }
  }
}
const bool kFirstVisits = [] {
  for (const char16_t* family : {u"Second", u"Third", u"QXI", u"Lite", u"LiteUniv", u"LiteSecond",
                                 u"LiteThird", u"LiteForth", u"LiteFifth", u"Nano"}) {
    benchmark::RegisterBenchmark(("FirstVisitOf" + ToUtf8(family)).c_str(), FirstVisit, StringView(family))
        ->Iterations(1)
        ->Repetitions(9)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

// To and fro between pages that have been shown.
void SwitchPagesInWindow(benchmark::State& state) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  MainWindow window(host.application);
  host.application.program.Start();
  window.show();
  QCoreApplication::processEvents();
  constexpr std::array<StringView, 3> families = {u"Second", u"Third", u"First"};
  std::size_t next = 0;
  while (state.KeepRunning()) {
    Page& page = *host.application.program.Showing();
    const int row = RowOf(page, families.at(next));
    next = (next + 1) % families.size();
    host.Act([&] { page.lst_TypeSelect.UserPicks(row); });
    QCoreApplication::sendPostedEvents();
    window.repaint();
  }
}
BENCHMARK(SwitchPagesInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

void OpenFullFile(benchmark::State& state) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  host.application.program.Start();
  auto& page = dynamic_cast<ParameterPage&>(*host.application.program.Showing());
  ParameterSet& set = page.GroupItem;
  for (int group = 0; group < set.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (set.At(group, item).empty()) {
        set.Set(group, item, u"1.25");
      }
    }
  }
  const String file = (host.home.Path() / "data" / "full.cfg").u16string();
  host.dialogs.QueueFile(file);
  host.Act([&] { page.SaveCfgFile(); });
  while (state.KeepRunning()) {
    page.DataChanged = false;
    host.dialogs.QueueFile(file);
    host.Act([&] { page.cmdOpen.Click(); });
  }
  if (host.dialogs.Unused() > 0 || page.txtFileTitle.Text() != u"full.cfg") {
    state.SkipWithError("the file was not opened");
  }
}
BENCHMARK(OpenFullFile)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
