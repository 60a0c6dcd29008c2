#include "sim/point_table.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "sample.h"

namespace korva::sim {
namespace {

TEST(PointTableTest, ShortTableIsItems60To91OfGroup01) {
  auto device = SampleDevice("QHW.def");
  EXPECT_EQ(Read(device, "01", "60"), "DX(01):    0.00");
  EXPECT_EQ(Read(device, "01", "62"), "DX(02):    6.67");  // 100 / 15
  EXPECT_EQ(Read(device, "01", "91"), "DY(16):  100.00");
  EXPECT_EQ(Read(device, "01", "59"), "CNG");
  EXPECT_EQ(Read(device, "01", "92"), "CNG");
  EXPECT_EQ(device.Answer("G02").text, "CNG");
}

TEST(PointTableTest, LongTableIsGroups02And03) {
  for (const char* const file : {"QHNY1.def", "QHW1.def", "QHNY2.def"}) {
    auto device = SampleDevice(file);
    EXPECT_EQ(Read(device, "02", "00"), "DX(01):    0.00") << file;
    EXPECT_EQ(Read(device, "02", "99"), "DY(50):   49.49") << file;  // 49 / 99
    EXPECT_EQ(Read(device, "03", "00"), "DX(51):   50.51") << file;  // 50 / 99
    EXPECT_EQ(Read(device, "03", "99"), "DY(00):  100.00") << file << ": the head keeps its six characters";
    EXPECT_EQ(Read(device, "01", "60"), "CNG") << file;
  }
}

TEST(PointTableTest, EveryValueIsAnItemOfItsOwn) {
  struct Case {
    const char* file;
    const char* first_group;
    int first_item;
    int values;
  };
  for (const Case& one : {Case{"QHW.def", "01", 60, 32}, Case{"QHW1.def", "02", 0, 200}}) {
    auto device = SampleDevice(one.file);
    EnterProgramming(device);
    const auto place = [&](int position) {
      const int item = one.first_item + position % 100;
      return std::pair<std::string, std::string>(position < 100 ? one.first_group : "03",
                                                 (item < 10 ? "0" : "") + std::to_string(item));
    };
    for (int position = 0; position < one.values; ++position) {
      const auto [group, item] = place(position);
      const std::string data = "-" + std::to_string(position) + ".25";
      const int point = (position / 2 + 1) % 100;
      const std::string head = std::string(position % 2 == 0 ? "DX(" : "DY(") + (point < 10 ? "0" : "") +
                               std::to_string(point) + "):";
      std::string padded = head;
      padded.append(8 - data.size(), ' ').append(data);
      EXPECT_EQ(Write(device, group, item, data), padded);
      EXPECT_EQ(Read(device, group, item), padded);
    }
    for (int position = 0; position < one.values; ++position) {
      const auto [group, item] = place(position);
      EXPECT_EQ(device.Value(group, item), "-" + std::to_string(position) + ".25") << group << item;
    }
  }
}

TEST(PointTableTest, SomeFamiliesHaveOneShapeForAllModels) {
  const auto device_of = [](const char* family) {
    return Device({.name = "sample", .definition_file = "SAMPLE.def", .family_word = family},
                  Definition::Parse(kSample));
  };
  for (const char* const family : {"QXI", "LiteFifth"}) {
    auto device = device_of(family);
    EXPECT_EQ(Read(device, "02", "00"), "DX(01):    0.00") << family;
    EXPECT_EQ(Read(device, "03", "99"), "DY(00):  100.00") << family;
    EXPECT_EQ(Read(device, "01", "60"), "CNG") << family;
  }
  auto short_one = device_of("LiteForth");
  EXPECT_EQ(Read(short_one, "01", "60"), "DX(01):    0.00");
  EXPECT_EQ(short_one.Answer("G02").text, "CNG");
  for (const char* const family : {"Second", "Lite", "LiteUniv", "LiteSecond", "LiteThird", "Nano"}) {
    auto device = device_of(family);
    EXPECT_FALSE(device.Set("01", "60", "1") || device.Set("02", "00", "1")) << family;
  }
}

TEST(PointTableTest, OnlyModelsWithALinearizerHaveATable) {
  for (const char* const file : {"QHW.def", "QUO.def", "QY.def", "QZ.def", "QEI.def", "10QCE.def"}) {
    EXPECT_TRUE(SampleDevice(file).Set("01", "60", "1")) << file;
  }
  for (const char* const file : {"SAMPLE.def", "QHN.def", "QH.def", "QD.def", "QHNY1.def"}) {
    EXPECT_FALSE(SampleDevice(file).Set("01", "60", "1")) << file;
  }
}

TEST(PointTableTest, ValueIsTakenInProgrammingModeAndRoundedToTwoDecimals) {
  auto device = SampleDevice("QHW.def");
  EXPECT_EQ(Write(device, "01", "60", "1"), "CNG");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "60", "12.344"), "DX(01):   12.34");
  EXPECT_EQ(Write(device, "01", "61", "-300"), "DY(01): -300.00");
  EXPECT_EQ(Write(device, "01", "61", "0"), "DY(01):    0.00");
  EXPECT_EQ(Write(device, "01", "61", "300.1"), "CNG");
  EXPECT_EQ(Write(device, "01", "61", "x"), "CNG");
  EXPECT_EQ(device.Value("01", "60"), "12.34");
}

TEST(PointTableTest, RoundingAndLimitsAreTheSameInTheLongTable) {
  auto device = SampleDevice("QHNY1.def");
  EXPECT_EQ(Write(device, "03", "98", "1"), "CNG") << "in monitor mode";
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "03", "98", "12.346"), "DX(00):   12.35");
  EXPECT_EQ(Write(device, "03", "98", "-12.346"), "DX(00):  -12.35");
  EXPECT_EQ(Write(device, "03", "98", "-0.004"), "DX(00):    0.00");
  EXPECT_EQ(Write(device, "02", "07", "300"), "DY(04):  300.00");
  for (const char* const bad : {"300.001", "-300.001", "12,5", "1e2", "5 %", " "}) {
    EXPECT_EQ(Write(device, "02", "07", bad), "CNG") << bad;
  }
  EXPECT_EQ(device.Value("02", "07"), "300.00");
}

}  // namespace
}  // namespace korva::sim
