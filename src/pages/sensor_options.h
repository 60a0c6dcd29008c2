#pragma once

#include "files/parameter_page.h"

namespace korva {

/// Lists the options of a transmitter with user tables: its temperature unit, and these groups of items 23
/// (compensation of the cold junction), 24 (burnout) and 25 (linearizer). A cell has the text of its choice;
/// a code means that choice. The groups outlive the page.
void AddSensorOptions(ParameterPage& page, OptionGroup& compensation, OptionGroup& burnout,
                      OptionGroup& linearizer);

}  // namespace korva
