// Devices with two outputs: items of two numbers, trims, and what corrects a sensor's circuit.

#include "sim/two_outputs.h"

#include <gtest/gtest.h>

#include "model_device.h"
#include "sim/number.h"

namespace korva::sim {
namespace {

using namespace std::chrono_literals;

/// The text of a reply on the display.
std::string Displayed(const Reply& reply) { return std::string(TrimBlanks(reply.text.substr(1))); }

/// Selects an item and sends it data.
std::string SentAt(Device& device, const std::string& item, const std::string& data,
                   std::chrono::nanoseconds at = 0s) {
  device.Answer("G01", at);
  device.Answer("I" + item, at);
  return Displayed(device.Answer("D" + data, at));
}

double Told(const Device& device, const std::string& item) { return std::stod(device.Value("01", item)); }

/// A voltage transmitter of -10 to 10 V that measures so many volts; its outputs are 0 to 10 V and 4 to 20
/// mA.
Device Measuring(const std::string& volts) {
  auto device = Device::ForModel(kHome, "Z8WV2");
  EXPECT_TRUE(device.Set("01", "10", "-10-10 V") && device.Set("01", "11", "0-10 V") &&
              device.Set("01", "04", volts));
  return device;
}

TEST(PairTest, IsTwoNumbersWithOneBlankBetween) {
  EXPECT_EQ(FormatPair({.first = -5, .second = 100.25}), "-5.000 100.250");
  const auto pair = ParsePair("-5 100.25");
  ASSERT_TRUE(pair);
  EXPECT_EQ(pair->first, -5);
  EXPECT_EQ(pair->second, 100.25);
  for (const char* text : {"", "5", "5 ", " 5", "5  6", "5 x", "x 6", "5 6 7"}) {
    EXPECT_FALSE(ParsePair(text)) << text;
  }
}

TEST(PairTest, IsToldAndTakenAsOneItemInProgrammingModeAlone) {
  auto device = Device::ForModel(kHome, "Z8WV2");
  EXPECT_EQ(SentAt(device, "14", ""), "-100.000 100.000");
  EXPECT_EQ(SentAt(device, "14", "0 50"), "invalid data");
  EnterProgramming(device);
  EXPECT_EQ(SentAt(device, "14", "0 50.5"), "0.000 50.500");
  EXPECT_EQ(device.Value("01", "14"), "0.000 50.500");
  EXPECT_EQ(SentAt(device, "14", "1"), "invalid data");
  EXPECT_EQ(device.Value("01", "14"), "0.000 50.500");
}

TEST(PairTest, OfATypeComesWithItAndWithNoOther) {
  auto device = ProgrammedDevice("Z8WV2");
  EXPECT_EQ(SentAt(device, "10", "3"), "0-20 mA");
  EXPECT_EQ(device.Value("01", "14"), "4.000 20.000");
  EXPECT_EQ(device.Value("01", "15"), "0.000 23.000");
  EXPECT_EQ(SentAt(device, "41", "2"), "-10-10 V");
  EXPECT_EQ(device.Value("01", "42"), "-10.000 10.000");
  EXPECT_EQ(device.Value("01", "43"), "-11.500 11.500");
  EXPECT_EQ(device.Value("01", "12"), "4.000 20.000") << "of the other output";
}

TEST(PairTest, OfAColdJunctionIsItem34OfAThermocouple) {
  EXPECT_EQ(Device::ForModel(kHome, "Z8WT2").Value("01", "34"), "25.000 574.000");
  EXPECT_EQ(Device::ForModel(kHome, "Z8WR2").Value("01", "34"), "");
  auto device = ProgrammedDevice("Z8WT2");
  EXPECT_EQ(SentAt(device, "34", "24.5 600"), "24.500 600.000");
}

TEST(PairTest, LacksItsSecondNumberUnderTheFault) {
  auto device = Device::ForModel(kHome, "Z8WV2");
  device.AddFault(ParseFault("one-value"));
  EXPECT_EQ(SentAt(device, "14", ""), "-100.000");
}

TEST(PairTest, HasAUnitBehindEachNumberUnderTheFault) {
  auto device = ProgrammedDevice("Z8WV2");
  device.AddFault(ParseFault("pair-units"));
  EXPECT_EQ(SentAt(device, "14", ""), "-100.000mV 100.000mV");
  EXPECT_EQ(SentAt(device, "14", "0 10"), "0.000mV 10.000mV") << "the echo of a write too";
  EXPECT_EQ(SentAt(device, "14", "x"), "invalid data");
  EXPECT_EQ(SentAt(device, "43", ""), "0.000mA 24.000mA");
  EXPECT_EQ(SentAt(device, "11", "1"), "0-10 V");
  EXPECT_EQ(SentAt(device, "12", ""), "0.000V 10.000V");
  EXPECT_EQ(SentAt(device, "19", "0.5"), "0.500 %") << "one number";
  auto thermocouple = Device::ForModel(kHome, "Z8WT2");
  EXPECT_TRUE(thermocouple.Set("01", "21", "deg F"));
  thermocouple.AddFault(ParseFault("pair-units"));
  EXPECT_EQ(SentAt(thermocouple, "14", ""), "0.000deg C 1760.000deg C") << "on the wire it is deg C";
  EXPECT_EQ(SentAt(thermocouple, "34", ""), "25.000 574.000");
}

TEST(TwoOutputsTest, FollowTheInputByTheirOwnRanges) {
  const auto device = Measuring("5");
  EXPECT_EQ(Told(device, "04"), 5);
  EXPECT_EQ(Told(device, "05"), 75);
  EXPECT_EQ(Told(device, "08"), 75);
}

TEST(TwoOutputsTest, StayWithinTheirOwnLimitsAndThoseOfTheInput) {
  auto device = Measuring("5");
  EXPECT_TRUE(device.Set("01", "13", "0 6") && device.Set("01", "43", "4 8"));
  EXPECT_EQ(Told(device, "05"), 60);
  EXPECT_EQ(Told(device, "08"), 25);
  EXPECT_TRUE(device.Set("01", "13", "0 10") && device.Set("01", "15", "-2 2"));
  EXPECT_EQ(Told(device, "05"), 60) << "the input counts as 2 V";
  EXPECT_EQ(Told(device, "04"), 5) << "but is told as it is";
}

TEST(TwoOutputsTest, FollowTheTrimsOfTheirOwnEnds) {
  auto device = Measuring("0");
  EXPECT_EQ(SentAt(device, "19", "0.5"), "0.500 %") << "in monitor mode";
  EXPECT_EQ(Told(device, "05"), 50.5);
  EXPECT_EQ(SentAt(device, "20", "2"), "2.000 %");
  EXPECT_EQ(Told(device, "05"), 51.5);
  EXPECT_EQ(Told(device, "08"), 50);
  EXPECT_EQ(SentAt(device, "44", "-1"), "-1.000 %");
  EXPECT_EQ(SentAt(device, "45", "-4"), "-4.000 %");
  EXPECT_EQ(Told(device, "08"), 47);
  EXPECT_EQ(SentAt(device, "45", "0.00"), "0.000 %");
  EXPECT_EQ(Told(device, "08"), 49);
}

TEST(TwoOutputsTest, RefuseATrimThatIsNoNumberOrFurtherThanTheyGo) {
  auto device = Measuring("0");
  for (const char* data : {"10.01", "-10.01", "x", "1 2"}) {
    EXPECT_EQ(SentAt(device, "20", data), "invalid data") << data;
  }
  EXPECT_EQ(device.Value("01", "20"), "0.000 %");
}

TEST(TwoOutputsTest, AreForcedTogetherAndLetGoInMonitorMode) {
  auto device = Measuring("0");
  EnterProgramming(device);
  SentAt(device, "03", "80");
  EXPECT_EQ(Told(device, "05"), 80);
  EXPECT_EQ(Told(device, "08"), 80);
  SentAt(device, "01", "0");
  EXPECT_EQ(Told(device, "05"), 50);
}

TEST(TwoOutputsTest, TellTemperaturesInTheirUnitThoseInFahrenheitTooHigh) {
  auto device = Device::ForModel(kHome, "Z8WT2");
  EXPECT_EQ(device.Value("01", "07"), "25.00");
  EXPECT_EQ(Displayed(device.Answer("D")), "invalid data") << "nothing is selected";
  EXPECT_TRUE(device.Set("01", "21", "deg F"));
  EXPECT_EQ(device.Value("01", "07"), "102.60");
  EXPECT_TRUE(SentAt(device, "07", "").ends_with("102.60 deg F"));
  EXPECT_TRUE(device.Set("01", "21", "K"));
  EXPECT_EQ(device.Value("01", "07"), "298.20");
}

TEST(TwoOutputsTest, TellTheirModelAsTheTitleOfItsItem) {
  auto device = Device::ForModel(kHome, "Z8WR2");
  device.Answer("G00");
  EXPECT_EQ(Displayed(device.Answer("I01")), "Z8WR2-AA-S");
  EXPECT_TRUE(device.Set("00", "01", "Z8WT2-AA-S"));
  EXPECT_EQ(Displayed(device.Answer("I01")), "Z8WT2-AA-S");
}

TEST(CompensationTest, OfTheLeadsTakesItsThreeSeconds) {
  auto device = Device::ForModel(kHome, "Z8WR2");
  const double signal = Told(device, "06");
  EXPECT_EQ(SentAt(device, "27", "D", 1s), "0.000 0.000");
  EXPECT_EQ(SentAt(device, "27", "Z", 2s), "OK");
  EXPECT_EQ(SentAt(device, "27", "D", 4999ms), "0.000 0.000");
  EXPECT_EQ(SentAt(device, "27", "D", 5s), "0.850 0.000");
  EXPECT_NEAR(Told(device, "06"), signal - 0.85, 0.006);
  EXPECT_EQ(SentAt(device, "27", "R", 6s), "OK");
  EXPECT_EQ(SentAt(device, "27", "D", 9s), "0.000 0.000");
}

TEST(CompensationTest, OfPositionsMakesThePresentOnesTheEnds) {
  auto device = Device::ForModel(kHome, "Z8WM2");
  EXPECT_TRUE(device.Set("01", "04", "5"));
  EXPECT_EQ(SentAt(device, "27", "Z", 0s), "OK");
  EXPECT_EQ(SentAt(device, "27", "D", 3s), "-5.000 0.000");
  EXPECT_TRUE(device.Set("01", "04", "85"));
  EXPECT_EQ(SentAt(device, "27", "S", 4s), "OK");
  EXPECT_EQ(SentAt(device, "27", "D", 7s), "-5.000 25.000");
  EXPECT_EQ(Told(device, "05"), 100);
  EXPECT_EQ(SentAt(device, "27", "R", 8s), "OK");
  EXPECT_EQ(SentAt(device, "27", "D", 11s), "0.000 0.000");
}

TEST(CompensationTest, RefusesWhatTheModelHasNot) {
  auto leads = Device::ForModel(kHome, "Z8WR2");
  EXPECT_EQ(SentAt(leads, "27", "S"), "invalid data");
  EXPECT_EQ(SentAt(leads, "27", "X"), "invalid data");
  for (const char* model : {"Z8WV2", "Z8WT2"}) {
    auto device = Device::ForModel(kHome, model);
    device.Answer("G01");
    EXPECT_EQ(Displayed(device.Answer("I27")), "invalid data") << model;
  }
}

}  // namespace
}  // namespace korva::sim
