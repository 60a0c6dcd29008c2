#pragma once

#include <array>
#include <vector>

#include "files/parameter_page.h"

namespace korva {

/// A unit of frequencies, as the devices of a family know it.
struct FrequencyUnit {
  StringView text;            ///< as the device reports it
  StringView code;            ///< as the device takes it in its item of the unit
  StringView between = u" ";  ///< stands between a number and the unit
  double hertz = 1;           ///< in one of it
};

/// How a family's numbers and units belong together.
struct FrequencyUnitForm {
  /// The first is the one of a value that nothing is known of.
  std::array<FrequencyUnit, 3> units;
  /// A value whose unit is always the same is split from it too.
  bool splits_fixed = false;
  /// Another unit converts the number; else the number stays and means something else.
  bool converts = false;
};

/// Numbers and their units on a page where a frequency has a box of units.
///
/// The devices report a value with its unit behind it ("12.50 kHz"), and that is what a cell of the set
/// holds. The field of such a value shows the number; its unit stands beside it, in a box of frequency units
/// that the user may pick from, or in a label where it is always the same. Nothing but the user's own edit,
/// and the grids of the device, changes a cell that came from the device or a file.
class FrequencyUnits final : public PagePart {
 public:
  /// Adds itself and its boxes to the page. Both outlive this.
  FrequencyUnits(ParameterPage& page, const FrequencyUnitForm& form);

  [[nodiscard]] std::optional<String> ShownText(int row) const override;
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override;
  void RowShown(int row) override;
  /// Empties the boxes: without a value they begin with Hz again.
  void SetCleared() override;
  [[nodiscard]] std::function<void()> Keep() override;

  [[nodiscard]] bool HasUnit(int row) const;
  /// Unit of a value of the row: its own, or the one that is shown when it has none.
  [[nodiscard]] String UnitOfValue(int row, const String& value) const;
  /// The code by which the device takes a unit; nothing for a unit that it knows no code for.
  [[nodiscard]] std::optional<String> CodeOf(StringView unit) const;
  /// The item of group "01" that takes the code of a row's unit.
  [[nodiscard]] String CodeItem(int row) const;

  ControlArray<ComboBox> cbo_unit;

 private:
  /// nullptr for a unit that is none of frequencies.
  [[nodiscard]] const FrequencyUnit* FindUnit(StringView text) const;
  /// What stands beside the field of a row; empty for a row without a unit.
  [[nodiscard]] String UnitShown(int row) const;
  [[nodiscard]] String WithUnit(const String& number, const String& unit) const;
  /// The number with the unit that is shown; a text that is no number as it stands.
  [[nodiscard]] String WithUnitShown(int row, const String& text) const;
  /// The cell of a row in the unit that its box shows now.
  [[nodiscard]] String CellInPickedUnit(int row, const String& former_unit) const;
  void UnitPicked(int index);

  ParameterPage& page_;
  const FrequencyUnitForm& form_;
  std::vector<String> shown_;  ///< by box, the unit before it is picked anew
};

}  // namespace korva
