// What a transmitter measures and gives out.
#include "sim/transmitter.h"

#include <gtest/gtest.h>

#include <array>

#include "transmitter_device.h"

namespace korva::sim {
namespace {

std::string Shown(Device& device, const std::string& item) {
  Read(device, "01", item);
  return device.Answer("D").text;
}

TEST(InterpolatedTest, IsStraightBetweenPointsAndStopsAtTheEnds) {
  constexpr std::array points = {Point{0, 10}, Point{10, 20}, Point{10, 30}, Point{20, 50}};
  EXPECT_EQ(Interpolated(points, 5), 15);
  EXPECT_EQ(Interpolated(points, 10), 20) << "the first of equal ones";
  EXPECT_EQ(Interpolated(points, 15), 40);
  EXPECT_EQ(Interpolated(points, -1), 10);
  EXPECT_EQ(Interpolated(points, 21), 50);
}

TEST(TransmitterTest, ReadsATemperatureByItsCurve) {
  auto device = TransmitterWith("Z2WT", 1);
  device.Set("01", "06", "20.644");  // type K at 500 degC
  EXPECT_EQ(Shown(device, "04"), "D  500.00 deg C");
  EXPECT_EQ(Shown(device, "06"), "D   20.64 mV");
  EXPECT_EQ(Shown(device, "03"), "D   46.95 %") << "of -270 to 1370 degC";
  device = TransmitterWith("Z2WR", 2);
  device.Set("01", "06", "138.506");  // Pt100 at 100 degC
  EXPECT_EQ(Shown(device, "04"), "D  100.00 deg C");
  EXPECT_EQ(Shown(device, "06"), "D  138.51 Ohm");
}

TEST(TransmitterTest, FollowsTheCurveThatItsMemoryHolds) {
  auto device = TransmitterWith("Z2WT", 1);
  device.Set("01", "06", "21.848");
  EXPECT_EQ(device.Value("01", "04"), "528.23");
  auto other = TransmitterWith("Z2WT", 3);
  device.GetMemory().Put(512, other.GetMemory().Bytes(512, 8192 - 512));
  EXPECT_EQ(device.Value("01", "04"), "400.00") << "type J";
  device.GetMemory().PutNumber(513, 1, 99);
  EXPECT_EQ(device.Value("01", "04"), "9999.00") << "no valid curve";
  EXPECT_EQ(device.Value("01", "03"), "115.00");
}

TEST(TransmitterTest, SensorWandersWithinTheRangeOfItsType) {
  for (const std::string model : {"Z2WT", "Z8WR"}) {
    for (int sensor = 0; sensor < (model == "Z2WT" ? 13 : 8); ++sensor) {
      auto device = TransmitterWith(model, sensor);
      const double low = std::stod(device.Value("01", "14"));
      const double high = std::stod(device.Value("01", "15"));
      for (int read = 0; read < 100; ++read) {
        Shown(device, "06");
        const double temperature = std::stod(device.Value("01", "04"));
        EXPECT_TRUE(temperature > low && temperature < high) << model << " " << sensor << ": " << temperature;
      }
    }
  }
}

TEST(TransmitterTest, ShowsTemperaturesInTheUnitChosen) {
  auto device = TransmitterWith("Z2WT", 1);
  device.Set("01", "06", "20.644");
  device.Set("01", "21", "deg F");
  EXPECT_EQ(Shown(device, "04"), "D  932.00 deg F");
  EXPECT_EQ(Shown(device, "07"), "D   77.00 deg F") << "cold junction";
  EXPECT_EQ(Shown(device, "15"), "D      1370 deg F");
  device.Set("01", "21", "K");
  EXPECT_EQ(Shown(device, "04"), "D  773.15 K");
}

TEST(TransmitterTest, ShowsSignalsInTheUnitOfTheType) {
  auto device = TransmitterOf("Z2WV");
  device.Set("01", "06", "2.5");
  EXPECT_EQ(Shown(device, "04"), "D    2.50 V");
  EXPECT_EQ(Shown(device, "06"), "D    2.50 V");
  EXPECT_EQ(Shown(device, "07"), "D    2.50 V");
  EXPECT_EQ(Shown(device, "03"), "D   62.50 %") << "of -10 to 10 V";
  device.Set("01", "10", "-50 - 50 mV");
  EXPECT_EQ(Shown(device, "14"), "D          -50 mV");
}

TEST(TransmitterTest, LinearizesByTheTableInItsMemory) {
  auto device = TransmitterOf("Z2WF");
  device.Set("01", "06", "3");
  EXPECT_EQ(device.Value("01", "03"), "50.00") << "of 1 to 5 V";
  device.GetMemory().PutNumber(8126 + (6 * 5) + 3, 3, 40 * 32768);  // Y of the point at 50 %
  EXPECT_EQ(device.Value("01", "03"), "50.00") << "not in use";
  device.Set("01", "23", "ON");
  EXPECT_EQ(device.Value("01", "03"), "40.00");
}

TEST(TransmitterTest, LinearizesByTheTableOfItsItems) {
  auto device = TransmitterOf("Z2WV");
  device.Set("01", "06", "-10");
  device.Set("02", "01", "5");
  EXPECT_EQ(device.Value("01", "03"), "0.00");
  device.Set("01", "23", "ON");
  EXPECT_EQ(device.Value("01", "03"), "5.00");
}

TEST(TransmitterTest, GivesOutWhatItIsForcedTo) {
  auto device = TransmitterOf("Z2WT");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "03", "25"), "D   25.00 %");
  EXPECT_EQ(Shown(device, "03"), "D   25.00 %");
  Write(device, "01", "01", "0");
  EXPECT_NE(Shown(device, "03"), "D   25.00 %");
}

TEST(TransmitterTest, TakesValuesPlainAndTellsThemWithTheirUnit) {
  auto device = TransmitterOf("Z2WT");
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "14", "12.50"), "D     12.50 deg C");
  EXPECT_EQ(Write(device, "01", "17", "0.5"), "D          0.50 %") << "no prefix";
  EXPECT_EQ(Write(device, "01", "02", "FIC"), "DFIC       ");
  EXPECT_EQ(Write(device, "01", "16", "1"), "D              ON");
  EXPECT_EQ(Write(device, "01", "34", "25.123"), "D          25.123");
}

TEST(TransmitterTest, ComesUpWithoutDataOfACorrectedColdJunction) {
  auto device = TransmitterOf("Z8WT");
  EXPECT_EQ(device.Value("01", "34"), "-999.9");
  EXPECT_EQ(device.Value("01", "35"), "-999.9");
}

TEST(TransmitterTest, HasItsLinearizerWhereTheModelKeepsIt) {
  for (const std::string model : {"Z2WT2", "Z2WR2", "Z2WV", "Z2WV2", "Z8WV"}) {
    auto device = TransmitterOf(model);
    EXPECT_EQ(Read(device, "02", "00"), "D Linearize Table") << model;
    EXPECT_EQ(device.Answer("D").text, "DX(01):    0.00") << model;
  }
  for (const std::string model : {"Z2WT", "Z2WR", "Z8WT", "Z8WR", "Z2WF", "Z2WM", "Z8WF", "Z8WM"}) {
    auto device = TransmitterOf(model);
    EXPECT_EQ(device.Answer("G02").text, "D    invalid data") << model;
  }
}

}  // namespace
}  // namespace korva::sim
