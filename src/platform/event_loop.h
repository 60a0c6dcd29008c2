#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "platform/event_gate.h"

namespace korva {

using Clock = std::chrono::nanoseconds;  ///< time since the loop's own start; never runs backwards
using Milliseconds = std::chrono::milliseconds;
using TimerId = std::uint64_t;
using Date = std::chrono::year_month_day;

/// The host's event loop: the only place where the program waits.
class EventLoop {
 public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  /// Time since the loop's start.
  [[nodiscard]] virtual Clock Now() const = 0;

  /// The day by the user's calendar and clock.
  [[nodiscard]] virtual Date Today() const = 0;

  /// Starts a timer that ticks every `interval` (at least 1 ms; the first tick after one interval), precise
  /// to the millisecond, until it is stopped. `tick` enters through the gate. Returns a number that was never
  /// used before in this loop.
  virtual TimerId StartTimer(Milliseconds interval, std::function<void()> tick) = 0;

  /// Stops the timer; unknown and stopped numbers are ignored. A stopped timer never ticks again.
  virtual void StopTimer(TimerId timer) = 0;

  /// Delivers the events that are due; when none is, sleeps until the next one and delivers it. Then raises
  /// the program's ending if a handler ended it. May be called from inside a handler.
  virtual void Pump() = 0;

  [[nodiscard]] EventGate& Gate() { return gate_; }

 private:
  EventGate gate_;
};

}  // namespace korva
