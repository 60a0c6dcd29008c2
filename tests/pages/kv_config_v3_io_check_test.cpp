// The tab I/O check of family Third on its page, with a device: live values, forced output, counts and
// commands.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v3_bench.h"
#include "support/page_parts.h"
#include "support/tabs.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::V3Bench;
using Texts = std::vector<std::string>;

/// What a model shows on the tab.
struct Shows {
  String model;
  bool off = true;  ///< cmdStatusMonOFF: the output can be forced
  bool set2 = false;
  bool set3 = false;
  bool command12 = false;
  bool command13 = false;
};

void PrintTo(const Shows& shows, std::ostream* out) { *out << ToUtf8(shows.model); }

const std::vector<Shows> kModels = {
    {.model = u"QCE2"},
    {.model = u"QEI2"},
    {.model = u"QIEU2"},
    {.model = u"QICE2"},
    {.model = u"QCB2", .set2 = true, .set3 = true},
    {.model = u"QEB2"},
    {.model = u"QNA2"},
    {.model = u"QEC2", .off = false, .set2 = true, .command12 = true, .command13 = true},
    {.model = u"QEY3", .off = false, .set3 = true, .command12 = true},
    {.model = u"QHC2"},
};

struct V3IoCheckTest : testing::TestWithParam<Shows> {};

INSTANTIATE_TEST_SUITE_P(Model, V3IoCheckTest, testing::ValuesIn(kModels),
                         [](const auto& one) { return ToUtf8(one.param.model); });

TEST_P(V3IoCheckTest, TheButtonsShowForModelsThatHaveTheirRows) {
  const Shows& shows = GetParam();
  V3Bench bench(u"QEC2");
  bench.Choose(u"QCB2");
  bench.Choose(shows.model);
  EXPECT_TRUE(test::Part<OutputSetting>(bench.Page()).cmdSet.Visible());
  EXPECT_TRUE(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON.Visible());
  EXPECT_EQ(test::Part<OutputSetting>(bench.Page()).cmdStatusMonOFF.Visible(), shows.off);
  EXPECT_EQ(test::ButtonOf(bench.Page(), "cmdSet2").Visible(), shows.set2);
  EXPECT_EQ(test::ButtonOf(bench.Page(), "cmdSet3").Visible(), shows.set3);
  EXPECT_EQ(test::ButtonOf(bench.Page(), "Command_I12").Visible(), shows.command12);
  EXPECT_EQ(test::ButtonOf(bench.Page(), "Command_I13").Visible(), shows.command13);
}

TEST_P(V3IoCheckTest, AllOfThemAreLockedDuringAnOperation) {
  V3Bench bench(GetParam().model);
  bench.Read();
  int looked = 0;
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic&) {
    ++looked;
    for (const Button* button :
         {&test::Part<OutputSetting>(bench.Page()).cmdSet, &test::ButtonOf(bench.Page(), "cmdSet2"),
          &test::ButtonOf(bench.Page(), "cmdSet3"), &test::ButtonOf(bench.Page(), "Command_I12"),
          &test::ButtonOf(bench.Page(), "Command_I13")}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::IoCheck));
  };
  EXPECT_TRUE(bench.Downloads());
  EXPECT_GT(looked, 10);
  for (const Button* button :
       {&test::Part<OutputSetting>(bench.Page()).cmdSet, &test::ButtonOf(bench.Page(), "cmdSet2"),
        &test::ButtonOf(bench.Page(), "cmdSet3"), &test::ButtonOf(bench.Page(), "Command_I12"),
        &test::ButtonOf(bench.Page(), "Command_I13")}) {
    EXPECT_TRUE(button->Enabled()) << button->Name();
  }
}

TEST_P(V3IoCheckTest, ThePressOfSetForcesAnOutputOrSetsACount) {
  V3Bench bench(GetParam().model);
  bench.Read();
  bench.Type(u"03_set", u"50");
  const std::string set = "G01 I01 D1 G01 I03 D50";
  if (GetParam().off) {
    EXPECT_EQ(bench.CommandsOf(test::Part<OutputSetting>(bench.Page()).cmdSet), set);
    EXPECT_EQ(bench.Field(u"03_mon").Text(), u"50.00");
    EXPECT_EQ(bench.CommandsOf(test::Part<OutputSetting>(bench.Page()).cmdStatusMonOFF), "G01 I01 D0");
  } else {
    EXPECT_EQ(bench.CommandsOf(test::Part<OutputSetting>(bench.Page()).cmdSet), set + " G01 I01 D0");
    EXPECT_EQ(bench.Field(u"03_mon").Text(), u"50");
    EXPECT_EQ(bench.Field(u"03_set").Text(), u"");
    EXPECT_TRUE(test::Part<OutputSetting>(bench.Page()).cmdSet.Enabled());
  }
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
}

// Counts.

struct CountPress {
  String model;
  String item;
  std::string timer;
};

void PrintTo(const CountPress& press, std::ostream* out) {
  *out << ToUtf8(press.model) << ' ' << ToUtf8(press.item);
}

/// The timers of what the page's tab sets, as far as they blink.
std::vector<const Timer*> TimersOf(const Page& page) {
  std::vector<const Timer*> timers = {&test::Part<OutputSetting>(page).Item03_MonitorTimer};
  for (const PagePart* part : page.Parts()) {
    if (const auto* count = dynamic_cast<const CountSetting*>(part)) {
      timers.push_back(&count->BlinkTimer);
    } else if (const auto* command = dynamic_cast<const ItemCommand*>(part)) {
      timers.push_back(&command->BlinkTimer);
    }
  }
  return timers;
}

const Timer& TimerNamed(const Page& page, const std::string& name) {
  const std::vector<const Timer*> timers = TimersOf(page);
  return **std::find_if(timers.begin(), timers.end(),
                        [&](const Timer* timer) { return timer->FullName() == name; });
}

struct V3CountTest : testing::TestWithParam<CountPress> {
  V3CountTest() { bench.Read(); }
  [[nodiscard]] Button& SetButton() {
    const String& item = GetParam().item;
    return item == u"03"   ? test::Part<OutputSetting>(bench.Page()).cmdSet
           : item == u"04" ? test::ButtonOf(bench.Page(), "cmdSet2")
                           : test::ButtonOf(bench.Page(), "cmdSet3");
  }
  [[nodiscard]] TextField& SetBox() { return bench.Field(GetParam().item + u"_set"); }
  [[nodiscard]] TextField& MonBox() {
    return bench.Field(GetParam().item == u"06" ? u"06" : GetParam().item + u"_mon");
  }
  [[nodiscard]] std::vector<std::string> Running() {
    std::vector<std::string> names;
    for (const Timer* timer : TimersOf(bench.Page())) {
      EXPECT_EQ(timer->Interval(), 200ms);
      if (timer->Running()) {
        names.push_back(timer->FullName());
      }
    }
    return names;
  }
  V3Bench bench{GetParam().model};
};

INSTANTIATE_TEST_SUITE_P(Count, V3CountTest,
                         testing::Values(CountPress{u"QEC2", u"03", "Item03_MonitorTimer"},
                                         CountPress{u"QEC2", u"04", "Item04_MonitorTimer"},
                                         CountPress{u"QEY3", u"03", "Item03_MonitorTimer"},
                                         CountPress{u"QEY3", u"06", "Item06_MonitorTimer"},
                                         CountPress{u"QCB2", u"04", "Item04_MonitorTimer"},
                                         CountPress{u"QCB2", u"06", "Item06_MonitorTimer"}));

TEST_P(V3CountTest, GoesIntoTheDeviceWithItsOwnBoxBlinkingAndLeavesAFreePage) {
  const std::string item = ToUtf8(GetParam().item);
  bench.Type(SetBox(), u"1234");
  int focus = 0;
  SetBox().ObserveFocus([&] { ++focus; });
  std::vector<std::string> running;
  bench.loop.After(100ms, [&] {
    running = Running();
    EXPECT_EQ(MonBox().ShownLook(), Look::Grey) << "put to rest with the others";
  });
  bench.loop.After(250ms, [&] { EXPECT_EQ(MonBox().ShownLook(), Look::Highlight); });
  EXPECT_EQ(bench.CommandsOf(SetButton()), "G01 I01 D1 G01 I" + item + " D1234 G01 I01 D0");
  EXPECT_EQ(running, std::vector{GetParam().timer});
  EXPECT_EQ(Running(), std::vector<std::string>{});
  EXPECT_EQ(bench.device.Value("01", item), "1234");
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(MonBox().Text(), u"1234");
  EXPECT_EQ(MonBox().ShownLook(), Look::Grey);
  EXPECT_EQ(SetBox().Text(), u"");
  EXPECT_EQ(bench.Page().WhyRefused(SetBox()), "");
  EXPECT_EQ(bench.Page().WhyRefused(SetButton()), "");
  EXPECT_EQ(focus, 1);
  EXPECT_FALSE(bench.app.program.Shared().CommBusy);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
}

TEST_P(V3CountTest, BeyondItsRangeIsRefusedAndNothingIsSent) {
  for (const char16_t* bad : {u"4294967296", u"-100000000", u"", u"abc", u"1.5"}) {
    bench.Type(SetBox(), u"7");
    bench.Type(SetBox(), bad);
    EXPECT_EQ(bench.CommandsOf(SetButton()), "") << ToUtf8(bad);
    const bool wide = GetParam().item != u"06";
    const String low = wide || GetParam().model == u"QCB2" ? u"0" : u"-99999999";
    const Box box = BoxOf(BoxKey::CountOutOfRange, {low, wide ? u"4294967295" : u"99999999"});
    EXPECT_EQ(bench.TakeBoxes(), Texts{ToUtf8(box.title + u": " + box.text)}) << ToUtf8(bad);
  }
}

TEST_P(V3CountTest, TheCloseBoxAtAnyPumpEndsTheProgramWithTheDeviceInMonitorMode) {
  const std::size_t before = bench.loop.PumpCount();
  bench.Type(SetBox(), u"7");
  bench.Click(SetButton());
  const std::size_t pumps = bench.loop.PumpCount() - before;
  ASSERT_GT(pumps, 9U);
  for (std::size_t at = 1; at <= pumps; ++at) {
    V3Bench closed(GetParam().model);
    closed.Read();
    closed.Type(GetParam().item + u"_set", u"8");
    closed.Page().DataChanged = false;
    const std::size_t first = closed.loop.PumpCount();
    closed.loop.OnPump([&] {
      if (closed.loop.PumpCount() == first + at) {
        closed.app.program.PressClose();
      }
    });
    Button& button = GetParam().item == u"03"   ? test::Part<OutputSetting>(closed.Page()).cmdSet
                     : GetParam().item == u"04" ? test::ButtonOf(closed.Page(), "cmdSet2")
                                                : test::ButtonOf(closed.Page(), "cmdSet3");
    closed.Click(button);
    EXPECT_EQ(closed.status, 0) << at;
    EXPECT_EQ(closed.device.Mode(), '0') << at;
    EXPECT_EQ(closed.device.Value("01", ToUtf8(GetParam().item)), "8") << at;
  }
}

TEST(V3CountsTest, ANegativeCountIsRefusedOnQCB2AndTakenOnQEY3) {
  V3Bench up(u"QCB2");
  up.Read();
  up.Type(u"06_set", u"-1");
  up.Click(test::ButtonOf(up.Page(), "cmdSet3"));
  EXPECT_EQ(up.TakeBoxes(), Texts{"設定値ﾁｪｯｸ: ｶｳﾝﾄ設定は、0 から 99999999 の範囲です。"});
  V3Bench both(u"QEY3");
  both.Read();
  both.Type(u"06_set", u"-99999999");
  both.Click(test::ButtonOf(both.Page(), "cmdSet3"));
  EXPECT_EQ(both.device.Value("01", "06"), "-99999999");
}

TEST(V3CountsTest, AShownCountNeverStandsInABoxToBeSet) {
  V3Bench bench(u"QCB2");
  bench.Read();
  bench.Type(u"06_set", u"77");
  bench.Click(test::ButtonOf(bench.Page(), "cmdSet3"));
  bench.Type(u"04_set", u"78");
  bench.Click(test::ButtonOf(bench.Page(), "cmdSet2"));
  bench.loop.After(3s, [&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Click(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON);
  EXPECT_NE(bench.Field(u"06").Text(), u"");
  bench.Save(u"/korva/data/counts.cfg");
  bench.Open(u"/korva/data/counts.cfg");
  EXPECT_EQ(bench.Field(u"06_set").Text(), u"");
  EXPECT_EQ(bench.Field(u"04_set").Text(), u"");
}

// Commands.

TEST(V3CommandTest, ResetsItsCounterAndShowsTheAnswerInWindowColours) {
  struct Case {
    String model;
    String item;
    std::string counter;
  };
  for (const Case& one :
       {Case{u"QEC2", u"12", "03"}, Case{u"QEC2", u"13", "04"}, Case{u"QEY3", u"12", "03"}}) {
    V3Bench bench(one.model);
    bench.Read();
    bench.Page().DataChanged = false;
    ASSERT_TRUE(bench.device.Set("01", one.counter, "500"));
    const bool first = one.item == u"12";
    Button& button =
        first ? test::ButtonOf(bench.Page(), "Command_I12") : test::ButtonOf(bench.Page(), "Command_I13");
    const Timer& timer = TimerNamed(bench.Page(), first ? "Item12_Timer" : "Item13_Timer");
    const Timer& other = TimerNamed(bench.Page(), first ? "Item13_Timer" : "Item12_Timer");
    bool looked = false;
    bench.loop.After(100ms, [&] {
      looked = true;
      EXPECT_TRUE(timer.Running());
      EXPECT_FALSE(other.Running());
      EXPECT_FALSE(test::ButtonOf(bench.Page(), "Command_I12").Enabled());
      EXPECT_FALSE(test::ButtonOf(bench.Page(), "Command_I13").Enabled());
      EXPECT_EQ(bench.LookOf(one.item), Look::Highlight);
    });
    EXPECT_EQ(bench.CommandsOf(button), "G01 I01 D1 G01 I" + ToUtf8(one.item) + " D G01 I01 D0");
    EXPECT_TRUE(looked);
    EXPECT_EQ(bench.device.Value("01", one.counter), "0");
    EXPECT_EQ(bench.Field(one.item).Text(), u"0");
    EXPECT_EQ(bench.LookOf(one.item), Look::Normal);
    EXPECT_FALSE(timer.Running());
    EXPECT_TRUE(test::ButtonOf(bench.Page(), "Command_I12").Enabled() &&
                test::ButtonOf(bench.Page(), "Command_I13").Enabled());
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_FALSE(bench.Page().DataChanged) << "an answer is no edit";
  }
}

// Live values.

struct Monitored {
  String model;
  std::string cycle;  ///< the commands of one cycle, units included
};

TEST(V3MonitorTest, ReadsTheLiveValuesOfEachModelAndNoParameter) {
  for (const Monitored& one :
       {Monitored{u"QCE2", "G01 I11 G01 I03 G01 I05 G01 I06"},
        Monitored{u"QICE2", "G01 I11 G01 I03 G01 I05 G01 I06"},
        Monitored{u"QHC2", "G01 I11 G01 I03 G01 I05 G01 I06"}, Monitored{u"QNA2", "G01 I03 G01 I05 G01 I06"},
        Monitored{u"QEB2", "G01 I03 G01 I05 G01 I06"}, Monitored{u"QEC2", "G01 I03 G01 I04 G01 I05"},
        Monitored{u"QEY3", "G01 I03 G01 I05 G01 I06"},
        Monitored{u"QCB2", "G01 I03 G01 I04 G01 I05 G01 I06"}}) {
    V3Bench bench(one.model);
    bench.Read();
    bench.loop.After(1s, [&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
    EXPECT_EQ(bench.CommandsOf(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON),
              "G01 I01 D0 " + one.cycle)
        << ToUtf8(one.model);
  }
}

TEST(V3MonitorTest, LeavesTheAlarmValuesOfACounterAlone) {
  V3Bench bench(u"QEC2", {{"06", "2000"}});
  bench.Read();
  bench.loop.After(1s, [&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Click(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON);
  EXPECT_EQ(bench.Field(u"06").Text(), u"2000");
  EXPECT_EQ(bench.Page().Item(6), u"2000");
  EXPECT_EQ(bench.UnitOf(u"06"), u"Hz");
  EXPECT_EQ(bench.LookOf(u"06"), Look::Normal);
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"1");
  EXPECT_EQ(bench.Field(u"04_mon").Text(), u"1");
}

TEST(V3MonitorTest, BringsTheUnitOfTheFrequencyRangeFromTheDevice) {
  struct Case {
    String model;
    std::string code;
    String unit;
    int label;
  };
  for (const Case& one :
       {Case{u"QICE2", "4", u"kHz", 14}, Case{u"QIEU2", "0", u"Hz", 14}, Case{u"QCE2", "0", u"mHz", 7},
        Case{u"QEI2", "6", u"kHz", 7}, Case{u"QHC2", "6", u"rpm", 7}}) {
    V3Bench bench(one.model, {{"11", one.code}});
    bench.loop.After(1s, [&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
    bench.Click(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON);
    EXPECT_EQ(bench.Page().lbl_unit[one.label].Caption(), one.unit) << ToUtf8(one.model);
  }
  V3Bench percent(u"QNA2");
  percent.loop.After(1s, [&] { test::Part<StatusMonitor>(percent.Page()).cmdMonitorOFF.Click(); });
  percent.Click(test::Part<StatusMonitor>(percent.Page()).cmdMonitorON);
  EXPECT_EQ(percent.Page().lbl_unit[7].Caption(), u"%");
}

}  // namespace
}  // namespace korva
