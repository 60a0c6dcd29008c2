#pragma once

#include "core/page.h"

namespace korva {

/// Milliseconds for which a live value that was read is highlighted: the pace of a loop.
inline constexpr int kShowTime = 500;

// A control under update is painted in the highlight, and at rest in its rest look.
void PaintHighlight(TextField& field);
void PaintHighlight(Label& label);
void PaintRest(TextField& field);
void PaintRest(Label& label);
/// From the highlight to the rest look, from any other look to the highlight.
void ToggleTextColour(TextField& field);
void ToggleLabelColour(Label& label);

/// Period of the colours of a control under update.
inline constexpr Milliseconds kBlinkPeriod{200};

/// Enables a button that ends what has locked the frame, and the tab on which it stands, so that the user can
/// reach it; the other tabs stay locked.
void KeepInReach(Page& page, Button& button);

/// A field or label blinks while an exchange about it runs: painted in the highlight and toggled with each
/// tick of the timer as long as this lives; then the timer is stopped and the control is at rest.
template <typename T>
class Blinking {
 public:
  Blinking(T& control, Timer& timer) : control_(control), timer_(timer) {
    PaintHighlight(control_);
    timer_.OnTick = [this] { Toggle(control_); };
    timer_.Start();
  }
  Blinking(const Blinking&) = delete;
  Blinking& operator=(const Blinking&) = delete;
  ~Blinking() {
    timer_.Stop();
    timer_.OnTick = nullptr;
    PaintRest(control_);
  }

 private:
  static void Toggle(TextField& field) { ToggleTextColour(field); }
  static void Toggle(Label& label) { ToggleLabelColour(label); }

  T& control_;
  Timer& timer_;
};

}  // namespace korva
