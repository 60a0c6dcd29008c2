#pragma once

#include <functional>
#include <vector>

#include "core/control.h"

namespace korva {

/// What becomes of a press while another one waits.
enum class Presses {
  LastCounts,  ///< it takes the place of the other
  AllCount,    ///< both are carried out, in their order
};

/// What the user asks of a live loop by its buttons. A press shows at once that it waits (Button::Pending),
/// and is carried out at the loop's next turn.
class StepRequest {
 public:
  explicit StepRequest(Presses presses = Presses::LastCounts) : presses_(presses) {}
  StepRequest(const StepRequest&) = delete;
  StepRequest& operator=(const StepRequest&) = delete;
  ~StepRequest() = default;

  /// Lets a press of `button`, which outlives this, ask for `step`, a text that isn't empty.
  void Offer(Button& button, StringView step);
  [[nodiscard]] bool Waits() const { return !waiting_.empty(); }
  /// Has `action` carry out what waits first, if anything does. A press meanwhile waits for the next time.
  void CarryOut(const std::function<void(const String& step)>& action);
  void Drop();

 private:
  struct Press {
    Button* button;
    String step;
  };

  /// Shows which buttons wait: those of the presses, and `busy` as long as its step is carried out.
  void ShowWaiting(const Button* busy = nullptr);

  Presses presses_;
  std::vector<Press> waiting_;
  std::vector<std::reference_wrapper<Button>> offered_;
};

}  // namespace korva
