#include "core/curve.h"

#include <algorithm>
#include <optional>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kLeastColumns = 2;
constexpr double kLargest = 1e300;

constexpr StringView kRowsStandFor = u"deg C";  ///< where a scale tells what

bool HasXColumn(const Grid& grid) { return grid.Columns() > kLeastColumns; }

/// Column 1, or what the row stands for; nothing when that is no number.
std::optional<double> XOf(const Grid& grid, int row) {
  if (!HasXColumn(grid) && grid.ScaleOfRows()) {
    return grid.ScaleOfRows()->first + (row - 1) * grid.ScaleOfRows()->step;
  }
  const String& text = grid.At(row, HasXColumn(grid) ? 1 : 0).text;
  return IsNumeric(text) ? std::optional(LeadingNumber(text)) : std::nullopt;
}

bool HasLook(const Grid& grid, int row, Look look) {
  return grid.At(row, 1).look == look || grid.At(row, grid.Columns() - 1).look == look;
}

/// What the table's head says of a column. A head without a unit is one of percent values.
String TitleOf(const Grid& grid, int column) {
  String head = Simplified(grid.At(0, column).text);
  return head.find(u' ') == String::npos ? head.append(u" %") : head;
}

String TitleOfX(const Grid& grid) {
  if (HasXColumn(grid)) {
    return TitleOf(grid, 1);
  }
  return grid.ScaleOfRows() ? String(kRowsStandFor) : Simplified(grid.At(0, 0).text);
}

}  // namespace

double Drawable(double value) { return std::clamp(value, -kLargest, kLargest); }

Curve CurveOf(const Grid& grid) {
  if (grid.Columns() < kLeastColumns || grid.Rows() == 0) {
    return {};
  }
  Curve curve{.points = {}, .x_title = TitleOfX(grid), .y_title = TitleOf(grid, grid.Columns() - 1)};
  const int last = std::min(grid.RowsInUse(), grid.Rows() - 1);
  for (int row = 1; row <= last; ++row) {
    const std::optional<double> x = XOf(grid, row);
    const String& y = grid.At(row, grid.Columns() - 1).text;
    if (x && IsNumeric(y)) {
      curve.points.push_back({.row = row,
                              .x = Drawable(*x),
                              .y = Drawable(LeadingNumber(y)),
                              .bad = HasLook(grid, row, Look::Bad),
                              .selected = HasLook(grid, row, Look::Selected)});
    }
  }
  return curve;
}

}  // namespace korva
