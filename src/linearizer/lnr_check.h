#pragma once

#include "core/control.h"
#include "linearizer/lnr_table.h"

namespace korva {

/// The value of a cell as the checks take it: a text that begins with a digit, or with a sign and a digit, is
/// cut from the right until it is numeric ("12.5%" gives "12.5"); any other text stays whole.
String ValueFromLnrCell(StringView text);
/// False for a cell with more digits behind its value: whoever types "12,5" doesn't mean the 12 that would be
/// sent.
bool MeansItsValue(StringView text);

/// Limits of a value; both count.
struct LnrLimits {
  double low = 0;
  double high = 0;
};

/// What every value of CheckLnrRange lies between. The limits themselves don't count.
inline constexpr LnrLimits kLnrRange = {.low = -300, .high = 300};

/// Marks every value that is no number strictly between -300 and 300, and no other. An empty cell counts 0,
/// and X needs no order: devices of these families take any curve. True when nothing is bad.
bool CheckLnrRange(LnrTable& table);

/// Marks what keeps the table from being a curve: X must rise strictly, every value must lie within its
/// limits, no cell may be empty before the table's end and none filled behind it. A table ends with the first
/// point that is empty in both values, and has two points at least. `bar` shows the share of cells done. True
/// when nothing is bad.
///
/// A table that lives in its grid starts with a text in each value: behind the first `sent` points, which go
/// to the device, a row that still holds that is no point, and counts as empty.
bool CheckLnrCurve(LnrTable& table, const LnrLimits& x_limits, const LnrLimits& y_limits, ProgressBar& bar,
                   int sent = 0);

/// Marks every value out of its limits, as far as the first empty one, and no other; the first two rows must
/// not be empty. True when nothing is bad.
bool CheckLnrLimits(LnrTable& table, const LnrLimits& limits);

/// Marks the empty cells among the first `rows`, which go to the device, beside what is marked already. True
/// when there are none.
bool CheckLnrFilled(LnrTable& table, int rows);

}  // namespace korva
