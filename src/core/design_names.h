#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace korva {

/// The names in a place of a design's line, which blanks separate.
inline std::vector<std::string_view> NamesIn(std::string_view names) {
  std::vector<std::string_view> found;
  while (!names.empty()) {
    const std::size_t end = std::min(names.find(' '), names.size());
    found.push_back(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return found;
}

}  // namespace korva
