#pragma once

namespace korva {

// Items of group "01" that mean the same wherever a family has them.
inline constexpr int kTagItem = 2;
inline constexpr int kTypeItem = 10;
inline constexpr int kRangeItem = 11;
inline constexpr int kOutputZeroItem = 12;
inline constexpr int kOutputSpanItem = 13;
inline constexpr int kZeroItem = 14;
inline constexpr int kSpanItem = 15;
inline constexpr int kScaleLowItem = 19;
inline constexpr int kScaleHighItem = 20;
inline constexpr int kSecondOutputTypeItem = 41;
inline constexpr int kSecondOutputZeroItem = 42;
inline constexpr int kSecondOutputSpanItem = 43;
inline constexpr int kVersionItem = 99;  ///< of group "00"

}  // namespace korva
