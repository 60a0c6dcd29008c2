#include "monitor/output_trim.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "monitor_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kMonitorFailure;
using test::MonitorBench;
using Texts = std::vector<std::string>;

// --- the answer

struct AnswerCase {
  String answer;
  String zero;
  String span;
};
struct TrimAnswerTest : testing::TestWithParam<AnswerCase> {};
INSTANTIATE_TEST_SUITE_P(Text, TrimAnswerTest,
                         testing::Values(AnswerCase{u"0.0100 1.0000", u"0.0100", u"1.0000"},
                                         AnswerCase{u"  -0.0005   0.9900 ", u"-0.0005", u"0.9900"},
                                         AnswerCase{u"0.0100", u"0.0100", u""},
                                         AnswerCase{u" 0.0100 ", u"0.0100", u""}, AnswerCase{u"", u"", u""}));

TEST_P(TrimAnswerTest, TellsTheZeroBeforeTheFirstBlankAndTheSpanBehindIt) {
  EXPECT_EQ(ZeroFromTrimAnswer(GetParam().answer), GetParam().zero);
  EXPECT_EQ(SpanFromTrimAnswer(GetParam().answer), GetParam().span);
}

// --- the loop

constexpr Clock kExchange = 30ms;  ///< three commands of an untimed line
constexpr Clock kTurn = kExchange + 700ms + 200ms;
const std::string kRead = "G01 I28 D";
const std::string kMode = "G01 I22 D0";
const std::string kZeroRefused = "ｾﾞﾛ微調整値ﾁｪｯｸ: ｾﾞﾛ微調整値は、-6% から 6% の範囲です。";
const std::string kSpanRefused = "ｽﾊﾟﾝ微調整値ﾁｪｯｸ: ｽﾊﾟﾝ微調整値は、94% から 106% の範囲です。";

/// A device whose trim follows what it is sent, in units of a thousandth of a percent.
struct TrimBench : MonitorBench {
  explicit TrimBench(int zero_at = 0, int span_at = 100000)
      : MonitorBench(u"LiteSecond", "M.def",
                     test::RowsOf({{.item = "24_set", .index = 1},
                                   {.item = "24_mon", .index = 2},
                                   {.item = "06", .index = 6},
                                   {.item = "28_zero", .index = 13},
                                   {.item = "28_span", .index = 14}})),
        zero_trim(*page, kZeroTrim),
        span_trim(*page, kSpanTrim),
        zero(zero_at),
        span(span_at) {
    line.items["22"] = "0";
    line.items["29"] = "0";
    line.on_command = [this](const std::string& text) { Take(text); };
    Tell();
    Do([this] { page->SetCaptions(Language::Japanese); });
  }

  void Take(const std::string& text) {
    if (text == "DC0") {
      zero = 0;
      span = 100000;
    } else if (text.starts_with("DZ")) {
      zero += static_cast<int>(std::lround(10 * std::stod(text.substr(2))));
    } else if (text.starts_with("DS")) {
      span += static_cast<int>(std::lround(10 * std::stod(text.substr(2))));
    }
    Tell();
  }
  void Tell() {
    const auto fraction = [](int thousandths) {
      return ToUtf8(FormatMask(thousandths / 100000.0, u"0.00000"));
    };
    line.items["28"] = answer.value_or(fraction(zero) + " " + fraction(span));
  }

  /// Presses a button `after` from now, as far as the screen lets it through.
  void PressAt(Clock after, const Button& button) {
    host.loop.After(std::chrono::ceil<Milliseconds>(after), [&button] {
      if (button.Refused() == Refusal::None) {
        button.Click();
      }
    });
  }
  /// Runs a loop with this in its box until STOP is pressed `length` behind START.
  void RunFor(OutputTrim& trim, Clock length, const String& typed = {}) {
    Do([&] { BoxOf(trim).UserTypes(typed); });
    page->DataChanged = false;
    PressAt(length, trim.StartButton);
    Do([&] { trim.StartButton.Click(); });
  }
  [[nodiscard]] TextField& BoxOf(const OutputTrim& trim) const {
    return Box(&trim == &zero_trim ? u"28_zero" : u"28_span");
  }
  [[nodiscard]] Texts Steps() const {
    Texts steps;
    for (const std::string& write : line.writes) {
      if (write.starts_with("29=")) {
        steps.push_back(write.substr(3));
      }
    }
    return steps;
  }
  static std::vector<Button*> StepButtons(OutputTrim& trim) {
    return {&trim.M01Button, &trim.M001Button, &trim.P001Button, &trim.P01Button, &trim.ResetButton};
  }
  void ExpectIdle() {
    EXPECT_TRUE(AtRest());
    for (OutputTrim* trim : {&zero_trim, &span_trim}) {
      EXPECT_EQ(trim->StartButton.Caption(), u"START");
      EXPECT_TRUE(trim->StartButton.Enabled());
      for (const Button* step : StepButtons(*trim)) {
        EXPECT_FALSE(step->Enabled()) << step->Name();
        EXPECT_FALSE(step->Pending()) << step->Name();
      }
    }
  }

  OutputTrim zero_trim;
  OutputTrim span_trim;
  int zero;
  int span;
  std::optional<std::string> answer;  ///< to a read, in place of the trim
};

TEST(OutputTrim, StartTakesMonitorModeAndThenReadsTurnForTurnToTheMillisecond) {
  TrimBench bench(1500);
  std::vector<std::pair<Clock, Look>> looks;
  TextField& box = bench.BoxOf(bench.zero_trim);
  box.Observe([&] {
    if (looks.empty() || looks.back().second != box.ShownLook()) {
      looks.emplace_back(bench.host.loop.Now(), box.ShownLook());
    }
  });
  bench.RunFor(bench.zero_trim, kExchange + kTurn + 1ms);
  EXPECT_EQ(bench.line.Sent(), kMode + " " + kRead + " " + kRead);
  EXPECT_EQ(bench.host.loop.Now(), kExchange + 2 * kTurn);
  EXPECT_EQ(box.Text(), u"1.50");
  const Clock second = kExchange + kTurn;
  EXPECT_EQ(looks, (std::vector<std::pair<Clock, Look>>{{kExchange, Look::Highlight},
                                                        {second - 200ms, Look::Grey},
                                                        {second, Look::Highlight},
                                                        {second + kTurn - 200ms, Look::Grey},
                                                        {second + kTurn, Look::Highlight}}))
      << "it stays highlighted after the loop";
  EXPECT_EQ(bench.Boxes(), Texts{});
  EXPECT_FALSE(bench.page->DataChanged) << "what the device tells is no edit";
  bench.ExpectIdle();
}

TEST(OutputTrim, StartOfTheSpanMakesNoModeChange) {
  TrimBench bench(0, 99250);
  bench.RunFor(bench.span_trim, 1ms);
  EXPECT_EQ(bench.line.Sent(), kRead);
  EXPECT_EQ(bench.host.loop.Now(), kTurn);
  EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"99.25");
  bench.ExpectIdle();
}

TEST(OutputTrim, StartWithATypedValueOf150AndADeviceZeroOf00100SendsDZ50) {
  TrimBench bench(1000);
  bench.RunFor(bench.zero_trim, 200ms, u"1.50");
  EXPECT_EQ(bench.line.Sent(), kMode + " " + kRead + " " + kRead + " G01 I29 DZ50 " + kRead)
      << "carried through a step";
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"1.50");
}

TEST(OutputTrim, AStepPressedWhileTheTypedValueIsCarriedIsDropped) {
  TrimBench bench(1000);
  bench.PressAt(kExchange + 45ms, bench.zero_trim.P01Button);
  bench.RunFor(bench.zero_trim, 2500ms, u"1.50");
  EXPECT_EQ(bench.Steps(), Texts{"Z50"});
  bench.ExpectIdle();
}

struct CarryCase {
  String typed;
  int device;
  Texts sent;
};
struct CarriedTrimTest : testing::TestWithParam<CarryCase> {};
INSTANTIATE_TEST_SUITE_P(Value, CarriedTrimTest,
                         testing::Values(CarryCase{u"1.50", 1500, {}},        //
                                         CarryCase{u"0.3", 100, {"Z20"}},     // 19.999999999999996
                                         CarryCase{u"-0.7", 100, {"Z-80"}},   //
                                         CarryCase{u"0.105", 100, {"Z0.5"}},  //
                                         CarryCase{u"6", 0, {"Z600"}},
                                         CarryCase{u"6", -5970, {"Z1197"}},  // 6.000000000000001
                                         CarryCase{u"", 100, {}}));

TEST_P(CarriedTrimTest, SendsTheDifferenceAsAUserReadsIt) {
  TrimBench bench(GetParam().device);
  bench.RunFor(bench.zero_trim, 300ms, GetParam().typed);
  EXPECT_EQ(bench.Steps(), GetParam().sent);
  EXPECT_EQ(bench.Boxes(), Texts{});
}

TEST(OutputTrim, ATypedValueBeyondTheLimitsOrThatIsNoNumberIsRefusedAndTheLoopRuns) {
  for (const char16_t* typed : {u"6.01", u"-6.01", u"abc", u"1,5", u"1.5%"}) {
    TrimBench bench;
    bench.RunFor(bench.zero_trim, 1s, typed);
    EXPECT_EQ(bench.Steps(), Texts{});
    EXPECT_EQ(bench.Boxes(), Texts{kZeroRefused}) << ToUtf8(typed);
    EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"0.00");
    bench.ExpectIdle();
  }
}

TEST(OutputTrim, EachButtonSendsItsDifferenceAtTheNextTurn) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"M01", "-10"}, {"M001", "-1"}, {"P001", "1"}, {"P01", "10"}};
  for (const auto& [name, step] : cases) {
    for (const bool span : {false, true}) {
      SCOPED_TRACE(name);
      TrimBench bench;
      OutputTrim& trim = span ? bench.span_trim : bench.zero_trim;
      const std::string prefix = span ? "cmdOutSpan" : "cmdOutZero";
      const std::string begin = span ? "" : kMode + " ";
      bench.PressAt(500ms, test::ButtonOf(*bench.page, prefix + name));
      bench.RunFor(trim, 1200ms);
      std::string sent = begin;
      sent.append(kRead).append(" ").append(kRead).append(span ? " G01 I29 DS" : " G01 I29 DZ");
      sent.append(step).append(" ").append(kRead);
      EXPECT_EQ(bench.line.Sent(), sent);
      const Clock begun = span ? 0ms : kExchange;
      EXPECT_EQ(bench.host.loop.Now(), begun + 2 * kTurn + 2 * kExchange);
      EXPECT_EQ(bench.Boxes(), Texts{});
    }
  }
}

TEST(OutputTrim, APressIsPendingFromTheFirstInstantUntilItIsCarriedOut) {
  TrimBench bench;
  std::vector<bool> pending;
  bench.PressAt(500ms, bench.zero_trim.P001Button);
  for (const Clock at : {501ms, 950ms, 1100ms}) {
    bench.host.loop.After(std::chrono::ceil<Milliseconds>(at),
                          [&] { pending.push_back(bench.zero_trim.P001Button.Pending()); });
  }
  bench.RunFor(bench.zero_trim, 1200ms);
  EXPECT_EQ(pending, (std::vector{true, true, false}));
}

TEST(OutputTrim, ASecondPressBeforeTheNextTurnOverwritesTheFirst) {
  TrimBench bench;
  bench.PressAt(500ms, bench.zero_trim.P001Button);
  bench.PressAt(800ms, bench.zero_trim.M01Button);
  bench.RunFor(bench.zero_trim, 2500ms);
  EXPECT_EQ(bench.Steps(), Texts{"Z-10"});
}

TEST(OutputTrim, AStepPressedInTheLastMomentBeforeStopIsDropped) {
  TrimBench bench;
  bench.PressAt(500ms, bench.zero_trim.P001Button);
  bench.RunFor(bench.zero_trim, 600ms);
  EXPECT_EQ(bench.Steps(), Texts{});
  bench.ExpectIdle();
}

struct LimitCase {
  bool span;
  int device;  ///< in thousandths of a percent
  std::string step;
  bool good;
};
struct TrimLimitTest : testing::TestWithParam<LimitCase> {};
INSTANTIATE_TEST_SUITE_P(
    Value, TrimLimitTest,
    testing::Values(LimitCase{false, 5995, "P001", false}, LimitCase{false, 6000, "M01", true},
                    LimitCase{false, 5990, "P001", true}, LimitCase{false, 6000, "P001", false},
                    LimitCase{false, 5900, "P01", true}, LimitCase{false, -5990, "M001", true},
                    LimitCase{false, -6000, "M001", false}, LimitCase{false, -5995, "M001", false},
                    LimitCase{true, 105990, "P001", true}, LimitCase{true, 106000, "P001", false},
                    LimitCase{true, 105900, "P01", true}, LimitCase{true, 94010, "M001", true},
                    LimitCase{true, 94000, "M001", false}, LimitCase{true, 94100, "M01", true}));

TEST_P(TrimLimitTest, RefusesAStepThatWouldLeaveThemAndSendsNothing) {
  const LimitCase& one = GetParam();
  TrimBench bench(one.span ? 0 : one.device, one.span ? one.device : 100000);
  OutputTrim& trim = one.span ? bench.span_trim : bench.zero_trim;
  bench.PressAt(500ms, test::ButtonOf(*bench.page, (one.span ? "cmdOutSpan" : "cmdOutZero") + one.step));
  bench.RunFor(trim, 1200ms);
  EXPECT_EQ(bench.Steps().size(), one.good ? 1U : 0U);
  EXPECT_EQ(bench.Boxes(), one.good ? Texts{} : Texts{one.span ? kSpanRefused : kZeroRefused});
}

TEST(OutputTrim, ResetOnTheSpanSendsDC0AndTheNextReadsShowBothAtTheirResetValues) {
  TrimBench bench(1500, 98000);
  bench.PressAt(500ms, bench.span_trim.ResetButton);
  bench.RunFor(bench.span_trim, 1200ms);
  EXPECT_EQ(bench.line.Sent(), kRead + " G01 I29 DC0 " + kRead);
  EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"100.00");
  bench.RunFor(bench.zero_trim, 100ms);
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"0.00");
}

TEST(OutputTrim, AFailedReadShowsNothingKeepsTheTextAndTheLoopGoesOn) {
  for (const char* answer : {"", "CNG", "ERROR", "0.0150"}) {
    TrimBench bench(0, 98000);
    bench.host.loop.After(500ms, [&] { bench.answer = answer; });
    bench.host.loop.After(15s, [&] { bench.answer.reset(); });
    bench.RunFor(bench.span_trim, 30s);
    EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"98.00");
    EXPECT_EQ(bench.Boxes(), Texts{});
    EXPECT_TRUE(bench.line.Sent().ends_with(kRead));
    bench.ExpectIdle();
  }
}

TEST(OutputTrim, AStepFromATrimThatIsNotToldSendsNothingAndShowsNothing) {
  for (const char* answer : {"", "CNG", "0.0150"}) {
    TrimBench bench;
    bench.host.loop.After(500ms, [&] { bench.answer = answer; });
    bench.PressAt(600ms, bench.span_trim.P001Button);
    bench.RunFor(bench.span_trim, 1200ms);
    EXPECT_EQ(bench.Steps(), Texts{}) << answer;
    EXPECT_EQ(bench.Boxes(), Texts{});
    bench.ExpectIdle();
  }
}

TEST(OutputTrim, ATypedValueIsNotCarriedToADeviceThatTellsNoTrim) {
  TrimBench bench;
  bench.answer = "CNG";
  bench.RunFor(bench.zero_trim, 1s, u"1.50");
  EXPECT_EQ(bench.Steps(), Texts{});
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"1.50");
}

TEST(OutputTrim, ADeviceThatDoesNotTakeMonitorModeLeavesStart) {
  TrimBench bench;
  bench.line.silent_from = 1;
  bench.RunFor(bench.zero_trim, 60s);
  EXPECT_EQ(bench.Boxes(), Texts{kMonitorFailure});
  EXPECT_EQ(bench.line.Sent(), "G01 G01 G01 G01");
  bench.ExpectIdle();
}

TEST(OutputTrim, WhileOneRunsItsButtonsAloneAreInReach) {
  TrimBench bench;
  bench.host.loop.After(500ms, [&] {
    EXPECT_EQ(bench.zero_trim.StartButton.Caption(), u"STOP");
    EXPECT_TRUE(bench.zero_trim.StartButton.Enabled());
    EXPECT_FALSE(bench.span_trim.StartButton.Enabled());
    for (const Button* step : TrimBench::StepButtons(bench.zero_trim)) {
      EXPECT_TRUE(step->Enabled());
    }
    for (const Button* step : TrimBench::StepButtons(bench.span_trim)) {
      EXPECT_FALSE(step->Enabled());
    }
    EXPECT_FALSE(bench.page->cmdUpload.Enabled());
    EXPECT_FALSE(bench.page->output.cmdSet.Enabled());
    EXPECT_FALSE(bench.page->lst_TypeSelect.Enabled());
    EXPECT_FALSE(bench.page->Tabs.TabEnabled(0));
  });
  bench.RunFor(bench.zero_trim, 1s);
  bench.ExpectIdle();
}

TEST(OutputTrim, StopFreesTheFrameAtOnceAndNothingBeginsUntilTheTurnHasEnded) {
  TrimBench bench;
  const std::string all = kMode + " " + kRead;
  bench.host.loop.After(300ms, [&] {
    bench.zero_trim.StartButton.Click();
    EXPECT_EQ(bench.zero_trim.StartButton.Caption(), u"START");
    EXPECT_TRUE(bench.page->cmdUpload.Enabled());
    EXPECT_TRUE(bench.page->Tabs.TabEnabled(0));
    for (const Button* button : {&bench.zero_trim.StartButton, &bench.span_trim.StartButton,
                                 &bench.page->output.cmdSet, &bench.page->monitor.cmdMonitorON}) {
      button->Click();
    }
    EXPECT_EQ(bench.line.Sent(), all) << "an operation still runs";
  });
  bench.Do([&] { bench.zero_trim.StartButton.Click(); });
  EXPECT_EQ(bench.line.Sent(), all);
  bench.ExpectIdle();
}

// --- at every pump

/// The pumps of two turns with a step between them.
std::size_t PumpsOfTwoTurns(bool span) {
  TrimBench bench;
  OutputTrim& trim = span ? bench.span_trim : bench.zero_trim;
  const std::size_t before = bench.host.loop.PumpCount();
  bench.PressAt(500ms, trim.P001Button);
  bench.RunFor(trim, 1200ms);
  return bench.host.loop.PumpCount() - before;
}

/// Does something at a pump of the loop, counted from 0, with STOP inside its second turn.
struct TrimAtPump : TrimBench {
  TrimAtPump(std::size_t at, bool of_span, std::function<void(TrimAtPump&)> action)
      : trim(of_span ? span_trim : zero_trim), second_turn((of_span ? 0ms : kExchange) + kTurn) {
    const std::size_t first = host.loop.PumpCount() + 1;
    host.loop.OnPump([this, first, at, action = std::move(action)] {
      if (host.loop.PumpCount() == first + at) {
        happened = host.loop.Now();
        action(*this);
      }
    });
    PressAt(1850ms, trim.StartButton);
    Do([this] { trim.StartButton.Click(); });
  }
  OutputTrim& trim;
  Clock second_turn;
  std::optional<Clock> happened;
};

TEST(OutputTrim, APressOfEachButtonAtEachPumpIsCarriedOutOnceOrDroppedWithStop) {
  for (const bool span : {false, true}) {
    const std::size_t pumps = PumpsOfTwoTurns(span);
    ASSERT_GT(pumps, 8U);
    for (std::size_t at = 0; at < pumps; ++at) {
      for (std::size_t button = 0; button < 5; ++button) {
        SCOPED_TRACE(std::to_string(at) + " " + std::to_string(button));
        bool pressed = false;
        TrimAtPump bench(at, span, [&](TrimAtPump& running) {
          const Button& step = *TrimBench::StepButtons(running.trim)[button];
          pressed = step.Refused() == Refusal::None;
          if (pressed) {
            step.Click();
            EXPECT_TRUE(step.Pending());
          }
        });
        const bool in_time = pressed && *bench.happened < bench.second_turn;
        if (bench.happened != bench.second_turn) {
          EXPECT_EQ(bench.Steps().size(), in_time ? 1U : 0U);
        }
        EXPECT_EQ(bench.Boxes(), Texts{});
        bench.ExpectIdle();
        ASSERT_FALSE(testing::Test::HasFailure());
      }
    }
  }
}

TEST(OutputTrim, StopAtEachPumpEndsTheLoopWithinItsTurn) {
  const std::size_t pumps = PumpsOfTwoTurns(false);
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    bool stopped = false;
    TrimAtPump bench(at, false, [&](TrimAtPump& running) {
      stopped = running.trim.Running();
      if (stopped) {
        running.trim.StartButton.Click();
        EXPECT_EQ(running.trim.StartButton.Caption(), u"START");
      }
    });
    EXPECT_TRUE(!stopped || bench.host.loop.Now() - *bench.happened <= kTurn);
    if (!stopped && bench.trim.Running()) {
      bench.Do([&] { bench.trim.StartButton.Click(); });
    }
    bench.ExpectIdle();
  }
}

TEST(OutputTrim, TheCloseBoxAtEachPumpEndsTheProgramAtTheNextPause) {
  const std::size_t pumps = PumpsOfTwoTurns(true);
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    const TrimAtPump bench(at, true, [](TrimAtPump& running) { running.program.PressClose(); });
    EXPECT_EQ(bench.ended, bench.happened.has_value());
    EXPECT_LE(bench.host.loop.Now() - bench.happened.value_or(bench.host.loop.Now()), 700ms);
  }
}

// --- the page

TEST(OutputTrim, TheSetKeepsWhatTheDeviceToldAndTheBoxWhatWasTyped) {
  TrimBench bench(1500, 98000);
  bench.RunFor(bench.zero_trim, 100ms);
  EXPECT_EQ(bench.page->Item(28), u"0.01500 0.98000");
  bench.Do([&] { bench.BoxOf(bench.zero_trim).UserTypes(u"2"); });
  EXPECT_EQ(bench.page->Item(28), u"0.01500 0.98000");
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"2");
  bench.Do([&] { bench.page->BuildPage(); });
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"1.50");
  EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"98.00");
}

TEST(OutputTrim, AnUploadThatFindsNoTrimShows0And100AndANewSetNothing) {
  TrimBench bench;
  bench.Do([&] { bench.page->BuildPage(); });
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"");
  EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"");
  bench.page->UploadBusy = true;
  bench.Do([&] { bench.page->BuildPage(); });
  EXPECT_EQ(bench.BoxOf(bench.zero_trim).Text(), u"0");
  EXPECT_EQ(bench.BoxOf(bench.span_trim).Text(), u"100");
}

TEST(OutputTrim, AModelWithoutTheBoxShowsNoneOfItAndStartSendsNothing) {
  MonitorBench bench(u"LiteSecond", "M.def", test::RowsOf({{.item = "06", .index = 6}}));
  OutputTrim trim(*bench.page, kZeroTrim);
  bench.Do([&] { bench.page->BuildPage(); });
  EXPECT_FALSE(trim.StartButton.Visible());
  EXPECT_FALSE(trim.LimitsLabel.Visible());
  bench.Do([&] { trim.StartOrStop(); });
  EXPECT_EQ(bench.line.Sent(), "");
}

TEST(OutputTrim, TellsItsLimitsBesideTheBox) {
  TrimBench bench;
  EXPECT_EQ(bench.zero_trim.LimitsLabel.Caption(), u"-6% <= X <= 6%");
  EXPECT_EQ(bench.span_trim.LimitsLabel.Caption(), u"94% <= X <= 106%");
}

}  // namespace
}  // namespace korva
