// Each family's row: what is read, in what order and dialect, and what is shown of it.

#include "monitor/monitor_family.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

#include "core/text_utilities.h"
#include "monitor_bench.h"

namespace korva {
namespace {

using test::MonitorBench;

struct FamilyCase {
  StringView word;
  std::string def_file;
  std::string presence;
  std::string mode;       ///< the mode item
  std::string cycle;      ///< keys of the rows
  std::string answer;     ///< of every item
  std::string shown;      ///< of it
  std::string after;      ///< the commands behind the cycle
  const char* name = "";  ///< of the case
};

const std::vector<FamilyCase> kMonitorCases = {
    {u"First", "QZ.def", "03 04 05 06 07 08", "01", "04 05 06 07 08", "DS: 12.5", "12.5", "", "First"},
    {u"First", "QD.def", "03 04 05 06 07 08", "01", "03_mon 04 05 06 07 08", "DS: 12.5", "12.5", "",
     "FirstQD"},
    {u"First", "QD2.def", "03 04 05 06 07 08", "01", "03_mon 04 05 06 07 08", "DS: 12.5", "12.5", "",
     "FirstQD2"},
    {u"First", "QD2I.def", "03 04 05 06 07 08", "01", "03_mon 04 05 06 07 08 32", "DS: 12.5", "12.5", "",
     "FirstQD2I"},
    {u"Second", "M.def", "03 04 05 06 07", "01", "05 06 07", "12.5 mA", "12.5", "", "Second"},
    {u"Third", "M.def", "03 04 05 06 07 08", "01", "03_mon 04_mon 05 06", "DS: 12.5", "12.5", "", "Third"},
    {u"QXI", "M.def", "03 04 05 06 07", "01", "04 05 06 07", "DS: 12.5", "12.5", " G01 I01 D0", "QXI"},
    {u"Lite", "M.def", "03 04 05 06 07", "01", "04 03 06 07", "12.5 mA", "12.5", "", "Lite"},
    {u"LiteUniv", "M.def", "03 04 05 06 07", "01", "04 05 06 07", "12.5 mA", "12.5", "", "LiteUniv"},
    {u"Nano", "Z8WM2.def", "03 04 05 06 07", "01", "04 05 06 07", "12.5 mA", "12.5", "", "Nano"},
    {u"LiteSecond", "M.def", "22 04 05 06 07 08", "22", "06 07", "12.5 Hz", "12.50", "", "LiteSecond"},
    {u"LiteThird", "M.def", "03 04 05 06 07 08", "01", "05 06", "12.5 mA", "12.5", "", "LiteThird"},
    {u"LiteForth", "M.def", "22 04 11 06 07 08", "01", "04 05 06", "12.5 mA", "12.5 mA", "", "LiteForth"},
    {u"LiteFifth", "M.def", "22 04 11 06 07 08", "01", "04 05 06", "12.5 mA", "12.5 mA", "", "LiteFifth"},
};

std::vector<std::string> Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// What the definitions of a family need for the units of FamilyBench's device.
std::string UnitSections(StringView word) {
  if (word.starts_with(u"LiteF")) {
    return test::TemperatureSection(6);
  }
  if (word == u"LiteUniv") {
    return "$I10TC\r\n0,Tc-2\r\n" + test::TemperatureSection();
  }
  return word == u"First" || word == u"QXI" ? test::TemperatureSection() : "";
}

/// A model with every item and, where the units come from the device, the units it answers with.
struct FamilyBench : MonitorBench {
  explicit FamilyBench(const FamilyCase& one)
      : MonitorBench(one.word, one.def_file, test::AllRows() + UnitSections(one.word)) {
    for (auto& [item, answer] : line.items) {
      answer = one.answer;
    }
    line.items["10"] = "Tc-2";
    line.items["21"] = "1:deg F";
  }

  /// The commands from the `nth` reading of the item's selection on, from 1.
  [[nodiscard]] std::string SentFrom(const std::string& command) const {
    const std::string sent = line.Sent();
    return sent.substr(std::min(sent.find(command), sent.size()));
  }
};

struct EveryFamilyTest : testing::TestWithParam<FamilyCase> {};
INSTANTIATE_TEST_SUITE_P(Family, EveryFamilyTest, testing::ValuesIn(kMonitorCases),
                         [](const auto& one) { return one.param.name; });

TEST_P(EveryFamilyTest, ReadsItsCycleInOrderInItsDialectAfterTheModeChange) {
  const FamilyCase& one = GetParam();
  FamilyBench bench(one);
  const std::vector<std::string> cycle = Words(one.cycle);
  const std::string first = "G01 I" + cycle[0].substr(0, 2);
  bench.RunCycle(cycle[0].substr(0, 2));
  const bool cok = bench.page->ItsFamily().dialect == Dialect::Cok;
  std::string expected;
  for (const std::string& key : cycle) {
    expected += (expected.empty() ? "G01 I" : " G01 I") + key.substr(0, 2) + (cok ? "" : " D");
  }
  EXPECT_EQ(bench.SentFrom(first), expected + one.after);
  EXPECT_TRUE(bench.line.Sent().starts_with("G01 I" + one.mode + " D0")) << bench.line.Sent();
  EXPECT_TRUE(bench.Boxes().empty());
  EXPECT_TRUE(bench.AtRest());
}

TEST_P(EveryFamilyTest, ShowsTheCleanedAnswerOfEachItemOfTheCycleAndNoOther) {
  const FamilyCase& one = GetParam();
  FamilyBench bench(one);
  const std::vector<std::string> cycle = Words(one.cycle);
  bench.RunCycle(cycle[0].substr(0, 2));
  for (const char* key : {"03_set", "03_mon", "04", "05", "06", "07", "08", "03", "04_mon", "32", "24_mon"}) {
    const bool read = std::find(cycle.begin(), cycle.end(), key) != cycle.end();
    EXPECT_EQ(bench.Value(FromUtf8(key)), read ? one.shown : "") << key;
    EXPECT_EQ(bench.Box(FromUtf8(key)).ShownLook(), read ? Look::Grey : Look::Normal) << key;
  }
}

TEST_P(EveryFamilyTest, WithoutAPresenceItemOnThePageTheMonitorDoesNothingAndSendsNothing) {
  const FamilyCase& one = GetParam();
  std::vector<test::MonitorRow> rows = {{.item = "03_set", .index = 1}, {.item = "03_mon", .index = 2}};
  for (const std::string& item : Words(one.presence)) {
    rows.push_back({.item = item, .index = static_cast<int>(rows.size()), .on_page = "N"});
  }
  MonitorBench bench(one.word, one.def_file, test::RowsOf(rows));
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.AtRest());
}

TEST_P(EveryFamilyTest, AChosenModelBringsTheTitlesOfItsDialectAndLeavesNoneOfTheModelBefore) {
  const FamilyCase& one = GetParam();
  MonitorBench bench(one.word, one.def_file,
                     test::RowsOf({{.item = "05", .index = 1, .title = "Lift Factor"},
                                   {.item = "06", .index = 2},
                                   {.item = "07", .index = 3, .title = "Fall Factor"}}));
  auto& names = bench.program.Shared().KnownItemNames;
  const bool titled = bench.record.family.dialect == Dialect::EnterItem;
  for (int time = 0; time < 2; ++time) {
    SCOPED_TRACE(time);
    EXPECT_EQ(names[0], titled ? u"Lift Factor" : u"");
    EXPECT_EQ(names[1], u"");
    EXPECT_EQ(names[2], titled ? u"Fall Factor" : u"");
    EXPECT_TRUE(std::all_of(names.begin() + 3, names.end(), [](const String& name) { return name.empty(); }));
    names.fill(u"of another model");
    bench.Do([&] { bench.page->lst_TypeSelect.SetListIndex(0); });
  }
}

TEST_P(EveryFamilyTest, ATabIsAsItWasBeforeEachLockOfTheFrame) {
  MonitorBench bench(GetParam().word, GetParam().def_file, test::AllRows());
  for (const bool open : {false, true, false}) {
    bench.page->Tabs.SetTabEnabled(1, open);
    bench.page->LockFrame();
    EXPECT_FALSE(bench.page->Tabs.TabEnabled(0));
    EXPECT_FALSE(bench.page->Tabs.TabEnabled(1));
    EXPECT_EQ(bench.page->KeptTabEnabled(1), open);
    bench.page->UnlockFrame();
    EXPECT_TRUE(bench.page->Tabs.TabEnabled(0));
    EXPECT_EQ(bench.page->Tabs.TabEnabled(1), open);
    EXPECT_TRUE(bench.page->Tabs.TabEnabled(2));
  }
}

TEST_P(EveryFamilyTest, EachPresenceItemAloneLetsTheMonitorStart) {
  const FamilyCase& one = GetParam();
  for (const std::string& item : Words(one.presence)) {
    MonitorBench bench(one.word, one.def_file, test::RowsOf({{.item = item}}));
    bench.StopAt("I" + one.mode);
    bench.Start();
    EXPECT_TRUE(bench.line.Sent().starts_with("G01 I" + one.mode + " D0")) << item;
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST_P(EveryFamilyTest, AnItemThatIsNoPresenceItemOfTheFamilyDoesNotLetItStart) {
  const FamilyCase& one = GetParam();
  std::vector<test::MonitorRow> rows;
  for (const char* item : {"03", "04", "05", "06", "07", "08", "11", "22", "32"}) {
    if (one.presence.find(item) == std::string::npos) {
      rows.push_back({.item = item, .index = static_cast<int>(rows.size())});
    }
  }
  MonitorBench bench(one.word, one.def_file, test::RowsOf(rows));
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "");
}

}  // namespace
}  // namespace korva
