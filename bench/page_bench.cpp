// What the user waits for between a click and the page that it brings.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <functional>
#include <vector>

#include "app/main_window.h"
#include "bench_host.h"
#include "families.h"
#include "files/definition.h"
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

void Paint(MainWindow& window) {
  QCoreApplication::sendPostedEvents();  // the layout's
  window.repaint();
}

void ChooseModelInWindow(benchmark::State& state) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  MainWindow window(host.application);
  host.application.program.Start();
  window.show();
  QCoreApplication::processEvents();
  ChooseModels(state, host, [&] { Paint(window); });
}
BENCHMARK(ChooseModelInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

// The row of the model that stands for the family.
int RowOf(const Page& page, const FamilyModel& one) {
  int row = 0;
  while (FamilyOfRow(page.Models, row) != one.family || page.Models.At(row, ModelTable::kName) != one.model) {
    ++row;
  }
  return row;
}

// From the click on a model until its page is painted, which has not been shown before. The first page of all
// shows with the start: of its family it is the click on another model.
void FirstVisit(benchmark::State& state, const FamilyModel& one) {
  const PseudoTerminal device;
  while (state.KeepRunning()) {
    BenchHost host(device.Device());
    MainWindow window(host.application);
    host.application.program.Start();
    window.resize(1180, 740);
    window.show();
    QCoreApplication::processEvents();
    Page& page = *host.application.program.Showing();
    const int row = RowOf(page, one);
    const auto start = std::chrono::steady_clock::now();
    host.Act([&] { page.lst_TypeSelect.UserPicks(row); });
    Paint(window);
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    if (host.application.program.Showing()->ItsFamily().word != one.family) {
      state.SkipWithError("the page does not show");
    }
  }
}

// A model that is chosen on a page of its family which shows, until it is painted. Counter "definition": what
// reading its definition takes of that, in ms.
void ChooseFamilysModel(benchmark::State& state, const FamilyModel& one) {
  const PseudoTerminal device;
  BenchHost host(device.Device());
  MainWindow window(host.application);
  host.StartWith(one.model);
  window.show();
  QCoreApplication::processEvents();
  auto& page = dynamic_cast<ParameterPage&>(*host.application.program.Showing());
  const int row = RowOf(page, one);
  while (state.KeepRunning()) {
    host.Act([&] { page.lst_TypeSelect.UserPicks(row); });
    Paint(window);
  }
  const String path =
      DefFilePath(page.AppPath, page.ItsFamily(), page.Def.Form(), page.DefFile, host.files.Separator());
  constexpr int times = 20;
  const auto start = std::chrono::steady_clock::now();
  for (int time = 0; time < times; ++time) {
    ReadDefFile(host.application.program.Lines(), page.Box(), path, page.Def);
  }
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  state.counters["definition"] = took.count() / times;
}

const bool kFamilyPages = [] {
  for (const FamilyModel& one : kFamilyModels) {
    benchmark::RegisterBenchmark(("FirstVisitOf" + ToUtf8(one.family)).c_str(), FirstVisit, one)
        ->Iterations(1)
        ->Repetitions(kRepetitions)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("ModelOf" + ToUtf8(one.family)).c_str(), ChooseFamilysModel, one)
        ->Iterations(10)
        ->Repetitions(kRepetitions)
        ->UseRealTime()
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
  constexpr std::array<FamilyModel, 3> families = {kFamilyModels[1], kFamilyModels[2], kFamilyModels[0]};
  std::size_t next = 0;
  while (state.KeepRunning()) {
    Page& page = *host.application.program.Showing();
    const int row = RowOf(page, families.at(next));
    next = (next + 1) % families.size();
    host.Act([&] { page.lst_TypeSelect.UserPicks(row); });
    Paint(window);
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
