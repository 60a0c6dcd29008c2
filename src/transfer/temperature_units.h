#pragma once

#include <functional>

#include "files/parameter_page.h"

namespace korva {

/// The choice of the temperature unit, optTempUnit: converts the values that follow it.
class TemperatureUnits final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this. `whole_numbers` tells whether the chosen model shows
  /// temperatures as whole numbers, wherever they lie; else a value that rounding would carry over its limit
  /// goes to the whole number within it.
  TemperatureUnits(ParameterPage& page, std::function<bool()> whole_numbers);

  void SetCaptions(Language language) override;
  void ChoiceMade(const Choice& choice) override;

 private:
  bool ChangeUnitOfRow(int row, const String& unit);
  [[nodiscard]] String WithinLimits(double value, const String& item, int type, const String& unit) const;

  ParameterPage& page_;
  std::function<bool()> whole_numbers_;
};

}  // namespace korva
