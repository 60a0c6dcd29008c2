#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "platform/event_loop.h"

namespace korva {

/// The event loop in virtual time: nothing sleeps, the clock jumps to the next due event. Events of the same
/// instant come in the order in which they were scheduled, so a run gives the same result every time.
///
/// Two kinds of events: those that enter the program through the gate and wake a pump (`At`, `After`, timer
/// ticks), and those of the world outside, such as a byte leaving the wire (`Outside`), which a pump sleeps
/// through.
class VirtualEventLoop final : public EventLoop {
 public:
  [[nodiscard]] Clock Now() const override { return now_; }
  [[nodiscard]] Date Today() const override { return today_; }
  /// The day does not follow the clock: it is the one of the last call.
  void SetToday(Date today) { today_ = today; }
  TimerId StartTimer(Milliseconds interval, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;

  /// As EventLoop says. Throws std::logic_error when nothing is left that could ever happen, or when a wait
  /// has gone on for days of virtual time, so that a test of a hung wait fails.
  void Pump() override;

  /// Schedules an event of the program (a user's action, arriving bytes) for `time`; the past counts as now.
  void At(Clock time, std::function<void()> action);

  /// The same, `delay` from now.
  void After(Clock delay, std::function<void()> action) { At(now_ + delay, std::move(action)); }

  /// Schedules something outside the program for `time`: it happens even in the middle of a sleep, and does
  /// not wake the program by itself.
  void Outside(Clock time, std::function<void()> happening);

  /// Lets the program run from outside any event until `duration` has passed or the program has ended. Raises
  /// nothing.
  void RunFor(Clock duration);

  /// Lets the program run from outside any event until only ticking timers are left or the program has ended.
  /// Raises nothing.
  void RunUntilIdle();

  /// How many times the program has pumped so far.
  [[nodiscard]] std::size_t PumpCount() const { return pumps_; }

  /// `hook` enters the program at the beginning of each pump, before that pump's events; a pump inside the
  /// hook does not call it again. `PumpCount` already counts the pump.
  void OnPump(std::function<void()> hook) { on_pump_ = std::move(hook); }

 private:
  enum class Kind { Program, World, Tick };

  struct Key {
    Clock time{0};
    std::uint64_t sequence = 0;
    bool operator<(const Key& other) const {
      return time != other.time ? time < other.time : sequence < other.sequence;
    }
  };

  struct Event {
    Kind kind;
    std::function<void()> action;  // of program and world events
    TimerId timer = 0;             // of ticks
  };

  struct Timer {
    Milliseconds interval{0};
    std::function<void()> tick;
    Key next;  // of its scheduled tick
  };

  Key Schedule(Clock time, Event event);
  bool DeliverDue();
  bool Deliver(const Event& event, Clock due);
  bool Tick(TimerId id, Clock due);
  void JumpToNext();

  Clock now_{0};
  Date today_{std::chrono::year(2024), std::chrono::February, std::chrono::day(29)};
  std::uint64_t next_sequence_ = 0;
  std::size_t pumps_ = 0;
  std::size_t one_off_events_ = 0;  // scheduled events that are no ticks
  bool in_hook_ = false;
  std::function<void()> on_pump_;
  std::map<Key, Event> queue_;
  TimerId last_timer_ = 0;
  std::map<TimerId, std::shared_ptr<Timer>> timers_;
};

}  // namespace korva
