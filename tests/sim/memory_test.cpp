// The memory of a device and the access to its bytes.
#include "sim/memory.h"

#include <gtest/gtest.h>

#include "sample.h"

namespace korva::sim {
namespace {

/// A transmitter with two types, two outputs and a zero, of a model by its definition file.
constexpr std::string_view kTransmitter =
    "$Data\n"
    "01, 02, , Tag, Y, Y, , , , 0, , , , , , , , , , , Y, , TG:, 0\n"
    "01, 10, , Type, Y, Y, , , , , 0, $I10\n"
    "01, 11, , Output, Y, Y, , , , , 1, $I11\n"
    "01, 14, , Zero, Y, Y, , , , 9, , , , , , , , , , , Y, , ZERO, 1\n"
    "$I10\n"
    "3, first type, 0, 100, 10, mV, A1, 1, Y\n"
    "5, second type, 0, 50, 5, mV, B2, 2, Y\n"
    "$I11\n"
    "0, 4-20 mA, 4, 20, 1, Y, X\n"
    "2, 0-10 V, 0, 10, 1, Y, Y\n"
    "$End\n";

Device Transmitter(const std::string& file = "Z2WV.def") {
  return {{.name = "made up", .definition_file = file, .family_word = "Lite"},
          Definition::Parse(kTransmitter)};
}

/// A transmitter whose memory is open.
Device OpenTransmitter(const std::string& file = "Z2WV.def") {
  auto device = Transmitter(file);
  device.Answer("G99");
  device.Answer("I10");
  return device;
}

std::string Send(Device& device, const std::string& line) { return device.Answer(line).text; }

TEST(MemoryTest, IsBlankWhereNothingWasWritten) {
  const Memory memory;
  EXPECT_EQ(memory.Bytes(0, 1), "\xFF");
  EXPECT_EQ(memory.Bytes(8191, 1), "\xFF");
}

TEST(MemoryTest, WriteOverAPagesEndGoesOnAtItsBeginning) {
  Memory memory;
  memory.WritePage(14, "abcd");
  EXPECT_EQ(memory.Bytes(14, 4), "ab\xFF\xFF");
  EXPECT_EQ(memory.Bytes(0, 3), "cd\xFF");
  memory.WritePage(16, "0123456789ABCDEF");
  EXPECT_EQ(memory.Bytes(16, 16), "0123456789ABCDEF");
  EXPECT_EQ(memory.Bytes(32, 1), "\xFF");
}

TEST(MemoryTest, NumbersStandLowByteFirstInTwosComplement) {
  Memory memory;
  memory.PutNumber(514, 2, -273);
  EXPECT_EQ(memory.Bytes(514, 2), "\xEF\xFE");
  EXPECT_EQ(memory.Number(514, 2), -273);
  memory.PutNumber(528, 3, 64667);
  EXPECT_EQ(memory.Bytes(528, 3), std::string("\x9B\xFC\x00", 3));
  EXPECT_EQ(memory.Number(528, 3), 64667);
  memory.PutNumber(10, 4, -2);
  EXPECT_EQ(memory.Number(10, 4), -2);
}

TEST(MemoryTest, TextsArePaddedToTheirPlace) {
  Memory memory;
  memory.PutText(80, 16, "K (CA)");
  EXPECT_EQ(memory.Bytes(80, 16), "K (CA)          ");
  EXPECT_EQ(memory.Text(80, 16), "K (CA)");
}

TEST(MemoryAccessTest, IsEnteredThroughTheMenu) {
  auto device = Transmitter();
  EXPECT_EQ(Send(device, "G99"), "D      enter item");
  EXPECT_EQ(Send(device, "I10"), "D   EEPROM Access");
  EXPECT_EQ(device.Mode(), '0') << "in any mode";
}

TEST(MemoryAccessTest, ReadsAndWritesAtThePlaceChosen) {
  auto device = OpenTransmitter();
  device.GetMemory().Put(513, "e");
  EXPECT_EQ(Send(device, "DS0201-1"), "COK");
  EXPECT_EQ(Send(device, "D"), "D65");
  EXPECT_EQ(Send(device, "D"), "D65") << "the place stays";
  EXPECT_EQ(Send(device, "DS0B90-8"), "COK");
  EXPECT_EQ(Send(device, "D0123456789ABCDEF"), "COK");
  EXPECT_EQ(Send(device, "D"), "D0123456789ABCDEF");
  EXPECT_EQ(device.GetMemory().Bytes(2960, 8), "\x01\x23\x45\x67\x89\xAB\xCD\xEF");
  EXPECT_EQ(Send(device, "DS1FFF-1"), "COK");
  EXPECT_EQ(Send(device, "D00"), "COK") << "the last byte of all";
}

TEST(MemoryAccessTest, WrongSplitAtAPagesEndIsSeen) {
  auto device = OpenTransmitter();
  Send(device, "DS000E-3");
  EXPECT_EQ(Send(device, "D111213"), "COK");
  EXPECT_EQ(Send(device, "D"), "D1112FF") << "reading knows no pages";
  EXPECT_EQ(device.GetMemory().Bytes(0, 1), "\x13");
}

TEST(MemoryAccessTest, RefusesWhatItDoesNotUnderstand) {
  auto device = OpenTransmitter();
  EXPECT_EQ(Send(device, "D"), "CNG") << "no place chosen";
  EXPECT_EQ(Send(device, "D00"), "CNG");
  for (const char* const line : {"DS", "DS0201", "DS0201-", "DS0201-0", "DS0201-9", "DS0201-12", "DS201-1",
                                 "DS0201 1", "DS020g-1", "DS020a-1", "DS1FFF-2", "DS2000-1", "DSFFFF-8"}) {
    EXPECT_EQ(Send(device, line), "CNG") << line;
    EXPECT_EQ(Send(device, "D"), "CNG") << "and no place is chosen then: " << line;
  }
  Send(device, "DS0010-2");
  for (const char* const line : {"D0", "D00", "D000", "D000000", "D00g0", "D0a00", "D-100"}) {
    EXPECT_EQ(Send(device, line), "CNG") << line;
  }
  EXPECT_EQ(Send(device, "D"), "DFFFF") << "and nothing is written";
}

TEST(MemoryAccessTest, LastsUntilAnotherSelection) {
  auto device = OpenTransmitter();
  Send(device, "DS0201-1");
  EXPECT_EQ(Read(device, "01", "01"), "D  Maintenance SW");
  EXPECT_EQ(Send(device, "DS0201-1"), "D    invalid data");
  EXPECT_EQ(Send(device, "D"), "D               0");
  EXPECT_EQ(Read(device, "99", "10"), "D   EEPROM Access");
  EXPECT_EQ(Send(device, "D"), "CNG") << "the place is chosen anew";
}

TEST(MemoryAccessTest, IsThereOnFamiliesWithAMemoryOnly) {
  Device other({.name = "made up", .definition_file = "Z8WT.def", .family_word = "Nano"},
               Definition::Parse(kTransmitter));
  EXPECT_EQ(Send(other, "G99"), "D    invalid data");
}

// --- faults

/// An open transmitter with a fault, and a place of two bytes chosen.
Device StruckTransmitter(const std::string& fault) {
  auto device = OpenTransmitter();
  Send(device, "DS0010-2");
  device.AddFault(ParseFault(fault));
  return device;
}

TEST(MemoryFaultTest, StuckByteLeavesTheLastByteAsItWas) {
  auto device = StruckTransmitter("stuck-byte");
  EXPECT_EQ(Send(device, "D1234"), "COK");
  EXPECT_EQ(Send(device, "D"), "D12FF");
  EXPECT_EQ(device.GetMemory().Bytes(16, 2), "\x12\xFF");
}

TEST(MemoryFaultTest, RefusedAddressChoosesNoOtherPlace) {
  auto device = StruckTransmitter("refused-address");
  EXPECT_EQ(Send(device, "DS0020-1"), "CNG");
  EXPECT_EQ(Send(device, "D"), "DFFFF") << "the place before is still chosen";
  EXPECT_EQ(Read(device, "99", "10"), "D   EEPROM Access") << "the menu is not struck";
}

TEST(MemoryFaultTest, SilentAccessLosesItsCommandsOnly) {
  auto device = StruckTransmitter("silent-access");
  for (const char* const line : {"DS0020-1", "D", "D1234"}) {
    EXPECT_TRUE(device.Answer(line).silent) << line;
  }
  EXPECT_EQ(device.GetMemory().Bytes(16, 2), "\xFF\xFF");
  EXPECT_EQ(Read(device, "01", "01"), "D  Maintenance SW");
  EXPECT_EQ(Send(device, "D0"), "D               0");
}

TEST(MemoryFaultTest, WrongReadBackShowsAnotherByteThanTheOneHeld) {
  auto device = StruckTransmitter("wrong-read-back");
  EXPECT_EQ(Send(device, "D1234"), "COK");
  EXPECT_EQ(Send(device, "D"), "D1235");
  EXPECT_EQ(device.GetMemory().Bytes(16, 2), "\x12\x34");
}

TEST(MemoryFaultTest, RefusalsHaveTheCodesOfTheAccess) {
  auto device = StruckTransmitter("refused");
  EXPECT_EQ(Send(device, "D1234"), "CNG");
  EXPECT_EQ(device.GetMemory().Bytes(16, 2), "\xFF\xFF");
  EXPECT_EQ(Send(device, "G01"), "D    invalid data") << "those of the menu have its own";
  auto unusable = StruckTransmitter("not-usable");
  EXPECT_EQ(Send(unusable, "D"), "CNU");
}

// --- items that tell what the memory holds

TEST(StoredItemTest, ItemsTellTheTextsOfTheMemory) {
  auto device = OpenTransmitter();
  EXPECT_EQ(Read(device, "00", "01"), "D      Z2WV-A1X-S");
  EXPECT_EQ(Send(device, "D"), "D      Z2WV-A1X-S");
  EXPECT_EQ(Read(device, "01", "10"), "D           Type1");
  EXPECT_EQ(Send(device, "D"), "D      first type");
  device.GetMemory().PutText(48, 16, "Z2WT-1-2");
  device.GetMemory().PutText(80, 16, "second type");
  device.GetMemory().PutText(96, 16, "0-10 V");
  EXPECT_EQ(Read(device, "00", "01"), "D        Z2WT-1-2");
  EXPECT_EQ(device.Value("01", "10"), "second type");
  EXPECT_EQ(device.Value("01", "11"), "0-10 V");
}

TEST(StoredItemTest, TypesTakeNoDataThroughTheirItems) {
  auto device = Transmitter();
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "10", "5"), "D    invalid data");
  EXPECT_EQ(device.Value("01", "10"), "first type");
}

TEST(StoredItemTest, MakerSetsATypeWithAllThatGoesWithIt) {
  auto device = Transmitter();
  EXPECT_FALSE(device.Set("01", "10", "third type"));
  EXPECT_TRUE(device.Set("01", "10", "5"));
  EXPECT_TRUE(device.Set("01", "11", "0-10 V"));
  EXPECT_EQ(device.GetMemory().Number(78, 1), 5);
  EXPECT_EQ(device.GetMemory().Number(77, 1), 2);
  EXPECT_EQ(device.GetMemory().Number(79, 1), 2);
  EXPECT_EQ(device.Value("00", "01"), "Z2WV-B2Y-S");
  EXPECT_TRUE(device.Set("00", "01", "Z2WF-1-2"));
  EXPECT_EQ(device.Value("00", "01"), "Z2WF-1-2");
}

}  // namespace
}  // namespace korva::sim
