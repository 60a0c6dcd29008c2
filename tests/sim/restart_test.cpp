// A universal transmitter: what its input has not got, the settings of its plant network, and its restart.
#include <gtest/gtest.h>

#include "model_device.h"
#include "sim/line.h"

namespace korva::sim {
namespace {

using namespace std::chrono_literals;

struct UniversalTransmitterTest : testing::Test {
  Device device = Device::ForModel(kHome, "Z2WU");

  std::string ReadOf(const char* item) {
    Read(device, "01", item);
    return device.Answer("D").text;
  }
};

TEST_F(UniversalTransmitterTest, HasItsInputsOfAllClassesUnderTheirCodes) {
  EnterProgramming(device);
  for (const auto& [code, text] : std::vector<std::pair<std::string, std::string>>{
           {"3", "DC mA"}, {"11", "TC K (CA)"}, {"38", "User's RTD"}, {"44", "POT 50-100 kOhm"}}) {
    Write(device, "01", "10", code);
    EXPECT_EQ(device.Value("01", "10"), text);
  }
  EXPECT_EQ(Write(device, "01", "10", "0"), "D    invalid data");
}

TEST_F(UniversalTransmitterTest, AnInputBringsItsRangeAndItsUnits) {
  EnterProgramming(device);
  EXPECT_EQ(device.Value("01", "15"), "10 V");
  Write(device, "01", "10", "11");
  EXPECT_EQ(device.Value("01", "14"), "-270 deg C");
  EXPECT_EQ(device.Value("01", "15"), "1370 deg C");
  Write(device, "01", "21", "2");
  EXPECT_EQ(device.Value("01", "14"), "-270 K");
  Write(device, "01", "10", "40");
  EXPECT_EQ(device.Value("01", "15"), "100 %");
  Write(device, "01", "41", "2");
  EXPECT_EQ(device.Value("01", "42"), "-10");
  EXPECT_EQ(device.Value("01", "12"), "4") << "each output has its own";
}

TEST_F(UniversalTransmitterTest, WhatItsInputHasNotGotIsNotUsable) {
  const std::vector<std::pair<std::string, std::string>> items_without = {
      {"DC V", "21 23 24"}, {"TC J (IC)", "25"}, {"Ni100", "23 25"}, {"POT 2-10 kOhm", "21 23"}};
  for (const auto& [input, without] : items_without) {
    ASSERT_TRUE(device.Set("01", "10", input));
    for (const char* item : {"21", "23", "24", "25"}) {
      const bool has = without.find(item) == std::string::npos;
      EXPECT_EQ(ReadOf(item) != "D      not usable", has) << input << ", item " << item;
    }
  }
}

TEST_F(UniversalTransmitterTest, TakesAnAddressOfTwoHexadecimalDigitsFrom01To7F) {
  EnterProgramming(device);
  for (const char* good : {"01", "7F", "2A"}) {
    EXPECT_EQ(Write(device, "01", "81", good), std::string("D          ") + good + " hex") << good;
  }
  for (const char* bad : {"00", "80", "7", "007", "7G", ""}) {
    EXPECT_FALSE(std::string(bad).empty() ? false : Write(device, "01", "81", bad) != "D    invalid data")
        << bad;
  }
  EXPECT_EQ(device.Value("01", "81"), "2A hex");
}

TEST_F(UniversalTransmitterTest, SettingsOfTheNetworkAreInForceFromTheNextRestart) {
  EnterProgramming(device);
  Write(device, "01", "81", "33");
  Write(device, "01", "83", "2");
  EXPECT_EQ(device.Value("01", "83"), "EVEN") << "a read tells what was written";
  EXPECT_EQ(device.InForce("81"), "01 hex");
  EXPECT_EQ(device.InForce("83"), "NONE");
  EXPECT_EQ(Write(device, "00", "88", "R"), "D           Reset");
  EXPECT_EQ(device.InForce("81"), "33 hex");
  EXPECT_EQ(device.InForce("83"), "EVEN");
  EXPECT_EQ(device.InForce("14"), "") << "no setting of the network";
  EXPECT_EQ(device.Mode(), '0');
}

TEST_F(UniversalTransmitterTest, RestartsInProgrammingModeOnlyAndByItsLetter) {
  EXPECT_EQ(Write(device, "00", "88", "R"), "D    invalid data");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "00", "88", "S"), "D    invalid data");
  EXPECT_EQ(device.Mode(), '1');
}

TEST_F(UniversalTransmitterTest, HearsNothingForThreeSecondsOfARestart) {
  EnterProgramming(device);
  Line line(device, false);
  line.Receive("G00\rI88\rDR\r", 0ms);
  while (line.NextDue()) {
    line.TakeDue(*line.NextDue());
  }
  line.Receive("G01\r", 2999ms);
  EXPECT_FALSE(line.NextDue());
  line.Receive("G01\r", 3000ms);
  ASSERT_TRUE(line.NextDue());
  EXPECT_EQ(line.TakeDue(*line.NextDue()), "D      enter item\r");
}

TEST_F(UniversalTransmitterTest, UnderTheFaultNoReturnItNeverComesBack) {
  EnterProgramming(device);
  device.AddFault(ParseFault("no-return"));
  EXPECT_FALSE(device.Answer("G00").silent) << "other commands are not struck";
  EXPECT_EQ(Write(device, "00", "88", "R"), "D           Reset");
  EXPECT_TRUE(device.Answer("G00").silent);
  EXPECT_TRUE(device.Answer("G01").silent);
}

}  // namespace
}  // namespace korva::sim
