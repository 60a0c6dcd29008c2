#include "core/line_reader.h"

#include <gtest/gtest.h>

#include "platform/event_gate.h"
#include "platform/native/native_code_page.h"
#include "support/memory_files.h"

namespace korva {
namespace {

class LineReaderTest : public testing::Test {
 protected:
  void Open(std::string_view bytes) {
    files_.Put(u"a.def", bytes);
    lines_.OpenTextFile(u"a.def", 3);
  }
  std::vector<String> AllLines(std::string_view bytes) {
    Open(bytes);
    std::vector<String> all;
    while (!lines_.AtEnd(3)) {
      all.push_back(lines_.ReadLine(3));
    }
    return all;
  }
  /// Text of the failure that reading one more line ends in; empty when it doesn't.
  String FailureOfReading(int handle) {
    try {
      lines_.ReadLine(handle);
    } catch (const RuntimeFailure& failure) {
      return failure.Text();
    }
    return {};
  }

  test::MemoryFiles files_;
  NativeCodePage code_page_;
  SharedState shared_;
  LineReader lines_{files_, code_page_, shared_};
};

TEST(TrimLine, StripsTabsBlanksAndQuotesFromBothEnds) {
  EXPECT_EQ(TrimLine(u"\t \"a\" \t"), u"a");
  EXPECT_EQ(TrimLine(u"\"a\" b"), u"a\" b");
  EXPECT_EQ(TrimLine(u"a \t\" b"), u"a \t\" b");
}

TEST(TrimLine, StopsAtAnEmptyText) {
  EXPECT_EQ(TrimLine(u" \t\"\" "), u"");
  EXPECT_EQ(TrimLine(u""), u"");
}

TEST_F(LineReaderTest, SplitsAtCrLfLoneLfAndLoneCr) {
  EXPECT_EQ(AllLines("a\r\nb\nc\rd\r\n"), (std::vector<String>{u"a", u"b", u"c", u"d"}));
  EXPECT_EQ(AllLines("a\n\rb"), (std::vector<String>{u"a", u"", u"b"}));
  EXPECT_EQ(AllLines("\r\n\r\n"), (std::vector<String>{u"", u""}));
}

TEST_F(LineReaderTest, TakesALastLineWithoutALineEnd) {
  EXPECT_EQ(AllLines("a\r\nb"), (std::vector<String>{u"a", u"b"}));
  EXPECT_EQ(AllLines("a"), std::vector<String>{u"a"});
}

TEST_F(LineReaderTest, FindsNoLineInAnEmptyFile) { EXPECT_TRUE(AllLines("").empty()); }

TEST_F(LineReaderTest, TrimsEachLineAndKeepsItInTheSharedBuffer) {
  Open("\t\"$Data\" \r\n");
  EXPECT_EQ(lines_.ReadLine(3), u"$Data");
  EXPECT_EQ(shared_.LineBuffer, u"$Data");
}

TEST_F(LineReaderTest, ReadsTheCodePage) {
  EXPECT_EQ(AllLines("\x8B\x40\x8E\xED\x96\xBC,\xCC\xA7\xB2\xD9\r\n"), std::vector<String>{u"機種名,ﾌｧｲﾙ"});
}

TEST_F(LineReaderTest, KeepsNulBytesAndBrokenSequencesAsCharacters) {
  EXPECT_EQ(AllLines(std::string_view("a\0b\r\n", 5)), std::vector<String>{String(u"a\0b", 3)});
  const std::vector<String> lines = AllLines("a\x8B\r\nb\r\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], u"a\uFFFD");
  EXPECT_EQ(lines[1], u"b");
}

TEST_F(LineReaderTest, ReadsALineOfAMegabyte) {
  const std::vector<String> lines = AllLines(std::string(1 << 20, 'x') + "\r\nend");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].size(), std::size_t{1} << 20);
  EXPECT_EQ(lines[1], u"end");
}

TEST_F(LineReaderTest, ReturnsAPushedBackLineOnceMore) {
  Open("a\r\nb\r\n");
  const String line = lines_.ReadLine(3);
  lines_.UnreadLine(line);
  EXPECT_TRUE(shared_.LinePushedBack);
  EXPECT_EQ(lines_.ReadLine(3), u"a");
  EXPECT_FALSE(shared_.LinePushedBack);
  EXPECT_EQ(lines_.ReadLine(3), u"b");
}

TEST_F(LineReaderTest, PushesBackATextOfTheCallersOwn) {
  Open("a\r\n");
  lines_.UnreadLine(u"$Memo");
  EXPECT_EQ(lines_.ReadLine(3), u"$Memo");
  EXPECT_EQ(shared_.LineBuffer, u"$Memo");
  EXPECT_EQ(lines_.ReadLine(3), u"a");
}

TEST_F(LineReaderTest, IsAtTheEndOnceTheLastLineWasReadEvenIfItWasPushedBack) {
  Open("a\r\nb\r\n");
  lines_.ReadLine(3);
  EXPECT_FALSE(lines_.AtEnd(3));
  lines_.UnreadLine(lines_.ReadLine(3));
  EXPECT_TRUE(lines_.AtEnd(3));
  EXPECT_EQ(lines_.ReadLine(3), u"b");
}

TEST_F(LineReaderTest, OpeningAndClosingForgetThePushedBackLine) {
  Open("a\r\n");
  lines_.UnreadLine(u"x");
  lines_.CloseTextFile(3);
  EXPECT_FALSE(shared_.LinePushedBack);
  lines_.UnreadLine(u"x");
  lines_.OpenTextFile(u"a.def", 3);
  EXPECT_EQ(lines_.ReadLine(3), u"a");
}

TEST_F(LineReaderTest, KeepsTheFilesOfTwoHandlesApart) {
  files_.Put(u"b.cfg", "1\r\n2\r\n");
  Open("a\r\nb\r\n");
  lines_.OpenTextFile(u"b.cfg", 2);
  EXPECT_EQ(lines_.ReadLine(2), u"1");
  EXPECT_EQ(lines_.ReadLine(3), u"a");
  lines_.CloseTextFile(3);
  EXPECT_TRUE(lines_.AtEnd(3));
  EXPECT_EQ(lines_.ReadLine(2), u"2");
}

TEST_F(LineReaderTest, OpeningAnOpenHandleReplacesItsFile) {
  files_.Put(u"b.def", "new\r\n");
  Open("a\r\nb\r\n");
  lines_.ReadLine(3);
  lines_.OpenTextFile(u"b.def", 3);
  EXPECT_EQ(lines_.ReadLine(3), u"new");
  EXPECT_TRUE(lines_.AtEnd(3));
}

TEST_F(LineReaderTest, HoldsAFileThatIsReplacedWhileItIsRead) {
  Open("a\r\nb\r\n");
  lines_.ReadLine(3);
  files_.Put(u"a.def", "x\r\n");
  EXPECT_EQ(lines_.ReadLine(3), u"b");
}

TEST_F(LineReaderTest, ReadsAFileOnceMoreFromItsBeginning) {
  Open("a\r\nb\r\n");
  lines_.ReadLine(3);
  lines_.UnreadLine(lines_.ReadLine(3));
  files_.Put(u"a.def", "x\r\n");
  lines_.Rewind(3);
  EXPECT_EQ(lines_.ReadLine(3), u"a");
  EXPECT_EQ(lines_.ReadLine(3), u"b");
  EXPECT_TRUE(lines_.AtEnd(3));
  lines_.Rewind(2);
  EXPECT_TRUE(lines_.AtEnd(2)) << "nothing is open there";
}

TEST_F(LineReaderTest, FailsOnAMissingFileWithItsNameAndTheSystemsReason) {
  try {
    lines_.OpenTextFile(u"system/missing.def", 3);
    FAIL() << "opened a missing file";
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(failure.Text().find(u"system/missing.def"), String::npos);
    EXPECT_NE(failure.Text().find(u"ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。"), String::npos);
  }
}

TEST_F(LineReaderTest, FailsAtTheEndOfTheFileWithItsNameAndTheLine) {
  Open("a\r\nb\r\n");
  lines_.ReadLine(3);
  lines_.ReadLine(3);
  const String text = FailureOfReading(3);
  EXPECT_NE(text.find(u"a.def"), String::npos);
  EXPECT_NE(text.find(u"3行目"), String::npos);
}

TEST_F(LineReaderTest, FailsOnAHandleThatIsNotOpen) { EXPECT_FALSE(FailureOfReading(2).empty()); }

TEST_F(LineReaderTest, TakesFieldsUpToTheNextComma) {
  const String line = u"01, \"Input type\" ,Y";
  EXPECT_EQ(lines_.NextField(1, line), 4);
  EXPECT_EQ(shared_.LineField, u"01");
  EXPECT_EQ(lines_.NextField(4, line), 19);
  EXPECT_EQ(lines_.Field(), u"Input type");
  EXPECT_EQ(lines_.NextField(19, line), -1);
  EXPECT_EQ(lines_.Field(), u"Y");
}

TEST_F(LineReaderTest, TakesAnEmptyFieldBehindAFinalComma) {
  EXPECT_EQ(lines_.NextField(1, u"a,"), 3);
  EXPECT_EQ(lines_.NextField(3, u"a,"), -1);
  EXPECT_EQ(shared_.LineField, u"");
}

TEST_F(LineReaderTest, GivesAnEmptyFieldOutsideTheLine) {
  for (const int position : {-1, 0, 4, 100}) {
    shared_.LineField = u"old";
    EXPECT_EQ(lines_.NextField(position, u"a,b"), -1) << position;
    EXPECT_EQ(shared_.LineField, u"") << position;
  }
  EXPECT_EQ(lines_.NextField(1, u""), -1);
}

TEST_F(LineReaderTest, KeepsAQuoteInsideAField) {
  lines_.NextField(1, u"\"a\" b");
  EXPECT_EQ(shared_.LineField, u"a\" b");
}

}  // namespace
}  // namespace korva
