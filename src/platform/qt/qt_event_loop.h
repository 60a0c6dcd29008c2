#pragma once

#include <QBasicTimer>
#include <QObject>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "platform/event_loop.h"

namespace korva {

/// The event loop in real time, on the loop of the application (QCoreApplication or one of its children),
/// which must exist for as long as this does.
///
/// Handlers run inside Qt's own frames, so each enters through the gate, and no exception reaches Qt.
class QtEventLoop final : public QObject, public EventLoop {
 public:
  QtEventLoop();
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;
  ~QtEventLoop() override;

  /// Call before the application object is made: chooses the Qt event dispatcher that needs the fewest system
  /// calls for a wait.
  static void ChooseDispatcher();

  [[nodiscard]] Clock Now() const override { return std::chrono::steady_clock::now() - start_; }
  [[nodiscard]] Date Today() const override;
  TimerId StartTimer(Milliseconds interval, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;
  void Pump() override;

  /// Runs the application's loop until Exit; returns its status. Returns at once when Exit was called before.
  int Run();

  /// Leaves Run, which returns `status`. The first call counts.
  void Exit(int status);

 protected:
  void timerEvent(QTimerEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Timer {
    Milliseconds interval{0};
    std::function<void()> tick;
    Clock due{0};
  };
  using Due = std::pair<Clock, TimerId>;

  void Arm();
  void Tick(TimerId id);

  std::chrono::steady_clock::time_point start_;
  TimerId last_timer_ = 0;
  std::map<TimerId, std::shared_ptr<Timer>> timers_;
  std::map<Due, TimerId> queue_;
  // One Qt timer serves all. It may fire too early (then nothing is due), never too late.
  QBasicTimer alarm_;
  Clock alarm_time_{0};
  std::uint64_t events_ = 0;
  std::optional<int> status_;
};

}  // namespace korva
