#include "sim/device.h"

#include <gtest/gtest.h>

#include "sample.h"

namespace korva::sim {
namespace {

TEST(DeviceTest, KnownGroupIsAcceptedAndUnknownRefused) {
  auto device = SampleDevice();
  EXPECT_EQ(device.Answer("G01").text, "COK");
  EXPECT_EQ(device.Answer("G00").text, "COK");
  EXPECT_EQ(device.Answer("G04").text, "CNG");
  EXPECT_EQ(device.Answer("I02").text, "CNG") << "no group selected";
}

TEST(DeviceTest, CommandsWithoutSelectionOrMeaningAreRefused) {
  auto device = SampleDevice();
  EXPECT_EQ(device.Answer("I02").text, "CNG");
  EXPECT_EQ(device.Answer("D5").text, "CNG");
  EXPECT_EQ(device.Answer("").text, "CNG");
  EXPECT_EQ(device.Answer("X01").text, "CNG");
  device.Answer("G01");
  EXPECT_EQ(device.Answer("I55").text, "CNG") << "no such item";
  EXPECT_EQ(device.Answer("D5").text, "CNG") << "the failed selection leaves nothing selected";
}

TEST(DeviceTest, PowerUpValuesEchoBack) {
  struct Expected {
    const char* group;
    const char* item;
    const char* reply;
  };
  auto device = SampleDevice();
  for (const auto& row : {
           Expected{"00", "99", "DSYSVER   1.00"},
           Expected{"00", "01", "DSAMPLE"},
           Expected{"01", "00", "DSAMPLE"},
           Expected{"01", "01", "D0"},
           Expected{"01", "02", "DTG:TAG-1     "},  // padded to ten characters
           Expected{"01", "10", "DK"},              // the first type that can be set
           Expected{"01", "21", "DC"},
           Expected{"01", "14", "DZERO:-200"},  // limits of the type
           Expected{"01", "15", "DSPAN:1200"},
           Expected{"01", "16", "DFINZER0.00"},
           Expected{"01", "17", "DFINSPN100.00"},
       }) {
    EXPECT_EQ(Read(device, row.group, row.item), row.reply) << row.group << "/" << row.item;
  }
}

TEST(DeviceTest, ParametersTakeDataInProgrammingModeOnly) {
  auto device = SampleDevice();
  EXPECT_EQ(Write(device, "01", "14", "5"), "CNG");
  EXPECT_EQ(device.Value("01", "14"), "-200");
  EXPECT_EQ(Write(device, "01", "01", "1"), "D1");
  EXPECT_EQ(device.Mode(), '1');
  EXPECT_EQ(Write(device, "01", "14", "5"), "DZERO:5");
  EXPECT_EQ(Write(device, "01", "01", "0"), "D0");
  EXPECT_EQ(Write(device, "01", "14", "6"), "CNG");
  EXPECT_EQ(device.Value("01", "14"), "5");
  EXPECT_EQ(Write(device, "01", "01", "7"), "CNG") << "no such mode";
  EXPECT_EQ(device.Mode(), '0');
}

TEST(DeviceTest, NumberItemRefusesWhatIsNoNumber) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "14", " 12.5 "), "DZERO:12.5");
  EXPECT_EQ(Write(device, "01", "14", "12."), "DZERO:12.");
  for (const char* const bad : {"", " ", "abc", "1e2", "1.2.3", "--1", "5 6", "-", "."}) {
    EXPECT_EQ(Write(device, "01", "14", bad), "CNG") << bad;
  }
  EXPECT_EQ(device.Value("01", "14"), "12.");
}

TEST(DeviceTest, SomeModelsRefuseATrailingPoint) {
  for (const char* const file : {"QN.def", "QUO.def", "QC.def"}) {
    auto device = SampleDevice(file);
    EnterProgramming(device);
    EXPECT_EQ(Write(device, "01", "16", "12."), "CNG") << file;
    EXPECT_EQ(Write(device, "01", "16", "12"), "DFINZER12.00") << file;
  }
}

TEST(DeviceTest, FineValuesAreHeldWithTwoDecimals) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "16", "0.128"), "DFINZER0.13");
  EXPECT_EQ(Write(device, "01", "17", "-0.001"), "DFINSPN0.00");
}

TEST(DeviceTest, TagIsPaddedToTenCharactersAndAnEmptyOneIsTenBlanks) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "02", "          "), "DTG:          ");
  EXPECT_EQ(Read(device, "01", "02"), "DTG:          ");
  EXPECT_EQ(Write(device, "01", "02", "FIC-101"), "DTG:FIC-101   ");
  EXPECT_EQ(Write(device, "01", "02", "12345678901"), "CNG") << "eleven characters";
  EXPECT_EQ(device.Value("01", "02"), "FIC-101");
}

TEST(DeviceTest, ChoiceTakesTheCodeAndReportsTheText) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "21", "1"), "DF");
  EXPECT_EQ(device.Value("01", "21"), "F");
  EXPECT_EQ(Write(device, "01", "21", "F"), "CNG") << "the text is no code";
  EXPECT_EQ(Write(device, "01", "21", "9"), "CNG");
}

TEST(DeviceTest, RangeIsOfNoUseUnderATypeWithoutTitle) {
  auto device = SampleDevice();
  EXPECT_EQ(Read(device, "01", "11"), "CNU");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "11", "A"), "CNG") << "nothing is selected after CNU";
  EXPECT_EQ(Write(device, "01", "10", "2"), "Dvolts");
  EXPECT_EQ(Read(device, "01", "11"), "D0-5 V");
  EXPECT_EQ(Write(device, "01", "11", "B"), "D1-5 V");
}

TEST(DeviceTest, ZeroAndSpanAreLimitedToTheRange) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "15", "1300"), "DSPAN:1200");
  Write(device, "01", "10", "2");
  Write(device, "01", "11", "B");
  EXPECT_EQ(Read(device, "01", "14"), "DZERO:1");
  EXPECT_EQ(Read(device, "01", "15"), "DSPAN:5");
  EXPECT_EQ(Write(device, "01", "14", "2.5"), "DZERO:2.5");
}

TEST(DeviceTest, LimitsFollowTheTemperatureUnit) {
  auto device = SampleDevice();
  EnterProgramming(device);
  Write(device, "01", "21", "1");
  EXPECT_EQ(Write(device, "01", "15", "2192"), "DSPAN:2192");  // 1200 x 9 / 5 + 32
  EXPECT_EQ(Write(device, "01", "15", "2193"), "DSPAN:2192");
  Write(device, "01", "21", "2");
  EXPECT_EQ(Write(device, "01", "14", "0"), "DZERO:73");  // -200 + 273.2, rounded outwards
}

TEST(DeviceTest, FixedInputTypeCanNeitherBeReachedNorLeft) {
  auto device = SampleDevice();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "10", "7"), "CNG");
  ASSERT_TRUE(device.Set("01", "10", "fixed mV"));
  EXPECT_EQ(Write(device, "01", "10", "1"), "CNG");
  EXPECT_EQ(Write(device, "01", "10", "7"), "Dfixed mV") << "the present code again changes nothing";
}

TEST(DeviceTest, LiveValuesMoveTheSameWayAfterEachPowerUp) {
  auto device = SampleDevice();
  auto twin = SampleDevice();
  // 50 % of -200 to 1200 is 500; each read is 0.5 %, 7 deg C, further
  EXPECT_EQ(Read(device, "01", "04"), "DPV:  507.00");
  EXPECT_EQ(Read(device, "01", "04"), "DPV:  514.00");
  EXPECT_EQ(Read(device, "01", "06"), "DMEAS5:  521.00") << "with the item's own prefix";
  EXPECT_EQ(device.Value("01", "06"), "521.00");
  EXPECT_EQ(Read(twin, "01", "04"), "DPV:  507.00");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "04", "3"), "CNG");
}

TEST(DeviceTest, LiveValuesInPercentOrCurrentHaveTheirOwnRange) {
  auto device =
      SampleDevice("A.def",
                   "$Data\n01, 06, , , , , , , , 1, , , , , %\n01, 08, , , , , , , , 2, , , , , mA\n"
                   "01, 15, , , , , , , , 3, , , , , , , , , , , Y, , S:, 0\n$End\n");
  EXPECT_EQ(Read(device, "01", "06"), "DPV:   50.50");
  EXPECT_EQ(Read(device, "01", "08"), "DPV:   12.16");  // 51 % of 4 to 20 mA
}

TEST(DeviceTest, LiveValueStaysInsideTheRange) {
  auto device = SampleDevice();
  for (int i = 0; i < 200; ++i) {
    const double percent = std::stod(Read(device, "01", "03").substr(4));
    EXPECT_GE(percent, 40.0);
    EXPECT_LE(percent, 60.0);
  }
}

TEST(DeviceTest, ForcedOutputIsFollowedByTheInputUntilMonitorMode) {
  auto device = SampleDevice();
  EXPECT_EQ(Write(device, "01", "03", "25"), "CNG") << "not in monitor mode";
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "03", "25"), "DPV:   25.00");
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   25.00");
  EXPECT_EQ(Read(device, "01", "04"), "DPV:  150.00");  // 25 % of -200 to 1200
  EXPECT_EQ(Write(device, "01", "03", "120.01"), "CNG");
  Write(device, "01", "01", "0");
  EXPECT_NE(device.Value("01", "03"), "25.00");
}

TEST(DeviceTest, EachLiveValueFollowsAForcedOutputInItsOwnRange) {
  auto device = SampleDevice(
      "A.def",
      "$Data\n01, 03_set, , , , , , , , 1, , , , , %\n01, 05, , , , , , , , 2, , , , , %\n"
      "01, 06, , , , , , , , 3, , , , , mV\n01, 07, , , , , , , , 4, , , , , %\n"
      "01, 08, , , , , , , , 5, , , , , mA\n01, 14, , , , , , , , 6, , , , , , , , , , , Y, , Z:, 1\n"
      "01, 15, , , , , , , , 7, , , , , , , , , , , Y, , S:, 2\n$End\n");
  EnterProgramming(device);
  Write(device, "01", "14", "10");
  Write(device, "01", "15", "50");
  struct Forced {
    const char* percent;
    const char* items;  // 03, 05, 06 of 10 to 50, 07, 08 of 4 to 20
  };
  for (const auto& row :
       {Forced{"75.5", "75.50 75.50 40.20 75.50 16.08"}, Forced{"0", "0.00 0.00 10.00 0.00 4.00"},
        Forced{"-20", "-20.00 -20.00 2.00 -20.00 0.80"}, Forced{"120", "120.00 120.00 58.00 120.00 23.20"}}) {
    EXPECT_TRUE(Write(device, "01", "03", row.percent).starts_with("DPV:")) << row.percent;
    std::string items;
    for (const char* const item : {"03", "05", "06", "07", "08"}) {
      items += (items.empty() ? "" : " ") + device.Value("01", item);
    }
    EXPECT_EQ(items, row.items);
  }
  for (const char* const refused : {"-20.01", "120.01", "", "abc"}) {
    EXPECT_EQ(Write(device, "01", "03", refused), "CNG") << refused;
    EXPECT_EQ(device.Value("01", "03"), "120.00") << "the output stays as it was";
  }
}

TEST(DeviceTest, Item03TellsTheOutputThatMovesUntilItIsForced) {
  auto device = SampleDevice();
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   50.50");
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   51.00");
  EnterProgramming(device);
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   51.50") << "programming mode alone forces nothing";
  Write(device, "01", "03", "25");
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   25.00");
  Write(device, "01", "01", "1");
  EXPECT_EQ(Read(device, "01", "03"), "DPV:   25.00") << "programming mode again holds it";
  Write(device, "01", "01", "0");
  const double released = std::stod(Read(device, "01", "03").substr(4));
  EXPECT_GE(released, 40.0) << "measured again";
}

TEST(DeviceTest, SetGivesAValueFromOutside) {
  auto device = SampleDevice();
  EXPECT_TRUE(device.Set("01", "10", "2")) << "by code";
  EXPECT_EQ(device.Value("01", "10"), "volts");
  EXPECT_TRUE(device.Set("01", "10", "K")) << "by text";
  EXPECT_TRUE(device.Set("01", "02", ""));
  EXPECT_EQ(Read(device, "01", "02"), "DTG:          ");
  EXPECT_TRUE(device.Set("01", "04", "12.5"));
  EXPECT_EQ(Read(device, "01", "04"), "DPV:   12.50");
  EXPECT_TRUE(device.Set("00", "99", "SYSVER   2.00"));
  EXPECT_EQ(Read(device, "00", "99"), "DSYSVER   2.00");
  EXPECT_FALSE(device.Set("01", "10", "none such"));
  EXPECT_FALSE(device.Set("01", "55", "1")) << "no such item";
  EXPECT_FALSE(device.Set("05", "00", "1"));
  EXPECT_FALSE(device.Set("01", "14", "abc"));
  EXPECT_FALSE(device.Set("01", "04", "abc"));
  EXPECT_FALSE(device.Set("01", "01", "1")) << "the mode is not a value";
}

TEST(DeviceTest, VersionDecidesTheSpellingOfInputTypes) {
  DeviceOptions later;
  later.system_text = "SYSVER   2.00";
  auto first = SampleDevice("QUO.def");
  auto second = SampleDevice("QUO.def", kSample, later);
  EXPECT_EQ(Read(first, "01", "10"), "DTc-2:K(CA)");
  EXPECT_EQ(Read(second, "01", "10"), "DTc-2: K(CA)");
}

constexpr std::string_view kRuled =
    "$Data\n"
    "01, 10, , , Y, Y, , , , , 0, $I10, , , , , , , , , Y\n"
    "01, 14, , , Y, Y, , , , 0, , , , , , , , , , , Y, , Z:, 1\n"
    "01, 21, , , Y, Y, , , , 1, , , , , , , , , , , Y, , A:, 2\n"
    "01, 23, , , Y, Y, , , , , 2, $I23, , , , , , , , , Y\n"
    "01, 24, , , Y, Y, , , , 2, , , , , , , , , , , Y, , B:, 3\n"
    "01, 25, , , Y, Y, , , , 3, , , , , , , , , , , Y, , C:, 4\n"
    "01, 26, , , Y, Y, , , , 4, , , , , , , , , , , Y, , D:, 5\n"
    "$I10\n1, one, , , , N, Y\n2, two, , , , N, Y\n3, three, , , , N, Y\n21, linear, , , , N, Y\n"
    "$I23\n0, 0:NO FILTER\n1, 1:FIRST ORDER\n$End\n";

TEST(DeviceTest, ItemsOfNoUseUnderAChoiceAreNotUsable) {
  struct Case {
    const char* file;
    const char* selector;
    const char* code;
    const char* needless;  // each two digits
  };
  for (const auto& row : {Case{"QUO.def", "10", "21", "14 21"}, Case{"QUO.def", "10", "1", ""},
                          Case{"QH.def", "10", "1", "21 24 25"}, Case{"QH.def", "10", "2", "21 24 25"},
                          Case{"QH.def", "10", "3", ""}, Case{"QHG.def", "10", "1", "21 25 26"},
                          Case{"QHG.def", "10", "2", ""}, Case{"QHN3.def", "23", "0", "24 25 26"},
                          Case{"QHN3.def", "23", "1", ""}, Case{"QHW.def", "23", "0", ""}}) {
    auto device = SampleDevice(row.file, kRuled);
    ASSERT_TRUE(device.Set("01", row.selector, row.code)) << row.file;
    std::string needless;
    for (const char* const item : {"14", "21", "24", "25", "26"}) {
      if (Read(device, "01", item) == "CNU") {
        needless += (needless.empty() ? "" : " ") + std::string(item);
      }
    }
    EXPECT_EQ(needless, row.needless) << row.file << " " << row.code;
  }
}

TEST(DeviceTest, PowerUpNumbersAreTheModelsOwn) {
  // item 28 is a limit of 100 % on QH and a bias on QHG
  const std::string_view row = "$Data\n01, 28, , , Y, Y, , , , 1, , , , , , , , , , , Y, , P:, 3\n$End\n";
  EXPECT_EQ(SampleDevice("QH.def", row).Value("01", "28"), "100.00");
  EXPECT_EQ(SampleDevice("QHG.def", row).Value("01", "28"), "0");
  EXPECT_EQ(SampleDevice("QHN4.def", row).Value("01", "28"), "5.0");
}

TEST(DeviceTest, ThirtyTwoIsALiveValueOnlyWhereItIsNotWritten) {
  auto live = SampleDevice("A.def", "$Data\n01, 32, , , , Y, , , , 1\n$End\n");
  auto number =
      SampleDevice("B.def", "$Data\n01, 32, , , Y, Y, , , , 1, , , , , , , , , , , Y, , L:, 3\n$End\n");
  EXPECT_EQ(Read(live, "01", "32"), "DPV:   50.50");
  EXPECT_EQ(Read(number, "01", "32"), "DL:0");
}

}  // namespace
}  // namespace korva::sim
