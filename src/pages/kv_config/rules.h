#pragma once

#include <initializer_list>

#include "files/parameter_page.h"

namespace korva {

class KvConfig;

/// What a choice of the input type, the range or the filter means for the other items of family First, model
/// by model.
class KvConfigRules final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit KvConfigRules(KvConfig& page);

  void RowShown(int row) override;
  void PageBuilt() override;
  void ChoiceMade(const Choice& choice) override;

 private:
  void ApplyModelRules(const String& item);
  /// A fixed input type shows the first row of its list.
  void ListFixedInputType(ComboBox& box);
  /// Opens or closes the filter's fields by the filter type in item 23.
  void ApplyFilterRule();
  /// Ranges that tell voltages have one that is told in mV.
  void ApplyMillivoltRule(const String& range);
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

  KvConfig& page_;
};

}  // namespace korva
