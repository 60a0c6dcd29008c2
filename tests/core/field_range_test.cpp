// What may stand in a field: limits that count or not, what is allowed besides, and two rules at once.

#include "core/field_range.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

TEST(FieldRangeTest, TheLimitsThemselvesAreAllowed) {
  const FieldRange range = RangeBetween(u"-15.00", u"115.00");
  EXPECT_TRUE(range.Takes(-15));
  EXPECT_TRUE(range.Takes(115));
  EXPECT_FALSE(range.Takes(-15.01));
  EXPECT_FALSE(range.Takes(115.01));
}

TEST(FieldRangeTest, OrTheyAreNot) {
  const FieldRange range = {.low = -300, .high = 300, .ends = false};
  EXPECT_FALSE(range.Takes(300));
  EXPECT_FALSE(range.Takes(-300));
  EXPECT_TRUE(range.Takes(299.99));
}

TEST(FieldRangeTest, ASideWithoutALimitTakesAnything) {
  const FieldRange range = {.high = 150};
  EXPECT_TRUE(range.Takes(-1e300));
  EXPECT_FALSE(range.Takes(150.5));
}

TEST(FieldRangeTest, ALimitIsMeantAsAUserReadsIt) {
  const FieldRange range = {.low = 0.1 + 0.2};
  EXPECT_TRUE(range.Takes(0.3));
}

TEST(FieldRangeTest, ANumberMayBeAllowedBesides) {
  const FieldRange range = {.low = 20, .high = 29.99999, .also = -999.9};
  EXPECT_TRUE(range.Takes(-999.9));
  EXPECT_FALSE(range.Takes(-999.8));
}

TEST(FieldRangeTest, TheEndsOfAPairLieItsSpanApart) {
  const FieldRange range = {.low = 0, .high = 100, .span = 0.3};
  EXPECT_TRUE(range.TakesPair(0.1, 0.4));  // 0.3 as a user reads it
  EXPECT_FALSE(range.TakesPair(0.1, 0.39));
  EXPECT_FALSE(range.TakesPair(50, 10));
  EXPECT_TRUE(FieldRange().TakesPair(5, 5));
  EXPECT_FALSE(FieldRange().TakesPair(5, 4.9));
}

TEST(FieldRangeTest, TheUpperEndMayHaveToBeAboveTheLowerOne) {
  const FieldRange range = {.rises = true};
  EXPECT_TRUE(range.TakesPair(1, 1.01));
  EXPECT_FALSE(range.TakesPair(1, 1));
}

TEST(FieldRangeTest, ZeroMayBeLimitedByItsDistanceFromSpan) {
  const FieldRange range = {.span = 0.003, .suppression = 3};
  EXPECT_TRUE(range.TakesPair(3, 4));
  EXPECT_FALSE(range.TakesPair(3.01, 4));
  EXPECT_TRUE(range.TakesPair(-10, -9));
}

TEST(FieldRangeTest, TwoRulesLeaveWhatBothAllow) {
  const auto both = Narrowed(FieldRange{.low = 0, .high = 20, .span = 1}, FieldRange{.low = 4, .high = 100});
  ASSERT_TRUE(both.has_value());
  EXPECT_EQ(both->low, 4);
  EXPECT_EQ(both->high, 20);
  EXPECT_EQ(both->span, 1);
}

TEST(FieldRangeTest, OneRuleAloneStays) {
  const FieldRange only = {.low = 1, .high = 2};
  EXPECT_EQ(Narrowed(std::nullopt, only)->low, 1);
  EXPECT_EQ(Narrowed(only, std::nullopt)->high, 2);
  EXPECT_FALSE(Narrowed(std::nullopt, std::nullopt).has_value());
}

}  // namespace
}  // namespace korva
