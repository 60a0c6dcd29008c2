// Each exchange of each button's whole operation on the page of family LiteSecond is broken in turn. Whatever
// happens, the page can be used again, the device can be read, and nothing was told that isn't so.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/numbers.h"
#include "pages/z2_kv_config_v2/z2_kv_config_v2.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

/// The page with its set uploaded and the linearizer switched on.
struct LiveSweep : SweepBench {
  LiveSweep() : SweepBench(u"Z2WQ") {
    Press(V2().linearizer.Opt_Lnr, 1);
    Do([this] {
      LnrTable& table = V2().linearizer.Table();
      for (int row = 1; row <= 2; ++row) {
        table.Store(row, 1, row == 1 ? u"0" : u"100");
        table.Store(row, 2, row == 1 ? u"10" : u"90");
      }
    });
    Type(V2().table.txtSize, u"2");
    Page().DataChanged = false;
  }

  z2KvConfig_V2& V2() { return dynamic_cast<z2KvConfig_V2&>(Page()); }

  /// Runs a loop with a step inside, and presses STOP as soon as it can be pressed behind six seconds.
  void RunLoop(Button& start, Button& step) {
    PressWhenEnabled(1200ms, step);
    StopWhenRunning(6s, start);
    Click(start);
  }
  /// Forces the output, and lets it go if it was forced.
  void ForceAndLetGo() {
    Type(u"24_set", u"40");
    Click(V2().output.cmdSet);
    if (app.program.Shared().CommBusy) {
      Click(V2().output.cmdStatusMonOFF);
    }
  }

  void ExpectIdle() {
    ExpectUsable();
    for (const Button* start :
         {&V2().zero_trim.StartButton, &V2().span_trim.StartButton, &V2().threshold.cmdThresholdStart}) {
      EXPECT_EQ(start->Caption(), u"START") << start->Name();
      EXPECT_TRUE(start->Enabled()) << start->Name();
    }
    for (const Control* control : Page().Controls()) {
      const auto* const button = dynamic_cast<const Button*>(control);
      EXPECT_FALSE(button != nullptr && button->Pending()) << control->Name();
    }
    for (const char16_t* item : {u"24_set", u"28_zero", u"28_span", u"30"}) {
      EXPECT_FALSE(Field(item).Locked());
    }
    EXPECT_TRUE(V2().table.cmdReadOutTable.Enabled() && V2().table.cmdWriteInTable.Enabled());
  }
  /// The boxes show what the device holds.
  void ExpectTold() {
    const String trim = FromUtf8(device.Value("01", "28"));
    const auto percent = [](const String& fraction) {
      return FormatMask(LeadingNumber(fraction) * 100, u"0.00");
    };
    EXPECT_EQ(Field(u"28_zero").Text(), percent(ZeroFromTrimAnswer(trim)));
    EXPECT_EQ(Field(u"28_span").Text(), percent(SpanFromTrimAnswer(trim)));
    EXPECT_EQ(LeadingNumber(Field(u"30").Text()), LeadingNumber(FromUtf8(device.Value("01", "30"))));
  }

 private:
  void PressWhenEnabled(Clock after, const Button& button) {
    loop.After(std::chrono::ceil<Milliseconds>(after), [this, &button] {
      if (Page().WhyRefused(button).empty()) {
        button.Click();
      }
    });
  }
  void StopWhenRunning(Clock after, const Button& button) {
    loop.After(std::chrono::ceil<Milliseconds>(after), [this, &button] {
      if (button.Caption() == u"STOP") {
        button.Click();
      } else if (app.program.Shared().CommBusy) {
        StopWhenRunning(1s, button);
      }
    });
  }
};

struct LiveOperation {
  const char* name;
  std::function<void(LiveSweep&)> run;
  std::vector<BoxKey> boxes;  ///< that may show
  bool told = false;          ///< its loop goes on until the boxes show what the device holds
};

void PrintTo(const LiveOperation& operation, std::ostream* out) { *out << operation.name; }

const std::vector<LiveOperation> kLiveOperations = {
    {.name = "ZeroTrim",
     .run =
         [](LiveSweep& bench) {
           bench.Type(u"28_zero", u"1.50");
           bench.RunLoop(bench.V2().zero_trim.StartButton, bench.V2().zero_trim.P01Button);
         },
     .boxes = {BoxKey::NotMonitorMode},
     .told = true},
    {.name = "SpanTrim",
     .run =
         [](LiveSweep& bench) {
           bench.Type(u"28_span", u"99");
           bench.RunLoop(bench.V2().span_trim.StartButton, bench.V2().span_trim.M01Button);
         },
     .boxes = {},
     .told = true},
    {.name = "Reset",
     .run =
         [](LiveSweep& bench) {
           bench.RunLoop(bench.V2().span_trim.StartButton, bench.V2().span_trim.ResetButton);
         },
     .boxes = {},
     .told = true},
    {.name = "Threshold",
     .run =
         [](LiveSweep& bench) {
           bench.RunLoop(bench.V2().threshold.cmdThresholdStart, bench.V2().threshold.cmdThresholdP001);
         },
     .boxes = {BoxKey::NotMonitorMode},
     .told = true},
    {.name = "Output",
     .run = [](LiveSweep& bench) { bench.ForceAndLetGo(); },
     .boxes = {BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode}},
    {.name = "WriteTable",
     .run = [](LiveSweep& bench) { bench.Click(bench.V2().table.cmdWriteInTable); },
     .boxes = {BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode, BoxKey::TableReadWriteFailed,
               BoxKey::TableWritten}},
    {.name = "ReadTable",
     .run = [](LiveSweep& bench) { bench.Click(bench.V2().table.cmdReadOutTable); },
     .boxes = {BoxKey::NotMonitorMode, BoxKey::TableReadWriteFailed, BoxKey::TableRead}},
};

struct LiteSecondSweepTest : testing::TestWithParam<LiveOperation> {};
INSTANTIATE_TEST_SUITE_P(Operation, LiteSecondSweepTest, testing::ValuesIn(kLiveOperations),
                         [](const auto& one) { return std::string(one.param.name); });

/// A report of success is all that was to be done.
void ExpectTrue(LiveSweep& bench, const Texts& boxes) {
  const auto shown = [&](BoxKey key) {
    return std::find(boxes.begin(), boxes.end(), Shown(key)) != boxes.end();
  };
  if (shown(BoxKey::TableWritten)) {
    EXPECT_EQ(bench.device.Value("01", "62"), "2 0.0000 0.1000 1.0000 0.9000");
  }
  if (shown(BoxKey::TableRead)) {
    EXPECT_EQ(bench.V2().table.txtSize.Text(), u"11");
    EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(11, 2).text, u"100.00");
  }
}

TEST_P(LiteSecondSweepTest, BrokenAtAnyExchangeEndsWithAPageThatCanBeUsedAndADeviceThatCanBeRead) {
  LiveSweep good;
  GetParam().run(good);
  good.ExpectIdle();
  const std::vector<Break> breaks = BreaksOf(good.commands.size());
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    LiveSweep bench;
    bench.TakeBoxes();
    bench.StartBreak(line_break);
    GetParam().run(bench);
    bench.ExpectIdle();
    const Texts boxes = bench.TakeBoxes();
    for (const std::string& box : boxes) {
      EXPECT_TRUE(std::any_of(GetParam().boxes.begin(), GetParam().boxes.end(), [&](BoxKey key) {
        return box == Shown(key);
      })) << box;
    }
    ExpectTrue(bench, boxes);
    if (GetParam().told && !line_break.for_good && boxes.empty()) {
      bench.ExpectTold();
    }
    bench.ExpectUploadWorks();
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(GetParam().name) + " with a broken exchange", breaks.size(),
            9 * good.commands.size());
}

TEST_P(LiteSecondSweepTest, ClosedAtAnyPumpEndsTheProgramAtAPauseOrKeepsTheWindowUntilTheDeviceIsBack) {
  LiveSweep whole;
  std::size_t pumps = 0;
  whole.loop.OnPump([&] { ++pumps; });
  GetParam().run(whole);
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    LiveSweep bench;
    bench.loop.OnPump([&bench, at, first = bench.loop.PumpCount() + 1] {
      if (bench.loop.PumpCount() == first + at) {
        bench.app.program.PressClose();
      }
    });
    GetParam().run(bench);
    EXPECT_TRUE(bench.status.has_value() || !bench.app.program.Shared().CommBusy);
    EXPECT_TRUE(bench.status.has_value() || bench.device.Mode() == '0');
    ASSERT_FALSE(HasFailure());
  }
}

}  // namespace
}  // namespace korva::test
