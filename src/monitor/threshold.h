#pragma once

#include <array>
#include <optional>

#include "core/field_range.h"
#include "monitor/status_monitor.h"
#include "monitor/step_request.h"
#include "monitor/threshold_family.h"

namespace korva {

/// Limits of a threshold in volts, as the definition writes them; both count.
struct ThresholdLimits {
  String low;
  String high;
};

/// The limits that stand in the row of an item of group "01"; nothing when there are none.
std::optional<ThresholdLimits> LimitsInRow(const ParameterPage& page, StringView item);

/// The same as numbers.
std::optional<FieldRange> RangeOfThreshold(const std::optional<ThresholdLimits>& limits);

/// True for an empty text, and for a number within the limits. A number may have "%" behind it, which changes
/// nothing, or a unit of frequency: "Hz", "kHz" (1000 times as much), "mHz" (a thousandth).
bool ValueInRange(const String& text, const ThresholdLimits& limits);

/// The threshold of a frequency input: lets the user move it in steps while he watches what the device
/// counts.
///
///     Idle --Start--> Running --Stop--> Stopping --end of the turn--> Idle
///
/// Running is a loop inside the press of cmdThresholdStart; a turn shows the threshold for half a second and
/// the measured frequency for another. The page stays usable, but nothing that would start another exchange
/// can be reached (Page::BarExchanges); a close request ends the program at the next pause. A step is carried
/// out at the next turn; a second press before that takes the place of the first. The loop never ends by
/// itself: a threshold that isn't told leaves the box as it is, without the highlight, and a frequency
/// empties its box.
///
/// The box is that of the parameter, so the set follows what the device holds. A value that the device was
/// not sent, since it is out of range, marks the box as bad until the next one that is taken.
class Threshold final : public PagePart, public RangeTeller, public LiveSource {
 public:
  /// Adds itself and its controls to the page. `monitor` is the page's, and fills `unitMeasFreq`. All
  /// outlive this.
  Threshold(ParameterPage& page, const ThresholdFamily& family, StatusMonitor& monitor);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  [[nodiscard]] std::function<void()> Keep() override {
    return [this, usable = usable_] { SetUsable(usable); };
  }
  void PageCleared() override;
  void PageBuilt() override;  ///< shows the controls to models that have the threshold

  /// The limits of its box, where the set has the range that tells them.
  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;

  /// The press of cmdThresholdStart. As START it sends what stands in the box, and returns when the loop has
  /// ended, or, after the box of the mode change, when the device doesn't take monitor mode; it does nothing
  /// on a model without a threshold and while another operation runs. As STOP it ends the loop; a step that
  /// waits is dropped.
  void StartOrStop();
  /// Opens or closes START and the frame around it, by what the input is. A loop that runs ends when it is
  /// closed.
  void SetUsable(bool usable);
  [[nodiscard]] bool Usable() const { return usable_; }

  Button cmdThresholdStart{"cmdThresholdStart"};
  Button cmdThresholdM1{"cmdThresholdM1"};
  Button cmdThresholdM01{"cmdThresholdM01"};
  Button cmdThresholdM001{"cmdThresholdM001"};
  Button cmdThresholdP001{"cmdThresholdP001"};
  Button cmdThresholdP01{"cmdThresholdP01"};
  Button cmdThresholdP1{"cmdThresholdP1"};
  Label lblThreshold{"lblThreshold"};  ///< the limits
  Label lblMeasFreq{"lblMeasFreq"};
  TextField txtMeasFreq{"txtMeasFreq"};
  Label unitMeasFreq{"unitMeasFreq"};

 private:
  /// A button and its step in volts.
  struct Step {
    Button* button;
    StringView volts;
  };

  [[nodiscard]] Frame* ItsFrame() const;
  void Start();
  void Stop();
  void Run(TextField& box);
  void ShowState();
  void ShowThresholdRange();
  /// The limits, read from the device where its range tells them; nothing when it doesn't.
  [[nodiscard]] std::optional<ThresholdLimits> ReadLimits() const;
  /// The limits of a range by what tells of it.
  [[nodiscard]] std::optional<ThresholdLimits> LimitsOfRange(const String& told) const;
  void ApplyBox(TextField& box);
  void ApplyThresholdStep(TextField& box, const String& step);
  /// Sends a value within the limits; refuses any other.
  void Send(TextField& box, const String& value, const ThresholdLimits& limits);
  void ShowThreshold(TextField& box);
  void ShowMeasuredFrequency();
  /// The device's threshold; empty when it told no number.
  [[nodiscard]] String ReadThreshold(int repeats) const;
  [[nodiscard]] String NumberOf(const String& answer) const;
  // Both leave a box alone that was closed meanwhile.
  void Show(TextField& box, const String& value) const;
  void Paint(TextField& box, Look look) const;

  ParameterPage& page_;
  const ThresholdFamily& family_;
  StatusMonitor& monitor_;
  std::array<Step, 6> steps_;
  StepRequest request_;  ///< in volts
  bool running_ = false;
  bool barred_ = false;
  bool usable_ = true;
  bool refused_ = false;  ///< the last value was out of range
};

}  // namespace korva
