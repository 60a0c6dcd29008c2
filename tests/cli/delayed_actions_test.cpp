// Actions of a script that are carried out later, inside whatever runs then.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cli/script_runner.h"
#include "script_bench.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::ScriptBench;

TEST(After, CarriesTheActionOutInsideWhatRunsThen) {
  ScriptBench bench;
  bench.Run("start");
  Lines order;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    order.emplace_back("over");
  });
  Clock pressed{0};
  ScriptBench::Let(bench.Page().cmdCheck, [&] {
    pressed = bench.loop.Now();
    order.emplace_back("inside");
  });
  const Clock before = bench.loop.Now();
  bench.Run("after 300 click cmdCheck\nclick cmdUpload");
  EXPECT_EQ(order, (Lines{"inside", "over"}));
  EXPECT_EQ(pressed - before, Milliseconds(300));
}

TEST(After, CountsFromTheNextStartClickChooseOrWaitAndFromNothingElse) {
  for (const char* begins : {"start", "click cmdCheck", "choose A1", "wait 1"}) {
    ScriptBench bench;
    bench.Run("start");
    Clock pressed{0};
    ScriptBench::Let(bench.Page().cmdUpload, [&] { pressed = bench.loop.Now(); });
    bench.Run("after 100 click cmdUpload\ntype Text(0) 1\nshow Text(0)\ndump\ntab 0\nkey Text(0) Up");
    bench.loop.RunFor(Milliseconds(1000));
    EXPECT_EQ(pressed, Clock(0)) << begins;
    const Clock before = bench.loop.Now();
    bench.Run(begins);
    bench.loop.RunFor(Milliseconds(50));
    bench.Run("wait 500");
    EXPECT_EQ(pressed - before, Milliseconds(100)) << begins;
  }
}

TEST(After, WaitsForSeveralActionsAtOnce) {
  ScriptBench bench;
  bench.RunStarted("after 20 type Text(0) b\nafter 10 type Text(0) a\nafter 30 show Text(0)\nwait 15");
  EXPECT_EQ(bench.Page().Text[0].Text(), u"a");
  EXPECT_EQ(bench.Run("wait 20"), Lines{R"(Text(0) shown enabled unlocked normal "b")"});
}

TEST(After, IsCarriedOutOnceOnly) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("after 10 show ProgressBar\nwait 100\nwait 100"), Lines{"ProgressBar shown 0"});
}

TEST(After, OfTheLengthOfAWaitIsCarriedOutInsideIt) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("after 100 show ProgressBar\nwait 100"), Lines{"ProgressBar shown 0"});
  EXPECT_EQ(bench.Run("after 0 show ProgressBar\nwait 0"), Lines{"ProgressBar shown 0"});
}

TEST(After, PrintsTheActionItselfWhenItIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Page().LockFrame();
    bench.Pause(1000);
    bench.Page().UnlockFrame();
  });
  EXPECT_EQ(bench.Run("after 300 click cmdDownload\nclick cmdUpload\nclick cmdDownload"),
            Lines{"refused click cmdDownload: disabled"});
}

TEST(After, QueuesAnswersForBoxesThatShowLater) {
  ScriptBench bench;
  bench.Run("start");
  bool yes = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    yes = bench.program.Box().Ask(BoxKey::ModelMatches);
  });
  bench.Run("after 300 answer yes\nclick cmdUpload");
  EXPECT_TRUE(yes);
}

TEST(After, ClosesThePageWhileAnOperationRuns) {
  ScriptBench bench;
  bench.Run("start");
  bool over = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Page().BeginOperation();
    bench.Pause(1000);
    over = true;
  });
  EXPECT_EQ(bench.Run("after 300 close\nclick cmdUpload\nshow Text(0)"), Lines{"end"});
  EXPECT_FALSE(over);
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(After, EndsAWaitTogetherWithTheProgram) {
  ScriptBench bench;
  bench.Run("start");
  const Clock before = bench.loop.Now();
  EXPECT_EQ(bench.Run("after 300 close\nafter 400 show ProgressBar\nwait 1000"), Lines{"end"});
  EXPECT_EQ(bench.loop.Now() - before, Milliseconds(300));
}

TEST(After, WithAWrongActionEndsTheScriptWhenTheRunningActionIsDone) {
  ScriptBench bench;
  bench.Run("start");
  bool over = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    over = true;
  });
  EXPECT_EQ(bench.Run("after 300 click cmdNone\nafter 400 show Text(0)\nclick cmdUpload\nshow Text(0)"),
            Lines{});
  EXPECT_TRUE(over);
  EXPECT_EQ(bench.runner.Status(), 2);
  EXPECT_EQ(bench.Complaints(),
            Lines{R"(korva-cli: line 2: "click cmdNone": the showing page has no control cmdNone)"});
}

TEST(After, LetsAnOperationBeginInsideAWait) {
  ScriptBench bench;
  bench.Run("start");
  Clock over{0};
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    over = bench.loop.Now();
  });
  const Clock before = bench.loop.Now();
  bench.Run("after 100 click cmdUpload\nwait 300");
  EXPECT_EQ(over - before, Milliseconds(1100));
}

TEST(After, MayItselfBeCarriedOutLater) {
  ScriptBench bench;
  bench.Run("start");
  EXPECT_EQ(bench.Run("after 10 after 20 show ProgressBar\nwait 100"), Lines{});
  EXPECT_EQ(bench.Run("wait 10"), Lines{});
  EXPECT_EQ(bench.Run("wait 10"), Lines{"ProgressBar shown 0"});
}

}  // namespace
}  // namespace korva::cli
