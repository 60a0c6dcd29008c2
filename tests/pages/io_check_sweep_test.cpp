// Each exchange of a monitor run and of a forced output in turn is broken, once and for good, in each way in
// which a line can break; no run may hang, show a value in a wrong box or leave a page that can't be used.

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;
using sim::Fault;

struct IoModel {
  const char* name = "";
  std::vector<std::string> cycle;  ///< keys of the live items, in their order
  std::string unit_of = {};        ///< item whose unit the device tells; empty: none
  std::string unit_item = {};      ///< item by which it tells
  std::string unit_code = {};      ///< what that item is set to
  std::string unit = {};           ///< the unit of that choice
  Dialect dialect = Dialect::Cok;
  bool repeats_modes_once = false;  ///< not three times
  std::string input = {};           ///< what the input is set to, of models whose input is chosen
  std::string signal_unit = {};     ///< the unit of item 06 there

  /// Exchanges of one read.
  [[nodiscard]] std::size_t ReadExchanges() const { return dialect == Dialect::Cok ? 2 : 3; }
};

const std::vector<IoModel> kModels = {
    {.name = "QN",
     .cycle = {"04", "05", "06", "07"},
     .unit_of = "04",
     .unit_item = "21",
     .unit_code = "1",
     .unit = "deg F"},
    {.name = "QEI",
     .cycle = {"05", "06", "07"},
     .unit_of = "06",
     .unit_item = "11",
     .unit_code = "4",
     .unit = "kHz"},
    {.name = "QHW",
     .cycle = {"05", "06", "07", "08"},
     .unit_of = "06",
     .unit_item = "10",
     .unit_code = "3",
     .unit = "mA"},
    {.name = "QD2I", .cycle = {"03_mon", "05", "07", "08", "32"}},
    {.name = "QEY", .cycle = {"05", "06", "07"}, .dialect = Dialect::EnterItem},
    {.name = "QICE", .cycle = {"05", "06", "07"}, .dialect = Dialect::EnterItem},
    {.name = "QNA2", .cycle = {"03_mon", "05", "06"}, .repeats_modes_once = true},
    {.name = "QEI2",
     .cycle = {"03_mon", "05", "06"},
     .unit_of = "06",
     .unit_item = "11",
     .unit_code = "4",
     .unit = "kHz",
     .repeats_modes_once = true},
};

/// Models whose input is chosen. The device is asked for it, or for what its units follow; an item without a
/// unit is not read.
const std::vector<IoModel> kChosenInputModels = {
    {.name = "QXI",
     .cycle = {"04", "05", "06", "07"},
     .unit_of = "04",
     .unit_item = "21",
     .unit_code = "1",
     .unit = "deg F",
     .input = "Tc-2:K(CA)",
     .signal_unit = "%"},
    {.name = "Z2WU",
     .cycle = {"04", "05", "06", "07"},
     .unit_of = "04",
     .unit_item = "21",
     .unit_code = "1",
     .unit = "deg F",
     .dialect = Dialect::EnterItem,
     .input = "TC K (CA)",
     .signal_unit = "mV"},
    {.name = "Z8WV2",
     .cycle = {"04", "05", "06", "07"},
     .unit = "mV",
     .dialect = Dialect::EnterItem,
     .input = "-100-100 mV",
     .signal_unit = "mV"},
    {.name = "Z8WM2",
     .cycle = {"04", "05", "06", "07"},
     .unit = "%",
     .dialect = Dialect::EnterItem,
     .input = "POT 2-10 kOhm",
     .signal_unit = "%"},
    {.name = "Z8WT2",
     .cycle = {"04", "05", "06", "07"},
     .unit_of = "04",
     .unit_item = "21",
     .unit_code = "0",
     .unit = "deg C",
     .dialect = Dialect::EnterItem,
     .input = "1 K (CA)",
     .signal_unit = "mV"},
    {.name = "Z8WR2",
     .cycle = {"04", "05", "06", "07"},
     .unit_of = "04",
     .unit_item = "21",
     .unit_code = "0",
     .unit = "deg C",
     .dialect = Dialect::EnterItem,
     .input = "2 Pt100 JIS'97",
     .signal_unit = "Ohm"},
};

/// A live item's value, which no other item has.
std::string ValueOf(const std::string& key) { return "1" + key.substr(0, 2) + ".00"; }

/// A program with a device of the model, whose set has been uploaded.
class IoSweep : public SweepBench {
 public:
  explicit IoSweep(const IoModel& of_model) : SweepBench(FromUtf8(of_model.name)), model(of_model) {
    if (!model.input.empty()) {
      EXPECT_TRUE(device.Set("01", "10", model.input));
    }
    if (!model.unit_item.empty()) {
      EXPECT_TRUE(device.Set("01", model.unit_item, model.unit_code));
    }
  }

  /// Has the device's live values stand still, and monitors two cycles.
  void MonitorTwoCycles() {
    for (const std::string& key : model.cycle) {
      ASSERT_TRUE(device.Set("01", key.substr(0, 2), ValueOf(key)));
      Record(key);
    }
    PutIntoMode('1');
    Do([this] { Part<StatusMonitor>(Page()).cmdMonitorON.Click(); });
  }

  /// The same, until the user presses the button that stops, two cycles of a good line behind the first read
  /// of the item that always has a unit.
  void MonitorByTime() {
    for (const std::string& key : model.cycle) {
      ASSERT_TRUE(device.Set("01", key, ValueOf(key)));
      Record(key);
    }
    Field(u"05").Observe([this, begun = false]() mutable {
      if (!begun && LookOf(u"05") == Look::Highlight) {
        begun = true;
        loop.After(std::chrono::seconds(3), [this] { Part<StatusMonitor>(Page()).cmdMonitorOFF.Click(); });
      }
    });
    PutIntoMode('1');
    Do([this] { Part<StatusMonitor>(Page()).cmdMonitorON.Click(); });
  }

  void Force() {
    PutIntoMode('0');
    Field(u"03_mon").SetText(u"old");
    ForceOutput(u"62.5");
  }

  [[nodiscard]] bool Forced() {
    const bool reached = Page().WhyRefused(Part<OutputSetting>(Page()).cmdStatusMonOFF).empty();
    for (const Button* button :
         {&Part<OutputSetting>(Page()).cmdSet, &Part<StatusMonitor>(Page()).cmdMonitorON,
          &Part<StatusMonitor>(Page()).cmdMonitorOFF, &Page().cmdUpload, &Page().cmdExit}) {
      EXPECT_NE(button->Enabled(), app.program.Shared().CommBusy) << button->Name();
    }
    return reached && app.program.Shared().CommBusy;
  }

  void ExpectFree() {
    ExpectUsable();
    for (const Button* button :
         {&Part<StatusMonitor>(Page()).cmdMonitorON, &Part<StatusMonitor>(Page()).cmdMonitorOFF,
          &Part<OutputSetting>(Page()).cmdSet, &Part<OutputSetting>(Page()).cmdStatusMonOFF}) {
      EXPECT_TRUE(button->Enabled()) << button->Name();
    }
    if (TextField* set_box = Page().FindField(u"03_set")) {
      EXPECT_EQ(Page().WhyRefused(*set_box), "");
    }
    EXPECT_FALSE(Page().lbl_Waitfor.Visible());
    ExpectStill();
  }

  /// No timer runs and nothing is highlighted.
  void ExpectStill() {
    EXPECT_FALSE(Part<OutputSetting>(Page()).Item03_MonitorTimer.Running());
    EXPECT_FALSE(Part<StatusMonitor>(Page()).Item04_lblUnitTimer.Running());
    EXPECT_FALSE(Part<StatusMonitor>(Page()).Item06_lblUnitTimer.Running());
    for (const std::string& key : model.cycle) {
      EXPECT_EQ(LookOf(FromUtf8(key)), Look::Grey) << key;
      EXPECT_EQ(UnitLabel(key).ShownLook(), Look::Normal) << key;
    }
    EXPECT_EQ(LookOf(u"03_mon"), Look::Grey);
  }

  /// Live values stand in the set too, in cells of their own.
  void ExpectSettingsKept() {
    const std::vector<String> cells = SetOf();
    for (std::size_t item = 0; item < cells.size(); ++item) {
      if (!uploaded[item].empty()) {
        EXPECT_EQ(cells[item], uploaded[item]) << item;
      }
    }
  }

  Label& UnitLabel(const std::string& key) {
    const int row = Page().FindDataRow(FromUtf8(key));
    return Page().lbl_unit[std::stoi(ToUtf8(Page().DataCell(row, kUnitLabel)))];
  }

  const IoModel& model;
  std::map<std::string, Texts> shown;  ///< by key: the text that each reading left in the box

 private:
  void PutIntoMode(char mode) {
    for (const std::string& line : {std::string("G01"), std::string("I01"), std::string("D") + mode}) {
      device.Answer(line);
    }
    ASSERT_EQ(device.Mode(), mode);
  }

  /// A reading is over when its box leaves the highlight. With the first one of the second cycle the user
  /// presses the button that stops.
  void Record(const std::string& key) {
    TextField& box = Field(FromUtf8(key));
    box.Observe([this, &box, key, before = box.ShownLook()]() mutable {
      const Look now = box.ShownLook();
      if (before == Look::Highlight && now != Look::Highlight) {
        shown[key].push_back(ToUtf8(box.Text()));
      } else if (before != now && key == model.cycle.front() && shown[key].size() == 1 &&
                 model.input.empty()) {
        loop.After(Clock(0), [this] { Part<StatusMonitor>(Page()).cmdMonitorOFF.Click(); });
      }
      before = now;
    });
  }
};

/// A monitor run's exchanges: three of the mode change, then two for each read.
constexpr std::size_t kModeExchanges = 3;

/// True when the mode change that begins at exchange `first` fails. Any text is taken for the device's echo,
/// in the dialect of titles a refusal too. A late reply spoils a second try, whose answers are then no longer
/// its own, and a third one mends it.
bool ModeFails(const IoModel& model, const Break& line_break, std::size_t first) {
  if (line_break.at >= first + kModeExchanges) {
    return false;
  }
  if (!line_break.for_good) {
    return line_break.fault == Fault::Late && model.repeats_modes_once && line_break.at >= first;
  }
  const bool taken = line_break.fault == Fault::Garbled ||
                     (line_break.fault == Fault::Refused && model.dialect == Dialect::EnterItem);
  return !taken || line_break.at <= first + 1;
}

/// True when the device refuses the mode change that begins at exchange `first` and the program can't know:
/// in the dialect of titles any text counts as taken.
bool ModeIgnored(const IoModel& model, const Break& line_break, std::size_t first) {
  return model.dialect == Dialect::EnterItem && line_break.fault == Fault::Refused &&
         line_break.at == first + 2;
}

/// True when what the program was told of a mode change is what the device did. With a single repeat, a
/// change whose echo is late looks like one that failed.
bool TellsTheMode(const IoModel& model, const Break& line_break) {
  const bool late_echo = line_break.fault == Fault::Late && line_break.at % kModeExchanges == 2;
  return line_break.Foreseen() && !(late_echo && model.repeats_modes_once);
}

/// The first exchange of the live items: behind the mode change and the unit.
std::size_t FirstRead(const IoModel& model) { return kModeExchanges + (model.unit_of.empty() ? 0 : 2); }

/// True when a single read that begins with exchange `first` brings no value.
bool ReadFails(const IoModel& model, const Break& line_break, std::size_t first) {
  const std::size_t exchanges = model.ReadExchanges();
  const bool own = line_break.at >= first && line_break.at < first + exchanges;
  if (line_break.for_good) {
    return line_break.at < first + exchanges;
  }
  if (line_break.fault == Fault::Late) {  // it spoils the read behind it too, unless a repeat took it up
    return own ||
           (line_break.at >= FirstRead(model) && line_break.at + exchanges >= first && line_break.at < first);
  }
  if (line_break.fault == Fault::Doubled) {  // the pause behind a read drains what comes
    const bool last = line_break.at == first + exchanges - 1;
    return (own && !last) || (first == FirstRead(model) && line_break.at == first - 1);
  }
  return own;
}

/// True when a read that is repeated brings no value: one repeat mends all but a refusal.
bool RepeatedReadFails(const Break& line_break, std::size_t first) {
  return line_break.for_good ? line_break.at <= first + 1
                             : line_break.fault == Fault::Refused && line_break.at == first + 1;
}

void ExpectReadings(IoSweep& bench, const Break& line_break) {
  std::size_t exchange = kModeExchanges;
  if (!bench.model.unit_of.empty()) {
    EXPECT_EQ(ToUtf8(bench.UnitLabel(bench.model.unit_of).Caption()),
              RepeatedReadFails(line_break, exchange) ? "" : bench.model.unit);
    exchange += 2;
  }
  for (std::size_t cycle = 0; cycle < 2; ++cycle) {
    for (const std::string& key : bench.model.cycle) {
      EXPECT_EQ(bench.shown[key].at(cycle), ReadFails(bench.model, line_break, exchange) ? "" : ValueOf(key))
          << key;
      exchange += bench.model.ReadExchanges();
    }
  }
}

/// With replies that come too late for good, a value is shown in its own box or not at all.
void ExpectNothingWrong(IoSweep& bench) {
  if (const std::string& item = bench.model.unit_of; !item.empty()) {
    const std::string unit = ToUtf8(bench.UnitLabel(item).Caption());
    EXPECT_TRUE(unit.empty() || unit == bench.model.unit) << unit;
  }
  for (const std::string& key : bench.model.cycle) {
    for (const std::string& text : bench.shown[key]) {
      EXPECT_TRUE(text.empty() || text == ValueOf(key)) << key << ' ' << text;
    }
  }
}

void PrintTo(const IoModel& model, std::ostream* out) { *out << model.name; }

struct IoSweepTest : testing::TestWithParam<IoModel> {};

INSTANTIATE_TEST_SUITE_P(Model, IoSweepTest, testing::ValuesIn(kModels),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(IoSweepTest, AMonitorBrokenAtAnyExchangeReadsWholeCyclesUntilItIsStopped) {
  const IoModel& model = GetParam();
  IoSweep good(model);
  good.MonitorTwoCycles();
  ASSERT_EQ(good.commands.size(), FirstRead(model) + 2 * model.ReadExchanges() * model.cycle.size());
  int runs = 0;
  for (const Break& line_break : BreaksOf(good.commands.size())) {
    SCOPED_TRACE(line_break.Name());
    IoSweep bench(model);
    const Clock start = bench.loop.Now();
    bench.StartBreak({.fault = line_break.fault, .for_good = line_break.for_good, .at = line_break.at + 3});
    bench.MonitorTwoCycles();
    ++runs;
    EXPECT_LT(bench.loop.Now() - start, kLongestRun);
    const Texts boxes = bench.TakeBoxes();
    const bool began = boxes.empty();
    if (line_break.Foreseen()) {
      EXPECT_EQ(began, !ModeFails(model, line_break, 0));
    }
    EXPECT_TRUE(began || boxes == Texts{Shown(BoxKey::NotMonitorMode)});
    if (TellsTheMode(model, line_break)) {
      EXPECT_EQ(bench.device.Mode(), began && !ModeIgnored(model, line_break, 0) ? '0' : '1');
    }
    for (const std::string& key : model.cycle) {
      EXPECT_EQ(bench.shown[key].size(), began ? 2U : 0U) << key;
    }
    if (began && !line_break.Foreseen()) {
      ExpectNothingWrong(bench);
    } else if (began) {
      ExpectReadings(bench, line_break);
      bench.ExpectFree();
    }
    bench.ExpectUsable();
    bench.ExpectSettingsKept();
    bench.ExpectUploadWorks();
    if (testing::Test::HasFailure()) {
      return;
    }
  }
  std::cout << model.name << ": monitor runs with a broken exchange: " << runs << '\n';
}

// --- models whose input is chosen

struct ChosenInputSweepTest : testing::TestWithParam<IoModel> {
  /// Of each unit the one that belongs there or none, and of each reading the item's own value or none.
  static void ExpectOwnOrNone(IoSweep& bench) {
    ExpectNothingWrong(bench);
    const std::string unit07 = ToUtf8(bench.UnitLabel("07").Caption());
    EXPECT_TRUE(unit07.empty() || unit07 == GetParam().unit) << unit07;
    const std::string unit06 = ToUtf8(bench.UnitLabel("06").Caption());
    EXPECT_TRUE(unit06.empty() || unit06 == GetParam().signal_unit) << unit06;
  }
  /// What a line that was silent or garbled once, and repeats mended, must have shown: the units, and in
  /// every reading but one its value.
  static void ExpectAllButOneReading(IoSweep& bench) {
    EXPECT_EQ(ToUtf8(bench.UnitLabel("04").Caption()), GetParam().unit);
    EXPECT_EQ(ToUtf8(bench.UnitLabel("06").Caption()), GetParam().signal_unit);
    EXPECT_EQ(ToUtf8(bench.UnitLabel("07").Caption()), GetParam().unit);
    int lost = 0;
    for (const std::string& key : GetParam().cycle) {
      EXPECT_GE(bench.shown[key].size(), 1U) << key;
      for (const std::string& text : bench.shown[key]) {
        lost += text == ValueOf(key) ? 0 : 1;
      }
    }
    EXPECT_LE(lost, 1);
  }
};

INSTANTIATE_TEST_SUITE_P(Model, ChosenInputSweepTest, testing::ValuesIn(kChosenInputModels),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(ChosenInputSweepTest, AMonitorBrokenAtAnyExchangeShowsTheItemsOwnValueAndUnitOrNone) {
  const IoModel& model = GetParam();
  IoSweep good(model);
  good.MonitorByTime();
  for (const std::string& key : model.cycle) {
    EXPECT_EQ(good.shown[key], (Texts{ValueOf(key), ValueOf(key)})) << key;
  }
  ExpectAllButOneReading(good);
  const std::vector<Break> breaks = OneIn(2, BreaksOf(good.commands.size()));
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    IoSweep bench(model);
    const Clock start = bench.loop.Now();
    bench.StartBreak({.fault = line_break.fault, .for_good = line_break.for_good, .at = line_break.at + 3});
    bench.MonitorByTime();
    EXPECT_LT(bench.loop.Now() - start, kLongestRun);
    const Texts boxes = bench.TakeBoxes();
    for (const std::string& box : boxes) {
      EXPECT_TRUE(box == Shown(BoxKey::NotMonitorMode) || box == Shown(BoxKey::ModeNotChanged)) << box;
    }
    if (line_break.Foreseen() && ModeFails(model, line_break, 0)) {
      EXPECT_EQ(boxes, Texts{Shown(BoxKey::NotMonitorMode)});
      EXPECT_TRUE(bench.shown["05"].empty());
    }
    const bool mended =
        !line_break.for_good && (line_break.fault == Fault::Silent || line_break.fault == Fault::Garbled);
    if (mended) {
      EXPECT_EQ(boxes, Texts{});
      EXPECT_EQ(bench.device.Mode(), '0');
      ExpectAllButOneReading(bench);
    }
    if (!bench.shown["05"].empty()) {  // else the units are still those of the set
      ExpectOwnOrNone(bench);
    }
    bench.ExpectFree();
    bench.ExpectSettingsKept();
    bench.ExpectUploadWorks();
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(model.name) + ": monitor runs with a broken exchange", breaks.size(),
            9 * good.commands.size());
}

/// What a break leaves of a forced output: three exchanges of the mode change, three of the write, and three
/// of the return.
struct ForcedOutcome {
  bool forced = true;
  std::string shown = "62.50";
  bool released = true;
};

ForcedOutcome ForcedOutcomeOf(const IoModel& model, const Break& line_break) {
  constexpr std::size_t kWriteData = 5;
  if (ModeFails(model, line_break, 0)) {
    return {.forced = false, .shown = "old", .released = true};
  }
  const bool refusal_shown = line_break.fault == Fault::Refused && model.dialect == Dialect::EnterItem &&
                             line_break.at == kWriteData;
  const bool no_answer = line_break.for_good && line_break.at <= kWriteData;
  const bool no_value = refusal_shown || no_answer || ModeIgnored(model, line_break, 0);
  return {.forced = true,
          .shown = no_value ? "" : "62.50",
          .released = !ModeFails(model, line_break, kWriteData + 1)};
}

struct ForcedSweepTest : IoSweepTest {};

/// The models that have a box for the value to set.
std::vector<IoModel> ModelsWithASetBox() {
  std::vector<IoModel> models = kModels;
  std::erase_if(models, [](const IoModel& model) { return std::string_view(model.name) == "QD2I"; });
  models.insert(models.end(), kChosenInputModels.begin(), kChosenInputModels.end());
  return models;
}

INSTANTIATE_TEST_SUITE_P(Model, ForcedSweepTest, testing::ValuesIn(ModelsWithASetBox()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(ForcedSweepTest, AForcedOutputBrokenAtAnyExchangeIsHeldOrGivenUpAndThenReleased) {
  int runs = 0;
  for (const Break& line_break : BreaksOf(9)) {
    SCOPED_TRACE(line_break.Name());
    IoSweep bench(GetParam());
    const Clock start = bench.loop.Now();
    bench.StartBreak({.fault = line_break.fault, .for_good = line_break.for_good, .at = line_break.at + 3});
    bench.Force();
    ++runs;
    const ForcedOutcome expected = ForcedOutcomeOf(GetParam(), line_break);
    const Texts refusal = bench.TakeBoxes();
    const bool forced = refusal.empty();
    EXPECT_TRUE(forced || refusal == Texts{Shown(BoxKey::NotProgrammingMode)});
    EXPECT_EQ(bench.Forced(), forced);
    EXPECT_EQ(bench.LookOf(u"03_mon"), Look::Grey);
    EXPECT_FALSE(Part<OutputSetting>(bench.Page()).Item03_MonitorTimer.Running());
    const bool entered = forced && !ModeIgnored(GetParam(), line_break, 0);
    if (TellsTheMode(GetParam(), line_break)) {
      EXPECT_EQ(bench.device.Mode(), entered ? '1' : '0');
    }
    if (line_break.Foreseen()) {
      EXPECT_EQ(forced, expected.forced);
      EXPECT_EQ(ToUtf8(bench.Field(u"03_mon").Text()), expected.shown);
    }
    if (forced) {
      bench.Click(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
      const Texts boxes = bench.TakeBoxes();
      const bool released = boxes.empty();
      EXPECT_TRUE(released || boxes == Texts{Shown(BoxKey::NotMonitorMode)});
      const bool left = released && !ModeIgnored(GetParam(), line_break, 6);
      if (TellsTheMode(GetParam(), line_break)) {
        EXPECT_EQ(bench.device.Mode(), entered && !left ? '1' : '0');
      }
      EXPECT_TRUE(!line_break.Foreseen() || released == expected.released);
    }
    EXPECT_LT(bench.loop.Now() - start, kLongestRun);
    bench.ExpectFree();
    bench.ExpectSettingsKept();
    bench.ExpectUploadWorks();
    if (testing::Test::HasFailure()) {
      return;
    }
  }
  std::cout << GetParam().name << ": forced outputs with a broken exchange: " << runs << '\n';
}

}  // namespace
}  // namespace korva::test
