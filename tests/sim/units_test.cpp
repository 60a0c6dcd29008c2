// Pulse instruments: devices that report their numbers with a unit, and take frequencies in a unit of choice.
#include <gtest/gtest.h>

#include "model_device.h"

namespace korva::sim {
namespace {

std::string ReadData(Device& device, const std::string& item) {
  Read(device, "01", item);
  return device.Answer("D").text;
}

TEST(UnitsTest, FrequencyIsTakenInTheUnitWrittenLastAndKeepsIt) {
  auto device = ProgrammedDevice("QEYZ");
  EXPECT_EQ(ReadData(device, "10"), "D       100.00 Hz");
  EXPECT_EQ(Write(device, "01", "11", "1"), "D           1:kHz");
  EXPECT_EQ(ReadData(device, "10"), "D       100.00 Hz") << "a new unit alone changes no value";
  EXPECT_EQ(Write(device, "01", "10", "12.5"), "D       12.50 kHz");
  EXPECT_EQ(Write(device, "01", "11", "2"), "D           2:mHz");
  EXPECT_EQ(Write(device, "01", "17", "7"), "D        7.00 mHz");
  EXPECT_EQ(Write(device, "01", "11", "0"), "D            0:Hz");
  EXPECT_EQ(Write(device, "01", "20", "0.125"), "D         0.13 Hz");
  EXPECT_EQ(device.Value("01", "10"), "12.50 kHz");
  EXPECT_EQ(device.Value("01", "17"), "7.00 mHz");
}

TEST(UnitsTest, UnitItemHasATitleAndThreeCodes) {
  auto device = ProgrammedDevice("QEY");
  EXPECT_EQ(Read(device, "01", "11"), "D  unit frequency");
  EXPECT_EQ(device.Answer("D").text, "D            0:Hz");
  EXPECT_EQ(Write(device, "01", "11", "3"), "D    invalid data");
  EXPECT_EQ(Write(device, "01", "11", "Hz"), "D    invalid data");
  EXPECT_EQ(ReadData(device, "11"), "D            0:Hz");
}

TEST(UnitsTest, NumberIsTakenWithoutItsUnitOnly) {
  auto device = ProgrammedDevice("QEYZ");
  EXPECT_EQ(Write(device, "01", "10", "12.5 kHz"), "D    invalid data");
  EXPECT_EQ(Write(device, "01", "08", "100 msec"), "D    invalid data");
  EXPECT_EQ(Write(device, "01", "21", "5 %"), "D    invalid data");
  EXPECT_EQ(device.Value("01", "10"), "100.00 Hz");
}

TEST(UnitsTest, TimesAreHeldOnAGridOf5Msec) {
  auto device = ProgrammedDevice("QEYD");
  EXPECT_EQ(ReadData(device, "33"), "D       1000 msec");
  EXPECT_EQ(Write(device, "01", "08", "100"), "D        100 msec");
  EXPECT_EQ(Write(device, "01", "08", "7"), "D          5 msec");
  EXPECT_EQ(Write(device, "01", "19", "12.5"), "D         10 msec");
  EXPECT_EQ(Write(device, "01", "19", "4"), "D          0 msec");
}

TEST(UnitsTest, PercentagesHaveTwoDecimals) {
  auto device = ProgrammedDevice("QICD");
  EXPECT_EQ(ReadData(device, "30"), "D    FINZER0.00 %");
  EXPECT_EQ(Write(device, "01", "31", "99.876"), "D   FINSPN99.88 %");
  EXPECT_EQ(Write(device, "01", "21", "50"), "D         50.00 %");
  EXPECT_EQ(ReadData(device, "16"), "D               1") << "a number without a unit";
}

TEST(UnitsTest, BothFormsOfAChoiceTakeTheCodeAndReportTheText) {
  auto device = ProgrammedDevice("QEYZ");
  EXPECT_EQ(Write(device, "01", "23", "4"), "D4:TWO-WIRE PULSE");
  EXPECT_EQ(Write(device, "01", "26", "1"), "D     1:LOW ALARM");
  EXPECT_EQ(Write(device, "01", "26", "1:LOW ALARM"), "D    invalid data");
}

TEST(UnitsTest, DisplayNumbersTheTypeAndNamesTheSystemText) {
  auto device = ProgrammedDevice("QEY");
  EXPECT_EQ(Read(device, "01", "23"), "D     Input Type1");
  EXPECT_EQ(Read(device, "01", "10"), "DInput Full Scale");
  EXPECT_EQ(Read(device, "01", "03"), "D      Output Set");
  EXPECT_EQ(Read(device, "00", "99"), "D  System Version");
  EXPECT_EQ(device.Answer("D").text, "D   SYSVER   1.00");
}

TEST(UnitsTest, LiveFrequencyFollowsTheFullScaleInHz) {
  auto device = ProgrammedDevice("QEY");
  EXPECT_EQ(ReadData(device, "06"), "D   50.50 Hz");  // of 100 Hz
  Write(device, "01", "11", "1");
  Write(device, "01", "10", "10");
  EXPECT_EQ(ReadData(device, "06"), "D 5100.00 Hz");
  Write(device, "01", "11", "2");
  Write(device, "01", "10", "2000");
  EXPECT_EQ(ReadData(device, "06"), "D    1.03 Hz");  // 51.5 % of 2 Hz
  EXPECT_EQ(ReadData(device, "05"), "D   52.00 %");
  EXPECT_EQ(ReadData(device, "07"), "D   52.50 %");
}

TEST(UnitsTest, ResetOfAllParametersIsConfirmedAndBringsTheUnitBack) {
  auto device = Device::ForModel(kHome, "QEYZ");
  EXPECT_EQ(Write(device, "01", "34", "1"), "D    invalid data") << "not in monitor mode";
  EnterProgramming(device);
  EXPECT_EQ(Read(device, "01", "34"), "Dprms initializer");
  Write(device, "01", "02", "FIC-101");
  Write(device, "01", "08", "15");
  Write(device, "01", "11", "1");
  Write(device, "01", "10", "5");
  Write(device, "01", "29", "2");
  EXPECT_EQ(Write(device, "01", "34", "2"), "D    invalid data");
  EXPECT_EQ(device.Value("01", "08"), "15 msec");
  EXPECT_EQ(Write(device, "01", "34", "1"), "Dall prms default");
  EXPECT_EQ(device.Value("01", "02"), "TAG-1");
  EXPECT_EQ(device.Value("01", "08"), "10 msec");
  EXPECT_EQ(device.Value("01", "11"), "0:Hz");
  EXPECT_EQ(device.Value("01", "10"), "100.00 Hz");
  EXPECT_EQ(device.Value("01", "29"), "0:NORMAL");
}

TEST(UnitsTest, TechnicianSetsTheUnitBeforeTheFrequency) {
  auto device = Device::ForModel(kHome, "QEY");
  EXPECT_TRUE(device.Set("01", "11", "1:kHz"));
  EXPECT_TRUE(device.Set("01", "10", "2.5"));
  EXPECT_FALSE(device.Set("01", "10", "2.5 kHz"));
  EXPECT_EQ(device.Value("01", "10"), "2.50 kHz");
}

TEST(UnitsTest, SomeModelsTakeTheirTimeToAnswer) {
  struct Case {
    const char* model;
    int latency;  // ms
  };
  for (const auto& [model, latency] :
       {Case{"QEY", 10}, Case{"QEYD", 300}, Case{"QEYZ", 300}, Case{"QIC", 10}, Case{"QICD", 300},
        Case{"QICE", 300}, Case{"QD", 10}, Case{"QICE2", 10}, Case{"QEY3", 10}}) {
    EXPECT_EQ(Device::ForModel(kHome, model).Answer("G01").latency, std::chrono::milliseconds(latency))
        << model;
  }
  DeviceOptions options;
  options.latency = std::chrono::milliseconds(20);
  EXPECT_EQ(Device::ForModel(kHome, "QICE", options).Answer("G01").latency, std::chrono::milliseconds(20));
}

}  // namespace
}  // namespace korva::sim
