#include "tables/curve_file.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"
#include "support/memory_files.h"

namespace korva {
namespace {

using test::MemoryFiles;

struct FileRow {
  SensorKind kind;
  int type;
  std::string name;
  int base;
  int top;
  int points;
};

struct CurveFileTest : testing::TestWithParam<FileRow> {};

TEST_P(CurveFileTest, HasItsNameItsEndsAndItsPoints) {
  const FileRow& row = GetParam();
  const CurveFile* const file = FindCurveFile(row.kind, row.type);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(ToUtf8(file->name), row.name);
  EXPECT_EQ(file->base, row.base);
  EXPECT_EQ(file->Top(), row.top);
  EXPECT_EQ(file->points, row.points);
  EXPECT_LE(file->points, kMostCurvePoints);
}

constexpr SensorKind kTc = SensorKind::Thermocouple;
constexpr SensorKind kRtd = SensorKind::Resistance;
INSTANTIATE_TEST_SUITE_P(Thermocouples, CurveFileTest,
                         testing::Values(FileRow{kTc, 0, "TC_TypePR_00.tct", -50, 1860, 1911},
                                         FileRow{kTc, 1, "TC_TypeK_01.tct", -273, 1470, 1744},
                                         FileRow{kTc, 2, "TC_TypeE_02.tct", -273, 1020, 1294},
                                         FileRow{kTc, 3, "TC_TypeJ_03.tct", -260, 1300, 1561},
                                         FileRow{kTc, 4, "TC_TypeT_04.tct", -272, 500, 773},
                                         FileRow{kTc, 5, "TC_TypeB_05.tct", 23, 1920, 1898},
                                         FileRow{kTc, 6, "TC_TypeR_06.tct", -100, 1860, 1961},
                                         FileRow{kTc, 7, "TC_TypeS_07.tct", -100, 1860, 1961},
                                         FileRow{kTc, 8, "TC_TypeC_08.tct", -50, 2415, 2466},
                                         FileRow{kTc, 9, "TC_TypeN_09.tct", -273, 1400, 1674},
                                         FileRow{kTc, 10, "TC_TypeU_10.tct", -250, 600, 851},
                                         FileRow{kTc, 11, "TC_TypeL_11.tct", -250, 1000, 1251},
                                         FileRow{kTc, 12, "TC_TypeP_12.tct", -50, 1495, 1546}));
INSTANTIATE_TEST_SUITE_P(Resistances, CurveFileTest,
                         testing::Values(FileRow{kRtd, 0, "RTD00_JPt100_89.tct", -235, 560, 796},
                                         FileRow{kRtd, 1, "RTD01_Pt100_89.tct", -240, 900, 1141},
                                         FileRow{kRtd, 2, "RTD02_Pt100_97.tct", -240, 900, 1141},
                                         FileRow{kRtd, 3, "RTD03_Pt50_81.tct", -235, 700, 936},
                                         FileRow{kRtd, 4, "RTD04_Ni508.tct", -100, 330, 431},
                                         FileRow{kRtd, 5, "RTD05_Pt1000.tct", -240, 900, 1141},
                                         FileRow{kRtd, 6, "RTD06_Ni100.tct", -100, 250, 351},
                                         FileRow{kRtd, 7, "RTD07_Cu10.tct", -210, 310, 521}));

TEST(CurveFilesTest, ANumberOutsideTheTableHasNoFile) {
  EXPECT_EQ(FindCurveFile(kTc, 13), nullptr);
  EXPECT_EQ(FindCurveFile(kTc, -1), nullptr);
  EXPECT_EQ(FindCurveFile(kRtd, 8), nullptr);
  EXPECT_EQ(FindCurveFile(kRtd, -1), nullptr);
}

TEST(CurveFilesTest, TheFilesLieBesideTheProgramsDefinitions) {
  EXPECT_EQ(CurvePath(u"/korva", *FindCurveFile(kTc, 1), u'/'), u"/korva/system/z2Kv/TC_TypeK_01.tct");
  EXPECT_EQ(CurvePath(u"C:\\", *FindCurveFile(kRtd, 7), u'\\'), u"C:\\system\\z2Kv\\RTD07_Cu10.tct");
}

/// A folder with one file, in the place of the shortest curve's, which has 351 points.
struct ReadTableFileTest : testing::Test {
  std::optional<std::vector<std::int32_t>> Read(const std::string& bytes) {
    files.Put(CurvePath(u"/korva", curve, u'/'), bytes);
    return ReadTableFile(files, u"/korva", curve, reason);
  }
  MemoryFiles files;
  const CurveFile& curve = *FindCurveFile(kRtd, 6);
  SystemReason reason;
};

TEST_F(ReadTableFileTest, ValuesAre32BitNumbersWithTheirLowByteFirst) {
  std::string bytes("\x01\x02\x03\x04\xFF\xFF\xFF\xFF\xEF\xFE\xFF\xFF", 12);
  bytes.resize(std::size_t{351} * 4, '\x11');
  const auto values = Read(bytes);
  ASSERT_TRUE(values);
  ASSERT_EQ(values->size(), 351U);
  EXPECT_EQ(values->at(0), 0x04030201);
  EXPECT_EQ(values->at(1), -1);
  EXPECT_EQ(values->at(2), -273);
  EXPECT_EQ(values->at(350), 0x11111111);
}

TEST_F(ReadTableFileTest, AShorterFileLeavesZeros) {
  const auto values = Read(std::string("\x05\0\0\0\x06\0\0\0\x07\0", 10));
  ASSERT_TRUE(values);
  EXPECT_EQ(values->at(1), 6);
  EXPECT_EQ(values->at(2), 0) << "a value that is cut off is none";
  EXPECT_EQ(values->at(350), 0);
}

TEST_F(ReadTableFileTest, AnEmptyFileIsAllZeros) { EXPECT_EQ(Read(""), std::vector<std::int32_t>(351)); }

TEST_F(ReadTableFileTest, WhatALongerFileHasBeyondItsPointsDoesNotCount) {
  const auto values = Read(std::string(2545 * 4 + 1, '\x01'));
  ASSERT_TRUE(values);
  EXPECT_EQ(*values, std::vector<std::int32_t>(351, 0x01010101));
}

TEST_F(ReadTableFileTest, AMissingFileAnUnreadableOneAndAHugeOneTellWhy) {
  EXPECT_FALSE(ReadTableFile(files, u"/korva", curve, reason));
  EXPECT_EQ(reason.what, SystemReason::Case::Missing);
  EXPECT_FALSE(Read(std::string((1U << 20U) + 1, '\0')));
  EXPECT_EQ(reason.what, SystemReason::Case::TooLarge);
  files.FailReads(MemoryFiles::Fault::NotPermitted);
  EXPECT_FALSE(Read(std::string(1404, '\0')));
  EXPECT_EQ(reason.what, SystemReason::Case::NotPermitted);
}

}  // namespace
}  // namespace korva
