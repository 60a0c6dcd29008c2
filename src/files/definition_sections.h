#pragma once

#include "files/definition.h"

namespace korva {

/// The form of a family's definition files.
struct FamilySections {
  StringView family;
  std::span<const SectionShape> sections;
  StringView only_file = {};  ///< the one file that serves every model of the family; empty: one file a model
};

const FamilySections& FamilySectionsOf(const Family& family);

}  // namespace korva
