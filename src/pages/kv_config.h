#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "monitor/status_monitor.h"
#include "transfer/transfer_page.h"

namespace korva {

/// The page of family First, the root page: it shows first and opens the port at the program's start.
class KvConfig final : public TransferPage {
 public:
  KvConfig(Program& program, const Family& family, DeviceLink& link);

  void SetCaptions(Language language) override;
  [[nodiscard]] int LnrTab() const override;
  void SetUpTable(int points) override { linearizer_.SetUp(points); }
  void ClearTable() override { linearizer_.Clear(); }

  OptionGroup Opt_Table{"Opt_Table", 2};
  OptionGroup Opt_Lnr{"Opt_Lnr", 2};
  OptionGroup Opt_Root{"Opt_Root", 2};
  OptionGroup Opt_Backup{"Opt_Backup", 3};
  OptionGroup Opt_Updown{"Opt_Updown", 3};
  OptionGroup Opt_Alarm{"Opt_Alarm", 4};
  OptionGroup Opt_Recovery{"Opt_Recovery", 2};

 protected:
  void PreparePort() override;
  void ClosePort() override;

  /// The table and its editor: an upload enables their tab before it reads the table.
  std::vector<Control*> FurtherLockedControls() override;

  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override;
  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;
  void ApplyModelRules(const String& item) override;
  void AfterOption(const OptionRule& rule, int place) override;
  void ShowModelControls() override;
  void SettleFlaggedTabs() override;
  [[nodiscard]] bool InputTypeUsesTable() const override;
  [[nodiscard]] const OptionGroup* SwitchOptions(TableSwitch table_switch) const override;

  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  bool CheckModel() override;
  bool CheckTable() override { return linearizer_.CheckLnrTable(); }
  [[nodiscard]] bool IsTableBlank() const override { return linearizer_.IsBlank(); }
  bool UploadTable(const ParameterSet& before) override {
    return linearizer_.Upload(Traits().table_points, before);
  }
  bool DownloadTable() override { return linearizer_.DownloadLnr(); }

 private:
  // Model rules, kv_config_rules.cpp.
  void ListRangeAnew();
  void ApplyRangeDefaults();
  void ResetRangeToType();
  void SelectCelsius();
  void RuleQUO();
  void RuleQH();
  void RuleQHG();
  /// Opens the fields of `items` and empties the items `emptied`, or closes the fields as of no use. Does
  /// nothing unless all `items` have fields.
  void OpenOrCloseItems(bool open, std::initializer_list<int> items, std::initializer_list<int> emptied);
  [[nodiscard]] String InputTypeCode() const;
  [[nodiscard]] Frame* TemperatureFrame();

  StatusMonitor monitor_;
  OutputSetting output_;
  Linearizer linearizer_;
};

}  // namespace korva
