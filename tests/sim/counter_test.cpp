// Counters and alarm units: counts, the commands that reset them, alarm values with a unit and a direction.
#include <gtest/gtest.h>

#include "model_device.h"

namespace korva::sim {
namespace {

TEST(CounterTest, CountGoesOnWithEachReadInMonitorMode) {
  auto device = Device::ForModel(kHome, "QEC2");
  EXPECT_EQ(device.Value("01", "03"), "0");
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA         1");
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA         2");
  EXPECT_EQ(Read(device, "01", "04"), "DCOUNTB         1") << "each count by itself";
  EXPECT_EQ(device.Value("01", "03"), "2");
  EnterProgramming(device);
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA         2");
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA         2");
}

TEST(CounterTest, CountIsSetInProgrammingModeToAWholeNumber) {
  auto device = Device::ForModel(kHome, "QEC2");
  EXPECT_EQ(Write(device, "01", "03", "5"), "CNG") << "not in monitor mode";
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "03", "4294967295"), "DCOUNTA4294967295");
  for (const char* const bad : {"4294967296", "-100000000", "12.5", "abc", "", "1 (UP)"}) {
    EXPECT_EQ(Write(device, "01", "03", bad), "CNG") << bad;
  }
  EXPECT_EQ(device.Value("01", "03"), "4294967295");
  EXPECT_EQ(Write(device, "01", "03", "-99999999"), "DCOUNTA -99999999");
  EXPECT_EQ(Write(device, "01", "04", " 007 "), "DCOUNTB         7");
}

TEST(CounterTest, CountBeginsAnewBehindItsHighestValue) {
  auto device = Device::ForModel(kHome, "QEC2");
  ASSERT_TRUE(device.Set("01", "03", "4294967294"));
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA4294967295");
  EXPECT_EQ(Read(device, "01", "03"), "DCOUNTA         0");
  ASSERT_TRUE(device.Set("01", "04", "-1"));
  EXPECT_EQ(Read(device, "01", "04"), "DCOUNTB         0");
}

TEST(CounterTest, ItemsAreCountsWhereTheyAreNoPercentage) {
  struct Case {
    const char* model;
    const char* item;
    const char* reply;
  };
  for (const auto& [model, item, reply] :
       {Case{"QEC2", "03", "DCOUNTA         1"}, Case{"QEC2", "04", "DCOUNTB         1"},
        Case{"QEC2", "06", "DALMFRQ1000Hz"}, Case{"QEY3", "03", "DCOUNTA         1"},
        Case{"QEY3", "06", "DCOUNTB         1"}, Case{"QCB2", "03", "DOUTSET   50.50"},
        Case{"QCB2", "04", "DCOUNTA         1"}, Case{"QCB2", "06", "DCOUNTB         1"},
        Case{"QHC2", "03", "DOUTSET   50.50"}}) {
    auto device = Device::ForModel(kHome, model);
    EXPECT_EQ(Read(device, "01", item), reply) << model;
  }
}

TEST(CounterTest, CommandWithoutDataSetsItsCountTo0) {
  auto device = Device::ForModel(kHome, "QEC2");
  device.Set("01", "03", "100");
  device.Set("01", "04", "200");
  EXPECT_EQ(Write(device, "01", "12", ""), "CNG") << "not in monitor mode";
  EnterProgramming(device);
  EXPECT_EQ(Read(device, "01", "12"), "DRESETA0");
  EXPECT_EQ(device.Value("01", "03"), "100") << "reading is no command";
  EXPECT_EQ(device.Answer("D").text, "DRESETA0");
  EXPECT_EQ(device.Value("01", "03"), "0");
  EXPECT_EQ(device.Value("01", "04"), "200");
  EXPECT_EQ(Write(device, "01", "13", "1"), "CNG") << "it takes no data";
  EXPECT_EQ(device.Value("01", "04"), "200");
  EXPECT_EQ(Write(device, "01", "13", ""), "DRESETB0");
  EXPECT_EQ(device.Value("01", "04"), "0");
}

TEST(CounterTest, SameItemsAreChoicesOrValuesOnOtherModels) {
  auto counter = ProgrammedDevice("QCB2");
  EXPECT_EQ(Read(counter, "01", "12"), "D0:RISING EDGE");
  EXPECT_EQ(Write(counter, "01", "12", ""), "CNG");
  EXPECT_EQ(Write(counter, "01", "12", "2"), "D2:BOTH EDGES");
  auto pulse = ProgrammedDevice("QCE2");
  EXPECT_EQ(Write(pulse, "01", "13", "2.5"), "DLOWCUT2.5");
  auto up_and_down = ProgrammedDevice("QEY3");
  EXPECT_EQ(Write(up_and_down, "01", "12", ""), "DRESETA0");
  EXPECT_EQ(Read(up_and_down, "01", "13"), "CNG") << "it has one command";
}

TEST(CounterTest, AlarmValueHasItsUnitRightBehindIt) {
  auto device = Device::ForModel(kHome, "QEC2");
  EXPECT_EQ(Read(device, "01", "06"), "DALMFRQ1000Hz");
  EXPECT_EQ(Read(device, "01", "07"), "DALMLVL100.0%");
  EXPECT_EQ(Read(device, "01", "09"), "DALMCNT1000");
  auto other = Device::ForModel(kHome, "QEY3");
  EXPECT_EQ(Read(other, "01", "07"), "DALMFRQ1000Hz");
  EXPECT_EQ(Read(other, "01", "09"), "DALMLVL100.0%");
  EXPECT_EQ(other.Value("01", "09"), "100.0%");
}

TEST(CounterTest, AlarmValueTakesTheNumberBeforeADirection) {
  auto device = ProgrammedDevice("QEC2");
  const std::string direction = device.Value("01", "08");
  EXPECT_EQ(Write(device, "01", "06", "1500 (UP)"), "DALMFRQ1500Hz");
  EXPECT_EQ(Write(device, "01", "07", "12.5 (DOWN)"), "DALMLVL12.5%");
  EXPECT_EQ(Write(device, "01", "09", "99999999 (DOWN)"), "DALMCNT99999999");
  EXPECT_EQ(Write(device, "01", "06", "1600"), "DALMFRQ1600Hz") << "without one too";
  EXPECT_EQ(device.Value("01", "08"), direction) << "the direction is an item of its own";
  for (const char* const bad : {"1500(UP)", "1500 (up)", "1500 (LEFT)", " (UP)", "(UP)", "1 (UP) (UP)",
                                "1500 (UP", "1500Hz", "x (UP)"}) {
    EXPECT_EQ(Write(device, "01", "06", bad), "CNG") << bad;
  }
  EXPECT_EQ(device.Value("01", "06"), "1600Hz");
  EXPECT_EQ(Write(device, "01", "31", "1 (UP)"), "CNG") << "no alarm value";
  auto other = ProgrammedDevice("QEY3");
  EXPECT_EQ(Write(other, "01", "09", "50 (UP)"), "DALMLVL50%");
  EXPECT_EQ(Write(other, "01", "06", "50 (UP)"), "CNG") << "a count";
}

TEST(CounterTest, AlarmThatIsNotInUseHasNoValues) {
  auto device = ProgrammedDevice("QNA2");
  const auto usable = [&] {
    std::string items;
    for (const char* const item : {"22", "23", "24", "26", "28", "29", "30"}) {
      items += Read(device, "01", item) == "CNU" ? "" : std::string(item) + " ";
    }
    return items;
  };
  EXPECT_EQ(usable(), "22 23 24 26 28 29 30 ") << "both alarms are in use at power-up";
  EXPECT_EQ(Write(device, "01", "25", "0"), "DNO ALARM");
  EXPECT_EQ(usable(), "26 28 29 30 ");
  EXPECT_EQ(Write(device, "01", "27", "0"), "DNO ALARM");
  EXPECT_EQ(usable(), "26 ");
  EXPECT_EQ(Write(device, "01", "25", "1"), "DALARM");
  EXPECT_EQ(usable(), "22 23 24 26 ");
}

TEST(CounterTest, LiveInputFollowsTheRatedSpan) {
  auto device = ProgrammedDevice("QHC2");
  EXPECT_EQ(device.Value("01", "14"), "0");
  EXPECT_EQ(device.Value("01", "15"), "10");
  EXPECT_EQ(Read(device, "01", "06"), "DINPSIG    5.05");
  EXPECT_EQ(Write(device, "01", "11", "3"), "D3:0-1 kHz");
  EXPECT_EQ(Write(device, "01", "13", "6"), "D6:0-1000 rpm");
}

TEST(CounterTest, ModelsWithALinearizerHaveItsTable) {
  for (const char* const model : {"QCE2", "QEI2", "QCB2", "QEB2", "QNA2"}) {
    auto device = ProgrammedDevice(model);
    EXPECT_EQ(Read(device, "01", "60"), "DX(01):    0.00") << model;
    EXPECT_EQ(Write(device, "01", "91", "99.5"), "DY(16):   99.50") << model;
  }
  for (const char* const model : {"QIEU2", "QICE2", "QEC2", "QEY3", "QHC2"}) {
    auto device = ProgrammedDevice(model);
    EXPECT_EQ(Read(device, "01", "60"), "CNG") << model;
  }
}

}  // namespace
}  // namespace korva::sim
