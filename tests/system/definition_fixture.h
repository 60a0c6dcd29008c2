#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definition_source.h"
#include "family_facts.h"
#include "models.h"

/// A definition's source beside the facts of its family; one test for each model of the catalogue.
class DefinitionFixture : public testing::TestWithParam<Model> {
 protected:
  /// Where a row stands, for a message.
  static std::string At(const SourceRow& row) {
    return GetParam().definition + " line " + std::to_string(row.line) + ", item " + row[kItem] + " ";
  }

  const FamilyFacts& facts = Families().at(GetParam().family);
  const Columns& columns = facts.columns;
  Source source = ReadSource(PathOf(GetParam()));
};

/// The models to check, each once.
std::vector<Model> ModelsWithDefinition();

/// The model's name as a test may have it.
std::string TestName(const testing::TestParamInfo<Model>& test);

/// The index in a field: -1 for an empty field, -2 for one that is no whole number.
int Index(const std::string& text);

/// The number that a field is; none for any other text.
std::optional<double> Number(const std::string& text);

bool OneOf(std::string_view text, std::initializer_list<std::string_view> allowed);

/// The section that holds the texts of a list key: of `$I11` its body where it has one.
std::string_view TableOf(const Source& source, std::string_view list);
