#include "linearizer/lnr_check.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "linearizer/lnr_family.h"
#include "pages/registry.h"

namespace korva {
namespace {

using Place = std::pair<int, int>;  // row, column

struct CellText {
  String text;
  String value;
};

TEST(ValueFromLnrCell, TakesTheNumberThatATextBeginsWithAndLeavesAnyOtherTextWhole) {
  for (const CellText& cell :
       {CellText{u"", u""}, CellText{u"   ", u""}, CellText{u"12.5", u"12.5"}, CellText{u"12.5%", u"12.5"},
        CellText{u"-3.0 mA", u"-3.0"}, CellText{u"+7x", u"+7"}, CellText{u"1.5.2", u"1.5"},
        CellText{u" 8 ", u"8"}, CellText{u"Size", u"Size"}, CellText{u"-", u"-"}, CellText{u"-x1", u"-x1"},
        CellText{u".5", u".5"}, CellText{u"--5", u"--5"}}) {
    EXPECT_EQ(ValueFromLnrCell(cell.text), cell.value) << ToUtf8(cell.text);
  }
}

class LnrCheckTest : public testing::Test {
 protected:
  void SetUpPoints(int points) { table_.SetUp(points); }
  /// Fills points from `first` on.
  void Fill(const std::vector<std::pair<String, String>>& points, int first = 1) {
    int row = first;
    for (const auto& [x, y] : points) {
      table_.Store(row, 1, x);
      table_.Store(row, 2, y);
      ++row;
    }
  }
  std::vector<Place> Marked() {
    std::vector<Place> marked;
    for (int row = 1; row < grid_.Rows(); ++row) {
      for (int column = 1; column <= 2; ++column) {
        if (grid_.At(row, column).look == Look::Bad) {
          marked.emplace_back(row, column);
        }
      }
    }
    return marked;
  }
  bool CheckCurve() {
    return CheckLnrCurve(table_, {.low = -15, .high = 115}, {.low = -15, .high = 115}, bar_);
  }
  /// The bad cells under the check of a curve; none when it passes.
  std::vector<Place> BadInCurve() {
    const bool good = CheckCurve();
    EXPECT_EQ(good, Marked().empty());
    return Marked();
  }
  std::vector<Place> BadInRange() {
    const bool good = CheckLnrRange(table_);
    EXPECT_EQ(good, Marked().empty());
    return Marked();
  }

  ParameterSet set_{4};
  Grid grid_{"LnrFlexGrid"};
  LnrTable table_{set_, grid_, {u"k", u"X(k)", u"Y(k)"}};
  ProgressBar bar_{"LnrProgressBar"};
};

using Places = std::vector<Place>;

// The check of families First and Third.

TEST_F(LnrCheckTest, AValueOf299_9PassesAnd300Fails) {
  SetUpPoints(16);
  Fill({{u"299.9", u"-299.9"}, {u"300", u"0"}, {u"0", u"-300"}, {u"300.1", u"1E3"}});
  EXPECT_EQ(BadInRange(), (Places{{2, 1}, {3, 2}, {4, 1}, {4, 2}})) << "the walk goes on to the end";
}

TEST_F(LnrCheckTest, UnorderedXPass) {
  SetUpPoints(16);
  Fill({{u"50", u"0"}, {u"10", u"100"}, {u"10", u"100"}, {u"-200", u"250"}});
  EXPECT_EQ(BadInRange(), Places());
}

TEST_F(LnrCheckTest, AnEmptyCellCountsAsZeroAndPasses) {
  SetUpPoints(100);
  Fill({{u"50", u""}, {u"", u"  "}, {u"", u"5"}});
  EXPECT_EQ(BadInRange(), Places());
}

TEST_F(LnrCheckTest, ATextThatIsNoNumberIsMarked) {
  SetUpPoints(16);
  Fill({{u"Size", u"5"}, {u"12.5%", u"?"}});
  EXPECT_EQ(BadInRange(), (Places{{1, 1}, {2, 2}}));
}

TEST_F(LnrCheckTest, AUnitBehindTheNumberPassesAndFurtherDigitsAreMarked) {
  SetUpPoints(16);
  Fill({{u"12.5 %", u"12,5"}, {u"1.5.2", u"3 mA"}, {u"1 000", u"7%"}});
  EXPECT_EQ(BadInRange(), (Places{{1, 2}, {2, 1}, {3, 1}}));
}

TEST_F(LnrCheckTest, TheLastPointOfBothShapesIsChecked) {
  for (const int points : {16, 100}) {
    SetUpPoints(points);
    Fill({{u"0", u"300"}}, points);
    EXPECT_EQ(BadInRange(), (Places{{points, 2}}));
  }
}

TEST_F(LnrCheckTest, ACorrectedCellLosesItsMark) {
  SetUpPoints(16);
  Fill({{u"300", u"0"}});
  CheckLnrRange(table_);
  table_.Store(1, 1, u"30");
  EXPECT_EQ(BadInRange(), Places());
}

TEST_F(LnrCheckTest, APointThatTheGridDoesNotShowIsCheckedToo) {
  SetUpPoints(100);
  table_.Store(50, 1, u"400");
  grid_.Resize(17, 3);
  EXPECT_FALSE(CheckLnrRange(table_));
}

// The check of the other families.

TEST_F(LnrCheckTest, ATableWithOnlyOnePointIsBadAsItHasTwoAtTheLeast) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}});
  EXPECT_EQ(BadInCurve(), (Places{{2, 1}, {2, 2}}));
}

TEST_F(LnrCheckTest, ABlankTableIsBadInItsFirstTwoPoints) {
  SetUpPoints(16);
  EXPECT_EQ(BadInCurve(), (Places{{1, 1}, {1, 2}, {2, 1}, {2, 2}}));
}

TEST_F(LnrCheckTest, TwoPointsAreATable) {
  SetUpPoints(100);
  Fill({{u"0", u"100"}, {u"100", u"0"}});
  EXPECT_EQ(BadInCurve(), Places());
}

TEST_F(LnrCheckTest, APointBehindTheEndOfTheTableIsMarked) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}, {u"10", u"5"}, {u"20", u"5"}, {u"30", u"8"}, {u"40", u"50"}});
  Fill({{u"80", u"90"}}, 8);
  EXPECT_EQ(BadInCurve(), (Places{{8, 1}, {8, 2}}));
}

TEST_F(LnrCheckTest, OnceTheTableHasEndedAnEmptyXIsGoodAndItsYIsNot) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}, {u"10", u"5"}, {u"20", u"5"}, {u"", u""}, {u"", u"8"}});
  EXPECT_EQ(BadInCurve(), (Places{{5, 2}}));
}

TEST_F(LnrCheckTest, AnXEqualToTheOneBeforeIsMarkedAndYMayFall) {
  SetUpPoints(16);
  Fill({{u"0", u"100"}, {u"50", u"40"}, {u"50", u"20"}, {u"60", u"10"}});
  EXPECT_EQ(BadInCurve(), (Places{{3, 1}}));
}

TEST_F(LnrCheckTest, AnXThatFallsIsTheMeasureOfTheNext) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}, {u"50", u"0"}, {u"40", u"0"}, {u"45", u"0"}});
  EXPECT_EQ(BadInCurve(), (Places{{3, 1}}));
}

TEST_F(LnrCheckTest, TheLimitsOfBothValuesCount) {
  SetUpPoints(16);
  Fill({{u"-15", u"-15"}, {u"0", u"-15.01"}, {u"50", u"115.01"}, {u"115", u"115"}});
  EXPECT_EQ(BadInCurve(), (Places{{2, 2}, {3, 2}}));
  Fill({{u"-15.01", u"0"}, {u"0", u"0"}, {u"50", u"0"}, {u"115.01", u"0"}});
  EXPECT_EQ(BadInCurve(), (Places{{1, 1}, {4, 1}}));
}

TEST_F(LnrCheckTest, OneEmptyValueOfAPointIsMarked) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}, {u"10", u"5"}, {u"", u"7"}, {u"30", u""}, {u"40", u"9"}});
  EXPECT_EQ(BadInCurve(), (Places{{3, 1}, {4, 2}}));
}

TEST_F(LnrCheckTest, ATextThatIsNoNumberIsMarkedAndIsNoMeasureOfTheNext) {
  SetUpPoints(16);
  Fill({{u"0", u"0"}, {u"abc", u"x"}, {u"5", u"5"}});
  EXPECT_EQ(BadInCurve(), (Places{{2, 1}, {2, 2}}));
}

TEST_F(LnrCheckTest, ATableMayFillAllItsPoints) {
  for (const int points : {16, 100}) {
    SetUpPoints(points);
    for (int row = 1; row <= points; ++row) {
      Fill({{Ascii(std::to_string(row)), u"1"}}, row);
    }
    EXPECT_EQ(BadInCurve(), Places());
  }
}

TEST_F(LnrCheckTest, TheBarShowsTheShareOfCellsDone) {
  SetUpPoints(16);
  std::vector<int> shown;
  bar_.Observe([&] { shown.push_back(static_cast<int>(std::lround(bar_.Value() * 100))); });
  CheckCurve();
  ASSERT_EQ(shown.size(), 32U);
  EXPECT_EQ(shown.front(), 313) << "the first of 32 cells, in hundredths of a percent";
  EXPECT_EQ(shown.at(15), 5000);
  EXPECT_EQ(shown.back(), 10000);
}

TEST_F(LnrCheckTest, ALaterCheckClearsTheMarksOfAnEarlierOne) {
  SetUpPoints(16);
  CheckCurve();
  Fill({{u"0", u"0"}, {u"100", u"100"}});
  EXPECT_EQ(BadInCurve(), Places());
}

// What the families ask for.

struct FamilyCase {
  StringView word;
  int points;
  LnrRule rule;
  StringView x_head;
};

TEST(LnrFamilies, EachHasItsShapeItsHeadsAndItsCheck) {
  for (const FamilyCase& one :
       {FamilyCase{u"First", 0, LnrRule::Range, u"X(k)"}, FamilyCase{u"Third", 0, LnrRule::Range, u"X(k)"},
        FamilyCase{u"QXI", 100, LnrRule::Curve, u"  X(k)     %"},
        FamilyCase{u"Lite", 100, LnrRule::Curve, u"  X(k)        %"},
        FamilyCase{u"LiteSecond", 100, LnrRule::Curve, u"  X(k)        %"},
        FamilyCase{u"LiteThird", 100, LnrRule::Curve, u"  X(k)        %"},
        FamilyCase{u"LiteForth", 16, LnrRule::Curve, u"  X(k)        %"},
        FamilyCase{u"LiteFifth", 100, LnrRule::Curve, u"  X(k)        %"}}) {
    const LnrFamily& family = EntryOf(one.word).record.table.Value();
    EXPECT_EQ(family.points, one.points) << ToUtf8(one.word);
    EXPECT_EQ(family.rule, one.rule) << ToUtf8(one.word);
    EXPECT_EQ(family.quantities.front().heads.at(1), one.x_head) << ToUtf8(one.word);
  }
}

TEST(LnrFamilies, TheUniversalPagesTableIsOneOfPercentOrOfASensor) {
  const auto quantities = EntryOf(u"QXI").record.table.Value().quantities;
  ASSERT_EQ(quantities.size(), 3U);
  EXPECT_EQ(quantities[0].kind, u"L");
  EXPECT_EQ(quantities[0].x_limits.low, -15);
  EXPECT_EQ(quantities[0].y_limits.high, 115);
  EXPECT_EQ(quantities[1].kind, u"T");
  EXPECT_EQ(quantities[1].heads, (LnrHeads{u"  k", u"  X(k)    ｰC", u"  Y(k)    uV"}));
  EXPECT_EQ(quantities[1].x_limits.low, -273);
  EXPECT_EQ(quantities[1].x_limits.high, 3000);
  EXPECT_EQ(quantities[1].y_limits.low, -69000);
  EXPECT_EQ(quantities[2].kind, u"R");
  EXPECT_EQ(quantities[2].heads, (LnrHeads{u"  k", u"  X(k)    ｰC", u"  Y(k)   Ohm"}));
  EXPECT_EQ(quantities[2].x_limits.low, -200);
  EXPECT_EQ(quantities[2].x_limits.high, 850);
  EXPECT_EQ(quantities[2].y_limits.high, 69000);
}

}  // namespace
}  // namespace korva
