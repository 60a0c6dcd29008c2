#pragma once

#include <functional>

#include "files/parameter_page.h"

namespace korva {

/// How a model shows a temperature that was converted.
enum class TemperatureForm {
  WithinLimits,  ///< as a whole number; one that rounding would carry over its limit goes to that within it
  Whole,         ///< as a whole number, wherever that lies
  TwoDecimals,
};

/// The choice of the temperature unit, optTempUnit: converts the values that follow it.
class TemperatureUnits final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this. `form` tells how the chosen model shows temperatures.
  TemperatureUnits(ParameterPage& page, std::function<TemperatureForm()> form);

  void SetCaptions(Language language) override;
  void ChoiceMade(const Choice& choice) override;

 private:
  bool ChangeUnitOfRow(int row, const String& unit);
  [[nodiscard]] String WithinLimits(double value, const String& item, int type, const String& unit) const;

  ParameterPage& page_;
  std::function<TemperatureForm()> form_;
};

}  // namespace korva
