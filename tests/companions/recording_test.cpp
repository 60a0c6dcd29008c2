#include "companions/recording.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_event_loop.h"
#include "support/memory_records.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Fault = MemoryRecords::Fault;

const String kPath = u"/korva/record.csv";

TEST(CsvLineTest, QuotesWhatWouldBreakALine) {
  EXPECT_EQ(CsvLine({u"a", u"12.5", u""}), u"a,12.5,\r\n");
  EXPECT_EQ(CsvLine({u"", u"b"}), u",b\r\n");
  EXPECT_EQ(CsvLine({u"a,b", u"say \"no\"", u"two\r\nlines", u"one\rtwo"}),
            u"\"a,b\",\"say \"\"no\"\"\",\"two\r\nlines\",\"one\rtwo\"\r\n");
  EXPECT_EQ(CsvLine({u" blank ", u"ｱ"}), u" blank ,ｱ\r\n");
}

/// A loop of the items 04 and 06.
class RecordingTest : public testing::Test {
 protected:
  RecordingTest() { watch.Begin(); }
  void Read(int row, const String& text, const String& unit = u"V", bool answered = true) {
    const WatchReading reading{.row = row,
                               .item = row == 4 ? u"04" : u"06",
                               .caption = row == 4 ? u"入力値" : u"出力値",
                               .text = text,
                               .unit = unit,
                               .answered = answered};
    recording.Take(reading);
    watch.Take(reading, loop.Now());
  }
  void EndTurn() { recording.EndTurn(watch.Values(), Language::Japanese); }
  void Turn(const String& first, const String& second) {
    Read(4, first);
    Read(6, second, u"%");
    EndTurn();
  }
  void PassTime(Clock time) { loop.RunFor(time); }
  /// The lines of the file, as text.
  [[nodiscard]] std::string Written() const { return ToUtf8(code_page.Decode(records.Bytes(kPath))); }

  const std::string head = "日付,時間 (秒),04 入力値,単位,06 出力値,単位\r\n";
  VirtualEventLoop loop;
  NativeCodePage code_page;
  MemoryRecords records{loop};
  Watch watch;
  Recording recording{loop, code_page};
};

TEST_F(RecordingTest, WritesALineForEachTurnWithTimeValuesAndUnits) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  EXPECT_EQ(Written(), "");
  PassTime(2s);
  Turn(u"1.0", u"50.0");
  EXPECT_EQ(Written(), head) << "the values are known; a turn that had begun before is not whole";
  PassTime(1340ms);
  Turn(u"1.5", u"50.1");
  PassTime(59s);
  Turn(u"2.0", u"50.2");
  EXPECT_EQ(Written(), head +
                           "2024-02-29 09:00:03,1.340,1.5,V,50.1,%\r\n"
                           "2024-02-29 09:01:02,60.340,2.0,V,50.2,%\r\n");
}

TEST_F(RecordingTest, IsWrittenInCodePage932AsTheOtherFilesAre) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  Turn(u"1.0", u"50.0");
  EXPECT_TRUE(records.Bytes(kPath).starts_with("\x93\xfa\x95\x74,"));
}

TEST_F(RecordingTest, ATurnThatHadBegunIsLeftOut) {
  Read(4, u"1.0");
  Read(6, u"2.0");
  EndTurn();
  Read(4, u"3.0");
  ASSERT_TRUE(recording.Begin(records, kPath));
  Read(6, u"4.0");
  EndTurn();
  EXPECT_EQ(Written(), head);
  Turn(u"5.0", u"6.0");
  EXPECT_EQ(Written(), head + "2024-02-29 09:00:00,0.000,5.0,V,6.0,%\r\n");
}

TEST_F(RecordingTest, WhatDidNotAnswerIsAnEmptyCellAndNeverTheOldValue) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  Turn(u"1.0", u"50.0");
  Read(4, {}, u"V", false);
  Read(6, {}, u"%", true);
  EndTurn();
  Turn(u"2.0", u"50.5");
  Read(6, u"51.0", u"%");  // 04 is read no more
  EndTurn();
  EXPECT_EQ(Written(), head +
                           "2024-02-29 09:00:00,0.000,,,,\r\n"
                           "2024-02-29 09:00:00,0.000,2.0,V,50.5,%\r\n"
                           "2024-02-29 09:00:00,0.000,,,51.0,%\r\n");
}

TEST_F(RecordingTest, AStatusWordAndAnotherUnitAreWrittenAsTheyAre) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  Turn(u"1.0", u"50.0");
  Read(4, u"OPEN,1", u"deg F");
  Read(6, u"50.0", u"%");
  EndTurn();
  EXPECT_EQ(Written(), head + "2024-02-29 09:00:00,0.000,\"OPEN,1\",deg F,50.0,%\r\n");
}

TEST_F(RecordingTest, ACharacterThatTheCodePageLacksIsAQuestionMark) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  Turn(u"1.0", u"50.0");
  Turn(u"1\uFFFD5", u"50.0");
  EXPECT_EQ(Written(), head + "2024-02-29 09:00:00,0.000,1?5,V,50.0,%\r\n");
}

TEST_F(RecordingTest, AFileThatCantBeMadeIsToldAndNothingRuns) {
  records.FailCreation(Fault::NotPermitted);
  EXPECT_FALSE(recording.Begin(records, kPath));
  EXPECT_FALSE(recording.Runs());
  EXPECT_EQ(recording.Problem(), ReasonText(MemoryFiles::ReasonOf(Fault::NotPermitted)));
  Turn(u"1.0", u"50.0");
  EXPECT_FALSE(records.Has(kPath));
  records.FailCreation(Fault::None);
  EXPECT_TRUE(recording.Begin(records, kPath));
  EXPECT_EQ(recording.Problem(), u"");
}

TEST_F(RecordingTest, AFailedWriteEndsItAndKeepsWhatWasRecorded) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  Turn(u"1.0", u"50.0");
  Turn(u"1.0", u"50.0");
  const std::string before = Written();
  records.FailWrites(Fault::DiskFull);
  Turn(u"1.1", u"50.0");
  EXPECT_FALSE(recording.Runs());
  EXPECT_EQ(records.Open(), 0) << "the file is closed";
  EXPECT_EQ(recording.Problem(), ReasonText(MemoryFiles::ReasonOf(Fault::DiskFull)));
  records.FailWrites(Fault::None);
  Turn(u"1.2", u"50.0");
  EXPECT_EQ(Written(), before);
}

TEST_F(RecordingTest, EndsWhenItIsToldTo) {
  ASSERT_TRUE(recording.Begin(records, kPath));
  EXPECT_EQ(recording.Path(), kPath);
  Turn(u"1.0", u"50.0");
  recording.End();
  EXPECT_EQ(records.Open(), 0);
  Turn(u"1.1", u"50.0");
  EXPECT_EQ(Written(), head);
  EXPECT_EQ(recording.Problem(), u"");
}

TEST_F(RecordingTest, BringsTheRecordToTheDiskWhenItEndsAndNoLineWaitsForThat) {
  recording.Begin(records, kPath);
  Turn(u"1", u"2");
  Turn(u"3", u"4");
  EXPECT_EQ(records.Kept(), "");
  recording.End();
  EXPECT_EQ(records.Kept(), records.Bytes(kPath));
  EXPECT_NE(records.Kept(), "");
  EXPECT_EQ(recording.Problem(), u"");
}

TEST_F(RecordingTest, TellsARecordThatDidNotReachTheDisk) {
  recording.Begin(records, kPath);
  Turn(u"1", u"2");
  records.FailKeeping(Fault::DiskFull);
  recording.End();
  EXPECT_FALSE(recording.Runs());
  EXPECT_NE(recording.Problem(), u"");
}

}  // namespace
}  // namespace korva::test
