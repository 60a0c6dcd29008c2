#pragma once

#include "pages/kv_config_v3/models.h"

namespace korva {

/// The alarms that their type can switch off: an alarm that is off has no values, neither on the page nor in
/// the device.
class KvConfigV3Alarms final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit KvConfigV3Alarms(ParameterPage& page) : page_(page) { page_.Add(*this); }

  void PageBuilt() override { SettleAlarms(); }
  void ChoiceMade(const Choice& choice) override;

  /// False when the row is one of an alarm that is off.
  [[nodiscard]] bool Applies(int row) const;
  /// Marks the direction of each alarm in use that has none.
  bool CheckDirections();

 private:
  [[nodiscard]] bool Off(const SwitchedAlarm& alarm) const;
  /// Disables the rows of the model's alarms that are off, and enables all others.
  void SettleAlarms();
  void DisableRow(StringView item);
  /// The combo box of an item of group "01"; nullptr when the model has none.
  [[nodiscard]] ComboBox* FindBox(StringView item);
  /// Opens what was of no use before its alarm was chosen.
  void OpenRows(const SwitchedAlarm& alarm);

  ParameterPage& page_;
};

}  // namespace korva
