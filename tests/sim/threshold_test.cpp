// Pulse transmitters whose threshold can be set while they measure.
#include <gtest/gtest.h>

#include "model_device.h"

namespace korva::sim {
namespace {

struct ThresholdDeviceTest : testing::TestWithParam<std::string> {
  Device device = Device::ForModel(kHome, GetParam());
};
INSTANTIATE_TEST_SUITE_P(Model, ThresholdDeviceTest, testing::Values("Z2WPR", "Z2WPL"),
                         [](const auto& one) { return one.param; });

TEST_P(ThresholdDeviceTest, TakesItInMonitorModeAndNothingElse) {
  EXPECT_EQ(Write(device, "01", "09", "3.25"), "DTHRSLD3.25");
  EXPECT_EQ(Read(device, "01", "09"), "DTHRSLD3.25");
  EXPECT_EQ(Write(device, "01", "12", "3"), "CNG");
  EXPECT_EQ(device.Mode(), '0');
}

TEST_P(ThresholdDeviceTest, TakesBothLimitsOfItsRowAndRefusesWhatLiesBeyondThem) {
  EXPECT_EQ(Write(device, "01", "09", "0.1"), "DTHRSLD0.1");
  EXPECT_EQ(Write(device, "01", "09", "5"), "DTHRSLD5");
  for (const char* beyond : {"0.09", "5.01", "-1", "0", "", "2,5"}) {
    EXPECT_EQ(Write(device, "01", "09", beyond), "CNG") << beyond;
  }
  EXPECT_EQ(device.Value("01", "09"), "5");
}

TEST(LineReceiverTest, TakesNoThresholdButZero) {
  auto device = ProgrammedDevice("Z2WPL");
  EXPECT_EQ(Write(device, "01", "11", "6"), "DRS-422 100kHz");
  EXPECT_EQ(Write(device, "01", "09", "2.5"), "CNG");
  EXPECT_EQ(Write(device, "01", "09", "0"), "DTHRSLD0");
  EXPECT_EQ(Write(device, "01", "11", "0"), "DOPEN COL 100Hz");
  EXPECT_EQ(Write(device, "01", "09", "0"), "CNG");
  EXPECT_EQ(Write(device, "01", "09", "2.5"), "DTHRSLD2.5");
}

}  // namespace
}  // namespace korva::sim
