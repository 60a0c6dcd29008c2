#pragma once

#include "monitor/live_source.h"
#include "monitor/monitor_family.h"

namespace korva {

/// The status monitor of a page: shows the device's live values while the user watches.
///
///     Idle --Start--> Monitoring --RequestStop--> Stopping --end of the cycle--> Idle
///
/// Monitoring is a loop inside the press of cmdMonitorON; its waits let events in. While it runs CommBusy is
/// set and the frame is locked, so that nothing else can start an exchange; cmdMonitorOFF alone is in reach.
/// A stop is honoured between cycles only: each cycle that began reads all its items. The loop never ends by
/// itself: a read without an answer empties its box, and the next item is read.
class StatusMonitor final : public PagePart, public LiveSource {
 public:
  /// Adds itself and its controls to the page, which outlives this.
  StatusMonitor(ParameterPage& page, const MonitorFamily& family);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  /// While the output is forced no value is read: what stands in the boxes is dimmed.
  void OutputForced(bool forced) override;
  void PageBuilt() override;  ///< shows the controls to models that have a monitor

  /// cmdMonitorON. Does nothing on a model without monitor items, or while an operation runs. Returns, after
  /// the box of the mode change, when the device doesn't take monitor mode; else when it was stopped.
  void Start();
  /// cmdMonitorOFF. Does nothing while no operation runs.
  void RequestStop();
  /// Shows the unit of the measured frequency in `label` too, which outlives this.
  void ShowFrequencyUnitIn(Label& label) { frequency_unit_ = &label; }
  /// Puts the boxes of the cycle and their unit labels to rest.
  void ResetMonitorColours();
  /// Asks the device for the units of the live values and shows them.
  void ShowMonitorUnits();
  /// What is shown of a device's answer about the item of a row.
  [[nodiscard]] String ShownValue(int row, const String& answer) const;

  Button cmdMonitorON{"cmdMonitorON"};
  Button cmdMonitorOFF{"cmdMonitorOFF"};
  Frame fraMonitoring{"fraMonitoring"};
  Label IO_lblShow{"IO_lblShow"};
  Timer Item04_lblUnitTimer;
  Timer Item06_lblUnitTimer;

 private:
  [[nodiscard]] bool HasNoMonitorItems() const;
  bool EnterFirstMode();
  void ShowUnit(const UnitStep& step);
  [[nodiscard]] Label* UnitLabelOf(const UnitStep& step, const UnitRule& rule) const;
  /// The row of a live value; -1 when the model has none there, or has a parameter there.
  [[nodiscard]] int LiveRow(StringView key) const;
  void MonitorCycle();
  /// False when there was nothing to read.
  bool MonitorReadItem(StringView key);
  [[nodiscard]] String WithoutOffset(const String& item, const String& value) const;
  [[nodiscard]] Timer* TimerOf(UnitTimer timer);

  ParameterPage& page_;
  const MonitorFamily& family_;
  Label* frequency_unit_ = nullptr;
  UnitReader units_;
  Timer Item07_lblUnitTimer;
};

}  // namespace korva
