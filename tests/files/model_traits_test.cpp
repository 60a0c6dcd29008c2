#include "files/model_traits.h"

#include <gtest/gtest.h>

#include <array>

namespace korva {
namespace {

constexpr std::array kModels = {
    ModelTraits{.def_file = u"AB", .beginning = true, .filter_follows_type = true},
    ModelTraits{.def_file = u"AB1.def", .table_points = 100},
    ModelTraits{.def_file = u"CD.def", .has_monitor = false},
};

TEST(ModelTraits, AModelGoesByItsExactDefinitionFile) {
  EXPECT_FALSE(TraitsOf(kModels, u"CD.def").has_monitor);
  EXPECT_TRUE(TraitsOf(kModels, u"CD1.def").has_monitor);
  EXPECT_TRUE(TraitsOf(kModels, u"cd.def").has_monitor);
}

TEST(ModelTraits, AModelGoesByTheBeginningOfItsDefinitionFile) {
  EXPECT_TRUE(TraitsOf(kModels, u"AB7.def").filter_follows_type);
  EXPECT_TRUE(TraitsOf(kModels, u"AB.def").filter_follows_type);
  EXPECT_FALSE(TraitsOf(kModels, u"XAB.def").filter_follows_type);
}

TEST(ModelTraits, AnExactNameComesBeforeABeginning) {
  EXPECT_EQ(TraitsOf(kModels, u"AB1.def").table_points, 100);
  EXPECT_FALSE(TraitsOf(kModels, u"AB1.def").filter_follows_type);
}

TEST(ModelTraits, AnUnknownModelHasTheDefaults) {
  const ModelTraits& traits = TraitsOf(kModels, u"");
  EXPECT_EQ(traits.table_points, 16);
  EXPECT_EQ(traits.table_on_choice, TableSwitch::TableOption);
  EXPECT_EQ(traits.table_after_upload, TableSwitch::None);
  EXPECT_EQ(traits.table_without_flag, TableSwitch::None);
  EXPECT_TRUE(traits.has_monitor);
}

}  // namespace
}  // namespace korva
