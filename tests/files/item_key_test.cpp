#include "files/item_key.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

TEST(ItemKey, IsOfGroup01UnlessItNamesAnother) {
  const ItemKey own = u"02";
  EXPECT_EQ(own.Group(), u"01");
  EXPECT_EQ(own.Key(), u"02");
  const ItemKey other{u"00", u"99"};
  EXPECT_EQ(other.Group(), u"00");
  EXPECT_EQ(other.Key(), u"99");
}

TEST(ItemKey, IsMadeOfAnyText) {
  EXPECT_EQ(ItemKey(String(u"14")).Key(), u"14");
  EXPECT_EQ(ItemKey(StringView(u"14")).Key(), u"14");
}

TEST(ItemKey, IsOnTheWireWithoutItsRole) {
  struct Case {
    StringView key;
    StringView item;
  };
  for (const Case& one : {Case{.key = u"03_set", .item = u"03"}, Case{.key = u"03_mon", .item = u"03"},
                          Case{.key = u"14_100", .item = u"14"}, Case{.key = u"02", .item = u"02"},
                          Case{.key = u"", .item = u""}}) {
    const ItemKey key = one.key;
    EXPECT_EQ(key.Key(), one.key);
    EXPECT_EQ(key.OnWire().item, one.item);
    EXPECT_EQ(key.OnWire().group, u"01");
  }
}

TEST(ItemKey, KeepsItsGroupOnTheWire) { EXPECT_EQ(ItemKey(u"02", u"14_100").OnWire().group, u"02"); }

}  // namespace
}  // namespace korva
