#pragma once

namespace korva {

// Columns and items that the transfer reads in the definition's tables, the same wherever a family has them.

// $I10, the input types.
inline constexpr int kTypeText = 1;      ///< as the device reports it
inline constexpr int kTypeLow = 2;       ///< lowest zero, in deg C where it is a temperature
inline constexpr int kTypeHigh = 3;      ///< highest end of the span
inline constexpr int kTypeSpan = 4;      ///< smallest span
inline constexpr int kTypeSettable = 6;  ///< Y: can be set from here; N: can't
inline constexpr int kTypeTitle = 7;     ///< title of the ranges under this type
inline constexpr int kTypeUnit = 8;      ///< of zero and span

// $I11Body: the texts of titles 1 to 3 stand in columns 1 to 3, their limits in pairs from column 4 on.
inline constexpr int kRangeTitles = 3;

// Items.
inline constexpr int kTagItem = 2;
inline constexpr int kTypeItem = 10;
inline constexpr int kRangeItem = 11;
inline constexpr int kZeroItem = 14;
inline constexpr int kSpanItem = 15;
inline constexpr int kScaleLowItem = 19;
inline constexpr int kScaleHighItem = 20;
inline constexpr int kVersionItem = 99;  ///< of group 0

/// Repeats of an item's exchange.
inline constexpr int kRepeats = 3;

}  // namespace korva
