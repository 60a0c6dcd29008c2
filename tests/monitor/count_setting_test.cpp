#include "monitor/count_setting.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/text_utilities.h"
#include "monitor_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kMonitorFailure;
using test::kProgrammingFailure;
using test::MonitorBench;
using test::Spoilt;
using Texts = std::vector<std::string>;

struct CountCase {
  const CountItem* count;
  std::string def_file;
  std::string set_key;
  std::string monitor_key;
  std::string item;
  std::string low;
  std::string high;
  String below;
  String above;
};

const std::vector<CountCase> kCounts = {
    {&kCount03, "QEC2.def", "03_set", "03_mon", "03", "0", "4294967295", u"-1", u"4294967296"},
    {&kCount03, "QEY3.def", "03_set", "03_mon", "03", "0", "4294967295", u"-1", u"4294967296"},
    {&kCount04, "QEC2.def", "04_set", "04_mon", "04", "0", "4294967295", u"-1", u"4294967296"},
    {&kCount04, "QCB2.def", "04_set", "04_mon", "04", "0", "4294967295", u"-1", u"4294967296"},
    {&kCount06, "QCB2.def", "06_set", "06", "06", "0", "99999999", u"-1", u"100000000"},
    {&kCount06, "QEY3.def", "06_set", "06", "06", "-99999999", "99999999", u"-100000000", u"100000000"},
};

/// A device that reports the count behind its name.
struct CountBench : MonitorBench {
  explicit CountBench(const CountCase& one = kCounts[0])
      : MonitorBench(u"Third", one.def_file,
                     test::RowsOf({{.item = one.set_key, .index = 1},
                                   {.item = one.monitor_key, .index = 2},
                                   {.item = "05", .index = 3}})),
        set_box(Box(FromUtf8(one.set_key))),
        mon_box(Box(FromUtf8(one.monitor_key))),
        setting(*page, *one.count, page->monitor, page->output) {}

  void Press() {
    Do([this] { setting.Set(); });
  }
  void Set(const String& text) {
    Do([&] { set_box.UserTypes(text); });
    Press();
  }

  TextField& set_box;
  TextField& mon_box;
  CountSetting setting;
};

struct EveryCountTest : testing::TestWithParam<CountCase> {};
INSTANTIATE_TEST_SUITE_P(Count, EveryCountTest, testing::ValuesIn(kCounts), [](const auto& one) {
  return one.param.def_file.substr(0, 4) + "Item" + one.param.item;
});

TEST_P(EveryCountTest, AGoodCountIsWrittenInProgrammingModeAndThePageIsFreeAgainWithAnEmptySetBox) {
  const std::string& item = GetParam().item;
  CountBench bench(GetParam());
  bench.line.echo = "COUNTA     123";
  int focus = 0;
  bench.set_box.ObserveFocus([&] { ++focus; });
  bench.Set(u" 123 ");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D1 G01 I" + item + " D123 G01 I01 D0");
  EXPECT_EQ(bench.mon_box.Text(), u"123");
  EXPECT_EQ(bench.mon_box.ShownLook(), Look::Grey);
  EXPECT_EQ(bench.set_box.Text(), u"");
  EXPECT_TRUE(bench.set_box.Enabled());
  EXPECT_EQ(focus, 1);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_EQ(bench.Boxes(), Texts{});
}

TEST_P(EveryCountTest, BothEndsAreAcceptedAndWhatLiesBeyondIsRefusedWithTheMessageOfItsLimits) {
  const CountCase& one = GetParam();
  for (const std::string& end : {one.low, one.high}) {
    CountBench bench(one);
    bench.Set(FromUtf8(end));
    EXPECT_EQ(bench.line.writes, (Texts{"01=1", one.item + "=" + end, "01=0"}));
  }
  for (const String& beyond : {one.below, one.above}) {
    CountBench bench(one);
    bench.Set(beyond);
    EXPECT_EQ(bench.line.Sent(), "");
    EXPECT_EQ(bench.Boxes(),
              Texts{"設定値ﾁｪｯｸ: ｶｳﾝﾄ設定は、" + one.low + " から " + one.high + " の範囲です。"});
    EXPECT_EQ(bench.host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
    EXPECT_EQ(bench.set_box.Text(), beyond) << "to be corrected";
    EXPECT_TRUE(bench.set_box.Enabled());
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST_P(EveryCountTest, ADeviceThatDoesNotTakeProgrammingModeInTwoTriesLeavesTheTypedCountInItsBox) {
  CountBench bench(GetParam());
  bench.line.refused.insert("01");
  bench.mon_box.SetText(u"old");
  bench.Set(u"12");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 G01 I01");
  EXPECT_EQ(bench.Boxes(), Texts{kProgrammingFailure});
  EXPECT_EQ(bench.set_box.Text(), u"12");
  EXPECT_TRUE(bench.set_box.Enabled());
  EXPECT_EQ(bench.mon_box.Text(), u"old");
  EXPECT_EQ(bench.mon_box.ShownLook(), Look::Grey);
  EXPECT_TRUE(bench.AtRest());
}

TEST_P(EveryCountTest, AWriteThatTheDeviceRefusesFourTimesShowsAnEmptyBoxAndTheDeviceReturns) {
  const std::string& item = GetParam().item;
  CountBench bench(GetParam());
  bench.line.refused.insert(item);
  bench.mon_box.SetText(u"old");
  bench.Set(u"12");
  std::string tries;
  for (int count = 0; count < 4; ++count) {
    tries += "G01 I" + item + " ";
  }
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D1 " + tries + "G01 I01 D0");
  EXPECT_EQ(bench.mon_box.Text(), u"");
  EXPECT_EQ(bench.Boxes(), Texts{});
  EXPECT_TRUE(bench.AtRest());
}

TEST_P(EveryCountTest, ADeviceThatDoesNotReturnToMonitorModeIsToldAndThePageIsFree) {
  CountBench bench(GetParam());
  bench.line.silent_from = 7;
  bench.Set(u"12");
  EXPECT_EQ(bench.line.Commands().size(), 6U + 2U) << "two tries";
  EXPECT_EQ(bench.Boxes(), Texts{kMonitorFailure});
  EXPECT_EQ(bench.mon_box.Text(), u"12");
  EXPECT_EQ(bench.set_box.Text(), u"");
  EXPECT_TRUE(bench.set_box.Enabled());
  EXPECT_TRUE(bench.AtRest());
}

TEST_P(EveryCountTest, EachReplySilentRefusedGarbledOrLateLeavesThePageFreeAndTheDeviceInMonitorMode) {
  for (const Spoilt spoilt : test::kAllSpoilt) {
    for (std::size_t number = 1; number <= 9; ++number) {
      CountBench bench(GetParam());
      bench.line.spoilt[number] = spoilt;
      bench.Set(u"12");
      const std::string place = std::to_string(number) + " " + std::to_string(static_cast<int>(spoilt));
      EXPECT_TRUE(bench.AtRest()) << place;
      EXPECT_TRUE(bench.set_box.Enabled()) << place;
      EXPECT_EQ(bench.line.writes.back(), "01=0") << place;
      EXPECT_FALSE(bench.ended) << place;
    }
  }
}

/// Sets a count once for each pump of the whole, with the close box pressed there; `check` looks at each
/// outcome.
void CloseAtEachPump(const CountCase& one, std::size_t silent_from,
                     const std::function<void(CountBench&)>& check) {
  CountBench whole(one);
  whole.line.silent_from = silent_from;
  const std::size_t before = whole.host.loop.PumpCount();
  whole.Set(u"12");
  const std::size_t pumps = whole.host.loop.PumpCount() - before;
  ASSERT_GE(pumps, 2U);
  for (std::size_t at = 1; at <= pumps; ++at) {
    SCOPED_TRACE(at);
    CountBench bench(one);
    bench.line.silent_from = silent_from;
    const std::size_t first = bench.host.loop.PumpCount();
    bool told = false;
    bench.host.loop.OnPump([&] {
      if (bench.host.loop.PumpCount() == first + at) {
        bench.program.PressClose();
        told = bench.page->flaMsg_CannotEnd.Visible();
      }
    });
    bench.Set(u"12");
    EXPECT_TRUE(told);
    EXPECT_EQ(bench.line.Sent(), whole.line.Sent());
    EXPECT_TRUE(bench.TimersStopped());
    EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
    check(bench);
  }
}

TEST_P(EveryCountTest, TheCloseBoxAtAnyPumpEndsTheProgramWithTheDeviceBackInMonitorMode) {
  CloseAtEachPump(GetParam(), static_cast<std::size_t>(-1), [](CountBench& bench) {
    EXPECT_TRUE(bench.ended);
    EXPECT_EQ(bench.line.writes.back(), "01=0");
  });
}

TEST_P(EveryCountTest, TheCloseBoxAtAnyPumpLeavesTheWindowWhenTheDeviceIsNotBackInMonitorMode) {
  for (const std::size_t silent_from : {1U, 3U, 7U, 9U}) {
    CloseAtEachPump(GetParam(), silent_from, [](CountBench& bench) {
      EXPECT_FALSE(bench.ended);
      EXPECT_TRUE(bench.AtRest());
      EXPECT_TRUE(bench.set_box.Enabled());
      EXPECT_EQ(bench.Boxes().size(), 1U);
    });
  }
}

TEST(CountSettingTest, ATextThatIsNoWholeNumberIsRefusedAsOutOfRange) {
  for (const char16_t* typed : {u"", u" ", u"abc", u"12abc", u"abc12", u"1x200", u"12.5", u"12.0", u"1E3",
                                u"1,000", u"1 2", u"--5", u"-", u"+", u"０", u"99999999999999999999999"}) {
    CountBench bench;
    bench.Set(typed);
    EXPECT_EQ(bench.line.Sent(), "") << ToUtf8(typed);
    EXPECT_EQ(bench.Boxes(), Texts{"設定値ﾁｪｯｸ: ｶｳﾝﾄ設定は、0 から 4294967295 の範囲です。"})
        << ToUtf8(typed);
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST(CountSettingTest, WhatStandsInTheBoxIsSentAsItStands) {
  for (const char* typed : {"0", "007", "+5", "4294967295"}) {
    CountBench bench;
    bench.Set(FromUtf8(typed));
    EXPECT_EQ(bench.line.writes.at(1), std::string("03=") + typed);
  }
}

TEST(CountSettingTest, TheFrameIsLockedAndTheSetBoxDisabledDuringTheWholeExchange) {
  CountBench bench;
  int looked = 0;
  bench.line.on_command = [&](const std::string&) {
    ++looked;
    const test::MonitorPage& page = *bench.page;
    EXPECT_TRUE(page.Shared().CommBusy);
    EXPECT_TRUE(page.Shared().DownloadBusy);
    EXPECT_FALSE(bench.set_box.Enabled());
    for (const Button* button : std::initializer_list<const Button*>{
             &test::Part<OutputSetting>(page).cmdSet, &test::Part<OutputSetting>(page).cmdStatusMonOFF,
             &test::Part<StatusMonitor>(page).cmdMonitorON, &test::Part<StatusMonitor>(page).cmdMonitorOFF,
             &page.cmdUpload, &page.cmdDownload, &page.cmdOpen, &page.cmdSave, &page.cmdNew, &page.cmdCheck,
             &page.cmdExit}) {
      EXPECT_FALSE(button->Enabled()) << button->FullName();
    }
    EXPECT_FALSE(page.Tabs.TabEnabled(0));
  };
  bench.page->Tabs.SetTabEnabled(1, false);
  bench.Set(u"12");
  EXPECT_EQ(looked, 9);
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(1)) << "as it was";
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(0));
}

TEST(CountSettingTest, TheMonitorBoxBlinksUntilTheCountIsTakenAndIsAtRestDuringTheReturn) {
  CountBench bench;
  bench.line.spoilt[4] = Spoilt::Silent;
  std::vector<std::pair<Clock, Look>> looks;
  bench.mon_box.Observe([&] { looks.emplace_back(bench.host.loop.Now(), bench.mon_box.ShownLook()); });
  bool at_rest = false;
  bench.line.on_command = [&](const std::string& text) {
    at_rest = text == "D0" && bench.TimersStopped() && bench.mon_box.ShownLook() == Look::Grey;
  };
  bench.Set(u"50");
  // At rest with the other monitored boxes at once; then it blinks.
  ASSERT_GT(looks.size(), 12U);
  EXPECT_EQ(looks[0], (std::pair<Clock, Look>{0ms, Look::Highlight}));
  EXPECT_EQ(looks[1], (std::pair<Clock, Look>{0ms, Look::Grey}));
  for (std::size_t at = 2; at < 12; ++at) {
    EXPECT_EQ(looks[at].first, Milliseconds(200 * static_cast<int>(at - 1)));
    EXPECT_EQ(looks[at].second, at % 2 == 0 ? Look::Highlight : Look::Grey);
  }
  EXPECT_TRUE(at_rest);
}

TEST(CountSettingTest, TheMonitoredBoxesAreAtRestWhileACountIsSet) {
  CountBench bench;
  bench.Box(u"05").SetLook(Look::Highlight);
  bench.UnitLabel(u"05").SetLook(Look::Highlight);
  bench.Set(u"50");
  EXPECT_EQ(bench.Box(u"05").ShownLook(), Look::Grey);
  EXPECT_EQ(bench.UnitLabel(u"05").ShownLook(), Look::Normal);
}

TEST(CountSettingTest, WithoutABoxThatShowsItTheCountIsSetAllTheSame) {
  MonitorBench bench(u"Third", "QEC2.def", test::RowsOf({{.item = "04_set", .index = 1}}));
  CountSetting setting(*bench.page, kCount04, bench.page->monitor, bench.page->output);
  bench.Box(u"04_set").SetText(u"5");
  bench.Do([&] { setting.Set(); });
  EXPECT_EQ(bench.line.writes, (Texts{"01=1", "04=5", "01=0"}));
  EXPECT_TRUE(bench.AtRest());
}

TEST(CountSettingTest, Item03IsACountOnTwoModelsOnlyAndTheOthersWhereTheirRowIs) {
  struct Case {
    std::string def_file;
    const CountItem* count;
    std::string row;
    bool serves;
  };
  for (const Case& one : std::vector<Case>{{"QEC2.def", &kCount03, "03_set", true},
                                           {"QEY3.def", &kCount03, "03_set", true},
                                           {"QCB2.def", &kCount03, "03_set", false},
                                           {"QNA2.def", &kCount03, "03_set", false},
                                           {"QEC2.def", &kCount03, "03_mon", false},
                                           {"QCB2.def", &kCount04, "04_set", true},
                                           {"QCB2.def", &kCount04, "04_mon", false},
                                           {"QEY3.def", &kCount06, "06_set", true},
                                           {"QEC2.def", &kCount06, "06", false}}) {
    MonitorBench bench(u"Third", one.def_file, test::RowsOf({{.item = one.row, .index = 1}}));
    CountSetting setting(*bench.page, *one.count, bench.page->monitor, bench.page->output);
    EXPECT_EQ(setting.Serves(), one.serves) << one.def_file << ' ' << one.row;
    bench.Box(FromUtf8(one.row)).SetText(u"5");
    bench.Do([&] { setting.Set(); });
    EXPECT_EQ(bench.line.Commands().empty(), !one.serves) << one.def_file << ' ' << one.row;
    EXPECT_EQ(bench.Boxes(), Texts{});
  }
}

}  // namespace
}  // namespace korva
