#include "platform/qt/qt_event_loop.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QMetaObject>
#include <chrono>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korva {
namespace {

using namespace std::chrono_literals;

Clock ProcessorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto of = [](const timeval& time) {
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
  };
  return of(usage.ru_utime) + of(usage.ru_stime);
}

struct QtEventLoopTest : testing::Test {
  void PumpUntil(const std::function<bool()>& done) {
    while (!done()) {
      loop.Pump();
    }
  }

  void Post(std::function<void()> action) {
    QMetaObject::invokeMethod(
        &loop, [this, action = std::move(action)] { loop.Gate().Enter(action); }, Qt::QueuedConnection);
  }

  QtEventLoop loop;
};

TEST_F(QtEventLoopTest, ATimerTicksAfterEachIntervalToTheMillisecond) {
  std::vector<Clock> ticks;
  const Clock start = loop.Now();
  loop.StartTimer(20ms, [&] { ticks.push_back(loop.Now() - start); });
  PumpUntil([&] { return ticks.size() == 3; });
  for (std::size_t tick = 0; tick < ticks.size(); ++tick) {
    EXPECT_GE(ticks[tick], 20ms * (tick + 1)) << "never too early";
  }
}

TEST_F(QtEventLoopTest, TodayIsTheDayOfTheLocalCalendar) {
  const auto local_day = [] {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    return std::chrono::year(fields.tm_year + 1900) / (fields.tm_mon + 1) / fields.tm_mday;
  };
  const Date before = local_day();
  const Date today = loop.Today();
  EXPECT_TRUE(today == before || today == local_day()) << "midnight may pass meanwhile";
}

TEST_F(QtEventLoopTest, TimersOfTheSameLoopTickInTheOrderOfTheirTimes) {
  std::string order;
  loop.StartTimer(9ms, [&] { order += 'c'; });
  loop.StartTimer(3ms, [&] { order += order.empty() ? "a" : ""; });
  loop.StartTimer(7ms, [&] { order += 'b'; });
  PumpUntil([&] { return order.size() == 3; });
  EXPECT_EQ(order, "abc");
}

TEST_F(QtEventLoopTest, AStoppedTimerNeverTicksAgain) {
  int ticks = 0;
  const TimerId stopped = loop.StartTimer(1ms, [&] { ++ticks; });
  loop.StopTimer(stopped);
  loop.StopTimer(stopped);
  loop.StopTimer(4711);
  bool later = false;
  TimerId own = 0;
  own = loop.StartTimer(5ms, [&] {
    loop.StopTimer(own);
    later = true;
  });
  PumpUntil([&] { return later; });
  EXPECT_EQ(ticks, 0);
  EXPECT_NE(own, stopped);
}

TEST_F(QtEventLoopTest, AStoppedTimerDoesNotDelayALaterOne) {
  loop.StopTimer(loop.StartTimer(1ms, [] {}));
  bool ticked = false;
  loop.StartTimer(10ms, [&] { ticked = true; });
  PumpUntil([&] { return ticked; });
  EXPECT_TRUE(ticked);
}

TEST_F(QtEventLoopTest, AnEarlierTimerIsNotKeptWaitingByALaterOne) {
  bool late = false;
  bool early = false;
  loop.StartTimer(60000ms, [&] { late = true; });
  loop.StartTimer(2ms, [&] { early = true; });
  PumpUntil([&] { return early; });
  EXPECT_FALSE(late);
}

TEST_F(QtEventLoopTest, OtherTimersTickInsideATickThatWaitsButNotItsOwn) {
  int depth = 0;
  int deepest = 0;
  int others = 0;
  bool done = false;
  loop.StartTimer(3ms, [&] { ++others; });
  loop.StartTimer(5ms, [&] {
    deepest = std::max(deepest, ++depth);
    const int before = others;
    PumpUntil([&] { return others >= before + 4; });
    --depth;
    done = true;
  });
  PumpUntil([&] { return done; });
  EXPECT_EQ(deepest, 1);
  EXPECT_GE(others, 4);
}

TEST_F(QtEventLoopTest, APostedEventEndsTheSleepThatItComesBefore) {
  bool seen = false;
  Post([&] { seen = true; });
  loop.Pump();  // with no timer at all, a sleep would last for good
  EXPECT_TRUE(seen);
}

TEST_F(QtEventLoopTest, APumpThatWaitsUsesNoProcessorTime) {
  bool done = false;
  loop.StartTimer(300ms, [&] { done = true; });
  const Clock before = ProcessorTime();
  int pumps = 0;
  PumpUntil([&] {
    ++pumps;
    return done;
  });
  EXPECT_LT(ProcessorTime() - before, 20ms);
  EXPECT_LT(pumps, 10);
}

TEST_F(QtEventLoopTest, NestedEndingsUnwindInOrderAndOnEndedComesOnce) {
  std::vector<std::string> seen;
  loop.Gate().OnEnded([&](const Ending& ending) {
    EXPECT_FALSE(ending.failure);
    seen.emplace_back("ended");
    loop.Exit(0);
  });
  Post([&] {
    const std::shared_ptr<void> outer(nullptr, [&](void*) { seen.emplace_back("outer"); });
    loop.StartTimer(1ms, [&] {
      const std::shared_ptr<void> middle(nullptr, [&](void*) { seen.emplace_back("middle"); });
      Post([&] {
        const std::shared_ptr<void> inner(nullptr, [&](void*) { seen.emplace_back("inner"); });
        throw ProgramEnd{};
      });
      PumpUntil([] { return false; });
    });
    PumpUntil([] { return false; });
  });
  EXPECT_EQ(loop.Run(), 0);
  EXPECT_EQ(seen, (std::vector<std::string>{"inner", "middle", "outer", "ended"}));
  EXPECT_THROW(loop.Pump(), ProgramEnd);
}

TEST_F(QtEventLoopTest, AFailureIsRaisedByThePumpsWithItsText) {
  std::optional<String> text;
  loop.Gate().OnEnded([&](const Ending& ending) { text = ending.failure; });
  Post([] { throw RuntimeFailure(u"catalogue missing"); });
  try {
    loop.Pump();
    ADD_FAILURE() << "the pump went on";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.Text(), u"catalogue missing");
  }
  EXPECT_EQ(text, u"catalogue missing");
}

TEST_F(QtEventLoopTest, NothingEntersAfterAnEnding) {
  int later = 0;
  loop.StartTimer(1ms, [&] { ++later; });
  Post([] { throw ProgramEnd{}; });
  Post([&] { ++later; });
  EXPECT_THROW(loop.Pump(), ProgramEnd);
  loop.StartTimer(3ms, [&] { ++later; });
  QMetaObject::invokeMethod(
      &loop, [&] { loop.Exit(0); }, Qt::QueuedConnection);
  loop.Run();
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(later, 0);
}

TEST_F(QtEventLoopTest, TheApplicationsLoopIsLeftWithTheFirstStatus) {
  Post([&] {
    loop.Exit(1);
    loop.Exit(0);
  });
  EXPECT_EQ(loop.Run(), 1);
}

TEST_F(QtEventLoopTest, AProgramThatEndedBeforeTheLoopRanIsNotRunAnyMore) {
  loop.Exit(1);
  EXPECT_EQ(loop.Run(), 1);
}

}  // namespace
}  // namespace korva
