#include "monitor/output_setting.h"

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

struct OutputCase {
  StringView word;
  std::string def_file;
  std::string low;  ///< as the message writes it
  std::string high;
  String below;  ///< the first values that are refused
  String above;
  std::string typed;
  std::string sent;
  std::string echo;
  std::string shown;
  std::string mode = "01";
  std::string item = "03";
  const char* name = "";
};

const std::vector<OutputCase> kOutputCases = {
    {u"First", "QY.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5", "50.5", "DS: 50.5", "50.5", "01",
     "03", "First"},
    {u"Second", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5 %", "50.5", "50.5 mA", "50.5", "01",
     "03", "Second"},
    {u"Third", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5", "50.5", "DS: 50.5", "50.5", "01",
     "03", "Third"},
    {u"Third", "QICE2.def", "-5", "105", u"-5.01", u"105.01", "50.5", "50.5", "DS: 50.5", "50.5", "01", "03",
     "ThirdQICE2"},
    {u"Third", "QIEU2.def", "-5", "105", u"-5.01", u"105.01", "50.5", "50.5", "DS: 50.5", "50.5", "01", "03",
     "ThirdQIEU2"},
    {u"QXI", "M.def", "-20.00", "120.00", u"-20.01", u"120.01", "50.5", "50.5", "DS: 50.5", "50.5", "01",
     "03", "QXI"},
    {u"Lite", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5 %", "50.5", "50.5 mA", "50.5", "01",
     "03", "Lite"},
    {u"LiteUniv", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5 %", "50.5", "50.5 mA", "50.5",
     "01", "03", "LiteUniv"},
    {u"Nano", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5 %", "50.5", "50.5 mA", "50.5", "01",
     "03", "Nano"},
    {u"LiteSecond", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5", "50.5", "50.5 mA", "50.5",
     "22", "24", "LiteSecond"},
    {u"LiteThird", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", "50.5", "50.5", "50.5 mA", "50.5", "01",
     "03", "LiteThird"},
    {u"LiteForth", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", " 50.5 ", "50.5", "OUT50.5%", "50.5%",
     "01", "03", "LiteForth"},
    {u"LiteFifth", "M.def", "-15.00", "115.00", u"-15.01", u"115.01", " 50.5 ", "50.5", "OUT50.5%", "50.5%",
     "01", "03", "LiteFifth"},
};

struct OutputBench : MonitorBench {
  explicit OutputBench(const OutputCase& one)
      : MonitorBench(one.word, one.def_file,
                     test::RowsOf({{.item = one.item + "_set", .index = 1},
                                   {.item = one.item + "_mon", .index = 2, .prefix = "OUT"},
                                   {.item = "05", .index = 3}})),
        set_box(Box(FromUtf8(one.item + "_set"))),
        mon_box(Box(FromUtf8(one.item + "_mon"))) {
    line.echo = one.echo;
  }
  explicit OutputBench() : OutputBench(kOutputCases[0]) { line.echo.clear(); }
  TextField& set_box;
  TextField& mon_box;

  /// True while the output is held: locked but for the button that ends it.
  [[nodiscard]] bool Forcing() const {
    return page->Shared().CommBusy && test::Part<OutputSetting>(*page).cmdStatusMonOFF.Enabled() &&
           !test::Part<OutputSetting>(*page).cmdSet.Enabled() && !page->cmdUpload.Enabled() &&
           !test::Part<StatusMonitor>(*page).cmdMonitorON.Enabled() &&
           !test::Part<StatusMonitor>(*page).cmdMonitorOFF.Enabled() && !page->cmdExit.Enabled() &&
           !page->Tabs.TabEnabled(0) && !set_box.Enabled() && TimersStopped();
  }
};

struct EveryOutputTest : testing::TestWithParam<OutputCase> {};
INSTANTIATE_TEST_SUITE_P(Family, EveryOutputTest, testing::ValuesIn(kOutputCases),
                         [](const auto& one) { return one.param.name; });

TEST_P(EveryOutputTest, SendsTheCleanedValueInProgrammingModeShowsTheAnswerAndHoldsIt) {
  const OutputCase& one = GetParam();
  OutputBench bench(one);
  bench.Set(FromUtf8(one.typed));
  EXPECT_EQ(bench.line.Sent(), "G01 I" + one.mode + " D1 G01 I" + one.item + " D" + one.sent);
  EXPECT_EQ(ToUtf8(bench.mon_box.Text()), one.shown);
  EXPECT_EQ(bench.mon_box.ShownLook(), Look::Grey);
  EXPECT_TRUE(bench.Forcing());
  EXPECT_TRUE(bench.Boxes().empty());
}

TEST_P(EveryOutputTest, OffReturnsToMonitorModeAndFreesThePage) {
  const OutputCase& one = GetParam();
  OutputBench bench(one);
  bench.Set(FromUtf8(one.typed));
  bench.line.ForgetCommands();
  int focus = 0;
  bench.set_box.ObserveFocus([&] { ++focus; });
  bench.Off();
  EXPECT_EQ(bench.line.Sent(), "G01 I" + one.mode + " D0");
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(bench.set_box.Enabled());
  EXPECT_EQ(focus, 1);
}

TEST_P(EveryOutputTest, OffCanNotBePressedAgainDuringItsExchange) {
  OutputBench bench(GetParam());
  bench.Set(u"50");
  bool looked = false;
  bench.host.loop.After(std::chrono::milliseconds(15), [&] {
    looked = true;
    EXPECT_FALSE(test::Part<OutputSetting>(*bench.page).cmdStatusMonOFF.Enabled());
  });
  bench.Off();
  EXPECT_TRUE(looked);
}

TEST_P(EveryOutputTest, BothEndsOfTheRangeAreTakenAndWhatLiesBeyondIsRefused) {
  const OutputCase& one = GetParam();
  for (const std::string& end : {one.low, one.high}) {
    OutputBench bench(one);
    bench.Set(FromUtf8(end));
    EXPECT_TRUE(bench.line.Sent().ends_with(" D" + end)) << bench.line.Sent();
  }
  for (const String& beyond : {one.below, one.above}) {
    OutputBench bench(one);
    bench.Set(beyond);
    EXPECT_EQ(bench.line.Sent(), "");
    EXPECT_EQ(bench.Boxes(), std::vector<std::string>{"設定値ﾁｪｯｸ: 出力設定値は、" + one.low + "% から " +
                                                      one.high + "% の範囲です。"});
    EXPECT_EQ(bench.host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
    EXPECT_TRUE(bench.AtRest());
    EXPECT_TRUE(bench.set_box.Enabled());
  }
}

TEST_P(EveryOutputTest, ADeviceThatDoesNotTakeProgrammingModeLeavesThePageFree) {
  OutputBench bench(GetParam());
  bench.line.silent_from = 1;
  bench.mon_box.SetText(u"old");
  bench.Set(u"50");
  EXPECT_EQ(bench.Boxes(), std::vector<std::string>{kProgrammingFailure});
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(bench.set_box.Enabled());
  EXPECT_EQ(bench.mon_box.Text(), u"old");
  EXPECT_EQ(bench.mon_box.ShownLook(), Look::Grey);
}

TEST_P(EveryOutputTest, OffWithTheCablePulledShowsTheFailureAndUnlocksAllTheSame) {
  const OutputCase& one = GetParam();
  OutputBench bench(one);
  bench.Set(FromUtf8(one.typed));
  bench.line.silent_from = 1;
  bench.Off();
  EXPECT_EQ(bench.Boxes(), std::vector<std::string>{kMonitorFailure});
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(bench.set_box.Enabled());
}

TEST_P(EveryOutputTest, AWriteWithoutAnAnswerIsTriedFourTimesAndGoesOnAsASuccessWithAnEmptyBox) {
  const OutputCase& one = GetParam();
  OutputBench bench(one);
  bench.mon_box.SetText(u"old");
  bench.line.silent_from = 4;
  bench.Set(u"50");
  EXPECT_EQ(bench.line.Commands().size(), 3U + 4U);
  EXPECT_EQ(bench.mon_box.Text(), u"");
  EXPECT_TRUE(bench.Forcing());
  EXPECT_TRUE(bench.Boxes().empty());
}

TEST_P(EveryOutputTest, EachReplySilentRefusedGarbledOrLateEndsForcingOrFree) {
  for (const Spoilt spoilt : test::kAllSpoilt) {
    for (std::size_t number = 1; number <= 9; ++number) {
      OutputBench bench(GetParam());
      bench.line.spoilt[number] = spoilt;
      bench.Set(u"50");
      const std::string place = std::to_string(number) + " " + std::to_string(static_cast<int>(spoilt));
      EXPECT_TRUE(bench.Forcing()) << place;
      bench.Off();
      EXPECT_TRUE(bench.AtRest()) << place;
      EXPECT_TRUE(bench.set_box.Enabled()) << place;
    }
  }
}

/// Runs `action` once for each of its pumps, with the close box pressed there; `check` looks at each outcome.
void CloseAtEachPump(const OutputCase& one, bool forced, const std::function<void(OutputBench&)>& action,
                     const std::function<void(OutputBench&)>& check) {
  const auto prepare = [&](OutputBench& bench) {
    if (forced) {
      bench.Set(u"50");
      bench.line.ForgetCommands();
    }
    return bench.host.loop.PumpCount();
  };
  OutputBench whole(one);
  const std::size_t before = prepare(whole);
  action(whole);
  const std::size_t pumps = whole.host.loop.PumpCount() - before;
  ASSERT_GE(pumps, 3U);
  for (std::size_t at = 1; at <= pumps; ++at) {
    SCOPED_TRACE(at);
    OutputBench bench(one);
    const std::size_t first = prepare(bench);
    bench.host.loop.OnPump([&] {
      if (bench.host.loop.PumpCount() == first + at) {
        bench.program.PressClose();
      }
    });
    action(bench);
    EXPECT_TRUE(bench.TimersStopped());
    check(bench);
  }
}

TEST_P(EveryOutputTest, TheCloseBoxAtAnyPumpOfSetEndsTheProgramAtTheNextWait) {
  CloseAtEachPump(
      GetParam(), false, [](OutputBench& bench) { bench.Set(u"50"); },
      [](OutputBench& bench) { EXPECT_TRUE(bench.ended); });
}

TEST_P(EveryOutputTest, TheCloseBoxAtAnyPumpOfOffEndsTheProgramInMonitorMode) {
  const std::string& mode = GetParam().mode;
  CloseAtEachPump(
      GetParam(), true, [](OutputBench& bench) { bench.Off(); },
      [&](OutputBench& bench) {
        EXPECT_EQ(bench.line.Sent(), "G01 I" + mode + " D0");
        EXPECT_EQ(bench.line.writes.back(), mode + "=0");
        EXPECT_TRUE(bench.ended);
      });
}

TEST_P(EveryOutputTest, AClosePressedWhileTheOutputIsHeldEndsTheProgramInMonitorModeAfterOff) {
  OutputBench bench(GetParam());
  bench.Set(u"50");
  bench.program.PressClose();
  EXPECT_FALSE(bench.ended);
  EXPECT_TRUE(bench.Forcing());
  bench.Off();
  EXPECT_EQ(bench.line.writes.back(), GetParam().mode + "=0");
  EXPECT_TRUE(bench.ended);
}

TEST_P(EveryOutputTest, AClosePressedWhileTheOutputIsHeldLeavesTheWindowWhenOffFails) {
  OutputBench bench(GetParam());
  bench.Set(u"50");
  bench.program.PressClose();
  bench.line.silent_from = 1;
  bench.Off();
  EXPECT_EQ(bench.Boxes(), std::vector<std::string>{kMonitorFailure});
  EXPECT_FALSE(bench.ended);
  EXPECT_TRUE(bench.AtRest());
}

TEST(OutputSettingTest, OnlySecondAndQXIWaitHalfASecondBeforeTheModeIsJudged) {
  for (const OutputCase& one : kOutputCases) {
    OutputBench bench(one);
    bench.Set(u"50");
    const auto& commands = bench.line.Commands();
    ASSERT_EQ(commands.size(), 6U);
    const bool waits = one.word == u"Second" || one.word == u"QXI";
    EXPECT_EQ(commands[3].received - commands[2].received, waits ? 510ms : 10ms) << one.name;
  }
}

TEST(OutputSettingTest, TheFailureBoxComesAfterThatHalfSecond) {
  OutputBench bench(kOutputCases[1]);
  bench.line.silent_from = 1;
  Clock shown{0};
  bench.host.dialogs.OnBox([&](const Box&) { shown = bench.host.loop.Now(); });
  bench.Set(u"50");
  EXPECT_EQ(shown, Clock(4 * 3000ms + 500ms));
}

TEST(OutputSettingTest, TheMonitorBoxBlinksWhileTheExchangeRuns) {
  OutputBench bench;
  bench.line.spoilt[4] = Spoilt::Silent;
  std::vector<std::pair<Clock, Look>> looks;
  bench.mon_box.Observe([&] { looks.emplace_back(bench.host.loop.Now(), bench.mon_box.ShownLook()); });
  bench.Set(u"50");
  ASSERT_GT(looks.size(), 10U);
  for (std::size_t at = 0; at < 10; ++at) {
    EXPECT_EQ(looks[at].first, Milliseconds(200 * static_cast<int>(at)));
    EXPECT_EQ(looks[at].second, at % 2 == 0 ? Look::Highlight : Look::Grey);
  }
  EXPECT_EQ(bench.mon_box.ShownLook(), Look::Grey);
}

TEST(OutputSettingTest, TheMonitoredBoxesAndTheirUnitsAreAtRestWhileTheOutputIsForcedButForLiteSecond) {
  for (const OutputCase& one : {kOutputCases[0], kOutputCases[9], kOutputCases[11]}) {
    OutputBench bench(one);
    const bool second = one.item == "24";
    MonitorBench& base = bench;
    TextField& box = base.Box(u"05");
    Label& unit = bench.UnitLabel(u"05");
    box.SetLook(Look::Highlight);
    unit.SetLook(Look::Highlight);
    bench.Set(u"50");
    EXPECT_EQ(box.ShownLook(), second ? Look::Highlight : Look::Grey) << one.name;
    EXPECT_EQ(unit.ShownLook(), second ? Look::Highlight : Look::Normal) << one.name;
  }
}

TEST(OutputSettingTest, NanoShowsTheAnswerInASecondBoxToo) {
  OutputBench bench(kOutputCases[8]);
  TextField& further = bench.page->Text[22];
  std::vector<Look> looks;
  further.Observe([&] { looks.push_back(further.ShownLook()); });
  bench.Set(u"50.5");
  EXPECT_EQ(further.Text(), u"50.5");
  EXPECT_EQ(looks, (std::vector<Look>{Look::Highlight, Look::Highlight, Look::Grey}));
}

TEST(OutputSettingTest, TheButtonThatEndsItGetsTheFocus) {
  OutputBench bench;
  int focus = 0;
  test::Part<OutputSetting>(*bench.page).cmdStatusMonOFF.ObserveFocus([&] { ++focus; });
  bench.Set(u"50");
  EXPECT_EQ(focus, 1);
}

TEST(OutputSettingTest, AValueThatIsNoNumberIsRefusedAsOutOfRange) {
  for (const char16_t* typed : {u"", u"abc", u"x", u"1x200", u"200x1"}) {
    OutputBench bench;
    bench.Set(typed);
    EXPECT_EQ(bench.line.Sent(), "") << ToUtf8(typed);
    EXPECT_EQ(bench.Boxes().size(), 1U);
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST(OutputSettingTest, WithoutABoxForTheValueSetDoesNothing) {
  MonitorBench bench(u"First", "QD.def", test::RowsOf({{.item = "03_mon", .index = 2}}));
  bench.Do([&] { bench.page->output.Set(); });
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.AtRest());
}

TEST(OutputSettingTest, ModelsWithoutABoxForTheValueGetNoFocusAtTheEnd) {
  struct Case {
    StringView word;
    std::string def_file;
    int focus;
  };
  const std::vector<Case> cases = {{u"First", "QD.def", 0},      {u"First", "QD2.def", 0},
                                   {u"First", "QD2I.def", 0},    {u"First", "QZ.def", 1},
                                   {u"LiteThird", "QD.def", 0},  {u"LiteThird", "QD2.def", 0},
                                   {u"LiteSecond", "QD.def", 0}, {u"LiteSecond", "QD2.def", 0}};
  for (const Case& one : cases) {
    MonitorBench bench(one.word, one.def_file, test::AllRows());
    int focus = 0;
    bench.Box(bench.record.output.set_key.data()).ObserveFocus([&] { ++focus; });
    bench.Off();
    EXPECT_EQ(focus, one.focus) << one.def_file;
  }
}

TEST(OutputSettingTest, OffWithoutAForcedOutputSendsMonitorModeAndKeepsTheTabsAsTheyWere) {
  OutputBench bench;
  bench.page->Tabs.SetTabEnabled(1, false);
  bench.Off();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0");
  EXPECT_TRUE(bench.AtRest());
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(1));
}

// What the user sees of it.

String Banner(const Page& page) { return page.lblForced.Visible() ? page.lblForced.Caption() : String(); }
String Held(const Page& page) { return page.lblHeldClose.Visible() ? page.lblHeldClose.Caption() : String(); }

TEST_P(EveryOutputTest, ABannerTellsTheValueAsLongAsTheOutputIsForced) {
  OutputBench bench(GetParam());
  EXPECT_EQ(Banner(*bench.page), u"");
  bench.Set(FromUtf8(GetParam().typed));
  const std::string unit = bench.Unit(FromUtf8(GetParam().item + "_mon"));
  EXPECT_EQ(ToUtf8(Banner(*bench.page)),
            "出力を強制中  " + GetParam().shown + (GetParam().shown.ends_with(unit) ? "" : " " + unit));
  bench.Off();
  EXPECT_EQ(Banner(*bench.page), u"");
}

TEST(OutputBanner, TellsTheSentValueOfADeviceThatEchoesNothing) {
  OutputBench bench;
  bench.line.silent_from = 4;
  bench.Set(u"50.5");
  EXPECT_EQ(Banner(*bench.page), u"出力を強制中  50.5 %");
}

TEST(OutputBanner, DoesNotComeWhenTheDeviceTakesNoProgrammingMode) {
  OutputBench bench;
  bench.line.silent_from = 1;
  bench.Set(u"50.5");
  EXPECT_EQ(bench.Boxes(), std::vector{kProgrammingFailure});
  EXPECT_EQ(Banner(*bench.page), u"");
}

TEST(OutputBanner, StaysWhileTheDeviceTakesNoMonitorModeSinceItsOutputMayStillBeForced) {
  OutputBench bench;
  bench.Set(u"50.5");
  bench.line.silent_from = bench.line.Commands().size() + 1;
  bench.Off();
  EXPECT_EQ(bench.Boxes(), std::vector{kMonitorFailure});
  EXPECT_EQ(Banner(*bench.page), u"出力を強制中  50.5 %");
  bench.line.silent_from = static_cast<std::size_t>(-1);
  bench.Off();
  EXPECT_EQ(Banner(*bench.page), u"");
}

TEST(OutputBanner, TheLiveValuesThatAreNotReadMeanwhileAreDimmed) {
  OutputBench bench;
  bench.Set(u"50.5");
  EXPECT_TRUE(bench.Box(u"05").Dimmed());
  EXPECT_FALSE(bench.set_box.Dimmed());
  EXPECT_FALSE(bench.mon_box.Dimmed());
  bench.Off();
  EXPECT_FALSE(bench.Box(u"05").Dimmed());
}

TEST(HeldClose, IsToldWhileTheOutputIsForcedWithWhatWillHappen) {
  OutputBench bench;
  bench.Set(u"50.5");
  bench.program.PressClose();
  EXPECT_FALSE(bench.ended);
  EXPECT_EQ(Held(*bench.page), u"終了は保留中です。OFFで出力の強制を終えるとﾌﾟﾛｸﾞﾗﾑを終了します。");
  bench.Off();
  EXPECT_TRUE(bench.ended);
}

TEST(HeldClose, IsNotToldAnyMoreWhenTheWindowStays) {
  OutputBench bench;
  bench.Set(u"50.5");
  bench.program.PressClose();
  bench.line.silent_from = bench.line.Commands().size() + 1;
  bench.Off();
  EXPECT_FALSE(bench.ended);
  EXPECT_EQ(Held(*bench.page), u"");
}

TEST(HeldClose, IsToldInTheMonitorToo) {
  OutputBench bench;
  String told;
  bench.host.loop.After(200ms, [&] {
    bench.program.PressClose();
    told = Held(*bench.page);
  });
  bench.Start();
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(told, u"終了は保留中です。通信の次の区切りでﾌﾟﾛｸﾞﾗﾑを終了します。");
}

TEST(HeldClose, OfAnExchangeTellsThatItEndsWithIt) {
  OutputBench bench;
  String told;
  bench.host.loop.After(5ms, [&] {
    bench.program.PressClose();
    told = Held(*bench.page);
  });
  bench.Off();
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(told, u"終了は保留中です。この処理が正常に終わるとﾌﾟﾛｸﾞﾗﾑを終了します。");
}

}  // namespace
}  // namespace korva
