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

/// The choice of the temperature unit, optTempUnit: converts the values that follow it. A live box that is
/// empty stays so.
class TemperatureUnits : public PagePart {
 public:
  /// Adds itself to the page, which outlives this. `form` tells how the chosen model shows temperatures.
  TemperatureUnits(ParameterPage& page, std::function<TemperatureForm()> form);

  void SetCaptions(Language language) override;
  void ChoiceMade(const Choice& choice) override;

 protected:
  /// True for a row whose value follows the unit.
  [[nodiscard]] virtual bool Follows(int row) const;
  /// True for a row whose value is a difference of two temperatures.
  [[nodiscard]] virtual bool IsDifference(int /*row*/) const { return false; }

 private:
  bool ChangeUnitOfRow(int row, const String& unit);
  [[nodiscard]] String WithinLimits(double value, const String& item, int type, const String& unit) const;

  ParameterPage& page_;
  std::function<TemperatureForm()> form_;
};

}  // namespace korva
