#include "platform/virtual/virtual_event_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korva {

namespace {

// A wait that only a stray timer keeps alive would go on for good. No operation takes this long.
constexpr Clock kEndOfTime = std::chrono::hours(7 * 24);

}  // namespace

TimerId VirtualEventLoop::StartTimer(Milliseconds interval, std::function<void()> tick) {
  const TimerId id = ++last_timer_;
  auto timer = std::make_shared<Timer>();
  timer->interval = std::max(interval, Milliseconds(1));
  timer->tick = std::move(tick);
  timer->next = Schedule(now_ + timer->interval, {.kind = Kind::Tick, .action = nullptr, .timer = id});
  timers_.emplace(id, std::move(timer));
  return id;
}

void VirtualEventLoop::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found != timers_.end()) {
    queue_.erase(found->second->next);  // not there while the timer ticks
    timers_.erase(found);
  }
}

void VirtualEventLoop::At(Clock time, std::function<void()> action) {
  Schedule(time, {.kind = Kind::Program, .action = std::move(action)});
  ++one_off_events_;
}

void VirtualEventLoop::Outside(Clock time, std::function<void()> happening) {
  Schedule(time, {.kind = Kind::World, .action = std::move(happening)});
  ++one_off_events_;
}

VirtualEventLoop::Key VirtualEventLoop::Schedule(Clock time, Event event) {
  const Key key{.time = std::max(time, now_), .sequence = next_sequence_++};
  queue_.emplace(key, std::move(event));
  return key;
}

void VirtualEventLoop::Pump() {
  ++pumps_;
  if (on_pump_ && !in_hook_) {
    in_hook_ = true;
    Gate().Enter(on_pump_);
    in_hook_ = false;
  }
  Gate().RaiseIfEnded();
  while (!DeliverDue()) {
    if (queue_.empty()) {
      throw std::logic_error("nothing will ever happen");
    }
    JumpToNext();
    if (now_ > kEndOfTime) {
      throw std::logic_error("a wait never ends: only timers tick");
    }
  }
  Gate().RaiseIfEnded();
}

void VirtualEventLoop::RunFor(Clock duration) {
  const Clock end = now_ + duration;
  while (!Gate().Ended() && !queue_.empty() && queue_.begin()->first.time <= end) {
    JumpToNext();
    DeliverDue();
  }
  now_ = std::max(now_, end);
}

void VirtualEventLoop::RunUntilIdle() {
  while (!Gate().Ended() && one_off_events_ > 0) {
    JumpToNext();
    DeliverDue();
  }
}

void VirtualEventLoop::JumpToNext() { now_ = std::max(now_, queue_.begin()->first.time); }

// Delivers what is due and was scheduled before this call; true when something entered the program.
bool VirtualEventLoop::DeliverDue() {
  const std::uint64_t end = next_sequence_;
  bool entered = false;
  while (!Gate().Ended() && !queue_.empty()) {
    const Key key = queue_.begin()->first;
    if (key.time > now_ || key.sequence >= end) {
      break;
    }
    const Event event = std::move(queue_.extract(queue_.begin()).mapped());
    entered = Deliver(event, key.time) || entered;
  }
  return entered;
}

bool VirtualEventLoop::Deliver(const Event& event, Clock due) {
  if (event.kind == Kind::Tick) {
    return Tick(event.timer, due);
  }
  --one_off_events_;
  if (event.kind == Kind::World) {
    event.action();
    return false;
  }
  Gate().Enter(event.action);
  return true;
}

bool VirtualEventLoop::Tick(TimerId id, Clock due) {
  const std::shared_ptr<Timer> timer = timers_.at(id);  // a tick may stop its own timer
  Gate().Enter(timer->tick);
  if (timers_.contains(id)) {
    const Clock interval = timer->interval;
    const Clock next = due + interval * ((now_ - due) / interval + 1);
    timer->next = Schedule(next, {.kind = Kind::Tick, .action = nullptr, .timer = id});
  }
  return true;
}

}  // namespace korva
