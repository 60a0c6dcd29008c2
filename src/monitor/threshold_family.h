#pragma once

#include "link/group_item.h"

namespace korva {

/// How a family's device counts pulses above a threshold, and where the limits of that stand. All items are
/// of group "01".
struct ThresholdFamily {
  StringView item;  ///< of the threshold, in volts
  /// Repeats of an access that brings the threshold or proves it.
  int repeats = kItemRepeats;
  /// The item that tells the input's range, as index or text of a row of the list `ranges`, which has the
  /// limits. Both empty: the limits stand in the threshold's own row of $Data.
  StringView range_item = {};
  StringView ranges = {};
  int frame = -1;  ///< index of the Frame that stands around its controls; -1: none
};

}  // namespace korva
