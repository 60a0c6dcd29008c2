#include "platform/event_gate.h"

#include <utility>

namespace korva {

void EventGate::Enter(const std::function<void()>& handler) {
  if (Ended()) {
    return;
  }
  ++depth_;
  try {
    handler();
  } catch (const ProgramEnd&) {
    ending_ = Ending{};
  } catch (const RuntimeFailure& failure) {
    ending_ = Ending{failure.Text()};
  }
  --depth_;
  if (depth_ == 0 && Ended() && on_ended_) {
    std::exchange(on_ended_, nullptr)(*ending_);
  }
}

void EventGate::RaiseIfEnded() const {
  if (!ending_) {
    return;
  }
  if (ending_->failure) {
    throw RuntimeFailure(*ending_->failure);
  }
  throw ProgramEnd{};
}

}  // namespace korva
