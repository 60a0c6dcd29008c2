#pragma once

#include "core/field_range.h"
#include "transfer/row_form.h"

namespace korva {

/// What a family checks its own way.
class CheckSteps {
 public:
  CheckSteps() = default;
  CheckSteps(const CheckSteps&) = delete;
  CheckSteps& operator=(const CheckSteps&) = delete;
  virtual ~CheckSteps() = default;

  /// Colours the fields, good or bad; false when one is bad.
  virtual bool CheckValues() = 0;
  /// The limits by which CheckValues judges the field of this row of $Data, as page and set stand now;
  /// nothing for a field that it leaves alone.
  [[nodiscard]] virtual std::optional<FieldRange> RangeOf(int /*row*/) const { return std::nullopt; }
};

/// The check of a page's values, before anything is written and with cmdCheck: blank fields, then the values,
/// then the parts of the page, then the choices. As a part of the page it tells by which limits fields are
/// judged, and does nothing else.
class ValueCheck final : public PagePart, public RangeTeller {
 public:
  /// Adds itself to the page and takes its button. All outlive this.
  ValueCheck(ParameterPage& page, const RowForm& form, CheckSteps& steps);

  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;
  /// cmdCheck: marks every bad value, and tells the result.
  void Run();
  /// False after the box that tells what is wrong. Bad fields are marked; a field that was corrected loses
  /// its mark.
  bool CheckAllValues();
  /// Remembers the first bad control of the page as what GoToFault goes to.
  void NoteBad();
  /// Where the last check failed, brings its first blank or bad field to the front, once. For a frame that is
  /// unlocked again.
  void GoToFault();

 private:
  bool CheckBlankFields();
  [[nodiscard]] bool MayBeBlank(int index) const;
  [[nodiscard]] bool IsBlank(const TextField& field) const;
  [[nodiscard]] bool IsBlank(const ComboBox& box) const;
  Finding CheckParts();
  /// Marks each combo box whose text has no code in the model's tables, such as a range of the input type
  /// chosen before.
  bool CheckChoices();
  Finding FindFault();

  ParameterPage& page_;
  const RowForm& form_;
  CheckSteps& steps_;
  Control* fault_ = nullptr;  ///< the first field that failed the last check
};

}  // namespace korva
