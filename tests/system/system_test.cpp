// Checks the sources of system/ by themselves: what a slip of the editor's hand would break on the page, at a
// transfer or in the build.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <optional>
#include <ostream>
#include <set>

#include "definition_source.h"
#include "family_facts.h"

namespace {

const std::string kSystem = KORVA_SYSTEM_SOURCES;

/// A row of the catalogue, with the line that it stands on.
struct Model {
  int line = 0;
  std::string name;
  std::string definition;
  std::string family;
};

void PrintTo(const Model& model, std::ostream* out) { *out << model.name; }

Source Catalogue() { return ReadSource(kSystem + "/MdlVTRMFx.jpn"); }

std::vector<Model> Models() {
  std::vector<Model> models;
  const auto catalogue = Catalogue();
  for (const auto& row : catalogue.Rows("$Type")) {
    models.push_back({.line = row.line, .name = row[0], .definition = row[1], .family = row[2]});
  }
  return models;
}

/// Path of a model's definition, empty for a family that is not known.
std::string PathOf(const Model& model) {
  const auto family = Families().find(model.family);
  return family == Families().end()
             ? std::string{}
             : kSystem + "/" + std::string(family->second.folder) + "/" + model.definition;
}

std::optional<double> Number(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

/// The index in a field: -1 for an empty field, -2 for one that is no whole number.
int Index(const std::string& text) {
  if (text.empty()) {
    return -1;
  }
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() && value >= 0 ? value : -2;
}

bool OneOf(std::string_view text, std::initializer_list<std::string_view> allowed) {
  return std::ranges::find(allowed, text) != allowed.end();
}

/// The section that holds the texts of a list key.
std::string_view TableOf(std::string_view list) { return list == "$I11" ? "$I11Body" : list; }

// --- catalogue
// ----------------------------------------------------------------------------------------------

TEST(Catalogue, EndsBehindAtMostSixtyNineModels) {
  const auto catalogue = Catalogue();
  ASSERT_EQ(catalogue.sections.size(), 2U);
  EXPECT_EQ(catalogue.sections[0].key, "$Type");
  EXPECT_EQ(catalogue.sections[1].key, "$End");
  EXPECT_LE(Models().size(), 69U);
  EXPECT_FALSE(Models().empty());
}

TEST(Catalogue, NamesADefinitionThatExistsForEachModel) {
  for (const auto& model : Models()) {
    EXPECT_FALSE(model.name.empty()) << "line " << model.line;
    EXPECT_TRUE(Families().contains(model.family)) << "line " << model.line << ": family " << model.family;
    EXPECT_TRUE(std::filesystem::is_regular_file(PathOf(model)))
        << "line " << model.line << ": " << PathOf(model);
  }
}

TEST(Catalogue, NamesEachModelOnceBehindTheOneOfTheStart) {
  const auto models = Models();
  std::set<std::string> names;
  std::set<std::string> definitions;
  for (std::size_t row = 1; row < models.size(); ++row) {
    EXPECT_TRUE(names.insert(models[row].name).second)
        << "line " << models[row].line << ": " << models[row].name;
    EXPECT_TRUE(definitions.insert(PathOf(models[row])).second) << "line " << models[row].line;
  }
  // A parameter file of the model in row 0 opens only if the model stands in a later row too.
  EXPECT_TRUE(names.contains(models.at(0).name));
  EXPECT_TRUE(definitions.contains(PathOf(models.at(0))));
}

TEST(Catalogue, NamesEveryDefinition) {
  std::set<std::string> named;
  for (const auto& model : Models()) {
    named.insert(PathOf(model));
  }
  for (const auto& [word, family] : Families()) {
    for (const auto& file : std::filesystem::directory_iterator(kSystem + "/" + std::string(family.folder))) {
      EXPECT_TRUE(named.contains(file.path().string())) << file.path();
    }
  }
}

TEST(Catalogue, SurvivesTheCodePage) {
  const auto catalogue = Catalogue();
  for (const auto& line : catalogue.lines) {
    EXPECT_TRUE(SurvivesCodePage(line)) << line;
  }
}

// --- definitions
// --------------------------------------------------------------------------------------------

class Definition : public testing::TestWithParam<Model> {
 protected:
  static std::string At(const SourceRow& row) {
    return GetParam().definition + " line " + std::to_string(row.line) + ", item " + row[kItem] + " ";
  }

  const FamilyFacts& facts = Families().at(GetParam().family);
  Source source = ReadSource(PathOf(GetParam()));
};

TEST_P(Definition, HoldsKnownKeysOnceEachAndEnds) {
  ASSERT_FALSE(source.sections.empty());
  std::set<std::string> keys;
  for (const auto& section : source.sections) {
    EXPECT_NE(std::ranges::find(facts.shapes, section.key, &Shape::key), facts.shapes.end())
        << section.key << " in line " << section.line;
    EXPECT_TRUE(keys.insert(section.key).second) << section.key << " again in line " << section.line;
  }
  EXPECT_EQ(source.sections.back().key, "$End");
  EXPECT_TRUE(keys.contains("$Data"));
  EXPECT_TRUE(keys.contains("$SSTab"));
}

TEST_P(Definition, HoldsTheTwoPartsOfTheRangesBehindTheirKey) {
  for (std::size_t i = 0; i < source.sections.size(); ++i) {
    const bool block = source.sections[i].key == "$I11";
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

TEST_P(Definition, FitsItsTables) {
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

TEST_P(Definition, HasAFlagForEachTab) {
  ASSERT_EQ(source.Rows("$SSTab").size(), 1U);
  const auto& flags = source.Rows("$SSTab")[0];
  EXPECT_EQ(flags.fields.size(), std::ranges::find(facts.shapes, "$SSTab", &Shape::key)->columns);
  for (const auto& flag : flags.fields) {
    EXPECT_TRUE(OneOf(flag, {"True", "False"})) << flag;
  }
}

TEST_P(Definition, SurvivesTheCodePage) {
  for (const auto& line : source.lines) {
    EXPECT_TRUE(SurvivesCodePage(line)) << line;
  }
}

TEST_P(Definition, KeepsEachIndexWithinItsControlsAndGivesItToOneRow) {
  for (const auto& array : facts.arrays) {
    std::set<int> taken;
    for (const auto& row : source.Rows("$Data")) {
      const int index = Index(row[array.column]);
      EXPECT_NE(index, -2) << At(row) << "column " << array.column;
      EXPECT_LE(index, array.highest) << At(row) << "column " << array.column;
      EXPECT_TRUE(index < 0 || taken.insert(index).second)
          << At(row) << "doubles " << index << " in column " << array.column;
    }
  }
}

TEST_P(Definition, GivesEachWritePositionToOneRow) {
  std::set<int> taken;
  for (const auto& row : source.Rows("$Data")) {
    const int position = Index(row[kPosition]);
    EXPECT_NE(position, -2) << At(row);
    EXPECT_LE(position, facts.last_position) << At(row);
    EXPECT_TRUE(position < 0 || taken.insert(position).second) << At(row) << "doubles position " << position;
  }
}

TEST_P(Definition, ShowsEachItemAtItsPlaceOfThePage) {
  std::set<std::string> items;
  for (const auto& row : source.Rows("$Data")) {
    EXPECT_TRUE(items.insert(row[kGroup] + row[kItem]).second) << At(row) << "again";
    const bool shown = row[kOnPage] == "Y";
    const bool placed = std::ranges::any_of(facts.plan, [&](const Place& place) {
      return row[kItem] == place.item && row[kList] == place.list && Index(row[kNumber]) == place.number &&
             Index(row[kLabel]) == place.label && Index(row[kText]) == place.text &&
             Index(row[kCombo]) == place.combo && Index(row[kFrame]) == place.frame &&
             Index(row[kLastOption]) == place.last_option;
    });
    EXPECT_EQ(placed, shown) << At(row);
    EXPECT_EQ(row[kNumberText].empty(), row[kNumber].empty()) << At(row);
    EXPECT_EQ(row[kCaption].empty(), row[kLabel].empty() && row[kFrame].empty()) << At(row);
    EXPECT_TRUE(row[kUnitLabel].empty() || row[kUnitLabel] == row[kText]) << At(row);
  }
}

TEST_P(Definition, UsesOnlyWordsThatHaveAMeaning) {
  for (const auto& row : source.Rows("$Data")) {
    EXPECT_TRUE(row[kGroup].size() == 2 && row[kItem].size() >= 2) << At(row);
    EXPECT_TRUE(OneOf(row[kUploaded], {"", "Y"})) << At(row);
    EXPECT_TRUE(OneOf(row[kOnPage], {"", "Y"})) << At(row);
    EXPECT_TRUE(OneOf(row[kFollows], {"", "$I10", "$I11QEI"})) << At(row);
    EXPECT_TRUE(OneOf(row[kTemperature], {"", "Item21"})) << At(row);
    const bool types = row[kList] == "$I10" && !row[kCombo].empty();
    EXPECT_TRUE(types ? OneOf(row[kRule], {"Y", "N", "$I10"}) : OneOf(row[kRule], {"", "Y"})) << At(row);
    EXPECT_TRUE(OneOf(row[kCondition], {"", "Y", "$I10", "$I10_CNECTI11"})) << At(row);
    EXPECT_EQ(row[kCondition].empty(), row[kPosition].empty()) << At(row);
  }
}

TEST_P(Definition, WritesAValueByItsPrefixAndAChoiceByItsCode) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kPosition].empty()) {
      continue;
    }
    EXPECT_EQ(row[kUploaded], "Y") << At(row);
    EXPECT_EQ(row[kPrefix].empty(), row[kText].empty()) << At(row);
    EXPECT_NE(row[kList].empty(), row[kText].empty()) << At(row);
  }
}

TEST_P(Definition, HasTheListAndTheDefaultOfEachChoice) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kList].empty()) {
      continue;
    }
    const auto& texts = source.Rows(TableOf(row[kList]));
    EXPECT_FALSE(texts.empty()) << At(row) << "has no section " << row[kList];
    const int last = Index(row[kLastOption]);
    EXPECT_LE(Index(row[kDefaultOption]), last) << At(row);
    for (int option = 0; option <= last; ++option) {
      const auto place = static_cast<std::size_t>(option);
      ASSERT_LT(place, texts.size()) << At(row) << "has no text for option " << option;
      EXPECT_FALSE(texts[place][0].empty() || texts[place][1].empty()) << At(row) << "option " << option;
    }
  }
}

TEST_P(Definition, GivesEachCodeAndEachTextOfAListOnce) {
  const auto distinct = [&](const SourceSection& section, std::size_t column) {
    std::set<std::string> seen;
    for (const auto& row : section.rows) {
      EXPECT_TRUE(row[column].empty() || seen.insert(row[column]).second)
          << section.key << " line " << row.line << ": " << row[column] << " again";
    }
  };
  for (const auto& section : source.sections) {
    if (!section.key.starts_with("$I") || section.key == "$I11Title") {
      continue;
    }
    distinct(section, 0);
    distinct(section, 1);
    for (const auto& row : section.rows) {
      EXPECT_EQ(row[0].empty(), row[1].empty()) << section.key << " line " << row.line;
    }
    if (section.key == "$I11Body") {
      distinct(section, 2);
      distinct(section, 3);
    }
  }
}

TEST_P(Definition, HasTheTitleOfTheRangesOfEachInputType) {
  const auto& titles = source.Rows("$I11Title");
  for (const auto& row : source.Rows("$I10")) {
    if (!row[7].empty()) {
      ASSERT_EQ(titles.size(), 1U) << "line " << row.line;
      const auto found = std::ranges::find(titles[0].fields, row[7]);
      EXPECT_LT(found - titles[0].fields.begin(), std::min<std::ptrdiff_t>(4, std::ssize(titles[0].fields)))
          << "line " << row.line << ": " << row[7];
    }
  }
}

TEST_P(Definition, LimitsZeroAndSpanByNumbersInOrder) {
  const auto rising = [](const SourceRow& row, std::size_t low, std::size_t high) {
    const auto from = Number(row[low]);
    const auto to = Number(row[high]);
    EXPECT_TRUE(from && to && *from < *to) << "line " << row.line << ": " << row[low] << " to " << row[high];
  };
  for (const auto& row : source.Rows("$I10")) {
    EXPECT_TRUE(row[0].empty() || (OneOf(row[5], {"Y", "N"}) && OneOf(row[6], {"Y", "N"})))
        << "line " << row.line;
    if (row[2].empty() && row[3].empty() && row[4].empty()) {
      continue;  // no range to set
    }
    rising(row, 2, 3);
    const auto span = Number(row[4]);
    ASSERT_TRUE(span) << "line " << row.line;
    EXPECT_LE(*span, Number(row[3]).value_or(0) - Number(row[2]).value_or(0)) << "line " << row.line;
  }
  for (const auto& row : source.Rows("$I11Body")) {
    for (std::size_t title = 1; title <= 3; ++title) {
      if (!row[2 * title + 2].empty() || !row[2 * title + 3].empty()) {
        EXPECT_FALSE(row[title].empty()) << "line " << row.line;
        rising(row, 2 * title + 2, 2 * title + 3);
      }
    }
  }
}

TEST_P(Definition, HoldsEveryRangeWithinTheInputTypesThatOfferIt) {
  for (const auto& type : source.Rows("$I10")) {
    const auto& titles = source.Rows("$I11Title");
    const auto title = titles.empty() || type[7].empty()
                           ? 0
                           : static_cast<std::size_t>(std::ranges::find(titles[0].fields, type[7]) -
                                                      titles[0].fields.begin());
    for (const auto& range : source.Rows("$I11Body")) {
      if (title == 0 || title > 3 || range[title].empty()) {
        continue;
      }
      const double low = Number(range[(2 * title) + 2]).value_or(0);
      const double high = Number(range[(2 * title) + 3]).value_or(0);
      EXPECT_GE(low, Number(type[2])) << type[1] << " with " << range[title];
      EXPECT_LE(high, Number(type[3])) << type[1] << " with " << range[title];
      EXPECT_GE(high - low, Number(type[4])) << type[1] << " with " << range[title];
    }
  }
}

/// The models to check, each once.
std::vector<Model> ModelsWithDefinition() {
  std::vector<Model> models;
  for (const auto& model : Models()) {
    if (Families().contains(model.family) &&
        std::ranges::find(models, model.name, &Model::name) == models.end()) {
      models.push_back(model);
    }
  }
  return models;
}

std::string TestName(const testing::TestParamInfo<Model>& test) {
  std::string name = test.param.name;
  std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
  return name;
}

INSTANTIATE_TEST_SUITE_P(Each, Definition, testing::ValuesIn(ModelsWithDefinition()), TestName);

}  // namespace
