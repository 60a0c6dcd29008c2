// A linearizer table that travels through one item.

#include "sim/command_table.h"

#include <gtest/gtest.h>

#include "model_device.h"
#include "sim/number.h"

namespace korva::sim {
namespace {

TEST(CommandTableTest, ComesUpWithTheStraightLineOf11Points) {
  CommandTable table;
  EXPECT_EQ(table.Answer("P", false), "Size 11");
  EXPECT_EQ(table.Answer("T0", false), "0.0000 0.0000");
  EXPECT_EQ(table.Answer("T10", false), "1.0000 1.0000");
  EXPECT_EQ(table.Answer("T11", false), std::nullopt);
}

TEST(CommandTableTest, TakesATableThatIsAnnouncedFilledAndEnded) {
  CommandTable table;
  EXPECT_EQ(table.Answer("P2", true), "Size 2");
  EXPECT_EQ(table.Answer("T0 -0.1500 0.0000", true), "-0.1500 0.0000");
  EXPECT_EQ(table.Answer("T1 1.1500 0.5000", true), "1.1500 0.5000");
  EXPECT_EQ(table.Answer("P", true), "Size 11") << "not in use yet";
  EXPECT_EQ(table.Answer("F", true), "Table end");
  EXPECT_EQ(table.Text(), "2 -0.1500 0.0000 1.1500 0.5000");
}

TEST(CommandTableTest, CanBeEmptied) {
  CommandTable table;
  table.Answer("P0", true);
  EXPECT_EQ(table.Answer("F", true), "Table end");
  EXPECT_EQ(table.Answer("P", false), "Size 0");
}

TEST(CommandTableTest, IsNotEndedWithAPointMissing) {
  CommandTable table;
  table.Answer("P2", true);
  table.Answer("T1 1.0000 1.0000", true);
  EXPECT_EQ(table.Answer("F", true), std::nullopt);
  EXPECT_EQ(table.Points().size(), 11U);
}

TEST(CommandTableTest, RefusesWhatIsNoCommandOfItsAndWritingWhereItIsNotWritable) {
  CommandTable table;
  for (const char* command :
       {"", "Q", "P101", "P-1", "Px", "T", "Tx", "T0 1", "T0 1 2 3", "T0 x 1", "T0 0 0"}) {
    EXPECT_EQ(table.Answer(command, true), std::nullopt) << command;
  }
  for (const char* command : {"P2", "T0 0 0", "F"}) {
    EXPECT_EQ(table.Answer(command, false), std::nullopt) << command;
  }
}

TEST(CommandTableTest, IsTakenAsItsTextHasIt) {
  CommandTable table;
  EXPECT_TRUE(table.Set("1 0.5000 0.2500"));
  EXPECT_EQ(table.Text(), "1 0.5000 0.2500");
  for (const char* text : {"", "1", "1 0.5", "2 0 0", "x 0 0", "1 a 0", "101"}) {
    EXPECT_FALSE(table.Set(text)) << text;
  }
}

TEST(CommandTableTest, IsItem62OfADeviceAndWrittenInProgrammingModeAlone) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  const auto send = [&device](const std::string& data) {
    device.Answer("G01");
    device.Answer("I62");
    return std::string(TrimBlanks(device.Answer("D" + data).text.substr(1)));
  };
  EXPECT_EQ(send("P"), "Size 11");
  EXPECT_EQ(send("P2"), "invalid data");
  device.Answer("G01");
  device.Answer("I22");
  device.Answer("D1");
  EXPECT_EQ(send("P1"), "Size 1");
  EXPECT_EQ(send("T0 0.5000 0.2500"), "0.5000 0.2500");
  EXPECT_EQ(send("F"), "Table end");
  EXPECT_EQ(device.Value("01", "62"), "1 0.5000 0.2500");
  ASSERT_TRUE(device.Set("01", "62", "1 0.1000 0.2000"));
  EXPECT_EQ(send("T0"), "0.1000 0.2000");
}

TEST(CommandTableTest, TheFaultOversizedTableTellsMorePointsThanItCanHave) {
  auto device = Device::ForModel(kHome, "Z2WQ");
  device.AddFault(ParseFault("oversized-table"));
  device.Answer("G01");
  device.Answer("I62");
  EXPECT_EQ(device.Answer("DP").text, "DSize 101");
  EXPECT_EQ(device.Answer("DT0").text.substr(1), "   0.0000 0.0000");
}

}  // namespace
}  // namespace korva::sim
