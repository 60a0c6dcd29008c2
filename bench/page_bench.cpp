// What the user waits for between a click and the page that it brings.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <functional>
#include <vector>

#include "app/main_window.h"
#include "bench_host.h"
#include "files/parameter_page.h"
#include "platform/pseudo_terminal.h"

namespace korva::bench {

namespace {

constexpr int kRepetitions = 9;

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
