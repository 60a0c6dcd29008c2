// What the user waits for on the tab of a sensor's table of 1000 points.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench_host.h"
#include "core/text_utilities.h"
#include "shown_window.h"

namespace korva::bench {

namespace {

constexpr int kSensorPoints = 1000;

// A universal transmitter's page with the table of the user's thermocouple in front. Controls go by the names
// under which a user's script knows them.
struct SensorTableWindow : ShownWindow {
  SensorTableWindow() : ShownWindow(u"Z2WU") {
    Pick("Combo(0)", u"熱電対");
    Pick("Combo(1)", u"User's TC");
    Show(Showing().TabOf(Table()));
  }
  korva::Page& Showing() const { return *host.application.program.Showing(); }
  template <typename T>
  T& Find(const char* name) {
    auto* found = dynamic_cast<T*>(Showing().FindControl(name));
    if (found == nullptr) {
      throw std::logic_error(std::string("no control ") + name);
    }
    return *found;
  }
  Grid& Table() { return Find<Grid>("TCFlexGrid"); }
  void Pick(const char* name, StringView entry) {
    auto& box = Find<ComboBox>(name);
    const auto& entries = box.Entries();
    const auto at = std::find(entries.begin(), entries.end(), entry) - entries.begin();
    host.Act([&] { box.UserPicks(static_cast<int>(at)); });
  }
  void Click(const char* name) {
    host.Act([&] { Find<Button>(name).Click(); });
  }
  void Open(const String& file) {
    host.dialogs.QueueFile(file);
    Click("cmd_csvFileOpen");
    Paint();
  }
};

// A file of 1000 points, none of which has the value of another file's.
String SensorFile(const BenchHost& host, int number) {
  const auto path = host.home.Path() / "data" / (std::to_string(number) + ".csv");
  std::ofstream file(path, std::ios::binary);
  file << "Base, -50 \r\nStep, 1 \r\nSize, " << kSensorPoints << " \r\n";
  for (int point = 0; point < kSensorPoints; ++point) {
    file << point / 20 << '.' << point % 20 << number << "\r\n";
  }
  return path.u16string();
}

void OpenSensorTableInWindow(benchmark::State& state) {
  SensorTableWindow shown;
  const std::array files = {SensorFile(shown.host, 1), SensorFile(shown.host, 2)};
  std::size_t next = 0;
  while (state.KeepRunning()) {
    next = 1 - next;
    shown.Open(files.at(next));
  }
  if (shown.Table().At(kSensorPoints, 1).text != (next == 0 ? u"49.191" : u"49.192")) {
    state.SkipWithError("the file was not opened");
  }
}
BENCHMARK(OpenSensorTableInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

void EditSensorCellInWindow(benchmark::State& state) {
  SensorTableWindow shown;
  shown.Open(SensorFile(shown.host, 1));
  int edits = 0;
  while (state.KeepRunning()) {
    const int row = 1 + edits++ % 10;
    shown.host.Act([&] { shown.Table().UserClicks(row, 1); });
    shown.host.Act(
        [&] { shown.Find<TextField>("txtLnrNewValue").UserTypes(Ascii(std::to_string(edits % 70))); });
    shown.Click("cmdLnrChangeOK");
    SensorTableWindow::Paint();
  }
  if (shown.Table().At(1, 1).text == u"0.01") {
    state.SkipWithError("the cell was not changed");
  }
}
BENCHMARK(EditSensorCellInWindow)->Repetitions(kRepetitions)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
