#include "monitor/step_request.h"

#include <utility>

namespace korva {

void StepRequest::Offer(Button& button, StringView step) {
  button.OnClick = [this, &button, text = String(step)] {
    step_ = text;
    ShowWaiting(&button);
  };
}

void StepRequest::CarryOut(const std::function<void(const String& step)>& action) {
  if (!Waits()) {
    return;
  }
  action(std::exchange(step_, {}));
  if (!Waits()) {
    ShowWaiting(nullptr);
  }
}

void StepRequest::Drop() {
  step_.clear();
  ShowWaiting(nullptr);
}

void StepRequest::ShowWaiting(Button* button) {
  if (button_ != nullptr && button_ != button) {
    button_->SetPending(false);
  }
  button_ = button;
  if (button_ != nullptr) {
    button_->SetPending(true);
  }
}

}  // namespace korva
