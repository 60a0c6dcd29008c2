// Upload, check, download and monitor of the page of family LiteUniv.

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "z2_univ_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

using namespace std::chrono_literals;

struct Z2UnivTransferTest : testing::Test {
  Z2UnivBench bench;
};

// --- upload

TEST_F(Z2UnivTransferTest, AnUploadAsksWhetherTheModelMatchesAndWhetherToStart) {
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes, Answer::Ok}),
            (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload), Shown(BoxKey::UploadDone)}));
  bench.Page().DataChanged = false;
  EXPECT_EQ(bench.BoxesOfUpload({Answer::No}), Texts{Shown(BoxKey::ModelMatches)});
  EXPECT_EQ(bench.Accesses("01/"), Texts());
}

TEST_F(Z2UnivTransferTest, AnUploadReadsTheInputAheadOfTheItemsOfItsClassAndNothingOfModbus) {
  bench.device.Set("01", "10", "TC K (CA)");
  bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  Texts read;
  for (const std::string& access : bench.line.accesses) {
    if (access.ends_with(" D")) {
      read.push_back(access.substr(3, 2));
    }
  }
  EXPECT_EQ(read, (Texts{"02", "14", "15", "12", "13", "42", "43", "17", "18", "34", "35", "10", "21", "23",
                         "24", "11", "41"}));
}

TEST_F(Z2UnivTransferTest, AnUploadPutsTheEndsOfRangesIntoTwoDecimalsWithoutTheirUnits) {
  bench.device.Set("01", "10", "TC K (CA)");
  bench.device.Set("01", "14", "-12.5");
  bench.device.Set("01", "42", "4.5");
  bench.ReadAll();
  EXPECT_EQ(bench.Page().Item(14), u"-12.50");
  EXPECT_EQ(bench.Page().Item(15), u"1370.00");
  EXPECT_EQ(bench.Page().Item(42), u"4.50");
  EXPECT_EQ(bench.Page().Item(10), u"TC K (CA)");
  EXPECT_EQ(bench.Page().Item(21), u"deg C");
}

TEST_F(Z2UnivTransferTest, AnItemWithoutAnAnswerEndsTheUploadWithThePageShowingWhatWasRead) {
  bench.device.Set("01", "10", "TC K (CA)");
  bench.line.replies["01/24 D"] = std::nullopt;
  const Texts boxes = bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  EXPECT_EQ(boxes.back(), Shown(BoxKey::CommFailure));
  EXPECT_EQ(bench.ClassBox().Text(), u"熱電対");
  EXPECT_EQ(bench.Field(u"14").Text(), u"-270.00");
  EXPECT_EQ(bench.Univ().Opt_Cjc.Selected(), 0) << "as it was read ahead of that";
  EXPECT_EQ(bench.Page().Item(11), u"");
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST_F(Z2UnivTransferTest, ARefusedItemEndsTheUploadWithItsBox) {
  bench.line.replies["01/12 D"] = "CNG";
  const Texts boxes = bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  EXPECT_EQ(boxes.back(), Shown(BoxKey::UploadAgain));
  EXPECT_EQ(bench.Page().Item(14), u"-10.00");
  EXPECT_EQ(bench.Accesses("01/13"), Texts());
}

// --- check

struct InputRangeCase {
  const char* name;
  std::string input;
  int unit;  ///< place of the temperature unit
  String zero, span;
  bool good;
};

struct Z2UnivRangeTest : testing::TestWithParam<InputRangeCase> {};
// TC K (CA) has -270 to 1370 deg C and at least 75 between; -454 deg F, 2498 deg F, 135 deg F; 3.2 K goes up
// to 4, 1643.2 K down to 1643.
INSTANTIATE_TEST_SUITE_P(
    Range, Z2UnivRangeTest,
    testing::Values(InputRangeCase{"Whole", "TC K (CA)", 0, u"-270", u"1370", true},
                    InputRangeCase{"BelowTheLowest", "TC K (CA)", 0, u"-270.01", u"1370", false},
                    InputRangeCase{"AboveTheHighest", "TC K (CA)", 0, u"0", u"1370.01", false},
                    InputRangeCase{"LeastSpan", "TC K (CA)", 0, u"0", u"75", true},
                    InputRangeCase{"TooNarrow", "TC K (CA)", 0, u"0", u"74.99", false},
                    InputRangeCase{"WholeInDegF", "TC K (CA)", 1, u"-454", u"2498", true},
                    InputRangeCase{"BelowInDegF", "TC K (CA)", 1, u"-454.01", u"2498", false},
                    InputRangeCase{"LeastSpanInDegF", "TC K (CA)", 1, u"0", u"135", true},
                    InputRangeCase{"TooNarrowInDegF", "TC K (CA)", 1, u"0", u"134.99", false},
                    InputRangeCase{"WholeInK", "TC K (CA)", 2, u"4", u"1643", true},
                    InputRangeCase{"BelowInK", "TC K (CA)", 2, u"3.99", u"1643", false},
                    InputRangeCase{"Volts", "DC V", 0, u"-10", u"10", true},
                    InputRangeCase{"TooManyVolts", "DC V", 0, u"-10", u"10.01", false},
                    InputRangeCase{"TooFewVolts", "DC V", 0, u"0", u"0.59", false},
                    InputRangeCase{"Position", "POT 2-10 kOhm", 0, u"0", u"100", true},
                    InputRangeCase{"TooShortPosition", "POT 2-10 kOhm", 0, u"10", u"59.99", false},
                    InputRangeCase{"Resistance", "Pt100 (JIS'97)", 0, u"-200", u"850", true},
                    InputRangeCase{"TooHot", "Pt100 (JIS'97)", 0, u"-200", u"851", false}),
    [](const auto& one) { return one.param.name; });

TEST_P(Z2UnivRangeTest, ZeroAndSpanAreHeldToTheInputInItsUnit) {
  Z2UnivBench bench;
  bench.ReadInput(GetParam().input);
  if (GetParam().unit > 0) {
    bench.Press(bench.Page().optTempUnit, GetParam().unit);
  }
  bench.Type(u"14", GetParam().zero);
  bench.Type(u"15", GetParam().span);
  EXPECT_EQ(bench.CheckResult(), Shown(GetParam().good ? BoxKey::CheckDone : BoxKey::ValueBad));
}

TEST_F(Z2UnivTransferTest, EachOutputIsHeldToItsOwnType) {
  bench.ReadInput("DC V");
  bench.Type(u"13", u"20.01");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"13"), Look::Bad);
  bench.Type(u"13", u"20");
  bench.Type(u"42", u"3.99");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"13"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"42"), Look::Bad);
  bench.Type(u"42", u"19");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone)) << "1 between them is enough";
  bench.Type(u"42", u"19.01");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"43"), Look::Bad);
}

TEST_F(Z2UnivTransferTest, TheColdJunctionsFieldsMayBeBlankInACheck) {
  bench.ReadInput("TC K (CA)");
  bench.Show(34, {});
  bench.Show(35, {});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
}

TEST_F(Z2UnivTransferTest, BothOutputsMustBeChosen) {
  bench.ReadInput("DC V");
  for (const int item : {11, 41}) {
    const String kept = bench.Page().Item(item);
    bench.Show(item, {});
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank)) << item;
    bench.Show(item, kept);
  }
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
}

// --- download

TEST_F(Z2UnivTransferTest, ADownloadWritesTheInputAheadOfWhatBelongsToIt) {
  bench.ReadInput("DC V");
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Pick(bench.InputBox(), u"TC K (CA)");
  bench.Type(u"14", u"0");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Written(),
            (Texts{"02 DTAG-1", "10 D11", "21 D0", "23 D1", "24 D1", "14 D0", "15 D1370.00", "11 D0",
                   "12 D4.00", "13 D20.00", "41 D0", "42 D4.00", "43 D20.00", "17 D0.00", "18 D100.00"}));
  EXPECT_EQ(bench.device.Value("01", "10"), "TC K (CA)");
  EXPECT_EQ(bench.device.Value("01", "14"), "0 deg C");
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST_F(Z2UnivTransferTest, TheDevicesInputIsLookedUpInTheListsOfAllClasses) {
  bench.Redefine(u"31, Pt100 (JIS'89)", u"Y\n", u"N\n");
  bench.ReadInput("Pt100 (JIS'89)");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "the page has the fixed one";
  bench.Pick(bench.ClassBox(), u"直流");
  const Texts boxes = bench.BoxesOfDownload();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("あなたが Item10 で選択した"), std::string::npos) << boxes[0];
  EXPECT_NE(boxes[0].find("一致していません"), std::string::npos) << boxes[0];
  EXPECT_EQ(bench.Written(), Texts());
}

TEST_F(Z2UnivTransferTest, AnInputThatCantBeSetIsNotSent) {
  bench.Redefine(u"12, TC E (CRC)", u"Y\n", u"N\n");
  bench.ReadInput("DC V");
  bench.Pick(bench.ClassBox(), u"熱電対");
  bench.Pick(bench.InputBox(), u"TC E (CRC)");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::InputTypeNotSettable)});
}

TEST_F(Z2UnivTransferTest, AnInputThatStandsInNoListStopsNoDownload) {
  bench.ReadInput("DC V");
  bench.line.replies["01/10 D"] = "D          STRANGE";
  EXPECT_EQ(bench.BoxesOfDownload().back(), Shown(BoxKey::DownloadDone));
}

TEST_F(Z2UnivTransferTest, AFixedOutputThatDiffersAndOneOfNoListEndTheDownload) {
  bench.Redefine(u"$I11\n", u"Y\n", u"N\n");
  bench.ReadInput("DC V");
  bench.Pick(bench.Page().Combo[2], u"-10-10 V");
  const Texts boxes = bench.BoxesOfDownload();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("あなたが Item11 で選択した"), std::string::npos) << boxes[0];
  bench.line.replies["01/11 D"] = "D          STRANGE";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::OutputTypeUnknown)});
}

// --- monitor

TEST_F(Z2UnivTransferTest, TheOutputIsForcedFromMinus15To115) {
  OutputSetting& output = bench.Univ().output;
  for (const char16_t* text : {u"115.01", u"-15.01"}) {
    bench.Type(u"03_set", text);
    bench.Click(output.cmdSet);
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::OutputOutOfRange, {u"-15.00", u"115.00"})});
  }
  for (const char16_t* text : {u"115", u"-15"}) {
    bench.ForceOutput(text);
    EXPECT_EQ(bench.TakeBoxes(), Texts());
    EXPECT_EQ(std::stod(bench.device.Value("01", "03")), LeadingNumber(text));
    bench.Click(output.cmdStatusMonOFF);
  }
}

struct UnitsCase {
  const char* name;
  std::string input;
  std::string units;  ///< of items 04 to 07
};

struct Z2UnivMonitorTest : testing::TestWithParam<UnitsCase> {};
INSTANTIATE_TEST_SUITE_P(Class, Z2UnivMonitorTest,
                         testing::Values(UnitsCase{"Direct", "DC mA", "mA % mA mA"},
                                         UnitsCase{"Thermocouple", "TC B (RH)", "deg F % mV deg F"},
                                         UnitsCase{"Resistance", "Ni100", "deg F % Ohm deg F"},
                                         UnitsCase{"Potentiometer", "POT 2-10 kOhm", "% % % %"}),
                         [](const auto& one) { return one.param.name; });

TEST_P(Z2UnivMonitorTest, TheUnitsAreThoseOfTheDevicesInputAndNotOfTheSets) {
  Z2UnivBench bench;
  bench.Pick(bench.ClassBox(), u"直流");
  bench.device.Set("01", "21", "deg F");
  bench.device.Set("01", "10", GetParam().input);
  bench.loop.After(4s, [&] { bench.Univ().monitor.cmdMonitorOFF.Click(); });
  bench.Click(bench.Univ().monitor.cmdMonitorON);
  std::string units;
  for (const char16_t* item : {u"04", u"05", u"06", u"07"}) {
    units += (units.empty() ? "" : " ") + ToUtf8(bench.UnitOf(item));
    EXPECT_NE(bench.Field(item).Text(), u"");
  }
  EXPECT_EQ(units, GetParam().units);
  EXPECT_EQ(bench.Accesses("01/10 D").size(), 1U) << "the input is read once";
}

TEST(Z2UnivMonitorUnits, OfAnInputThatTheDeviceDoesNotTellThereIsNoneAndOnlyTheOutputIsRead) {
  Z2UnivBench bench;
  bench.Pick(bench.ClassBox(), u"直流");
  bench.device.Set("01", "10", "TC B (RH)");
  bench.device.AddFault({.fault = sim::Fault::Refused, .command = "I10"});
  bench.loop.After(20s, [&] { bench.Univ().monitor.cmdMonitorOFF.Click(); });
  bench.Click(bench.Univ().monitor.cmdMonitorON);
  for (const char16_t* item : {u"04", u"06", u"07"}) {
    EXPECT_EQ(bench.UnitOf(item), u"");
    EXPECT_EQ(bench.Field(item).Text(), u"");
  }
  EXPECT_EQ(bench.UnitOf(u"05"), u"%");
  EXPECT_NE(bench.Field(u"05").Text(), u"");
}

}  // namespace
}  // namespace korva::test
