// A device whose input and output are chosen freely: what it has no use for, and whose the ranges are.
#include <gtest/gtest.h>

#include "model_device.h"

namespace korva::sim {
namespace {

TEST(UniversalTest, WithoutASensorThereIsNoTemperatureUnitAndNoBurnout) {
  auto device = ProgrammedDevice("QXI");
  EXPECT_EQ(Read(device, "01", "21"), "Ddeg C");
  EXPECT_EQ(Read(device, "01", "23"), "CNU");
  EXPECT_EQ(Write(device, "01", "10", "41"), "DPOT:RATIO");
  EXPECT_EQ(Read(device, "01", "21"), "CNU");
  EXPECT_EQ(Read(device, "01", "24"), "CNU");
  EXPECT_EQ(Read(device, "01", "23"), "DLINEARIZER OFF");
  EXPECT_EQ(Write(device, "01", "10", "31"), "DRB-1:Pt100");
  EXPECT_EQ(Read(device, "01", "24"), "DNONE");
  EXPECT_EQ(Read(device, "01", "23"), "CNU");
}

TEST(UniversalTest, TheRangeOfAFixedInputIsToldAndNotTaken) {
  auto device = ProgrammedDevice("QXI");
  Write(device, "01", "10", "16");
  EXPECT_EQ(Read(device, "01", "14"), "DINPZER4");
  EXPECT_EQ(Read(device, "01", "15"), "DINPSPN20");
  EXPECT_EQ(Write(device, "01", "14", "5"), "CNU");
  EXPECT_EQ(Read(device, "01", "14"), "DINPZER4");
  Write(device, "01", "10", "15");
  EXPECT_EQ(Write(device, "01", "14", "5"), "DINPZER5") << "mV-0: is the user's";
  EXPECT_EQ(Write(device, "01", "15", "51"), "DINPSPN50") << "within the limits of its row";
}

TEST(UniversalTest, AnOutputBringsItsRangeWhichIsTheUsersWhereItsTextSaysSo) {
  auto device = ProgrammedDevice("QXI");
  EXPECT_EQ(Read(device, "01", "12"), "DOUTZER-10");
  EXPECT_EQ(Write(device, "01", "12", "-5"), "DOUTZER-5");
  EXPECT_EQ(Write(device, "01", "11", "16"), "DmV-4:4-20 mA");
  EXPECT_EQ(Read(device, "01", "12"), "DOUTZER4");
  EXPECT_EQ(Write(device, "01", "13", "19"), "CNU");
  Write(device, "01", "11", "11");
  EXPECT_EQ(Read(device, "01", "12"), "DOUTZER-10");
}

TEST(UniversalTest, ASensorKeepsToItsLimitsInTheUnitThatItTells) {
  auto device = ProgrammedDevice("QXI");
  Write(device, "01", "10", "1");
  Write(device, "01", "21", "1");
  EXPECT_EQ(Write(device, "01", "15", "2500"), "DINPSPN2498") << "1370 deg C";
  EXPECT_EQ(Write(device, "01", "14", "-460"), "DINPZER-454") << "-270 deg C";
}

TEST(UniversalTest, ItsTableTakesMicrovolts) {
  auto device = ProgrammedDevice("QXI");
  EXPECT_EQ(Write(device, "02", "01", "-69000"), "DY(01):-69000.00");
  EXPECT_EQ(Write(device, "02", "01", "69000.1"), "CNG");
  EXPECT_EQ(Write(device, "03", "99", "1"), "DY(00):    1.00");
}

TEST(UniversalTest, ServesBothModelsByOneDefinition) {
  const auto device = ProgrammedDevice("QXI2");
  EXPECT_EQ(device.Value("01", "10"), "Tc-1:(PR)");
  EXPECT_EQ(device.Value("01", "34"), "-999.9");
}

}  // namespace
}  // namespace korva::sim
