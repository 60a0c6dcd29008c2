#pragma once

#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <map>

namespace korva {

/// The system's wish that the program end (SIGINT, SIGTERM, SIGHUP) as an event of the application's loop.
/// While an object lives, none of these signals ends the process by itself. One object at a time.
class EndSignals {
 public:
  /// `action` is called from the loop, outside the gate, after one or several signals. The application object
  /// must exist. Throws std::system_error when the system refuses.
  explicit EndSignals(std::function<void()> action);
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  ~EndSignals();

 private:
  void Drain() const;

  std::map<int, struct sigaction> former_;
  QSocketNotifier notifier_;
};

}  // namespace korva
