#include "sim/point_table.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace korva::sim
