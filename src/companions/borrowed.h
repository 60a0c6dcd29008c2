#pragma once

#include <functional>
#include <utility>

#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace korva {

// Surroundings of a program within the program.

/// The running program's loop under a gate of its own, so that the other one's ending is not its own.
class BorrowedLoop final : public EventLoop {
 public:
  /// The loop outlives this.
  explicit BorrowedLoop(EventLoop& loop) : loop_(loop) {}
  [[nodiscard]] Clock Now() const override { return loop_.Now(); }
  [[nodiscard]] Date Today() const override { return loop_.Today(); }
  TimerId StartTimer(Milliseconds interval, std::function<void()> tick) override {
    return loop_.StartTimer(interval, std::move(tick));
  }
  void StopTimer(TimerId timer) override { loop_.StopTimer(timer); }
  void Pump() override { loop_.Pump(); }

 private:
  EventLoop& loop_;
};

/// Lets warnings through to the user, answers questions with yes by itself, and keeps reports back.
class QuietDialogs final : public Dialogs {
 public:
  /// The dialogs outlive this.
  explicit QuietDialogs(Dialogs& dialogs) : dialogs_(dialogs) {}
  Answer ShowBox(const Box& box) override {
    if (box.buttons.size() > 1) {
      return Offers(box, Answer::Yes) ? Answer::Yes : Answer::Ok;
    }
    if (box.icon == BoxIcon::Plain) {
      return box.buttons.front();
    }
    warned_ = true;
    return dialogs_.ShowBox(box);
  }
  std::optional<String> ChooseFile(const FileDialog& /*dialog*/) override { return std::nullopt; }
  void ShowFailure(const String& text) override { dialogs_.ShowFailure(text); }
  /// True when a warning was let through.
  [[nodiscard]] bool Warned() const { return warned_; }

 private:
  Dialogs& dialogs_;
  bool warned_ = false;
};

}  // namespace korva
