#include "files/model_traits.h"

namespace korva {

const ModelTraits& TraitsOf(std::span<const ModelTraits> models, StringView def_file) {
  static constexpr ModelTraits defaults;
  const ModelTraits* found = &defaults;
  for (const ModelTraits& row : models) {
    if (!row.beginning && row.def_file == def_file) {
      return row;
    }
    if (row.beginning && def_file.starts_with(row.def_file)) {
      found = &row;
    }
  }
  return *found;
}

}  // namespace korva
