#include "cli/script_lines.h"

#include <gtest/gtest.h>

#include <vector>

namespace korva::cli {
namespace {

std::vector<std::string> AllOf(ScriptLines& lines) {
  std::vector<std::string> all;
  while (const std::optional<std::string> line = lines.Next()) {
    all.push_back(*line);
  }
  return all;
}

using Lines = std::vector<std::string>;

TEST(ScriptLines, GiveALineAsSoonAsItIsComplete) {
  ScriptLines lines;
  lines.Feed("sta");
  EXPECT_EQ(lines.Next(), std::nullopt);
  lines.Feed("rt\nwa");
  EXPECT_EQ(lines.Next(), "start");
  EXPECT_EQ(lines.Next(), std::nullopt);
  lines.Feed("it 5\n");
  EXPECT_EQ(lines.Next(), "wait 5");
}

TEST(ScriptLines, GiveTheLastLineWithoutALineEndWhenTheScriptEnds) {
  ScriptLines lines;
  lines.Feed("start\nclose");
  EXPECT_EQ(AllOf(lines), Lines{"start"});
  lines.Close();
  EXPECT_EQ(AllOf(lines), Lines{"close"});
  EXPECT_EQ(AllOf(lines), Lines{});
}

TEST(ScriptLines, OfAnEmptyScriptAreNone) {
  ScriptLines lines;
  lines.Close();
  EXPECT_EQ(AllOf(lines), Lines{});
}

TEST(ScriptLines, KeepEmptyLinesSoThatTheyCount) {
  ScriptLines lines;
  lines.Feed("\n\nstart\n");
  EXPECT_EQ(AllOf(lines), (Lines{"", "", "start"}));
}

TEST(ScriptLines, LoseTheCarriageReturnOfACrLf) {
  ScriptLines lines;
  lines.Feed("start\r\nclose\r");
  lines.Close();
  EXPECT_EQ(AllOf(lines), (Lines{"start", "close"}));
}

TEST(ScriptLines, KeepOfALineThatIsTooLongNoMoreThanTellsThatItIs) {
  ScriptLines lines;
  lines.Feed("start\n\xEF\xBB\xBF");
  EXPECT_EQ(lines.Next(), "start");
  for (int mebibyte = 0; mebibyte < 100; ++mebibyte) {
    lines.Feed(std::string(1 << 20, '\r'));
  }
  EXPECT_EQ(lines.Next(), std::nullopt);
  lines.Feed("\nclose\n");
  const std::size_t length = lines.Next().value().size();
  EXPECT_GT(length, ScriptLines::kMostBytes);
  EXPECT_LT(length, ScriptLines::kMostBytes + 100);
  EXPECT_EQ(lines.Next(), "close");
}

TEST(ScriptLines, OfTheGreatestLengthAreWholeWhateverTheirEnd) {
  const std::string longest(ScriptLines::kMostBytes, 'x');
  for (const char* end : {"\n", "\r\n"}) {
    ScriptLines lines;
    lines.Feed("\xEF\xBB\xBF" + longest);
    lines.Feed(end);
    EXPECT_EQ(lines.Next(), longest);
  }
}

TEST(ScriptLines, LoseAByteOrderMarkAtTheBeginningOnly) {
  ScriptLines lines;
  lines.Feed("\xEF\xBB");
  lines.Feed(
      "\xBFstart\n\xEF\xBB\xBF"
      "close\n");
  EXPECT_EQ(AllOf(lines), (Lines{"start",
                                 "\xEF\xBB\xBF"
                                 "close"}));
}

}  // namespace
}  // namespace korva::cli
