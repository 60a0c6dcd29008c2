#include "monitor/step_request.h"

#include <algorithm>

namespace korva {

void StepRequest::Offer(Button& button, StringView step) {
  offered_.emplace_back(button);
  button.OnClick = [this, &button, text = String(step)] {
    if (presses_ == Presses::LastCounts) {
      waiting_.clear();
    }
    waiting_.push_back({.button = &button, .step = text});
    ShowWaiting();
  };
}

void StepRequest::CarryOut(const std::function<void(const String& step)>& action) {
  if (!Waits()) {
    return;
  }
  const Press first = waiting_.front();
  waiting_.erase(waiting_.begin());
  ShowWaiting(first.button);
  action(first.step);
  ShowWaiting();
}

void StepRequest::Drop() {
  waiting_.clear();
  ShowWaiting();
}

void StepRequest::ShowWaiting(const Button* busy) {
  for (Button& button : offered_) {
    button.SetPending(&button == busy ||
                      std::any_of(waiting_.begin(), waiting_.end(),
                                  [&](const Press& press) { return press.button == &button; }));
  }
}

}  // namespace korva
