#pragma once

#include <span>
#include <vector>

#include "files/parameter_page.h"

namespace korva {

// Values that a device keeps on a grid, by their items of group "01": each text that begins with a number is
// brought on the grid in set and field, with a box for each number that changes.

/// The items of the parameters whose unit is `unit` for good ("msec"). The texts are those of the definition.
std::vector<StringView> ItemsWithUnit(const ParameterPage& page, StringView unit);

/// Cuts times to the grid of 5 msec.
void Round5ms(ParameterPage& page, std::span<const StringView> items);
/// Raises voltages to the grid of 0.05 V.
void Round005V(ParameterPage& page, std::span<const StringView> items);

}  // namespace korva
