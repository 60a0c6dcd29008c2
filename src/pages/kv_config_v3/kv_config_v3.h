#pragma once

#include <optional>
#include <span>
#include <vector>

#include "monitor/count_setting.h"
#include "monitor/io_check.h"
#include "monitor/item_command.h"
#include "pages/kv_config_v3/models.h"
#include "pages/seven_tab_page.h"

namespace korva {

/// The page of family Third: pulse and frequency inputs, counters and alarm units. Counters set their counts
/// and reset them on the tab I/O check.
class KvConfig_V3 final : public SevenTabPage {
 public:
  KvConfig_V3(Program& program, const Family& family, DeviceLink& link);

  void SetCaptions(Language language) override;
  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::span<const UnitList> UnitLists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;

  OptionGroup Opt_Direction{"Opt_Direction", 2};      ///< of the alarms
  OptionGroup Opt_Direction09{"Opt_Direction09", 2};  ///< of the count's alarm
  OptionGroup Opt_Rotation{"Opt_Rotation", 2};

  Button cmdSet2{"cmdSet2"};
  Button cmdSet3{"cmdSet3"};
  Button Command_I12{"Command_I12"};
  Button Command_I13{"Command_I13"};
  Timer Item04_MonitorTimer;
  Timer Item06_MonitorTimer;
  Timer Item12_Timer;
  Timer Item13_Timer;

 protected:
  std::vector<Control*> FurtherLockedControls() override;

  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override { return KvConfigV3Models(); }
  /// A box for a count to set starts empty: the set keeps the count that the device showed last.
  [[nodiscard]] String ShownText(int row) const override;
  void ApplyModelRules(const String& item) override;
  void ShowModelControls() override;

  void AfterItemRead(int row) override;
  bool CheckInputType() override;
  [[nodiscard]] bool Applies(int row) const override;
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  [[nodiscard]] std::span<const StringView> LiveItems() const override;
  bool CheckFields() override;
  bool CheckModel() override;

 private:
  /// The captions above set and shown values, which counters have of their own.
  void ShowHeads();

  // Alarms, kv_config_v3_alarms.cpp.
  [[nodiscard]] bool Off(const SwitchedAlarm& alarm) const;
  /// Disables the rows of the model's alarms that are off, and enables all others.
  void SettleAlarms();
  void DisableRow(StringView item);
  /// The combo box of an item of group "01"; nullptr when the model has none.
  [[nodiscard]] ComboBox* FindBox(StringView item);
  /// Opens what was of no use before its alarm was chosen.
  void OpenRows(const SwitchedAlarm& alarm);
  /// Marks the direction of each alarm in use that has none.
  bool CheckDirections();

  IoCheck io_check_{*this};
  CountSetting count03_{*this, kCount03, io_check_.Monitor(), Item03_MonitorTimer};
  CountSetting count04_{*this, kCount04, io_check_.Monitor(), Item04_MonitorTimer};
  CountSetting count06_{*this, kCount06, io_check_.Monitor(), Item06_MonitorTimer};
  ItemCommand command12_{*this, u"12", Item12_Timer};
  ItemCommand command13_{*this, u"13", Item13_Timer};
  Language language_ = Language::Japanese;
};

}  // namespace korva
