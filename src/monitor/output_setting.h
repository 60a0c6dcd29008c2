#pragma once

#include "core/field_range.h"
#include "monitor/output_family.h"
#include "monitor/status_monitor.h"

namespace korva {

/// The output setting of a page: forces the output to a percentage and holds it until the user ends it.
///
///     Idle --Set--> Forcing --Off--> Idle
///
/// In Forcing the device is in programming mode and holds the output at the value sent; CommBusy is set and
/// the frame is locked, with cmdStatusMonOFF alone in reach. A value that is out of range, or a device that
/// doesn't take programming mode, leaves Idle. Off unlocks the page whatever the device says.
///
/// A close request made while the output is forced, or during Off, is held: a program that ended there would
/// leave the plant with an output that nobody controls any more. Off ends the program once the device is back
/// in monitor mode. When the device doesn't take monitor mode the window stays, since the output may still be
/// forced, and the user, who has seen the box of the failure, can press cmdStatusMonOFF again.
class OutputSetting final : public PagePart, public RangeTeller {
 public:
  /// Adds itself and its controls to the page. `monitor` is the page's, whose boxes are put to rest. All
  /// outlive this.
  OutputSetting(ParameterPage& page, const OutputFamily& family, StatusMonitor& monitor);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void OutputForced(bool forced) override;
  void PageBuilt() override;  ///< shows the controls to models that have a box for the value

  /// The limits of the value to force, where a count does not take its place.
  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;

  /// cmdSet. Does nothing on a model without a box for the value, and while an operation runs.
  void Set();
  /// cmdStatusMonOFF: returns the device to monitor mode, then ends the program if the user wanted to close
  /// it meanwhile. The box for the value gets the focus. Does nothing while another operation runs.
  void Off();

  Button cmdSet{"cmdSet"};
  Button cmdStatusMonOFF{"cmdStatusMonOFF"};
  Label IO_lblSet{"IO_lblSet"};
  Timer Item03_MonitorTimer;

 private:
  bool CheckOutputSet(const TextField& set_box) const;
  void Force(TextField& set_box);
  bool EnterForcingMode();
  /// What shows the value that the device took.
  [[nodiscard]] std::vector<TextField*> MonitorBoxes() const;
  [[nodiscard]] String PrefixOf(StringView key) const;
  void TellForced(const String& value);

  ParameterPage& page_;
  const OutputFamily& family_;
  StatusMonitor& monitor_;
  bool holding_ = false;  ///< Forcing, from the end of Set to Off
};

}  // namespace korva
