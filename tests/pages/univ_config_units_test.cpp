// The temperature unit and the units of the setpoints on the page of family QXI.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using test::UnivBench;

/// A page with an input and values in deg C.
struct WithValues : UnivBench {
  explicit WithValues(const String& input) {
    PickInput(input);
    for (const auto& [item, text] : std::initializer_list<std::pair<int, const char16_t*>>{
             {14, u"0"}, {15, u"1000"}, {26, u"250"}, {27, u"10"}, {29, u"-50"}, {30, u"2"}}) {
      Show(item, text);
    }
  }
  std::string Values() {
    std::string all;
    for (const char16_t* item : {u"14", u"15", u"26", u"27", u"29", u"30"}) {
      all += (all.empty() ? "" : " ") + ToUtf8(Field(item).Text());
    }
    return all;
  }
};

// --- the temperature unit

TEST(UnivTemperatureUnit, ConvertsTheRangeAndTheSetpointsAndTheirWidthsAsDifferences) {
  WithValues bench(u"Tc-2:K(CA)");
  bench.Press(bench.Page().optTempUnit, 1);
  // 250 C is 482 F, -50 C is -58 F; differences of 10 and 2 are 18 and 3.6, shown as 4
  EXPECT_EQ(bench.Values(), "32 1832 482 18 -58 4");
  EXPECT_EQ(bench.Page().Item(27), u"18");
  for (const char16_t* item : {u"14", u"15", u"26", u"27", u"29", u"30"}) {
    EXPECT_EQ(bench.UnitOf(item), u"deg F") << ToUtf8(item);
  }
  bench.Press(bench.Page().optTempUnit, 2);
  // 32 F is 17.78 + 255.4 = 273.2 K; 1832 F 1273.2 K; 482 F 523.2 K; 18 F 10 K; -58 F 223.2 K; 4 F 2.2 K
  EXPECT_EQ(bench.Values(), "273 1273 523 10 223 2");
  bench.Press(bench.Page().optTempUnit, 0);
  // 273 K is -0.2 C; 10 K stays 10 C
  EXPECT_EQ(bench.Values(), "0 1000 250 10 -50 2");
}

TEST(UnivTemperatureUnit, KeepsTheRangeWithinTheLimitsOfItsInput) {
  UnivBench bench;
  bench.PickInput(u"Tc-2:K(CA)");
  bench.Press(bench.Page().optTempUnit, 2);
  // -270 C is 3.2 K, 1370 C is 1643.2 K: the zero goes up to the next whole number, the span down
  EXPECT_EQ(bench.Field(u"14").Text(), u"4");
  EXPECT_EQ(bench.Field(u"15").Text(), u"1643");
}

TEST(UnivTemperatureUnit, ConvertsNothingWithoutASensor) {
  for (const char16_t* input : {u"mV-Z:USER mV", u"mV-1:1-5 V", u"POT:RATIO"}) {
    SCOPED_TRACE(ToUtf8(input));
    WithValues bench(input);
    const String unit = bench.UnitOf(u"14");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().optTempUnit[1]), "disabled") << "no user can press it";
    bench.Do([&] { bench.Page().optTempUnit[1].SetValue(true); });
    EXPECT_EQ(bench.Values(), "0 1000 250 10 -50 2");
    EXPECT_EQ(bench.UnitOf(u"14"), unit);
    EXPECT_EQ(bench.UnitOf(u"30"), unit);
    EXPECT_EQ(bench.Page().Item(21), u"1");
  }
}

TEST(UnivTemperatureUnit, LeavesASetpointInPercentAlone) {
  WithValues bench(u"RB-1:Pt100");
  bench.Show(38, u"1");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Values(), "32 1832 250 10 -58 4");
  EXPECT_EQ(bench.UnitOf(u"26"), u"%");
  EXPECT_EQ(bench.UnitOf(u"27"), u"%");
  EXPECT_EQ(bench.UnitOf(u"29"), u"deg F");
}

TEST(UnivTemperatureUnit, AnEmptyParameterBecomesZeroAndALiveBoxStaysEmpty) {
  UnivBench bench;
  bench.PickInput(u"Tc-2:K(CA)");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Field(u"26").Text(), u"32");
  EXPECT_EQ(bench.Field(u"04").Text(), u"");
  EXPECT_EQ(bench.Field(u"07").Text(), u"");
}

TEST(UnivTemperatureUnit, ConvertsALiveBoxOnlyWhereItsLabelIsATemperatureUnit) {
  UnivBench bench;
  bench.PickInput(u"Tc-2:K(CA)");
  bench.Do([&] {
    for (const char16_t* item : {u"04", u"06", u"07"}) {
      bench.Field(item).SetText(u"100");
    }
    bench.Page().UnitLabelOf(bench.Page().FindDataRow(u"07"))->SetCaption({});
  });
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Field(u"04").Text(), u"212");
  EXPECT_EQ(bench.UnitOf(u"04"), u"deg F");
  EXPECT_EQ(bench.Field(u"06").Text(), u"100") << "in percent";
  EXPECT_EQ(bench.UnitOf(u"06"), u"%");
  EXPECT_EQ(bench.Field(u"07").Text(), u"100") << "without a unit";
  EXPECT_EQ(bench.UnitOf(u"07"), u"");
}

TEST(UnivTemperatureUnit, AnUploadConvertsNothing) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "21", "deg F"));
  ASSERT_TRUE(bench.device.Set("01", "26", "482"));
  bench.Read(u"Tc-2:K(CA)");
  EXPECT_EQ(bench.Page().Item(21), u"1");
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), 1);
  EXPECT_EQ(bench.Field(u"26").Text(), u"482");
  EXPECT_EQ(bench.UnitOf(u"26"), u"deg F");
}

// --- the units of the setpoints

TEST(UnivSetpointUnit, GovernsAPositionAndAWidthEach) {
  WithValues bench(u"Tc-2:K(CA)");
  bench.Type(u"14", u"-250");
  bench.Type(u"15", u"1000");
  SetpointUnits& units = bench.Univ().setpoints;
  bench.Press(units.optSetpointUnit_1, 1);
  // the range is 1250 wide: (250 + 250) / 1250 is 40 %, 10 / 1250 is 0.8 %
  EXPECT_EQ(bench.Field(u"26").Text(), u"40.00");
  EXPECT_EQ(bench.Field(u"27").Text(), u"0.80");
  EXPECT_EQ(bench.Page().Item(26), u"40.00");
  EXPECT_EQ(bench.UnitOf(u"26"), u"%");
  EXPECT_EQ(bench.UnitOf(u"27"), u"%");
  EXPECT_EQ(bench.Field(u"29").Text(), u"-50") << "the other relay's";
  EXPECT_EQ(bench.UnitOf(u"29"), u"deg C");
  bench.Press(units.optSetpointUnit_2, 1);
  // (-50 + 250) / 1250 is 16 %, 2 / 1250 is 0.16 %
  EXPECT_EQ(bench.Field(u"29").Text(), u"16.00");
  EXPECT_EQ(bench.Field(u"30").Text(), u"0.16");
  bench.Type(u"26", u"50");
  bench.Press(units.optSetpointUnit_1, 0);
  EXPECT_EQ(bench.Field(u"26").Text(), u"375.00");
  EXPECT_EQ(bench.Field(u"27").Text(), u"10.00") << "a difference has no offset";
  EXPECT_EQ(bench.UnitOf(u"26"), u"deg C");
  EXPECT_EQ(bench.UnitOf(u"29"), u"%");
}

TEST(UnivSetpointUnit, WithHiEqualToLoAChangeOfTheSetpointUnitChangesNothing) {
  WithValues bench(u"Tc-2:K(CA)");
  bench.Type(u"14", u"500");
  bench.Type(u"15", u"500");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 1);
  bench.Press(bench.Univ().setpoints.optSetpointUnit_2, 1);
  EXPECT_EQ(bench.Values(), "500 500 250 10 -50 2");
  EXPECT_EQ(bench.Page().Item(38), u"1");
}

TEST(UnivSetpointUnit, ClickedWithNoneChosenBeforeCountsFromRowZero) {
  for (const int place : {0, 1}) {
    WithValues bench(u"Tc-2:K(CA)");
    bench.Show(38, {});
    EXPECT_EQ(bench.Univ().setpoints.optSetpointUnit_1.Selected(), -1);
    bench.Press(bench.Univ().setpoints.optSetpointUnit_1, place);
    EXPECT_EQ(bench.Field(u"26").Text(), place == 0 ? u"250" : u"25.00");
    EXPECT_EQ(bench.Field(u"27").Text(), place == 0 ? u"10" : u"1.00");
  }
}

TEST(UnivSetpointUnit, ThatASetBringsConvertsNothing) {
  WithValues bench(u"Tc-2:K(CA)");
  bench.Show(38, u"1");
  EXPECT_EQ(bench.Field(u"26").Text(), u"250");
  EXPECT_EQ(bench.UnitOf(u"26"), u"%");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 0);
  EXPECT_EQ(bench.Field(u"26").Text(), u"2500.00") << "250 % of 0 to 1000";
}

TEST(UnivSetpointUnit, LeavesABlankAndATextThatIsNoNumberAsTheyStand) {
  WithValues bench(u"Tc-2:K(CA)");
  bench.Type(u"26", u"");
  bench.Type(u"27", u"wide");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 1);
  EXPECT_EQ(bench.Field(u"26").Text(), u"");
  EXPECT_EQ(bench.Field(u"27").Text(), u"wide");
}

TEST(UnivSetpointUnit, OfARowThatThePageLeavesOutShowsNoLabel) {
  UnivBench bench;
  String text = bench.TextOf(test::DefPath(u"QXI"));
  const String row = u"01, 27,     20, Item 27,     Y, Y,";
  const std::size_t at = text.find(row);
  ASSERT_NE(at, String::npos);
  text.replace(at, row.size(), u"01, 27,     20, Item 27,     Y,  ,");
  bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
  bench.Choose(u"QXI2");
  bench.PickInput(u"Tc-2:K(CA)");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 1);
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_FALSE(bench.Page().lbl_unit[8].Visible());
  EXPECT_TRUE(bench.Page().lbl_unit[7].Visible());
}

TEST(UnivSetpointUnit, OfAVoltageIsTheUnitOfItsInput) {
  WithValues bench(u"mV-Z:USER mV");
  EXPECT_EQ(bench.UnitOf(u"26"), u"mV");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 1);
  EXPECT_EQ(bench.UnitOf(u"26"), u"%");
  EXPECT_EQ(bench.Field(u"26").Text(), u"25.00");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 0);
  EXPECT_EQ(bench.UnitOf(u"26"), u"mV");
  EXPECT_EQ(bench.Field(u"26").Text(), u"250.00");
}

}  // namespace
}  // namespace korva
