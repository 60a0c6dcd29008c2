// Checks the catalogue's source by itself: what a slip of the editor's hand would break in the list of
// models.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "family_facts.h"
#include "models.h"

namespace {

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
    const bool shared = Families().at(models[row].family).one_definition;
    EXPECT_TRUE(definitions.insert(PathOf(models[row])).second || shared) << "line " << models[row].line;
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
    for (const auto& file :
         std::filesystem::directory_iterator(SystemFolder() + "/" + std::string(family.folder))) {
      EXPECT_TRUE(file.path().extension() != ".def" || named.contains(file.path().string())) << file.path();
    }
  }
}

TEST(Catalogue, SurvivesTheCodePage) {
  const auto catalogue = Catalogue();
  for (const auto& line : catalogue.lines) {
    EXPECT_TRUE(SurvivesCodePage(line)) << line;
  }
}

}  // namespace
