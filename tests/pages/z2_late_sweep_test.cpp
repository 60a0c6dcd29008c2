// The live loop of the threshold and the table by buttons on the pages of pulse transmitters: each exchange
// in
// turn is broken, once and for good, in each way in which a line can break, and the close box is pressed at
// each pump.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "pages/z2_late_page.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

struct LateSweep : SweepBench {
  explicit LateSweep(const String& model) : SweepBench(model) {}
  Z2LatePage& Late() { return dynamic_cast<Z2LatePage&>(Page()); }

  /// Presses a button of the running loop, `after` from now or as soon as the loop runs.
  void PressFrom(Clock after, Button& button) {
    loop.After(std::chrono::ceil<Milliseconds>(after), [this, &button] {
      if (Late().threshold.cmdThresholdStart.Caption() == u"STOP") {
        button.Click();
      } else if (app.program.Shared().CommBusy) {
        PressFrom(100ms, button);
      }
    });
  }
  /// A loop with a step, ended by STOP.
  void RunThreshold(Clock length = 3200ms) {
    PressFrom(length / 2, Late().threshold.cmdThresholdP01);
    PressFrom(length, Late().threshold.cmdThresholdStart);
    Click(Late().threshold.cmdThresholdStart);
  }
  void ReadTable() { Click(Late().table_buttons.cmdReadOutTable); }
  void WriteTable() { Click(Late().table_buttons.cmdWriteInTable); }
};

struct LateSweepTest : testing::TestWithParam<String> {};
INSTANTIATE_TEST_SUITE_P(Model, LateSweepTest, testing::Values(u"Z2WPR", u"Z2WPL"),
                         [](const auto& one) { return ToUtf8(one.param); });

TEST(LateThresholdSweep, WhateverBreaksTheThresholdStaysWithinItsLimitsAndTheLoopRunsAgain) {
  LateSweep whole(u"Z2WPR");
  whole.RunThreshold();
  EXPECT_EQ(whole.device.Value("01", "09"), "2.6");
  const std::vector<Break> breaks = BreaksOf(whole.commands.size());
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    LateSweep bench(u"Z2WPR");
    bench.StartBreak(line_break);
    const Clock begin = bench.loop.Now();
    bench.RunThreshold();
    EXPECT_LE(bench.loop.Now() - begin, kLongestRun);
    const std::string held = bench.device.Value("01", "09");
    EXPECT_TRUE(held == "2.50" || held == "2.6") << held;
    const Texts boxes = bench.TakeBoxes();
    EXPECT_TRUE(boxes.empty() || boxes == Texts{Shown(BoxKey::NotMonitorMode)})
        << testing::PrintToString(boxes);
    EXPECT_TRUE(bench.Page().Item(9) == u"2.50" || bench.Page().Item(9) == u"2.6")
        << ToUtf8(bench.Page().Item(9));
    EXPECT_EQ(bench.Late().threshold.cmdThresholdStart.Caption(), u"START");
    bench.ExpectUsable();
    // The line is good again, once what came too late has been drained.
    bench.device.ClearFaults();
    bench.loop.RunUntilIdle();
    bench.Type(u"09", u"1.5");
    bench.RunThreshold(12s);
    EXPECT_EQ(bench.device.Value("01", "09"), "1.6");
    ASSERT_FALSE(HasFailure());
  }
  TellShare("Z2WPR: thresholds with a broken exchange", breaks.size(), 9 * whole.commands.size());
}

TEST_P(LateSweepTest, ClosedAtAnyPumpTheLoopEndsTheProgramAtItsNextPause) {
  LateSweep whole(GetParam());
  const std::size_t before = whole.loop.PumpCount();
  whole.RunThreshold();
  const std::size_t pumps = whole.loop.PumpCount() - before;
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    LateSweep bench(GetParam());
    std::size_t sent = 0;
    Clock closed{0};
    bench.loop.OnPump([&, first = bench.loop.PumpCount() + 1, at] {
      if (bench.loop.PumpCount() == first + at) {
        sent = bench.commands.size();
        closed = bench.loop.Now();
        bench.app.program.PressClose();
      }
    });
    bench.RunThreshold();
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.commands.size(), sent) << "no exchange begins after the one under way";
    EXPECT_LE(bench.loop.Now() - closed, 1510ms);
    ASSERT_FALSE(HasFailure());
  }
  TellShare(ToUtf8(GetParam()) + ": thresholds closed", SampledPumps(pumps).size(), pumps);
}

// --- the table by its buttons, on the page with the short one

/// Breaks `move`, which is done when it reports `done` and otherwise fails with one of `failures`.
void BreakTable(const std::function<void(LateSweep&)>& move, BoxKey done, const Texts& failures) {
  const auto prepare = [](LateSweep& bench) {
    bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
    bench.ReadTable();
    bench.TakeBoxes();
    bench.commands.clear();
  };
  LateSweep whole(u"Z2WPR");
  prepare(whole);
  move(whole);
  EXPECT_EQ(whole.TakeBoxes(), Texts{Shown(done)});
  const std::vector<Break> breaks = OneIn(23, BreaksOf(whole.commands.size()));
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    LateSweep bench(u"Z2WPR");
    prepare(bench);
    bench.StartBreak(line_break);
    move(bench);
    const Texts boxes = bench.TakeBoxes();
    ASSERT_FALSE(boxes.empty());
    EXPECT_TRUE(boxes.front() == Shown(done) ||
                std::find(failures.begin(), failures.end(), boxes.front()) != failures.end())
        << boxes.front();
    EXPECT_TRUE(boxes.size() == 1 || (boxes.size() == 2 && boxes.back() == Shown(BoxKey::NotMonitorMode)))
        << testing::PrintToString(boxes);
    bench.ExpectUsable();
    bench.device.ClearFaults();
    bench.loop.RunUntilIdle();
    bench.ReadTable();
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableRead)});
    bench.WriteTable();
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableWritten)});
    EXPECT_EQ(bench.device.Mode(), '0');
    ASSERT_FALSE(testing::Test::HasFailure());
  }
  TellShare("Z2WPR: tables with a broken exchange", breaks.size(), 9 * whole.commands.size());
}

TEST(LateTableSweep, WhateverBreaksAReadOutIsDoneOrTold) {
  BreakTable([](LateSweep& bench) { bench.ReadTable(); }, BoxKey::TableRead,
             {Shown(BoxKey::TableReadFailed)});
}

TEST(LateTableSweep, WhateverBreaksAWriteIsDoneOrTold) {
  BreakTable([](LateSweep& bench) { bench.WriteTable(); }, BoxKey::TableWritten,
             {Shown(BoxKey::TableWriteFailed), Shown(BoxKey::NotProgrammingMode)});
}

}  // namespace
}  // namespace korva::test
