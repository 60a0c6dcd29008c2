#include "sim/keyed_table.h"

#include <gtest/gtest.h>

#include "sim/device.h"

namespace korva::sim {
namespace {

constexpr KeyedTableForm kSensor = {.keys = "T", .unit = "mV", .rows = 1001, .rise = 0.5};

KeyedTableForm Guarded() {
  KeyedTableForm form = kSensor;
  form.guarded = true;
  return form;
}

TEST(KeyedTable, HoldsARisingTableAtPowerUp) {
  KeyedTable table(kSensor);
  EXPECT_EQ(table.Answer("P", false), "10");
  EXPECT_EQ(table.Answer("S", false), "0");
  EXPECT_EQ(table.Answer("Z", false), "10");
  EXPECT_EQ(table.Answer("T0", false), "0.0000mV");
  EXPECT_EQ(table.Answer("T10", false), "5.0000mV");
  EXPECT_EQ(table.Answer("T11", false), std::nullopt) << "behind the last row";
}

TEST(KeyedTable, TakesValuesInProgrammingModeOnly) {
  KeyedTable table(kSensor);
  for (const char* data : {"P5", "S-100", "Z2", "T0D7.9034"}) {
    EXPECT_EQ(table.Answer(data, false), std::nullopt) << data;
  }
  EXPECT_EQ(table.Answer("T12D7.9034", true), "7.9034mV");
  EXPECT_EQ(table.Answer("P5", true), "5");
  EXPECT_EQ(table.Answer("S-100", true), "-100");
  EXPECT_EQ(table.Answer("Z12", true), "12");
  EXPECT_EQ(table.Answer("T12", false), "7.9034mV");
  EXPECT_EQ(table.Size(), 13U);
}

TEST(KeyedTable, RefusesWhatItHasNot) {
  KeyedTable table(kSensor);
  for (const char* data : {"", "G", "X0", "T1001D1", "T1001", "Z1001", "Zx", "Px", "TD1", "T1D", "T1Dx",
                           "T-1D1", "R", "C", "W", "T1D99999"}) {
    EXPECT_EQ(table.Answer(data, true), std::nullopt) << data;
  }
}

TEST(KeyedTable, OfALinearizerHasTwoValuesARowAndNoPitchAndBase) {
  KeyedTable table({.keys = "XY", .unit = "%", .rows = 101, .scaled = false, .rise = 10});
  EXPECT_EQ(table.Answer("P", false), std::nullopt);
  EXPECT_EQ(table.Answer("S", false), std::nullopt);
  EXPECT_EQ(table.Answer("X3D25", true), "25.0000%");
  EXPECT_EQ(table.Answer("Y3D35", true), "35.0000%");
  EXPECT_EQ(table.Value(3, 0) + " " + table.Value(3, 1), "25.0000 35.0000");
}

TEST(KeyedTable, ARangeIsThatOfATableThatHasOne) {
  KeyedTable table({.keys = "T", .unit = "Ohm", .rows = 3, .ranged = true});
  EXPECT_EQ(table.Answer("G", false), "0");
  EXPECT_EQ(table.Answer("G4", true), "4");
  EXPECT_EQ(table.Field('G'), "4");
}

TEST(KeyedTable, AGuardedOneAnswersOkOnlyInOrder) {
  KeyedTable table(Guarded());
  EXPECT_EQ(table.Answer("T0", false), std::nullopt);
  EXPECT_EQ(table.Answer("C", false), std::nullopt);
  EXPECT_EQ(table.Answer("R", false), "OK");
  EXPECT_EQ(table.Answer("T0", false), std::nullopt);
  EXPECT_EQ(table.Answer("W", true), std::nullopt);
  EXPECT_EQ(table.Answer("C", false), "OK");
  EXPECT_EQ(table.Answer("T0", false), "0.0000mV");
  EXPECT_EQ(table.Answer("W", false), std::nullopt) << "in monitor mode";
  EXPECT_EQ(table.Answer("W", true), "OK");
  EXPECT_EQ(table.Answer("T0", false), std::nullopt) << "it is closed again";
}

TEST(KeyedTable, AGuardedOneKeepsWhatWasWrittenWithWAlone) {
  KeyedTable table(Guarded());
  const auto open = [&] { return table.Answer("R", true) == "OK" && table.Answer("C", true) == "OK"; };
  ASSERT_TRUE(open());
  EXPECT_EQ(table.Answer("T1D3", true), "3.0000mV");
  ASSERT_TRUE(open());
  EXPECT_EQ(table.Answer("T1", true), "0.5000mV");
  EXPECT_EQ(table.Answer("T1D3", true), "3.0000mV");
  EXPECT_EQ(table.Answer("W", true), "OK");
  ASSERT_TRUE(open());
  EXPECT_EQ(table.Answer("T1", true), "3.0000mV");
}

Device MakeDevice(const char* word) {
  return {Model{.name = "Model", .definition_file = "Model.def", .family_word = word},
          Definition::Parse("$Data\r\n01,02,,,Y,Y,,,,0,,,,,,,,,,,Y,,TG:,0,,Tag No.\r\n$End\r\n")};
}

std::string Ask(Device& device, std::string_view item, std::string_view data) {
  device.Answer("G01");
  const std::string title = device.Answer("I" + std::string(item)).text;
  return title + "|" + device.Answer("D" + std::string(data)).text;
}

TEST(KeyedTable, StandsBehindItems60To62OfDevicesWithUserTables) {
  Device device = MakeDevice("LiteUniv");
  EXPECT_EQ(Ask(device, "60", "T1"), "D        TC Table|D        0.5000mV");
  EXPECT_EQ(Ask(device, "61", "T1"), "D       RTD Table|D      40.0000Ohm");
  EXPECT_EQ(Ask(device, "62", "Y1"), "D Linearize Table|D        10.0000%");
  EXPECT_EQ(Ask(device, "61", "G"), "D       RTD Table|D               0");
  EXPECT_EQ(Ask(device, "60", "T1D2"), "D        TC Table|D    invalid data");
  Device nano = MakeDevice("Nano");
  EXPECT_EQ(Ask(nano, "60", "T1"), "D        TC Table|D    invalid data");
  EXPECT_EQ(Ask(nano, "60", "R"), "D        TC Table|D              OK");
  EXPECT_EQ(Ask(nano, "60", "C"), "D        TC Table|D              OK");
  EXPECT_EQ(Ask(nano, "60", "T1"), "D        TC Table|D        0.5000mV");
  EXPECT_EQ(Ask(nano, "61", "G"), "D       RTD Table|D    invalid data");
}

TEST(KeyedTable, ARefusedRowIsNeitherGivenNorTakenAndNothingElseIsStruck) {
  Device device = MakeDevice("LiteUniv");
  device.AddFault(ParseFault("refused-row"));
  EXPECT_EQ(Ask(device, "60", "T1"), "D        TC Table|D    invalid data");
  EXPECT_EQ(Ask(device, "60", "P"), "D        TC Table|D              10");
  device.Answer("G01");
  device.Answer("I01");
  device.Answer("D1");
  EXPECT_EQ(Ask(device, "60", "T1D2"), "D        TC Table|D    invalid data");
  EXPECT_EQ(device.GetKeyedTable("60").Value(1), "0.5000");
}

TEST(KeyedTable, AUnitCanBeMissingBehindAValue) {
  Device device = MakeDevice("LiteUniv");
  device.AddFault(ParseFault("no-unit=DT1"));
  EXPECT_EQ(Ask(device, "60", "T1"), "D        TC Table|D        0.5000");
  EXPECT_EQ(Ask(device, "60", "T2"), "D        TC Table|D        1.0000mV");
}

}  // namespace
}  // namespace korva::sim
