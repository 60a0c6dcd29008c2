#include "linearizer/lnr_table.h"

#include <array>
#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kFirstShortItem = 60;
constexpr int kPointsOfGroup = 50;
constexpr std::array<StringView, kLnrColumns> kHeads = {u"k", u"X(k)", u"Y(k)"};

String PointNumber(int point) {
  const std::string digits = std::to_string(point);
  return Ascii(point < 10 ? "0" + digits : digits);
}

}  // namespace

std::optional<PointPlace> PointItem(int points, int row, int column) {
  if (row < 1 || row > points || column < 1 || column > 2) {
    return std::nullopt;
  }
  if (points == kLnrShortPoints) {
    return PointPlace{.group = 1, .item = kFirstShortItem + 2 * (row - 1) + column - 1};
  }
  const int group = row <= kPointsOfGroup ? 2 : 3;
  return PointPlace{.group = group, .item = 2 * ((row - 1) % kPointsOfGroup) + column - 1};
}

int LnrPoints(const Grid& grid) { return grid.Rows() - 1; }

void ShowLnrTable(const ParameterSet& set, Grid& grid) {
  for (int column = 0; column < kLnrColumns; ++column) {
    grid.SetText(0, column, String(kHeads.at(static_cast<std::size_t>(column))));
  }
  const int points = LnrPoints(grid);
  for (int row = 1; row <= points; ++row) {
    grid.SetText(row, 0, PointNumber(row));
    for (int column = 1; column < kLnrColumns; ++column) {
      if (const auto place = PointItem(points, row, column)) {
        grid.SetText(row, column, set.At(place->group, place->item));
      }
      grid.SetLook(row, column, Look::Normal);
    }
  }
}

void ClearLnrGrid(Grid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 1; column < grid.Columns(); ++column) {
      grid.SetText(row, column, {});
      grid.SetLook(row, column, Look::Normal);
    }
  }
}

}  // namespace korva
