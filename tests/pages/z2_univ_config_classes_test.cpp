// The classes of the input on the page of family LiteUniv: what each has, what a choice brings along, the
// units, and the two outputs.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "z2_univ_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

struct ClassCase {
  const char* name;
  String text;   ///< in the box of classes
  String key;    ///< of its list
  String first;  ///< input
  bool unit, junction, burnout, linearizer;
  String scale;   ///< unit of zero and span
  String signal;  ///< unit of the sensor's signal
  String low, high;
};

const std::vector<ClassCase> kClasses = {
    {"Direct", u"直流", u"$I10DC", u"DC V", false, false, false, true, u"V", u"V", u"-10.00", u"10.00"},
    {"Thermocouple", u"熱電対", u"$I10TC", u"TC PR", true, true, true, false, u"deg C", u"mV", u"0.00",
     u"1760.00"},
    {"Resistance", u"測温抵抗体", u"$I10RTD", u"JPt100 (JIS'89)", true, false, true, false, u"deg C", u"Ohm",
     u"-200.00", u"510.00"},
    {"Potentiometer", u"ﾎﾟﾃﾝｼｮﾒｰﾀ", u"$I10PM", u"POT 0.1-0.5 kOhm", false, false, true, true, u"%", u"%",
     u"0.00", u"100.00"},
};

struct InputClassTest : testing::TestWithParam<ClassCase> {
  Z2UnivBench bench;

  void ExpectItem(int frame, const char* item, bool has) {
    const ParameterPage& page = bench.Page();
    const int row = page.FindDataRow(FromUtf8(item));
    EXPECT_EQ(page.DataCell(row, korva::kUploaded), has ? u"Y" : u"N") << item;
    EXPECT_EQ(page.DataCell(row, kOnPage), has ? u"Y" : u"N") << item;
    EXPECT_EQ(page.Frames[frame].Visible(), has) << item;
    EXPECT_EQ(page.lbl_Item[page.Place(row, kNumberLabel, page.lbl_Item.Count())].Visible(), has) << item;
  }
  void ExpectItems() {
    ExpectItem(0, "21", GetParam().unit);
    ExpectItem(1, "23", GetParam().junction);
    ExpectItem(2, "24", GetParam().burnout);
    ExpectItem(3, "25", GetParam().linearizer);
  }
};
INSTANTIATE_TEST_SUITE_P(Class, InputClassTest, testing::ValuesIn(kClasses),
                         [](const auto& one) { return one.param.name; });

TEST_P(InputClassTest, HasItsItemsAndNoOthers) {
  bench.Pick(bench.ClassBox(), GetParam().text);
  EXPECT_EQ(bench.Page().Def.ChosenList(), GetParam().key);
  ExpectItems();
  EXPECT_EQ(bench.UnitOf(u"07"), GetParam().scale) << "the live items are those of every class";
  EXPECT_TRUE(bench.Field(u"07").Visible());
}

TEST_P(InputClassTest, ListsItsInputsAndTakesTheFirstWithItsRange) {
  bench.Pick(bench.ClassBox(), GetParam().text);
  const StringTable& list = bench.Page().Def[GetParam().key];
  ASSERT_EQ(bench.InputBox().Entries().size(), static_cast<std::size_t>(list.Rows()));
  for (int row = 0; row < list.Rows(); ++row) {
    EXPECT_EQ(bench.InputBox().Entries().at(static_cast<std::size_t>(row)), list.At(row, 1));
  }
  EXPECT_EQ(bench.InputBox().Text(), GetParam().first);
  EXPECT_EQ(bench.Page().Item(10), GetParam().first);
  EXPECT_EQ(bench.Field(u"14").Text(), GetParam().low);
  EXPECT_EQ(bench.Field(u"15").Text(), GetParam().high);
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST_P(InputClassTest, HasItsUnits) {
  bench.Pick(bench.ClassBox(), GetParam().text);
  EXPECT_EQ(bench.UnitOf(u"14"), GetParam().scale);
  EXPECT_EQ(bench.UnitOf(u"15"), GetParam().scale);
  EXPECT_EQ(bench.UnitOf(u"04"), GetParam().scale);
  EXPECT_EQ(bench.UnitOf(u"06"), GetParam().signal);
}

TEST_P(InputClassTest, AppliesAfterAnUploadAndReadsNoItemThatItHasNot) {
  bench.device.Set("01", "10", ToUtf8(GetParam().first));
  bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  EXPECT_EQ(bench.ClassBox().Text(), GetParam().text);
  ExpectItems();
  EXPECT_EQ(bench.Accesses("01/21 D").size(), GetParam().unit ? 1U : 0U);
  EXPECT_EQ(bench.Accesses("01/23 D").size(), GetParam().junction ? 1U : 0U);
  EXPECT_EQ(bench.Accesses("01/24 D").size(), GetParam().burnout ? 1U : 0U);
  EXPECT_EQ(bench.Accesses("01/25 D").size(), GetParam().linearizer ? 1U : 0U);
}

TEST_P(InputClassTest, AppliesOnReadingAFile) {
  bench.Pick(bench.ClassBox(), GetParam().text);
  bench.Save(kFile);
  bench.New();
  EXPECT_EQ(bench.ClassBox().Text(), u"");
  bench.Open(kFile);
  EXPECT_EQ(bench.ClassBox().Text(), GetParam().text);
  EXPECT_EQ(bench.InputBox().Text(), GetParam().first);
  ExpectItems();
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST_P(InputClassTest, IsSentWithItsItemsAndNoOthers) {
  bench.ReadInput("DC mA");
  bench.Pick(bench.ClassBox(), GetParam().text);
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  const auto written = [&](const std::string& item) {
    return !bench.Accesses("01/" + item + " D0").empty() || !bench.Accesses("01/" + item + " D1").empty();
  };
  EXPECT_EQ(written("21"), GetParam().unit);
  EXPECT_EQ(written("23"), GetParam().junction);
  EXPECT_EQ(written("24"), GetParam().burnout);
  EXPECT_EQ(written("25"), GetParam().linearizer);
  EXPECT_EQ(bench.device.Value("01", "10"), ToUtf8(GetParam().first));
  EXPECT_EQ(bench.Accesses("01/00"), Texts()) << "the class is no item of the device";
}

// --- from class to class

struct ClassesTest : testing::Test {
  Z2UnivBench bench;
};

TEST_F(ClassesTest, ChoosingThermocouplesAfterDirectBringsUnitJunctionAndBurnoutUpAndTakesTheLinearizerAway) {
  bench.Pick(bench.ClassBox(), u"直流");
  EXPECT_TRUE(bench.Page().Frames[3].Visible());
  bench.Pick(bench.ClassBox(), u"熱電対");
  EXPECT_EQ(bench.Univ().Opt_Cjc[0].Refused(), Refusal::None);
  EXPECT_EQ(bench.Page().optTempUnit[0].Refused(), Refusal::None);
  EXPECT_EQ(bench.Univ().optBurn[0].Refused(), Refusal::None);
  EXPECT_FALSE(bench.Page().Frames[3].Visible());
}

TEST_F(ClassesTest, WhatAClassHidesKeepsItsValueInSetAndFileAndIsShownAgainWithIt) {
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Press(bench.Univ().optBurn, 2);
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Pick(bench.ClassBox(), u"直流");
  EXPECT_EQ(bench.Page().Item(24), u"DOWNSCALE");
  EXPECT_EQ(bench.Page().Item(21), u"deg F");
  bench.Save(kFile);
  EXPECT_NE(bench.TextOf(kFile).find(u"\"1\",\"24\",\"DOWNSCALE\""), String::npos);
  bench.Pick(bench.ClassBox(), u"熱電対");
  EXPECT_EQ(bench.Univ().optBurn.Selected(), 2);
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), 1);
}

TEST_F(ClassesTest, AnOptionThatTheDeviceHadNotComesUpWithItsDefault) {
  bench.ReadInput("DC V");
  EXPECT_EQ(bench.Page().Item(24), u"");
  bench.Pick(bench.ClassBox(), u"熱電対");
  EXPECT_EQ(bench.Univ().optBurn.Selected(), 1);
  EXPECT_EQ(bench.Page().Item(24), u"UPSCALE");
  EXPECT_EQ(bench.Page().Item(21), u"deg C");
}

TEST_F(ClassesTest, WithoutAnInputThereIsNoClassAndNoneOfItsItems) {
  for (const int frame : {0, 1, 2, 3}) {
    EXPECT_FALSE(bench.Page().Frames[frame].Visible()) << frame;
  }
  EXPECT_TRUE(bench.InputBox().Entries().empty());
  EXPECT_EQ(bench.ClassBox().Entries().size(), 4U);
  EXPECT_EQ(bench.UnitOf(u"14"), u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank)) << "an input must be chosen";
}

TEST_F(ClassesTest, AnInputThatStandsInNoListHasNoClass) {
  bench.ReadInput("DC V");
  bench.line.replies["01/10 D"] = "D          STRANGE";
  bench.ReadAll();
  EXPECT_EQ(bench.Page().Item(10), u"STRANGE");
  EXPECT_EQ(bench.ClassBox().Text(), u"");
  EXPECT_EQ(bench.InputBox().Text(), u"STRANGE");
  EXPECT_EQ(bench.Page().Item(25), u"") << "what its class has is not known, so nothing of it was read";
}

TEST_F(ClassesTest, AnOptionHoldsItsTextAndTakesItsCodeForIt) {
  bench.ReadInput("DC V");
  for (const auto& [cell, place] : std::vector<std::pair<String, int>>{{u"ON", 1}, {u"1", 1}, {u"0", 0}}) {
    bench.Show(25, cell);
    EXPECT_EQ(bench.Univ().tables.Opt_Lnr.Selected(), place) << ToUtf8(cell);
    EXPECT_EQ(bench.Page().Item(25), place == 1 ? u"ON" : u"OFF") << ToUtf8(cell);
  }
}

TEST_F(ClassesTest, TheLinearizersSwitchHasTheCaptionsOfAllSwitches) {
  bench.Pick(bench.ClassBox(), u"直流");
  EXPECT_EQ(bench.Univ().tables.Opt_Lnr[0].Caption(), u"無");
  EXPECT_EQ(bench.Univ().tables.Opt_Lnr[1].Caption(), u"有");
  bench.Pick(bench.ClassBox(), u"熱電対");
  EXPECT_EQ(bench.Univ().Opt_Cjc[1].Caption(), u"ON") << "the others have the device's words";
}

// --- what a choice brings along

TEST_F(ClassesTest, AnInputBringsItsRangeInDegC) {
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Pick(bench.InputBox(), u"TC B (RH)");
  EXPECT_EQ(bench.Field(u"14").Text(), u"100.00");
  EXPECT_EQ(bench.Field(u"15").Text(), u"1820.00");
}

// -210 deg C is -346 deg F, 1200 deg C is 2192; 63.2 K goes up to 64, 1473.2 K down to 1473.
TEST_F(ClassesTest, InDegFAndKTheRangeGoesToTheWholeNumbersWithinIt) {
  bench.ReadInput("DC V");
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Pick(bench.InputBox(), u"TC J (IC)");
  EXPECT_EQ(bench.Field(u"14").Text(), u"-346.00");
  EXPECT_EQ(bench.Field(u"15").Text(), u"2192.00");
  bench.Press(bench.Page().optTempUnit, 2);
  bench.Pick(bench.InputBox(), u"TC J (IC)");
  EXPECT_EQ(bench.Field(u"14").Text(), u"64.00");
  EXPECT_EQ(bench.Field(u"15").Text(), u"1473.00");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone)) << "what a choice brings passes the check";
}

TEST_F(ClassesTest, TheRangeOfADirectInputKnowsNoTemperatureUnit) {
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Pick(bench.ClassBox(), u"直流");
  EXPECT_EQ(bench.Field(u"14").Text(), u"-10.00");
  bench.Pick(bench.InputBox(), u"DC mV");
  EXPECT_EQ(bench.Field(u"15").Text(), u"1000.00");
  EXPECT_EQ(bench.UnitOf(u"14"), u"mV");
  EXPECT_EQ(bench.UnitOf(u"06"), u"mV");
}

TEST_F(ClassesTest, AnotherUnitConvertsZeroAndSpanWithTwoDecimals) {
  bench.Pick(bench.ClassBox(), u"測温抵抗体");
  bench.Type(u"14", u"12.5");
  bench.Type(u"15", u"100");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Field(u"14").Text(), u"54.50");
  EXPECT_EQ(bench.Field(u"15").Text(), u"212.00");
  bench.Press(bench.Page().optTempUnit, 2);
  EXPECT_EQ(bench.Field(u"15").Text(), u"373.20");
  EXPECT_EQ(bench.UnitOf(u"04"), u"K");
  EXPECT_EQ(bench.UnitOf(u"06"), u"Ohm");
}

TEST_F(ClassesTest, EachOutputTypeBringsItsOwnPair) {
  bench.ReadInput("DC V");
  bench.Pick(bench.Page().Combo[2], u"-10-10 V");
  EXPECT_EQ(bench.Page().Item(12), u"-10.00");
  EXPECT_EQ(bench.Page().Item(13), u"10.00");
  EXPECT_EQ(bench.Page().Item(42), u"4.00");
  bench.Pick(bench.Page().Combo[3], u"-2.5-2.5 V");
  EXPECT_EQ(bench.Page().Item(42), u"-2.50");
  EXPECT_EQ(bench.Page().Item(43), u"2.50");
  EXPECT_EQ(bench.Page().Item(12), u"-10.00");
}

/// A combo box, its row in the definition with a rule of change, and the entry of a row of its list.
struct BoxRow {
  const char* name;
  int box;
  String row, open, locked;
  String list, entry, without;
};
const std::vector<BoxRow> kBoxes = {
    {"Class", 0, u"01,  00,", u",    ,     ,", u",   Y,     ,", u"$I00\n", u"2, 測温抵抗体,", u"2, ,"},
    {"Input", 1, u"01,  10,", u",    ,     Y,", u",   Y,     Y,", u"$I10TC\n", u"11, TC K (CA),", u"11, ,"},
    {"Output1", 2, u"01,  11,", u",    ,     Y,", u",   Y,     Y,", u"$I11\n", u"1, -2.5-2.5 V,", u"1, ,"},
    {"Output2", 3, u"01,  41,", u",    ,     Y,", u",   Y,     Y,", u"$I41\n", u"1, -2.5-2.5 V,", u"1, ,"},
    {"Speed", 4, u"01,  82,", u",    ,     ,", u",   Y,     ,", u"$I82\n", u"1, 19200 bps", u"1,"},
    {"Parity", 5, u"01,  83,", u",    ,     ,", u",   Y,     ,", u"$I83\n", u"1, ODD", u"1,"},
    {"StopBits", 6, u"01,  84,", u",    ,     ,", u",   Y,     ,", u"$I84\n", u"0, 1 BIT", u"0,"},
};
void PrintTo(const BoxRow& row, std::ostream* out) { *out << row.name; }
struct BoxesTest : testing::TestWithParam<BoxRow> {
  Z2UnivBench bench;
};
INSTANTIATE_TEST_SUITE_P(Box, BoxesTest, testing::ValuesIn(kBoxes),
                         [](const auto& one) { return one.param.name; });

TEST_P(BoxesTest, IsOpenAndLockedWhereTheDefinitionSaysSo) {
  const BoxRow& row = GetParam();
  EXPECT_FALSE(bench.Page().Combo[row.box].Locked());
  bench.Redefine(row.row, row.open, row.locked);
  for (int box = 0; box <= 6; ++box) {
    EXPECT_EQ(bench.Page().Combo[box].Locked(), box == row.box) << box;
    EXPECT_EQ(bench.Page().Combo[box].ShownLook(), box == row.box ? Look::Grey : Look::Normal) << box;
  }
}

TEST_P(BoxesTest, ListsEveryRowThatHasATextAndNoOther) {
  const BoxRow& row = GetParam();
  const auto entries = [&] {
    bench.Pick(bench.ClassBox(), u"熱電対");
    bench.Page().DataChanged = false;
    return bench.Page().Combo[row.box].Entries();
  };
  std::vector<String> expected = entries();
  const std::size_t begin = row.entry.find(u' ') + 1;
  const String text = row.entry.substr(begin, row.entry.find(u',', begin) - begin);
  EXPECT_EQ(std::erase(expected, text), 1U);
  bench.Redefine(row.list, row.entry, row.without);
  EXPECT_EQ(entries(), expected);
}

}  // namespace
}  // namespace korva::test
