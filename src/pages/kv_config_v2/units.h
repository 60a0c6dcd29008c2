#pragma once

#include <array>

#include "files/parameter_page.h"

namespace korva {

/// The numbers and units of family Second.
///
/// The devices report a value with its unit behind it ("12.50 kHz"), and that is what a cell of the set
/// holds. The field of such a value shows the number; its unit stands beside it, in a box of frequency units
/// that the user may pick from, or in a label where it is always the same. Nothing but the user's own edit,
/// and the grid of 5 msec, changes a cell that came from the device or a file.
class KvConfigV2Units final : public PagePart {
 public:
  /// Adds itself and its boxes to the page, which outlives this.
  explicit KvConfigV2Units(ParameterPage& page);

  [[nodiscard]] std::optional<String> ShownText(int row) const override;
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override;
  void RowShown(int row) override;
  /// Empties the boxes: without a value they begin with Hz again.
  void SetCleared() override;

  [[nodiscard]] bool HasUnit(int row) const;
  /// Unit of a value of the row: its own, or the one that is shown when it has none.
  [[nodiscard]] String UnitOfValue(int row, const String& value) const;
  /// The code by which the device takes a unit; nothing for a unit that it knows no code for.
  [[nodiscard]] static std::optional<String> CodeOf(StringView unit);

  ControlArray<ComboBox> cbo_unit;

 private:
  struct FrequencyUnit {
    StringView text;  ///< as the device reports it
    StringView code;  ///< as the device takes it in its item of the unit
  };
  /// The first is the one of a value that nothing is known of.
  static constexpr std::array kFrequencyUnits = {FrequencyUnit{.text = u"Hz", .code = u"0"},
                                                 FrequencyUnit{.text = u"kHz", .code = u"1"},
                                                 FrequencyUnit{.text = u"mHz", .code = u"2"}};

  /// What stands beside the field of a row; empty for a row without a unit.
  [[nodiscard]] String UnitShown(int row) const;
  /// The number with the unit that is shown; a text that is no number as it stands.
  [[nodiscard]] String WithUnitShown(int row, const String& text) const;
  void UnitPicked(int index);

  ParameterPage& page_;
};

}  // namespace korva
