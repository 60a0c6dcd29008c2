#include "core/text_utilities.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

TEST(Filled, PutsTheArgumentsIntoTheirPlaces) {
  EXPECT_EQ(Filled(u"{2} of {1}{2}", {u"{2}", u"b"}), u"b of {2}b") << "an argument is no place";
  EXPECT_EQ(Filled(u"none {", {}), u"none {");
}

TEST(IsBetween, IncludesBothEnds) {
  EXPECT_TRUE(IsBetween(10, 0, 10));
  EXPECT_TRUE(IsBetween(10, 0, 0));
  EXPECT_TRUE(IsBetween(10, 0, 5));
}

TEST(IsBetween, ExcludesWhatLiesOutside) {
  EXPECT_FALSE(IsBetween(10, 0, 10.01));
  EXPECT_FALSE(IsBetween(10, 0, -0.01));
}

TEST(IsBetween, TakesTheUpperLimitFirst) { EXPECT_FALSE(IsBetween(0, 10, 5)); }

TEST(TrimNumericText, CutsTheUnitBehindTheNumberAndThenTheBlanks) {
  EXPECT_EQ(TrimNumericText(u"12.5 mA"), u"12.5");
  EXPECT_EQ(TrimNumericText(u"\t 12.5 \tmA"), u"12.5");
  EXPECT_EQ(TrimNumericText(u"-3.0%"), u"-3.0");
  EXPECT_EQ(TrimNumericText(u"1e5x"), u"1e5");
  EXPECT_EQ(TrimNumericText(u"1e-x"), u"1");
}

TEST(TrimNumericText, LeavesANumberAsItIs) { EXPECT_EQ(TrimNumericText(u"0012.50"), u"0012.50"); }

TEST(TrimNumericText, OnAnEmptyTextGivesAnEmptyText) { EXPECT_EQ(TrimNumericText(u""), u""); }

TEST(TrimNumericText, OnATextOfOnlyBlanksEndsEmpty) {
  EXPECT_EQ(TrimNumericText(u"     "), u"");
  EXPECT_EQ(TrimNumericText(u" \t "), u"");
}

TEST(TrimNumericText, OnATextThatBeginsWithNoNumberEndsEmpty) {
  EXPECT_EQ(TrimNumericText(u"NO ALARM"), u"");
  EXPECT_EQ(TrimNumericText(u"D12.5"), u"");
}

TEST(TrimNumericTextLeft, CutsWhatStandsBeforeTheNumber) {
  EXPECT_EQ(TrimNumericTextLeft(u"DS: 12.5"), u"12.5");
  EXPECT_EQ(TrimNumericTextLeft(u"D-12.5 "), u"-12.5");
  EXPECT_EQ(TrimNumericTextLeft(u"1.2.3"), u"2.3");
}

TEST(TrimNumericTextLeft, OnATextThatEndsWithNoNumberEndsEmpty) {
  EXPECT_EQ(TrimNumericTextLeft(u"12.5 mA"), u"");
  EXPECT_EQ(TrimNumericTextLeft(u"  "), u"");
  EXPECT_EQ(TrimNumericTextLeft(u""), u"");
}

TEST(FilterNumericText, KeepsDigitsSignsAndPoints) {
  EXPECT_EQ(FilterNumericText(u"12.5mA"), u"12.5");
  EXPECT_EQ(FilterNumericText(u"T-1"), u"-1");
  EXPECT_EQ(FilterNumericText(u"1,234"), u"1234");
  EXPECT_EQ(FilterNumericText(u"1e5"), u"15");
}

TEST(FilterNumericText, IsEmptyWhenTheRestIsNoNumber) {
  EXPECT_EQ(FilterNumericText(u"a-b"), u"");
  EXPECT_EQ(FilterNumericText(u"1-2"), u"");
  EXPECT_EQ(FilterNumericText(u"1.2.3"), u"");
  EXPECT_EQ(FilterNumericText(u""), u"");
}

TEST(NumericValue, IsTheValueOfWhatTheFilterKeeps) {
  EXPECT_EQ(NumericValue(u"12.5mA"), 12.5);
  EXPECT_EQ(NumericValue(u"ab-3"), -3.0);
}

TEST(NumericValue, OnATextWithoutANumberGivesZero) {
  EXPECT_EQ(NumericValue(u"abc"), 0.0);
  EXPECT_EQ(NumericValue(u""), 0.0);
  EXPECT_EQ(NumericValue(u"1-2"), 0.0);
}

TEST(CommaToPoint, ReplacesTheFirstCommaAlone) {
  EXPECT_EQ(CommaToPoint(u"1,234,5"), u"1.234,5");
  EXPECT_EQ(CommaToPoint(u","), u".");
}

TEST(CommaToPoint, LeavesATextWithoutACommaUnchanged) {
  EXPECT_EQ(CommaToPoint(u"1.5"), u"1.5");
  EXPECT_EQ(CommaToPoint(u""), u"");
}

TEST(HalfWidthNumber, TurnsFullWidthDigitsSignsAndPointsAndNothingElse) {
  EXPECT_EQ(HalfWidthNumber(u"０１２３４５６７８９"), u"0123456789");
  EXPECT_EQ(HalfWidthNumber(u"＋１．５"), u"+1.5");
  EXPECT_EQ(HalfWidthNumber(u"－２"), u"-2");
  EXPECT_EQ(HalfWidthNumber(u"\u2212３"), u"-3") << "the minus of mathematics";
  EXPECT_EQ(HalfWidthNumber(u"1，5 ＡＢ ー"), u"1，5 ＡＢ ー");
  EXPECT_EQ(HalfWidthNumber(u""), u"");
}

TEST(Trimmed, CutsBlanksButNoTabsAtBothEnds) {
  EXPECT_EQ(Trimmed(u"  a b  "), u"a b");
  EXPECT_EQ(Trimmed(u" \ta "), u"\ta");
  EXPECT_EQ(Trimmed(u"   "), u"");
  EXPECT_EQ(Trimmed(u""), u"");
}

TEST(Utf8, GoesBothWays) {
  const String text = u"A é ﾌｧｲﾙ 機種名 \U0001F600";
  const std::string bytes =
      "A \xC3\xA9 \xEF\xBE\x8C\xEF\xBD\xA7\xEF\xBD\xB2\xEF\xBE\x99 \xE6\xA9\x9F\xE7\xA8\xAE\xE5\x90\x8D "
      "\xF0\x9F\x98\x80";
  EXPECT_EQ(ToUtf8(text), bytes);
  EXPECT_EQ(FromUtf8(bytes), text);
}

TEST(Utf8, KeepsNulCharacters) {
  EXPECT_EQ(ToUtf8(String(3, u'\0')), std::string(3, '\0'));
  EXPECT_EQ(FromUtf8(std::string(3, '\0')), String(3, u'\0'));
}

TEST(Utf8, TurnsALoneSurrogateIntoTheReplacementCharacter) {
  EXPECT_EQ(ToUtf8(String{u'a', char16_t{0xD800}}), "a\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(String{char16_t{0xDC00}, u'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(ToUtf8(String{char16_t{0xD800}, char16_t{0xD800}, char16_t{0xDC00}}),
            "\xEF\xBF\xBD\xF0\x90\x80\x80");
}

TEST(Utf8, TurnsEachBrokenSequenceIntoOneReplacementCharacter) {
  EXPECT_EQ(FromUtf8("\xFF"
                     "a"),
            u"\uFFFDa");
  EXPECT_EQ(FromUtf8("\x80"), u"\uFFFD");
  EXPECT_EQ(FromUtf8("\xE6\xA9"), u"\uFFFD");
  EXPECT_EQ(FromUtf8("\xE6\xA9"
                     "a"),
            u"\uFFFDa");
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, TakesNoOverlongFormAndNoSurrogate) {
  EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xF0\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Ascii, WidensSevenBitCharactersOnly) {
  EXPECT_EQ(Ascii("COM 1"), u"COM 1");
  EXPECT_EQ(Ascii("a\x80"), u"a\uFFFD");
}

TEST(IsLikeTest, AQuestionMarkStandsForAnyCharacterAndAHashForAnyDigit) {
  EXPECT_TRUE(IsLike(u"Z2WT.def", u"Z2WT.def"));
  EXPECT_TRUE(IsLike(u"Z2WT.def", u"Z#W?.def"));
  EXPECT_TRUE(IsLike(u"Z8WM2.def", u"Z#WM2.def"));
  EXPECT_TRUE(IsLike(u"Z2W2.def", u"Z2W?.def"));
  EXPECT_TRUE(IsLike(u"", u""));
}

TEST(IsLikeTest, TheWholeTextCounts) {
  EXPECT_FALSE(IsLike(u"Z2WT2.def", u"Z2W?.def"));
  EXPECT_FALSE(IsLike(u"Z2W.def", u"Z2W?.def"));
  EXPECT_FALSE(IsLike(u"ZAWT.def", u"Z#WT.def"));
  EXPECT_FALSE(IsLike(u"z2WT.def", u"Z2WT.def"));
  EXPECT_FALSE(IsLike(u"", u"?"));
}

TEST(SimplifiedTest, KeepsOneBlankBetweenWords) {
  EXPECT_EQ(Simplified(u"  Y(k) \t\r\n  uV\u3000"), u"Y(k) uV");
  EXPECT_EQ(Simplified(u"a b"), u"a b");
  EXPECT_EQ(Simplified(u" \u3000 "), u"");
}

}  // namespace
}  // namespace korva
