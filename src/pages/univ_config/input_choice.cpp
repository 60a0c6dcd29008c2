#include "pages/univ_config/input_choice.h"

#include "core/numbers.h"

namespace korva {

InputClass ClassOfInput(StringView input) {
  if (input.starts_with(u"mV-")) {
    return InputClass::Dc;
  }
  if (input.starts_with(u"Tc-")) {
    return InputClass::Thermocouple;
  }
  if (input.starts_with(u"RB")) {
    return InputClass::Resistance;
  }
  return input.starts_with(u"POT") ? InputClass::Potentiometer : InputClass::None;
}

bool IsTemperature(InputClass input_class) {
  return input_class == InputClass::Thermocouple || input_class == InputClass::Resistance;
}

bool HasUsersRange(StringView type) { return type.starts_with(u"mV-Z:") || type.starts_with(u"mV-0:"); }

int ItemOf(const ParameterPage& page, int row) {
  return page.DataCell(row, kGroup) == u"01" ? LeadingInteger(page.DataCell(row, kItem)) : -1;
}

bool IsOfUse(int item, StringView input, StringView output) {
  const InputClass input_class = ClassOfInput(input);
  switch (item) {
    case 12:
    case 13:
      return HasUsersRange(output);
    case 14:
    case 15:
      return input_class != InputClass::Dc || HasUsersRange(input);
    case 21:
    case 24:
      return IsTemperature(input_class);
    case 23:
      return input_class == InputClass::Dc || input_class == InputClass::Potentiometer;
    default:
      return true;
  }
}

}  // namespace korva
