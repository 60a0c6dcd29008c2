// Tables written into the memory of a simulated transmitter, and read back.

#include "tables/curve_writer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "tables_bench.h"

namespace korva::test {
namespace {

/// The bytes that a curve's file gives the memory: of each value the low three.
std::string ImageFromFile(const std::string& name, int points) {
  const std::string file = BytesOfHome("system/z2Kv/" + name);
  EXPECT_EQ(file.size(), 4U * static_cast<std::size_t>(points)) << name;
  std::string image;
  for (std::size_t at = 0; at < file.size(); at += 4) {
    image += file.substr(at, 3);
  }
  return image;
}

struct WrittenCurve {
  SensorKind kind;
  int type;
  int start;  ///< 8192 less 3 for each point
};

struct EveryCurveTest : testing::TestWithParam<WrittenCurve> {
  const CurveFile& file = *FindCurveFile(GetParam().kind, GetParam().type);
  int Write(TablesBench& bench) {
    int result = -1;
    bench.Run([&] {
      result = GetParam().kind == SensorKind::Thermocouple
                   ? bench.Curves().DownloadTcTable(GetParam().type, u"name")
                   : bench.Curves().DownloadRtdTable(GetParam().type, u"name");
    });
    return result;
  }
};

TEST_P(EveryCurveTest, StandsInTheMemoryByteForByteAsInItsFile) {
  TablesBench bench(GetParam().kind == SensorKind::Thermocouple ? "Z2WT" : "Z2WR");
  bench.Memory().Put(512, std::string(8192 - 512, '\x55'));
  ASSERT_EQ(Write(bench), 0);

  const sim::Memory& memory = bench.Memory();
  const auto start = static_cast<std::size_t>(GetParam().start);
  EXPECT_EQ(memory.Bytes(start, 8192 - start), ImageFromFile(ToUtf8(file.name), file.points));
  EXPECT_EQ(memory.Bytes(535, start - 535), std::string(start - 535, '\x55')) << "nothing between";
  EXPECT_EQ(memory.Number(512, 1), 0);
  EXPECT_EQ(memory.Number(513, 1), GetParam().type);
  for (const std::size_t base : {514U, 522U, 531U}) {
    EXPECT_EQ(memory.Number(base, 2), file.base) << base;
  }
  for (const std::size_t top : {516U, 524U, 533U}) {
    EXPECT_EQ(memory.Number(top, 2), file.base + file.points - 1) << top;
  }
  EXPECT_EQ(memory.Number(518, 2), 1);
  EXPECT_EQ(memory.Number(520, 2), GetParam().start);
  EXPECT_EQ(memory.Number(526, 2), file.points - 1);
  EXPECT_EQ(memory.Number(528, 3), memory.Number(8189, 3) - memory.Number(start, 3));
}

constexpr SensorKind kTc = SensorKind::Thermocouple;
constexpr SensorKind kRtd = SensorKind::Resistance;
INSTANTIATE_TEST_SUITE_P(Thermocouples, EveryCurveTest,
                         testing::Values(WrittenCurve{kTc, 0, 2459}, WrittenCurve{kTc, 1, 2960},
                                         WrittenCurve{kTc, 2, 4310}, WrittenCurve{kTc, 3, 3509},
                                         WrittenCurve{kTc, 4, 5873}, WrittenCurve{kTc, 5, 2498},
                                         WrittenCurve{kTc, 6, 2309}, WrittenCurve{kTc, 7, 2309},
                                         WrittenCurve{kTc, 8, 794}, WrittenCurve{kTc, 9, 3170},
                                         WrittenCurve{kTc, 10, 5639}, WrittenCurve{kTc, 11, 4439},
                                         WrittenCurve{kTc, 12, 3554}));
INSTANTIATE_TEST_SUITE_P(Resistances, EveryCurveTest,
                         testing::Values(WrittenCurve{kRtd, 0, 5804}, WrittenCurve{kRtd, 1, 4769},
                                         WrittenCurve{kRtd, 2, 4769}, WrittenCurve{kRtd, 3, 5384},
                                         WrittenCurve{kRtd, 4, 6899}, WrittenCurve{kRtd, 5, 4769},
                                         WrittenCurve{kRtd, 6, 7139}, WrittenCurve{kRtd, 7, 6629}));

TEST(ImageOfTest, EachValueHasThreeBytesLowByteFirstCutOnTheLeft) {
  EXPECT_EQ(ImageOf(std::vector<std::int32_t>{0x123456, -6460, 1, 0x7A123456}), "563412C4E6FF010000563412");
  EXPECT_EQ(ImageOf({}), "");
}

struct CurveWriterTest : testing::Test {
  int WriteTc(int type) {
    int result = 0;
    bench.Run([&] { result = bench.Curves().DownloadTcTable(type, u"TC K (CA)"); });
    return result;
  }
  int WriteRtd(int type) {
    int result = 0;
    bench.Run([&] { result = bench.Curves().DownloadRtdTable(type, u"Ni100"); });
    return result;
  }
  /// Spoils the device's answer to the command of this number.
  void Fail(const std::string& fault) { bench.device.AddFault(sim::ParseFault(fault)); }
  TablesBench bench{"Z2WT"};
};

TEST_F(CurveWriterTest, TypeNumber13OfAThermocoupleAnd8OfAResistanceReachNoFileAndSendNothing) {
  EXPECT_NE(WriteTc(13), 0);
  EXPECT_NE(WriteRtd(8), 0);
  EXPECT_NE(WriteTc(-1), 0);
  EXPECT_EQ(bench.Sent(), "");
}

TEST_F(CurveWriterTest, TypeKStartsAt2960AndHas654BlocksAndNoHeadFragment) {
  ASSERT_EQ(WriteTc(1), 0);
  const std::string sent = bench.Sent();
  EXPECT_TRUE(sent.starts_with("G99 I10 DS0201-1 D63 D DS0B90-8 D")) << sent.substr(0, 60);
  EXPECT_EQ(Count(sent, "-8 "), 654);
  EXPECT_EQ(Count(sent, "DS1FF8-8 "), 1) << "the last block";
}

TEST_F(CurveWriterTest, TypeBBeginsWithSixBytesAt2498AndGoesOnInBlocksFrom2504) {
  ASSERT_EQ(WriteTc(5), 0);
  const std::string sent = bench.Sent();
  const std::size_t head = sent.find("DS09C2-6 D");
  EXPECT_EQ(head, std::string("G99 I10 DS0201-1 D63 D ").size());
  EXPECT_EQ(sent.find("DS09C8-8 D"), head + std::string("DS09C2-6 D112233445566 D ").size());
  EXPECT_EQ(Count(sent, "-8 "), (5694 - 6) / 8);
}

TEST_F(CurveWriterTest, AThermocouplesDescriptorEndsWithItsHeadAndItsType) {
  ASSERT_EQ(WriteTc(1), 0);
  EXPECT_TRUE(
      bench.Sent().ends_with("DS0202-2 DEFFE D DS0204-2 DBE05 D DS0206-2 D0100 D DS0208-2 D900B D "
                             "DS020A-2 DEFFE D DS020C-2 DBE05 D DS020E-2 DCF06 D DS0210-3 D9BFC00 D "
                             "DS0213-2 DEFFE D DS0215-2 DBE05 D DS0200-1 D00 D DS0201-1 D01 D"))
      << bench.Sent().substr(bench.Sent().size() - 240);
}

TEST_F(CurveWriterTest, AResistancesDescriptorBeginsWithItsHead) {
  ASSERT_EQ(WriteRtd(6), 0);
  const std::string sent = bench.Sent();
  const std::string tail = sent.substr(sent.find("DS0200-1"));
  EXPECT_TRUE(
      tail.starts_with("DS0200-1 D00 D DS0202-2 D9CFF D DS0204-2 DFA00 D DS0206-2 D0100 D "
                       "DS0208-2 DE31B D DS020A-2 D9CFF D DS020C-2 DFA00 D DS020E-2 D5E01 D DS0210-3 D"))
      << tail;
  EXPECT_TRUE(tail.ends_with("DS0213-2 D9CFF D DS0215-2 DFA00 D DS0201-1 D06 D")) << tail;
}

TEST_F(CurveWriterTest, TheTypeIs99UntilTheLastWrite) {
  std::set<int> types;
  bench.page->TransferBar.Observe([&] { types.insert(bench.Memory().Number(513, 1)); });
  ASSERT_EQ(WriteRtd(6), 0);
  EXPECT_EQ(types, std::set<int>{99});
  EXPECT_EQ(bench.Memory().Number(513, 1), 6);
}

TEST_F(CurveWriterTest, TheBarRisesByBlocksAndGoesBackTo0BehindAThermocouple) {
  ASSERT_EQ(WriteTc(1), 0);
  ASSERT_EQ(bench.progress.size(), 654U);  // block 0 leaves it at 0
  EXPECT_FLOAT_EQ(bench.progress.at(0), 1.0F / 653.0F * 100.0F);
  EXPECT_FLOAT_EQ(bench.progress.at(326), 327.0F / 653.0F * 100.0F);
  EXPECT_EQ(bench.progress.at(652), 100.0F);
  EXPECT_EQ(bench.progress.at(653), 0.0F);
  EXPECT_TRUE(bench.lnr_progress.empty());
}

TEST_F(CurveWriterTest, TheBarStandsAt100BehindAResistance) {
  bench.page->TransferBar.SetValue(80);
  ASSERT_EQ(WriteRtd(6), 0);
  EXPECT_EQ(bench.progress.at(1), 0.0F) << "it begins anew";
  EXPECT_EQ(bench.progress.back(), 100.0F);
}

TEST_F(CurveWriterTest, AFileThatIsMissingOrCantBeReadSendsNothing) {
  bench.files.Remove(u"/korva/system/z2Kv/TC_TypeK_01.tct");
  EXPECT_EQ(WriteTc(1), -1);
  bench.files.FailReads(MemoryFiles::Fault::BadDisk);
  EXPECT_EQ(WriteTc(0), -1);
  EXPECT_EQ(bench.Sent(), "");
}

TEST_F(CurveWriterTest, AShorterFileLeavesZerosInTheTable) {
  bench.files.Put(u"/korva/system/z2Kv/RTD06_Ni100.tct", std::string("\x11\x22\x33\0\x44\x55\x66\0", 8));
  ASSERT_EQ(WriteRtd(6), 0);
  EXPECT_EQ(bench.Memory().Bytes(7139, 7), std::string("\x11\x22\x33\x44\x55\x66\0", 7));
  EXPECT_EQ(bench.Memory().Number(8189, 3), 0);
  EXPECT_EQ(bench.Memory().Number(528, 3), -0x332211);
}

TEST_F(CurveWriterTest, ValuesOfAHostileFileAreCutToTheirPlace) {
  bench.files.Put(u"/korva/system/z2Kv/RTD06_Ni100.tct",
                  std::string("\0\0\0\x80", 4) + std::string(std::size_t{350} * 4, '\x7F'));
  ASSERT_EQ(WriteRtd(6), 0);
  EXPECT_EQ(bench.Memory().Bytes(7139, 6), std::string("\0\0\0\x7F\x7F\x7F", 6));
  EXPECT_EQ(bench.Memory().Bytes(528, 3), "\x7F\x7F\x7F");
}

TEST_F(CurveWriterTest, ADeviceThatDoesNotGiveAccessIsNotWritten) {
  for (const char* fault : {"silent=G99", "garbled=G99", "silent=I10", "garbled=I10"}) {
    bench.device.ClearFaults();
    Fail(fault);
    EXPECT_EQ(WriteTc(1), -1) << fault;
    EXPECT_EQ(bench.Memory().Number(513, 1), 0) << "the type that it had";
  }
}

TEST_F(CurveWriterTest, ABlockThatIsNotTakenStopsTheWritingAtOnceAndTheTypeStays99) {
  // Commands 1 to 5 enter and mark; 6 to 8 are the first block.
  for (const char* fault : {"refused-address@6", "silent@7", "stuck-byte@1000", "wrong-read-back@1001",
                            "refused@1000", "silent-access@1968", "wrong-read-back@2000"}) {
    TablesBench another("Z2WT");
    another.device.AddFault(sim::ParseFault(fault));
    int result = 0;
    another.Run([&] { result = another.Curves().DownloadTcTable(1, u""); });
    EXPECT_EQ(result, 1744) << fault;
    EXPECT_EQ(another.Memory().Number(513, 1), 99) << fault;
    EXPECT_LE(another.device.Exchanges(),
              std::stoi(std::string(fault).substr(std::string(fault).find('@') + 1)) + 1)
        << fault;
  }
}

TEST_F(CurveWriterTest, AMarkThatIsNotTakenIsNoBegunWriting) {
  Fail("refused-address@3");
  EXPECT_EQ(WriteTc(1), -1);
  EXPECT_EQ(bench.Memory().Number(513, 1), 0);
}

TEST_F(CurveWriterTest, TheStatusAreaTellsTheCurveTheBlocksAndTheTimeLeft) {
  bench.host.port.SetTimed(true);
  ASSERT_EQ(WriteTc(1), 0);
  ASSERT_EQ(bench.notices.size(), 656U);
  EXPECT_EQ(bench.notices.at(0), "EEPROM: ｾﾝｻのｶｰﾌﾞ TC K (CA) を書き込んでいます");
  EXPECT_EQ(bench.notices.at(1), "EEPROM: ｾﾝｻのｶｰﾌﾞ TC K (CA) を書き込んでいます: 0/654 ﾌﾞﾛｯｸ");
  EXPECT_TRUE(
      bench.notices.at(2).starts_with("EEPROM: ｾﾝｻのｶｰﾌﾞ TC K (CA) を書き込んでいます: 1/654 ﾌﾞﾛｯｸ、残り "))
      << bench.notices.at(2);
  EXPECT_TRUE(bench.notices.back().ends_with(": 654/654 ﾌﾞﾛｯｸ、残り 0 分 0 秒")) << bench.notices.back();
}

// --- linearizers

struct LinearizerImageTest : testing::Test {
  int Write(const std::string& model, const std::vector<LnrPoint>& points) {
    int result = 0;
    bench.Run(
        [&] { result = bench.Curves().DownloadLnrTable(Ascii(model), points, bench.page->LnrProgressBar); });
    return result;
  }
  std::optional<std::vector<LnrPoint>> Read(const std::string& model) {
    std::optional<std::vector<LnrPoint>> points;
    bench.Run([&] { points = bench.Curves().UploadLnrTable(Ascii(model), bench.page->LnrProgressBar); });
    return points;
  }
  TablesBench bench{"Z2WM"};
};

TEST_F(LinearizerImageTest, PointsStandAtTheMemorysEndXAndYInTurn) {
  ASSERT_EQ(Write("Z2WM", {{0, -5.5}, {50, 25.25}, {100, 100}}), 0);
  const sim::Memory& memory = bench.Memory();
  EXPECT_EQ(memory.Bytes(8192 - 18, 18),
            std::string("\0\0\0\0\x80\xFA\0\0\x32\0\x40\x19\0\0\x64\0\0\x64", 18));
  EXPECT_EQ(memory.Number(512, 1), 0);
  EXPECT_EQ(memory.Number(513, 1), 101);
  for (const std::size_t base : {514U, 522U, 531U}) {
    EXPECT_EQ(memory.Number(base, 2), 0) << base;
  }
  for (const std::size_t top : {516U, 524U, 533U}) {
    EXPECT_EQ(memory.Number(top, 2), 100 * 256) << top;
  }
  EXPECT_EQ(memory.Number(518, 2), 1);
  EXPECT_EQ(memory.Number(520, 2), 8192 - 18);
  EXPECT_EQ(memory.Number(526, 2), 100 * 256);
  EXPECT_EQ(memory.Number(528, 3), 100 * 65536);
}

TEST_F(LinearizerImageTest, TheFirstKindHasHalfTheScaleAndTheSameEnds) {
  for (const char* model : {"Z2WF", "Z2WF.def", "Z2WF2", "Z2WF2.def"}) {
    ASSERT_EQ(Write(model, {{0, 10}, {100, 90}}), 0) << model;
    EXPECT_EQ(bench.Memory().Bytes(8192 - 12, 12), std::string("\0\0\0\0\0\x05\0\0\x32\0\0\x2D", 12))
        << model;
    EXPECT_EQ(bench.Memory().Number(516, 2), 100 * 256) << model;
    EXPECT_EQ(bench.Memory().Number(528, 3), 100 * 32768) << model;
  }
}

TEST_F(LinearizerImageTest, EveryModelWithALinearizerInItsMemoryHasItsScale) {
  struct ScaleRow {
    const char16_t* model;
    double scale;
  };
  for (const ScaleRow& row :
       {ScaleRow{u"Z2WF", 32768}, ScaleRow{u"Z2WF2.def", 32768}, ScaleRow{u"Z2WM", 65536},
        ScaleRow{u"Z2WM2.def", 65536}, ScaleRow{u"Z8WF", 65536}, ScaleRow{u"Z8WM.def", 65536}}) {
    ASSERT_NE(FindLnrImage(row.model), nullptr) << ToUtf8(row.model);
    EXPECT_EQ(FindLnrImage(row.model)->scale, row.scale) << ToUtf8(row.model);
  }
  for (const char16_t* model : {u"Z2WT", u"Z2WV.def", u"Z8WV", u"Z2WR2.def", u""}) {
    EXPECT_EQ(FindLnrImage(model), nullptr) << ToUtf8(model);
  }
}

TEST_F(LinearizerImageTest, ItsDescriptorBeginsWithItsHead) {
  ASSERT_EQ(Write("Z2WM", {{0, 0}, {100, 100}}), 0);
  EXPECT_EQ(bench.Sent(),
            "G99 I10 DS0201-1 D63 D DS1FF4-4 D00000000 D DS1FF8-8 D0000000064000064 D "
            "DS0200-1 D00 D DS0202-2 D0000 D DS0204-2 D0064 D DS0206-2 D0100 D DS0208-2 DF41F D "
            "DS020A-2 D0000 D DS020C-2 D0064 D DS020E-2 D0064 D DS0210-3 D000064 D "
            "DS0213-2 D0000 D DS0215-2 D0064 D DS0201-1 D65 D");
}

TEST_F(LinearizerImageTest, WhenItHasOneBlockTheBarIsAt100) {
  ASSERT_EQ(Write("Z2WM", {{0, 0}, {100, 100}}), 0);
  EXPECT_EQ(bench.lnr_progress, std::vector<float>{100.0F});
  EXPECT_TRUE(bench.progress.empty());
}

TEST_F(LinearizerImageTest, TheBarStandsAt100Behind) {
  ASSERT_EQ(Write("Z2WM", {{0, 0}, {25, 1}, {50, 2}, {75, 3}, {100, 100}}), 0);
  // 30 bytes: 6, then 3 blocks.
  EXPECT_EQ(bench.lnr_progress, (std::vector<float>{50.0F, 100.0F}));
}

TEST_F(LinearizerImageTest, XMustRiseAsItIsStored) {
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {50, 1}, {50, 2}}), -1);
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {50, 1}, {49, 2}}), -1);
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {0.000005, 1}}), -1) << "0.33 rounds to 0";
  EXPECT_EQ(bench.Sent(), "");
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {0.00001, 1}}), 0) << "0.66 rounds to 1";
}

TEST_F(LinearizerImageTest, WhatThreeBytesDoNotHoldIsNotSent) {
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {100, 128}}), -1);
  EXPECT_EQ(Write("Z2WM", {{-128, 0}, {100, 0}}), -1) << "its bytes read back as a positive number";
  EXPECT_EQ(Write("Z2WM", {{0, 1e300}, {100, -1e300}}), -1);
  EXPECT_EQ(bench.Sent(), "");
  EXPECT_EQ(Write("Z2WF", {{0, 0}, {100, 128}}), 0) << "half the scale";
}

TEST_F(LinearizerImageTest, ItHasTwoToAHundredPoints) {
  std::vector<LnrPoint> points;
  EXPECT_EQ(Write("Z2WM", points), -1);
  points.push_back({.x = 0, .y = 0});
  EXPECT_EQ(Write("Z2WM", points), -1);
  while (points.size() < 100) {
    points.push_back({.x = static_cast<double>(points.size()), .y = 1});
  }
  points.push_back({.x = 100, .y = 1});
  EXPECT_EQ(Write("Z2WM", points), -1);
  EXPECT_EQ(bench.Sent(), "");
  points.pop_back();
  EXPECT_EQ(Write("Z2WM", points), 0);
  EXPECT_EQ(bench.Memory().Number(520, 2), 8192 - 600);
  EXPECT_EQ(Read("Z2WM"), points);
}

TEST_F(LinearizerImageTest, EndsThatLieFurtherApartThanTwoBytesReachAreCut) {
  ASSERT_EQ(Write("Z2WM", {{-15, -15}, {115, 115}}), 0);
  EXPECT_EQ(bench.Memory().Number(514, 2), -3840);
  EXPECT_EQ(bench.Memory().Number(516, 2), 29440);
  EXPECT_EQ(bench.Memory().Bytes(526, 2), std::string("\0\x82", 2)) << "33280";
  EXPECT_EQ(bench.Memory().Bytes(528, 3), std::string("\0\0\x82", 3)) << "130 * 65536";
}

TEST_F(LinearizerImageTest, AModelThatKeepsItAsItemsIsNotWrittenAndNotRead) {
  EXPECT_EQ(Write("Z2WV", {{0, 0}, {100, 100}}), -1);
  EXPECT_EQ(Read("Z2WV"), std::vector<LnrPoint>());
  EXPECT_EQ(bench.Sent(), "");
}

TEST_F(LinearizerImageTest, AWritingThatBreaksOffLeaves99) {
  bench.device.AddFault(sim::ParseFault("wrong-read-back@11"));
  EXPECT_EQ(Write("Z2WM", {{0, 0}, {100, 100}}), 2);
  EXPECT_EQ(bench.Memory().Number(513, 1), 99);
}

TEST_F(LinearizerImageTest, WhatWasWrittenIsReadBack) {
  const std::vector<LnrPoint> points = {{-15, 115}, {0, 0}, {12.5, -15}, {99.75, 100.5}};
  for (const char* model : {"Z2WM", "Z2WF"}) {
    ASSERT_EQ(Write(model, points), 0);
    bench.line.ForgetCommands();
    EXPECT_EQ(Read(model), points);
    EXPECT_TRUE(bench.Sent().starts_with("G99 I10 DS0201-1 D DS0208-2 D DS1FE8-3 D DS1FEB-3 D DS1FEE-3 D "))
        << bench.Sent();
    EXPECT_EQ(Count(bench.Sent(), "-3 D"), 8);
  }
}

TEST_F(LinearizerImageTest, TheStatusAreaTellsTheBlocksOfTheWritingAndThePointsOfTheReadingAndThenNothing) {
  ASSERT_EQ(Write("Z2WM", {{0, 0}, {25, 1}, {50, 2}, {75, 3}, {100, 100}}), 0);
  ASSERT_EQ(bench.notices.size(), 6U);
  EXPECT_EQ(bench.notices.at(0), "EEPROM: ﾘﾆｱﾗｲｻﾞを書き込んでいます");
  EXPECT_TRUE(bench.notices.at(4).starts_with("EEPROM: ﾘﾆｱﾗｲｻﾞを書き込んでいます: 3/3 ﾌﾞﾛｯｸ、"));
  EXPECT_EQ(bench.notices.at(5), "");
  bench.notices.clear();
  Read("Z2WM");
  ASSERT_EQ(bench.notices.size(), 8U);
  EXPECT_TRUE(bench.notices.at(6).starts_with("EEPROM: ﾘﾆｱﾗｲｻﾞを読み込んでいます: 5/5 ﾌﾞﾛｯｸ、"));
  EXPECT_EQ(bench.notices.at(7), "");
}

TEST_F(LinearizerImageTest, AValueOfMinus1IsRead) {
  ASSERT_EQ(Write("Z2WM", {{-1.0 / 65536, 0}, {100, 100}}), 0);
  EXPECT_EQ(Read("Z2WM"), (std::vector<LnrPoint>{{-1.0 / 65536, 0}, {100, 100}}));
}

TEST_F(LinearizerImageTest, ADeviceThatHoldsATemperatureTableHasNoLinearizer) {
  TablesBench thermocouple("Z2WT");
  std::optional<std::vector<LnrPoint>> points;
  thermocouple.Run(
      [&] { points = thermocouple.Curves().UploadLnrTable(u"Z2WM", thermocouple.page->LnrProgressBar); });
  EXPECT_EQ(points, std::vector<LnrPoint>());
  EXPECT_EQ(thermocouple.Sent(), "G99 I10 DS0201-1 D");
}

TEST_F(LinearizerImageTest, AStartThatGivesNo2To100PointsIsNoLinearizer) {
  // Six bytes a point; the count is rounded.
  for (const int start : {8192, 8186, 8184, 7588, 7586, 0, 65535}) {
    bench.Memory().PutNumber(520, 2, start);
    EXPECT_EQ(Read("Z2WM"), std::vector<LnrPoint>()) << start;
  }
  for (const auto& [start, points] : {std::pair{8180, 2U}, {7592, 100U}, {7590, 100U}, {8182, 2U}}) {
    bench.Memory().PutNumber(520, 2, start);
    const auto read = Read("Z2WM");
    if (start == 8182) {
      EXPECT_EQ(read, std::nullopt) << "runs over the memory's end";
      continue;
    }
    ASSERT_TRUE(read) << start;
    EXPECT_EQ(read->size(), points) << start;
  }
}

TEST_F(LinearizerImageTest, ADeviceThatCantBeReadTellsNothing) {
  for (const char* fault : {"silent=G99", "garbled=I10", "silent@4", "refused-address@5", "garbled@6",
                            "silent@10", "garbled@30"}) {
    TablesBench another("Z2WM");
    another.device.AddFault(sim::ParseFault(fault));
    std::optional<std::vector<LnrPoint>> points = std::vector<LnrPoint>();
    another.Run([&] { points = another.Curves().UploadLnrTable(u"Z2WM", another.page->LnrProgressBar); });
    EXPECT_EQ(points, std::nullopt) << fault;
  }
}

}  // namespace
}  // namespace korva::test
