#pragma once

#include <functional>
#include <optional>
#include <stdexcept>

#include "platform/string.h"

namespace korva {

/// Thrown by a wait that noticed the user's close request: unwinds every handler on the stack.
struct ProgramEnd {};

/// Thrown where nothing can go on (a missing catalogue, an item address outside the parameter set):
/// unwinds every handler on the stack; the program then shows `Text` in the error box and ends with status 1.
class RuntimeFailure : public std::runtime_error {
 public:
  /// `text` says in words for the user what could not be done with which file, value or exchange.
  explicit RuntimeFailure(String text) : std::runtime_error("run-time failure"), text_(std::move(text)) {}

  [[nodiscard]] const String& Text() const { return text_; }

 private:
  String text_;
};

/// How the program ended inside a handler: without a text, the user closed it; with one, it failed.
struct Ending {
  std::optional<String> failure;
};

/// The one gate through which every event (timer, click, received data) enters the program.
///
/// States: running, then ended for good. A handler that ends the program unwinds up to the gate that let its
/// event in; that gate keeps the ending. A pump further out then raises it again (RaiseIfEnded), so nested
/// handlers end in order and their destructors run. Once ended, no further event is let in. When the
/// outermost handler has unwound, `OnEnded` is called, once.
class EventGate {
 public:
  /// Lets one event in: runs `handler` unless the program has ended. Never throws ProgramEnd or
  /// RuntimeFailure.
  void Enter(const std::function<void()>& handler);

  /// Called by each pump after it has delivered events: raises the ending again, if there is one.
  void RaiseIfEnded() const;

  [[nodiscard]] bool Ended() const { return ending_.has_value(); }

  /// What to do once, when the program has ended and the last handler has unwound.
  void OnEnded(std::function<void(const Ending&)> action) { on_ended_ = std::move(action); }

 private:
  int depth_ = 0;
  std::optional<Ending> ending_;
  std::function<void(const Ending&)> on_ended_;
};

}  // namespace korva
