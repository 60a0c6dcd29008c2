#pragma once

#include "link/group_item.h"

/// Where things lie in the memory of a device of the second line.
namespace korva::memory {

/// The item whose selection gives access.
inline WireItem AccessItem() { return {.group = u"99", .item = u"10"}; }

// Texts have 16 bytes, padded with blanks.
inline constexpr int kTextSize = 16;
inline constexpr int kModelText = 48;  ///< head, type tags, tail, with "-" between
inline constexpr int kDay = 72;
inline constexpr int kMonth = 73;
inline constexpr int kYear = 74;  ///< 2 bytes
inline constexpr int kAdcType = 77;
inline constexpr int kInputCode = 78;
inline constexpr int kInputText = 80;
inline constexpr int kOutputText = 96;
inline constexpr int kOutputCode = 79;          ///< of a model of the plain second line
inline constexpr int kOutputCodeOfThird = 158;  ///< of one of the third

// The descriptor of the table at the memory's end.
inline constexpr int kTableHead = 512;  ///< always 0
inline constexpr int kTableType = 513;
inline constexpr int kTableStart = 520;  ///< 2 bytes

}  // namespace korva::memory
