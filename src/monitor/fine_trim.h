#pragma once

#include "core/field_range.h"
#include "files/parameter_page.h"
#include "monitor/live_source.h"
#include "monitor/trim_buttons.h"

namespace korva {

/// One end of an output whose device takes a trim as a value, in an item of group "01".
struct FineTrimEnd {
  std::string_view name;  ///< that its controls have in common: "Out1Zero" for cmdOut1ZeroStart, txtOut1Zero
  StringView item;
  TextKey caption;
  double origin = 0;  ///< what the box shows, in percent, when the item holds 0
  StringView low;     ///< the limits as the box shows them, in percent, both allowed
  StringView high;
  BoxKey out_of_range;  ///< (low, high)
};

// The ends of two outputs: zero in percent, span as what it differs from 100 percent.
extern const FineTrimEnd kFirstZeroTrim;
extern const FineTrimEnd kFirstSpanTrim;
extern const FineTrimEnd kSecondZeroTrim;
extern const FineTrimEnd kSecondSpanTrim;

/// Trims one end of an output by values: shows the device's trim again and again, and moves it at the user's
/// presses.
///
///     Idle --START--> Running --STOP--> Stopping --end of the turn--> Idle
///
/// Running is a loop inside the press of START; its waits let events in. The page stays usable, but nothing
/// that would start another exchange can be reached (Page::BarExchanges); a close request ends the program at
/// the next pause. Each press is carried out, in its order and at once, since it cuts the wait of a turn
/// short; STOP drops those that wait. Behind a step the device is sent to monitor mode anew. A device that
/// doesn't take that mode, then or at the start, ends the trim, after the box.
///
/// The device is sent whole values, counted from what the box shows. So a step goes out only when the device
/// has told its trim at the last reading: from a span that is shown as 100 because nothing was told it would
/// jump. A step that would lead out of the limits is refused with its box.
class FineTrim final : public PagePart, public RangeTeller, public TrimButtons, public LiveSource {
 public:
  /// Adds itself and its controls to the page. All outlive this.
  FineTrim(ParameterPage& page, const FineTrimEnd& end);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void PageCleared() override;
  void PageBuilt() override;  ///< shows the controls to models that have the item

  /// The limits of its box.
  [[nodiscard]] std::optional<FieldRange> RangeOfField(const TextField& field) const override;

  /// The press of START or STOP. START does nothing on a model without the item, and while an operation runs.
  void StartOrStop();
  [[nodiscard]] bool Running() const { return running_; }

  Label CaptionLabel;
  TextField Box;
  Label UnitLabel;

 private:
  void Start();
  void Stop();
  void Run();
  void ShowState();
  void Turn();
  void Apply(const String& step);
  /// Sends `data`; true when the device took it.
  bool Send(const String& data);
  /// Shows the trim of an answer for the time of a turn; without one what the end shows then.
  void ShowTold(const String& answer);
  void ShowForATurn(const String& text, bool answered);
  /// Waits, but not beyond a press or STOP.
  void Wait(int milliseconds);

  ParameterPage& page_;
  const FineTrimEnd& end_;
  StepRequest request_{Presses::AllCount};  ///< in percent
  bool running_ = false;
  bool barred_ = false;
  bool told_ = false;  ///< the box shows what the device told
};

}  // namespace korva
