#pragma once

#include <vector>

#include "core/grid.h"
#include "platform/string.h"

namespace korva {

/// A row of a table as a point of its curve.
struct CurvePoint {
  int row = 0;  ///< of the grid, from 1
  double x = 0;
  double y = 0;
  bool bad = false;       ///< one of its cells is marked bad
  bool selected = false;  ///< one of its cells is under edit
  bool operator==(const CurvePoint&) const = default;
};

/// What the curve of a table shows: the points in the order of the table, and what its axes mean.
struct Curve {
  std::vector<CurvePoint> points;
  String x_title;
  String y_title;
  bool operator==(const Curve&) const = default;
};

/// The value, or the end of what can be drawn: so far from the largest number that the span of two is one
/// too.
double Drawable(double value);

/// The curve of a grid with three columns (number, X, Y) or two (number, Y) under a head row that names the
/// axes. One with a column of values has these over what its rows stand for (Grid::ScaleOfRows).
///
/// A row is a point when all of this are numbers; any other is left out. Rows that are not in use are none of
/// the table.
Curve CurveOf(const Grid& grid);

}  // namespace korva
