// The trims of the two outputs, and the correction of the sensor's circuit, on the page of family Nano.

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "core/text_utilities.h"
#include "z8_kv_config_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

const std::string kZeroOutOfRange = Shown(BoxKey::ZeroTrimOutOfRange, {u"-5", u"5"});
const std::string kSpanOutOfRange = Shown(BoxKey::SpanTrimOutOfRange, {u"95", u"105"});

/// A page whose trims run while the buttons of a plan are pressed.
class Z8TrimBench : public Z8Bench {
 public:
  explicit Z8TrimBench(const String& model = u"Z8WV2") : Z8Bench(model) {}

  /// Runs a trim and presses the buttons at their times; STOP comes last.
  void Run(FineTrim& trim, const std::vector<std::pair<Milliseconds, Button*>>& presses) {
    for (const auto& [at, button] : presses) {
      PressAt(at, *button);
    }
    PressAt(presses.empty() ? 2s : presses.back().first + 2s, trim.StartButton);
    line.accesses.clear();
    Click(trim.StartButton);
  }
  /// Data written to an item.
  [[nodiscard]] Texts Written(const std::string& item) const {
    Texts texts;
    for (const std::string& access : Accesses("01/" + item + " D")) {
      if (const std::string data = access.substr(7); !data.empty()) {
        texts.push_back(data);
      }
    }
    return texts;
  }
  static std::vector<Button*> Steps(FineTrim& trim) {
    return {&trim.P001Button, &trim.P01Button, &trim.M001Button, &trim.M01Button, &trim.ResetButton};
  }
};

struct TrimCase {
  std::string item;
  FineTrim z8KvConfig::*trim;
  std::string name;
  double origin;
};

class Z8TrimTest : public testing::TestWithParam<TrimCase> {
 protected:
  FineTrim& Trim() { return bench.Z8().*GetParam().trim; }
  /// As the box shows it.
  [[nodiscard]] String Box(double percent) const {
    return Ascii(std::to_string(static_cast<int>(GetParam().origin + percent)));
  }
  Z8TrimBench bench;
};
INSTANTIATE_TEST_SUITE_P(End, Z8TrimTest,
                         testing::Values(TrimCase{"19", &z8KvConfig::first_zero, "Out1Zero", 0},
                                         TrimCase{"20", &z8KvConfig::first_span, "Out1Span", 100},
                                         TrimCase{"44", &z8KvConfig::second_zero, "Out2Zero", 0},
                                         TrimCase{"45", &z8KvConfig::second_span, "Out2Span", 100}),
                         [](const auto& parameter) { return parameter.param.name; });

TEST_P(Z8TrimTest, HasItsButtonsItsItemAndItsSteps) {
  FineTrim& trim = Trim();
  EXPECT_EQ(trim.StartButton.FullName(), "cmd" + GetParam().name + "Start");
  EXPECT_EQ(trim.P001Button.FullName(), "cmd" + GetParam().name + "P001");
  EXPECT_EQ(trim.ResetButton.FullName(), "cmd" + GetParam().name + "Reset");
  EXPECT_EQ(trim.Box.FullName(), "txt" + GetParam().name);
  bench.Run(trim,
            {{1s, &trim.P001Button}, {4s, &trim.P01Button}, {7s, &trim.M001Button}, {10s, &trim.M01Button}});
  EXPECT_EQ(bench.Written(GetParam().item), (Texts{"0.01", "0.11", "0.1", "0"}));
  EXPECT_EQ(bench.device.Value("01", GetParam().item), "0.000 %");
  EXPECT_EQ(trim.Box.Text(), Box(0) + u".00");
  bench.ExpectAtRest();
}

TEST_P(Z8TrimTest, ResetWritesZeroWithTwoDecimalsWhicheverEndItIs) {
  EXPECT_TRUE(bench.device.Set("01", GetParam().item, "2.5"));
  String before;
  bench.loop.After(900ms, [&] { before = Trim().Box.Text(); });
  bench.Run(Trim(), {{1s, &Trim().ResetButton}});
  EXPECT_EQ(before, Box(2) + u".50");
  EXPECT_EQ(bench.Written(GetParam().item), Texts{"0.00"});
  EXPECT_EQ(Trim().Box.Text(), Box(0) + u".00");
}

TEST_P(Z8TrimTest, RefusesAStepOutOfItsLimitsAndSendsNothing) {
  EXPECT_TRUE(bench.device.Set("01", GetParam().item, "5"));
  bench.Run(Trim(), {{1s, &Trim().P001Button}});
  EXPECT_EQ(bench.TakeBoxes(), Texts{GetParam().origin == 0 ? kZeroOutOfRange : kSpanOutOfRange});
  EXPECT_TRUE(bench.device.Set("01", GetParam().item, "-5"));
  bench.Run(Trim(), {{1s, &Trim().M001Button}});
  EXPECT_EQ(bench.TakeBoxes().size(), 1U);
  EXPECT_EQ(bench.Written(GetParam().item), Texts());
  bench.Run(Trim(), {{1s, &Trim().P01Button}});
  EXPECT_EQ(bench.Written(GetParam().item), Texts{"-4.9"});
}

TEST_P(Z8TrimTest, KeepsThePageUsableButNothingThatStartsAnotherExchange) {
  FineTrim& trim = Trim();
  EXPECT_EQ(trim.StartButton.Caption(), u"START");
  for (const Button* step : Z8TrimBench::Steps(trim)) {
    EXPECT_FALSE(step->Enabled());
  }
  bool looked = false;
  bench.loop.After(1s, [&] {
    looked = true;
    EXPECT_EQ(trim.StartButton.Caption(), u"STOP");
    EXPECT_TRUE(trim.StartButton.Enabled());
    for (const Button* step : Z8TrimBench::Steps(trim)) {
      EXPECT_TRUE(step->Enabled());
    }
    for (FineTrim z8KvConfig::*other : {&z8KvConfig::first_zero, &z8KvConfig::first_span,
                                        &z8KvConfig::second_zero, &z8KvConfig::second_span}) {
      EXPECT_EQ((bench.Z8().*other).StartButton.Enabled(), other == GetParam().trim);
    }
    z8KvConfig& page = bench.Z8();
    for (const Control* control : std::initializer_list<const Control*>{
             &page.cmdUpload, &page.cmdDownload, &page.cmdOpen, &page.cmdNew, &page.lst_TypeSelect,
             &page.monitor.cmdMonitorON, &page.monitor.cmdMonitorOFF, &page.output.cmdSet,
             &page.output.cmdStatusMonOFF, &page.compensation.cmdReadOutComp,
             &page.cold_junction.cmdChangeCJM, &page.cold_junction.cmdWriteInCJM,
             &page.cold_junction.cmdDefaultCJM, &page.tables.buttons.cmdReadOutTable,
             &page.tables.buttons.cmdWriteInTable}) {
      EXPECT_FALSE(control->Enabled()) << control->FullName();
    }
    EXPECT_TRUE(page.cmdSave.Enabled());
    EXPECT_TRUE(page.Tabs.TabEnabled(1));
    EXPECT_TRUE(page.Shared().CommBusy);
    EXPECT_FALSE(page.Shared().DownloadBusy);
  });
  bench.Run(trim, {});
  EXPECT_TRUE(looked);
  EXPECT_EQ(trim.StartButton.Caption(), u"START");
  bench.ExpectAtRest();
}

TEST_P(Z8TrimTest, ADeviceThatDoesNotTakeMonitorModeReturnsToStart) {
  bench.line.replies["01/01 D0"] = std::nullopt;
  bench.Click(Trim().StartButton);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::NotMonitorMode)});
  EXPECT_EQ(Trim().StartButton.Caption(), u"START");
  EXPECT_EQ(bench.Accesses("01/" + GetParam().item), Texts());
  bench.ExpectAtRest();
}

TEST_P(Z8TrimTest, AFailedReadEmptiesAZeroAndShowsASpanAs100AndNoStepGoesOutFromThere) {
  EXPECT_TRUE(bench.device.Set("01", GetParam().item, "3"));
  bench.line.replies["01/" + GetParam().item + " D"] = "CNG";
  String shown = u"?";
  bench.loop.After(20s, [&] {
    shown = Trim().Box.Text();
    bench.line.replies.clear();
  });
  bench.Run(Trim(), {{19s, &Trim().P01Button}, {30s, &Trim().P01Button}});
  EXPECT_EQ(shown, GetParam().origin == 0 ? u"" : u"100.00");
  EXPECT_EQ(bench.Written(GetParam().item), Texts{"3.1"}) << "the first press did nothing";
  EXPECT_EQ(bench.TakeBoxes(), Texts());
}

TEST_P(Z8TrimTest, TheBoxCanNotBeTypedIntoAndBlinksWhileTheTrimRuns) {
  EXPECT_EQ(bench.Page().WhyRefused(Trim().Box), "locked");
  std::vector<Look> looks;
  Trim().Box.Observe([&] {
    if (looks.empty() || looks.back() != Trim().Box.ShownLook()) {
      looks.push_back(Trim().Box.ShownLook());
    }
  });
  bench.Run(Trim(), {});
  EXPECT_EQ(looks, (std::vector<Look>{Look::Highlight, Look::Grey, Look::Highlight, Look::Grey}));
}

TEST_P(Z8TrimTest, ATurnShowsItsValueFor1000AndRestsFor300Milliseconds) {
  std::vector<std::pair<std::string, Clock>> changes;  // of look and text
  Trim().Box.Observe([&] {
    const std::string seen =
        (Trim().Box.ShownLook() == Look::Highlight ? "lit " : "at rest ") + ToUtf8(Trim().Box.Text());
    if (changes.empty() || changes.back().first != seen) {
      changes.emplace_back(seen, bench.loop.Now());
    }
  });
  bench.Run(Trim(), {});
  const std::string value = ToUtf8(Box(0)) + ".00";
  ASSERT_GE(changes.size(), 4U);
  EXPECT_EQ(changes.at(0).first, "lit ") << "while it is read";
  EXPECT_EQ(changes.at(1).first, "lit " + value);
  EXPECT_EQ(changes.at(2).first, "at rest " + value);
  EXPECT_EQ(changes.at(2).second - changes.at(1).second, 1000ms);
  EXPECT_EQ(changes.at(3).first, "lit " + value) << "the next reading";
  EXPECT_EQ(changes.at(3).second - changes.at(2).second, 300ms);
}

TEST_P(Z8TrimTest, TheCloseBoxEndsTheProgramAtTheNextPause) {
  bench.loop.After(1500ms, [&] { EXPECT_TRUE(bench.Page().OnUnload()); });
  bench.Click(Trim().StartButton);
  EXPECT_EQ(bench.status, 0);
}

// The rules in their words.

TEST(Z8Trim, AZeroTrimAt4Point995AndAP01StepIsRefusedByTheLimit5) {
  Z8TrimBench bench;
  EXPECT_TRUE(bench.device.Set("01", "19", "4.995"));
  bench.Run(bench.Z8().first_zero, {{1s, &bench.Z8().first_zero.P01Button}});
  EXPECT_EQ(bench.TakeBoxes(), Texts{kZeroOutOfRange});
  EXPECT_EQ(bench.Written("19"), Texts());
}

TEST(Z8Trim, ASpanTrimAt105Point00AndM001IsSentAsTheOffset4Point99) {
  Z8TrimBench bench;
  EXPECT_TRUE(bench.device.Set("01", "20", "5"));
  bench.Run(bench.Z8().first_span, {{1s, &bench.Z8().first_span.M001Button}});
  EXPECT_EQ(bench.Written("20"), Texts{"4.99"});
  EXPECT_EQ(bench.Z8().first_span.Box.Text(), u"104.99");
}

TEST(Z8Trim, SpanBox104Point99StepPlus0Point1IsRefusedWithTheMessageOf95And105) {
  Z8TrimBench bench;
  EXPECT_TRUE(bench.device.Set("01", "45", "4.99"));
  bench.Run(bench.Z8().second_span, {{1s, &bench.Z8().second_span.P01Button}});
  EXPECT_EQ(bench.TakeBoxes(), Texts{kSpanOutOfRange});
  EXPECT_EQ(bench.Written("45"), Texts());
}

TEST(Z8Trim, ThreePressesOfCmdOut1ZeroP01From0TheDeviceIsWritten01And02And03AndOneStopEndsAll) {
  for (const Milliseconds pause : {1ms, 400ms, 3000ms}) {
    Z8TrimBench bench;
    FineTrim& trim = bench.Z8().first_zero;
    bench.Run(trim,
              {{1s, &trim.P01Button}, {1s + pause, &trim.P01Button}, {1s + 2 * pause, &trim.P01Button}});
    EXPECT_EQ(bench.Written("19"), (Texts{"0.1", "0.2", "0.3"})) << pause.count();
    EXPECT_FALSE(trim.Running());
    bench.ExpectAtRest();
  }
}

TEST(Z8Trim, ASinglePressIsAWriteThenMonitorModeAnewThenTheReadingsGoOnAndStopSendsNothing) {
  Z8TrimBench bench;
  FineTrim& trim = bench.Z8().first_zero;
  bench.Run(trim, {{500ms, &trim.P01Button}});
  EXPECT_EQ(bench.line.accesses, (Texts{"01/01", "01/01 D0", "01/19", "01/19 D", "01/19", "01/19 D0.1",
                                        "01/01", "01/01 D0", "01/19", "01/19 D"}));
}

TEST(Z8Trim, TheLiveOutputsFollow) {
  Z8TrimBench bench;
  EXPECT_TRUE(bench.device.Set("01", "04", "0"));
  FineTrim& trim = bench.Z8().second_zero;
  bench.Run(trim, {{1s, &trim.P01Button}});
  EXPECT_EQ(bench.device.Value("01", "08"), "50.10");
  EXPECT_EQ(bench.device.Value("01", "05"), "50.00");
}

TEST(Z8Trim, APressShowsThatItWaitsUntilItIsCarriedOut) {
  Z8TrimBench bench;
  FineTrim& trim = bench.Z8().first_zero;
  std::vector<bool> pending;
  trim.P01Button.Observe([&] {
    if (pending.empty() || pending.back() != trim.P01Button.Pending()) {
      pending.push_back(trim.P01Button.Pending());
    }
  });
  bench.Run(trim, {{1s, &trim.P01Button}});
  EXPECT_EQ(pending, (std::vector<bool>{false, true, false}));
}

// The correction of the sensor's circuit.

struct CompensationCase {
  String model;
  Button SensorCompensation::*button;
  std::string key;
};

std::vector<std::string> Visible(Z8Bench& bench) {
  std::vector<std::string> names;
  for (const char* name :
       {"lblCompX", "txtCompX", "lbl_unitX", "lblCompY", "txtCompY", "lbl_unitY", "lblComp", "cmdLineSet",
        "cmdLineReset", "cmd0Per", "cmd100Per", "cmdCalReset", "cmdReadOutComp"}) {
    if (bench.Page().FindControl(name)->Visible()) {
      names.emplace_back(name);
    }
  }
  return names;
}

TEST(Z8Compensation, ShowsWhatEachModelHas) {
  Z8Bench bench(u"Z8WR2");
  SensorCompensation& compensation = bench.Z8().compensation;
  EXPECT_EQ(Visible(bench), (Texts{"lblCompX", "txtCompX", "lbl_unitX", "lblComp", "cmdLineSet",
                                   "cmdLineReset", "cmdReadOutComp"}));
  EXPECT_EQ(compensation.lbl_unitX.Caption(), u"Ohm");
  bench.Choose(u"Z8WM2");
  EXPECT_EQ(Visible(bench), (Texts{"lblCompX", "txtCompX", "lbl_unitX", "lblCompY", "txtCompY", "lbl_unitY",
                                   "cmd0Per", "cmd100Per", "cmdCalReset", "cmdReadOutComp"}));
  EXPECT_EQ(compensation.lbl_unitX.Caption(), u"%");
  EXPECT_EQ(compensation.lbl_unitY.Caption(), u"%");
  for (const char16_t* model : {u"Z8WV2", u"Z8WT2"}) {
    bench.Choose(model);
    EXPECT_EQ(Visible(bench), Texts()) << ToUtf8(model);
  }
}

TEST(Z8Compensation, HasItsCaptions) {
  Z8Bench bench(u"Z8WR2");
  const SensorCompensation& compensation = bench.Z8().compensation;
  EXPECT_EQ(compensation.lblCompX.Caption(), u"ｾﾞﾛ点補正値");
  EXPECT_EQ(compensation.lblCompY.Caption(), u"ｽﾊﾟﾝ点補正値");
  EXPECT_EQ(compensation.lblComp.Caption(), u"線路抵抗補償");
  EXPECT_EQ(compensation.cmdLineSet.Caption(), u"実行");
  EXPECT_EQ(compensation.cmdLineReset.Caption(), u"ﾘｾｯﾄ");
  EXPECT_EQ(compensation.cmd0Per.Caption(), u"0% ﾎﾟｼﾞｼｮﾝ校正");
  EXPECT_EQ(compensation.cmd100Per.Caption(), u"100% ﾎﾟｼﾞｼｮﾝ校正");
  EXPECT_EQ(compensation.cmdCalReset.Caption(), u"校正 ﾘｾｯﾄ");
  EXPECT_EQ(compensation.cmdReadOutComp.Caption(), u"読み出し");
}

class Z8ActionTest : public testing::TestWithParam<CompensationCase> {};
INSTANTIATE_TEST_SUITE_P(Button, Z8ActionTest,
                         testing::Values(CompensationCase{u"Z8WR2", &SensorCompensation::cmdLineSet, "Z"},
                                         CompensationCase{u"Z8WR2", &SensorCompensation::cmdLineReset, "R"},
                                         CompensationCase{u"Z8WM2", &SensorCompensation::cmd0Per, "Z"},
                                         CompensationCase{u"Z8WM2", &SensorCompensation::cmd100Per, "S"},
                                         CompensationCase{u"Z8WM2", &SensorCompensation::cmdCalReset, "R"}),
                         [](const auto& parameter) {
                           return ToUtf8(parameter.param.model) + "_" + std::to_string(parameter.index);
                         });

TEST_P(Z8ActionTest, SendsItsKeyWaitsThreeSecondsAndAsksForTheReport) {
  Z8Bench bench(GetParam().model);
  SensorCompensation& compensation = bench.Z8().compensation;
  bench.line.ForgetCommands();
  bench.Click(compensation.*GetParam().button);
  EXPECT_EQ(bench.line.accesses, (Texts{"01/27", "01/27 D" + GetParam().key, "01/27", "01/27 DD"}));
  const auto& commands = bench.line.Commands();
  EXPECT_GE(commands.at(3).received - commands.at(2).received, 3s);
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  bench.ExpectAtRest();
}

TEST_P(Z8ActionTest, TheButtonsStayDisabledForTheWhole3Seconds) {
  Z8Bench bench(GetParam().model);
  SensorCompensation& compensation = bench.Z8().compensation;
  const std::vector<Button*> buttons = {&compensation.cmdLineSet,  &compensation.cmdLineReset,
                                        &compensation.cmd0Per,     &compensation.cmd100Per,
                                        &compensation.cmdCalReset, &compensation.cmdReadOutComp};
  int looks = 0;
  const std::function<void()> look = [&] {
    for (const Button* button : buttons) {
      EXPECT_FALSE(button->Enabled()) << button->FullName();
    }
    if (++looks < 30) {
      bench.loop.After(100ms, look);
    }
  };
  bench.loop.After(50ms, look);
  bench.Click(compensation.*GetParam().button);
  EXPECT_EQ(looks, 30);
  for (const Button* button : buttons) {
    EXPECT_TRUE(button->Enabled()) << button->FullName();
  }
}

TEST_P(Z8ActionTest, TheButtonsAreDisabledForItsTwoExchangesAndThe3SecondsBetweenAndNoLonger) {
  Z8Bench bench(GetParam().model);
  SensorCompensation& compensation = bench.Z8().compensation;
  Button& watched = compensation.cmdReadOutComp;
  std::vector<Clock> changes;  // disabled, enabled, and so on
  watched.Observe([&] {
    if (watched.Enabled() == (changes.size() % 2 == 1)) {
      changes.push_back(bench.loop.Now());
    }
  });
  bench.Click(compensation.cmdReadOutComp);
  bench.Click(compensation.*GetParam().button);
  ASSERT_EQ(changes.size(), 4U);
  // Both exchanges of an action take as long as the one of the read-out: lines and replies are as long.
  const Clock exchange = changes.at(1) - changes.at(0);
  EXPECT_GT(exchange, 0ms);
  EXPECT_EQ(changes.at(3) - changes.at(2), 2 * exchange + 3000ms);
}

TEST_P(Z8ActionTest, ACloseRequestIsHeldToItsEnd) {
  Z8Bench bench(GetParam().model);
  bench.loop.After(1s, [&] { EXPECT_TRUE(bench.Page().OnUnload()); });
  bench.Click(bench.Z8().compensation.*GetParam().button);
  EXPECT_EQ(bench.status, 0);
  EXPECT_EQ(bench.line.accesses.back(), "01/27 DD") << "the report was still asked for";
}

TEST_P(Z8ActionTest, AFailedExchangeLeavesEmptyFieldsAndNoMessage) {
  for (const std::optional<std::string>& reply :
       {std::optional<std::string>(), std::optional<std::string>("D    invalid data"),
        std::optional<std::string>("CNG")}) {
    Z8Bench bench(GetParam().model);
    SensorCompensation& compensation = bench.Z8().compensation;
    bench.Click(compensation.cmdReadOutComp);
    EXPECT_EQ(compensation.txtCompX.Text(), u"0.000");
    bench.line.replies["01/27 D" + GetParam().key] = reply;
    bench.line.replies["01/27 DD"] = reply;
    bench.Click(compensation.*GetParam().button);
    EXPECT_EQ(compensation.txtCompX.Text(), u"");
    EXPECT_EQ(compensation.txtCompY.Text(), u"");
    EXPECT_EQ(bench.TakeBoxes(), Texts());
    bench.ExpectAtRest();
  }
}

TEST(Z8Compensation, ShowsTheTwoNumbersOfTheDevice) {
  Z8Bench bench(u"Z8WM2");
  EXPECT_TRUE(bench.device.Set("01", "04", "5"));
  SensorCompensation& compensation = bench.Z8().compensation;
  bench.Click(compensation.cmd0Per);
  EXPECT_TRUE(bench.device.Set("01", "04", "85"));
  bench.Click(compensation.cmd100Per);
  EXPECT_EQ(compensation.txtCompX.Text(), u"-5.000");
  EXPECT_EQ(compensation.txtCompY.Text(), u"25.000");
  bench.Click(compensation.cmdCalReset);
  EXPECT_EQ(compensation.txtCompX.Text(), u"0.000");
}

TEST(Z8Compensation, AnAnswerWithoutABlankGivesTheWholeTextToTxtCompXAndNothingToTxtCompY) {
  Z8Bench bench(u"Z8WM2");
  bench.line.replies["01/27 DD"] = "D           1.25";
  bench.Click(bench.Z8().compensation.cmdReadOutComp);
  EXPECT_EQ(bench.Z8().compensation.txtCompX.Text(), u"1.25");
  EXPECT_EQ(bench.Z8().compensation.txtCompY.Text(), u"");
  EXPECT_FALSE(bench.Page().DataChanged);
}

}  // namespace
}  // namespace korva::test
