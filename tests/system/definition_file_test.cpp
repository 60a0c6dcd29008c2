// Checks the definitions' sources as files: their sections, their tables and their tabs.

#include <algorithm>
#include <set>

#include "definition_fixture.h"

namespace {

class DefinitionFile : public DefinitionFixture {};

/// True when the text has a character that ASCII lacks.
bool HasJapanese(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char byte) { return (byte & 0x80) != 0; });
}

TEST_P(DefinitionFile, BeginsWithTheKindOfDeviceInBothLanguages) {
  const std::string file = GetParam().definition.substr(GetParam().definition.rfind('/') + 1);
  const std::string head = file.substr(0, file.find('.')) + ": ";
  ASSERT_GE(source.lines.size(), 2U);
  for (const std::size_t line : {0U, 1U}) {
    EXPECT_TRUE(source.lines[line].starts_with(head)) << source.lines[line];
    EXPECT_GT(source.lines[line].size(), head.size());
    EXPECT_EQ(HasJapanese(source.lines[line]), line == 1);
  }
}

TEST_P(DefinitionFile, HoldsKnownKeysOnceEachAndEnds) {
  ASSERT_FALSE(source.sections.empty());
  std::set<std::string> keys;
  for (const auto& section : source.sections) {
    EXPECT_NE(std::ranges::find(facts.shapes, section.key, &Shape::key), facts.shapes.end())
        << section.key << " in line " << section.line;
    EXPECT_TRUE(keys.insert(section.key).second) << section.key << " again in line " << section.line;
  }
  EXPECT_EQ(source.sections.back().key, "$End");
  EXPECT_TRUE(keys.contains("$Data"));
  const auto flags = std::ranges::find(facts.shapes, std::string_view("$SSTab"), &Shape::key);
  EXPECT_EQ(keys.contains("$SSTab"), flags != facts.shapes.end());
}

TEST_P(DefinitionFile, HoldsTheTwoPartsOfTheRangesBehindTheirKey) {
  const bool ranges = std::ranges::find(facts.shapes, "$I11Title", &Shape::key) != facts.shapes.end();
  for (std::size_t i = 0; i < source.sections.size(); ++i) {
    const bool block = ranges && source.sections[i].key == "$I11";
    const bool title = source.sections[i].key == "$I11Title";
    const bool body = source.sections[i].key == "$I11Body";
    if (block) {
      EXPECT_EQ(source.sections.at(i + 1).key, "$I11Title");
    }
    if (title) {
      EXPECT_EQ(source.sections.at(i + 1).key, "$I11Body");
    }
    if (title || body) {
      EXPECT_TRUE(i > 0 && source.sections[i - 1].key == (title ? "$I11" : "$I11Title"));
    }
  }
}

TEST_P(DefinitionFile, FitsItsTables) {
  for (const auto& section : source.sections) {
    const auto shape = std::ranges::find(facts.shapes, section.key, &Shape::key);
    ASSERT_NE(shape, facts.shapes.end());
    EXPECT_LE(section.rows.size(), shape->rows) << section.key;
    for (const auto& row : section.rows) {
      EXPECT_LE(row.fields.size(), shape->columns) << section.key << " line " << row.line;
      // An empty line takes up a row unseen; an empty row is written with its commas.
      EXPECT_TRUE(row.fields.size() > 1 || !row[0].empty()) << "empty line " << row.line;
    }
  }
}

TEST_P(DefinitionFile, HasAFlagForEachTab) {
  const auto shape = std::ranges::find(facts.shapes, "$SSTab", &Shape::key);
  if (shape == facts.shapes.end()) {
    return;  // no definition of the family has any
  }
  ASSERT_EQ(source.Rows("$SSTab").size(), 1U);
  const auto& flags = source.Rows("$SSTab")[0];
  EXPECT_EQ(flags.fields.size(), shape->columns);
  for (const auto& flag : flags.fields) {
    EXPECT_TRUE(OneOf(flag, {"True", "False"})) << flag;
  }
}

TEST_P(DefinitionFile, SurvivesTheCodePage) {
  for (const auto& line : source.lines) {
    EXPECT_TRUE(SurvivesCodePage(line)) << line;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, DefinitionFile, testing::ValuesIn(ModelsWithDefinition()), TestName);

}  // namespace
