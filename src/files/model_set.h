#pragma once

#include <algorithm>
#include <span>

#include "core/text_utilities.h"
#include "platform/string.h"

namespace korva {

/// Some of a family's models, by their definition files: those whose names are like these ("#" stands for a
/// digit), and those whose names begin or end so.
struct ModelSet {
  std::span<const StringView> names = {};
  StringView beginning = {};
  StringView ending = {};

  [[nodiscard]] bool Empty() const { return names.empty() && beginning.empty() && ending.empty(); }
  [[nodiscard]] bool Has(StringView def_file) const {
    return std::any_of(names.begin(), names.end(), [&](StringView name) { return IsLike(def_file, name); }) ||
           (!beginning.empty() && def_file.starts_with(beginning)) ||
           (!ending.empty() && def_file.ends_with(ending));
  }
  /// For a rule that holds for some models only: an empty set stands for all.
  [[nodiscard]] bool IsAllOrHas(StringView def_file) const { return Empty() || Has(def_file); }
};

/// The range of a value that the user sets on some models, as the message about it writes the limits; both
/// count.
struct ModelRange {
  ModelSet models = {};  ///< empty: all
  StringView low;
  StringView high;
};

/// The first row that serves the model; the last row serves all.
inline const ModelRange& RangeOf(std::span<const ModelRange> ranges, StringView def_file) {
  const auto range = std::find_if(ranges.begin(), ranges.end(),
                                  [&](const ModelRange& one) { return one.models.IsAllOrHas(def_file); });
  return range == ranges.end() ? ranges.back() : *range;
}

/// The row of a page's table of models that serves the definition file: an exact name before a beginning
/// (`def_file` is the beginning of the names where the row's `beginning` is set), else the defaults of `Row`.
template <typename Row>
const Row& ModelRow(std::span<const Row> models, StringView def_file) {
  static constexpr Row defaults;
  const Row* found = &defaults;
  for (const Row& row : models) {
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
