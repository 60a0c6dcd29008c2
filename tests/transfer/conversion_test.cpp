#include "transfer/conversion.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

struct ConversionCase {
  StringView from;
  StringView to;
  double value;
  double result;
};

TEST(ConvertDifference, HasNoOffset) {
  EXPECT_EQ(ConvertDifference(u"deg C", u"deg F", 10), 18.0);
  EXPECT_EQ(ConvertDifference(u"K", u"deg F", -2), -3.6);
  EXPECT_EQ(ConvertDifference(u"deg F", u"deg C", 18), 10.0);
  EXPECT_EQ(ConvertDifference(u"deg F", u"K", 4), 2.2);
  EXPECT_EQ(ConvertDifference(u"deg C", u"K", 5), 5.0);
  EXPECT_EQ(ConvertDifference(u"K", u"deg C", 0), 0.0);
}

TEST(ConvertDifference, RoundsATieToTheEvenNeighbourAndKnowsTheThreeUnitsOnly) {
  EXPECT_EQ(ConvertDifference(u"deg C", u"K", 0.25), 0.2);
  EXPECT_EQ(ConvertDifference(u"V", u"K", 5), 0.0);
  EXPECT_EQ(ConvertDifference(u"K", u"", 5), 0.0);
}

TEST(ConvertTemperatureTest, EachPairOfUnitsHasItsConstants) {
  const ConversionCase cases[] = {
      {u"deg C", u"deg F", 0, 32},    {u"deg C", u"deg F", 100, 212}, {u"deg C", u"deg F", -40, -40},
      {u"deg C", u"K", 0, 273.2},     {u"deg C", u"K", -273.2, 0},    {u"deg F", u"deg C", 32, 0},
      {u"deg F", u"deg C", 0, -17.8}, {u"deg F", u"deg C", 212, 100}, {u"deg F", u"K", 0, 255.4},
      {u"deg F", u"K", 32, 273.2},    {u"K", u"deg C", 273.2, 0},     {u"K", u"deg C", 0, -273.2},
      {u"K", u"deg F", 273.2, 32},    {u"K", u"deg F", 373.2, 212},
  };
  for (const auto& one : cases) {
    EXPECT_DOUBLE_EQ(ConvertTemperature(one.from, one.to, one.value), one.result)
        << one.value << " to " << one.result;
  }
}

TEST(ConvertTemperatureTest, TheResultHasOneDecimalAndATieGoesToTheEvenNeighbour) {
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg C", u"deg F", 1.25), 34.2);  // 34.25
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg C", u"deg F", 3.75), 38.8);  // 38.75
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg F", u"deg C", 1), -17.2);    // -17.244
}

TEST(ConvertTemperatureTest, ThereAndBackNeedNotGiveTheSameNumber) {
  const double fahrenheit = ConvertTemperature(u"deg C", u"deg F", -10.1);  // 13.82
  EXPECT_DOUBLE_EQ(fahrenheit, 13.8);
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg F", u"deg C", fahrenheit), -10.1);  // -10.133
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg F", u"deg C", 33), 0.5);            // 0.533
  EXPECT_DOUBLE_EQ(ConvertTemperature(u"deg C", u"deg F", 0.5), 32.9);
}

TEST(ConvertTemperatureTest, EqualAndUnknownUnitsGiveZero) {
  EXPECT_EQ(ConvertTemperature(u"K", u"K", 5), 0);
  EXPECT_EQ(ConvertTemperature(u"deg C", u"mV", 5), 0);
  EXPECT_EQ(ConvertTemperature(u"%", u"deg C", 5), 0);
  EXPECT_EQ(ConvertTemperature(u"", u"K", 5), 0);
}

TEST(LimitTest, OnlyFahrenheitAndKelvinConvertALimit) {
  EXPECT_DOUBLE_EQ(LimitInUnit(1000, u"deg F"), 1832);
  EXPECT_DOUBLE_EQ(LimitInUnit(-200, u"K"), -200 + 273.2);
  for (const StringView unit : {u"deg C", u"V", u"mV", u"%", u""}) {
    EXPECT_EQ(LimitInUnit(10, unit), 10);
  }
}

TEST(LimitTest, ASpanConvertsWithoutTheOffset) {
  EXPECT_DOUBLE_EQ(SpanInUnit(50, u"deg F"), 90);
  EXPECT_EQ(SpanInUnit(50, u"K"), 50);
  EXPECT_EQ(SpanInUnit(50, u"deg C"), 50);
}

struct RoundingCase {
  String text;
  String old_number;
  String new_number;
  String result;
};

TEST(RoundTo5MsecTest, TheLastDigitGoesDownToZeroOrFive) {
  const RoundingCase cases[] = {
      {u"7", u"7", u"5", u"5"},
      {u"10", u"10", u"10", u"10"},
      {u"11", u"11", u"10", u"10"},
      {u"14", u"14", u"10", u"10"},
      {u"15", u"15", u"15", u"15"},
      {u"16", u"16", u"15", u"15"},
      {u"19", u"19", u"15", u"15"},
      {u"4", u"4", u"0", u"0"},
      {u"12.5", u"12", u"10", u"10"},
      {u"13.5", u"14", u"10", u"10"},
      {u"10.4", u"10", u"10", u"10"},
      {u"1003", u"1003", u"1000", u"1000"},
      {u"103 msec", u"103", u"100", u"100 msec"},
      {u"100 msec", u"100", u"100", u"100 msec"},
      {u"107msec", u"107", u"105", u"105msec"},
  };
  for (const auto& one : cases) {
    const GridRounding rounding = RoundTo5Msec(one.text);
    ASSERT_TRUE(rounding.number);
    EXPECT_EQ(rounding.old_number, one.old_number);
    EXPECT_EQ(rounding.new_number, one.new_number);
    EXPECT_EQ(rounding.text, one.result);
  }
}

TEST(RoundTo5MsecTest, ATextThatBeginsWithNoNumberIsLeftAlone) {
  for (const String text : {u"", u"NEEDLESS", u"ERROR", u"msec", u" "}) {
    EXPECT_FALSE(RoundTo5Msec(text).number);
  }
}

struct QuantityCase {
  StringView text;
  StringView number;
  StringView unit;
};

TEST(SplitQuantityTest, TheUnitBeginsBehindTheLeadingNumber) {
  const QuantityCase cases[] = {
      {u"12.50 kHz", u"12.50", u"kHz"}, {u"12.50kHz", u"12.50", u"kHz"}, {u"  100  msec ", u"100", u"msec"},
      {u"-0.5 %", u"-0.5", u"%"},       {u"1E3 Hz", u"1E3", u"Hz"},      {u"1.5.2 Hz", u"1.5", u".2 Hz"},
      {u"7 deg C", u"7", u"deg C"},     {u"12.5", u"12.5", u""},         {u"12\t", u"12", u""},
  };
  for (const auto& one : cases) {
    const Quantity quantity = SplitQuantity(one.text);
    EXPECT_EQ(quantity.number, one.number);
    EXPECT_EQ(quantity.unit, one.unit);
  }
}

TEST(SplitQuantityTest, ATextThatBeginsWithNoNumberHasNeither) {
  for (const StringView text : {u"", u" ", u"kHz", u"invalid data", u"NEEDLESS", u"-"}) {
    EXPECT_EQ(SplitQuantity(text).number, u"");
    EXPECT_EQ(SplitQuantity(text).unit, u"");
  }
}

TEST(RoundTo005VTest, TheLastOfTwoDecimalsGoesUpToFiveOrTheNextZero) {
  const RoundingCase cases[] = {
      {u"1.21", u"1.21", u"1.25", u"1.25"},   {u"1.24", u"1.24", u"1.25", u"1.25"},
      {u"1.25", u"1.25", u"1.25", u"1.25"},   {u"1.26", u"1.26", u"1.30", u"1.30"},
      {u"1.99", u"1.99", u"2.00", u"2.00"},   {u"1.2", u"1.20", u"1.20", u"1.20"},
      {u"0.01V", u"0.01", u"0.05", u"0.05V"}, {u"1.255", u"1.26", u"1.30", u"1.30"},
  };
  for (const auto& one : cases) {
    const GridRounding rounding = RoundTo005V(one.text);
    ASSERT_TRUE(rounding.number);
    EXPECT_EQ(rounding.old_number, one.old_number);
    EXPECT_EQ(rounding.new_number, one.new_number);
    EXPECT_EQ(rounding.text, one.result);
  }
}

}  // namespace
}  // namespace korva
