#include "platform/virtual/virtual_event_loop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korva {
namespace {

using namespace std::chrono_literals;

TEST(VirtualEventLoop, SleepsUntilTheNextEventAndDeliversIt) {
  VirtualEventLoop loop;
  std::vector<Clock> times;
  loop.After(700ms, [&] { times.push_back(loop.Now()); });
  loop.After(200ms, [&] { times.push_back(loop.Now()); });

  loop.Pump();
  EXPECT_EQ(times, (std::vector<Clock>{200ms}));
  loop.Pump();
  EXPECT_EQ(times, (std::vector<Clock>{200ms, 700ms}));
  EXPECT_EQ(loop.PumpCount(), 2U);
}

TEST(VirtualEventLoop, TodayIsTheDayThatATestSets) {
  VirtualEventLoop loop;
  const Date day = std::chrono::year(2026) / 11 / 22;
  loop.SetToday(day);
  loop.RunFor(48h);
  EXPECT_EQ(loop.Today(), day);
}

TEST(VirtualEventLoop, EventsOfTheSameInstantComeInTheOrderOfScheduling) {
  VirtualEventLoop loop;
  std::string order;
  loop.At(5ms, [&] { order += 'a'; });
  loop.StartTimer(5ms, [&] { order += 'b'; });
  loop.Outside(5ms, [&] { order += 'c'; });
  loop.At(5ms, [&] { order += 'd'; });
  loop.Pump();
  EXPECT_EQ(order, "abcd");
}

TEST(VirtualEventLoop, AnEventScheduledForThePastHappensNow) {
  VirtualEventLoop loop;
  loop.RunFor(10ms);
  Clock seen{0};
  loop.At(3ms, [&] { seen = loop.Now(); });
  loop.Pump();
  EXPECT_EQ(seen, 10ms);
}

TEST(VirtualEventLoop, AnEventThatAHandlerSchedulesForNowWaitsForTheNextPump) {
  VirtualEventLoop loop;
  int rounds = 0;
  std::function<void()> again = [&] {
    ++rounds;
    loop.After(0ms, again);
  };
  loop.After(0ms, again);
  loop.Pump();
  EXPECT_EQ(rounds, 1);
  loop.Pump();
  EXPECT_EQ(rounds, 2);
}

TEST(VirtualEventLoop, ATimerTicksAfterEachIntervalUntilItIsStopped) {
  VirtualEventLoop loop;
  std::vector<Clock> ticks;
  const TimerId timer = loop.StartTimer(200ms, [&] { ticks.push_back(loop.Now()); });
  loop.RunFor(650ms);
  loop.StopTimer(timer);
  loop.RunFor(1s);
  EXPECT_EQ(ticks, (std::vector<Clock>{200ms, 400ms, 600ms}));
  EXPECT_EQ(loop.Now(), 1650ms);
}

TEST(VirtualEventLoop, ATimerStoppedAtTheInstantOfItsTickDoesNotTick) {
  VirtualEventLoop loop;
  TimerId timer = 0;
  int ticks = 0;
  loop.At(200ms, [&] { loop.StopTimer(timer); });
  timer = loop.StartTimer(200ms, [&] { ++ticks; });
  loop.RunFor(1s);
  EXPECT_EQ(ticks, 0);
}

TEST(VirtualEventLoop, ATickMayStopItsOwnTimer) {
  VirtualEventLoop loop;
  TimerId timer = 0;
  int ticks = 0;
  timer = loop.StartTimer(1ms, [&] {
    loop.StopTimer(timer);
    ++ticks;
  });
  loop.RunFor(10ms);
  EXPECT_EQ(ticks, 1);
}

TEST(VirtualEventLoop, ATimerDoesNotTickInsideItsOwnTick) {
  VirtualEventLoop loop;
  int depth = 0;
  int deepest = 0;
  std::vector<Clock> ticks;
  loop.StartTimer(10ms, [&] {
    ticks.push_back(loop.Now());
    deepest = std::max(deepest, ++depth);
    bool waited = false;
    loop.After(25ms, [&] { waited = true; });
    while (!waited) {
      loop.Pump();
    }
    --depth;
  });
  loop.RunFor(60ms);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(ticks, (std::vector<Clock>{10ms, 40ms}));
}

TEST(VirtualEventLoop, ATimerOfLessThanAMillisecondTicksEachMillisecond) {
  VirtualEventLoop loop;
  int ticks = 0;
  loop.StartTimer(0ms, [&] { ++ticks; });
  loop.RunFor(5ms);
  EXPECT_EQ(ticks, 5);
}

TEST(VirtualEventLoop, TimerNumbersAreNeverUsedAgainAndUnknownOnesAreIgnored) {
  VirtualEventLoop loop;
  const TimerId first = loop.StartTimer(1ms, [] {});
  loop.StopTimer(first);
  loop.StopTimer(first);
  loop.StopTimer(4711);
  EXPECT_NE(loop.StartTimer(1ms, [] {}), first);
}

TEST(VirtualEventLoop, APumpSleepsThroughWhatHappensOutsideTheProgram) {
  VirtualEventLoop loop;
  Clock outside{0};
  loop.Outside(3ms, [&] { outside = loop.Now(); });
  loop.After(8ms, [] {});
  loop.Pump();
  EXPECT_EQ(outside, 3ms);
  EXPECT_EQ(loop.Now(), 8ms);
}

TEST(VirtualEventLoop, AWaitForNothingFailsInsteadOfHanging) {
  VirtualEventLoop loop;
  EXPECT_THROW(loop.Pump(), std::logic_error);
}

TEST(VirtualEventLoop, AWaitThatOnlyATimerKeepsAliveFailsInTheEnd) {
  VirtualEventLoop loop;
  loop.StartTimer(3000ms, [] {});
  EXPECT_THROW(
      {
        while (true) {
          loop.Pump();
        }
      },
      std::logic_error);
}

TEST(VirtualEventLoop, RunUntilIdleCarriesOutAllButEndlessTicking) {
  VirtualEventLoop loop;
  int ticks = 0;
  int done = 0;
  loop.StartTimer(100ms, [&] { ++ticks; });
  loop.After(150ms, [&] { loop.After(100ms, [&] { ++done; }); });
  loop.RunUntilIdle();
  EXPECT_EQ(done, 1);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(loop.Now(), 250ms);
}

TEST(VirtualEventLoop, TheHookSeesEachPumpOfANestedWaitButNotItsOwn) {
  VirtualEventLoop loop;
  std::vector<std::size_t> pumps;
  loop.OnPump([&] {
    pumps.push_back(loop.PumpCount());
    if (pumps.size() == 1) {
      loop.After(0ms, [] {});
      loop.Pump();
    }
  });
  loop.After(1ms, [&] {
    loop.After(1ms, [] {});
    loop.Pump();
  });
  loop.Pump();
  EXPECT_EQ(pumps, (std::vector<std::size_t>{1, 3}));
}

TEST(VirtualEventLoop, AnEndingRaisedByTheHookLeavesThePumpBeforeAnyEvent) {
  VirtualEventLoop loop;
  bool delivered = false;
  loop.OnPump([] { throw ProgramEnd{}; });
  loop.After(0ms, [&] { delivered = true; });
  EXPECT_THROW(loop.Pump(), ProgramEnd);
  EXPECT_FALSE(delivered);
}

TEST(VirtualEventLoop, AFailureInANestedHandlerIsRaisedByEachPumpFurtherOut) {
  VirtualEventLoop loop;
  std::vector<std::string> seen;
  loop.Gate().OnEnded([&](const Ending& ending) {
    ASSERT_TRUE(ending.failure);
    EXPECT_EQ(*ending.failure, u"catalogue missing");
    seen.emplace_back("ended");
  });
  loop.After(1ms, [&] {
    const std::shared_ptr<void> outer(nullptr, [&](void*) { seen.emplace_back("outer"); });
    loop.After(1ms, [&] {
      const std::shared_ptr<void> inner(nullptr, [&](void*) { seen.emplace_back("inner"); });
      throw RuntimeFailure(u"catalogue missing");
    });
    loop.Pump();
    seen.emplace_back("never");
  });
  loop.RunFor(1s);
  EXPECT_EQ(seen, (std::vector<std::string>{"inner", "outer", "ended"}));
}

TEST(VirtualEventLoop, NothingEntersAfterAnEnding) {
  VirtualEventLoop loop;
  int later = 0;
  loop.StartTimer(10ms, [&] { ++later; });
  loop.At(1ms, [] { throw ProgramEnd{}; });
  loop.At(1ms, [&] { ++later; });
  loop.At(2ms, [&] { ++later; });
  loop.RunFor(100ms);
  loop.RunUntilIdle();
  EXPECT_EQ(later, 0);
  EXPECT_THROW(loop.Pump(), ProgramEnd);
  EXPECT_EQ(later, 0);
}

}  // namespace
}  // namespace korva
