#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "monitor/io_check.h"
#include "pages/seven_tab_page.h"

namespace korva {

/// The page of family First, the root page: it shows first and opens the port at the program's start.
class KvConfig final : public SevenTabPage {
 public:
  KvConfig(Program& program, const Family& family, DeviceLink& link);

  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;

  OptionGroup Opt_Root{"Opt_Root", 2};
  OptionGroup Opt_Backup{"Opt_Backup", 3};
  OptionGroup Opt_Updown{"Opt_Updown", 3};
  OptionGroup Opt_Alarm{"Opt_Alarm", 4};
  OptionGroup Opt_Recovery{"Opt_Recovery", 2};

 protected:
  void ClosePort() override;

  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override;
  void ApplyModelRules(const String& item) override;
  void ShowModelControls() override;
  [[nodiscard]] bool InputTypeUsesTable() const override;

  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  bool CheckModel() override;

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

  IoCheck io_check_{*this};
};

}  // namespace korva
