#pragma once

#include <array>
#include <string_view>

#include "core/control.h"
#include "core/texts.h"
#include "monitor/step_request.h"

namespace korva {

/// What a step button asks for.
struct TrimSteps {
  StringView m01;  ///< -0.1 %
  StringView m001;
  StringView p001;
  StringView p01;
};
inline constexpr StringView kTrimReset = u"Reset";
inline constexpr double kTrimHundredths = 100;    ///< of a percent, the smallest step
inline constexpr StringView kTrimMask = u"0.00";  ///< of a trim that is shown

/// The buttons by which one end of an output is trimmed, and the label of its limits.
struct TrimButtons {
  /// `name` is what the controls have in common: "OutZero" for cmdOutZeroStart.
  explicit TrimButtons(std::string_view name);

  [[nodiscard]] std::array<Control*, 7> Controls();
  /// `low` and `high` are the limits in percent.
  void SetCaptions(StringView low, StringView high, Language language);
  /// Lets the buttons ask for steps, and for kTrimReset.
  void Offer(StepRequest& request, const TrimSteps& steps);
  /// START or STOP; the steps are in reach while the trim runs.
  void ShowRunning(bool running);

  Button StartButton;
  Button M01Button;  ///< -0.1 %
  Button M001Button;
  Button P001Button;
  Button P01Button;
  Button ResetButton;
  Label LimitsLabel;
};

}  // namespace korva
