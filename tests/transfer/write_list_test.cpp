#include "transfer/write_list.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

WriteEntry Entry(const String& prefix, const String& source) {
  return {.item = {.group = u"01", .item = u"16"}, .source = source, .data = source, .prefix = prefix};
}

TEST(ReplyTest, AChoiceMustComeBackExactlyAsItStandsInTheSet) {
  EXPECT_TRUE(ReplyProves(Entry(u"", u"Tc-2:K(CA)"), u"Tc-2:K(CA)"));
  EXPECT_TRUE(ReplyProves(Entry(u"", u"Tc-2:K(CA)"), u"  Tc-2:K(CA) "));
  EXPECT_FALSE(ReplyProves(Entry(u"", u"Tc-2:K(CA)"), u"Tc-2: K(CA)"));
  EXPECT_FALSE(ReplyProves(Entry(u"", u"Tc-2:K(CA)"), u"Tc-2:k(ca)"));
}

TEST(ReplyTest, TheTagMustComeBackAsItWasSent) {
  EXPECT_TRUE(ReplyProves(Entry(u"TG:", u"PUMP 1"), u"TG:PUMP 1    "));
  EXPECT_FALSE(ReplyProves(Entry(u"TG:", u"PUMP 1"), u"TG:PUMP 2"));
  EXPECT_FALSE(ReplyProves(Entry(u"TG:", u"PUMP 1"), u"TG:"));
}

TEST(ReplyTest, AnEmptyTagMustComeBackAsTenBlanks) {
  EXPECT_TRUE(ReplyProves(Entry(u"TG:", u"          "), u"TG:          "));
  EXPECT_FALSE(ReplyProves(Entry(u"TG:", u"          "), u"TG:         "));
  EXPECT_FALSE(ReplyProves(Entry(u"TG:", u"          "), u"TG:"));
}

TEST(ReplyTest, FineZeroAndSpanMayDifferByTwoHundredths) {
  for (const String prefix : {u"FINZER", u"FINSPN"}) {
    EXPECT_TRUE(ReplyProves(Entry(prefix, u"0.12"), prefix + u" 0.10"));
    EXPECT_TRUE(ReplyProves(Entry(prefix, u"0.08"), prefix + u" 0.10"));
    EXPECT_TRUE(ReplyProves(Entry(prefix, u"-1.02"), prefix + u"-1.00%"));
    EXPECT_FALSE(ReplyProves(Entry(prefix, u"0.121"), prefix + u" 0.10"));
    EXPECT_FALSE(ReplyProves(Entry(prefix, u"0.079"), prefix + u" 0.10"));
  }
}

TEST(ReplyTest, AFineReplyNoLongerThanItsPrefixCountsAsZero) {
  EXPECT_TRUE(ReplyProves(Entry(u"FINZER", u"0.02"), u"0.50"));
  EXPECT_FALSE(ReplyProves(Entry(u"FINZER", u"0.50"), u"0.50"));
}

TEST(ReplyTest, AnyOtherPlainValueIsProvedByWhateverComesBack) {
  EXPECT_TRUE(ReplyProves(Entry(u"INPZER", u"12.5"), u"INPZER 99.9"));
  EXPECT_FALSE(ReplyProves(Entry(u"INPZER", u"12.5"), u""));
}

TEST(ReplyTest, ThePrefixIsCutByItsLengthAlone) {
  EXPECT_EQ(WithoutPrefix(u"TG:ABC", u"TG:"), u"ABC");
  EXPECT_EQ(WithoutPrefix(u"XY-ABC", u"TG:"), u"ABC");
  EXPECT_EQ(WithoutPrefix(u"TG:  ABC  ", u"TG:"), u"ABC");
  EXPECT_EQ(WithoutPrefix(u"TG:", u"TG:"), u"");
  EXPECT_EQ(WithoutPrefix(u"T", u"TG:"), u"");
}

}  // namespace
}  // namespace korva
