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

constexpr LnrHeads kHeads = {u"k", u"X(k)", u"Y(k)"};

class LnrTableTest : public testing::TestWithParam<int> {
 protected:
  LnrTableTest() {
    // Each value tells its own place.
    for (int row = 1; row <= Points(); ++row) {
      for (int column = 1; column <= 2; ++column) {
        const auto place = PointItem(Points(), row, column).value();
        set_.Set(place.group, place.item, Value(row, column));
      }
    }
    table_.SetUp(Points());
  }
  static int Points() { return GetParam(); }
  static String Value(int row, int column) {
    return Ascii(std::to_string(row) + "." + std::to_string(column));
  }
  void ExpectEmptyCells() {
    for (int row = 1; row <= Points(); ++row) {
      for (int column = 1; column <= 2; ++column) {
        EXPECT_EQ(grid_.At(row, column), (Grid::Cell{.text = u"", .look = Look::Normal}));
      }
    }
    EXPECT_EQ(grid_.At(0, 1).text, u"X(k)");
    EXPECT_EQ(grid_.At(2, 0).text, u"02");
  }

  ParameterSet set_{4};
  Grid grid_{"LnrFlexGrid"};
  LnrTable table_{set_, grid_, kHeads};
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
  EXPECT_EQ(grid_.Rows(), Points() + 1);
  EXPECT_EQ(grid_.Columns(), 3);
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
    EXPECT_EQ(table_.Value(row, 2), Value(row, 2));
  }
}

TEST_P(LnrTableTest, TheGridIsRebuiltInThePlainColours) {
  table_.SetLook(1, 1, Look::Bad);
  table_.SetLook(Points(), 2, Look::Selected);
  table_.SetLook(0, 1, Look::Selected);
  table_.ShowLnrTable();
  EXPECT_EQ(grid_.At(1, 1).look, Look::Normal);
  EXPECT_EQ(grid_.At(Points(), 2).look, Look::Normal);
  EXPECT_EQ(grid_.At(0, 1).look, Look::Normal);
}

TEST_P(LnrTableTest, ClearingTheMarksLeavesTheTexts) {
  table_.SetLook(2, 1, Look::Bad);
  table_.ClearLnrMarks();
  EXPECT_EQ(grid_.At(2, 1), (Grid::Cell{.text = Value(2, 1), .look = Look::Normal}));
}

TEST_P(LnrTableTest, AnEmptySetEmptiesTheValuesThatWereShown) {
  set_.Clear();
  table_.ShowLnrTable();
  ExpectEmptyCells();
}

TEST_P(LnrTableTest, ClearingTheGridEmptiesTheValuesAndTheirMarksAndLeavesTheHeadsAndTheSet) {
  table_.SetLook(Points(), 1, Look::Bad);
  table_.ClearGrid();
  ExpectEmptyCells();
  EXPECT_EQ(table_.Value(3, 1), Value(3, 1));
  EXPECT_FALSE(table_.IsBlank());
}

TEST_P(LnrTableTest, ClearingTheTableEmptiesItsPlacesInTheSetToo) {
  set_.Set(1, 59, u"kept");
  set_.Set(1, 92, u"kept");
  table_.Clear();
  ExpectEmptyCells();
  EXPECT_TRUE(table_.IsBlank());
  EXPECT_EQ(set_.At(1, 59), u"kept");
  EXPECT_EQ(set_.At(1, 92), u"kept");
}

TEST_P(LnrTableTest, OneTextMakesItATable) {
  table_.Clear();
  table_.Store(Points(), 2, u"  ");
  EXPECT_TRUE(table_.IsBlank());
  table_.Store(Points(), 2, u"0");
  EXPECT_FALSE(table_.IsBlank());
}

TEST_P(LnrTableTest, ATextIsStoredAtItsPlaceAndShownInItsCell) {
  table_.Store(2, 2, u"77.5");
  const auto place = PointItem(Points(), 2, 2).value();
  EXPECT_EQ(set_.At(place.group, place.item), u"77.5");
  EXPECT_EQ(grid_.At(2, 2).text, u"77.5");
}

TEST_P(LnrTableTest, HeadsAndPointNumbersStoreNothing) {
  const ParameterSet before = set_;
  for (const auto& [row, column] : {std::pair(0, 1), std::pair(1, 0), std::pair(0, 0)}) {
    const String text = grid_.At(row, column).text;
    table_.Store(row, column, u"77");
    EXPECT_EQ(grid_.At(row, column).text, text);
  }
  table_.Store(Points() + 1, 1, u"77");
  for (int group = 0; group < set_.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      EXPECT_EQ(set_.At(group, item), before.At(group, item));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothShapes, LnrTableTest, testing::Values(16, 100));

TEST(LnrTable, ShowsTheShortTablesItemsOnlyInTheShortGridAndTheLongTablesOnlyInTheLong) {
  ParameterSet set(4);
  set.Set(1, 60, u"short");
  set.Set(2, 0, u"long");
  Grid grid("LnrFlexGrid");
  LnrTable table(set, grid, kHeads);
  table.SetUp(16);
  EXPECT_EQ(grid.At(1, 1).text, u"short");
  table.SetUp(100);
  EXPECT_EQ(grid.At(1, 1).text, u"long");
}

TEST(LnrTable, PointsBeyondTheGridAreKeptAndNotShown) {
  ParameterSet set(4);
  Grid grid("LnrFlexGrid");
  LnrTable table(set, grid, kHeads);
  table.SetUp(100);
  grid.Resize(17, 3);
  table.Store(17, 1, u"5");
  table.SetLook(17, 1, Look::Bad);
  EXPECT_EQ(table.Value(17, 1), u"5");
  EXPECT_EQ(table.LookOf(17, 1), Look::Normal);
  table.ShowLnrTable();
  EXPECT_EQ(grid.Rows(), 17);
}

}  // namespace
}  // namespace korva
