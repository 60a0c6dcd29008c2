// Pulse transmitters of the second line: a table that travels in a dialogue, units with codes of their own,
// voltages on a grid, and what takes its time.
#include <gtest/gtest.h>

#include "model_device.h"

namespace korva::sim {
namespace {

constexpr const char* kModel = "Z2WPA";

std::string Say(Device& device, const std::string& data) { return Write(device, "01", "42", data); }

std::string Padded(const std::string& text) { return "D" + std::string(16 - text.size(), ' ') + text; }

const std::string kInvalid = Padded("invalid data");

TEST(TableDialogueTest, GivesEachPointBehindANumberOfPointsAndNothingBehindTheLast) {
  auto device = Device::ForModel(kHome, kModel);
  EXPECT_EQ(Say(device, "O"), Padded("output number"));
  EXPECT_EQ(Say(device, "100"), Padded("output num-data"));
  EXPECT_EQ(Say(device, "1"), Padded("0.00 0.00"));
  EXPECT_EQ(Say(device, "5"), "D   100.00 100.00");
  EXPECT_EQ(Say(device, "2"), Padded("25.00 25.00"));
  EXPECT_EQ(Say(device, "6"), Padded(""));
  EXPECT_EQ(Say(device, "101"), kInvalid);
}

TEST(TableDialogueTest, TakesATableInProgrammingModeAlone) {
  auto device = Device::ForModel(kHome, kModel);
  EXPECT_EQ(Say(device, "C"), kInvalid);
  EXPECT_EQ(Say(device, "I"), kInvalid);
  EXPECT_EQ(device.GetTableDialogue().Points().size(), 5U);
  EnterProgramming(device);
  EXPECT_EQ(Say(device, "C"), Padded("rest_linear"));
  EXPECT_TRUE(device.GetTableDialogue().Points().empty());
  EXPECT_EQ(Say(device, "I"), Padded("input number"));
  EXPECT_EQ(Say(device, "2"), Padded("input num-data"));
  EXPECT_EQ(Say(device, "1 -15 0.5"), Padded("1 -15.00 0.50"));
  EXPECT_EQ(Say(device, "2 115 99.999"), "D 2 115.00 100.00");
  const std::vector<Point> points = {{.x = -15, .y = 0.5}, {.x = 115, .y = 100}};
  EXPECT_EQ(device.GetTableDialogue().Points().size(), 2U);
  EXPECT_EQ(device.GetTableDialogue().Points()[0].y, points[0].y);
  EXPECT_EQ(device.GetTableDialogue().Points()[1].x, points[1].x);
}

TEST(TableDialogueTest, RefusesWhatItCantTakeAndGoesOn) {
  auto device = ProgrammedDevice(kModel);
  Say(device, "I");
  for (const char* const number : {"0", "101", "x", "1.5", ""}) {
    EXPECT_EQ(Say(device, number), number[0] == 0 ? Padded("OFF") : kInvalid) << number;
  }
  EXPECT_EQ(Say(device, "2"), Padded("input num-data"));
  for (const char* const point : {"3 0 0", "0 0 0", "1 0", "1 0 0 0", "1 x 0", "1 0 301", "1 -301 0"}) {
    EXPECT_EQ(Say(device, point), kInvalid) << point;
  }
  EXPECT_EQ(Say(device, "2 300 -300"), "D2 300.00 -300.00");
}

TEST(TableDialogueTest, AnotherItemEndsItAndTheSwitchTakesItsCodesAgain) {
  auto device = ProgrammedDevice(kModel);
  Say(device, "I");
  EXPECT_EQ(Say(device, "1"), Padded("input num-data")) << "a number, not the code of the switch";
  Read(device, "01", "02");
  EXPECT_EQ(Say(device, "1"), Padded("ON"));
  EXPECT_EQ(device.Value("01", "42"), "ON");
}

TEST(TableDialogueTest, AWrongEchoShowsAnotherValueAndReadingIsNotStruck) {
  auto device = ProgrammedDevice(kModel);
  device.AddFault(ParseFault("wrong-echo"));
  Say(device, "I");
  Say(device, "2");
  EXPECT_EQ(Say(device, "1 0 10"), Padded("1 0.00 11.00"));
  EXPECT_EQ(device.GetTableDialogue().Points()[0].y, 10);
  Say(device, "O");
  Say(device, "100");
  EXPECT_EQ(Say(device, "1"), Padded("0.00 10.00"));
}

TEST(PulseDeviceTest, AFrequencyHasAnItemForItsUnitAndIsReportedWithIt) {
  auto device = ProgrammedDevice(kModel);
  EXPECT_EQ(device.Value("01", "32"), "500 Hz");
  EXPECT_EQ(Write(device, "01", "11", "2"), Padded("2:kHz"));
  EXPECT_EQ(Write(device, "01", "32", "0.125"), Padded("0.125kHz"));
  EXPECT_EQ(Write(device, "01", "11", "0"), Padded("0:mHz"));
  EXPECT_EQ(Write(device, "01", "32", "7"), Padded("7mHz"));
  EXPECT_EQ(device.Value("01", "33"), "1 Hz") << "its unit is another item's";
  EXPECT_EQ(Write(device, "01", "34", "2"), Padded("2:kHz"));
  EXPECT_EQ(Write(device, "01", "33", "3"), Padded("3kHz"));
}

TEST(PulseDeviceTest, OtherNumbersHaveNoUnitAndVoltagesAGrid) {
  auto device = ProgrammedDevice(kModel);
  EXPECT_EQ(Write(device, "01", "38", "2.5"), Padded("2.50"));
  EXPECT_EQ(Write(device, "01", "38", "2.52"), Padded("2.50"));
  EXPECT_EQ(Write(device, "01", "38", "2.53"), Padded("2.55"));
  EXPECT_EQ(Write(device, "01", "18", "1.234"), Padded("1.23"));
}

TEST(PulseDeviceTest, TellsThatATagWasSet) {
  auto device = ProgrammedDevice(kModel);
  EXPECT_EQ(Write(device, "01", "02", "PUMP"), Padded("SET_user_TAG"));
  EXPECT_EQ(device.Value("01", "02"), "PUMP");
}

TEST(PulseDeviceTest, ItemsThatAreNotReadyAreSoOnce) {
  auto device = Device::ForModel(kHome, kModel);
  device.AddFault(ParseFault("not-ready"));
  Read(device, "01", "18");
  EXPECT_EQ(device.Answer("D").text, kInvalid);
  EXPECT_EQ(device.Answer("D").text, Padded("1.00"));
  Read(device, "01", "38");
  EXPECT_EQ(device.Answer("D").text, kInvalid) << "each item for itself";
}

}  // namespace
}  // namespace korva::sim
