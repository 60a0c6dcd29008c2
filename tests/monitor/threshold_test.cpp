#include "monitor/threshold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>

#include "core/text_utilities.h"
#include "monitor_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kMonitorFailure;
using test::MonitorBench;
using Texts = std::vector<std::string>;

// --- the value check

struct RangeCase {
  String text;
  bool good;
};
struct ValueInRangeTest : testing::TestWithParam<RangeCase> {};
INSTANTIATE_TEST_SUITE_P(
    Text, ValueInRangeTest,
    testing::Values(RangeCase{u"", true}, RangeCase{u"0.5", true}, RangeCase{u"0.49", false},
                    RangeCase{u"3000", true}, RangeCase{u"3000.01", false}, RangeCase{u" 12 ", true},
                    RangeCase{u"12%", true}, RangeCase{u"0.4%", false}, RangeCase{u"12 Hz", true},
                    RangeCase{u"3001Hz", false}, RangeCase{u"3kHz", true}, RangeCase{u"3.001 kHz", false},
                    RangeCase{u"500mHz", true}, RangeCase{u"499mHz", false}, RangeCase{u"abc", false},
                    RangeCase{u"12abc", false}, RangeCase{u"-1", false}));

TEST_P(ValueInRangeTest, ReadsANumberWithItsUnit) {
  EXPECT_EQ(ValueInRange(GetParam().text, {.low = u"0.5", .high = u"3000"}), GetParam().good);
}

TEST(ValueInRange, ReadsATextOf25WithTheSuffixKHzAs2500) {
  EXPECT_TRUE(ValueInRange(u"2.5kHz", {.low = u"2500", .high = u"2500"}));
  EXPECT_FALSE(ValueInRange(u"2.5kHz", {.low = u"2500.01", .high = u"9999"}));
}

// --- the loop

constexpr ThresholdFamily kByRange = {.item = u"30", .range_item = u"33", .ranges = u"$I33"};
constexpr ThresholdFamily kByRow = {.item = u"09", .repeats = 1};

/// A family, what its device is asked about the limits, and how.
struct ThresholdCase {
  StringView word;
  const ThresholdFamily& family;
  std::string item;
  std::string mode;    ///< the mode change
  std::string units;   ///< reading the units
  std::string limits;  ///< reading the limits
  std::string read;    ///< behind the selection of an item
  Clock exchange;      ///< of reading an item, 10 ms for each reply
  std::string head;    ///< before the threshold in a reply
};
const std::vector<ThresholdCase> kThresholdCases = {
    {u"LiteSecond", kByRange, "30", "G01 I22 D0", " G01 I03 D", " G01 I33 D", " D", 30ms, ""},
    {u"LiteForth", kByRow, "09", "G01 I01 D0", " G01 I21 G01 I11", "", "", 20ms, "TH:"},
    {u"LiteFifth", kByRow, "09", "G01 I01 D0", " G01 I21 G01 I11", "", "", 20ms, "TH:"},
};

std::string DefinitionOf(const ThresholdCase& one) {
  const std::string output = one.item == "30" ? "24" : "03";
  return test::RowsOf({{.item = output + "_set", .index = 1},
                       {.item = output + "_mon", .index = 2},
                       {.item = "04", .index = 4},
                       {.item = "06", .index = 6, .prefix = "F:"},
                       {.item = one.item,
                        .index = 10,
                        .unit = "V",
                        .condition = "Y",
                        .prefix = one.head,
                        .position = "3",
                        .low = one.head.empty() ? "" : "0.5",
                        .high = one.head.empty() ? "" : "3.5"}}) +
         (one.head.empty() ? "$I33\r\n0,0 - 1 V,0,1\r\n1,0.5 - 3.5 V,0.5,3.5\r\n"
                           : "$I21\r\n0,Pulses,,,,,p\r\n$I11\r\n0,1 kHz,,,,1,Hz\r\n1,10 kHz,,,,1,kHz\r\n");
}

struct ThresholdBench : MonitorBench {
  explicit ThresholdBench(const ThresholdCase& one = kThresholdCases[0], const std::string& device = "2.5")
      : MonitorBench(one.word, "M.def", DefinitionOf(one)),
        threshold(*page, one.family, page->monitor),
        box(Box(FromUtf8(one.item))),
        item(one.item) {
    const bool cok = record.family.dialect == Dialect::Cok;
    line.items["33"] = "1";
    line.items["03"] = "2";
    line.items["21"] = "Pulses";
    line.items["11"] = "10 kHz";
    line.items["06"] = cok ? "F:123.456" : "123.456 kHz";
    line.kept[item] = one.head;
    line.items[item] = one.head + device;
    line.items["22"] = "0";
  }

  /// Runs the loop with this in the box until STOP is pressed `length` behind START.
  void RunFor(Clock length, const String& typed = {}) {
    Do([&] { box.UserTypes(typed); });
    PressAt(length, threshold.cmdThresholdStart);
    PressStart();
  }
  void PressStart() {
    Do([this] { threshold.cmdThresholdStart.Click(); });
  }
  /// Presses a button `after` from now, as far as the screen lets it through.
  void PressAt(Clock after, const Button& button) {
    host.loop.After(std::chrono::ceil<Milliseconds>(after), [&button] {
      if (button.Refused() == Refusal::None) {
        button.Click();
      }
    });
  }
  [[nodiscard]] Texts Steps() const {
    Texts steps;
    for (const std::string& write : line.writes) {
      if (write.starts_with(item)) {
        steps.push_back(write.substr(item.size() + 1));
      }
    }
    return steps;
  }
  void ExpectIdle() {
    EXPECT_TRUE(AtRest());
    EXPECT_EQ(threshold.cmdThresholdStart.Caption(), u"START");
    EXPECT_TRUE(threshold.cmdThresholdStart.Enabled());
    for (const Button* step : StepButtons()) {
      EXPECT_FALSE(step->Enabled()) << step->Name();
    }
    EXPECT_TRUE(page->lst_TypeSelect.Enabled());
    EXPECT_TRUE(page->OptCom[1].Enabled());
  }
  [[nodiscard]] std::vector<const Button*> StepButtons() const {
    return {&threshold.cmdThresholdM1,   &threshold.cmdThresholdM01, &threshold.cmdThresholdM001,
            &threshold.cmdThresholdP001, &threshold.cmdThresholdP01, &threshold.cmdThresholdP1};
  }

  Threshold threshold;
  TextField& box;
  std::string item;
};

const std::string kOutOfRange = "設定値ﾁｪｯｸ: ｼｷｲ値の設定は、0.5V から 3.5V の範囲です。";

struct EveryThresholdTest : testing::TestWithParam<ThresholdCase> {
  /// What START sends with a text in the box, up to the loop.
  [[nodiscard]] std::string Begin(const std::string& written = {}) const {
    const ThresholdCase& one = GetParam();
    return one.mode + one.units + one.limits +
           (written.empty() ? "" : one.limits + " G01 I" + one.item + " D" + written);
  }
  /// Of START with an empty box.
  [[nodiscard]] Clock BeginTime() const { return Exchanges(Begin()); }
  [[nodiscard]] std::string Turn() const {
    return " G01 I" + GetParam().item + GetParam().read + " G01 I06" + GetParam().read;
  }
  [[nodiscard]] Clock TurnTime() const { return 2 * GetParam().exchange + 1s; }
  /// 10 ms for each command of an untimed line.
  static Clock Exchanges(const std::string& commands) {
    return (std::count(commands.begin(), commands.end(), ' ') + 1) * 10ms;
  }
};
INSTANTIATE_TEST_SUITE_P(Family, EveryThresholdTest, testing::ValuesIn(kThresholdCases),
                         [](const auto& one) { return ToUtf8(one.param.word); });

TEST_P(EveryThresholdTest, StartTakesTheModeTheUnitsAndTheLimitsSendsTheBoxAndThenShowsTurnForTurn) {
  ThresholdBench bench(GetParam());
  bench.RunFor(2s, u"1.25");
  EXPECT_EQ(bench.line.Sent(), Begin("1.25") + Turn() + Turn());
  EXPECT_EQ(bench.host.loop.Now(), Exchanges(Begin("1.25")) + 2 * TurnTime());
  EXPECT_EQ(bench.box.Text(), u"1.25");
  EXPECT_EQ(bench.box.ShownLook(), Look::Highlight);
  EXPECT_EQ(bench.threshold.lblThreshold.Caption(), u"0.5V <= X <= 3.5V");
  EXPECT_EQ(bench.threshold.txtMeasFreq.Text(), u"123.46");
  EXPECT_EQ(bench.threshold.unitMeasFreq.Caption(), u"kHz");
  EXPECT_EQ(bench.Boxes(), Texts{});
  bench.ExpectIdle();
}

TEST_P(EveryThresholdTest, APressOfStartWithAnEmptyThresholdBoxWritesNothing) {
  ThresholdBench bench(GetParam());
  bench.RunFor(500ms);
  EXPECT_EQ(bench.line.Sent(), Begin() + Turn());
  EXPECT_EQ(bench.Steps(), Texts{});
  EXPECT_EQ(bench.box.Text(), GetParam().head.empty() ? u"2.50" : u"2.5") << "what the device holds";
}

TEST_P(EveryThresholdTest, EachTurnTakesItsTwoExchangesAndASecondToTheMillisecond) {
  ThresholdBench bench(GetParam());
  bench.RunFor(30s);
  std::vector<Clock> selections;
  for (const auto& command : bench.line.Commands()) {
    if (command.text == "I" + GetParam().item) {
      selections.push_back(command.received);
    }
  }
  ASSERT_GT(selections.size(), 25U);
  EXPECT_EQ(selections[0], BeginTime() + 10ms);
  for (std::size_t at = 1; at < selections.size(); ++at) {
    EXPECT_EQ(selections[at] - selections[at - 1], TurnTime()) << at;
  }
}

TEST_P(EveryThresholdTest, TheBoxAndTheFrequencyAreHighlightedHalfASecondEach) {
  ThresholdBench bench(GetParam());
  std::vector<std::pair<Clock, Look>> looks;
  bench.box.Observe([&] {
    if (looks.empty() || looks.back().second != bench.box.ShownLook()) {
      looks.emplace_back(bench.host.loop.Now(), bench.box.ShownLook());
    }
  });
  bench.RunFor(500ms);
  const Clock read = BeginTime() + GetParam().exchange;
  ASSERT_GE(looks.size(), 3U);
  looks.erase(looks.begin(), looks.end() - 3);
  EXPECT_EQ(looks, (std::vector<std::pair<Clock, Look>>{{read, Look::Highlight},
                                                        {read + 500ms, Look::Grey},
                                                        {BeginTime() + TurnTime(), Look::Highlight}}));
  EXPECT_EQ(bench.threshold.txtMeasFreq.ShownLook(), Look::Grey);
}

struct StepCase {
  std::string button;
  std::string sent;  ///< from a device at 2.5
};
TEST_P(EveryThresholdTest, EachStepGoesOutAtTheNextTurnAsTheNewValue) {
  const std::vector<StepCase> cases = {{"cmdThresholdM1", "1.5"},    {"cmdThresholdM01", "2.4"},
                                       {"cmdThresholdM001", "2.49"}, {"cmdThresholdP001", "2.51"},
                                       {"cmdThresholdP01", "2.6"},   {"cmdThresholdP1", "3.5"}};
  for (const StepCase& step : cases) {
    SCOPED_TRACE(step.button);
    ThresholdBench bench(GetParam());
    bench.PressAt(BeginTime() + 300ms, test::ButtonOf(*bench.page, step.button));
    bench.RunFor(BeginTime() + TurnTime() + 500ms);
    const std::string item = GetParam().item;
    std::string sent = Begin() + Turn() + GetParam().limits;
    sent.append(" G01 I").append(item).append(GetParam().read);
    sent.append(" G01 I").append(item).append(" D").append(step.sent).append(Turn());
    EXPECT_EQ(bench.line.Sent(), sent);
    EXPECT_EQ(bench.Steps(), Texts{step.sent});
    EXPECT_EQ(bench.Boxes(), Texts{});
  }
}

TEST_P(EveryThresholdTest, ASecondPressBeforeTheNextTurnOverwritesTheFirst) {
  ThresholdBench bench(GetParam());
  bench.PressAt(BeginTime() + 300ms, bench.threshold.cmdThresholdM1);
  bench.PressAt(BeginTime() + 900ms, bench.threshold.cmdThresholdP01);
  bench.RunFor(2500ms);
  EXPECT_EQ(bench.Steps(), Texts{"2.6"});
}

TEST_P(EveryThresholdTest, APressWhileAStepIsCarriedOutIsCarriedOutAfterIt) {
  ThresholdBench bench(GetParam());
  bench.PressAt(BeginTime() + 300ms, bench.threshold.cmdThresholdP01);
  bench.PressAt(BeginTime() + TurnTime() + 15ms, bench.threshold.cmdThresholdP01);
  bench.RunFor(3500ms);
  EXPECT_EQ(bench.Steps(), (Texts{"2.6", "2.7"}));
}

TEST_P(EveryThresholdTest, AStepPressedBeforeStopIsDropped) {
  ThresholdBench bench(GetParam());
  bench.PressAt(BeginTime() + 300ms, bench.threshold.cmdThresholdP01);
  bench.RunFor(BeginTime() + 400ms);
  EXPECT_EQ(bench.Steps(), Texts{});
}

TEST_P(EveryThresholdTest, AStepThatWouldPassTheHighLimitShowsTheMessageOnceAndTheValueStays) {
  ThresholdBench bench(GetParam(), "3.45");
  bench.PressAt(BeginTime() + 300ms, bench.threshold.cmdThresholdP01);
  bench.RunFor(4s);
  EXPECT_EQ(bench.Steps(), Texts{});
  ASSERT_EQ(bench.Boxes(), Texts{kOutOfRange});
  EXPECT_EQ(bench.host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_EQ(bench.box.Text(), u"3.45");
  EXPECT_EQ(bench.box.ShownLook(), Look::Bad);
}

TEST_P(EveryThresholdTest, ARefusedValueKeepsItsBadColourUntilTheNextAcceptedOne) {
  ThresholdBench bench(GetParam(), "3.45");
  bench.PressAt(BeginTime() + 300ms, bench.threshold.cmdThresholdP01);
  std::vector<Look> looks;
  bench.host.loop.After(BeginTime() + 2 * TurnTime() + 300ms, [&] {
    looks.push_back(bench.box.ShownLook());
    bench.threshold.cmdThresholdM01.Click();
  });
  bench.RunFor(4s);
  EXPECT_EQ(looks, std::vector{Look::Bad});
  EXPECT_EQ(bench.Steps(), Texts{"3.35"});
  EXPECT_EQ(bench.box.ShownLook(), Look::Highlight);
}

TEST_P(EveryThresholdTest, ATypedValueBeyondTheLimitsOrThatIsNoNumberIsRefusedAtStartAndTheLoopRuns) {
  for (const char16_t* typed : {u"0.49", u"3.51", u"12abc", u"2,5"}) {
    ThresholdBench bench(GetParam());
    bench.RunFor(500ms, typed);
    EXPECT_EQ(bench.Steps(), Texts{});
    EXPECT_EQ(bench.Boxes(), Texts{kOutOfRange});
    EXPECT_EQ(bench.line.Sent(), Begin() + GetParam().limits + Turn());
    EXPECT_EQ(bench.box.ShownLook(), Look::Bad);
  }
}

TEST_P(EveryThresholdTest, BothLimitsAreAccepted) {
  for (const char16_t* typed : {u"0.5", u"3.5"}) {
    ThresholdBench bench(GetParam());
    bench.RunFor(500ms, typed);
    EXPECT_EQ(bench.Steps(), Texts{ToUtf8(typed)});
    EXPECT_EQ(bench.Boxes(), Texts{});
  }
}

TEST_P(EveryThresholdTest, ADeviceThatDoesNotTakeMonitorModeLeavesStart) {
  ThresholdBench bench(GetParam());
  bench.line.silent_from = 1;
  bench.PressStart();
  EXPECT_EQ(bench.Boxes(), Texts{kMonitorFailure});
  EXPECT_EQ(bench.line.Sent(), "G01 G01 G01 G01");
  bench.ExpectIdle();
}

TEST_P(EveryThresholdTest, AThresholdThatIsNotToldLeavesTheBoxAndAStepSendsNothing) {
  for (const char* answer : {"", "CNG"}) {
    ThresholdBench bench(GetParam());
    bench.Do([&] { bench.box.UserTypes(u"1.25"); });
    bench.line.items.erase(bench.item);
    bench.line.kept.clear();
    if (*answer != '\0') {
      bench.line.refused.insert(bench.item);
    }
    bench.PressAt(14s, bench.threshold.cmdThresholdP01);
    bench.PressAt(40s, bench.threshold.cmdThresholdStart);
    bench.PressStart();
    EXPECT_EQ(bench.box.Text(), u"1.25");
    EXPECT_EQ(bench.threshold.txtMeasFreq.Text(), u"123.46");
    EXPECT_EQ(bench.Boxes(), Texts{});
    bench.ExpectIdle();
  }
}

TEST_P(EveryThresholdTest, AFrequencyThatIsNotToldEmptiesItsBoxAndTheLoopGoesOn) {
  ThresholdBench bench(GetParam());
  bench.host.loop.After(1500ms, [&] { bench.line.items.erase("06"); });
  bench.host.loop.After(3s, [&] { bench.line.items.erase("06"); });
  std::vector<String> shown;
  bench.threshold.txtMeasFreq.Observe([&] {
    if (shown.empty() || shown.back() != bench.threshold.txtMeasFreq.Text()) {
      shown.push_back(bench.threshold.txtMeasFreq.Text());
    }
  });
  bench.host.loop.After(
      7s, [&] { bench.line.items["06"] = bench.record.family.dialect == Dialect::Cok ? "F:7" : "7 Hz"; });
  bench.RunFor(12s);
  shown.erase(shown.begin());  // empty before the first reading
  EXPECT_EQ(shown, (std::vector<String>{u"123.46", u"", u"7.00"}));
}

// --- one repeat on item 09

TEST(ThresholdTest, LiteSecondRepeatsAnAccessOfAStepThreeTimesAndTheLatePagesOnce) {
  for (const ThresholdCase& one : kThresholdCases) {
    ThresholdBench bench(one);
    const Clock begin = EveryThresholdTest::Exchanges(one.mode + one.units + one.limits);
    std::size_t first = 0;
    bench.PressAt(begin + 300ms, bench.threshold.cmdThresholdP01);
    bench.host.loop.After(begin + 800ms, [&] {
      bench.line.items.erase(bench.item);
      first = bench.line.Commands().size();
    });
    bench.RunFor(5s);
    int tries = 0;
    for (std::size_t at = first; at < bench.line.Commands().size(); ++at) {
      tries += bench.line.Commands()[at].text == "I" + one.item ? 1 : 0;
    }
    // Those of the step, and one of the turn in which STOP is pressed.
    EXPECT_EQ(tries, 1 + (one.item == "30" ? 4 : 2)) << ToUtf8(one.word);
  }
}

// --- where LiteSecond's limits stand

TEST(ThresholdTest, TheRangeIsToldByTheIndexOrTheTextOfItsRow) {
  for (const auto& [answer, caption] :
       std::vector<std::pair<std::string, String>>{{"1", u"0.5V <= X <= 3.5V"},
                                                   {"0", u"0V <= X <= 1V"},
                                                   {"0.5 - 3.5 V", u"0.5V <= X <= 3.5V"},
                                                   {"0 - 1 V", u"0V <= X <= 1V"}}) {
    ThresholdBench bench;
    bench.line.items["33"] = answer;
    bench.RunFor(500ms);
    EXPECT_EQ(bench.threshold.lblThreshold.Caption(), caption) << answer;
  }
}

TEST(ThresholdTest, WithoutARangeTheDeviceIsSentNothing) {
  for (const char* answer : {"7", "2", "-1", "1.5 V", "ERROR"}) {
    ThresholdBench bench;
    bench.line.items["33"] = answer;
    bench.PressAt(500ms, bench.threshold.cmdThresholdP01);
    bench.RunFor(2500ms, u"1");
    EXPECT_EQ(bench.threshold.lblThreshold.Caption(), u"") << answer;
    EXPECT_EQ(bench.Steps(), Texts{}) << answer;
    EXPECT_EQ(bench.Boxes(), Texts{}) << answer;
  }
}

// --- what can be reached meanwhile

TEST(ThresholdTest, WhileTheLoopRunsNothingThatWouldStartAnotherExchangeCanBeReached) {
  ThresholdBench bench;
  Texts disabled;
  Texts enabled;
  bench.host.loop.After(700ms, [&] {
    for (const Control* control : bench.page->Controls()) {
      const bool button = dynamic_cast<const CaptionedControl*>(control) != nullptr &&
                          dynamic_cast<const Label*>(control) == nullptr;
      if ((button || control == &bench.page->lst_TypeSelect) && control->Visible() &&
          control->FullName().find('(') == std::string::npos) {
        (control->Refused() == Refusal::Disabled ? disabled : enabled).push_back(control->FullName());
      }
    }
    EXPECT_TRUE(bench.page->Tabs.TabEnabled(0));
  });
  bench.RunFor(1s);
  EXPECT_EQ(disabled,
            (Texts{"lst_TypeSelect", "cmdUpload", "cmdDownload", "cmdOpen", "cmdNew", "OptCom1", "OptCom2",
                   "OptCom3", "OptCom4", "cmdMonitorON", "cmdMonitorOFF", "cmdSet", "cmdStatusMonOFF"}));
  EXPECT_EQ(enabled, (Texts{"cmdSave", "cmdCheck", "cmdExit", "ProgressBar", "fraMonitoring",
                            "cmdThresholdStart", "cmdThresholdM1", "cmdThresholdM01", "cmdThresholdM001",
                            "cmdThresholdP001", "cmdThresholdP01", "cmdThresholdP1"}));
  bench.ExpectIdle();
}

TEST(ThresholdTest, AFrameThatIsLockedAndUnlockedMeanwhileKeepsTheBar) {
  ThresholdBench bench;
  bench.host.loop.After(700ms, [&] {
    bench.page->LockFrame();
    bench.page->UnlockFrame();
    EXPECT_FALSE(bench.page->cmdUpload.Enabled());
    EXPECT_FALSE(bench.page->lst_TypeSelect.Enabled());
    EXPECT_FALSE(bench.page->monitor.cmdMonitorON.Enabled());
    EXPECT_TRUE(bench.page->cmdSave.Enabled());
    EXPECT_TRUE(bench.threshold.cmdThresholdStart.Enabled());
  });
  bench.RunFor(1s);
  bench.ExpectIdle();
}

TEST(ThresholdTest, WhileAnotherOperationRunsStartCannotBeReachedAndDoesNothing) {
  ThresholdBench bench;
  bench.host.loop.After(300ms, [&] {
    EXPECT_FALSE(bench.threshold.cmdThresholdStart.Enabled());
    bench.threshold.cmdThresholdStart.Click();
  });
  bench.StopAfter(400ms);
  bench.Start();
  EXPECT_EQ(bench.line.Sent().find("I30"), std::string::npos);
  bench.ExpectIdle();
}

TEST(ThresholdTest, AnInputWithoutAThresholdEndsTheLoopAndClosesStart) {
  ThresholdBench bench;
  bench.host.loop.After(700ms, [&] { bench.threshold.SetUsable(false); });
  bench.PressStart();
  EXPECT_FALSE(bench.threshold.cmdThresholdStart.Enabled());
  EXPECT_TRUE(bench.AtRest());
  bench.threshold.SetUsable(true);
  bench.ExpectIdle();
}

// --- at each pump

/// A run with a typed value and a step that STOP ends in its third turn; at pump `at` (from 0) of it
/// something happens.
class PumpRun {
 public:
  explicit PumpRun(const ThresholdCase& one) : bench(one) {}
  PumpRun(const PumpRun&) = delete;
  PumpRun& operator=(const PumpRun&) = delete;
  ~PumpRun() = default;

  void Go(std::size_t at, const std::function<void()>& action) {
    const std::size_t first = bench.host.loop.PumpCount() + 1;
    bench.host.loop.OnPump([this, first, at, action] {
      if (bench.host.loop.PumpCount() == first + at) {
        action();
      }
    });
    bench.PressAt(500ms, bench.threshold.cmdThresholdP01);
    bench.RunFor(2800ms, u"1.25");
    pumps = bench.host.loop.PumpCount() + 1 - first;
  }

  ThresholdBench bench;
  std::size_t pumps = 0;
};

std::size_t PumpsOf(const ThresholdCase& one) {
  PumpRun run(one);
  run.Go(0, [] {});
  return run.pumps;
}

TEST_P(EveryThresholdTest, StopAtAnyPumpEndsTheLoopAtItsNextTestAndNoStepGoesOutAfterwards) {
  const std::size_t pumps = PumpsOf(GetParam());
  ASSERT_GT(pumps, 20U);
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    PumpRun run(GetParam());
    ThresholdBench& bench = run.bench;
    std::optional<Clock> stopped;
    run.Go(at, [&] {
      if (bench.threshold.cmdThresholdStart.Caption() == u"STOP") {
        stopped = bench.host.loop.Now();
        bench.threshold.cmdThresholdStart.Click();
        EXPECT_EQ(bench.threshold.cmdThresholdStart.Caption(), u"START");
        EXPECT_FALSE(bench.threshold.cmdThresholdP01.Enabled());
        EXPECT_FALSE(bench.threshold.cmdThresholdStart.Enabled()) << "until the loop has ended";
        bench.threshold.cmdThresholdStart.Click();
      }
    });
    bench.ExpectIdle();
    if (stopped) {
      // What is under way may be a step, and the rest of its turn.
      EXPECT_LE(bench.host.loop.Now() - *stopped, TurnTime() + 3 * 30ms);
      EXPECT_LE(bench.Steps().size(), 2U);
    }
  }
}

TEST_P(EveryThresholdTest, AStepPressedAtAnyPumpIsSentOnceOrWasDroppedBeforeTheLoop) {
  const std::size_t pumps = PumpsOf(GetParam());
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    PumpRun run(GetParam());
    ThresholdBench& bench = run.bench;
    run.Go(at, [&] {
      if (bench.threshold.cmdThresholdM1.Refused() == Refusal::None) {
        bench.threshold.cmdThresholdM001.Click();
      }
    });
    bench.ExpectIdle();
    const Texts steps = bench.Steps();
    // The step of the run, the pressed one, or both in either order; what was pressed last takes the place of
    // what still waited.
    const std::vector<Texts> possible = {
        {"1.25", "1.35"}, {"1.25", "1.24"}, {"1.25", "1.35", "1.34"}, {"1.25", "1.24", "1.34"}};
    EXPECT_NE(std::find(possible.begin(), possible.end(), steps), possible.end())
        << testing::PrintToString(steps);
  }
}

TEST_P(EveryThresholdTest, EveryOtherButtonAtAnyPumpStartsNoExchange) {
  PumpRun whole(GetParam());
  whole.Go(0, [] {});
  const std::string sent = whole.bench.line.Sent();
  for (std::size_t at = 0; at < whole.pumps; ++at) {
    SCOPED_TRACE(at);
    PumpRun run(GetParam());
    ThresholdBench& bench = run.bench;
    run.Go(at, [&] {
      for (const Button* button : {&bench.page->cmdUpload, &bench.page->cmdDownload, &bench.page->cmdOpen,
                                   &bench.page->monitor.cmdMonitorON, &bench.page->output.cmdSet,
                                   &bench.page->output.cmdStatusMonOFF}) {
        EXPECT_EQ(button->Refused(), Refusal::Disabled) << button->Name();
      }
      // Nothing begins either where one was pressed all the same.
      bench.page->monitor.Start();
      bench.page->output.Set();
      bench.page->lst_TypeSelect.SetListIndex(0);
    });
    EXPECT_EQ(bench.line.Sent(), sent);
    bench.ExpectIdle();
  }
}

TEST_P(EveryThresholdTest, ClosedAtAnyPumpTheProgramEndsAtTheNextPause) {
  const std::size_t pumps = PumpsOf(GetParam());
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    PumpRun run(GetParam());
    ThresholdBench& bench = run.bench;
    std::size_t sent = 0;
    Clock closed{0};
    run.Go(at, [&] {
      sent = bench.line.Commands().size();
      closed = bench.host.loop.Now();
      bench.program.PressClose();
    });
    EXPECT_TRUE(bench.ended);
    EXPECT_LE(bench.line.Commands().size(), sent + 1) << "no exchange begins after the one under way";
    EXPECT_LE(bench.host.loop.Now() - closed, 500ms);
  }
}

}  // namespace
}  // namespace korva
