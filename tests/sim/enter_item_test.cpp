// The dialect of devices with a display of 16 characters: titles and values stand at its right.
#include <gtest/gtest.h>

#include "sample.h"

namespace korva::sim {
namespace {

constexpr std::string_view kDisplayed =
    "$Data\n"
    "00, 99, , , Y, , , , , , , , , , , , , , , , , , , , , Status\n"
    "01, 02, , Tag, Y, Y, , , , 0\n"
    "01, 05, , Frequency, , Y, , , , 1, , , , , , Hz\n"
    "01, 40, , Pulses, Y, Y, , , , 2, , , , , , , , , , , , Y, , , 3, Pulse Count\n"
    "01, 23, , Mode, Y, Y, , , , , 0, $I23, , , , , , , , , , Y, N, , 4, Output Mode\n"
    "$I23\n0, normal\n1, inverse\n$End\n";

Device DisplayedDevice(const std::string& family = "Second") {
  return {{.name = "shown", .definition_file = "SHOWN.def", .family_word = family},
          Definition::Parse(kDisplayed)};
}

TEST(EnterItemTest, GroupAndItemAnswerWithDisplayTexts) {
  auto device = DisplayedDevice();
  EXPECT_EQ(device.Answer("G01").text, "D      enter item");
  EXPECT_EQ(device.Answer("I40").text, "D     Pulse Count");
  EXPECT_EQ(device.Answer("I02").text, "D             Tag") << "the caption where no title is given";
  EXPECT_EQ(device.Answer("I55").text, "D    invalid data");
  EXPECT_EQ(device.Answer("D").text, "D    invalid data") << "nothing selected";
  EXPECT_EQ(device.Answer("G07").text, "D    invalid data");
}

TEST(EnterItemTest, SystemTextIsAnItemWithItsOwnTitle) {
  auto device = DisplayedDevice();
  EXPECT_EQ(Read(device, "00", "99"), "D          Status");
  EXPECT_EQ(device.Answer("D").text, "D   SYSVER   1.00");
  auto plain = Device({.name = "p", .definition_file = "P.def", .family_word = "Nano"},
                      Definition::Parse("$Data\n01, 02, , Tag\n$End\n"));
  EXPECT_EQ(Read(plain, "00", "99"), "D   SYSVER   1.00") << "without a title the text itself is shown";
}

TEST(EnterItemTest, LoneDReadsAndDWithDataWrites) {
  auto device = DisplayedDevice();
  Read(device, "01", "40");
  EXPECT_EQ(device.Answer("D").text, "D               0");
  EXPECT_EQ(device.Answer("D15").text, "D    invalid data") << "not in monitor mode";
  EXPECT_EQ(Read(device, "01", "01"), "D  Maintenance SW");
  EXPECT_EQ(device.Answer("D1").text, "D               1");
  EXPECT_EQ(Write(device, "01", "40", "15"), "D              15");
  EXPECT_EQ(device.Answer("D").text, "D              15");
  EXPECT_EQ(Write(device, "01", "23", "1"), "D         inverse");
  EXPECT_EQ(Write(device, "01", "23", "2"), "D    invalid data");
}

TEST(EnterItemTest, EmptyTagIsToldInWordsByTwoFamiliesOnly) {
  for (const auto* const family : {"Second", "LiteThird"}) {
    auto device = DisplayedDevice(family);
    device.Set("01", "02", "");
    Read(device, "01", "02");
    EXPECT_EQ(device.Answer("D").text, "DTAG not entered!") << family;
  }
  auto device = DisplayedDevice("Lite");
  device.Set("01", "02", "");
  Read(device, "01", "02");
  EXPECT_EQ(device.Answer("D").text, "D          ");
}

TEST(EnterItemTest, LiveValueHasItsUnitBehindIt) {
  auto device = DisplayedDevice();
  Read(device, "01", "05");
  EXPECT_EQ(device.Answer("D").text, "D   50.50 Hz");
}

TEST(EnterItemTest, ModeItemIsTheFamilysOwn) {
  auto device = DisplayedDevice("LiteSecond");
  EXPECT_EQ(Write(device, "01", "22", "1"), "D               1");
  EXPECT_EQ(device.Mode(), '1');
}

}  // namespace
}  // namespace korva::sim
