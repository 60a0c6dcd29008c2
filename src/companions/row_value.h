#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "files/parameter_page.h"

namespace korva {

// What a user reads of a row of the definition on its page.

/// The fields beside a table, which travel with it, and what each is called.
inline constexpr std::array<std::pair<std::string_view, TextKey>, 4> kTableFields = {
    {{"txtSize", TextKey::TableSize},
     {"txtStep", TextKey::TablePitch},
     {"txtBase", TextKey::TableBase},
     {"cmbRange", TextKey::Range}}};

/// What the definition calls a row, in the language of the page.
String CaptionOf(const ParameterPage& page, int row);
/// The control that shows the value of a row: its field or its box; nullptr for none, or for options.
Control* ControlOf(ParameterPage& page, int row);
/// The options of a row; nullptr for none.
OptionGroup* OptionsOf(const ParameterPage& page, int row);
/// The value: the text of the field or box, or the caption of the option that is on.
String ShownOf(ParameterPage& page, int row);
/// The unit that stands beside the value; empty for none.
String UnitShownOf(ParameterPage& page, int row);
/// The box in which the unit is chosen; nullptr where it follows from elsewhere.
ComboBox* UnitBoxOf(ParameterPage& page, int row);

}  // namespace korva
