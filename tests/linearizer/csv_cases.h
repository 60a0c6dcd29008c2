#pragma once

#include <vector>

#include "pages/registry.h"

namespace korva::test {

/// A family with files of its table, by its word.
struct CsvCase {
  StringView family;
  const CsvFamily& csv;
};

/// All of them.
inline std::vector<CsvCase> CsvCases() {
  std::vector<CsvCase> cases;
  for (const RegistryEntry& entry : Registry()) {
    if (entry.record.csv.Has()) {
      cases.push_back({.family = entry.record.family.word, .csv = entry.record.csv.Value()});
    }
  }
  return cases;
}

}  // namespace korva::test
