#include "transfer/model_check.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

TEST(ModelCheckTest, TheFirstFourCharactersAreTheSame) {
  EXPECT_TRUE(SameModel(u"Z2WT.def", u"Z2WT-KA-4"));
  EXPECT_FALSE(SameModel(u"Z2WT.def", u"Z8WT-KA-4"));
  EXPECT_FALSE(SameModel(u"Z2WT.def", u"Z2WR-3A-4"));
  EXPECT_FALSE(SameModel(u"Z2WT.def", u"z2wt-KA-4"));
  EXPECT_TRUE(SameModel(u"Z2WT.def", u"Z2WTX"));
}

TEST(ModelCheckTest, TheTailsAreTheSameWhereEitherSideHasOne) {
  for (const char16_t letter : StringView(u"TRVMF")) {
    const String one = u"Z2W" + String(1, letter);
    EXPECT_FALSE(SameModel(one + u".def", one + u"2-KA"));
    EXPECT_FALSE(SameModel(one + u"2.def", one + u"-KA"));
    EXPECT_TRUE(SameModel(one + u"2.def", one + u"2-KA"));
  }
  EXPECT_TRUE(SameModel(u"Z2WP.def", u"Z2WP2")) << "P2 is no tail";
}

TEST(ModelCheckTest, ShortTextsAreNoModels) {
  EXPECT_FALSE(SameModel(u"Z2WT.def", u""));
  EXPECT_FALSE(SameModel(u"Z2WT.def", u"Z2"));
  EXPECT_FALSE(SameModel(u"Z2WT.def", u"Z2W"));
  EXPECT_TRUE(SameModel(u"Z2WT.def", u"Z2WT"));
}

}  // namespace
}  // namespace korva
