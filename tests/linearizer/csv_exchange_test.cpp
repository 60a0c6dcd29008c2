// What is written into files, and what each family makes of the files of every other.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "core/text_utilities.h"
#include "csv_cases.h"
#include "linearizer/csv_file.h"
#include "linearizer/lnr_table.h"
#include "platform/native/native_code_page.h"
#include "support/memory_files.h"

namespace korva {
namespace {

constexpr int kHandle = 4;

class CsvTextTest : public testing::Test {
 protected:
  explicit CsvTextTest(int points = kLnrShortPoints) {
    grid_.Resize(points + 1, kLnrColumns);
    for (int row = 0; row <= points; ++row) {
      grid_.SetText(row, 0, u"number");
    }
    grid_.SetText(0, 1, u"X(k)");
    grid_.SetText(0, 2, u"Y(k)");
  }
  void Put(int row, const String& x, const String& y) {
    grid_.SetText(row, 1, x);
    grid_.SetText(row, 2, y);
  }
  [[nodiscard]] std::string Written(int limit, bool writes_size = false) const {
    return ToUtf8(CsvText(grid_, limit, writes_size));
  }

  Grid grid_{"LnrFlexGrid"};
};

TEST_F(CsvTextTest, WritesEachPointAsALine) {
  Put(1, u"0", u"0.5");
  Put(2, u"100.00", u"-15");
  EXPECT_EQ(Written(16), "0,0.5\r\n100.00,-15\r\n");
}

TEST_F(CsvTextTest, TheHeadLineHasABlankBeforeAndBehindTheNumberOfPoints) {
  Put(1, u"0", u"0");
  Put(2, u"50", u"60");
  Put(3, u"100", u"100");
  EXPECT_EQ(Written(16, true), "Size, 3 \r\n0,0\r\n50,60\r\n100,100\r\n");
}

TEST_F(CsvTextTest, AnEmptyTableIsAnEmptyFileOrASizeOfNone) {
  EXPECT_EQ(Written(16), "");
  EXPECT_EQ(Written(16, true), "Size, 0 \r\n");
}

TEST_F(CsvTextTest, ARowWithAnEmptyXEndsTheFileAndLaterRowsAreLost) {
  Put(1, u"0", u"0");
  Put(2, u"", u"60");
  Put(3, u"100", u"100");
  EXPECT_EQ(Written(16), "0,0\r\n");
  EXPECT_EQ(Written(16, true), "Size, 1 \r\n0,0\r\n");
}

TEST_F(CsvTextTest, TextsAreWrittenAsTheyStandAndAnEmptyYIsOne) {
  Put(1, u" 1.50 ", u"");
  Put(2, u"ﾃｽﾄ", u"1,2");
  Put(3, u" ", u"\"3\"");
  EXPECT_EQ(Written(16), " 1.50 ,\r\nﾃｽﾄ,1,2\r\n ,\"3\"\r\n");
}

TEST_F(CsvTextTest, EndsAtTheLimitAndAtTheGridsEdge) {
  std::string all;
  for (int row = 1; row <= kLnrShortPoints; ++row) {
    Put(row, Ascii(std::to_string(row)), u"7");
    all += std::to_string(row) + ",7\r\n";
  }
  EXPECT_EQ(Written(16), all);
  EXPECT_EQ(Written(17), all);
  EXPECT_EQ(Written(100, true), "Size, 16 \r\n" + all);
  EXPECT_EQ(Written(2), "1,7\r\n2,7\r\n");
  EXPECT_EQ(Written(2, true), "Size, 2 \r\n1,7\r\n2,7\r\n");
}

/// Points that a family's table may have.
std::vector<int> ShapesOf(StringView family) {
  static const std::map<StringView, std::vector<int>> shapes = {
      {u"First", {16, 100}}, {u"Third", {16}}, {u"LiteForth", {16}}};
  const auto found = shapes.find(family);
  return found == shapes.end() ? std::vector{100} : found->second;
}

/// What a family that reads, and one that writes, do to a file of one another.
class CsvExchangeTest : public CsvTextTest {
 protected:
  CsvExchangeTest() : CsvTextTest(kLnrLongPoints) { Fill(); }
  void Fill() {
    for (int row = 1; row <= kLnrLongPoints; ++row) {
      Put(row, Ascii(std::to_string(row - 10)) + u".25", Ascii(std::to_string(3 * row)) + u".50");
    }
  }
  /// The points that `family` reads from the file.
  static std::vector<CsvPoint> Read(const CsvFamily& family, const String& text, int limit) {
    const NativeCodePage code_page;
    test::MemoryFiles files;
    SharedState shared;
    LineReader lines(files, code_page, shared);
    files.Put(u"table.csv", code_page.Encode(text).value());
    lines.OpenTextFile(u"table.csv", kHandle);
    return ReadCsv(lines, kHandle, family.reader, limit).value().points;
  }
  /// The first `points` of the grid.
  [[nodiscard]] std::vector<CsvPoint> Points(int points) const {
    std::vector<CsvPoint> all;
    for (int row = 1; row <= points; ++row) {
      all.push_back({.x = grid_.At(row, 1).text, .y = grid_.At(row, 2).text});
    }
    return all;
  }
};

TEST_F(CsvExchangeTest, WhatAnyFamilyWritesEachFamilyReadsBackTheSame) {
  // The others take a head line as their first point.
  const std::set<StringView> know_size = {u"Lite", u"LiteSecond", u"LiteFifth", u"LiteUniv", u"Nano"};
  for (const test::CsvCase& writer : test::CsvCases()) {
    for (const int written : ShapesOf(writer.family)) {
      const String text = CsvText(grid_, written, writer.csv.writes_size);
      for (const test::CsvCase& reader : test::CsvCases()) {
        const bool head = writer.family == u"LiteSecond" && !know_size.contains(reader.family);
        for (const int limit : ShapesOf(reader.family)) {
          std::vector<CsvPoint> expected = Points(std::min(written, head ? limit - 1 : limit));
          if (head) {
            expected.insert(expected.begin(), CsvPoint{.x = u"Size", .y = u"100"});
          }
          EXPECT_EQ(Read(reader.csv, text, limit), expected)
              << ToUtf8(writer.family) << " " << written << " to " << ToUtf8(reader.family) << " " << limit;
        }
      }
    }
  }
}

TEST_F(CsvExchangeTest, ATableOfAnyLengthComesBackInItsOwnFamily) {
  for (const test::CsvCase& family : test::CsvCases()) {
    for (const int limit : ShapesOf(family.family)) {
      Fill();
      for (const int points : {limit, limit - 1, 2, 1, 0}) {
        if (points < limit) {
          Put(points + 1, u"", u"1.00");
        }
        EXPECT_EQ(Read(family.csv, CsvText(grid_, limit, family.csv.writes_size), limit), Points(points))
            << ToUtf8(family.family) << " " << points;
      }
    }
  }
}

}  // namespace
}  // namespace korva
