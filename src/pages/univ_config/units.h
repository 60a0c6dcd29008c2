#pragma once

#include "transfer/temperature_units.h"

namespace korva {

/// The units of family QXI, which follow the input: those of the range, the setpoints and the live values,
/// and what a change of the temperature unit converts. A setpoint may be in percent of the range instead.
class InputUnits final : public TemperatureUnits {
 public:
  /// Adds itself to the page, which outlives this.
  explicit InputUnits(ParameterPage& page);

  void PageBuilt() override { FollowInput(); }
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::optional<String> UnitOf(int row) const override;

  /// Shows anew every unit that follows the chosen input.
  void FollowInput();

 protected:
  [[nodiscard]] bool Follows(int row) const override;
  [[nodiscard]] bool IsDifference(int row) const override;

 private:
  /// Shows the units of the parameters anew, and of the live values while they follow the input.
  void ShowUnits();
  [[nodiscard]] String InputUnit() const;
  /// The unit of the chosen row of a list, empty where none is chosen.
  [[nodiscard]] String UnitOfChoice(int item, StringView list) const;
  [[nodiscard]] bool IsPercent(int item) const;
  [[nodiscard]] std::optional<String> LiveUnitOf(int row, int item) const;

  ParameterPage& page_;
  bool follows_input_ = false;  ///< while the units of live values are shown anew too
};

/// The units of the setpoints, optSetpointUnit_1 and _2: row 0 that of the input, row 1 percent of its range.
/// A change converts the position and the width that it governs. A width has no offset: it is a difference.
class SetpointUnits final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit SetpointUnits(ParameterPage& page);

  void PageBuilt() override;
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::function<void()> Keep() override {
    return [this] { PageBuilt(); };
  }

  OptionGroup optSetpointUnit_1{"optSetpointUnit_1", 2};
  OptionGroup optSetpointUnit_2{"optSetpointUnit_2", 2};

 private:
  void Convert(int item, bool to_percent, bool position);

  ParameterPage& page_;
  bool first_in_percent_ = false;  ///< as the values stand in the set
  bool second_in_percent_ = false;
};

}  // namespace korva
