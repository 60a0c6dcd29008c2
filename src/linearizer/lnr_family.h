#pragma once

#include <span>

#include "core/family.h"
#include "linearizer/lnr_check.h"
#include "linearizer/lnr_table.h"

namespace korva {

/// What the values of a table mean: its heads and, where the check asks for them, its limits.
struct LnrQuantity {
  StringView kind = {};  ///< letter of the input's kind of table; empty where all inputs have the same
  LnrHeads heads;
  LnrLimits x_limits = {.low = -15, .high = 115};
  LnrLimits y_limits = {.low = -15, .high = 115};
};

/// What a table must be to go to the device.
enum class LnrRule {
  Range,  ///< CheckLnrRange
  Curve,  ///< CheckLnrCurve
};

/// What sets a family's linearizer apart. Family Second has none, and no row.
struct LnrFamily {
  StringView family;
  int points = 0;  ///< of every table of the family; 0: as the model's traits say
  LnrRule rule = LnrRule::Curve;
  std::span<const LnrQuantity> quantities;  ///< the first is the one of a new page
};

/// The family's row; nullptr for a family without a linearizer.
const LnrFamily* FindLnrFamily(const Family& family);

/// All ten rows.
std::span<const LnrFamily> LnrFamilies();

}  // namespace korva
