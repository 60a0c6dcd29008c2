// The tab I/O check of family QXI: live values in the device's mode of status monitoring, and the output.

#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::Shown;
using test::UnivBench;
using Texts = std::vector<std::string>;

/// Watches for a few cycles and tells the accesses, group selections left out.
Texts Watch(UnivBench& bench, Milliseconds length = 2500ms) {
  bench.line.accesses.clear();
  bench.loop.After(length, [&] { bench.Univ().monitor.cmdMonitorOFF.Click(); });
  bench.Click(bench.Univ().monitor.cmdMonitorON);
  Texts items;
  for (const std::string& access : bench.line.accesses) {
    if (!access.starts_with('G')) {
      items.push_back(access);
    }
  }
  return items;
}

TEST(UnivMonitor, RunsInTheModeOfStatusMonitoringAndLeavesItForMonitorMode) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "Tc-2:K(CA)"));
  char mode = ' ';
  bench.loop.After(1500ms, [&] { mode = bench.device.Mode(); });
  const Texts items = Watch(bench);
  EXPECT_EQ(mode, 'A');
  EXPECT_EQ(bench.device.Mode(), '0');
  // monitor mode, the units of 04, 06 and 07, status monitoring, then the cycle
  const Texts start = {"I01", "D0", "I21", "I10", "I21", "I01", "DA", "I04", "I05", "I06", "I07"};
  ASSERT_GE(items.size(), start.size());
  EXPECT_EQ(Texts(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(start.size())), start);
  EXPECT_EQ(items[items.size() - 2], "I01");
  EXPECT_EQ(items.back(), "D0");
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

/// What the device tells of its input, and the units that the monitor then shows.
struct UnitCase {
  std::string input;
  String unit04;
  String unit06;
  String unit07;
};

TEST(UnivMonitor, TakesTheUnitsFromTheDevice) {
  for (const UnitCase& one : std::vector<UnitCase>{{"Tc-2:K(CA)", u"deg F", u"%", u"deg F"},
                                                   {"RB-1:Pt100", u"deg F", u"%", u"deg F"},
                                                   // without a sensor the device has no temperature unit
                                                   {"mV-Z:USER mV", u"", u"mV", u""},
                                                   {"mV-4:4-20 mA", u"", u"mA", u""},
                                                   {"POT:RATIO", u"", u"", u""}}) {
    SCOPED_TRACE(one.input);
    UnivBench bench;
    ASSERT_TRUE(bench.device.Set("01", "21", "deg F"));
    ASSERT_TRUE(bench.device.Set("01", "10", one.input));
    bench.PickInput(u"Tc-8:S");  // the set is another
    Watch(bench);
    EXPECT_EQ(bench.UnitOf(u"04"), one.unit04);
    EXPECT_EQ(bench.UnitOf(u"06"), one.unit06);
    EXPECT_EQ(bench.UnitOf(u"07"), one.unit07);
    EXPECT_EQ(bench.Field(u"06").Text().empty(), one.unit06.empty()) << "without a unit it isn't read";
    EXPECT_FALSE(bench.Field(u"05").Text().empty());
  }
}

TEST(UnivMonitor, ALabelBlinksWhileItsUnitIsLookedUpThatOfItem07Too) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "Tc-2:K(CA)"));
  bench.line.replies["01/21"] = std::nullopt;  // each look-up waits in vain
  std::map<std::string, int> changes;
  for (const char16_t* item : {u"04", u"06", u"07"}) {
    Label* label = bench.Page().UnitLabelOf(bench.Page().FindDataRow(item));
    label->Observe([&changes, label, name = ToUtf8(item), last = Look::Normal]() mutable {
      changes[name] += std::exchange(last, label->ShownLook()) != label->ShownLook() ? 1 : 0;
    });
  }
  Watch(bench, 90s);
  EXPECT_GT(changes["04"], 10);
  EXPECT_GT(changes["07"], 10);
  EXPECT_LT(changes["06"], 10) << "the input answers at once";
  for (const char16_t* item : {u"04", u"06", u"07"}) {
    EXPECT_EQ(bench.Page().UnitLabelOf(bench.Page().FindDataRow(item))->ShownLook(), Look::Normal);
  }
}

TEST(UnivMonitor, KnowsTheTemperatureUnitByItsCodeToo) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "Tc-2:K(CA)"));
  bench.line.replies["01/21"] = "D2";
  Watch(bench);
  EXPECT_EQ(bench.UnitOf(u"04"), u"K");
}

TEST(UnivMonitor, AnItemThatIsRefusedGoesEmptyAndIsSkippedFromTheNextCycleOn) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "Tc-2:K(CA)"));
  bench.line.replies["01/06"] = "CNG";
  const Texts items = Watch(bench, 5500ms);
  EXPECT_EQ(std::count(items.begin(), items.end(), "I06"), 1);
  EXPECT_GE(std::count(items.begin(), items.end(), "I07"), 2);
  EXPECT_EQ(bench.Field(u"06").Text(), u"");
  EXPECT_EQ(bench.UnitOf(u"06"), u"");
  EXPECT_FALSE(bench.Field(u"07").Text().empty());
}

TEST(UnivMonitor, WhenTheModeIsRefusedItsBoxShowsAndTheValuesAreReadAllTheSame) {
  UnivBench bench;
  bench.line.replies["01/01 DA"] = "CNG";
  const Texts items = Watch(bench);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::ModeNotChanged)});
  EXPECT_GE(std::count(items.begin(), items.end(), "I05"), 1);
}

TEST(UnivMonitor, SetsNothingChanged) {
  UnivBench bench;
  Watch(bench);
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(UnivOutput, OneHundredAndTwentyIsAcceptedAndAHundredthMoreRefused) {
  UnivBench bench;
  OutputSetting& output = bench.Univ().output;
  const Texts refused = {Shown(BoxKey::OutputOutOfRange, {u"-20.00", u"120.00"})};
  for (const char16_t* text : {u"120.01", u"-20.01", u""}) {
    bench.Type(u"03_set", text);
    bench.Click(output.cmdSet);
    EXPECT_EQ(bench.TakeBoxes(), refused);
  }
  for (const char16_t* text : {u"120.00", u"-20.00"}) {
    bench.ForceOutput(text);
    EXPECT_EQ(bench.device.Value("01", "03"), ToUtf8(text));
    EXPECT_EQ(bench.Field(u"03_mon").Text(), text);
    bench.Click(output.cmdStatusMonOFF);
    EXPECT_EQ(bench.device.Mode(), '0');
  }
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(UnivOutput, WaitsHalfASecondBeforeItTellsThatTheModeWasRefused) {
  UnivBench bench;
  bench.line.replies["01/01 D1"] = "CNG";
  Clock refused{0};
  bench.line.on_access = [&](const std::string& access) {
    refused = access == "01/01 D1" ? bench.loop.Now() : refused;
  };
  Clock told{0};
  bench.dialogs.OnBox([&](const Box&) { told = bench.loop.Now(); });
  bench.ForceOutput(u"50");
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::NotProgrammingMode)});
  EXPECT_GE(told - refused, 500ms);
}

}  // namespace
}  // namespace korva
