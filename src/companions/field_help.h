#pragma once

#include <vector>

#include "core/field_range.h"
#include "files/parameter_page.h"

namespace korva {

/// Lets every input of a page tell what it is for, and marks a number that lies outside its limits.
///
/// The limits are those by which the page's own parts judge (RangeTeller). The mark follows the field: it is
/// there while a number stands outside, or breaks what it must keep with the other end of its pair, and not
/// while the field is blank, can't be typed into, or is marked as bad by a check. What an input tells is put
/// together when it is asked for.
class FieldHelp final : public PagePart {
 public:
  /// For a page whose other parts have all been added. It keeps this.
  explicit FieldHelp(ParameterPage& page);

  void DefinitionRead() override;
  void PageBuilt() override { JudgeRows(); }
  void ChoiceMade(const Choice& choice) override;
  /// A choice that is taken back limits other fields. The field of a value has been judged already.
  void FieldChanged(int row) override;
  void SettleTabs(TabMoment moment) override;

  /// The limits of a field in the unit beside it; nothing for a field without.
  [[nodiscard]] std::optional<FieldRange> RangeOf(const TextField& field) const;

 private:
  /// The field of a row of $Data that is for a number.
  struct NumberField {
    TextField* field;
    int row;
  };

  void Follow(TextField& field);
  /// Judges a field that has changed, and with another text in it the other end of its pair.
  void FieldShown(TextField& field, bool other_text) const;
  void JudgeOtherEnd(const TextField& field, const FieldRange& range) const;
  /// Judges how many points of a table are sent anew when the table changes, of which it can't be more.
  void FollowTable();
  [[nodiscard]] std::optional<FieldRange> RangeOf(const TextField& field, int row) const;
  /// `row` of $Data for which the field is; -1 for none.
  void Judge(TextField& field, int row) const;
  static void Judge(TextField& field, const std::optional<FieldRange>& range);
  // Judge the fields of all items, and those that are for none.
  void JudgeRows() const;
  void JudgeOthers() const;

  // The lines of what an input tells, each empty where there is nothing to tell.
  [[nodiscard]] String HelpOf(const Control& control) const;
  /// "Item 14  入力ｾﾞﾛ (0%)"
  [[nodiscard]] String TitleOf(const Control& control, int row) const;
  [[nodiscard]] String MeaningOf(const Control& control, int row) const;
  [[nodiscard]] String LimitsOf(const TextField& field) const;
  /// What is wrong with a field that is marked.
  [[nodiscard]] String FaultOf(const TextField& field) const;
  /// What a pair of fields must keep besides, and what is allowed besides.
  [[nodiscard]] String ConditionOf(const TextField& field) const;
  /// That it can't be changed here, or shows what the device tells.
  [[nodiscard]] String StateOf(const Control& control, int row) const;

  /// Row of $Data that the control is for; -1 for none.
  [[nodiscard]] int RowOf(const Control& control) const;
  /// The controls that share a place of a line of the design.
  [[nodiscard]] std::vector<const Control*> ControlsIn(std::string_view names) const;
  /// What stands there, as far as it shows.
  [[nodiscard]] String ShownIn(std::string_view names) const;
  /// The caption of the label that stands right before the control there; empty without one.
  [[nodiscard]] String LabelBefore(const Control& control, std::string_view names) const;
  [[nodiscard]] String UnitBeside(const Control& control) const;

  ParameterPage& page_;
  std::vector<const RangeTeller*> tellers_;  ///< the one that counts first
  std::vector<NumberField> numbers_;         ///< of the definition that was read last
  std::vector<TextField*> others_;           ///< the fields that are for no item
};

}  // namespace korva
