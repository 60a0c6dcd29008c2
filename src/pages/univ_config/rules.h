#pragma once

#include "files/parameter_page.h"

namespace korva {

class UnivConfig;

/// What the choice of input and output means for the rest of the page of family QXI: the values that come
/// with it, the kind of table, and what the device has no use for: options are closed then, and a range that
/// is not the user's is shown as a fixed one.
class UnivConfigRules final : public PagePart {
 public:
  /// Adds itself and its label to the page, which outlives this.
  explicit UnivConfigRules(UnivConfig& page);

  void PageCleared() override { lbl_Tc99User.SetVisible(false); }
  void PageBuilt() override { ShowWhatApplies(); }
  void RowShown(int row) override;
  void ChoiceMade(const Choice& choice) override;

  /// Letter of the kind of table that the chosen input has: "N" none, "L" linear, "T" thermocouple, "R"
  /// resistance thermometer; empty without an input.
  [[nodiscard]] String TableKind() const;

  /// Where to make the table of a user's own sensor; hidden for any other input.
  Label lbl_Tc99User{"lbl_Tc99User"};

 private:
  void TakeInput();
  void TakeOutput();
  /// Options that the device had no use for, and that the new input needs, begin with their defaults.
  void BeginAnew();
  /// Puts a value into the set and its field, which it opens.
  void Bring(int item, const String& value);
  /// A default of the input's range in the unit that the page shows, `up` rounded up to a whole number.
  [[nodiscard]] String InShownUnit(const String& preset, bool up) const;
  void ShowWhatApplies();
  void ShowSwitch();
  /// Opens the frames of options that follow the input, or closes them: of no use to it, or to the device as
  /// it said.
  void SettleOptions();

  UnivConfig& page_;
};

}  // namespace korva
