#pragma once

#include "files/parameter_page.h"

namespace korva {

// The lists of inputs and outputs.
inline constexpr StringView kInputTypes = u"$I10";
inline constexpr StringView kOutputTypes = u"$I11";

// What the texts of the chosen input and output, as the device reports them, mean for the other items of
// family QXI.

/// What an input measures, by the first letters of its text.
enum class InputClass {
  None,           ///< no input is chosen, or its text begins with none of the words below
  Dc,             ///< "mV-": a voltage or a current
  Thermocouple,   ///< "Tc-"
  Resistance,     ///< "RB": a resistance thermometer
  Potentiometer,  ///< "POT"
};
[[nodiscard]] InputClass ClassOfInput(StringView input);

/// True for an input that measures a temperature.
[[nodiscard]] bool IsTemperature(InputClass input_class);

/// True for the inputs in mV and mA, and the outputs, whose range the user sets: "mV-Z:" and "mV-0:".
[[nodiscard]] bool HasUsersRange(StringView type);

/// The number of a row's item of group "01"; -1 for a row of any other group.
[[nodiscard]] int ItemOf(const ParameterPage& page, int row);

/// False for an item of group "01" that a device with this input and output has no use for: it is neither
/// checked nor sent.
[[nodiscard]] bool IsOfUse(int item, StringView input, StringView output);

}  // namespace korva
