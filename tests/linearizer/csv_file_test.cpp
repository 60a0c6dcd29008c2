#include "linearizer/csv_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "core/text_utilities.h"
#include "csv_cases.h"
#include "linearizer/lnr_table.h"
#include "platform/native/native_code_page.h"
#include "support/memory_files.h"

namespace korva {
namespace {

using namespace std::string_literals;

constexpr int kTableHandle = 4;
constexpr std::size_t kMegabyte = 1024UL * 1024UL;
const std::string kNoText = "no text";

const CsvFamily& FamilyOf(StringView word) { return EntryOf(word).record.csv.Value(); }

class CsvFileTest : public testing::Test {
 protected:
  std::optional<CsvTable> Read(StringView family, const std::string& bytes, int limit) {
    files_.Put(u"table.csv", bytes);
    SystemReason reason;
    EXPECT_TRUE(lines_.TryOpenTextFile(u"table.csv", kTableHandle, reason));
    std::optional<CsvTable> table = ReadCsv(lines_, kTableHandle, FamilyOf(family).reader, limit);
    lines_.CloseTextFile(kTableHandle);
    return table;
  }
  /// The points read, as "X,Y" with a bar between them.
  std::string Points(StringView family, const std::string& bytes, int limit = kLnrLongPoints) {
    const std::optional<CsvTable> table = Read(family, bytes, limit);
    if (!table) {
      return kNoText;
    }
    String text;
    for (const CsvPoint& point : table->points) {
      text.append(text.empty() ? u"" : u"|").append(point.x).append(u",").append(point.y);
    }
    return ToUtf8(text);
  }

  test::MemoryFiles files_;
  NativeCodePage code_page_;
  SharedState shared_;
  LineReader lines_{files_, code_page_, shared_};
};

/// A file, and the points that each of the five readers takes from it.
struct ReadFile {
  std::string name;
  std::string bytes;
  std::string by_lines;  ///< First, Third, QXI, LiteThird
  std::string lite;
  std::string lite_second;
  std::string lite_forth;
  std::string lite_fifth;
  std::optional<String> size = {};  ///< told by LiteSecond's
};

ReadFile AllAlike(const std::string& name, const std::string& bytes, const std::string& points) {
  return {.name = name,
          .bytes = bytes,
          .by_lines = points,
          .lite = points,
          .lite_second = points,
          .lite_forth = points,
          .lite_fifth = points};
}

class CsvReadersTest : public CsvFileTest, public testing::WithParamInterface<ReadFile> {};

TEST_P(CsvReadersTest, TakeTheirPoints) {
  const ReadFile& file = GetParam();
  for (const char16_t* family : {u"First", u"Third", u"QXI", u"LiteThird"}) {
    EXPECT_EQ(Points(family, file.bytes), file.by_lines) << ToUtf8(family);
  }
  EXPECT_EQ(Points(u"Lite", file.bytes), file.lite);
  EXPECT_EQ(Points(u"LiteSecond", file.bytes), file.lite_second);
  EXPECT_EQ(Points(u"LiteForth", file.bytes), file.lite_forth);
  EXPECT_EQ(Points(u"LiteFifth", file.bytes), file.lite_fifth);
}

TEST_P(CsvReadersTest, TellTheSizeOnLiteSecondAndOfUserTablesOnly) {
  const std::set<StringView> tell = {u"LiteSecond", u"LiteUniv", u"Nano"};
  for (const test::CsvCase& family : test::CsvCases()) {
    const auto table = Read(family.family, GetParam().bytes, kLnrLongPoints);
    const auto size = table ? table->heads.size : std::nullopt;
    EXPECT_EQ(size, tell.contains(family.family) ? GetParam().size : std::nullopt) << ToUtf8(family.family);
  }
}

const std::array kFiles = {
    AllAlike("AnEmptyFile", "", ""),
    ReadFile{.name = "BlankLinesOnly",
             .bytes = "\r\n\r\n",
             .by_lines = ",|,",
             .lite = ",|,",
             .lite_second = ",",
             .lite_forth = "",
             .lite_fifth = ""},
    ReadFile{.name = "AHeadLineOfSizeFiveWrittenByLiteSecond",
             .bytes = "Size, 5 \r\n0,0\r\n25.00,20.00\r\n50.00,45.00\r\n75.00,80.00\r\n100.00,100.00\r\n",
             .by_lines = "Size,5|0,0|25.00,20.00|50.00,45.00|75.00,80.00|100.00,100.00",
             .lite = "0,0|25.00,20.00|50.00,45.00|75.00,80.00|100.00,100.00",
             .lite_second = "0,0|25.00,20.00|50.00,45.00|75.00,80.00|100.00,100.00",
             .lite_forth = "Size,5|0,0|25.00,20.00|50.00,45.00|75.00,80.00|100.00,100.00",
             .lite_fifth = "0,0|25.00,20.00|50.00,45.00|75.00,80.00|100.00,100.00",
             .size = u"5"},
    ReadFile{.name = "AHeadLineOnly",
             .bytes = "Size, 0 \r\n",
             .by_lines = "Size,0",
             .lite = "",
             .lite_second = "",
             .lite_forth = "Size,0",
             .lite_fifth = "",
             .size = u"0"},
    ReadFile{.name = "AHeadLineWithoutANumber",
             .bytes = "Size\r\n1,2\r\n",
             .by_lines = "Size,|1,2",
             .lite = "1,2",
             .lite_second = "1,2",
             .lite_forth = "Size,|1,2",
             .lite_fifth = "1,2",
             .size = u""},
    ReadFile{.name = "TwoHeadLines",
             .bytes = "Size, 2 \r\nSize, 3 \r\n0,0\r\n50,60\r\n",
             .by_lines = "Size,2|Size,3|0,0|50,60",
             .lite = "Size,3|0,0|50,60",
             .lite_second = "0,0|50.00,60.00",
             .lite_forth = "Size,2|Size,3|0,0|50,60",
             .lite_fifth = "0,0|50,60",
             .size = u"3"},
    ReadFile{.name = "AHeadLineBehindAPoint",
             .bytes = "0,0\r\nSize,2\r\n50,60\r\n",
             .by_lines = "0,0|Size,2|50,60",
             .lite = "0,0|Size,2|50,60",
             .lite_second = "0,0|Size,2.00|50.00,60.00",
             .lite_forth = "0,0|Size,2|50,60",
             .lite_fifth = "0,0|50,60"},
    ReadFile{.name = "AHeadLineKnownByItsFirstThreeLettersBehindBlanksAndQuotes",
             .bytes = "\t \"Sizing\" , \"7\"\r\n1,2\r\n",
             .by_lines = "Sizing,7|1,2",
             .lite = "1,2",
             .lite_second = "1,2",
             .lite_forth = "Sizing,7|1,2",
             .lite_fifth = "1,2",
             .size = u"7"},
    ReadFile{.name = "WordsThatAreNoHeadLine",
             .bytes = "Si,1\r\nSIZE,2\r\nASize,3\r\n",
             .by_lines = "Si,1|SIZE,2|ASize,3",
             .lite = "Si,1|SIZE,2|ASize,3",
             .lite_second = "Si,1|SIZE,2.00|ASize,3.00",
             .lite_forth = "Si,1|SIZE,2|ASize,3",
             .lite_fifth = ""},
    ReadFile{.name = "ARowWithAnEmptyXInTheMiddle",
             .bytes = "0,0\r\n,10\r\n50,60\r\n",
             .by_lines = "0,0|,10|50,60",
             .lite = "0,0|,10|50,60",
             .lite_second = "0,0",
             .lite_forth = "0,0",
             .lite_fifth = "0,0"},
    ReadFile{.name = "ARowOfBlanksInTheMiddle",
             .bytes = "0,0\r\n \t \r\n50,60\r\n",
             .by_lines = "0,0|,|50,60",
             .lite = "0,0|,|50,60",
             .lite_second = "0,0",
             .lite_forth = "0,0",
             .lite_fifth = "0,0"},
    ReadFile{.name = "AnEmptyXInTheFirstRow",
             .bytes = ",10\r\n50,60\r\n",
             .by_lines = ",10|50,60",
             .lite = ",10|50,60",
             .lite_second = ",10|50.00,60.00",
             .lite_forth = "",
             .lite_fifth = ""},
    ReadFile{.name = "AnEmptyXBehindTheHeadLine",
             .bytes = "Size, 2 \r\n,10\r\n50,60\r\n",
             .by_lines = "Size,2|,10|50,60",
             .lite = ",10|50,60",
             .lite_second = ",10|50.00,60.00",
             .lite_forth = "Size,2",
             .lite_fifth = "",
             .size = u"2"},
    ReadFile{.name = "OneFieldOnly",
             .bytes = "0\r\n50\r\n75,\r\n",
             .by_lines = "0,|50,|75,",
             .lite = "0,|50,|75,",
             .lite_second = "0,|50.00,|75.00,",
             .lite_forth = "0,|50,|75,",
             .lite_fifth = "0,|50,|75,"},
    AllAlike("ThreeFields", "0,1,2\r\n50.00,60.00,70.00,,\r\n", "0,1|50.00,60.00"),
    AllAlike("Quotes", "\"0\",\"1\"\r\n\"50.00\" , \"60.00\"\r\n", "0,1|50.00,60.00"),
    ReadFile{.name = "AQuoteInsideAField",
             .bytes = "5\"0,6\"0\r\n7\"0,80\r\n",
             .by_lines = R"(5"0,6"0|7"0,80)",
             .lite = R"(5"0,6"0|7"0,80)",
             .lite_second = R"(5"0,6"0|7"0,80.00)",
             .lite_forth = R"(5"0,6"0|7"0,80)",
             .lite_fifth = ""},
    AllAlike("BlanksAndTabs", "  0\t,\t1  \r\n\t50.00 \t, \t60.00\t\r\n", "0,1|50.00,60.00"),
    AllAlike("LinesEndedByLf", "0,1\n50.00,60.00\n", "0,1|50.00,60.00"),
    AllAlike("LinesEndedByCr", "0,1\r50.00,60.00\r", "0,1|50.00,60.00"),
    AllAlike("LinesEndedByCrLf", "0,1\r\n50.00,60.00\r\n", "0,1|50.00,60.00"),
    AllAlike("NoEndOfTheLastLine", "0,1\r\n50.00,60.00", "0,1|50.00,60.00"),
    ReadFile{.name = "DigitsOfTheFirstPointAndTwoDecimalsOfTheOthers",
             .bytes = "0.1259,1\r\n0.1259,0.125\r\n-7,-0.125\r\n1e2,.5\r\n+3,-0.001\r\n",
             .by_lines = "0.1259,1|0.1259,0.125|-7,-0.125|1e2,.5|+3,-0.001",
             .lite = "0.1259,1|0.1259,0.125|-7,-0.125|1e2,.5|+3,-0.001",
             .lite_second = "0.1259,1|0.13,0.13|-7.00,-0.13|100.00,0.50|3.00,0.00",
             .lite_forth = "0.1259,1|0.1259,0.125|-7,-0.125|1e2,.5|+3,-0.001",
             .lite_fifth = "0.1259,1|0.1259,0.125|-7,-0.125|1e2,.5|+3,-0.001"},
    ReadFile{.name = "TextStaysText",
             .bytes = "x,y\r\n10 %,5\r\n20,1.2.3\r\n&H30,-\r\n",
             .by_lines = "x,y|10 %,5|20,1.2.3|&H30,-",
             .lite = "x,y|10 %,5|20,1.2.3|&H30,-",
             .lite_second = "x,y|10 %,5.00|20.00,1.2.3|&H30,-",
             .lite_forth = "x,y|10 %,5|20,1.2.3|&H30,-",
             .lite_fifth = "20,1.2.3"},
    ReadFile{.name = "HalfWidthKanaAndKanjiAreText",
             .bytes = "\xB1\xB2,\xC3\r\n50,\x95\x5C\r\n",
             .by_lines = "ｱｲ,ﾃ|50,表",
             .lite = "ｱｲ,ﾃ|50,表",
             .lite_second = "ｱｲ,ﾃ|50.00,表",
             .lite_forth = "ｱｲ,ﾃ|50,表",
             .lite_fifth = "50,表"},
    AllAlike("ANulByteInAField", "0,0\r\n50,6\0000\r\n"s, kNoText),
    AllAlike("ANulByteAtTheEndOfTheFile", "0,0\r\n\0"s, kNoText),
    AllAlike("ANulByteBehindTheFields", "0,0,\0\r\n"s, kNoText),
    AllAlike("ANulByteInTheHeadLine", "Size,\0005\r\n0,0\r\n"s, kNoText),
    AllAlike("ABrokenCharacter", "0,\x81\r\n50,60\r\n", kNoText),
    AllAlike("ABrokenCharacterInALineThatIsNoPoint", "# \x81\r\n50,60\r\n", kNoText),
    AllAlike("TheMarkOfAnotherTextFormat",
             "\xEF\xBB\xBF"
             "0,0\r\n50,60\r\n",
             kNoText),
    AllAlike("TwoBytesForEachCharacter",
             "\xFF\xFE"
             "0\0,\0000\0\r\0\n\0"s,
             kNoText),
};

INSTANTIATE_TEST_SUITE_P(Edges, CsvReadersTest, testing::ValuesIn(kFiles),
                         [](const auto& instance) { return instance.param.name; });

TEST_F(CsvFileTest, WhatLiesBehindTheTableIsNotLookedAt) {
  for (const char16_t* family : {u"LiteSecond", u"LiteForth", u"LiteFifth"}) {
    EXPECT_EQ(Points(family, "0,1\r\n,\r\n\0\0"s), "0,1") << ToUtf8(family);
  }
  for (const test::CsvCase& family : test::CsvCases()) {
    EXPECT_EQ(Points(family.family, "0,1\r\n\0\0"s, 1), "0,1") << ToUtf8(family.family);
  }
}

TEST_F(CsvFileTest, ALineOfAMegabyteIsReadAsItStands) {
  const std::string word(kMegabyte, 'x');
  for (const test::CsvCase& family : test::CsvCases()) {
    EXPECT_EQ(Points(family.family, "0," + word + "\r\n50.00,60.00\r\n"), "0," + word + "|50.00,60.00");
    EXPECT_EQ(Points(family.family, "0,1" + std::string(kMegabyte, ',') + "\r\n50.00,60.00"),
              "0,1|50.00,60.00");
  }
}

/// The points k,k+0.50 for k = 1 up to `points`, each on a line.
std::string FinelyNumbered(int points) {
  std::string bytes;
  for (int k = 1; k <= points; ++k) {
    bytes += std::to_string(k) + ".00," + std::to_string(k) + ".50\r\n";
  }
  return bytes;
}

TEST_F(CsvFileTest, PointsUpToTheTablesAreReadAndTheRestIsIgnored) {
  for (const test::CsvCase& family : test::CsvCases()) {
    for (const int limit : {kLnrShortPoints, kLnrLongPoints}) {
      for (const int points : {limit - 1, limit, limit + 1, limit + 4}) {
        const auto table = Read(family.family, FinelyNumbered(points), limit);
        ASSERT_TRUE(table);
        ASSERT_EQ(table->points.size(), static_cast<std::size_t>(std::min(points, limit)))
            << ToUtf8(family.family) << " " << points;
        const String last = Ascii(std::to_string(std::min(points, limit)));
        EXPECT_EQ(table->points.back(), (CsvPoint{.x = last + u".00", .y = last + u".50"}));
        EXPECT_EQ(table->points.front(), (CsvPoint{.x = u"1.00", .y = u"1.50"}));
      }
    }
  }
}

TEST_F(CsvFileTest, LinesThatAreNoPointTakeNoPlaceOfTheTable) {
  for (const char16_t* family : {u"Lite", u"LiteSecond", u"LiteFifth"}) {
    const auto table = Read(family, "Size, 16 \r\n" + FinelyNumbered(17), kLnrShortPoints);
    ASSERT_EQ(table->points.size(), 16U) << ToUtf8(family);
    EXPECT_EQ(table->points.back().x, u"16.00");
  }
  for (const char16_t* family : {u"First", u"LiteForth"}) {
    const auto table = Read(family, "Size, 16 \r\n" + FinelyNumbered(17), kLnrShortPoints);
    ASSERT_EQ(table->points.size(), 16U) << ToUtf8(family);
    EXPECT_EQ(table->points.back().x, u"15.00");
  }
  std::string commented;
  for (int k = 1; k <= 20; ++k) {
    commented += "# point\r\n" + std::to_string(k) + ",0\r\n";
  }
  EXPECT_EQ(Read(u"LiteFifth", commented, kLnrShortPoints)->points.back().x, u"16");
}

TEST_F(CsvFileTest, ReadsAgainFromTheBeginningAndHeedsNoLineThatWasPushedBackBefore) {
  EXPECT_EQ(Points(u"Lite", "Size, 1 \r\n1,2\r\n"), "1,2");
  lines_.UnreadLine(u"9,9");
  EXPECT_EQ(Points(u"Lite", "Size, 1 \r\n1,2\r\n"), "1,2");
}

TEST(CsvFamilies, AllButSecondHaveTableFiles) {
  for (const RegistryEntry& entry : Registry()) {
    EXPECT_EQ(entry.record.csv.Has(), entry.record.family.word != u"Second")
        << ToUtf8(entry.record.family.word);
  }
}

TEST(CsvFamilies, SomeSaveOneTellsTheSizeAndTwoDropAnOpenEdit) {
  std::set<StringView> save;
  std::set<StringView> tell;
  std::set<StringView> drop;
  for (const test::CsvCase& family : test::CsvCases()) {
    const auto note = [&](std::set<StringView>& words, bool column) {
      if (column) {
        words.insert(family.family);
      }
    };
    note(save, family.csv.saves);
    note(tell, family.csv.writes_size);
    note(drop, family.csv.cancels_edit);
  }
  EXPECT_EQ(save,
            (std::set<StringView>{u"Third", u"Lite", u"LiteSecond", u"LiteForth", u"LiteFifth", u"Nano"}));
  EXPECT_EQ(tell, (std::set<StringView>{u"LiteSecond"}));
  EXPECT_EQ(drop, (std::set<StringView>{u"LiteForth", u"LiteFifth"}));
}

}  // namespace
}  // namespace korva
