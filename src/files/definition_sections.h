#pragma once

#include <array>

#include "files/definition.h"

namespace korva {

/// Where a family's $Data has each column; -1: nowhere.
using DataLayout = std::array<int, kDataColumns>;
inline constexpr DataLayout kUsualLayout = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                            13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, -1, -1};

/// The form of a family's definition files.
struct FamilySections {
  StringView family;
  std::span<const SectionShape> sections;
  StringView only_file = {};  ///< the one file that serves every model of the family; empty: one file a model
  const DataLayout& layout = kUsualLayout;
};

const FamilySections& FamilySectionsOf(const Family& family);

}  // namespace korva
