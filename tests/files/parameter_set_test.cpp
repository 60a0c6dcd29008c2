#include "files/parameter_set.h"

#include <gtest/gtest.h>

#include "platform/event_gate.h"

namespace korva {
namespace {

TEST(ParameterSet, StartsEmpty) {
  const ParameterSet set(4);
  EXPECT_EQ(set.Groups(), 4);
  EXPECT_EQ(set.At(0, 0), u"");
  EXPECT_EQ(set.At(3, 99), u"");
}

TEST(ParameterSet, TextsWithAndWithoutALeadingZeroAddressTheSameCell) {
  ParameterSet set(4);
  set.Set(u"01", u"02", u"TAG");
  EXPECT_EQ(set.At(u"1", u"2"), u"TAG");
  EXPECT_EQ(set.At(1, 2), u"TAG");
}

TEST(ParameterSet, ATaggedItemAddressesTheCellOfItsLeadingNumber) {
  ParameterSet set(4);
  set.Set(u"01", u"03_set", u"50");
  EXPECT_EQ(set.At(1, 3), u"50");
}

TEST(ParameterSet, TextsThatAreNoNumbersCountAsZero) {
  ParameterSet set(4);
  set.Set(u"", u"abc", u"here");
  EXPECT_EQ(set.At(0, 0), u"here");
}

TEST(ParameterSet, ACellOutsideEndsTheProgramWithATextThatNamesIt) {
  ParameterSet set(4);
  for (const auto& [group, item] : {std::pair{4, 0}, {-1, 0}, {0, 100}, {0, -1}}) {
    EXPECT_FALSE(set.Has(group, item));
    EXPECT_THROW(set.Set(group, item, u"x"), RuntimeFailure);
  }
  try {
    (void)set.At(u"9", u"500");
    FAIL();
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(failure.Text().find(u"Group 9, Item 500"), String::npos);
  }
}

TEST(ParameterSet, AFamilyWithTwoGroupsHasNoThird) {
  const ParameterSet set(2);
  EXPECT_TRUE(set.Has(1, 99));
  EXPECT_FALSE(set.Has(2, 0));
}

TEST(ParameterSet, ClearEmptiesItemsAuthorAndMemo) {
  ParameterSet set(4);
  set.Set(3, 99, u"x");
  set.Author = u"a";
  set.Memo = u"m";
  set.Clear();
  EXPECT_EQ(set.At(3, 99), u"");
  EXPECT_EQ(set.Author, u"");
  EXPECT_EQ(set.Memo, u"");
}

TEST(ParameterSet, ClearItemsKeepsAuthorAndMemo) {
  ParameterSet set(4);
  set.Set(0, 0, u"x");
  set.Author = u"a";
  set.Memo = u"m";
  set.ClearItems();
  EXPECT_EQ(set.At(0, 0), u"");
  EXPECT_EQ(set.Author, u"a");
  EXPECT_EQ(set.Memo, u"m");
}

TEST(ParameterSet, TakesOverWhatAnotherSetHasAndKeepsTheRest) {
  ParameterSet set(4);
  set.Set(1, 1, u"old");
  set.Set(1, 2, u"kept");
  ParameterSet other(4);
  other.Set(1, 1, u"new");
  other.Author = u"a";
  set.TakeOver(other);
  EXPECT_EQ(set.At(1, 1), u"new");
  EXPECT_EQ(set.At(1, 2), u"kept");
  EXPECT_EQ(set.Author, u"a");
}

}  // namespace
}  // namespace korva
