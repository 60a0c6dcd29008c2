#pragma once

#include <functional>

#include "core/control.h"

namespace korva {

/// What the user asks of a live loop by its buttons. A press shows at once that it waits (Button::Pending),
/// and is carried out at the loop's next turn; a second press before that takes the place of the first.
class StepRequest {
 public:
  StepRequest() = default;
  StepRequest(const StepRequest&) = delete;
  StepRequest& operator=(const StepRequest&) = delete;
  ~StepRequest() = default;

  /// Lets a press of `button`, which outlives this, ask for `step`, a text that isn't empty.
  void Offer(Button& button, StringView step);
  [[nodiscard]] bool Waits() const { return !step_.empty(); }
  /// Has `action` carry out what waits, if anything does. A press meanwhile waits for the next time.
  void CarryOut(const std::function<void(const String& step)>& action);
  void Drop();

 private:
  /// Shows that `button` alone waits; nullptr: none does.
  void ShowWaiting(Button* button);

  String step_;
  Button* button_ = nullptr;
};

}  // namespace korva
