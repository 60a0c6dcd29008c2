// An output that is trimmed by differences.

#include "sim/trim.h"

#include <gtest/gtest.h>

#include "model_device.h"
#include "sim/number.h"

namespace korva::sim {
namespace {

/// The text of a reply on the display.
std::string Shown(const Reply& reply) { return std::string(TrimBlanks(reply.text.substr(1))); }

/// Selects an item and sends it data.
std::string Sent(Device& device, const std::string& item, const std::string& data) {
  device.Answer("G01");
  device.Answer("I" + item);
  return Shown(device.Answer("D" + data));
}

TEST(TrimTest, ComesUpUntrimmedAndTakesStepsOfAHundredthOfAPercent) {
  Trim trim;
  EXPECT_EQ(trim.Text(), "0.0000 1.0000");
  EXPECT_TRUE(trim.Apply("Z1"));
  EXPECT_TRUE(trim.Apply("S-10"));
  EXPECT_EQ(trim.Text(), "0.0001 0.9990");
  EXPECT_TRUE(trim.Apply("Z-101"));
  EXPECT_EQ(trim.Text(), "-0.0100 0.9990");
  EXPECT_TRUE(trim.Apply("C0"));
  EXPECT_EQ(trim.Text(), "0.0000 1.0000") << "both ends";
}

TEST(TrimTest, RefusesWhatItDoesNotKnowAndMoreThanItsFurthest) {
  Trim trim;
  for (const char* command : {"", "Z", "Zx", "1", "C", "C1", "Z1 ", "X1", "Z1001", "S-1001"}) {
    EXPECT_FALSE(trim.Apply(command)) << command;
  }
  EXPECT_EQ(trim.Text(), "0.0000 1.0000");
  EXPECT_TRUE(trim.Apply("Z1000"));
  EXPECT_TRUE(trim.Apply("S-1000"));
  EXPECT_EQ(trim.Text(), "0.1000 0.9000");
}

TEST(TrimTest, IsToldByItem28AndMovedByItem29InMonitorModeToo) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  EXPECT_EQ(Sent(device, "28", ""), "0.0000 1.0000");
  EXPECT_EQ(Sent(device, "29", "Z150"), "0.0150 1.0000");
  EXPECT_EQ(Sent(device, "29", "S-25"), "0.0150 0.9975");
  EXPECT_EQ(Sent(device, "28", ""), "0.0150 0.9975");
  EXPECT_EQ(device.Value("01", "28"), "0.0150 0.9975");
  EXPECT_EQ(Sent(device, "28", "1"), "invalid data");
  EXPECT_EQ(Sent(device, "29", "Q"), "invalid data");
  EXPECT_EQ(Sent(device, "29", "C0"), "0.0000 1.0000");
}

TEST(TrimTest, TheOutputFollows) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  const double before = std::stod(device.Value("01", "07"));
  ASSERT_TRUE(device.Set("01", "28", "0.0100 0.9900"));
  EXPECT_NEAR(std::stod(device.Value("01", "07")), (before * 0.99) + 1, 0.01);
  EXPECT_FALSE(device.Set("01", "28", "0.0100"));
}

TEST(TrimTest, ADeviceOfAnotherFamilyHasNone) {
  auto device = Device::ForModel(kHome, "Z2WT");
  EXPECT_EQ(Sent(device, "28", ""), "invalid data");
}

TEST(TrimTest, TheFaultOneValueDropsTheSecondValueAndLeavesOtherAnswersAlone) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  device.AddFault(ParseFault("one-value"));
  EXPECT_EQ(Sent(device, "28", ""), "0.0000");
  EXPECT_EQ(Sent(device, "62", "T10"), "1.0000");
  EXPECT_EQ(Sent(device, "62", "X"), "invalid data");
  EXPECT_EQ(Sent(device, "20", ""), device.Value("01", "20"));
}

TEST(ThresholdOfADevice, TakesDataInMonitorModeUnlikeAParameter) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  EXPECT_EQ(Sent(device, "30", "0.07"), "0.07");
  EXPECT_EQ(Sent(device, "16", "4"), "invalid data");
  EXPECT_EQ(Sent(device, "03", ""), "1") << "the unit of frequencies, Hz";
}

}  // namespace
}  // namespace korva::sim
