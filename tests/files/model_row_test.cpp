#include <gtest/gtest.h>

#include <array>

#include "files/model_set.h"

namespace korva {
namespace {

struct Row {
  StringView def_file = {};
  bool beginning = false;
  int points = 16;
  bool monitored = true;
};

constexpr std::array kModels = {
    Row{.def_file = u"AB", .beginning = true, .monitored = false},
    Row{.def_file = u"AB1.def", .points = 100},
    Row{.def_file = u"CD.def", .monitored = false},
};

const Row& RowOf(StringView def_file) { return ModelRow(std::span<const Row>(kModels), def_file); }

TEST(ModelRow, AModelGoesByItsExactDefinitionFile) {
  EXPECT_FALSE(RowOf(u"CD.def").monitored);
  EXPECT_TRUE(RowOf(u"CD1.def").monitored);
  EXPECT_TRUE(RowOf(u"cd.def").monitored);
}

TEST(ModelRow, AModelGoesByTheBeginningOfItsDefinitionFile) {
  EXPECT_FALSE(RowOf(u"AB7.def").monitored);
  EXPECT_FALSE(RowOf(u"AB.def").monitored);
  EXPECT_TRUE(RowOf(u"XAB.def").monitored);
}

TEST(ModelRow, AnExactNameComesBeforeABeginning) {
  EXPECT_EQ(RowOf(u"AB1.def").points, 100);
  EXPECT_TRUE(RowOf(u"AB1.def").monitored);
}

TEST(ModelRow, ABeginningIsNotTheExactNameOfItsOwnRow) {
  EXPECT_EQ(&RowOf(u"AB"), kModels.data());
  EXPECT_TRUE(RowOf(u"CD").monitored);
}

TEST(ModelRow, AnUnknownModelHasTheDefaults) {
  for (const StringView def_file : {u"", u"QX.def"}) {
    const Row& row = RowOf(def_file);
    EXPECT_EQ(row.points, 16);
    EXPECT_TRUE(row.monitored);
  }
}

TEST(ModelRow, OfNoRowsAllModelsHaveTheDefaults) {
  EXPECT_EQ(ModelRow(std::span<const Row>(), u"AB1.def").points, 16);
}

}  // namespace
}  // namespace korva
