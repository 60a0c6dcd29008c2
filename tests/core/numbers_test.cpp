#include "core/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>

namespace korva {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

struct TextAndNumber {
  String text;
  double number;
};

class LeadingNumberTest : public testing::TestWithParam<TextAndNumber> {};

TEST_P(LeadingNumberTest, ReadsTheNumberAtTheBeginning) {
  EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().number) << testing::PrintToString(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Numbers, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"", 0.0}, TextAndNumber{u"0", 0.0},
                                         TextAndNumber{u"12.5", 12.5}, TextAndNumber{u"-12.5", -12.5},
                                         TextAndNumber{u"+3", 3.0}, TextAndNumber{u".5", 0.5},
                                         TextAndNumber{u"-.25", -0.25}, TextAndNumber{u"12.", 12.0},
                                         TextAndNumber{u"007", 7.0}));

INSTANTIATE_TEST_SUITE_P(WhatFollowsIsIgnored, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"1.5.2", 1.5}, TextAndNumber{u"12.5mA", 12.5},
                                         TextAndNumber{u"12.5 mA", 12.5},
                                         TextAndNumber{u"1200 deg C", 1200.0}, TextAndNumber{u"10-5", 10.0},
                                         TextAndNumber{u"5%", 5.0}, TextAndNumber{u"1,234", 1.0}));

INSTANTIATE_TEST_SUITE_P(NoNumberCountsZero, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"abc", 0.0}, TextAndNumber{u"-", 0.0},
                                         TextAndNumber{u".", 0.0}, TextAndNumber{u"--5", 0.0},
                                         TextAndNumber{u"e5", 0.0}, TextAndNumber{u"NEEDLESS", 0.0},
                                         TextAndNumber{u"   ", 0.0}, TextAndNumber{u"#1", 0.0},
                                         TextAndNumber{u"１２", 0.0}, TextAndNumber{u"inf", 0.0},
                                         TextAndNumber{u"nan", 0.0}));

INSTANTIATE_TEST_SUITE_P(BlanksAndTabsAreSkipped, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"  7", 7.0}, TextAndNumber{u"\t7", 7.0},
                                         TextAndNumber{u"- 7", -7.0}, TextAndNumber{u"1 2\t3", 123.0}));

INSTANTIATE_TEST_SUITE_P(Exponents, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"1e3", 1000.0}, TextAndNumber{u"1E3", 1000.0},
                                         TextAndNumber{u"2d2", 200.0}, TextAndNumber{u"2D2", 200.0},
                                         TextAndNumber{u"25e-1", 2.5}, TextAndNumber{u"1.5E+2", 150.0},
                                         TextAndNumber{u"1e", 1.0}, TextAndNumber{u"1e+", 1.0},
                                         TextAndNumber{u"12.5deg C", 12.5}, TextAndNumber{u"1e2e3", 100.0},
                                         TextAndNumber{u"1e2.5", 100.0}));

INSTANTIATE_TEST_SUITE_P(TooLargeGivesTheLargestAndTooSmallZero, LeadingNumberTest,
                         testing::Values(TextAndNumber{u"1e400", kLargest},
                                         TextAndNumber{u"-1e400", -kLargest},
                                         TextAndNumber{u"1e99999999999999999999", kLargest},
                                         TextAndNumber{u"1e-400", 0.0}, TextAndNumber{u"-1e-400", 0.0},
                                         TextAndNumber{u"0e999999", 0.0},
                                         TextAndNumber{String(400, u'9'), kLargest},
                                         TextAndNumber{u"0." + String(400, u'0') + u"1", 0.0}));

TEST(LeadingNumber, GivesNoNegativeZero) { EXPECT_FALSE(std::signbit(LeadingNumber(u"-0"))); }

TEST(LeadingNumber, StopsAtANulCharacter) { EXPECT_EQ(LeadingNumber(String(u"1\0002", 3)), 1.0); }

TEST(LeadingInteger, RoundsATieToTheEvenNeighbour) {
  EXPECT_EQ(LeadingInteger(u"2.5"), 2);
  EXPECT_EQ(LeadingInteger(u"3.5"), 4);
  EXPECT_EQ(LeadingInteger(u"-2.5"), -2);
  EXPECT_EQ(LeadingInteger(u"2.51"), 3);
  EXPECT_EQ(LeadingInteger(u"03_set"), 3);
}

TEST(LeadingInteger, TakesDigitsAloneAsTheyStand) {
  EXPECT_EQ(LeadingInteger(u""), 0);
  EXPECT_EQ(LeadingInteger(u"0"), 0);
  EXPECT_EQ(LeadingInteger(u"007"), 7);
  EXPECT_EQ(LeadingInteger(u"105"), 105);
  EXPECT_EQ(LeadingInteger(u"1 05"), 105);
  EXPECT_EQ(LeadingInteger(u"999999999"), 999999999);
  EXPECT_EQ(LeadingInteger(u"1000000000"), 1000000000);
}

TEST(LeadingInteger, StaysInTheRangeOfAnInteger) {
  EXPECT_EQ(LeadingInteger(u"1e20"), std::numeric_limits<int>::max());
  EXPECT_EQ(LeadingInteger(u"-1e20"), std::numeric_limits<int>::min());
  EXPECT_EQ(LeadingInteger(u"2147483647"), 2147483647);
  EXPECT_EQ(LeadingInteger(u"2147483648"), 2147483647);
}

TEST(IsNumeric, TakesSignDigitsOnePointAndAnExponentWithBlanksAround) {
  for (const StringView text :
       {u"1", u"-1", u"+1", u"1.5", u".5", u"5.", u"1e5", u"1E-5", u"2d3", u" 12 ", u"\t12"}) {
    EXPECT_TRUE(IsNumeric(text)) << testing::PrintToString(text);
  }
}

TEST(IsNumeric, TakesNothingElse) {
  for (const StringView text : {u"", u" ", u"abc", u"1a", u"-", u"+", u".", u"1.2.3", u"1 2", u"- 1", u"--1",
                                u"1-", u"e5", u"1e", u"1e+", u"1e5.5", u"1,5", u"１", u"12.5 mA"}) {
    EXPECT_FALSE(IsNumeric(text)) << testing::PrintToString(text);
  }
}

TEST(NumericLength, IsThatOfTheLongestNumericBeginning) {
  EXPECT_EQ(NumericLength(u"12.5 mA"), 5U);
  EXPECT_EQ(NumericLength(u" 1e+x"), 2U);
  EXPECT_EQ(NumericLength(u"x1"), 0U);
}

struct NumberAndText {
  double number;
  String text;
};

class ShortestTextTest : public testing::TestWithParam<NumberAndText> {};

TEST_P(ShortestTextTest, WritesTheShortestDecimalForm) {
  EXPECT_EQ(ShortestText(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ShortestTextTest,
    testing::Values(NumberAndText{0.0, u"0"}, NumberAndText{-0.0, u"0"}, NumberAndText{12.0, u"12"},
                    NumberAndText{0.5, u"0.5"}, NumberAndText{-0.5, u"-0.5"},
                    NumberAndText{0.2 + 0.1, u"0.3"}, NumberAndText{100.0, u"100"},
                    NumberAndText{1234.5678, u"1234.5678"}, NumberAndText{1.0 / 3.0, u"0.333333333333333"},
                    NumberAndText{2.0 / 3.0, u"0.666666666666667"}, NumberAndText{0.00001, u"0.00001"},
                    NumberAndText{123456789012345.0, u"123456789012345"},
                    NumberAndText{100000000000000.0, u"100000000000000"}, NumberAndText{1e15, u"1E+15"},
                    NumberAndText{1e20, u"1E+20"}, NumberAndText{-1.5e20, u"-1.5E+20"},
                    NumberAndText{1e100, u"1E+100"}, NumberAndText{1e-20, u"1E-20"},
                    NumberAndText{1.0 / 30.0, u"3.33333333333333E-02"}));

TEST(IsPlainDecimal, IsASignDigitsAndAPointAndNothingElse) {
  for (const StringView text : {u"0", u"12", u"-0.5", u"+3", u".5", u"12."}) {
    EXPECT_TRUE(IsPlainDecimal(text)) << std::string(text.begin(), text.end());
  }
  for (const StringView text : {u"", u"-", u".", u"1,5", u"1e2", u"1D2", u"12abc", u"1.5.2", u"- 5", u" 7",
                                u"7 ", u"5\t", u"１２", u"0x10", u"--1"}) {
    EXPECT_FALSE(IsPlainDecimal(text)) << std::string(text.begin(), text.end());
  }
}

TEST(ShortestText, ReadsBackAsTheSameNumber) {
  for (const double number : {0.1, 1200.0, -299.99, 0.0001, 1e15, 8.25e-9}) {
    EXPECT_EQ(LeadingNumber(ShortestText(number)), number);
  }
}

TEST(ShortestText, SurvivesWhatIsNoFiniteNumber) {
  EXPECT_EQ(ShortestText(std::numeric_limits<double>::infinity()), u"1.79769313486232E+308");
  EXPECT_EQ(ShortestText(std::numeric_limits<double>::quiet_NaN()), u"0");
}

struct MaskedNumber {
  double number;
  StringView mask;
  String text;
};

class FormatMaskTest : public testing::TestWithParam<MaskedNumber> {};

TEST_P(FormatMaskTest, WritesTheNumberByTheMask) {
  EXPECT_EQ(FormatMask(GetParam().number, GetParam().mask), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(WholeNumbers, FormatMaskTest,
                         testing::Values(MaskedNumber{0.0, u"#0", u"0"}, MaskedNumber{0.4, u"#0", u"0"},
                                         MaskedNumber{0.5, u"#0", u"1"}, MaskedNumber{-0.5, u"#0", u"-1"},
                                         MaskedNumber{2.5, u"#0", u"3"}, MaskedNumber{1832.0, u"#0", u"1832"},
                                         MaskedNumber{99.5, u"#0", u"100"},
                                         MaskedNumber{-17.8, u"#0", u"-18"},
                                         MaskedNumber{1e20, u"#0", u"100000000000000000000"}));

INSTANTIATE_TEST_SUITE_P(
    HalvesGoAwayFromZeroOnTheDecimalValue, FormatMaskTest,
    testing::Values(MaskedNumber{2.675, u"0.00", u"2.68"}, MaskedNumber{-2.675, u"0.00", u"-2.68"},
                    MaskedNumber{1.005, u"0.00", u"1.01"}, MaskedNumber{0.125, u"0.00", u"0.13"},
                    MaskedNumber{0.2 + 0.1 - 0.295, u"0.00", u"0.01"},
                    MaskedNumber{0.00005, u"0.0000", u"0.0001"}, MaskedNumber{2.674999, u"0.00", u"2.67"}));

INSTANTIATE_TEST_SUITE_P(NoNegativeZero, FormatMaskTest,
                         testing::Values(MaskedNumber{-0.4, u"#0", u"0"},
                                         MaskedNumber{-0.0, u"0.00", u"0.00"},
                                         MaskedNumber{-0.004, u"0.00", u"0.00"},
                                         MaskedNumber{-0.005, u"0.00", u"-0.01"}));

INSTANTIATE_TEST_SUITE_P(
    FixedAndOptionalDigits, FormatMaskTest,
    testing::Values(MaskedNumber{12.0, u"##0.00", u"12.00"}, MaskedNumber{1234.5, u"##0.00", u"1234.50"},
                    MaskedNumber{0.5, u"##0.00", u"0.50"}, MaskedNumber{1.5, u"#0.000", u"1.500"},
                    MaskedNumber{0.00012, u"#0.0000", u"0.0001"}, MaskedNumber{3.14159, u"0.0000", u"3.1416"},
                    MaskedNumber{100.0, u"0.00", u"100.00"}, MaskedNumber{9.999, u"0.00", u"10.00"},
                    MaskedNumber{1.5, u"0.##", u"1.5"}, MaskedNumber{7.0, u"000", u"007"}));

TEST(FormatMask, SurvivesWhatIsNoFiniteNumber) {
  EXPECT_EQ(FormatMask(std::numeric_limits<double>::quiet_NaN(), u"0.00"), u"0.00");
  EXPECT_EQ(FormatMask(-std::numeric_limits<double>::infinity(), u"#0").size(), 310U);
}

TEST(RoundHalfEven, GoesToTheNearestAndATieToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0.0);
  EXPECT_EQ(RoundHalfEven(1.5), 2.0);
  EXPECT_EQ(RoundHalfEven(2.5), 2.0);
  EXPECT_EQ(RoundHalfEven(12.5), 12.0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2.0);
  EXPECT_EQ(RoundHalfEven(-2.5), -2.0);
  EXPECT_EQ(RoundHalfEven(2.4999), 2.0);
  EXPECT_EQ(RoundHalfEven(2.5001), 3.0);
  EXPECT_EQ(RoundHalfEven(1e300), 1e300);
  EXPECT_FALSE(std::signbit(RoundHalfEven(-0.5)));
}

/// Writes numbers as many European machines do.
class DecimalComma : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class ForeignMachineTest : public testing::Test {
 protected:
  void SetUp() override {
    former_ = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    // Machines without these locales still have the stream one above.
    for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
      std::setlocale(LC_NUMERIC, name);
    }
  }
  void TearDown() override {
    std::locale::global(former_);
    std::setlocale(LC_NUMERIC, "C");
  }

 private:
  std::locale former_;
};

TEST_F(ForeignMachineTest, NumbersDependOnNoLocale) {
  EXPECT_EQ(LeadingNumber(u"1.5"), 1.5);
  EXPECT_EQ(LeadingNumber(u"1,5"), 1.0);
  EXPECT_EQ(ShortestText(1234.5), u"1234.5");
  EXPECT_EQ(FormatMask(1234.5, u"0.00"), u"1234.50");
}

TEST(DecimalComparison, AWholeNumberIsReachedUpwardsForTheLowLimitAndDownwardsForTheHighOne) {
  EXPECT_EQ(WholeUp(73.2), 74);
  EXPECT_EQ(WholeUp(-148.5), -148);
  EXPECT_EQ(WholeUp(32), 32);
  EXPECT_EQ(WholeDown(1073.2), 1073);
  EXPECT_EQ(WholeDown(-148.5), -149);
  EXPECT_EQ(WholeDown(212), 212);
  EXPECT_EQ(WholeUp(0.1 + 0.2 + 0.7), 1) << "what binary fractions leave behind is no fraction";
}

TEST(DecimalComparison, NumbersAreComparedAsTheyAreRead) {
  EXPECT_TRUE(AtLeast(0.3 - 0.2, 0.1));
  EXPECT_FALSE(AtLeast(0.0999, 0.1));
}

}  // namespace
}  // namespace korva
