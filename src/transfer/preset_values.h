#pragma once

#include "files/parameter_page.h"

namespace korva {

/// A choice that brings the two ends of a range with it, by its row of a list. All items are of group "01".
struct RangeChoice {
  int item = 0;
  StringView list;
  int low_item = 0;
  int high_item = 0;
};

/// Puts what the present choice brings along into the set, with two decimals, and shows it. In deg F and K a
/// temperature goes to the whole number within the range. A choice that stands in no row, or whose row brings
/// nothing, leaves what stands.
void BringRange(ParameterPage& page, const RangeChoice& choice, StringView unit = {});

}  // namespace korva
