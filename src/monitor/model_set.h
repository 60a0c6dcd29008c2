#pragma once

#include <algorithm>
#include <span>

#include "platform/string.h"

namespace korva {

/// Some of a family's models, by their definition files: those of these names, and those whose names begin
/// so.
struct ModelSet {
  std::span<const StringView> names = {};
  StringView beginning = {};

  [[nodiscard]] bool Empty() const { return names.empty() && beginning.empty(); }
  [[nodiscard]] bool Has(StringView def_file) const {
    return std::find(names.begin(), names.end(), def_file) != names.end() ||
           (!beginning.empty() && def_file.starts_with(beginning));
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

}  // namespace korva
