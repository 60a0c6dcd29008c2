#pragma once

#include <optional>

#include "core/field_range.h"
#include "files/parameter_page.h"
#include "monitor/live_source.h"
#include "monitor/trim_buttons.h"

namespace korva {

// Item 28 answers with zero and span in one text, "0.0100 1.0000", as fractions of full scale.

/// The text before the first blank, all of it when no blank stands inside.
String ZeroFromTrimAnswer(StringView answer);
/// The text behind the first blank; empty when no blank stands inside.
String SpanFromTrimAnswer(StringView answer);

/// One end of an output that can be trimmed, and how its device takes a trim. Items are of group "01".
struct TrimEnd {
  StringView key;         ///< row of the box that shows the trim
  std::string_view name;  ///< that its controls have in common: "OutZero" for cmdOutZeroStart
  StringView read_item;
  /// The trim in percent that an answer of `read_item` tells; nothing when it tells none.
  std::optional<double> (*percent_of)(StringView answer);
  StringView write_item;
  /// What is sent for a step, a text in hundredths of a percent that leads to `target` percent.
  String (*data_of)(StringView step, double target);
  StringView reset_data;
  StringView low;  ///< the limits of the trim in percent, both allowed
  StringView high;
  BoxKey out_of_range;           ///< (low, high)
  StringView untold;             ///< what an upload shows when the device tells no trim
  bool in_monitor_mode = false;  ///< a trim begins with the change to monitor mode
};

// The ends of an output that takes differences: zero and span by items 28 and 29.
extern const TrimEnd kZeroTrim;
extern const TrimEnd kSpanTrim;

/// Trims one end of the output: shows the device's trim again and again, and steps it at the user's presses.
///
///     Idle --START--> Running --STOP--> Stopping --end of the turn--> Idle
///
/// Running is a loop inside the press of START; its waits let events in. The frame is locked, with the
/// buttons of this trim alone in reach; a close request ends the program at the next pause. START first
/// carries the value that stands in the box to the device; a step pressed meanwhile is dropped. A step is
/// carried out at the next turn, and a second press before that takes the place of the first. STOP frees the
/// frame at once, and a step that waits is dropped; nothing else begins until the turn has ended. A read
/// without an answer leaves the box as it is, and the loop goes on.
///
/// The device is sent differences, so a step goes out only when the device has told from where. One that
/// would lead out of the limits is refused with its box.
class OutputTrim final : public PagePart, public RangeTeller, public TrimButtons, public LiveSource {
 public:
  /// Adds itself and its controls to the page. All outlive this.
  OutputTrim(ParameterPage& page, const TrimEnd& end);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override { StartButton.SetEnabled(!barred); }
  void PageBuilt() override;  ///< shows the controls to models that have the box
  [[nodiscard]] std::optional<String> ShownText(int row) const override;
  /// The set keeps what the device told: what is typed into the box is a target.
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override;

  /// The limits of its box.
  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;

  /// The press of START or STOP. START does nothing on a model without the box, and while an operation runs.
  void StartOrStop();
  [[nodiscard]] bool Running() const { return running_; }

 private:
  void Start();
  void Stop();
  void Turn(TextField& box);
  /// Brings the value in the box to the device.
  void CarryOver(const TextField& box);
  void Apply(const String& step);
  /// ZeroTrimStep, SpanTrimStep: a text in hundredths of a percent.
  void Step(const String& step);
  static void ShowTold(TextField& box, const String& percent);
  [[nodiscard]] String Read() const;
  [[nodiscard]] bool IsItsRow(int row) const { return row >= 0 && row == page_.FindDataRow(end_.key); }

  ParameterPage& page_;
  const TrimEnd& end_;
  StepRequest request_;
  bool running_ = false;
};

}  // namespace korva
