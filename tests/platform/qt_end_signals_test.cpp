#include <gtest/gtest.h>

#include <csignal>
#include <optional>

#include "platform/qt/end_signals.h"
#include "platform/qt/qt_event_loop.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

/// The signals that have been told of by now.
int Told(QtEventLoop& loop, const int& told) {
  const TimerId limit = loop.StartTimer(20ms, [] {});
  loop.Pump();
  loop.Pump();
  loop.StopTimer(limit);
  return told;
}

TEST(EndSignals, AreEventsOfTheLoopAndEndNothingByThemselves) {
  QtEventLoop loop;
  int told = 0;
  const EndSignals end_signals([&told] { ++told; });
  int expected = 0;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    std::raise(signal);
    EXPECT_EQ(told, expected) << "not before the loop runs";
    EXPECT_EQ(Told(loop, told), ++expected);
  }
}

TEST(EndSignals, ThatComeTogetherAreToldAsOne) {
  QtEventLoop loop;
  int told = 0;
  const EndSignals end_signals([&told] { ++told; });
  for (int count = 0; count < 100000; ++count) {
    std::raise(SIGTERM);
  }
  EXPECT_EQ(Told(loop, told), 1) << "however many there are";
}

TEST(EndSignals, AreHandledAsBeforeOnceTheObjectIsGone) {
  const auto ignored = [](int) {};
  const auto former = std::signal(SIGTERM, ignored);
  std::optional<EndSignals> end_signals([] {});
  end_signals.reset();
  EXPECT_EQ(std::signal(SIGTERM, former), static_cast<void (*)(int)>(ignored));
}

}  // namespace
}  // namespace korva
