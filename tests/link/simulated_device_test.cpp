// Both dialects against simulated devices, over a line with the families' true speeds.

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"
#include "link/group_item.h"
#include "link/serial_link.h"
#include "sim/sample.h"
#include "support/device_line.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

sim::Device SampleOf(const std::string& family) {
  return {{.name = "sample", .definition_file = "SAMPLE.def", .family_word = family},
          sim::Definition::Parse(sim::kSample)};
}

struct SampleBench : test::DeviceBench {
  explicit SampleBench(const std::string& family) : DeviceBench(SampleOf(family)) {
    link.Reopen(FromUtf8(std::to_string(device.GetFamily().baud) + ",n,8,1"));
  }

  /// Whether the device's tag, "PUMP1", is read well.
  bool ReadsTag() { return cok.ReadItemRetry(3, {u"01", u"02"}) == u"TG:PUMP1"; }

  SharedState shared;
  SerialLink link{platform, shared};
  CokDialect cok{link, shared};
  EnterItemDialect enter_item{link, shared};
};

TEST(SimulatedDeviceTest, AnExchangeTakesTheTimeOfItsCharactersAndTheDevicesLatency) {
  SampleBench bench("First");
  ASSERT_TRUE(bench.device.Set("01", "02", "PUMP1"));
  EXPECT_TRUE(bench.ReadsTag());
  EXPECT_EQ(bench.line.Sent(), "G01 I02");
  // G01, COK, I02 and DTG: with ten characters, each with one carriage return.
  const Clock wire = Clock(10s) * (4 + 4 + 4 + 15) / 1200;
  EXPECT_NEAR(static_cast<double>(bench.loop.Now().count()), static_cast<double>((wire + 20ms).count()), 1e3);
}

TEST(SimulatedDeviceTest, ADeviceAtAnotherSpeedIsSilent) {
  SampleBench bench("First");
  bench.link.Reopen(u"9600,n,8,1");
  EXPECT_FALSE(bench.ReadsTag());
  EXPECT_EQ(bench.line.Sent(), "");
}

TEST(SimulatedDeviceTest, AWriteIsEchoed) {
  SampleBench bench("First");
  ASSERT_EQ(bench.cok.WriteItemRetry(3, {u"01", u"01"}, u"1"), u"1");
  EXPECT_EQ(bench.cok.WriteItemRetry(3, {u"01", u"02"}, u"PUMP2"), u"TG:PUMP2");
  EXPECT_EQ(bench.cok.WriteItemRetry(3, {u"01", u"02"}, u"          "), u"TG:          ");
}

struct LateSecondEndTest : testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Family, LateSecondEndTest, testing::Values("First", "LiteForth"));

TEST_P(LateSecondEndTest, NoReadIsDisturbedByASecondLineEndThatComesLate) {
  SampleBench bench(GetParam());
  ASSERT_TRUE(bench.device.Set("01", "02", "PUMP1"));
  bench.device.AddFault(sim::ParseFault("late-second-line-end"));
  for (int i = 0; i < 50; ++i) {
    ASSERT_TRUE(bench.ReadsTag());
  }
  EXPECT_EQ(bench.line.Commands().size(), 100U) << "no try was lost";
}

TEST(SimulatedDeviceTest, TheFastestDevicesLateLineEndDisturbsNothingEither) {
  SampleBench bench("LiteUniv");
  bench.device.AddFault(sim::ParseFault("late-second-line-end"));
  for (int i = 0; i < 50; ++i) {
    ASSERT_EQ(bench.enter_item.ReadItemNameRetry(3, {u"00", u"99"}), u"Version");
  }
  EXPECT_EQ(bench.line.Commands().size(), 100U) << "no try was lost";
}

struct FaultCase {
  const char* rule;
  bool read;             ///< the tag is read well in the end
  std::size_t commands;  ///< that the device hears
};

struct FaultTest : testing::TestWithParam<FaultCase> {};

INSTANTIATE_TEST_SUITE_P(Fault, FaultTest,
                         testing::Values(FaultCase{"silent@1", true, 3}, FaultCase{"silent@2", true, 4},
                                         FaultCase{"silent", false, 4}, FaultCase{"second-try-only", true, 5},
                                         FaultCase{"refused@1", true, 3}, FaultCase{"refused@2", false, 2},
                                         FaultCase{"not-usable@2", false, 2},
                                         FaultCase{"byte-by-byte", true, 2},
                                         FaultCase{"two-line-ends", true, 2}, FaultCase{"garbled@1", true, 3},
                                         FaultCase{"garbled@2", true, 4}, FaultCase{"doubled@1", true, 4},
                                         FaultCase{"doubled@2", true, 2}, FaultCase{"late@1", true, 5},
                                         FaultCase{"late@2", true, 5}, FaultCase{"half@1", true, 3},
                                         FaultCase{"half@2", true, 4}, FaultCase{"empty@1", true, 3},
                                         FaultCase{"empty@2", true, 4}));

TEST_P(FaultTest, AReadEndsAsItsRepeatsAllow) {
  SampleBench bench("First");
  ASSERT_TRUE(bench.device.Set("01", "02", "PUMP1"));
  bench.device.AddFault(sim::ParseFault(GetParam().rule));
  EXPECT_EQ(bench.ReadsTag(), GetParam().read);
  EXPECT_EQ(bench.line.Commands().size(), GetParam().commands);
}

}  // namespace
}  // namespace korva
