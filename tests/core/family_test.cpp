#include "core/family.h"

#include <gtest/gtest.h>

#include <array>

namespace korva {
namespace {

constexpr Family Named(StringView word) {
  return {.word = word,
          .page = u"Page",
          .folder = u"Folder",
          .baud = 1200,
          .settings = u"1200,n,8,1",
          .dialect = Dialect::Cok,
          .unload_place = kNone};
}

constexpr Family kOne = Named(u"One");
constexpr Family kOther = Named(u"Other");
constexpr std::array<const Family*, 2> kAll = {&kOne, &kOther};
constexpr Families kFamilies = {.all = kAll, .root = kOne};

TEST(FindFamily, FindsEachWord) {
  for (const Family* family : kAll) {
    EXPECT_EQ(kFamilies.Find(family->word), family);
  }
}

TEST(FindFamily, FindsNoUnknownAndNoEmptyWord) {
  EXPECT_EQ(kFamilies.Find(u""), nullptr);
  EXPECT_EQ(kFamilies.Find(u"one"), nullptr);
  EXPECT_EQ(kFamilies.Find(u"One "), nullptr);
  EXPECT_EQ(kFamilies.Find(u"Oneness"), nullptr);
}

}  // namespace
}  // namespace korva
