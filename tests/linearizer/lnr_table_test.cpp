#include "linearizer/lnr_table.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "core/text_utilities.h"

namespace korva {
namespace {

struct KnownPlace {
  int points;
  int row;
  int column;
  int group;
  int item;
};

class PointItemTest : public testing::TestWithParam<KnownPlace> {};

TEST_P(PointItemTest, FindsTheItemOfAPointsValue) {
  const KnownPlace& known = GetParam();
  const auto place = PointItem(known.points, known.row, known.column);
  ASSERT_TRUE(place);
  EXPECT_EQ(place->group, known.group);
  EXPECT_EQ(place->item, known.item);
}

INSTANTIATE_TEST_SUITE_P(
    BothShapes, PointItemTest,
    testing::Values(KnownPlace{.points = 16, .row = 1, .column = 1, .group = 1, .item = 60},
                    KnownPlace{.points = 16, .row = 1, .column = 2, .group = 1, .item = 61},
                    KnownPlace{.points = 16, .row = 2, .column = 1, .group = 1, .item = 62},
                    KnownPlace{.points = 16, .row = 16, .column = 2, .group = 1, .item = 91},
                    KnownPlace{.points = 100, .row = 1, .column = 1, .group = 2, .item = 0},
                    KnownPlace{.points = 100, .row = 1, .column = 2, .group = 2, .item = 1},
                    KnownPlace{.points = 100, .row = 50, .column = 1, .group = 2, .item = 98},
                    KnownPlace{.points = 100, .row = 50, .column = 2, .group = 2, .item = 99},
                    KnownPlace{.points = 100, .row = 51, .column = 1, .group = 3, .item = 0},
                    KnownPlace{.points = 100, .row = 100, .column = 2, .group = 3, .item = 99}));

struct NoPlace {
  int points;
  int row;
  int column;
};

class OutsideTheTableTest : public testing::TestWithParam<NoPlace> {};

TEST_P(OutsideTheTableTest, NoItemIsFound) {
  EXPECT_FALSE(PointItem(GetParam().points, GetParam().row, GetParam().column));
}

INSTANTIATE_TEST_SUITE_P(HeadsNumbersAndBeyond, OutsideTheTableTest,
                         testing::Values(NoPlace{16, 0, 1}, NoPlace{16, 1, 0}, NoPlace{16, 1, 3},
                                         NoPlace{16, 17, 1}, NoPlace{16, -1, 1}, NoPlace{100, 0, 2},
                                         NoPlace{100, 101, 1}, NoPlace{100, 100, 3}, NoPlace{100, 1, -1}));

class LnrTableTest : public testing::TestWithParam<int> {
 protected:
  LnrTableTest() {
    grid_.Resize(Points() + 1, kLnrColumns);
    // Each value tells its own place.
    for (int row = 1; row <= Points(); ++row) {
      for (int column = 1; column <= 2; ++column) {
        const auto place = PointItem(Points(), row, column).value();
        set_.Set(place.group, place.item, Value(row, column));
      }
    }
  }
  static int Points() { return GetParam(); }
  static String Value(int row, int column) {
    return Ascii(std::to_string(row) + "." + std::to_string(column));
  }

  ParameterSet set_{4};
  Grid grid_{"LnrFlexGrid"};
};

TEST_P(LnrTableTest, EachValueHasAnItemOfItsOwn) {
  std::set<std::pair<int, int>> places;
  for (int row = 1; row <= Points(); ++row) {
    for (int column = 1; column <= 2; ++column) {
      const auto place = PointItem(Points(), row, column).value();
      EXPECT_TRUE(set_.Has(place.group, place.item));
      places.emplace(place.group, place.item);
    }
  }
  EXPECT_EQ(places.size(), static_cast<std::size_t>(Points()) * 2);
}

TEST_P(LnrTableTest, TheGridShowsHeadsPointNumbersAndBothValuesOfEachPoint) {
  ShowLnrTable(set_, grid_);
  EXPECT_EQ(LnrPoints(grid_), Points());
  EXPECT_EQ(grid_.At(0, 0).text, u"k");
  EXPECT_EQ(grid_.At(0, 1).text, u"X(k)");
  EXPECT_EQ(grid_.At(0, 2).text, u"Y(k)");
  EXPECT_EQ(grid_.At(1, 0).text, u"01");
  EXPECT_EQ(grid_.At(9, 0).text, u"09");
  EXPECT_EQ(grid_.At(10, 0).text, u"10");
  EXPECT_EQ(grid_.At(Points(), 0).text, Points() == 16 ? u"16" : u"100");
  for (int row = 1; row <= Points(); ++row) {
    EXPECT_EQ(grid_.At(row, 1).text, Value(row, 1));
    EXPECT_EQ(grid_.At(row, 2).text, Value(row, 2));
  }
}

TEST_P(LnrTableTest, TheGridIsRebuiltInThePlainColours) {
  grid_.SetLook(1, 1, Look::Bad);
  grid_.SetLook(Points(), 2, Look::Selected);
  ShowLnrTable(set_, grid_);
  EXPECT_EQ(grid_.At(1, 1).look, Look::Normal);
  EXPECT_EQ(grid_.At(Points(), 2).look, Look::Normal);
}

TEST_P(LnrTableTest, AnEmptySetEmptiesTheValuesThatWereShown) {
  ShowLnrTable(set_, grid_);
  ShowLnrTable(ParameterSet(4), grid_);
  EXPECT_EQ(grid_.At(1, 1).text, u"");
  EXPECT_EQ(grid_.At(Points(), 2).text, u"");
  EXPECT_EQ(grid_.At(Points(), 0).text, Points() == 16 ? u"16" : u"100");
}

TEST_P(LnrTableTest, ClearingEmptiesTheValuesAndTheirMarksAndLeavesTheHeads) {
  ShowLnrTable(set_, grid_);
  grid_.SetLook(Points(), 1, Look::Bad);
  ClearLnrGrid(grid_);
  for (int row = 1; row <= Points(); ++row) {
    for (int column = 1; column <= 2; ++column) {
      EXPECT_EQ(grid_.At(row, column), (Grid::Cell{.text = u"", .look = Look::Normal}));
    }
  }
  EXPECT_EQ(grid_.At(0, 1).text, u"X(k)");
  EXPECT_EQ(grid_.At(2, 0).text, u"02");
}

INSTANTIATE_TEST_SUITE_P(BothShapes, LnrTableTest, testing::Values(16, 100));

TEST(LnrTable, ShowsTheShortTablesItemsOnlyInTheShortGridAndTheLongTablesOnlyInTheLong) {
  ParameterSet set(4);
  set.Set(1, 60, u"short");
  set.Set(2, 0, u"long");
  Grid grid("LnrFlexGrid");
  grid.Resize(17, kLnrColumns);
  ShowLnrTable(set, grid);
  EXPECT_EQ(grid.At(1, 1).text, u"short");
  grid.Resize(101, kLnrColumns);
  ShowLnrTable(set, grid);
  EXPECT_EQ(grid.At(1, 1).text, u"long");
}

}  // namespace
}  // namespace korva
